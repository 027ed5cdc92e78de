#include "utilities/frmCopiaPen.h"

#include "core/Modulo.h"
#include "ui/Colors.h"
#include "ui/Controls.h"
#include "ui/MsgBox.h"
#include "utilities/DatabaseCopy.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStorageInfo>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr qint64 kRojo = 255;
constexpr qint64 kVerde = 32768;

std::function<QList<frmCopiaPen::Unidad>()>& provider()
{
    static std::function<QList<frmCopiaPen::Unidad>()> p;
    return p;
}

bool existeCarpeta(const QString& path)
{
    return QFileInfo(path).isDir();
}

} // namespace

QList<frmCopiaPen::Unidad> frmCopiaPen::Unidades()
{
    if (provider())
        return provider()();
    QList<Unidad> unidades;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        if (volume.isValid() && volume.isReady() && !volume.isReadOnly() && existeCarpeta(volume.rootPath()))
            unidades.append({volume.rootPath(), volume.displayName()});
    std::sort(unidades.begin(), unidades.end(), [](const Unidad& a, const Unidad& b) { return a.ruta < b.ruta; });
    return unidades;
}

void frmCopiaPen::setUnidades(std::function<QList<Unidad>()> p)
{
    provider() = std::move(p);
}

frmCopiaPen::frmCopiaPen(QWidget* parent)
    : Form(parent), Drive1(new QComboBox(this)), txtRuta(new QLineEdit(this)), lblInforma(new QLabel(this)),
      cmdRealizar(ui::commandButton(this, "cmdRealizar", QStringLiteral("&Copiar"))),
      cmdRecuperar(ui::commandButton(this, "cmdRecuperar", QStringLiteral("&Recuperar"))),
      cmdCerrar(ui::commandButton(this, "cmdCerrar", QStringLiteral("&Salir")))
{
    setObjectName(QStringLiteral("frmCopiaPen"));
    setCaption(QStringLiteral("Copia de Seguridad"));
    // No close box: the only way out is cmdCerrar.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);

    Drive1->setObjectName(QStringLiteral("Drive1"));
    Drive1->setMinimumWidth(320);
    txtRuta->setObjectName(QStringLiteral("txtRuta"));
    txtRuta->setMinimumWidth(420);
    lblInforma->setObjectName(QStringLiteral("lblInforma"));
    QFont bold = lblInforma->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.15);
    lblInforma->setFont(bold);
    lblInforma->setMinimumHeight(lblInforma->fontMetrics().height() + 8);

    auto* lblUnidad = new QLabel(QStringLiteral("Unidad"), this);
    lblUnidad->setObjectName(QStringLiteral("lblUnidad"));
    lblUnidad->setBuddy(Drive1);
    auto* lblRuta = new QLabel(QStringLiteral("Destino u Origen para los datos:"), this);
    lblRuta->setObjectName(QStringLiteral("lblRuta"));
    lblRuta->setBuddy(txtRuta);

    auto* fields = new QGridLayout;
    fields->setVerticalSpacing(6);
    fields->addWidget(lblUnidad, 0, 0);
    fields->addWidget(Drive1, 1, 0);
    fields->addItem(new QSpacerItem(0, 8), 2, 0);
    fields->addWidget(lblRuta, 3, 0);
    fields->addWidget(txtRuta, 4, 0);
    fields->addItem(new QSpacerItem(0, 8), 5, 0);
    fields->addWidget(lblInforma, 6, 0);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdRealizar);
    buttons->addWidget(cmdRecuperar);
    buttons->addStretch(1);
    buttons->addWidget(cmdCerrar);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->addLayout(fields);
    layout->addStretch(1);
    layout->addSpacing(8);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetMinimumSize);

    for (const Unidad& u : Unidades())
        Drive1->addItem(u.nombre.isEmpty() || u.nombre == u.ruta ? u.ruta
                                                                 : u.ruta + QStringLiteral(" [") + u.nombre + u']',
                        u.ruta);

    onSignal(Drive1, &QComboBox::currentIndexChanged, &frmCopiaPen::Drive1_Change);
    onSignal(cmdRealizar, &QPushButton::clicked, &frmCopiaPen::cmdRealizar_Click);
    onSignal(cmdRecuperar, &QPushButton::clicked, &frmCopiaPen::cmdRecuperar_Click);
    connect(cmdCerrar, &QPushButton::clicked, this, &frmCopiaPen::cmdCerrar_Click);
}

QString frmCopiaPen::Raiz() const
{
    QString ruta = Drive1->currentData().toString();
    while (ruta.endsWith(u'/') || ruta.endsWith(u'\\'))
        ruta.chop(1);
    return ruta;
}

void frmCopiaPen::Drive1_Change()
{
    txtRuta->setText(Raiz() + QStringLiteral("/CopiaCadernia/") + gAno);
}

void frmCopiaPen::Form_Activate()
{
    // Failures here are ignored.
    try {
        if (Drive1->count() > 0)
            Drive1->setCurrentIndex(Drive1->count() - 1);
        Drive1_Change();
    } catch (const RuntimeError&) {
    }
}

void frmCopiaPen::closeEvent(QCloseEvent* event)
{
    // The window manager's close (Alt+F4) does nothing, as the missing close box says.
    if (event->spontaneous()) {
        event->ignore();
        return;
    }
    Form::closeEvent(event);
}

void frmCopiaPen::Informar(const QString& text, qint64 color)
{
    QPalette p = lblInforma->palette();
    p.setColor(QPalette::WindowText, ui::colorFromBgr(color));
    lblInforma->setPalette(p);
    lblInforma->setText(text);
    lblInforma->setVisible(true);
    lblInforma->repaint();
}

void frmCopiaPen::cmdRealizar_Click()
{
    if (txtRuta->text().isEmpty()) {
        MsgBox(QStringLiteral("No ha especificado una ruta"), vbCritical);
        return;
    }
    if (MsgBox(QStringLiteral("Se copiarán los datos a la unidad indicada") + QStringLiteral("\r\n") +
                   QStringLiteral("Asegúrese de que hay un disco en la unidad correspondente"),
               vbOKCancel + vbInformation) == vbOK) {
        const QString anual = gRutaBase + u'/' + gAno + QStringLiteral("/Xestion.mdb");
        const QString destino = txtRuta->text() + QStringLiteral("/Xestion.mdb");
        // A box that leads back to the year (a link, "..") would put the copy
        // in place of the file the session has open.
        if (utilities::sameFile(destino, anual) || (gConexion && utilities::sameFile(destino, gConexion->Path()))) {
            MsgBox(QStringLiteral("O destino da copia é o propio ficheiro do curso aberto: non se copiou."),
                   vbCritical);
            return;
        }
        Informar(QStringLiteral("Espere un momento ..."), kRojo);
        BusyCursor busy(this);
        // The folders come from the drive alone; the copy goes where the box says.
        const QString copias = Raiz() + QStringLiteral("/CopiaCadernia");
        if (!existeCarpeta(copias)) {
            utilities::makeFolder(copias);
            utilities::makeFolder(copias + u'/' + gAno);
        } else if (!existeCarpeta(copias + u'/' + gAno)) {
            utilities::makeFolder(copias + u'/' + gAno);
        }
        utilities::copyFile(anual, destino, gConexion.get());
    }
    // Cancel ends here too.
    QDir::setCurrent(RutaPrograma());
    Informar(QStringLiteral("La copia se ha completado"), kVerde);
}

void frmCopiaPen::cmdRecuperar_Click()
{
    if (txtRuta->text().isEmpty()) {
        MsgBox(QStringLiteral("No ha especificado una ruta"), vbCritical);
        return;
    }
    if (MsgBox(QStringLiteral("¡ A T E N C I Ó N !\r\n") +
                   QStringLiteral("Se reemplazarán los datos de facturación actuales\r\n") +
                   QStringLiteral("por los existentes en el archivo de seguridad\r\n") +
                   QStringLiteral("¿Desea continuar?"),
               vbYesNo + vbCritical) == vbYes) {
        Informar(QStringLiteral("Espere un momento ..."), kRojo);
        if (!existeCarpeta(Raiz() + QStringLiteral("/CopiaCadernia"))) {
            MsgBox(QStringLiteral("No se encontraron datos en la unidad indicada"), vbInformation);
            return;
        }
        const QString origen = txtRuta->text();
        if (!existeCarpeta(origen))
            utilities::pathNotFound(origen);
        const QString copia = origen + QStringLiteral("/Xestion.mdb");
        if (!QFileInfo(copia).isFile()) {
            MsgBox(QStringLiteral("No se encontraron datos en la unidad indicada"), vbInformation);
            return;
        }
        // The backup is checked before anything of the year is touched.
        bool sana = true;
        {
            BusyCursor busy(this);
            try {
                utilities::checkYearDatabase(copia);
            } catch (const RuntimeError&) {
                sana = false;
            }
        }
        if (!sana) {
            MsgBox(QStringLiteral("A copia de seguridade está danada: non se restaurou."), vbCritical);
            lblInforma->setVisible(false); // nothing is under way any more
            return;
        }
        BusyCursor busy(this);
        const QString carpeta = gRutaBase + u'/' + gAno;
        // The year being replaced stays beside it, as it was.
        utilities::keepSafetyCopy(carpeta + QStringLiteral("/Xestion.mdb"), gConexion.get(), copia);
        // The session lets go of the file while it is replaced.
        if (gConexion)
            gConexion->Close();
        try {
            utilities::copyFolder(origen, carpeta);
        } catch (const RuntimeError&) {
            // Each file is either the old one or the whole new one: the
            // session goes on with what is there.
            AbrirConexion();
            throw;
        }
        AbrirConexion();
    }
    QDir::setCurrent(RutaPrograma());
    Informar(QStringLiteral("La recuperación se ha completado"), kVerde);
}

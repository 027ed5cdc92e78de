#include "app/frmConfiguracion.h"

#include "core/Modulo.h"
#include "masterdata/frmCursos.h"
#include "masterdata/frmEvaluaciones.h"
#include "masterdata/frmGrupos.h"
#include "masterdata/frmMaterias.h"
#include "masterdata/frmNiveles.h"
#include "masterdata/frmTareasTipos.h"
#include "ui/Printers.h"
#include "ui/RuntimeErrorBox.h"
#include "vb/Vb.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QVBoxLayout>

template <class F>
void frmConfiguracion::Abrir()
{
    // The list comes back without refilling the printers.
    Tag = QStringLiteral("A");
    ui::guardRuntime([this] {
        BusyCursor busy(this);
        F form(this);
        ShowModal(&form);
    });
}

frmConfiguracion::frmConfiguracion(QWidget* parent) : Form(parent)
{
    setObjectName(QStringLiteral("frmConfiguracion"));
    setCaption(QStringLiteral("Configuración de Parámetros"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);

    auto* catalogos = new QWidget(this);
    catalogos->setObjectName(QStringLiteral("fraCatalogos"));
    auto* grid = new QGridLayout(catalogos);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(10);
    int position = 0;
    auto button = [&](const char* name, const QString& caption, auto handler) {
        auto* b = new QPushButton(caption, catalogos);
        b->setObjectName(QLatin1String(name));
        b->setAutoDefault(false);
        b->setMinimumSize(170, 48);
        QFont f = b->font();
        f.setBold(true);
        b->setFont(f);
        grid->addWidget(b, position / 3, position % 3);
        ++position;
        if (handler)
            connect(b, &QPushButton::clicked, this, handler);
        return b;
    };
    using Handler = void (frmConfiguracion::*)();
    button("cmdNiveles", QStringLiteral("&NIVELES"), Handler(&frmConfiguracion::Abrir<frmNiveles>));
    button("cmdCursos", QStringLiteral("&CURSOS"), Handler(&frmConfiguracion::Abrir<frmCursos>));
    button("cmdGrupos", QStringLiteral("&GRUPOS"), Handler(&frmConfiguracion::Abrir<frmGrupos>));
    button("cmdEvaluaciones", QStringLiteral("&EVALUACIONES"), Handler(&frmConfiguracion::Abrir<frmEvaluaciones>));
    button("cmdTareasTipos", QStringLiteral("&TIPOS DE TAREAS"), Handler(&frmConfiguracion::Abrir<frmTareasTipos>));
    button("cmdMaterias", QStringLiteral("&MATERIAS"), Handler(&frmConfiguracion::Abrir<frmMaterias>));
    layout->addWidget(catalogos);

    auto* impresoras = new QGroupBox(QStringLiteral("Impresoras"), this);
    impresoras->setObjectName(QStringLiteral("fraImpresoras"));
    QFont normal = impresoras->font();
    normal.setBold(false); // set, not inherited, so that it holds under the bold title
    QFont bold = normal;
    bold.setBold(true);
    impresoras->setFont(bold); // the title; the lists and their labels keep the normal face
    auto* row = new QGridLayout(impresoras);
    row->setContentsMargins(12, 14, 12, 12);
    row->setHorizontalSpacing(16);
    row->setVerticalSpacing(4);
    const QString captions[2] = {QStringLiteral("Informes"), QStringLiteral("PDF")};
    for (int i = 0; i < 2; ++i) {
        auto* label = new QLabel(captions[i], impresoras);
        label->setObjectName(QStringLiteral("lblImpresora"));
        label->setProperty("Index", i);
        auto* combo = new QComboBox(impresoras);
        combo->setObjectName(QStringLiteral("cmbImpresora"));
        combo->setProperty("Index", i);
        combo->setMinimumWidth(240);
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        label->setFont(normal);
        combo->setFont(normal);
        label->setBuddy(combo);
        row->addWidget(label, 0, i);
        row->addWidget(combo, 1, i);
        row->setColumnStretch(i, 1);
        cmbImpresora_[i] = combo;
    }
    layout->addWidget(impresoras);
    layout->addStretch(1);
}

void frmConfiguracion::Form_Activate()
{
    if (consumeTagA())
        return;
    RellenarImpresoras();
}

void frmConfiguracion::RellenarImpresoras()
{
    const QStringList printers = Printers::available();
    for (QComboBox* combo : cmbImpresora_) {
        combo->clear();
        combo->addItems(printers);
        combo->setCurrentIndex(-1); // a filled list starts with nothing chosen
    }
    // From here on failures are ignored, each choice on its own: an empty or
    // unreadable line, or a position that is not in the list, leaves nothing
    // selected.
    for (int i = 0; i < 2; ++i) {
        QComboBox* combo = cmbImpresora_[i];
        try {
            int line = i;
            const QVariant stored = LeerImpresora(line);
            // No imp.ini: an empty value, which converts to 0.
            const int position = stored.isValid() ? vb::CInt(stored) : 0;
            if (position >= -1 && position < combo->count())
                combo->setCurrentIndex(position);
        } catch (const RuntimeError&) {
        }
    }
}

void frmConfiguracion::GuardarImpresoras()
{
    const QString path = RutaPrograma() + QStringLiteral("/imp.ini");
    const QByteArray text = QByteArray::number(cmbImpresora_[0]->currentIndex()) + "\r\n" +
                            QByteArray::number(cmbImpresora_[1]->currentIndex()) + "\r\n";
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        throw RuntimeError(
            75, QStringLiteral("Error de acceso a la ruta o el archivo ('%1'): %2").arg(path, file.errorString()));
}

void frmConfiguracion::done(int result)
{
    // Every way of closing ends here: closing is saving, there is no Cancel.
    ui::guardRuntime([this] { GuardarImpresoras(); });
    Form::done(result);
}

#include "masterdata/frmAno.h"

#include "core/Modulo.h"
#include "ui/Controls.h"
#include "ui/MsgBox.h"
#include "ui/RuntimeErrorBox.h"
#include "utilities/Compactar.h"
#include "utilities/ConfigLine.h"
#include "utilities/DatabaseCopy.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The main window shows the year in its caption. It is found among the
// top-level windows by its name, so that this screen needs nothing of it.
void PonermainWindowCaption()
{
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == QLatin1String("frmPrincipal"))
            w->setWindowTitle(mainWindowCaption());
}

// AbrirConexion takes the year from the ano.ini beside the program, which
// names the new year only when the program folder is the base folder too.
// Otherwise the session is put on the new year here, so that emptying and
// compacting never touch the year it was copied from.
void SesionEnCurso(const QString& nombre)
{
    if (gAno == nombre)
        return;
    gAno = nombre;
    gRutaBD = gRutaBase + u'/' + gAno + QStringLiteral("/Xestion.mdb");
    gConexion = db::Connection::Open(gRutaBD);
}

} // namespace

frmAno::frmAno(QWidget* parent)
    : Form(parent), lstInforma(new QListWidget(this)), fraCrear(new QGroupBox(QStringLiteral("Crear Curso"), this)),
      txtAno(new QLineEdit(fraCrear)), cmdCrear(ui::commandButton(fraCrear, "cmdCrear", QStringLiteral("&Crear"))),
      cmdSalir(ui::commandButton(this, "cmdSalir", QStringLiteral("&Salir")))
{
    setObjectName(QStringLiteral("frmAno"));
    setCaption(QStringLiteral("Cursos académicos"));
    lstInforma->setObjectName(QStringLiteral("lstInforma"));
    lstInforma->setMinimumSize(240, 260);
    fraCrear->setObjectName(QStringLiteral("fraCrear"));
    txtAno->setObjectName(QStringLiteral("txtAno"));
    txtAno->setMaxLength(10);
    txtAno->setMinimumWidth(txtAno->fontMetrics().horizontalAdvance(QStringLiteral("0000-00000")) + 40);
    txtAno->installEventFilter(this);

    auto* crear = new QVBoxLayout(fraCrear);
    crear->addWidget(txtAno);
    crear->addWidget(cmdCrear, 0, Qt::AlignRight);

    auto* side = new QVBoxLayout;
    side->addWidget(fraCrear);
    side->addStretch(1);
    side->addWidget(cmdSalir, 0, Qt::AlignRight);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addWidget(lstInforma, 1);
    layout->addLayout(side);

    setCancelButton(cmdSalir);
    onSignal(cmdCrear, &QPushButton::clicked, &frmAno::cmdCrear_Click);
    connect(lstInforma, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        const QString nombre = item->text();
        ui::guardRuntime([&] { lstInforma_DblClick(nombre); });
    });
    connect(cmdSalir, &QPushButton::clicked, this, &Form::Unload);
}

void frmAno::Form_Activate()
{
    // The list is not emptied first: each activation adds the names again.
    const QStringList carpetas =
        QDir(gRutaBase).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    for (const QString& nombre : carpetas)
        if (QFileInfo::exists(gRutaBase + u'/' + nombre + QStringLiteral("/Xestion.mdb"))) {
            lstInforma->addItem(nombre);
            // The open year stands out in bold, and the list starts on it.
            if (nombre == gAno) {
                QListWidgetItem* item = lstInforma->item(lstInforma->count() - 1);
                QFont bold = item->font();
                bold.setBold(true);
                item->setFont(bold);
                lstInforma->setCurrentItem(item);
            }
        }
    lstInforma->setFocus();
}

bool frmAno::eventFilter(QObject* watched, QEvent* event)
{
    // Enter in the name only takes the focus to the button.
    if (watched == txtAno && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            cmdCrear->setFocus();
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

QStringList frmAno::BorradosCursoNuevo()
{
    return {
        QStringLiteral("DELETE * FROM tblAlumnos"),
        QStringLiteral("DELETE * FROM tblIncidencias"),
        QStringLiteral("DELETE * FROM tblNotas"),
        QStringLiteral("DELETE * FROM tblNotasEval"),
        QStringLiteral("DELETE * FROM tblNotasFinal"),
        QStringLiteral("DELETE * FROM tblTareas"),
        QStringLiteral("DELETE * FROM tblDiarioClase"),
        QStringLiteral("DELETE * FROM tblHorarioSesiones"),
        QStringLiteral("DELETE * FROM tblNotasRubrica"),
        QStringLiteral("DELETE * FROM tblTareasRubrica"),
        QStringLiteral("DELETE * FROM tblTareasRubricaValoracion"),
    };
}

void frmAno::cmdCrear_Click()
{
    BusyCursor busy(this);
    const QString nombre = txtAno->text();
    if (nombre.isEmpty()) {
        MsgBox(QStringLiteral("Ponga un curso"), vbInformation);
        txtAno->setFocus();
        return;
    }
    const QString carpeta = gRutaBase + u'/' + nombre;
    // Any folder of that name blocks it, with or without a database.
    if (QFileInfo(carpeta).isDir()) {
        MsgBox(QStringLiteral("Este curso ya está creado"), vbCritical, QStringLiteral("Atención!!"));
        return;
    }

    utilities::copyFolder(gRutaBase + u'/' + gAno, carpeta, gConexion.get());
    gAno = nombre;
    // Under the base folder: the program's own ano.ini keeps the year it starts with.
    utilities::EscribirLinea(gRutaBase + QStringLiteral("/ano.ini"), gAno);
    AbrirConexion();
    SesionEnCurso(nombre);

    {
        // The tables of the year's work start empty; the frame stays, and so
        // do the tutoring appointments and marks.
        const db::ConnectionPtr local = db::Connection::Open(gRutaBD);
        for (const QString& sql : BorradosCursoNuevo())
            local->Execute(sql);
        local->Close();
    }

    Compactar();
    SesionEnCurso(nombre);
    PonermainWindowCaption();
    Unload();
}

void frmAno::lstInforma_DblClick(const QString& nombre)
{
    if (!QFileInfo(gRutaBase + u'/' + nombre).isDir()) {
        MsgBox(QStringLiteral("El curso ") + nombre + QStringLiteral(" no existe"), vbCritical,
               QStringLiteral("Atención!!"));
        txtAno->setFocus();
        return;
    }
    gAno = nombre;
    QDir::setCurrent(RutaPrograma());
    utilities::EscribirLinea(RutaPrograma() + QStringLiteral("/ano.ini"), gAno);
    if (gConexion)
        gConexion->Close();
    AbrirConexion();
    PonermainWindowCaption();
    Unload();
}

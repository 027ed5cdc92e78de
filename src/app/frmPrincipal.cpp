#include "app/frmPrincipal.h"

#include "app/Logo.h"
#include "app/frmAcercaDe.h"
#include "app/frmConfiguracion.h"
#include "assessment/frmEstatisticas.h"
#include "assessment/frmTareas.h"
#include "core/Modulo.h"
#include "masterdata/frmAno.h"
#include "masterdata/frmCursos.h"
#include "masterdata/frmEvaluaciones.h"
#include "masterdata/frmGrupos.h"
#include "masterdata/frmMaterias.h"
#include "masterdata/frmNiveles.h"
#include "masterdata/frmTareasTipos.h"
#include "students/frmAlumnos.h"
#include "students/frmComunicacionRecibir.h"
#include "ui/MsgBox.h"
#include "ui/RuntimeErrorBox.h"
#include "utilities/frmColor.h"
#include "utilities/frmCopiaPen.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLinearGradient>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <cstdio>
#include <cstdlib>

namespace {

QPointer<frmPrincipal>& current()
{
    static QPointer<frmPrincipal> window;
    return window;
}

std::function<void()>& processEnd()
{
    static std::function<void()> end;
    return end;
}

// The band across the top: the picture, the program's name and the year.
class Cabecera : public QWidget {
public:
    explicit Cabecera(QWidget* parent) : QWidget(parent) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        QLinearGradient g(rect().topLeft(), rect().topRight());
        g.setColorAt(0, QColor(0x1d, 0x4a, 0x80));
        g.setColorAt(1, QColor(0x2f, 0x6f, 0xb3));
        p.fillRect(rect(), g);
        p.setPen(QColor(0x16, 0x3a, 0x66));
        p.drawLine(rect().bottomLeft(), rect().bottomRight());
    }
};

QFont scaledFont(const QFont& base, qreal factor, bool bold)
{
    QFont f = base;
    f.setPointSizeF(base.pointSizeF() * factor);
    f.setBold(bold);
    return f;
}

} // namespace

frmPrincipal::frmPrincipal(QWidget* parent) : Form(parent)
{
    current() = this;
    setObjectName(QStringLiteral("frmPrincipal"));
    // A top-level window of its own, not a dialog box.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                   Qt::WindowCloseButtonHint);
    setSizeGripEnabled(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    buildMenu();
    layout->setMenuBar(menuBar_);
    buildHeader();
    layout->addWidget(header_);
    buildBands();
    layout->addWidget(bands_, 1);

    setCaption(mainWindowCaption());
    resize(900, 600);
}

frmPrincipal::~frmPrincipal()
{
    if (current() == this)
        current() = nullptr;
}

frmPrincipal* frmPrincipal::instance()
{
    return current();
}

void frmPrincipal::setProcessEnd(std::function<void()> end)
{
    processEnd() = std::move(end);
}

template <class F>
void frmPrincipal::Abrir()
{
    ui::guardRuntime([this] {
        BusyCursor busy(this);
        F form(this);
        ShowModal(&form);
    });
}

void frmPrincipal::buildHeader()
{
    header_ = new Cabecera(this);
    header_->setObjectName(QStringLiteral("fraCabecera"));
    auto* row = new QHBoxLayout(header_);
    row->setContentsMargins(20, 14, 24, 14);
    row->setSpacing(16);

    auto* logo = new QLabel(header_);
    logo->setObjectName(QStringLiteral("imgLogo"));
    logo->setPixmap(app::logoPixmap(64, devicePixelRatioF()));
    logo->setFixedSize(64, 64);
    row->addWidget(logo);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    auto* titulo = new QLabel(QStringLiteral("Cadernia"), header_);
    titulo->setObjectName(QStringLiteral("lblTitulo"));
    titulo->setFont(scaledFont(font(), 2.2, true));
    lblCurso_ = new QLabel(header_);
    lblCurso_->setObjectName(QStringLiteral("lblCurso"));
    lblCurso_->setFont(scaledFont(font(), 1.25, false));
    for (QLabel* label : {titulo, lblCurso_}) {
        QPalette pal = label->palette();
        pal.setColor(QPalette::WindowText, label == titulo ? Qt::white : QColor(0xdc, 0xe8, 0xf5));
        label->setPalette(pal);
    }
    texts->addStretch(1);
    texts->addWidget(titulo);
    texts->addWidget(lblCurso_);
    texts->addStretch(1);
    row->addLayout(texts, 1);
}

QPushButton* frmPrincipal::addButton(const char* name, const QString& caption)
{
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    button->setMinimumHeight(74);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setFont(scaledFont(font(), 1.1, true));
    buttons_.append(button);
    return button;
}

void frmPrincipal::buildBands()
{
    bands_ = new QWidget(this);
    bands_->setObjectName(QStringLiteral("fraBandas"));
    auto* grid = new QGridLayout(bands_);
    grid->setContentsMargins(18, 16, 18, 18);
    grid->setHorizontalSpacing(16);

    auto band = [&](const char* name, const QString& title, int column, int columns,
                    const QList<QPushButton*>& buttons) {
        auto* box = new QGroupBox(title, bands_);
        box->setObjectName(QLatin1String(name));
        box->setFont(scaledFont(font(), 1.15, true));
        auto* cells = new QGridLayout(box);
        cells->setContentsMargins(14, 18, 14, 14);
        cells->setSpacing(14);
        for (int i = 0; i < buttons.size(); ++i)
            cells->addWidget(buttons[i], i / columns, i % columns);
        cells->setRowStretch((int(buttons.size()) + columns - 1) / columns, 1);
        grid->addWidget(box, 0, column);
        return box;
    };

    QPushButton* cmdAlumnos = addButton("cmdAlumnos", QStringLiteral("&ALUMNOS"));
    QPushButton* cmdConfiguracion = addButton("cmdConfiguracion", QStringLiteral("CON&FIGURACIÓN"));
    QPushButton* cmdAnos = addButton("cmdAnos", QStringLiteral("CUR&SOS"));
    band("fraMaestros", QStringLiteral("Maestros"), 0, 1, {cmdAlumnos, cmdConfiguracion, cmdAnos});

    QPushButton* cmdTareas = addButton("cmdTareas", QStringLiteral("&TAREAS"));
    QPushButton* cmdDiario = addButton("cmdDiario", QStringLiteral("&DIARIO DE CLASE"));
    QPushButton* cmdHorario = addButton("cmdHorario", QStringLiteral("&HORARIO"));
    QPushButton* cmdIncidencias = addButton("cmdIncidencias", QStringLiteral("&INCIDENCIAS"));
    QPushButton* cmdTitoria = addButton("cmdTitoria", QStringLiteral("T&UTORIAS"));
    QPushButton* cmdGraficos = addButton("cmdGraficos", QStringLiteral("&ESTADÍSTICAS"));
    QPushButton* cmdRecibirDatos = addButton("cmdRecibirDatos", QStringLiteral("&RECIBIR DATOS"));
    band("fraTrabajos", QStringLiteral("Trabajos"), 1, 2,
         {cmdTareas, cmdDiario, cmdHorario, cmdIncidencias, cmdTitoria, cmdGraficos, cmdRecibirDatos});

    QPushButton* cmdCopiaSeg = addButton("cmdCopiaSeg", QStringLiteral("CO&PIA"));
    QPushButton* cmdCores = addButton("cmdCores", QStringLiteral("C&OLORES"));
    QPushButton* cmdTarvelo = addButton("cmdTarvelo", QStringLiteral("&TARVELO"));
    band("fraUtilidades", QStringLiteral("Utilidades"), 2, 1, {cmdCopiaSeg, cmdCores, cmdTarvelo});

    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(2, 1);

    // The other buttons open screens that are not part of the program yet.
    connect(cmdConfiguracion, &QPushButton::clicked, this, &frmPrincipal::cmdConfiguracion_Click);
    connect(cmdTarvelo, &QPushButton::clicked, this, &frmPrincipal::cmdTarvelo_Click);
    connect(cmdAnos, &QPushButton::clicked, this, [this] { Abrir<frmAno>(); });
    connect(cmdTareas, &QPushButton::clicked, this, [this] { Abrir<frmTareas>(); });
    connect(cmdAlumnos, &QPushButton::clicked, this, [this] { Abrir<frmAlumnos>(); });
    connect(cmdGraficos, &QPushButton::clicked, this, [this] { Abrir<frmEstatisticas>(); });
    connect(cmdRecibirDatos, &QPushButton::clicked, this, [this] { Abrir<frmComunicacionRecibir>(); });
    connect(cmdCopiaSeg, &QPushButton::clicked, this, [this] { Abrir<frmCopiaPen>(); });
    connect(cmdCores, &QPushButton::clicked, this, [this] { Abrir<frmColor>(); });
}

QAction* frmPrincipal::addEntry(QMenu* menu, const char* name, const QString& caption)
{
    QAction* action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    return action;
}

void frmPrincipal::buildMenu()
{
    menuBar_ = new QMenuBar(this);
    menuBar_->setObjectName(QStringLiteral("mnuBarra"));
    auto menu = [this](const char* name, const QString& caption) {
        QMenu* m = menuBar_->addMenu(caption);
        m->setObjectName(QLatin1String(name));
        return m;
    };

    QMenu* maestros = menu("mnuArquivos", QStringLiteral("&MAESTROS"));
    addEntry(maestros, "mnuArquivosAlu", QStringLiteral("&1. Alumnos"));
    connect(addEntry(maestros, "mnuArquivosNiv", QStringLiteral("&2. Niveles")), &QAction::triggered, this,
            [this] { Abrir<frmNiveles>(); });
    connect(addEntry(maestros, "mnuArquivosCur", QStringLiteral("&3. Cursos")), &QAction::triggered, this,
            [this] { Abrir<frmCursos>(); });
    connect(addEntry(maestros, "mnuAquivosGru", QStringLiteral("&4. Grupos")), &QAction::triggered, this,
            [this] { Abrir<frmGrupos>(); });
    connect(addEntry(maestros, "mnuArquivosEval", QStringLiteral("&5. Evaluaciones")), &QAction::triggered, this,
            [this] { Abrir<frmEvaluaciones>(); });
    connect(addEntry(maestros, "mnuArquivosTipTar", QStringLiteral("&6. Tipos de Tareas")), &QAction::triggered, this,
            [this] { Abrir<frmTareasTipos>(); });
    connect(addEntry(maestros, "mnuAquivosMat", QStringLiteral("&7. Materias")), &QAction::triggered, this,
            [this] { Abrir<frmMaterias>(); });
    connect(addEntry(maestros, "mnuArquivosConfig", QStringLiteral("&8. Configuración")), &QAction::triggered, this,
            &frmPrincipal::cmdConfiguracion_Click);

    // These three have no action, unlike their buttons.
    QMenu* trabajos = menu("mnuTraballos", QStringLiteral("&TRABAJOS"));
    addEntry(trabajos, "mnuTraballosTar", QStringLiteral("&1. Programar Tareas"));
    addEntry(trabajos, "mnuTraballosInc", QStringLiteral("&2. Incidencias"));
    addEntry(trabajos, "mnuTraballosComunicaRecibir", QStringLiteral("&3. Recibir datos"));

    // The numbering starts at 2; the entries do what their buttons do.
    QMenu* utilidades = menu("mnuUti", QStringLiteral("&UTILIDADES"));
    connect(addEntry(utilidades, "mnuUtiCopias", QStringLiteral("&2. Copias de Seguridad")), &QAction::triggered, this,
            [this] { Abrir<frmCopiaPen>(); });
    connect(addEntry(utilidades, "mnuUtiAno", QStringLiteral("&3. Gestión de Años")), &QAction::triggered, this,
            [this] { Abrir<frmAno>(); });
    connect(addEntry(utilidades, "mnuUtiColor", QStringLiteral("&4. Cambiar colores")), &QAction::triggered, this,
            [this] { Abrir<frmColor>(); });

    QMenu* salir = menu("mnuSair", QStringLiteral("&SALIR"));
    connect(addEntry(salir, "mnuSairAcercaDe", QStringLiteral("&1. Acerca de ...")), &QAction::triggered, this,
            &frmPrincipal::cmdTarvelo_Click);
    connect(addEntry(salir, "mnuSairSair", QStringLiteral("&2. Salir")), &QAction::triggered, this,
            &frmPrincipal::mnuSairSair_Click);
}

void frmPrincipal::cmdConfiguracion_Click()
{
    Abrir<frmConfiguracion>();
}

void frmPrincipal::cmdTarvelo_Click()
{
    Abrir<frmAcercaDe>();
}

void frmPrincipal::mnuSairSair_Click()
{
    // The unload handler called directly: after a No the window simply stays.
    bool cancel = false;
    Form_Unload(cancel);
}

void frmPrincipal::Form_Unload(bool& cancel)
{
    if (MsgBox(QStringLiteral("¿Confirma que desea Salir?"), vbYesNo + vbInformation, QStringLiteral("Atención!!")) ==
        vbYes) {
        if (gConexion)
            gConexion->Close();
        if (processEnd()) {
            processEnd()();
        } else {
            std::fflush(nullptr);
            std::_Exit(0);
        }
    } else {
        cancel = true;
    }
}

void frmPrincipal::closeEvent(QCloseEvent* event)
{
    bool cancel = false;
    Form_Unload(cancel);
    if (cancel)
        event->ignore();
    else
        event->accept();
}

void frmPrincipal::changeEvent(QEvent* event)
{
    Form::changeEvent(event);
    // The year screen retitles the window after a switch; the header follows.
    if (event->type() == QEvent::WindowTitleChange && lblCurso_)
        lblCurso_->setText(QStringLiteral("Curso ") + gAno);
}

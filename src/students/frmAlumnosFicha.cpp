// The student sheet: its controls, its activation, its colours and the photo.
// The load, the validations and the save are in frmAlumnosFichaDatos.cpp,
// previous, next and search in frmAlumnosFichaNavegacion.cpp.
#include "students/frmAlumnosFicha.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "ui/Colors.h"
#include "ui/Dialogs.h"
#include "ui/EntryConventions.h"
#include "ui/MaskEdit.h"

#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

const QString kGrupos =
    QStringLiteral("SELECT [tblGrupos]![Id] AS IdGrupo, [tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & "
                   "[tblGrupos]![Des] AS Grupo FROM (tblGrupos LEFT JOIN tblCursos ON tblGrupos.IdCurso = "
                   "tblCursos.Id) LEFT JOIN tblNiveles ON tblCursos.IdNivel = tblNiveles.Id ORDER BY tblGrupos.Id;");

constexpr QSize kFoto(150, 190);

} // namespace

frmAlumnosFicha::frmAlumnosFicha(QWidget* parent)
    : Form(parent), sstDatos(control<QTabWidget>(this, "sstDatos")),
      grupos_(nullptr, QStringLiteral("IdGrupo"), QStringLiteral("Grupo"))
{
    tabDatos = buildDatos();
    tabNotas = buildNotas();
    tabRecuperaciones = buildRecuperaciones();
    tabGrafico = buildGrafico();
    sstDatos->addTab(tabDatos, QStringLiteral("DATOS PERSONALES"));
    sstDatos->addTab(tabNotas, QStringLiteral("NOTAS"));
    sstDatos->addTab(tabRecuperaciones, QStringLiteral("RECUPERACIONES"));
    sstDatos->addTab(tabGrafico, QStringLiteral("GRÁFICO"));
    grupos_ = TextKeyCombo(cmbGrupo, QStringLiteral("IdGrupo"), QStringLiteral("Grupo"));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(sstDatos, 1);
    layout->addWidget(buildBotones());
    setSizeGripEnabled(true);
    resize(1120, 640);
    setCancelButton(cmdCancelar);

    onSignal(cmdAceptar, &QPushButton::clicked, &frmAlumnosFicha::cmdAceptar_Click);
    onSignal(cmdCancelar, &QPushButton::clicked, &frmAlumnosFicha::cmdCancelar_Click);
    onSignal(cmdAnterior, &QPushButton::clicked, &frmAlumnosFicha::cmdAnterior_Click);
    onSignal(cmdSeguinte, &QPushButton::clicked, &frmAlumnosFicha::cmdSeguinte_Click);
    onSignal(cmdBuscar, &QPushButton::clicked, &frmAlumnosFicha::cmdBuscar_Click);
    onSignal(cmdBorrarEval, &QPushButton::clicked, &frmAlumnosFicha::cmdBorrarEval_Click);
    onSignal(cmdInforme, &QPushButton::clicked, &frmAlumnosFicha::cmdInforme_Click);
}

frmAlumnosFicha::~frmAlumnosFicha() = default;

QWidget* frmAlumnosFicha::buildDatos()
{
    auto* page = control<QWidget>(sstDatos, "tabDatos");
    txtApe = control<QLineEdit>(page, "txtApe");
    txtNom = control<QLineEdit>(page, "txtNom");
    mskFecNac = control<MaskEdit>(page, "mskFecNac");
    mskFecMat = control<MaskEdit>(page, "mskFecMat");
    cmbGrupo = control<QComboBox>(page, "cmbGrupo");
    txtMailAlu = control<QLineEdit>(page, "txtMailAlu");
    txtDir = control<QLineEdit>(page, "txtDir");
    txtCP = control<QLineEdit>(page, "txtCP");
    txtPob = control<QLineEdit>(page, "txtPob");
    txtPro = control<QLineEdit>(page, "txtPro");
    txtPais = control<QLineEdit>(page, "txtPais");
    txtPai = control<QLineEdit>(page, "txtPai");
    txtTelPai = control<QLineEdit>(page, "txtTelPai");
    txtMailPai = control<QLineEdit>(page, "txtMailPai");
    txtNai = control<QLineEdit>(page, "txtNai");
    txtTelNai = control<QLineEdit>(page, "txtTelNai");
    txtMailNai = control<QLineEdit>(page, "txtMailNai");
    txtObs = control<QPlainTextEdit>(page, "txtObs");
    imgFoto = control<QLabel>(page, "imgFoto");

    // Typed freely, as the sheet always took it; a text that names no group
    // leaves the student's group as it was.
    cmbGrupo->setEditable(true);
    cmbGrupo->setInsertPolicy(QComboBox::NoInsert);
    const int fecha = mskFecNac->fontMetrics().horizontalAdvance(QStringLiteral("00/00/00000")) + 16;
    mskFecNac->setFixedWidth(fecha);
    mskFecMat->setFixedWidth(fecha);
    txtCP->setMaximumWidth(txtCP->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 16);
    txtObs->setMinimumHeight(txtObs->fontMetrics().lineSpacing() * 4 + 12);
    imgFoto->setFixedSize(kFoto);
    imgFoto->setFrameShape(QFrame::StyledPanel);
    imgFoto->setFrameShadow(QFrame::Sunken);
    imgFoto->setAlignment(Qt::AlignCenter);
    imgFoto->setToolTip(QStringLiteral("Doble click para insertar foto"));
    imgFoto->installEventFilter(this);

    // Label and field pairs on a grid of three pairs a row; the photo stands
    // at the right of the first rows.
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(8);
    auto pair = [&](int row, int col, const QString& text, QWidget* field, int span = 1) {
        auto* label = new QLabel(text, page);
        label->setObjectName(QStringLiteral("lbl") + field->objectName().mid(3));
        label->setBuddy(field);
        grid->addWidget(label, row, col * 2,
                        Qt::AlignRight | (qobject_cast<QPlainTextEdit*>(field) ? Qt::AlignTop : Qt::AlignVCenter));
        grid->addWidget(field, row, col * 2 + 1, 1, span * 2 - 1);
    };
    pair(0, 0, QStringLiteral("Apellidos"), txtApe, 2);
    pair(0, 2, QStringLiteral("Nombre"), txtNom);
    pair(1, 0, QStringLiteral("Fecha Nacimiento"), mskFecNac);
    pair(1, 1, QStringLiteral("Fecha Matrícula"), mskFecMat);
    pair(1, 2, QStringLiteral("Grupo"), cmbGrupo);
    pair(2, 0, QStringLiteral("Correo electrónico"), txtMailAlu, 3);
    pair(3, 0, QStringLiteral("Dirección"), txtDir, 3);
    pair(4, 0, QStringLiteral("Código Postal"), txtCP);
    pair(4, 1, QStringLiteral("Población"), txtPob, 2);
    pair(5, 0, QStringLiteral("Provincia"), txtPro);
    pair(5, 1, QStringLiteral("País"), txtPais, 2);
    pair(6, 0, QStringLiteral("Padre"), txtPai);
    pair(6, 1, QStringLiteral("Teléfono"), txtTelPai);
    pair(6, 2, QStringLiteral("Correo electrónico"), txtMailPai);
    pair(7, 0, QStringLiteral("Madre"), txtNai);
    pair(7, 1, QStringLiteral("Teléfono"), txtTelNai);
    pair(7, 2, QStringLiteral("Correo electrónico"), txtMailNai);
    pair(8, 0, QStringLiteral("Observaciones"), txtObs, 3);
    grid->addWidget(imgFoto, 0, 6, 6, 1, Qt::AlignTop | Qt::AlignHCenter);
    grid->setColumnMinimumWidth(6, kFoto.width() + 8);
    for (int c : {1, 3, 5}) {
        grid->setColumnStretch(c, 1);
        grid->setColumnMinimumWidth(c, 190);
    }
    grid->setRowStretch(8, 1);

    auto* outer = new QVBoxLayout(page);
    outer->setContentsMargins(14, 14, 14, 14);
    outer->addLayout(grid, 1);

    // Tab and Enter go through the fields as they stand on the page.
    QWidget* order[] = {txtApe, txtNom,  mskFecNac, mskFecMat, cmbGrupo,   txtMailAlu, txtDir,    txtCP,      txtPob,
                        txtPro, txtPais, txtPai,    txtTelPai, txtMailPai, txtNai,     txtTelNai, txtMailNai, txtObs};
    for (size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
    ui::installEntryConventions(page);
    ui::installDateConventions(mskFecNac);
    ui::installDateConventions(mskFecMat);
    return page;
}

QFrame* frmAlumnosFicha::buildBotones()
{
    fraBotones = control<QFrame>(this, "fraBotones");
    cmdAceptar = ui::commandButton(fraBotones, "cmdAceptar", QStringLiteral("&Guardar cambios"));
    cmdCancelar = ui::commandButton(fraBotones, "cmdCancelar", QStringLiteral("&Cancelar"));
    cmdAnterior = ui::commandButton(fraBotones, "cmdAnterior", QStringLiteral("&Anterior"));
    cmdSeguinte = ui::commandButton(fraBotones, "cmdSeguinte", QStringLiteral("&Siguiente"));
    cmdBuscar = ui::commandButton(fraBotones, "cmdBuscar", QStringLiteral("&Buscar"));
    cmdBorrarEval = ui::commandButton(fraBotones, "cmdBorrarEval", QStringLiteral("Borrar &Eval."));
    cmdInforme = ui::commandButton(fraBotones, "cmdInforme", QStringLiteral("&Imprimir"));
    // No button is pressed by Enter: Enter moves between the fields.
    for (QPushButton* button : fraBotones->findChildren<QPushButton*>())
        button->setAutoDefault(false);

    auto* row = new QHBoxLayout(fraBotones);
    row->setContentsMargins(0, 4, 0, 0);
    row->addWidget(cmdAnterior);
    row->addWidget(cmdSeguinte);
    row->addWidget(cmdBuscar);
    row->addStretch(1);
    row->addWidget(cmdBorrarEval);
    row->addWidget(cmdInforme);
    row->addSpacing(16);
    row->addWidget(cmdAceptar);
    row->addWidget(cmdCancelar);
    return fraBotones;
}

void frmAlumnosFicha::Form_Activate()
{
    if (consumeTagA())
        return;
    PonColor();
    PonColorGrafico();
    LimpiaGrids();
    grupos_.fill(kGrupos);
    cmbGrupo->setCurrentIndex(-1);
    for (const CampoTexto& c : CamposTexto())
        if (!qobject_cast<MaskEdit*>(c.box))
            ui::limitToColumn(c.box, QStringLiteral("tblAlumnos"), QLatin1String(c.column));
    ui::limitToColumn(txtObsRec, QStringLiteral("tblNotasEval"), QStringLiteral("ObsRec"));
    if (estado_ == 0) {
        // The key is taken now and written only by the save.
        id_ = SiguienteId(QStringLiteral("tblAlumnos"), QStringLiteral("Id"));
    } else {
        Lista().Find(QStringLiteral("Id = %1").arg(id_));
        CargaAlumno();
        apeNomAnterior_ = txtApe->text() + txtNom->text();
        CargaNotas();
        CargaFinales();
    }
    txtNom->setFocus();
    MostraGrafico();
    if (estado_ == 2) {
        // A consultation: the marks in view and nothing to save.
        sstDatos->setCurrentWidget(tabNotas);
        fraBotones->hide();
    }
}

void frmAlumnosFicha::PonColor()
{
    // The data sections take the second colour; the fields keep their own.
    for (QWidget* page : {tabDatos, tabNotas, tabRecuperaciones, tabGrafico}) {
        QPalette p = page->palette();
        p.setColor(QPalette::Window, ui::colorFromVariant(gColor2));
        page->setPalette(p);
        page->setAutoFillBackground(true);
    }
}

void frmAlumnosFicha::MostraFoto()
{
    QPixmap foto;
    if (!rutaFoto_.isEmpty() && QFileInfo(rutaFoto_).isFile())
        foto.load(rutaFoto_);
    if (foto.isNull())
        imgFoto->clear();
    else
        imgFoto->setPixmap(foto.scaled(imgFoto->contentsRect().size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

namespace {

// The folder of the last photo chosen in this session.
QString& lastPhotoFolder()
{
    static QString folder;
    return folder;
}

// Where the photo dialog opens without a photo: the last folder used, or the
// user's pictures, or home.
QString photoFolder()
{
    if (!lastPhotoFolder().isEmpty() && QFileInfo(lastPhotoFolder()).isDir())
        return lastPhotoFolder();
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

// Every picture format Qt reads, as one filter.
QString photoFilter()
{
    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        patterns << QStringLiteral("*.") + QString::fromLatin1(format);
    return QStringLiteral("Imágenes (%1)").arg(patterns.join(u' '));
}

} // namespace

void frmAlumnosFicha::imgFoto_DblClick()
{
    // The dialog opens on the present path; cancelled, it hands that path back.
    const QString chosen =
        FileDialog::getOpenFileName(this, QString(), rutaFoto_.isEmpty() ? photoFolder() : rutaFoto_, photoFilter());
    if (!chosen.isEmpty()) {
        rutaFoto_ = chosen;
        lastPhotoFolder() = QFileInfo(chosen).absolutePath();
    }
    MostraFoto();
}

bool frmAlumnosFicha::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == imgFoto && event->type() == QEvent::MouseButtonDblClick) {
        ui::guardRuntime([this] { imgFoto_DblClick(); });
        return true;
    }
    return Form::eventFilter(watched, event);
}

void frmAlumnosFicha::done(int result)
{
    rsAlumno_.Close();
    grupos_.release();
    SoltaRecordsets();
    Form::done(result);
}

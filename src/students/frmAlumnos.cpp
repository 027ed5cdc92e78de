#include "students/frmAlumnos.h"

#include "core/Modulo.h"
#include "reports/viewers/frmInforme.h"
#include "students/ConsultasAlumnos.h"
#include "students/frmAlumnosFicha.h"
#include "ui/Controls.h"
#include "ui/EntryConventions.h"
#include "ui/FlexGrid.h"
#include "ui/GridShape.h"
#include "ui/MsgBox.h"
#include "vb/Vb.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using studentlist::contains;
using studentlist::kGroupText;

namespace {

enum : int { ColApe = 1, ColNom = 2, ColId = 5, ColAV = 7 };

// Columns 1 to 7 take shares of the grid's width; Id and Foto stay hidden.
// The warning mark is centred under a title on the left.
const ui::GridColumns kColumnas{
    {QString()},
    {QStringLiteral("APELLIDOS"), -1, {}, {}, 30},
    {QStringLiteral("NOMBRE"), -1, {}, {}, 20},
    {QStringLiteral("CORREO ELECTRÓNICO"), -1, {}, {}, 20},
    {QStringLiteral("GRUPO"), -1, {}, {}, 10},
    {QStringLiteral("Id"), -1, {}, {}, 0, true},
    {QStringLiteral("Foto"), -1, {}, {}, 0, true},
    {QStringLiteral("AV"), -1, Qt::AlignCenter, Qt::AlignLeft | Qt::AlignVCenter, 5},
};

QString fieldText(const db::Recordset& rs, const char* field)
{
    return ui::displayText(rs.Value(QLatin1String(field)));
}

} // namespace

frmAlumnos::frmAlumnos(QWidget* parent)
    : Form(parent), txtFiltro(new QLineEdit(this)), lblInfo(new QLabel(this)), mshDatos(new FlexGrid(this)),
      cmdNovo(ui::commandButton(this, "cmdNovo", QStringLiteral("&Nuevo"))),
      cmdEditar(ui::commandButton(this, "cmdEditar", QStringLiteral("&Editar"))),
      cmdBorrar(ui::commandButton(this, "cmdBorrar", QStringLiteral("&Borrar"))),
      cmdInformes(ui::commandButton(this, "cmdInformes", QStringLiteral("&Informes")))
{
    setCaption(QStringLiteral("Alumnos"));
    txtFiltro->setObjectName(QStringLiteral("txtFiltro"));
    lblInfo->setObjectName(QStringLiteral("lblInfo"));
    mshDatos->setObjectName(QStringLiteral("mshDatos"));
    // Rows tall enough for the 12-point names.
    QFont nombres = mshDatos->font();
    nombres.setPointSizeF(12);
    mshDatos->verticalHeader()->setDefaultSectionSize(QFontMetrics(nombres).height() + 6);
    mshDatos->setMinimumSize(640, 320);

    auto* filtro = new QHBoxLayout;
    filtro->addWidget(txtFiltro, 1);
    filtro->addSpacing(12);
    filtro->addWidget(lblInfo);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(cmdNovo);
    buttons->addWidget(cmdEditar);
    buttons->addWidget(cmdBorrar);
    buttons->addStretch(1);
    buttons->addWidget(cmdInformes);
    auto* body = new QHBoxLayout;
    body->addWidget(mshDatos, 1);
    body->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filtro);
    layout->addLayout(body, 1);
    setSizeGripEnabled(true);
    resize(1100, 640);

    ui::installSearchField(txtFiltro, [this] { RellenaLista(); });
    mshDatos->installEventFilter(this);
    onSignal(cmdNovo, &QPushButton::clicked, &frmAlumnos::cmdNovo_Click);
    onSignal(cmdEditar, &QPushButton::clicked, &frmAlumnos::cmdEditar_Click);
    onSignal(cmdBorrar, &QPushButton::clicked, &frmAlumnos::cmdBorrar_Click);
    onSignal(cmdInformes, &QPushButton::clicked, &frmAlumnos::cmdInformes_Click);
    onSignal(mshDatos, &FlexGrid::DblClick, &frmAlumnos::mshDatos_DblClick);
    onSignal(mshDatos, &FlexGrid::EnterPressed, &frmAlumnos::cmdEditar_Click);
}

void frmAlumnos::Form_Activate()
{
    if (consumeTagA())
        return;
    RellenaLista();
    txtFiltro->setFocus();
}

QString frmAlumnos::Consulta() const
{
    const QString t = txtFiltro->text();
    QString sql =
        QStringLiteral("SELECT tblAlumnos.Ape, tblAlumnos.Nom, tblAlumnos.MailAlu, ") + kGroupText +
        QStringLiteral(" AS DesGrupo, tblAlumnos.Id, tblAlumnos.Foto, IIF( tblAlumnos.AV=0,'NO','SÍ') AS AV") +
        studentlist::kFromStudents;
    if (!t.isEmpty())
        sql += QStringLiteral(" WHERE ") + contains(QStringLiteral("tblAlumnos.Ape"), t) + QStringLiteral(" OR ") +
               contains(QStringLiteral("tblAlumnos.Nom"), t) + QStringLiteral(" OR ") +
               contains(QStringLiteral("tblAlumnos.MailAlu"), t) + QStringLiteral(" OR ") + contains(kGroupText, t);
    return sql + studentlist::kOrderByName;
}

QString frmAlumnos::FiltroInforme() const
{
    const QString t = txtFiltro->text();
    if (t.isEmpty())
        return QStringLiteral("Sin Filtro");
    const QString like = QStringLiteral(" LIKE '*") + t + QStringLiteral("*'");
    return QStringLiteral("{tblAlumnos.Ape}") + like + QStringLiteral(" OR {tblAlumnos.Nom}") + like +
           QStringLiteral(" OR {tblAlumnos.MailAlu}") + like +
           QStringLiteral(" OR {tblCursos.Des} + ' ' + {tblNiveles.Des} + ' ' + {tblGrupos.Des}") + like;
}

void frmAlumnos::RellenaLista()
{
    rs_.Close();
    rs_.Open(Consulta(), gConexion);
    lblInfo->setText(QStringLiteral("Se han encontrado %1 alumnos").arg(rs_.RecordCount()));
    ConfiguraGrid();
}

void frmAlumnos::ConfiguraGrid()
{
    FlexGrid& g = *mshDatos;
    ui::fillList(g, rs_, kColumnas, true, {.fontSizes = {{0, 9}, {ColApe, 12}, {ColNom, 12}}});
    // An empty list keeps the shares of the columns it had.
    AnchoColumnas();
    if (rs_.RecordCount() > 0)
        g.setColSel(5);
}

void frmAlumnos::AnchoColumnas()
{
    kColumnas.applyWidths(*mshDatos);
}

bool frmAlumnos::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mshDatos && event->type() == QEvent::Resize)
        AnchoColumnas();
    return Form::eventFilter(watched, event);
}

void frmAlumnos::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        Unload();
        event->accept();
        return;
    }
    Form::keyPressEvent(event);
}

void frmAlumnos::mshDatos_DblClick()
{
    if (mshDatos->Col() == ColAV)
        CambiaAV();
    else
        cmdEditar_Click();
}

void frmAlumnos::CambiaAV()
{
    gFilaActual = mshDatos->Row();
    const QString id = mshDatos->TextMatrix(gFilaActual, ColId);
    if (mshDatos->TextMatrix(gFilaActual, ColAV) == QLatin1String("NO"))
        gConexion->Execute(QStringLiteral("UPDATE tblAlumnos SET tblAlumnos.AV=1 WHERE Id = ") + id);
    else
        gConexion->Execute(QStringLiteral("UPDATE tblAlumnos SET tblAlumnos.AV=0 WHERE Id = ") + id);
    RellenaLista();
    // The toggled row comes back where it was: current and at the top.
    mshDatos->setRow(gFilaActual);
    mshDatos->setTopRow(gFilaActual);
    gFilaActual = 0;
}

void frmAlumnos::cmdNovo_Click()
{
    BusyCursor busy(this);
    frmAlumnosFicha ficha(this);
    ficha.setEstado(0);
    ficha.setCaption(QStringLiteral("Nuevo alumno"));
    // No tag: the list builds itself again as it becomes active.
    ShowModal(&ficha);
}

void frmAlumnos::cmdEditar_Click()
{
    if (!rs_.IsOpen() || rs_.RecordCount() == 0 || !vb::IsNumeric(rs_.Value(QStringLiteral("Id"))))
        return;
    BusyCursor busy(this);
    ui::moveRecordsetToGridRow(*mshDatos, rs_);
    frmAlumnosFicha ficha(this);
    ficha.setEstado(1);
    ficha.setId(vb::CLng(rs_.Value(QStringLiteral("Id"))));
    ficha.setRcAlumnos(&rs_);
    gFilaActual = mshDatos->Row();
    ficha.setCaption(QStringLiteral("Modificando ") + vb::UCase(fieldText(rs_, "Ape") + u' ' + fieldText(rs_, "Nom")));
    // The list refills below, once, and goes back to the same row.
    Tag = QStringLiteral("A");
    ShowModal(&ficha);
    RellenaLista();
    if (gFilaActual < mshDatos->Rows())
        mshDatos->setRow(gFilaActual);
    gFilaActual = 0;
}

void frmAlumnos::cmdBorrar_Click()
{
    if (!rs_.IsOpen() || rs_.Bof() || rs_.Eof())
        return;
    ui::moveRecordsetToGridRow(*mshDatos, rs_);
    // Only the student's row goes: marks, incidents and the rest stay behind.
    if (MsgBox(QStringLiteral("Está seguro de elimiar el alumno\r\n") + fieldText(rs_, "Nom") + u' ' +
                   fieldText(rs_, "Ape") + u'?',
               vbYesNo + vbInformation) != vbYes)
        return;
    gConexion->Execute(
        QStringLiteral("DELETE * FROM tblAlumnos WHERE Id = %1").arg(vb::CLng(rs_.Value(QStringLiteral("Id")))));
    RellenaLista();
}

void frmAlumnos::cmdInformes_Click()
{
    frmInforme informe(this);
    informe.setTipo(QStringLiteral("Alumnos"));
    informe.setFiltro(FiltroInforme());
    ShowModal(&informe);
}

void frmAlumnos::done(int result)
{
    rs_.Close();
    Form::done(result);
}

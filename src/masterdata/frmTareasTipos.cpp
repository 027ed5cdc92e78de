#include "masterdata/frmTareasTipos.h"

#include "core/Modulo.h"
#include "masterdata/frmTareasTiposFicha.h"
#include "masterdata/frmTareasTiposValores.h"
#include "ui/Controls.h"
#include "ui/FlexGrid.h"
#include "ui/GridShape.h"
#include "ui/MsgBox.h"
#include "ui/RuntimeErrorBox.h"
#include "ui/UiFunciones.h"
#include "vb/Vb.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

using vb::CLng;
using vb::IsNumeric;

namespace {

// Each cell of the grid from the recordset, row 1 on: column c shows the
// field fields[c] (none where it is empty), a Null as empty text.
void writeCells(FlexGrid& grid, db::Recordset& rs, const QStringList& fields)
{
    int r = 1;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext(), ++r)
        for (int c = 0; c < fields.size(); ++c)
            if (!fields[c].isEmpty())
                grid.setTextMatrix(r, c, ui::displayText(rs.Value(fields[c])));
}

// Shapes the grid for the rows of rs under a title row; no rows, no grid.
bool darForma(FlexGrid& grid, db::Recordset& rs, const ui::GridColumns& columns)
{
    if (rs.RecordCount() == 0) {
        grid.Clear();
        grid.setRows(0);
        return false;
    }
    columns.shape(grid, rs.RecordCount());
    return true;
}

const ui::GridColumns kTipos{{QString(), 300},
                             {QStringLiteral("Código"), 800},
                             {QStringLiteral("Descripción"), 2600},
                             {QStringLiteral("Min."), 700},
                             {QStringLiteral("Máx."), 700},
                             {QStringLiteral("Observacións"), 3400}};

// The key stays hidden in a second fixed column.
const ui::GridColumns kValores{{QString(), 500},
                               {QString(), 0},
                               {QStringLiteral("Avaliación"), 2000, Qt::AlignLeft | Qt::AlignVCenter},
                               {QStringLiteral("Valor"), 800, Qt::AlignCenter}};

} // namespace

frmTareasTipos::frmTareasTipos(QWidget* parent)
    : Form(parent), mshDatos(new FlexGrid(this)), mshValor(new FlexGrid(this)),
      cmbMateria(ui::comboBox(this, "cmbMateria", 18)), cmbGrupo(ui::comboBox(this, "cmbGrupo", 18)),
      cmdFiltrarValor(ui::commandButton(this, "cmdFiltrarValor", QStringLiteral("&Filtrar"))),
      cmdNovo(ui::commandButton(this, "cmdNovo", QStringLiteral("&Nuevo"))),
      cmdEditar(ui::commandButton(this, "cmdEditar", QStringLiteral("&Editar"))),
      cmdBorrar(ui::commandButton(this, "cmdBorrar", QStringLiteral("&Borrar"))),
      cmdNovoValor(ui::commandButton(this, "cmdNovoValor", QStringLiteral("Nue&vo"))),
      cmdEditarValor(ui::commandButton(this, "cmdEditarValor", QStringLiteral("Edi&tar"))),
      cmdBorrarValor(ui::commandButton(this, "cmdBorrarValor", QStringLiteral("B&orrar"))),
      cmdSalir(ui::commandButton(this, "cmdSalir", QStringLiteral("&Salir")))
{
    setObjectName(QStringLiteral("frmTareasTipos"));
    setCaption(QStringLiteral("Tipos de Tareas"));
    mshDatos->setObjectName(QStringLiteral("mshDatos"));
    mshValor->setObjectName(QStringLiteral("mshValor"));
    lblMateria = ui::label(this, QStringLiteral("Materia"), cmbMateria, "lblMateria");
    lblGrupo = ui::label(this, QStringLiteral("Grupo"), cmbGrupo, "lblGrupo");
    for (QPushButton* b : {cmdNovoValor, cmdEditarValor, cmdBorrarValor})
        b->setMinimumWidth(0);

    sqlTipos_ = QStringLiteral("SELECT Id, Des, Min, Max, Obs") + QStringLiteral(" FROM tblTareasTipos") +
                QStringLiteral(" ORDER BY Id");

    setCancelButton(cmdSalir);
    setSizeGripEnabled(true);
    setMinimumSize(820, 440);
    resize(980, 560);

    using F = frmTareasTipos;
    const auto clicked = &QPushButton::clicked;
    onSignal(cmdNovo, clicked, &F::cmdNovo_Click);
    onSignal(cmdEditar, clicked, &F::cmdEditar_Click);
    onSignal(mshDatos, &FlexGrid::DblClick, &F::cmdEditar_Click);
    onSignal(cmdBorrar, clicked, &F::cmdBorrar_Click);
    onSignal(cmdNovoValor, clicked, &F::cmdNovoValor_Click);
    onSignal(cmdEditarValor, clicked, &F::cmdEditarValor_Click);
    onSignal(mshValor, &FlexGrid::DblClick, &F::cmdEditarValor_Click);
    onSignal(cmdBorrarValor, clicked, &F::cmdBorrarValor_Click);
    onSignal(cmdFiltrarValor, clicked, &F::RellenarValores);
    connect(cmdSalir, &QPushButton::clicked, this, &Form::Unload);
    connect(mshDatos, &FlexGrid::RowColChange, this, [this] {
        if (!enchendo_ && mshDatos->Row() != filaTipos_)
            RellenarValores();
    });
}

void frmTareasTipos::Form_Activate()
{
    if (consumeTagA()) {
        RellenarValores();
        return;
    }
    RellenarCombos();
    RellenarTipos();
}

void frmTareasTipos::RellenarCombos()
{
    RellenarComboClave(cmbMateria,
                       QStringLiteral("SELECT Id, Des") + QStringLiteral(" FROM tblMaterias") +
                           QStringLiteral(" ORDER BY tblMaterias.Des"),
                       QStringLiteral("Id"), QStringLiteral("Des"));
    RellenarComboClave(
        cmbGrupo,
        QStringLiteral("SELECT [tblGrupos]![Id] AS IdGrupo, [tblCursos]![Des] & ' ' & [tblNiveles]![Des] "
                       "& ' ' & [tblGrupos]![Des] AS Grupo") +
            QStringLiteral(" FROM (tblGrupos LEFT JOIN tblCursos ON tblGrupos.IdCurso = tblCursos.Id) "
                           "LEFT JOIN tblNiveles ON tblCursos.IdNivel = tblNiveles.Id") +
            QStringLiteral(" ORDER BY tblGrupos.Id;"),
        QStringLiteral("IdGrupo"), QStringLiteral("Grupo"));
}

void frmTareasTipos::RellenarTipos()
{
    const int fila = mshDatos->Row();
    enchendo_ = true;
    // The fill ignores its failures: what did not run stays undone.
    try {
        rsTipos_.Close();
        rsTipos_.Open(sqlTipos_, gConexion);
        FlexGrid& g = *mshDatos;
        g.setRedraw(false);
        if (darForma(g, rsTipos_, kTipos)) {
            writeCells(g, rsTipos_,
                       {QString(), QStringLiteral("Id"), QStringLiteral("Des"), QStringLiteral("Min"),
                        QStringLiteral("Max"), QStringLiteral("Obs")});
            ui::finishGrid(g, {.firstCell = false});
            AjustarColumnas();
            g.setRow(std::clamp(fila, 1, g.Rows() - 1));
            g.setCol(1);
            g.setColSel(g.Cols() - 1);
        }
        g.setRedraw(true);
    } catch (const RuntimeError&) {
        mshDatos->setRedraw(true);
    }
    enchendo_ = false;
    RellenarValores();
}

void frmTareasTipos::RellenarValores()
{
    filaTipos_ = mshDatos->Row();
    rsValor_.Close();
    mshValor->Clear();
    mshValor->setRows(0);
    // Ignores its failures too: with no type, subject or group the
    // statement cannot be made or run, and the grid stays empty.
    try {
        const QString tipo = mshDatos->TextMatrix(mshDatos->Row(), 1);
        sqlValor_ =
            QStringLiteral("SELECT tblTareasTiposValor.*, tblEvaluaciones.Des AS Aval") +
            QStringLiteral(" FROM tblTareasTiposValor INNER JOIN tblEvaluaciones ON "
                           "tblTareasTiposValor.IdEval = tblEvaluaciones.Id") +
            QStringLiteral(" Where (tblTareasTiposValor.IdTareaTip = ") + tipo +
            QStringLiteral(" And tblTareasTiposValor.IdMat = ") + QString::number(CLng(cmbMateria->currentData())) +
            QStringLiteral(" And tblTareasTiposValor.IdGrupo = ") + QString::number(CLng(cmbGrupo->currentData())) +
            QStringLiteral(")") + QStringLiteral(" ORDER BY tblTareasTiposValor.IdEval;");
        rsValor_.Open(sqlValor_, gConexion);
        FlexGrid& g = *mshValor;
        if (darForma(g, rsValor_, kValores)) {
            writeCells(g, rsValor_, {QStringLiteral("Id"), QString(), QStringLiteral("Aval"), QStringLiteral("Valor")});
            ui::finishGrid(g, {.fixedCols = 2, .stripesFrom = 2, .firstCell = false});
            AjustarColumnas();
            g.setRow(1);
            g.setCol(2);
            g.setColSel(3);
        }
    } catch (const RuntimeError&) {
    }
}

void frmTareasTipos::cmdNovo_Click()
{
    BusyCursor busy(this);
    frmTareasTiposFicha ficha(this);
    ficha.setEstado(0);
    ficha.setCaption(QStringLiteral("Nuevo tipo de tarea"));
    // Refilled, combos and all, when this form becomes active again.
    ShowModal(&ficha);
}

void frmTareasTipos::cmdEditar_Click()
{
    if (mshDatos->Rows() < 2 || !IsNumeric(mshDatos->TextMatrix(mshDatos->Row(), 1)))
        return;
    BusyCursor busy(this);
    const qint32 id = CLng(mshDatos->TextMatrix(mshDatos->Row(), 1));
    Tag = QStringLiteral("A");
    frmTareasTiposFicha ficha(this);
    ficha.setEstado(1);
    ficha.setId(id);
    ficha.setCaption(QStringLiteral("Modificando Valor ") + mshDatos->TextMatrix(mshDatos->Row(), 2));
    ShowModal(&ficha);
    // The same row comes back selected.
    RellenarTipos();
}

void frmTareasTipos::cmdBorrar_Click()
{
    // The weights go in every subject and group; the tasks of the type stay.
    BorrarFila(mshDatos, 1, 2, QStringLiteral("¿Borrar a Tarea "),
               {QStringLiteral("DELETE * FROM tblTareasTiposValor WHERE tblTareasTiposValor.IdTareaTip= "),
                QStringLiteral("DELETE * FROM tblTareasTipos WHERE tblTareasTipos.Id= ")},
               &frmTareasTipos::RellenarTipos);
}

void frmTareasTipos::cmdNovoValor_Click()
{
    Tag = QStringLiteral("A");
    frmTareasTiposValores valor(this);
    valor.setEstado(0);
    valor.setIdTareaTip(CLng(mshDatos->TextMatrix(mshDatos->Row(), 1)));
    valor.setIdMat(CLng(cmbMateria->currentData()));
    valor.setIdGrupo(CLng(cmbGrupo->currentData()));
    valor.setCaption(QStringLiteral("Valor Nuevo"));
    ShowModal(&valor);
}

void frmTareasTipos::cmdEditarValor_Click()
{
    if (mshValor->Rows() < 2 || !IsNumeric(mshValor->TextMatrix(mshValor->Row(), 0)))
        return;
    const int fila = mshValor->Row();
    Tag = QStringLiteral("A");
    frmTareasTiposValores valor(this);
    valor.setEstado(1);
    valor.setId(CLng(mshValor->TextMatrix(fila, 0)));
    valor.setCaption(QStringLiteral("Modificando Valor ") + mshValor->TextMatrix(fila, 2));
    // The weights refill as this form becomes active again.
    ShowModal(&valor);
    if (mshValor->Rows() > 1)
        mshValor->setRow(std::min(fila, mshValor->Rows() - 1));
}

void frmTareasTipos::cmdBorrarValor_Click()
{
    // The value, not the evaluation, names the weight in the question.
    BorrarFila(mshValor, 0, 3, QStringLiteral("¿Borrar a valoración do "),
               {QStringLiteral("DELETE * FROM tblTareasTiposValor WHERE tblTareasTiposValor.Id= ")},
               &frmTareasTipos::RellenarValores);
}

void frmTareasTipos::BorrarFila(FlexGrid* grid, int keyCol, int textCol, const QString& pregunta,
                                const QStringList& borrados, void (frmTareasTipos::*rellenar)())
{
    if (grid->Rows() < 2)
        return;
    const QString id = grid->TextMatrix(grid->Row(), keyCol);
    const QString texto = grid->TextMatrix(grid->Row(), textCol);
    if (MsgBox(pregunta + texto + QStringLiteral("?"), vbYesNo) != vbYes)
        return;
    for (const QString& sql : borrados)
        gConexion->Execute(sql + id);
    (this->*rellenar)();
    MsgBox(QStringLiteral("PROCESO FINALIZADO"));
}

void frmTareasTipos::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    Colocar();
}

void frmTareasTipos::Colocar()
{
    // The types take 70 % of the width and the weights the next 28 % less
    // 300 twips; the heights follow the form.
    const int margin = 8;
    const int gap = 8;
    const int w = width();
    const int h = height();
    const int anchoDatos = int(std::lround(w * 0.70));
    const int anchoValor = int(std::lround(w * 0.28)) - mshDatos->twipsToPixels(300);
    const int xValor = margin + anchoDatos + gap;

    const int alto = cmbMateria->sizeHint().height();
    const int altoBoton = cmdNovo->sizeHint().height();
    const int top = margin + alto + gap;
    const int bottom = h - margin - altoBoton;      // the last row of buttons
    const int valorBottom = bottom - 6 - altoBoton; // the weights' own buttons, under their grid
    mshDatos->setGeometry(margin, top, anchoDatos, bottom - gap - top);
    mshValor->setGeometry(xValor, top, anchoValor, valorBottom - gap - top);
    AjustarColumnas();

    // The subject, the group and the filter stand above the weights, ending at their right edge.
    int x = xValor + anchoValor;
    auto place = [&](QWidget* widget, int width) {
        x -= width;
        widget->setGeometry(std::max(x, margin), margin, width, alto);
        x -= 6;
    };
    place(cmdFiltrarValor, cmdFiltrarValor->sizeHint().width());
    place(cmbGrupo, cmbGrupo->sizeHint().width());
    place(lblGrupo, lblGrupo->sizeHint().width());
    x -= 10;
    place(cmbMateria, cmbMateria->sizeHint().width());
    place(lblMateria, lblMateria->sizeHint().width());

    const int anchoBoton = std::max(cmdNovo->sizeHint().width(), cmdNovo->minimumWidth());
    int bx = margin;
    for (QPushButton* b : {cmdNovo, cmdEditar, cmdBorrar}) {
        b->setGeometry(bx, bottom, anchoBoton, altoBoton);
        bx += anchoBoton + 6;
    }
    cmdSalir->setGeometry(xValor + anchoValor - anchoBoton, bottom, anchoBoton, altoBoton);
    const int anchoValorBoton = (anchoValor - 2 * 6) / 3;
    bx = xValor;
    for (QPushButton* b : {cmdNovoValor, cmdEditarValor, cmdBorrarValor}) {
        b->setGeometry(bx, valorBottom, anchoValorBoton, altoBoton);
        bx += anchoValorBoton + 6;
    }
}

void frmTareasTipos::AjustarColumnas()
{
    // The widest text column takes what the others leave of the grid.
    auto fill = [](FlexGrid* grid, int col, int minimum) {
        if (col >= grid->Cols())
            return;
        int others = 0;
        for (int c = 0; c < grid->Cols(); ++c)
            if (c != col)
                others += grid->twipsToPixels(grid->ColWidth(c));
        const int free =
            grid->width() - 2 * grid->frameWidth() - others - grid->verticalScrollBar()->sizeHint().width();
        grid->setColWidth(col, std::max(minimum, grid->pixelsToTwips(free)));
    };
    fill(mshDatos, 5, 3400);
    fill(mshValor, 2, 1200);
}

void frmTareasTipos::done(int result)
{
    rsTipos_.Close();
    rsValor_.Close();
    Form::done(result);
}

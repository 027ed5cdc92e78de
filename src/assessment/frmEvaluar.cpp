#include "assessment/frmEvaluar.h"

#include "assessment/Bandas.h"
#include "core/Funciones.h"
#include "core/Modulo.h"
#include "marks/frmEvaluarNota.h"
#include "reports/viewers/frmInforme.h"
#include "students/frmAlumnosFicha.h"
#include "ui/Controls.h"
#include "ui/FlexGrid.h"
#include "ui/GridShape.h"
#include "ui/MsgBox.h"
#include "ui/UiFunciones.h"
#include "vb/Vb.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTime>
#include <QVBoxLayout>

#include <cmath>

using vb::CLng;
using vb::IsNumeric;

namespace {

enum Col : int { ColNumero, ColCodigo, ColAlumno, ColNota, ColObs, ColIdNota, ColClave };

// A number in [fila, 1500] from a generator seeded anew by the clock. The
// key of column 6 is filled and nothing reads it.
int randomKey(int fila)
{
    QRandomGenerator rnd(quint32(QTime::currentTime().msecsSinceStartOfDay()));
    return int(std::floor(rnd.generateDouble() * (1500 - fila + 1) + fila));
}

} // namespace

frmEvaluar::frmEvaluar(QWidget* parent)
    : Form(parent), lblCabecera(new QLabel(this)), mshDatos(new FlexGrid(this)), mshEstatistica(new FlexGrid(this)),
      cmdEvaluarNota(ui::commandButton(this, "cmdEvaluarNota", QStringLiteral("Cambiar N&ota"))),
      cmdBorrar(ui::commandButton(this, "cmdBorrar", QStringLiteral("&Borrar"))),
      cmdFichaAlumno(ui::commandButton(this, "cmdFichaAlumno", QStringLiteral("&Ficha"))),
      cmdInformes(ui::commandButton(this, "cmdInformes", QStringLiteral("&Informes"))),
      cmdSalir(ui::commandButton(this, "cmdSalir", QStringLiteral("&Salir")))
{
    setObjectName(QStringLiteral("frmEvaluar"));
    setCaption(QStringLiteral("Evaluación"));
    lblCabecera->setObjectName(QStringLiteral("lblCabecera"));
    mshDatos->setObjectName(QStringLiteral("mshDatos"));
    mshEstatistica->setObjectName(QStringLiteral("mshEstatistica"));
    QFont bold = lblCabecera->font();
    bold.setBold(true);
    lblCabecera->setFont(bold);

    // The band counts: titles in the band colours over one row of cells.
    mshEstatistica->setRows(2);
    mshEstatistica->setCols(6);
    mshEstatistica->setFixedRows(1);
    mshEstatistica->setFixedCols(0);
    for (int c = 0; c < 6; ++c) {
        mshEstatistica->setColWidth(c, c < bands::Count ? 1500 : 1300);
        mshEstatistica->setColAlignment(c, Qt::AlignCenter);
        mshEstatistica->setFixedAlignment(c, Qt::AlignCenter);
        mshEstatistica->setTextMatrix(0, c, c < bands::Count ? bands::name(c) : QStringLiteral("Correción"));
        if (c < bands::Count)
            mshEstatistica->setCellBackColor(0, c, bands::colour(c));
    }
    mshEstatistica->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    mshEstatistica->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    mshEstatistica->setFixedHeight(mshEstatistica->horizontalHeader()->sizeHint().height() +
                                   mshEstatistica->verticalHeader()->defaultSectionSize() +
                                   2 * mshEstatistica->frameWidth() + 2);
    mshEstatistica->setFixedWidth(mshEstatistica->twipsToPixels(5 * 1500 + 1300) + 2 * mshEstatistica->frameWidth() +
                                  2);
    mshDatos->setMinimumSize(mshDatos->twipsToPixels(500 + 800 + 4500 + 1200 + 5000) + 40, 360);

    auto* botones = new QVBoxLayout;
    for (QPushButton* b : {cmdEvaluarNota, cmdBorrar, cmdFichaAlumno, cmdInformes})
        botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(cmdSalir);
    auto* grids = new QVBoxLayout;
    grids->addWidget(lblCabecera);
    grids->addWidget(mshDatos, 1);
    grids->addWidget(mshEstatistica, 0, Qt::AlignLeft);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(grids, 1);
    layout->addLayout(botones);
    setCancelButton(cmdSalir);
    setSizeGripEnabled(true);

    using F = frmEvaluar;
    const auto clicked = &QPushButton::clicked;
    onSignal(cmdEvaluarNota, clicked, &F::cmdEvaluarNota_Click);
    onSignal(mshDatos, &FlexGrid::DblClick, &F::cmdEvaluarNota_Click);
    onSignal(mshDatos, &FlexGrid::EnterPressed, &F::cmdEvaluarNota_Click);
    onSignal(cmdBorrar, clicked, &F::cmdBorrar_Click);
    onSignal(cmdFichaAlumno, clicked, &F::cmdFichaAlumno_Click);
    onSignal(cmdInformes, clicked, &F::cmdInformes_Click);
    connect(mshDatos, &FlexGrid::titleClicked, this,
            [this](int col) { ui::guardRuntime([&] { mshDatos_TitleClick(col); }); });
    connect(cmdSalir, &QPushButton::clicked, this, &Form::Unload);
}

void frmEvaluar::Form_Activate()
{
    if (consumeTagA())
        return;
    resetOrdenarGrid();
    AbrirAlumnos();
    AbrirNotas();
    ConstruirGrid();
    RellenarEstatistica();
    if (mshDatos->Rows() > 1 && mshDatos->Cols() > 1) {
        mshDatos->setRow(1);
        mshDatos->setCol(1);
    }
}

void frmEvaluar::AbrirAlumnos()
{
    rsAlumnos_.Close();
    rsAlumnos_.Open(QStringLiteral("SELECT [tblAlumnos]![Ape] & ' ' & [tblAlumnos]![Nom] AS Alumno, tblAlumnos.Id FROM "
                                   "tblAlumnos WHERE tblAlumnos.Grupo=%1 ORDER BY [tblAlumnos]![Ape] & ' ' & "
                                   "[tblAlumnos]![Nom];")
                        .arg(idGrupo_),
                    gConexion);
}

void frmEvaluar::AbrirNotas()
{
    rsNotas_.Close();
    rsNotas_.Open(QStringLiteral("SELECT tblNotas.Id, tblNotas.Nota, tblNotas.Obs, tblNotas.IdAlu From tblNotas WHERE "
                                 "tblNotas.IdTarea=%1")
                      .arg(idTarea_),
                  gConexion);
}

void frmEvaluar::ConstruirGrid()
{
    FlexGrid& g = *mshDatos;
    g.setRedraw(false);
    g.Clear();
    const int alumnos = rsAlumnos_.RecordCount();
    if (alumnos == 0) {
        g.setRows(2);
        g.setRedraw(true);
        return;
    }
    // The last two columns, hidden, keep the mark's key and a random key.
    static const ui::GridColumns columnas{{QString(), 500},
                                          {QStringLiteral("Código"), 800},
                                          {QStringLiteral("Alumno"), 4500},
                                          {QStringLiteral("NOTA"), 1200},
                                          {QStringLiteral("Observaciones"), 5000},
                                          {QString(), 0},
                                          {QString(), 0}};
    columnas.shape(g, alumnos);
    int r = 1;
    for (rsAlumnos_.MoveFirst(); !rsAlumnos_.Eof(); rsAlumnos_.MoveNext(), ++r) {
        g.setTextMatrix(r, ColNumero, QString::number(r));
        g.setTextMatrix(r, ColCodigo, vb::CStr(rsAlumnos_.Value(QStringLiteral("Id"))));
        g.setTextMatrix(r, ColAlumno, vb::UCase(rsAlumnos_.Value(QStringLiteral("Alumno"))));
        g.setTextMatrix(r, ColClave, QString::number(randomKey(r)));
    }
    RellenarNotas();
    // Stripes from column 1, so that column 0 keeps its band colour.
    ui::finishGrid(g, {.firstCell = false});
}

void frmEvaluar::RellenarNotas()
{
    // Only marks found are written: a cell whose mark has gone stays as it
    // was until the grid is built again.
    FlexGrid& g = *mshDatos;
    notasEncontradas_ = 0;
    if (rsNotas_.RecordCount() == 0)
        return;
    for (int r = 1; r <= rsAlumnos_.RecordCount() && r < g.Rows(); ++r) {
        rsNotas_.MoveFirst();
        rsNotas_.Find(QStringLiteral("IdAlu = ") + g.TextMatrix(r, ColCodigo));
        if (rsNotas_.Eof())
            continue;
        const QVariant nota = rsNotas_.Value(QStringLiteral("Nota"));
        g.setTextMatrix(r, ColNota, ui::displayText(nota));
        // A mark not given yet (Null) compares as nothing: no colour.
        if (!vb::IsNull(nota))
            if (const auto color = bands::markColour(vb::CSng(nota), valorMaximo_))
                g.setCellBackColor(r, ColNumero, *color);
        g.setTextMatrix(r, ColObs, ui::displayText(rsNotas_.Value(QStringLiteral("Obs"))));
        g.setTextMatrix(r, ColIdNota, vb::CStr(rsNotas_.Value(QStringLiteral("Id"))));
        ++notasEncontradas_;
    }
}

void frmEvaluar::RellenarEstatistica()
{
    FlexGrid& e = *mshEstatistica;
    const int alumnos = rsAlumnos_.RecordCount();
    for (int b = 0; b < bands::Count; ++b) {
        QString celda = QStringLiteral("-");
        if (alumnos > 0) {
            db::Recordset rs;
            rs.Open(bands::countStatement(b, idTarea_), gConexion);
            const int cuenta = rs.RecordCount();
            if (cuenta > 0) {
                // The marks found for the group divide; none found is a
                // division by zero, as the count of a student gone alone.
                if (notasEncontradas_ == 0)
                    vb::Raise(RuntimeError::DivisionByZero);
                const double porcentaxe = double(cuenta) / notasEncontradas_ * 100;
                celda = QStringLiteral("%1 | %2%").arg(cuenta).arg(vb::Format(porcentaxe, QStringLiteral("##0.0")));
            }
        }
        e.setTextMatrix(1, b, celda);
    }
    e.setTextMatrix(1, 5, QStringLiteral("%1/%2").arg(rsNotas_.RecordCount()).arg(alumnos));
}

void frmEvaluar::VolverAFila(int fila)
{
    FlexGrid& g = *mshDatos;
    if (fila < 1 || fila >= g.Rows())
        return;
    g.setRow(fila);
    g.setCol(1);
    g.setTopRow(fila);
}

void frmEvaluar::cmdEvaluarNota_Click()
{
    FlexGrid& g = *mshDatos;
    Tag = QStringLiteral("A");
    BusyCursor busy(this);
    gFilaActual = g.Row();
    const int r = gFilaActual;
    {
        frmEvaluarNota nota(this);
        nota.setDesTarea(lblCabecera->text());
        nota.setIdTarea(idTarea_);
        nota.setIdAlu(CLng(g.TextMatrix(r, ColCodigo)));
        if (IsNumeric(g.TextMatrix(r, ColNota))) {
            nota.setIdNota(CLng(g.TextMatrix(r, ColIdNota)));
            nota.setNota(vb::CSng(g.TextMatrix(r, ColNota)));
        } else {
            nota.setIdNota(-1);
        }
        nota.setObs(g.TextMatrix(r, ColObs));
        nota.setCaption(g.TextMatrix(r, ColAlumno));
        ShowModal(&nota);
    }
    AbrirNotas();
    g.setRedraw(false);
    RellenarNotas();
    g.setRedraw(true);
    RellenarEstatistica();
    VolverAFila(gFilaActual);
}

void frmEvaluar::cmdBorrar_Click()
{
    FlexGrid& g = *mshDatos;
    const int r = g.Row();
    if (MsgBox(QStringLiteral("Esta seguro de eliminar la nota de \r\n") + g.TextMatrix(r, ColAlumno),
               vbYesNo + vbInformation) != vbYes)
        return;
    gFilaActual = r;
    // The key goes as a number: an empty cell (a row without a mark) fails
    // as the conversion it is, before any statement runs.
    const QString idNota = QString::number(vb::CLng(g.TextMatrix(r, ColIdNota)));
    BorrarRegistro(QStringLiteral("tblNotas"), QStringLiteral("Id"), idNota);
    BorrarRegistro(QStringLiteral("tblNotasRubrica"), QStringLiteral("IdNota"), idNota);
    AbrirAlumnos();
    AbrirNotas();
    ConstruirGrid();
    // mshEstatistica keeps its counts until the next change of a mark.
    VolverAFila(gFilaActual);
}

void frmEvaluar::cmdFichaAlumno_Click()
{
    const int r = mshDatos->Row();
    if (!IsNumeric(mshDatos->TextMatrix(r, ColCodigo)))
        return;
    frmAlumnosFicha ficha(this);
    ficha.setEstado(2);
    ficha.setId(CLng(mshDatos->TextMatrix(r, ColCodigo)));
    ficha.setRcAlumnos(&rsAlumnos_);
    ficha.setCaption(QStringLiteral("Consultando ") + vb::UCase(mshDatos->TextMatrix(r, ColAlumno)));
    ShowModal(&ficha);
}

void frmEvaluar::cmdInformes_Click()
{
    frmInforme informe(this);
    informe.setTipo(QStringLiteral("NotasTarea"));
    informe.setTitulo(lblCabecera->text());
    informe.setFiltro(QStringLiteral("{tblNotas.IdTarea} = %1").arg(idTarea_));
    const FlexGrid& e = *mshEstatistica;
    informe.setNotaIN(e.TextMatrix(1, bands::IN));
    informe.setNotaSF(e.TextMatrix(1, bands::SF));
    informe.setNotaBE(e.TextMatrix(1, bands::BE));
    informe.setNotaNT(e.TextMatrix(1, bands::NT));
    informe.setNotaSB(e.TextMatrix(1, bands::SB));
    ShowModal(&informe);
}

void frmEvaluar::mshDatos_TitleClick(int col)
{
    OrdenarGrid(mshDatos, col);
    ui::stripeRows(*mshDatos, 1);
}

void frmEvaluar::done(int result)
{
    rsAlumnos_.Close();
    rsNotas_.Close();
    Form::done(result);
}

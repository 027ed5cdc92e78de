// The student sheet's marks tab: points per evaluation and subject beside
// the typed evaluation mark, the task types and tasks of the current row,
// the final marks, and the dialogs that change them.
#include "students/frmAlumnosFicha.h"

#include "core/Modulo.h"
#include "marks/frmEvaluarNota.h"
#include "marks/frmNotaFinal.h"
#include "students/StudentStanding.h"
#include "ui/Colors.h"
#include "ui/Controls.h"
#include "ui/FlexGrid.h"
#include "ui/GridShape.h"
#include "ui/MsgBox.h"
#include "vb/Vb.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScopedValueRollback>
#include <QTabWidget>

namespace {

// Columns of the grids of this tab.

constexpr auto kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr auto kRight = Qt::AlignRight | Qt::AlignVCenter;
constexpr auto kCentre = Qt::AlignCenter;
const QColor kRojo = ui::colorFromVariant(255);

// Points and typed mark per evaluation and subject; the keys hidden.
const ui::GridColumns kEval{{QString(), 500},
                            {QStringLiteral("Evaluación"), 1900, kLeft},
                            {QStringLiteral("Materia"), 2500, kLeft},
                            {QStringLiteral("Ptos."), 900, kRight},
                            {QStringLiteral("NOTA"), 1000, kRight},
                            {QString(), 0, kLeft},
                            {QString(), 0, kLeft}};

// The task types of the current row.
const ui::GridColumns kTipos{{QString(), 500},
                             {QStringLiteral("Tarea"), 2300, kLeft},
                             {QStringLiteral("Media"), 900, kRight},
                             {QStringLiteral("%Valor"), 900, kRight},
                             {QStringLiteral("Ptos"), 900, kRight},
                             {QString(), 0, kLeft}};

// The tasks of the current type.
const ui::GridColumns kTareas{{QString(), 500},
                              {QStringLiteral("Tarea"), 2600, kLeft},
                              {QStringLiteral("Nota"), 900, kRight},
                              {QStringLiteral("Observaciones"), 3200, kLeft},
                              {QString(), 0, kLeft},
                              {QString(), 0, kLeft}};

// The final marks per subject.
const ui::GridColumns kFinal{{QString(), 500},
                             {QStringLiteral("Materia"), 2500, kLeft},
                             {QStringLiteral("Ptos"), 900, kCentre},
                             {QStringLiteral("Nota"), 900, kCentre},
                             {QStringLiteral("NFO"), 900, kCentre},
                             {QStringLiteral("NFE"), 900, kCentre},
                             {QString(), 0, kLeft}};

// The sheet's grids keep their current cell when filled again.
const ui::GridFinish kSinMover{.firstCell = false};

// Whether a grid holds rows of data, not only the empty rows of a grid
// without any.
bool conFilas(const FlexGrid& g, int keyCol)
{
    return g.Rows() > 1 && g.Cols() > keyCol && !g.TextMatrix(1, keyCol).isEmpty();
}

} // namespace

FlexGrid* frmAlumnosFicha::newGrid(QWidget* parent, const char* name)
{
    auto* grid = control<FlexGrid>(parent, name);
    grid->setFixedRows(1);
    grid->setFixedCols(1);
    return grid;
}

QWidget* frmAlumnosFicha::buildNotas()
{
    auto* page = control<QWidget>(sstDatos, "tabNotas");
    mshEval = newGrid(page, "mshEval");
    mshNotas = newGrid(page, "mshNotas");
    mshNotasDetalle = newGrid(page, "mshNotasDetalle");
    mshFinal = newGrid(page, "mshFinal");
    kEval.shape(*mshEval, 1);
    kTipos.shape(*mshNotas, 1);
    kTareas.shape(*mshNotasDetalle, 1);
    kFinal.shape(*mshFinal, 0);

    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(10, 10, 10, 10);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(4);
    grid->addWidget(ui::caption(page, QStringLiteral("Puntos y notas de evaluación"), mshEval), 0, 0);
    grid->addWidget(mshEval, 1, 0);
    grid->addWidget(ui::caption(page, QStringLiteral("Tipos de tarea"), mshNotas), 0, 1);
    grid->addWidget(mshNotas, 1, 1);
    grid->addWidget(ui::caption(page, QStringLiteral("Notas finales"), mshFinal), 2, 0);
    grid->addWidget(mshFinal, 3, 0);
    grid->addWidget(ui::caption(page, QStringLiteral("Tareas"), mshNotasDetalle), 2, 1);
    grid->addWidget(mshNotasDetalle, 3, 1);
    grid->setRowStretch(1, 3);
    grid->setRowStretch(3, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);

    onSignal(mshEval, &FlexGrid::RowColChange, &frmAlumnosFicha::mshEval_RowColChange);
    onSignal(mshNotas, &FlexGrid::RowColChange, &frmAlumnosFicha::mshNotas_RowColChange);
    onSignal(mshEval, &FlexGrid::DblClick, &frmAlumnosFicha::EditaNotaEval);
    onSignal(mshEval, &FlexGrid::EnterPressed, &frmAlumnosFicha::EditaNotaEval);
    onSignal(mshFinal, &FlexGrid::DblClick, &frmAlumnosFicha::EditaNotaFinal);
    onSignal(mshFinal, &FlexGrid::EnterPressed, &frmAlumnosFicha::EditaNotaFinal);
    onSignal(mshNotasDetalle, &FlexGrid::DblClick, &frmAlumnosFicha::mshNotasDetalle_DblClick);
    return page;
}

void frmAlumnosFicha::LimpiaGrids()
{
    kEval.shape(*mshEval, 1);
    kTipos.shape(*mshNotas, 1);
    kTareas.shape(*mshNotasDetalle, 1);
    kFinal.shape(*mshFinal, 0);
    mshEvalRec->Clear();
    mshEvalRec->setRows(0);
    mshEvalRec->setCols(0);
}

void frmAlumnosFicha::SoltaRecordsets()
{
    rsEval_.Close();
    rsRec_.Close();
}

void frmAlumnosFicha::CargaNotas()
{
    const QScopedValueRollback<bool> filling(enchendo_, true);
    AbreEvaluaciones();
    LlenaEval();
    // Back on the row the teacher was on, once.
    mshEval->setRow(filaEval_ > 0 && filaEval_ < mshEval->Rows() ? filaEval_ : 1);
    filaEval_ = 0;
    if (hayEvaluaciones()) {
        CargaRecuperaciones();
        AbreTipos();
        AbreTareas();
    }
    filaEval_ = mshEval->Row();
    filaTipo_ = mshNotas->Row();
}

void frmAlumnosFicha::AbreEvaluaciones()
{
    rsEval_.Close();
    rsEval_.Open(standing::evaluationsStatement(id_), gConexion);
    // The chart's lists: an entry each time the evaluation, or the subject,
    // differs from the record before, so subjects repeat per evaluation.
    lstEval->clear();
    lstMat->clear();
    if (rsEval_.Eof())
        return;
    QVariant lastEva;
    QVariant lastMat;
    for (rsEval_.MoveFirst(); !rsEval_.Eof(); rsEval_.MoveNext()) {
        const QVariant eva = rsEval_.Value(QStringLiteral("IdEva"));
        const QVariant mat = rsEval_.Value(QStringLiteral("IdMat"));
        if (!lastEva.isValid() || eva != lastEva) {
            auto* item = new QListWidgetItem(vb::CStr(rsEval_.Value(QStringLiteral("Eval"))), lstEval);
            item->setData(Qt::UserRole, eva);
            lastEva = eva;
        }
        if (!lastMat.isValid() || mat != lastMat) {
            auto* item = new QListWidgetItem(vb::CStr(rsEval_.Value(QStringLiteral("Mat"))), lstMat);
            item->setData(Qt::UserRole, mat);
            lastMat = mat;
        }
    }
    rsEval_.MoveFirst();
}

void frmAlumnosFicha::LlenaEval()
{
    FlexGrid& g = *mshEval;
    g.setRedraw(false);
    const int pares = rsEval_.RecordCount();
    kEval.shape(g, std::max(pares, 1));
    int r = 1;
    if (pares > 0)
        rsEval_.MoveFirst();
    for (; !rsEval_.Eof(); rsEval_.MoveNext(), ++r) {
        const standing::Eval e = standing::readEvaluation(rsEval_, id_, grupoAlumno_);
        g.setTextMatrix(r, EvEval, e.eval);
        g.setTextMatrix(r, EvMat, e.mat);
        g.setTextMatrix(r, EvPtos, e.ptos);
        if (e.puntos < 5)
            g.setCellForeColor(r, EvPtos, kRojo);
        g.setTextMatrix(r, EvNota, e.nota);
        g.setCellFontSize(r, EvNota, 12);
        g.setCellFontBold(r, EvNota, true);
        if (vb::IsNumeric(e.nota) && vb::CSng(e.nota) < 5)
            g.setCellForeColor(r, EvNota, kRojo);
        g.setTextMatrix(r, EvIdEva, QString::number(e.idEva));
        g.setTextMatrix(r, EvIdMat, QString::number(e.idMat));
    }
    ui::finishGrid(g, kSinMover);
}

void frmAlumnosFicha::AbreTipos()
{
    const QScopedValueRollback<bool> filling(enchendo_, true);
    FlexGrid& g = *mshNotas;
    const int fila = mshEval->Row();
    const std::vector<standing::Tipo> tipos =
        conFilas(*mshEval, EvIdEva)
            ? standing::AbreTipos(id_, grupoAlumno_, vb::CLng(mshEval->TextMatrix(fila, EvIdEva)),
                                  vb::CLng(mshEval->TextMatrix(fila, EvIdMat)))
            : std::vector<standing::Tipo>{};
    g.setRedraw(false);
    kTipos.shape(g, std::max(int(tipos.size()), 1));
    int r = 1;
    for (const standing::Tipo& t : tipos) {
        g.setTextMatrix(r, TiTarea, t.tarea);
        g.setTextMatrix(r, TiMedia, t.media);
        g.setTextMatrix(r, TiValor, t.valor);
        g.setTextMatrix(r, TiPtos, t.ptos);
        g.setTextMatrix(r, TiIdTip, QString::number(t.idTip));
        ++r;
    }
    g.setRow(1);
    ui::finishGrid(g, kSinMover);
}

void frmAlumnosFicha::AbreTareas()
{
    const QScopedValueRollback<bool> filling(enchendo_, true);
    FlexGrid& g = *mshNotasDetalle;
    std::vector<standing::Tarea> tareas;
    if (conFilas(*mshEval, EvIdEva) && conFilas(*mshNotas, TiIdTip)) {
        const int e = mshEval->Row();
        tareas = standing::AbreTareas(id_, vb::CLng(mshEval->TextMatrix(e, EvIdEva)),
                                      vb::CLng(mshNotas->TextMatrix(mshNotas->Row(), TiIdTip)),
                                      vb::CLng(mshEval->TextMatrix(e, EvIdMat)));
    }
    g.setRedraw(false);
    kTareas.shape(g, std::max(int(tareas.size()), 1));
    int r = 1;
    for (const standing::Tarea& t : tareas) {
        g.setTextMatrix(r, TaTarea, t.tarea);
        g.setTextMatrix(r, TaNota, t.nota);
        g.setTextMatrix(r, TaObs, t.obs);
        g.setTextMatrix(r, TaIdTarea, QString::number(t.idTarea));
        g.setTextMatrix(r, TaIdNota, t.idNota);
        ++r;
    }
    g.setRow(1);
    ui::finishGrid(g, kSinMover);
}

void frmAlumnosFicha::mshEval_RowColChange()
{
    if (enchendo_ || mshEval->Row() == filaEval_)
        return;
    filaEval_ = mshEval->Row();
    filaTipo_ = 0;
    AbreTipos();
    AbreTareas();
    filaTipo_ = mshNotas->Row();
}

void frmAlumnosFicha::mshNotas_RowColChange()
{
    if (enchendo_ || mshNotas->Row() == filaTipo_)
        return;
    filaTipo_ = mshNotas->Row();
    AbreTareas();
}

void frmAlumnosFicha::CargaFinales()
{
    std::vector<standing::Final> finales = standing::CargaFinales(id_);
    std::vector<standing::EvalCells> evals;
    if (!finales.empty())
        for (int r = 1; r < mshEval->Rows(); ++r)
            evals.push_back(
                {mshEval->TextMatrix(r, EvIdMat), mshEval->TextMatrix(r, EvPtos), mshEval->TextMatrix(r, EvNota)});
    // The means read the evaluations grid as it stands.
    standing::MediaFinales(finales, evals);
    FlexGrid& g = *mshFinal;
    g.setRedraw(false);
    kFinal.shape(g, int(finales.size()));
    int r = 1;
    for (const standing::Final& f : finales) {
        g.setTextMatrix(r, FiMat, f.mat);
        g.setTextMatrix(r, FiPtos, f.ptos);
        g.setTextMatrix(r, FiNota, f.nota);
        g.setTextMatrix(r, FiNFO, f.nfo);
        g.setTextMatrix(r, FiNFE, f.nfe);
        g.setTextMatrix(r, FiIdMat, QString::number(f.idMat));
        ++r;
    }
    ui::finishGrid(g, kSinMover);
}

void frmAlumnosFicha::EditaNotaEval()
{
    if (sstDatos->currentWidget() != tabNotas || !hayEvaluaciones())
        return;
    Tag = QStringLiteral("A");
    BusyCursor busy(this);
    filaEval_ = mshEval->Row();
    const QString nota = mshEval->TextMatrix(filaEval_, EvNota);
    frmNotaFinal dialogo(this);
    dialogo.setTipo(QStringLiteral("Eval"));
    dialogo.setIdEval(vb::CLng(mshEval->TextMatrix(filaEval_, EvIdEva)));
    dialogo.setIdMat(vb::CLng(mshEval->TextMatrix(filaEval_, EvIdMat)));
    dialogo.setIdAlu(id_);
    dialogo.setNota(vb::IsNumeric(nota) ? vb::CSng(nota) : -1);
    dialogo.setCaption(QStringLiteral("NOTA FINAL DE ") + Caption());
    ShowModal(&dialogo);
    // The final marks keep their means until the next move or final mark.
    CargaNotas();
    filaEval_ = 0;
}

void frmAlumnosFicha::EditaNotaFinal()
{
    const int col = mshFinal->Col();
    if (mshFinal->Rows() < 2 || (col != FiNFO && col != FiNFE))
        return;
    Tag = QStringLiteral("A");
    BusyCursor busy(this);
    filaEval_ = mshEval->Row();
    const int fila = mshFinal->Row();
    const QString nota = mshFinal->TextMatrix(fila, col);
    frmNotaFinal dialogo(this);
    dialogo.setTipo(col == FiNFO ? QStringLiteral("FinalO") : QStringLiteral("FinalE"));
    dialogo.setIdMat(vb::CLng(mshFinal->TextMatrix(fila, FiIdMat)));
    dialogo.setIdAlu(id_);
    // An empty extraordinary mark goes as 0, not -1: the dialog then updates
    // the row of the ordinary one and never inserts.
    dialogo.setNota(vb::IsNumeric(nota) ? vb::CSng(nota) : (col == FiNFO ? -1.0f : 0.0f));
    dialogo.setCaption(QStringLiteral("NOTA FINAL DE ") + Caption());
    ShowModal(&dialogo);
    CargaNotas();
    CargaFinales();
    filaEval_ = 0;
}

void frmAlumnosFicha::mshNotasDetalle_DblClick()
{
    if (!conFilas(*mshNotasDetalle, TaIdTarea))
        return;
    Tag = QStringLiteral("A");
    BusyCursor busy(this);
    const int r = mshNotasDetalle->Row();
    const int e = mshEval->Row();
    frmEvaluarNota nota(this);
    nota.setEstado(1);
    nota.setDesTarea(vb::UCase(mshNotas->TextMatrix(mshNotas->Row(), TiTarea)) + QStringLiteral(" | Evaluación: ") +
                     mshEval->TextMatrix(e, EvEval) + QStringLiteral(" | Materia: ") + mshEval->TextMatrix(e, EvMat) +
                     QStringLiteral(" | Grupo: ") + cmbGrupo->currentText());
    nota.setIdTarea(vb::CLng(mshNotasDetalle->TextMatrix(r, TaIdTarea)));
    nota.setIdAlu(id_);
    nota.setIdNota(vb::CLng(mshNotasDetalle->TextMatrix(r, TaIdNota)));
    nota.setNota(vb::CSng(mshNotasDetalle->TextMatrix(r, TaNota)));
    nota.setObs(mshNotasDetalle->TextMatrix(r, TaObs));
    nota.setCaption(txtApe->text() + u' ' + txtNom->text());
    ShowModal(&nota);
    // The points follow the mark at once.
    CargaNotas();
}

void frmAlumnosFicha::cmdBorrarEval_Click()
{
    if (sstDatos->currentWidget() == tabRecuperaciones) {
        BorraEvalRec();
        return;
    }
    if (sstDatos->currentWidget() != tabNotas || !hayEvaluaciones())
        return;
    const int r = mshEval->Row();
    if (mshEval->TextMatrix(r, EvNota).isEmpty())
        return;
    if (MsgBox(QStringLiteral("¿Borrar la nota de ") + mshEval->TextMatrix(r, EvMat) + QStringLiteral(" de la ") +
                   mshEval->TextMatrix(r, EvEval) + QStringLiteral(" evaluación?"),
               vbYesNo + vbInformation) != vbYes)
        return;
    gConexion->Execute(QStringLiteral("DELETE * FROM tblNotasEval WHERE IdEval = %1 AND IdMat = %2 AND IdAlu = %3")
                           .arg(mshEval->TextMatrix(r, EvIdEva), mshEval->TextMatrix(r, EvIdMat))
                           .arg(id_));
    CargaNotas();
}

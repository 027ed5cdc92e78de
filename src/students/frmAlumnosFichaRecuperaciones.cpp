// The student sheet's recoveries tab: per stored evaluation mark, whether it
// must be made up, the make-up mark, whether it was passed and a remark. The
// recovery lives in the row of the evaluation mark and never replaces it.
#include "students/frmAlumnosFicha.h"

#include "core/Modulo.h"
#include "ui/Colors.h"
#include "ui/Controls.h"
#include "ui/EntryConventions.h"
#include "ui/FlexGrid.h"
#include "ui/GridShape.h"
#include "ui/MsgBox.h"
#include "vb/Vb.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace {

enum RecCol : int { ReEval = 1, ReMat, ReNota, ReRecuperar, ReNotaRec, ReRecuperado, ReObs, ReId };

constexpr auto kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr auto kCentre = Qt::AlignCenter;

const ui::GridColumns kRecuperaciones{{QString(), 500},
                                      {QStringLiteral("Evaluación"), 1900, kLeft},
                                      {QStringLiteral("Materia"), 2500, kLeft},
                                      {QStringLiteral("Nota Eva."), 1100, kCentre},
                                      {QStringLiteral("Recuperar"), 1100, kCentre},
                                      {QStringLiteral("Nota Rec."), 1100, kCentre},
                                      {QStringLiteral("Recuperado"), 1200, kCentre},
                                      {QStringLiteral("Observaciones"), 4000, kLeft},
                                      {QString(), 0, kLeft}};

// A yes/no column; Null reads as no.
bool verdade(const QVariant& v)
{
    return !vb::IsNull(v) && vb::CDbl(v) != 0;
}

QString siNo(const QVariant& v)
{
    return verdade(v) ? QStringLiteral("SÍ") : QStringLiteral("NO");
}

} // namespace

QWidget* frmAlumnosFicha::buildRecuperaciones()
{
    auto* page = control<QWidget>(sstDatos, "tabRecuperaciones");
    mshEvalRec = newGrid(page, "mshEvalRec");
    fraRecuperaciones = control<QGroupBox>(page, "fraRecuperaciones");
    chkRecuperar = control<QCheckBox>(fraRecuperaciones, "chkRecuperar");
    txtNotaRec = control<QLineEdit>(fraRecuperaciones, "txtNotaRec");
    chkRecuperada = control<QCheckBox>(fraRecuperaciones, "chkRecuperada");
    txtObsRec = control<QLineEdit>(fraRecuperaciones, "txtObsRec");
    cmdGardarRec = ui::commandButton(fraRecuperaciones, "cmdGardarRec", QStringLiteral("&Guardar Recup."));
    cmdBorrarRec = ui::commandButton(fraRecuperaciones, "cmdBorrarRec", QStringLiteral("&Borrar Recup."));
    chkRecuperar->setText(QStringLiteral("Tiene que recuperar evaluación"));
    chkRecuperada->setText(QStringLiteral("Evaluación recuperada"));
    txtNotaRec->setMaximumWidth(txtNotaRec->fontMetrics().horizontalAdvance(QStringLiteral("000,000")) + 16);
    for (QPushButton* b : {cmdGardarRec, cmdBorrarRec})
        b->setAutoDefault(false);

    auto* form = new QFormLayout;
    form->addRow(chkRecuperar);
    form->addRow(QStringLiteral("Nota recuperación"), txtNotaRec);
    form->addRow(chkRecuperada);
    form->addRow(QStringLiteral("Observaciones"), txtObsRec);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(cmdGardarRec);
    botones->addWidget(cmdBorrarRec);
    auto* frame = new QVBoxLayout(fraRecuperaciones);
    frame->addLayout(form);
    frame->addLayout(botones);

    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->addWidget(mshEvalRec, 1);
    layout->addWidget(fraRecuperaciones);
    ui::installEntryConventions(fraRecuperaciones);
    ui::installDecimalComma(txtNotaRec);

    onSignal(mshEvalRec, &FlexGrid::RowColChange, &frmAlumnosFicha::mshEvalRec_RowColChange);
    connect(mshEvalRec, &FlexGrid::keyPressed, this,
            [this](int key, Qt::KeyboardModifiers) { ui::guardRuntime([&] { mshEvalRec_KeyPress(key); }); });
    onSignal(cmdGardarRec, &QPushButton::clicked, &frmAlumnosFicha::cmdGardarRec_Click);
    onSignal(cmdBorrarRec, &QPushButton::clicked, &frmAlumnosFicha::cmdBorrarRec_Click);
    return page;
}

void frmAlumnosFicha::CargaRecuperaciones()
{
    const QScopedValueRollback<bool> filling(enchendo_, true);
    rsRec_.Close();
    rsRec_.Open(QStringLiteral("SELECT tblEvaluaciones.Des AS Eval, tblMaterias.Des AS Mat, tblNotasEval.Nota, "
                               "tblNotasEval.Recuperar, tblNotasEval.NotaRec, tblNotasEval.Recuperado, "
                               "tblNotasEval.ObsRec, tblNotasEval.Id FROM (tblNotasEval INNER JOIN tblEvaluaciones ON "
                               "tblNotasEval.IdEval = tblEvaluaciones.Id) INNER JOIN tblMaterias ON tblNotasEval.IdMat "
                               "= tblMaterias.Id Where tblNotasEval.IdAlu = %1 ORDER BY tblNotasEval.IdEval DESC;")
                    .arg(id_),
                gConexion);
    FlexGrid& g = *mshEvalRec;
    g.setRedraw(false);
    if (rsRec_.RecordCount() == 0) {
        g.Clear();
        g.setRows(0);
        g.setCols(0);
        g.setRedraw(true);
        return;
    }
    kRecuperaciones.shape(g, rsRec_.RecordCount());
    int r = 1;
    for (rsRec_.MoveFirst(); !rsRec_.Eof(); rsRec_.MoveNext(), ++r) {
        const QVariant nota = rsRec_.Value(QStringLiteral("Nota"));
        g.setTextMatrix(r, ReEval, ui::displayText(rsRec_.Value(QStringLiteral("Eval"))));
        g.setTextMatrix(r, ReMat, ui::displayText(rsRec_.Value(QStringLiteral("Mat"))));
        g.setTextMatrix(r, ReNota, vb::IsNull(nota) ? QString() : vb::Format(nota, QStringLiteral("##0.00")));
        g.setTextMatrix(r, ReRecuperar, siNo(rsRec_.Value(QStringLiteral("Recuperar"))));
        g.setTextMatrix(r, ReNotaRec, ui::displayText(rsRec_.Value(QStringLiteral("NotaRec"))));
        g.setTextMatrix(r, ReRecuperado, siNo(rsRec_.Value(QStringLiteral("Recuperado"))));
        g.setTextMatrix(r, ReObs, ui::displayText(rsRec_.Value(QStringLiteral("ObsRec"))));
        g.setTextMatrix(r, ReId, vb::CStr(rsRec_.Value(QStringLiteral("Id"))));
    }
    ui::finishGrid(g, {.fontSizes = {{ReNotaRec, 12}}, .firstCell = false});
    for (r = 1; r < g.Rows(); ++r) {
        g.setCellFontBold(r, ReNotaRec, true);
        // An evaluation to make up stands out in red from its make-up mark on.
        if (g.TextMatrix(r, ReRecuperar) == QStringLiteral("SÍ"))
            g.setRangeBackColor(r, ReNotaRec, r, g.Cols() - 1, ui::colorFromVariant(255));
    }
    g.setRow(1);
    filaRec_ = 1;
    CargaEditorRec();
}

void frmAlumnosFicha::CargaEditorRec()
{
    rsRec_.MoveFirst();
    rsRec_.Find(QStringLiteral("Id = ") + mshEvalRec->TextMatrix(filaRec_, ReId));
    if (rsRec_.Eof())
        return;
    chkRecuperar->setChecked(verdade(rsRec_.Value(QStringLiteral("Recuperar"))));
    chkRecuperada->setChecked(verdade(rsRec_.Value(QStringLiteral("Recuperado"))));
    txtNotaRec->setText(ui::displayText(rsRec_.Value(QStringLiteral("NotaRec"))));
    txtObsRec->setText(ui::displayText(rsRec_.Value(QStringLiteral("ObsRec"))));
}

void frmAlumnosFicha::LimpiaRecuperacion()
{
    chkRecuperar->setChecked(false);
    chkRecuperada->setChecked(false);
    txtNotaRec->setText(QStringLiteral("0"));
    txtObsRec->clear();
}

void frmAlumnosFicha::mshEvalRec_RowColChange()
{
    if (enchendo_ || mshEvalRec->Rows() < 2 || mshEvalRec->Row() == filaRec_)
        return;
    filaRec_ = mshEvalRec->Row();
    CargaEditorRec();
}

void frmAlumnosFicha::cmdGardarRec_Click()
{
    if (!hayRecuperaciones())
        return;
    // The make-up mark is always asked for, also to tick only the first box;
    // 0 is the usual filler.
    if (!vb::IsNumeric(txtNotaRec->text())) {
        MsgBox(QStringLiteral("Ponga un nº correcto"), vbInformation);
        txtNotaRec->setFocus();
        return;
    }
    const QString id = mshEvalRec->TextMatrix(filaRec_, ReId);
    if (id.isEmpty()) {
        MsgBox(QStringLiteral("Seleccione una evaluación antes de cambiar la nota"), vbInformation);
        return;
    }
    const QString nota = vb::CStr(QVariant::fromValue(vb::CSng(txtNotaRec->text()))).replace(u',', u'.');
    gConexion->Execute(QStringLiteral("UPDATE tblNotasEval SET tblNotasEval.Recuperar = %1, tblNotasEval.NotaRec = "
                                      "%2, tblNotasEval.Recuperado = %3, tblNotasEval.ObsRec = '%4' WHERE "
                                      "tblNotasEval.Id=%5")
                           .arg(chkRecuperar->isChecked() ? 1 : 0)
                           .arg(nota)
                           .arg(chkRecuperada->isChecked() ? 1 : 0)
                           .arg(txtObsRec->text(), id));
    CargaNotas();
}

void frmAlumnosFicha::cmdBorrarRec_Click()
{
    if (!hayRecuperaciones())
        return;
    gConexion->Execute(QStringLiteral("UPDATE tblNotasEval SET tblNotasEval.Recuperar = False, tblNotasEval.NotaRec = "
                                      "Null, tblNotasEval.Recuperado = False , tblNotasEval.ObsRec = Null WHERE "
                                      "tblNotasEval.Id=") +
                       mshEvalRec->TextMatrix(filaRec_, ReId));
    CargaNotas();
}

void frmAlumnosFicha::BorraEvalRec()
{
    if (!hayRecuperaciones())
        return;
    // The row is the one of the marks tab's grid, read in this tab's grid:
    // the question names the row that goes.
    const int r = mshEval->Row();
    if (MsgBox(QStringLiteral("¿Borrar la nota de ") + mshEvalRec->TextMatrix(r, ReMat) + QStringLiteral(" de la ") +
                   mshEvalRec->TextMatrix(r, ReEval) + QStringLiteral(" evaluación?"),
               vbYesNo + vbInformation) != vbYes)
        return;
    gConexion->Execute(QStringLiteral("DELETE * FROM tblNotasEval WHERE Id = ") + mshEvalRec->TextMatrix(r, ReId));
    CargaNotas();
}

void frmAlumnosFicha::mshEvalRec_KeyPress(int key)
{
    // "." deletes the row at once, without a question.
    if (key != Qt::Key_Period || !hayRecuperaciones())
        return;
    gConexion->Execute(QStringLiteral("DELETE * FROM tblNotasEval WHERE Id = ") +
                       mshEvalRec->TextMatrix(mshEvalRec->Row(), ReId));
    CargaNotas();
}

// The student sheet's "&Imprimir": what the grids show is staged into the
// print database, then the printed record opens over it.
#include "students/frmAlumnosFicha.h"

#include "reports/viewers/frmInformeHojaDoc.h"
#include "students/PrintStaging.h"
#include "ui/FlexGrid.h"
#include "ui/MsgBox.h"
#include "vb/Clock.h"
#include "vb/Vb.h"

#include <QComboBox>
#include <QLineEdit>

standing::Record frmAlumnosFicha::RecordFromGrids()
{
    standing::Record record;
    record.id = id_;
    record.nom = txtApe->text() + QStringLiteral(", ") + txtNom->text();
    record.grupo = cmbGrupo->currentText();
    record.mail = txtMailAlu->text();
    for (int r = 1; r < mshFinal->Rows(); ++r) {
        standing::Final f;
        f.mat = mshFinal->TextMatrix(r, FiMat);
        f.ptos = mshFinal->TextMatrix(r, FiPtos);
        f.nota = mshFinal->TextMatrix(r, FiNota);
        f.nfo = mshFinal->TextMatrix(r, FiNFO);
        f.nfe = mshFinal->TextMatrix(r, FiNFE);
        record.finales.push_back(std::move(f));
    }
    // Each evaluation row made current in turn, and each of its types, so
    // that the grids below show what is staged; they stay on the last ones.
    for (int e = 1; e < mshEval->Rows(); ++e) {
        mshEval->setRow(e);
        mshEval_RowColChange();
        standing::Record::Aval aval;
        aval.eval.idEva = vb::CLng(mshEval->TextMatrix(e, EvIdEva));
        aval.eval.eval = mshEval->TextMatrix(e, EvEval);
        aval.eval.idMat = vb::CLng(mshEval->TextMatrix(e, EvIdMat));
        aval.eval.mat = mshEval->TextMatrix(e, EvMat);
        aval.eval.ptos = mshEval->TextMatrix(e, EvPtos);
        aval.eval.nota = mshEval->TextMatrix(e, EvNota);
        for (int t = 1; t < mshNotas->Rows(); ++t) {
            if (mshNotas->TextMatrix(t, TiIdTip).isEmpty())
                continue;
            mshNotas->setRow(t);
            mshNotas_RowColChange();
            standing::Record::TipoTareas tipo;
            tipo.tipo.tarea = mshNotas->TextMatrix(t, TiTarea);
            tipo.tipo.media = mshNotas->TextMatrix(t, TiMedia);
            tipo.tipo.valor = mshNotas->TextMatrix(t, TiValor);
            tipo.tipo.ptos = mshNotas->TextMatrix(t, TiPtos);
            tipo.tipo.idTip = vb::CLng(mshNotas->TextMatrix(t, TiIdTip));
            for (int d = 1; d < mshNotasDetalle->Rows(); ++d)
                if (!mshNotasDetalle->TextMatrix(d, TaIdTarea).isEmpty())
                    tipo.tareas.push_back(
                        {mshNotasDetalle->TextMatrix(d, TaTarea), mshNotasDetalle->TextMatrix(d, TaNota),
                         mshNotasDetalle->TextMatrix(d, TaObs), vb::CLng(mshNotasDetalle->TextMatrix(d, TaIdTarea)),
                         mshNotasDetalle->TextMatrix(d, TaIdNota)});
            aval.tipos.push_back(std::move(tipo));
        }
        record.avals.push_back(std::move(aval));
    }
    return record;
}

void frmAlumnosFicha::StageRecord()
{
    for (FlexGrid* g : {mshEval, mshNotas, mshNotasDetalle})
        g->setRedraw(false);
    const standing::Record record = RecordFromGrids();
    for (FlexGrid* g : {mshEval, mshNotas, mshNotasDetalle})
        g->setRedraw(true);
    staging::stage(record);
}

void frmAlumnosFicha::cmdInforme_Click()
{
    if (!hayEvaluaciones()) {
        MsgBox(QStringLiteral("Non hai datos de avaliacións"), vbInformation);
        return;
    }
    BusyCursor busy(this);
    StageRecord();
    // A fixed pause before the report reads the file, whatever was written.
    vb::Clock::pause(3000);
    // The sheet stays as the walk left it when the report closes.
    Tag = QStringLiteral("A");
    frmInformeHojaDoc hoja(this);
    hoja.setTipo(QStringLiteral("FichaAlumno"));
    ShowModal(&hoja);
}

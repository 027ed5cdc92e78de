#include "marks/frmEvaluarNota.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "db/Recordset.h"
#include "rubrics/frmEvaluarNotaRubrica.h"
#include "ui/Controls.h"
#include "ui/EntryConventions.h"
#include "ui/MsgBox.h"
#include "vb/Vb.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using vb::CLng;

frmEvaluarNota::frmEvaluarNota(QWidget* parent)
    : NotaDialog(parent), lblInfo(new QLabel(this)),
      cmdRubricar(ui::commandButton(this, "cmdRubricar", QStringLiteral("&Rubricar")))
{
    setObjectName(QStringLiteral("frmEvaluarNota"));
    lblInfo->setObjectName(QStringLiteral("lblInfo"));
    addTopWidget(lblInfo);
    addButton(cmdRubricar);
    onSignal(cmdRubricar, &QPushButton::clicked, &frmEvaluarNota::cmdRubricar_Click);
}

void frmEvaluarNota::Form_Activate()
{
    if (consumeTagA())
        return;
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblTareasTipos.Min, tblTareasTipos.Max FROM tblTareas INNER JOIN tblTareasTipos ON "
                           "tblTareas.IdTip = tblTareasTipos.Id WHERE tblTareas.Id=%1")
                .arg(idTarea_),
            gConexion);
    if (rs.Eof()) {
        min_ = 0;
        max_ = 10;
    } else {
        min_ = CLng(rs.Value(QStringLiteral("Min")));
        max_ = CLng(rs.Value(QStringLiteral("Max")));
    }
    rs.Close();
    lblInfo->setText(QStringLiteral("Nota mínima: %1 | Nota máxima: %2").arg(min_).arg(max_));
    ui::limitToColumn(txtObs, QStringLiteral("tblNotas"), QStringLiteral("Obs"));
    txtNota->setFocus();
    if (idNota_ != -1) {
        txtNota->setText(vb::CStr(QVariant::fromValue(nota_)));
        txtObs->setText(obsInicial_);
    }
}

void frmEvaluarNota::txtNota_LostFocus()
{
    if (!NotaNumerica())
        return;
    const double nota = vb::CDbl(txtNota->text());
    if (nota > max_) {
        MsgBox(QStringLiteral("El valor máximo permitido es %1").arg(max_), vbInformation);
        txtNota->setText(QString::number(max_));
    } else if (nota < min_) {
        MsgBox(QStringLiteral("El valor mínimo permitido es %1").arg(min_), vbInformation);
        txtNota->setText(QString::number(min_));
    }
}

void frmEvaluarNota::Guardar()
{
    if (idNota_ == -1) {
        idNota_ = SiguienteId(QStringLiteral("tblNotas"), QStringLiteral("Id"));
        gConexion->Execute(QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES(%1, %2, %3, ")
                               .arg(idNota_)
                               .arg(idTarea_)
                               .arg(idAlu_) +
                           typedMark() + QStringLiteral(", '") + obs() + QStringLiteral("')"));
    } else {
        gConexion->Execute(
            QStringLiteral("UPDATE tblNotas SET tblNotas.Nota = ") + notaEnSimple() +
            QStringLiteral(", tblNotas.Obs = '") + obs() +
            QStringLiteral("' WHERE tblNotas.IdTarea=%1 AND tblNotas.IdAlu=%2").arg(idTarea_).arg(idAlu_));
    }
}

void frmEvaluarNota::cmdRubricar_Click()
{
    Tag = QStringLiteral("A");
    BusyCursor busy(this);
    // Saved first, with whatever the field holds, so that the rubric has a
    // mark to write to through IdNota.
    Guardar();
    // The rubric reads the mark and the task's header from here and leaves
    // its total in txtNota as it closes; the dialog stays open.
    frmEvaluarNotaRubrica rubrica(this);
    rubrica.setNotaMaxTarea(max_);
    rubrica.setIdTarea(idTarea_);
    rubrica.setIdNota(idNota_);
    rubrica.setDesTarea(desTarea_);
    rubrica.setAlumno(Caption());
    rubrica.setCampoNota(txtNota);
    ShowModal(&rubrica);
}

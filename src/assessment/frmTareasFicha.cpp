#include "assessment/frmTareasFicha.h"

#include "ui/MaskEdit.h"
#include "vb/Vb.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

namespace {

MaskEdit* date(QWidget* form, const char* name)
{
    auto* field = new MaskEdit(form);
    field->setObjectName(QLatin1String(name));
    field->setMaximumWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("00/00/00000")) + 16);
    return field;
}

} // namespace

frmTareasFicha::frmTareasFicha(QWidget* parent)
    : FichaForm(QStringLiteral("tblTareas"), parent), cmbTipoTarea(ui::comboBox(this, "cmbTipoTarea")),
      cmbEvaluacion(ui::comboBox(this, "cmbEvaluacion")), cmbGrupo(ui::comboBox(this, "cmbGrupo")),
      cmbMateria(ui::comboBox(this, "cmbMateria")), mskFecIni(date(this, "mskFecIni")),
      mskFecFin(date(this, "mskFecFin")), txtObs(new QLineEdit(this)),
      chkNota(new QCheckBox(QStringLiteral("Computa para Nota"), this)),
      chkFin(new QCheckBox(QStringLiteral("FINALIZADA"), this))
{
    txtObs->setObjectName(QStringLiteral("txtObs"));
    chkNota->setObjectName(QStringLiteral("chkNota"));
    chkFin->setObjectName(QStringLiteral("chkFin"));
    descriptionMessage = QStringLiteral("Ponga una descripción a la tarea");

    // Each combo keeps its rows, so that the chosen text gives back its key.
    const QString id = QStringLiteral("Id");
    const QString des = QStringLiteral("Des");
    addCombo(QStringLiteral("Tipo de tarea"), cmbTipoTarea,
             QStringLiteral("SELECT tblTareasTipos.Id, tblTareasTipos.Des From tblTareasTipos ORDER BY "
                            "tblTareasTipos.Id;"),
             id, des, QStringLiteral("IdTip"));
    addCombo(QStringLiteral("Evaluación"), cmbEvaluacion,
             QStringLiteral("SELECT tblEvaluaciones.Id, tblEvaluaciones.Des From tblEvaluaciones ORDER BY "
                            "tblEvaluaciones.Id;"),
             id, des, QStringLiteral("IdEva"));
    addCombo(QStringLiteral("Grupo"), cmbGrupo,
             QStringLiteral("SELECT [tblGrupos]![Id] AS IdGrupo, [tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' "
                            "& [tblGrupos]![Des] AS Des, tblGrupos.Id FROM (tblGrupos LEFT JOIN tblCursos ON "
                            "tblGrupos.IdCurso = tblCursos.Id) LEFT JOIN tblNiveles ON tblCursos.IdNivel = "
                            "tblNiveles.Id ORDER BY tblGrupos.Id;"),
             id, des, QStringLiteral("IdGru"));
    addCombo(QStringLiteral("Materia"), cmbMateria,
             QStringLiteral("SELECT tblMaterias.Id, tblMaterias.Des From tblMaterias ORDER BY tblMaterias.Des;"), id,
             des, QStringLiteral("IdMat"));
    addDate(QStringLiteral("Fecha de inicio"), mskFecIni, QStringLiteral("FecIni"));
    addDate(QStringLiteral("Fecha de finalización"), mskFecFin, QStringLiteral("FecFin"));
    addText(QStringLiteral("Observaciones"), txtObs, QStringLiteral("Obs"));
    addCheck(chkNota, QStringLiteral("Nota"));
    addCheck(chkFin, QStringLiteral("Fin"));
}

void frmTareasFicha::Form_Activate()
{
    FichaForm::Form_Activate();
    // A new task starts with nothing chosen, so that each choice is made.
    if (Estado() == 0)
        for (QComboBox* box : {cmbTipoTarea, cmbEvaluacion, cmbGrupo, cmbMateria})
            box->setCurrentIndex(-1);
    cmbTipoTarea->setFocus();
}

bool frmTareasFicha::ComprobaDatos()
{
    if (!FichaForm::ComprobaDatos())
        return false;
    if (cmbEvaluacion->currentText().isEmpty())
        return Rechazar(QStringLiteral("Seleccione una evaluación"), cmbEvaluacion);
    if (cmbGrupo->currentText().isEmpty())
        return Rechazar(QStringLiteral("Seleccione un grupo"), cmbGrupo);
    if (cmbMateria->currentText().isEmpty())
        return Rechazar(QStringLiteral("Seleccione una materia"), cmbMateria);
    if (cmbTipoTarea->currentText().isEmpty())
        return Rechazar(QStringLiteral("Seleccione un tipo de tarea"), cmbTipoTarea);
    // Both dates may stay empty, and the end may come before the start.
    const QString inicio = Fecha(mskFecIni);
    if (!inicio.isEmpty() && !vb::IsDate(inicio))
        return Rechazar(QStringLiteral("Ponga una fecha de inicio correcta"), mskFecIni);
    const QString fin = Fecha(mskFecFin);
    if (!fin.isEmpty() && !vb::IsDate(fin))
        return Rechazar(QStringLiteral("Ponga una fecha de finalización correcta"), mskFecFin);
    return true;
}

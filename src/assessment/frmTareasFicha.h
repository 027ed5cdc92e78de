#pragma once
// The sheet of one task (tblTareas): description, type, evaluation, group
// and subject chosen by their texts, the two optional dates, remarks, and
// whether it counts for the mark and is finished. The list sets Estado
// (0 new, 1 edit) and Id, then the caption, and shows it modal.
#include "ui/FichaForm.h"

class MaskEdit;
class QCheckBox;
class QComboBox;
class QLineEdit;

class frmTareasFicha : public FichaForm {
    Q_OBJECT

public:
    explicit frmTareasFicha(QWidget* parent = nullptr);

    QComboBox* cmbTipoTarea;
    QComboBox* cmbEvaluacion;
    QComboBox* cmbGrupo;
    QComboBox* cmbMateria;
    MaskEdit* mskFecIni;
    MaskEdit* mskFecFin;
    QLineEdit* txtObs;
    QCheckBox* chkNota;
    QCheckBox* chkFin;

protected:
    void Form_Activate() override;
    bool ComprobaDatos() override;
};

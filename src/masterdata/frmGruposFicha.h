#pragma once
// The entry form of a group: key, description, course (chosen by its text)
// and whether the teacher tutors it.
#include "ui/FichaForm.h"

class QCheckBox;
class QComboBox;

class frmGruposFicha : public FichaForm {
    Q_OBJECT

public:
    explicit frmGruposFicha(QWidget* parent = nullptr);

    QComboBox* cmbCurso;
    QCheckBox* chkTit;
};

#pragma once
// The entry form of a course: key, description and level, the level chosen
// by its text.
#include "ui/FichaForm.h"

class QComboBox;

class frmCursosFicha : public FichaForm {
    Q_OBJECT

public:
    explicit frmCursosFicha(QWidget* parent = nullptr);

    QComboBox* cmbNivel;
};

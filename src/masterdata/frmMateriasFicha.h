#pragma once
// The entry form of a subject: key, name and notes.
#include "ui/FichaForm.h"

class frmMateriasFicha : public FichaForm {
    Q_OBJECT

public:
    explicit frmMateriasFicha(QWidget* parent = nullptr);

    QLineEdit* txtObs;
};

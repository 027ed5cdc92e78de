#pragma once
// The entry form of a subject: key, name and notes.
#include "core/ui/FichaForm.h"

class frmMateriasFicha : public FichaForm {
    Q_OBJECT

public:
    explicit frmMateriasFicha(QWidget* parent = nullptr);

    QLineEdit* txtObs;
};

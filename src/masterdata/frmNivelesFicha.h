#pragma once
// The entry form of a level: its key and description.
#include "ui/FichaForm.h"

class frmNivelesFicha : public FichaForm {
    Q_OBJECT

public:
    explicit frmNivelesFicha(QWidget* parent = nullptr);
};

#pragma once
// The list of subjects (tblMaterias), by name; the key is not shown.
#include "ui/ListForm.h"

class frmMaterias : public ListForm {
    Q_OBJECT

public:
    explicit frmMaterias(QWidget* parent = nullptr);
};

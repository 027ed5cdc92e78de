#pragma once
// The list of evaluation periods (tblEvaluaciones).
#include "ui/ListForm.h"

class frmEvaluaciones : public ListForm {
    Q_OBJECT

public:
    explicit frmEvaluaciones(QWidget* parent = nullptr);
};

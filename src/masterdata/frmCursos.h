#pragma once
// The list of courses (tblCursos), each with its level.
#include "ui/ListForm.h"

class frmCursos : public ListForm {
    Q_OBJECT

public:
    explicit frmCursos(QWidget* parent = nullptr);
};

#pragma once
// The list of groups (tblGrupos), each with its course and whether the
// teacher tutors it.
#include "ui/ListForm.h"

class frmGrupos : public ListForm {
    Q_OBJECT

public:
    explicit frmGrupos(QWidget* parent = nullptr);
};

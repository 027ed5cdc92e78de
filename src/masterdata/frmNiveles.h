#pragma once
// The list of levels (tblNiveles).
#include "ui/ListForm.h"

class frmNiveles : public ListForm {
    Q_OBJECT

public:
    explicit frmNiveles(QWidget* parent = nullptr);

protected:
    void BorrarActual() override;
};

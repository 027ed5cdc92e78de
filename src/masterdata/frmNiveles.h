#pragma once
// The list of levels (tblNiveles).
#include "core/ui/ListForm.h"

class frmNiveles : public ListForm {
    Q_OBJECT

public:
    explicit frmNiveles(QWidget* parent = nullptr);

protected:
    void BorrarActual() override;
};

#pragma once
// The entry form of a task type: its name, the lowest and highest mark of
// its tasks, and notes. Nothing compares the two marks.
#include "ui/FichaForm.h"

class frmTareasTiposFicha : public FichaForm {
    Q_OBJECT

public:
    explicit frmTareasTiposFicha(QWidget* parent = nullptr);

    QLineEdit* txtMin;
    QLineEdit* txtMax;
    QLineEdit* txtObs;

protected:
    bool ComprobaDatos() override;
    void showFields(db::Recordset& row) override;
    void writeFields(db::Recordset& row) override;
};

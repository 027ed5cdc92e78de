#pragma once
// The entry form of an evaluation period: key, description, date (which may
// stay empty) and notes.
#include "ui/FichaForm.h"

class MaskEdit;

class frmEvaluacionesFicha : public FichaForm {
    Q_OBJECT

public:
    explicit frmEvaluacionesFicha(QWidget* parent = nullptr);

    MaskEdit* mskFec;
    QLineEdit* txtObs;

protected:
    void showFields(db::Recordset& row) override;
    bool ComprobaDatos() override;
    void writeFields(db::Recordset& row) override;

private:
    QString dateText() const;
};

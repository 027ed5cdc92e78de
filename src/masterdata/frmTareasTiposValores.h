#pragma once
// The entry form of a weight: the percentage with which tasks of one type
// count in one evaluation, for the subject and group the list chose. No sum
// to 100 is asked for, any whole number is taken, and a second weight for the
// same evaluation is accepted.
#include "ui/FichaForm.h"

class QComboBox;

class frmTareasTiposValores : public FichaForm {
    Q_OBJECT

public:
    explicit frmTareasTiposValores(QWidget* parent = nullptr);

    void setIdTareaTip(qint32 id) { idTareaTip_ = id; }
    void setIdMat(qint32 id) { idMat_ = id; }
    void setIdGrupo(qint32 id) { idGrupo_ = id; }

    QComboBox* cmbAvaliacion;
    QLineEdit* txtValor;

protected:
    QString loadStatement() const override;
    void loadLists() override;
    bool ComprobaDatos() override;
    void showFields(db::Recordset& row) override;
    void writeFields(db::Recordset& row) override;

private:
    qint32 idTareaTip_ = 0;
    qint32 idMat_ = 0;
    qint32 idGrupo_ = 0;
};

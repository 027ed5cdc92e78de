#pragma once
// One activity of a task's rubric: its number, description, weight (a
// percentage with no upper limit: 150 is taken), the top of its scale (a
// byte) and its assessment criteria. The task is the one of the rubric
// screen that opens the sheet.
//
// The top of the scale is checked on leaving it as a byte: 0 is refused
// with "Debe de poñer un nº maior de cero", and a negative value or one
// above 255 ends in the byte's overflow error there, before the check on
// saving ("Ponga un valor máximo de 0 a 255") can see it. The two messages
// disagree about 0; both stand.
//
// Enter moves on from the number, the weight and the top; the description
// and the criteria take it as a line break.
#include "db/Recordset.h"
#include "rubrics/RubricTask.h"
#include "ui/Form.h"

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

class frmTareasRubricaActividad : public Form {
    Q_OBJECT

public:
    frmTareasRubricaActividad(const RubricTask& tarea, QWidget* parent = nullptr);

    void setEstado(quint8 estado) { estado_ = estado; } // 0 new, 1 edit
    quint8 Estado() const { return estado_; }
    void setId(qint32 id) { id_ = id; }
    qint32 Id() const { return id_; }

    QLineEdit* txtId;
    QLineEdit* txtNum;
    QPlainTextEdit* txtDes;
    QLineEdit* txtPor;
    QLineEdit* txtMax;
    QPlainTextEdit* txtCri;
    QPushButton* cmdAceptar;
    QPushButton* cmdCancelar;

    void cmdAceptar_Click();
    void cmdCancelar_Click() { Unload(); }

protected:
    void Form_Activate() override;
    void done(int result) override;

private:
    bool ComprobaDatos();
    void txtPor_LostFocus();
    void txtMax_LostFocus();
    void Grabar();

    RubricTask tarea_;
    quint8 estado_ = 0;
    qint32 id_ = 0;
    bool cargado_ = false;
    db::Recordset rs_;
};

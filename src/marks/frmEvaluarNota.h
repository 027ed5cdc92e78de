#pragma once
// The mark of one student in one task: the mark, on the scale of the task
// type (its limits shown and checked when the mark is left), and a remark.
// Saving runs one INSERT when there is no mark yet (IdNota -1), which takes
// the new key into IdNota, or one UPDATE keyed on the task and the student.
// "&Rubricar" saves first and then hands over to rubric marking.
//
//     frmEvaluarNota nota(this);
//     nota.setDesTarea(cabecera);
//     nota.setIdTarea(idTarea);
//     nota.setIdAlu(idAlu);
//     nota.setIdNota(idNota);          // -1: no mark yet
//     nota.setNota(7.5f);              // shown when IdNota is not -1
//     nota.setObs(obs);
//     ShowModal(&nota);
#include "marks/NotaDialog.h"

class QLabel;

class frmEvaluarNota : public NotaDialog {
    Q_OBJECT

public:
    explicit frmEvaluarNota(QWidget* parent = nullptr);

    // Set by the student sheet, kept and not consulted.
    void setEstado(quint8 estado) { estado_ = estado; }
    quint8 Estado() const { return estado_; }
    void setIdNota(qint32 id) { idNota_ = id; }
    qint32 IdNota() const { return idNota_; }
    void setIdTarea(qint32 id) { idTarea_ = id; }
    qint32 IdTarea() const { return idTarea_; }
    void setDesTarea(const QString& des) { desTarea_ = des; }
    QString DesTarea() const { return desTarea_; }
    void setIdAlu(qint32 id) { idAlu_ = id; }
    qint32 IdAlu() const { return idAlu_; }
    void setNota(float nota) { nota_ = nota; }
    float Nota() const { return nota_; }
    void setObs(const QString& obs) { obsInicial_ = obs; }

    // The limits of the task type, read on the first activation.
    qint32 Min() const { return min_; }
    qint32 Max() const { return max_; }

    QLabel* lblInfo;
    QPushButton* cmdRubricar;

    void cmdRubricar_Click();

protected:
    void Form_Activate() override;
    void Guardar() override;
    void txtNota_LostFocus() override;

private:
    quint8 estado_ = 0;
    qint32 idNota_ = -1;
    qint32 idTarea_ = 0;
    QString desTarea_;
    qint32 idAlu_ = 0;
    float nota_ = 0;
    QString obsInicial_;
    qint32 min_ = 0;
    qint32 max_ = 10;
};

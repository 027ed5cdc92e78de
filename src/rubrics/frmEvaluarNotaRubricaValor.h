#pragma once
// The value of one activity of a rubric, set on the slider sldValor from 0
// to the activity's Max (an activity with Max 0 leaves it no travel). The
// slider answers the arrow keys, Page Up and Down, Home and End, the mouse
// and one step per notch of the wheel; Enter accepts and Escape cancels.
//
// Accepting stores the value at once in tblNotasRubrica (a new row keeps
// the Max given here, and a later change of the activity's Max never
// reaches it) and hands the value back in Aceptado(); the rubric screen
// that opened it then writes the value and the points into its own row.
#include "ui/Form.h"

#include <optional>

class QLabel;
class QPushButton;
class QSlider;

class frmEvaluarNotaRubricaValor : public Form {
    Q_OBJECT

public:
    explicit frmEvaluarNotaRubricaValor(QWidget* parent = nullptr);

    void setIdNota(qint32 id) { idNota_ = id; }
    void setIdActi(qint32 id) { idActi_ = id; }
    void setNum(const QString& num) { num_ = num; }
    void setDes(const QString& des) { des_ = des; }
    void setCri(const QString& cri) { cri_ = cri; }
    void setMax(quint8 max) { max_ = max; }
    void setValor(quint8 valor) { valor_ = valor; }
    // The value stored by cmdAceptar; nothing when the form was cancelled.
    std::optional<int> Aceptado() const { return aceptado_; }

    QLabel* lblNum;
    QLabel* lblDes;
    QLabel* lblCri;
    QSlider* sldValor;
    QLabel* lblValor;
    QPushButton* cmdAceptar;
    QPushButton* cmdCancelar;

    void cmdAceptar_Click();
    void cmdCancelar_Click() { Unload(); }

protected:
    void Form_Activate() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MostrarValor();

    qint32 idNota_ = 0;
    qint32 idActi_ = 0;
    QString num_;
    QString des_;
    QString cri_;
    quint8 max_ = 0;
    quint8 valor_ = 0;
    bool cargado_ = false;
    std::optional<int> aceptado_;
};

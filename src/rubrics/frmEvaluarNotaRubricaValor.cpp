#include "rubrics/frmEvaluarNotaRubricaValor.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "db/Recordset.h"
#include "ui/Controls.h"
#include "ui/RuntimeErrorBox.h"
#include "vb/Vb.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>

namespace {

// A slider that moves one step per notch of the mouse wheel, up or right
// for more, whatever the desktop's lines per notch: a scale of 4 must not
// jump to its end.
class Deslizador : public QSlider {
public:
    explicit Deslizador(QWidget* parent) : QSlider(Qt::Horizontal, parent) {}

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        const QPoint delta = event->angleDelta();
        resto_ += delta.y() != 0 ? delta.y() : -delta.x();
        const int pasos = resto_ / 120;
        resto_ -= pasos * 120;
        if (pasos != 0)
            setValue(value() + pasos * singleStep());
        event->accept();
    }

private:
    int resto_ = 0;
};

} // namespace

frmEvaluarNotaRubricaValor::frmEvaluarNotaRubricaValor(QWidget* parent)
    : Form(parent), lblNum(ui::textLabel(this, "lblNum")), lblDes(ui::textLabel(this, "lblDes")),
      lblCri(ui::textLabel(this, "lblCri")), sldValor(new Deslizador(this)), lblValor(new QLabel(this)),
      cmdAceptar(ui::commandButton(this, "cmdAceptar", QStringLiteral("&Aceptar"))),
      cmdCancelar(ui::commandButton(this, "cmdCancelar", QStringLiteral("&Cancelar")))
{
    setObjectName(QStringLiteral("frmEvaluarNotaRubricaValor"));
    setCaption(QStringLiteral("VALORACIÓN"));
    sldValor->setObjectName(QStringLiteral("sldValor"));
    lblValor->setObjectName(QStringLiteral("lblValor"));
    // The activity's texts wrap and may be selected to copy them.
    for (QLabel* l : {lblNum, lblDes, lblCri}) {
        l->setWordWrap(true);
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    QFont bold = lblNum->font();
    bold.setBold(true);
    lblNum->setFont(bold);
    QFont grande = bold;
    grande.setPointSizeF(bold.pointSizeF() * 1.6);
    lblValor->setFont(grande);
    lblValor->setAlignment(Qt::AlignCenter);
    lblValor->setMinimumWidth(lblValor->fontMetrics().horizontalAdvance(QStringLiteral("255/255")) + 16);
    lblDes->setMinimumWidth(420);
    sldValor->setMinimum(0);
    sldValor->setSingleStep(1);
    sldValor->setTickPosition(QSlider::TicksBelow);
    sldValor->setFocusPolicy(Qt::StrongFocus);
    sldValor->setMinimumWidth(320);

    auto* campos = new QFormLayout;
    campos->setLabelAlignment(Qt::AlignRight | Qt::AlignTop);
    campos->addRow(QStringLiteral("Nº"), lblNum);
    campos->addRow(QStringLiteral("Descripción"), lblDes);
    campos->addRow(QStringLiteral("Criterio"), lblCri);
    auto* escala = new QHBoxLayout;
    escala->addWidget(sldValor, 1);
    escala->addWidget(lblValor);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(cmdAceptar);
    botones->addWidget(cmdCancelar);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(campos);
    layout->addSpacing(10);
    layout->addLayout(escala);
    layout->addSpacing(8);
    layout->addLayout(botones);
    layout->setSizeConstraint(QLayout::SetMinimumSize);

    sldValor->installEventFilter(this);
    setCancelButton(cmdCancelar);
    connect(sldValor, &QSlider::valueChanged, this, [this] { MostrarValor(); });
    using F = frmEvaluarNotaRubricaValor;
    onSignal(cmdAceptar, &QPushButton::clicked, &F::cmdAceptar_Click);
    onSignal(cmdCancelar, &QPushButton::clicked, &F::cmdCancelar_Click);
}

void frmEvaluarNotaRubricaValor::Form_Activate()
{
    if (cargado_)
        return;
    cargado_ = true;
    sldValor->setMaximum(max_);
    sldValor->setValue(valor_);
    // Page Up and Down by a tenth of the scale, at least one step.
    sldValor->setPageStep(std::max(1, max_ / 10));
    sldValor->setTickInterval(max_ <= 20 ? 1 : max_ / 10);
    lblNum->setText(num_);
    lblDes->setText(des_);
    lblCri->setText(cri_);
    MostrarValor();
    sldValor->setFocus();
}

void frmEvaluarNotaRubricaValor::MostrarValor()
{
    lblValor->setText(QStringLiteral("%1/%2").arg(sldValor->value()).arg(max_));
}

bool frmEvaluarNotaRubricaValor::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == sldValor && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            cmdAceptar->click();
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

void frmEvaluarNotaRubricaValor::cmdAceptar_Click()
{
    const qint32 idNota = idNota_;
    db::Recordset rs;
    rs.Open(
        QStringLiteral("SELECT * FROM tblNotasRubrica WHERE IdNota = %1 AND IdActividad = %2").arg(idNota).arg(idActi_),
        gConexion);
    if (rs.Eof()) {
        rs.AddNew();
        rs.Fields(QStringLiteral("Id")) = SiguienteId(QStringLiteral("tblNotasRubrica"), QStringLiteral("Id"));
        rs.Fields(QStringLiteral("IdNota")) = idNota;
        rs.Fields(QStringLiteral("IdActividad")) = idActi_;
        rs.Fields(QStringLiteral("Max")) = int(max_);
    }
    const int valor = sldValor->value();
    rs.Fields(QStringLiteral("Valor")) = valor;
    rs.Update();
    rs.Close();
    aceptado_ = valor;
    Unload();
}

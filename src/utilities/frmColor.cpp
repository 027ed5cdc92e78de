#include "utilities/frmColor.h"

#include "core/Modulo.h"
#include "ui/Colors.h"
#include "ui/Controls.h"
#include "ui/Dialogs.h"
#include "utilities/ConfigLine.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

frmColor::frmColor(QWidget* parent)
    : Form(parent), cmdColor1(ui::commandButton(
                        this, "cmdColor1", QStringLiteral("Color principal para las fichas y cuadrículas de datos."))),
      cmdColor2(ui::commandButton(this, "cmdColor2", QStringLiteral("Color de fondo para las secciones de datos."))),
      cmdAceptar(ui::commandButton(this, "cmdAceptar", QStringLiteral("&Aceptar"))),
      cmdCancelar(ui::commandButton(this, "cmdCancelar", QStringLiteral("&Cancelar")))
{
    setObjectName(QStringLiteral("frmColor"));
    setCaption(QStringLiteral("Colores"));
    // Two large buttons, neither pressed by Enter from elsewhere.
    for (QPushButton* button : {cmdColor1, cmdColor2}) {
        button->setAutoDefault(false);
        button->setMinimumSize(420, 64);
        ui::setBold(button);
    }

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdAceptar);
    buttons->addWidget(cmdCancelar);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(12);
    layout->addWidget(cmdColor1);
    layout->addWidget(cmdColor2);
    layout->addSpacing(8);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetMinimumSize);

    setCancelButton(cmdCancelar);
    const auto clicked = &QPushButton::clicked;
    onSignal(cmdColor1, clicked, &frmColor::cmdColor1_Click);
    onSignal(cmdColor2, clicked, &frmColor::cmdColor2_Click);
    onSignal(cmdAceptar, clicked, &frmColor::cmdAceptar_Click);
    onSignal(cmdCancelar, clicked, &frmColor::cmdCancelar_Click);
}

void frmColor::Pintar(QPushButton* button, const QColor& color)
{
    ui::setBackColor(button, color);
    // The caption stays readable on a dark colour.
    QPalette p = button->palette();
    p.setColor(QPalette::ButtonText, color.lightness() < 110 ? Qt::white : Qt::black);
    button->setPalette(p);
}

void frmColor::Form_Activate()
{
    Pintar(cmdColor1, ui::colorFromVariant(gColor));
    Pintar(cmdColor2, ui::colorFromVariant(gColor2));
}

void frmColor::Elegir(QPushButton* button)
{
    const QColor chosen = ColorDialog::getColor(ui::backColor(button), this);
    if (chosen.isValid() && ui::bgrFromColor(chosen) != 0)
        Pintar(button, chosen);
}

void frmColor::cmdAceptar_Click()
{
    const qint32 color1 = qint32(ui::bgrFromColor(ui::backColor(cmdColor1)));
    const qint32 color2 = qint32(ui::bgrFromColor(ui::backColor(cmdColor2)));
    gColor = color1;
    utilities::EscribirLinea(gRutaBase + QStringLiteral("/color.ini"), utilities::printedNumber(color1));
    gColor2 = color2;
    utilities::EscribirLinea(gRutaBase + QStringLiteral("/color2.ini"), utilities::printedNumber(color2));
    Unload();
}

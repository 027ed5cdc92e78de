#include "ui/FocusStyle.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace ui {

FocusStyle::FocusStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

QColor FocusStyle::frameColour(const QPalette& palette)
{
    return palette.color(QPalette::Active, QPalette::Highlight).darker(220);
}

void FocusStyle::drawFocusFrame(QPainter* painter, const QRect& rect, const QPalette& palette)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    QPen pen(frameColour(palette), 2);
    pen.setJoinStyle(Qt::MiterJoin);
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(rect).adjusted(1, 1, -1, -1));
    painter->restore();
}

void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    // The current cell of a grid that has the focus.
    if (element == PE_FrameFocusRect && qobject_cast<const QAbstractItemView*>(widget)) {
        drawFocusFrame(painter, option->rect, option->palette);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_PushButton && (option->state & State_HasFocus))
        drawFocusFrame(painter, option->rect, option->palette);
}

void FocusStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if ((control == CC_ComboBox || control == CC_Slider) && (option->state & State_HasFocus))
        drawFocusFrame(painter, option->rect, option->palette);
}

} // namespace ui

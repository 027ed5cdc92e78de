#pragma once
// The program's look: Qt's Fusion style, with the keyboard focus drawn so it
// is seen at a glance. A focused button, combo box or slider and the current
// cell of a focused grid get a two-pixel frame in the highlight colour; entry
// fields keep their gColor background.
#include <QProxyStyle>

namespace ui {

class FocusStyle : public QProxyStyle {
public:
    FocusStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget = nullptr) const override;

    // The frame's colour: a dark shade of the highlight, seen on white, on
    // the stripes and on a selected row alike.
    static QColor frameColour(const QPalette& palette);
    // The frame itself, inside `rect`.
    static void drawFocusFrame(QPainter* painter, const QRect& rect, const QPalette& palette);
};

} // namespace ui

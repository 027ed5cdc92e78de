#include "ui/Colors.h"

#include "vb/Vb.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPalette>
#include <QWidget>

namespace ui {

namespace {

// The few system colours the screens name, by their index.
QColor systemColor(int index)
{
    const QPalette p = QApplication::palette();
    switch (index) {
    case 5: // window background
        return p.color(QPalette::Base);
    case 8: // window text
        return p.color(QPalette::Text);
    case 13: // highlight
        return p.color(QPalette::Highlight);
    case 14: // highlighted text
        return p.color(QPalette::HighlightedText);
    case 18: // button text
        return p.color(QPalette::ButtonText);
    default: // 15, button face, and anything else
        return p.color(QPalette::Button);
    }
}

} // namespace

QColor colorFromBgr(qint64 bgr)
{
    const quint32 v = quint32(bgr);
    if (v & 0x80000000u)
        return systemColor(int(v & 0xFFu));
    return QColor(int(v & 0xFF), int((v >> 8) & 0xFF), int((v >> 16) & 0xFF));
}

qint64 bgrFromColor(const QColor& color)
{
    const QColor c = color.toRgb();
    return qint64(c.red()) | (qint64(c.green()) << 8) | (qint64(c.blue()) << 16);
}

QColor colorFromVariant(const QVariant& value)
{
    // A missing file gives an empty variant, which converts to 0 (black); an
    // empty line is a text, and an empty text is no number.
    if (!value.isValid() || value.isNull())
        return colorFromBgr(0);
    if (value.typeId() == QMetaType::QColor)
        return value.value<QColor>();
    // Long: system colours are negative as 32-bit values.
    const QString text = value.toString().trimmed();
    bool ok = false;
    const qint64 wide = text.toLongLong(&ok);
    if (ok && wide > 0x7FFFFFFFLL && wide <= 0xFFFFFFFFLL)
        return colorFromBgr(wide);
    return colorFromBgr(qint64(quint32(vb::CLng(value))));
}

QColor white()
{
    return colorFromBgr(kWhite);
}

QColor buttonFace()
{
    return colorFromBgr(kButtonFace);
}

void setBackColor(QWidget* widget, const QColor& color)
{
    QPalette p = widget->palette();
    if (qobject_cast<QAbstractButton*>(widget)) {
        p.setColor(QPalette::Button, color);
    } else {
        p.setColor(QPalette::Base, color);
        p.setColor(QPalette::Window, color);
    }
    widget->setPalette(p);
}

QColor backColor(const QWidget* widget)
{
    const QPalette::ColorRole role = qobject_cast<const QAbstractButton*>(widget) ? QPalette::Button : QPalette::Base;
    return widget->palette().color(role);
}

} // namespace ui

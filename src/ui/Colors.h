#pragma once
// Colours as the configuration files and the screens hold them: Windows colour
// values, 0x00BBGGRR, as integers or as the text of color.ini (which carries a
// blank on each side). System colours (0x80000000 + index) read the palette.
#include <QColor>
#include <QVariant>

class QWidget;

namespace ui {

constexpr qint64 kWhite = 16777215;          // vbWhite
constexpr qint64 kButtonFace = 0x8000000FLL; // vbButtonFace, a system colour

QColor colorFromBgr(qint64 bgr);
// 0x00BBGGRR of an opaque colour.
qint64 bgrFromColor(const QColor& color);
// gColor and gColor2: a number or the text of a number, blanks allowed. An
// empty value (no colour file) is 0, black. Text that is not a number raises
// the conversion's run-time error.
QColor colorFromVariant(const QVariant& value);
QColor white();
QColor buttonFace();

// BackColor of a control: the base of entry fields, the face of buttons.
void setBackColor(QWidget* widget, const QColor& color);
QColor backColor(const QWidget* widget);

} // namespace ui

#pragma once
// Names for assistive technology. A screen reader announces a control by
// its accessible name: buttons and check boxes carry their caption, a field
// with a buddy label that label's caption; the fields of our screens mostly
// stand beside a label that is not their buddy, so the form names them once
// as it is shown, from that label.
#include <QList>
#include <QString>

class QWidget;

namespace ui {

// Gives each focusable control under `root` that has no name the caption of
// the label beside it (to its left on the same line, else just above it),
// or of the control it is a part of (the field of a combo box). Names set
// in code are kept.
void nameControls(QWidget* root);

// What an assistive technology reads as the name of `widget` ("" for none).
QString accessibleName(QWidget* widget);

// The focusable, visible controls under `root` that have no name.
QList<QWidget*> unnamedControls(QWidget* root);

} // namespace ui

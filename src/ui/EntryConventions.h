#pragma once
// The behaviour every entry field shares, installed once per field or per
// form by one event filter:
// - on receiving focus the background becomes gColor and the text is selected;
// - on leaving, the background becomes white;
// - Enter moves to the next field in tab order; in a single-line field the
//   key goes no further (so no default button takes it), a multi-line field
//   still receives it (a line break, then the move);
// - in mark fields "." is typed as ",";
// - masked fields take their mask on receiving focus and drop it on leaving,
//   an empty mask ("__/__/____") becoming empty text.
// Focus that leaves and comes back with the window's activation (a message
// box, another program) is not a move between fields and changes nothing; the
// first focus in a window just shown is an entry into its field.
#include <QString>

#include <functional>

class QLineEdit;
class QPlainTextEdit;
class QWidget;
class MaskEdit;

namespace ui {

inline const QString kDateMask = QStringLiteral("##/##/####");
inline const QString kTimeMask = QStringLiteral("##:##");

// A QLineEdit, QTextEdit, QPlainTextEdit or editable QComboBox; any other
// widget stands for all those fields inside it. A MaskEdit that has a mask
// at this moment gets the mask conventions with that mask.
void installEntryConventions(QWidget* fieldOrForm);
void installDecimalComma(QLineEdit* field);
void installMaskConventions(MaskEdit* field, const QString& mask);
inline void installDateConventions(MaskEdit* field)
{
    installMaskConventions(field, kDateMask);
}
inline void installTimeConventions(MaskEdit* field)
{
    installMaskConventions(field, kTimeMask);
}

// What Enter does: focus to the next field in the tab order of the field's
// window, as the Tab key would.
void focusNextField(QWidget* from);

// Typing stops at the declared size of the column the field is saved to
// (VARCHAR(n) in the year's schema); a column without one leaves it free.
void limitToColumn(QLineEdit* field, const QString& table, const QString& column);
// The same for a multi-line field: a text grown past the size (typed or
// pasted) is cut back to it.
void limitToColumn(QPlainTextEdit* field, const QString& table, const QString& column);

// A multi-line field where Enter is a line break and the focus stays; the
// other conventions (colours, selection) stand.
void keepEnterAsText(QPlainTextEdit* field);

// A search box: the focus colours and selection of every field, but Enter
// runs `search` and the focus stays in the box.
void installSearchField(QLineEdit* field, std::function<void()> search);

// Runs `left` each time the focus leaves the field (one with the entry
// conventions) for another one, after the field has gone white; not when
// only the window's activation goes and comes back. The check of a field on
// leaving it lives here: it may show a message and put the focus back.
void onFieldLeft(QWidget* field, std::function<void()> left);

} // namespace ui

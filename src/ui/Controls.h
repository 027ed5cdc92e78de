#pragma once
// The controls the screens are built from, each named as its control (the
// tests and the focus conventions find them by name). A screen makes its
// widgets here rather than through factories of its own:
//
//     cmbGrupo(ui::comboBox(this, "cmbGrupo", 16)),
//     txtMin(ui::textField(this, "txtMin", 8)),
//     cmdSalir(ui::commandButton(this, "cmdSalir", QStringLiteral("&Salir")))
//     ...
//     filtros->addWidget(ui::label(this, QStringLiteral("Grupo"), cmbGrupo));
//     layout->addWidget(ui::caption(this, QStringLiteral("Tareas"), mshNotas));
#include <QString>
#include <QVariant>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace ui {

// A command button named as its control, for the list and entry forms.
QPushButton* commandButton(QWidget* form, const char* name, const QString& caption);
// A combo box named as its control, wide enough for at least that many
// characters when a number is given.
QComboBox* comboBox(QWidget* form, const char* name, int minimumChars = 0);
// A text box named as its control; with a number of digits, no wider than
// that many digits and its frame.
QLineEdit* textField(QWidget* form, const char* name, int digits = 0);
// A label beside a field: its mnemonic takes the focus to the buddy. Named
// when a name is given.
QLabel* label(QWidget* form, const QString& text, QWidget* buddy = nullptr, const char* name = nullptr);
// A label named as its control, for a text the screen writes itself.
QLabel* textLabel(QWidget* form, const char* name, const QString& text = QString());
// A bold caption over a grid, a list or a group of fields.
QLabel* caption(QWidget* form, const QString& text, QWidget* buddy = nullptr);
// The text a field shows of a value: a Null as empty text.
QString displayText(const QVariant& value);
// The widget's own font made bold, scaled by `scale` (1: the same size).
void setBold(QWidget* widget, double scale = 1.0);

} // namespace ui

#include "ui/Controls.h"

#include "vb/Vb.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ui {

QPushButton* commandButton(QWidget* form, const char* name, const QString& caption)
{
    auto* button = new QPushButton(caption, form);
    button->setObjectName(QLatin1String(name));
    button->setMinimumWidth(96);
    return button;
}

QComboBox* comboBox(QWidget* form, const char* name, int minimumChars)
{
    auto* box = new QComboBox(form);
    box->setObjectName(QLatin1String(name));
    if (minimumChars > 0) {
        box->setMinimumContentsLength(minimumChars);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    }
    return box;
}

QLineEdit* textField(QWidget* form, const char* name, int digits)
{
    auto* field = new QLineEdit(form);
    field->setObjectName(QLatin1String(name));
    if (digits > 0)
        field->setMaximumWidth(field->fontMetrics().horizontalAdvance(QString(digits, u'0')) + 14);
    return field;
}

QLabel* label(QWidget* form, const QString& text, QWidget* buddy, const char* name)
{
    auto* l = new QLabel(text, form);
    if (name)
        l->setObjectName(QLatin1String(name));
    if (buddy)
        l->setBuddy(buddy);
    return l;
}

QLabel* textLabel(QWidget* form, const char* name, const QString& text)
{
    return label(form, text, nullptr, name);
}

QLabel* caption(QWidget* form, const QString& text, QWidget* buddy)
{
    QLabel* l = label(form, text, buddy);
    setBold(l);
    return l;
}

QString displayText(const QVariant& value)
{
    return vb::IsNull(value) ? QString() : vb::CStr(value);
}

void setBold(QWidget* widget, double scale)
{
    QFont font = widget->font();
    font.setBold(true);
    if (scale != 1.0)
        font.setPointSizeF(font.pointSizeF() * scale);
    widget->setFont(font);
}

} // namespace ui

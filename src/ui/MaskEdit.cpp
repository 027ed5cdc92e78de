#include "ui/MaskEdit.h"

MaskEdit::MaskEdit(QWidget* parent) : QLineEdit(parent) {}

QString MaskEdit::qtMaskOf(const QString& mask)
{
    if (mask.isEmpty())
        return {};
    QString out;
    for (const QChar ch : mask) {
        switch (ch.unicode()) {
        case '#':
            out += u'0'; // a digit, which may stay blank
            break;
        case '?':
            out += u'a';
            break;
        case 'A':
            out += u'n';
            break;
        case '&':
            out += u'x';
            break;
        default:
            // Qt's own mask letters and marks are literals here.
            if (QStringLiteral("AaNnXx90Dd#HhBb><!;[]{}\\").contains(ch))
                out += u'\\';
            out += ch;
            break;
        }
    }
    return out + QStringLiteral(";_");
}

void MaskEdit::setMask(const QString& mask)
{
    const QString text = Text();
    mask_ = mask;
    // Qt empties the box when the mask goes: put the text back.
    setInputMask(qtMaskOf(mask));
    QLineEdit::setText(text);
}

QString MaskEdit::Text() const
{
    return mask_.isEmpty() ? QLineEdit::text() : displayText();
}

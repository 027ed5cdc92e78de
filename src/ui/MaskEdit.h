#pragma once
// The masked entry box of dates and times. In a mask "#" is a digit, "?" a
// letter, "A" a letter or digit, "&" any character, everything else a
// literal; "##/##/####" shows "__/__/____" while empty.
//
// Text() is what the box holds, placeholders included: an empty masked date
// reads "__/__/____". Removing the mask keeps that text; the date convention
// then empties it.
#include <QLineEdit>

class MaskEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit MaskEdit(QWidget* parent = nullptr);

    QString Mask() const { return mask_; }
    // "" removes the mask and keeps the text as it stands.
    void setMask(const QString& mask);

    QString Text() const;

    static QString qtMaskOf(const QString& mask);

private:
    QString mask_;
};

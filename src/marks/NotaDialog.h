#pragma once
// What the two mark dialogs share: the mark txtNota (where "." is typed as
// ",") and the remark txtObs, cmdAceptar and cmdCancelar with one more
// button of each dialog beside them, the check of the mark when the focus
// leaves it, and the two ways the mark goes into a statement.
//
// An INSERT takes the mark with its digits as typed, an UPDATE takes it
// through single precision and back to text: a like pair of statements that
// differ on purpose ("8,123456789" is inserted as 8.123456789 and updated
// as 8.123457).
#include "ui/Form.h"

class QFormLayout;
class QHBoxLayout;
class QLineEdit;
class QPushButton;

class NotaDialog : public Form {
    Q_OBJECT

public:
    QLineEdit* txtNota;
    QLineEdit* txtObs;
    QPushButton* cmdAceptar;
    QPushButton* cmdCancelar;

    // Saves, releases and unloads; there is no check of its own, the limits
    // are only checked on leaving the mark.
    void cmdAceptar_Click();
    void cmdCancelar_Click() { Unload(); }

protected:
    explicit NotaDialog(QWidget* parent = nullptr);

    // A button after cmdAceptar and cmdCancelar.
    void addButton(QPushButton* button);
    // A row above the mark (an information line).
    void addTopWidget(QWidget* widget);

    // The one statement of the dialog.
    virtual void Guardar() = 0;
    // Runs when the focus leaves txtNota for another field. By default the
    // mark must be numeric.
    virtual void txtNota_LostFocus() { NotaNumerica(); }
    // Tells "Ponga un nº correcto" and puts the focus back when the mark is
    // not a number.
    bool NotaNumerica();

    // The mark for an INSERT: the text with every "," turned into ".".
    QString typedMark() const;
    // The mark for an UPDATE: the text as a Single, back to text, with ","
    // turned into ".". A text that does not convert is a run-time error.
    QString notaEnSimple() const;
    // The remark as it goes into a statement: unescaped, so an apostrophe
    // breaks it.
    QString obs() const;

private:
    QFormLayout* fields_;
    QHBoxLayout* buttons_;
};

#pragma once
// The entry form of a catalogue row: txtId (read-only) and txtDes, the
// catalogue's own fields below them, and cmdAceptar / cmdCancelar at the
// bottom right. The list sets the mode and the key, then the caption, and
// shows it modal:
//
//     ficha->setEstado(1);   // 0 new, 1 edit
//     ficha->setId(id);
//
// On activation a new row shows its key-to-be, SiguienteId of the table; an
// edited one loads "SELECT * FROM <table> WHERE Id = <id>" and shows it.
// cmdAceptar validates, saves through a recordset (so any text is safe),
// releases the recordsets and unloads; cmdCancelar, or Escape, releases and
// unloads. Enter moves from field to field and never presses a button that
// has not the focus.
//
// A catalogue adds its fields in its constructor: addText() and addCheck()
// for fields that show and save a column as they are, addCombo() for a combo
// chosen by text, addField() for any other, which it then shows and saves
// in the hooks showFields and writeFields. ComprobaDatos, loadLists,
// loadStatement and releaseRecordsets are the other hooks. A table without a
// description drops its row with dropDescription().
#include "db/Recordset.h"
#include "ui/Controls.h"
#include "ui/Form.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

class TextKeyCombo;
class MaskEdit;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QPushButton;

class FichaForm : public Form {
    Q_OBJECT

public:
    FichaForm(const QString& table, QWidget* parent = nullptr);
    ~FichaForm() override;

    void setEstado(quint8 estado) { estado_ = estado; }
    void setId(qint32 id) { id_ = id; }
    quint8 Estado() const { return estado_; }
    qint32 Id() const { return id_; }

    QLineEdit* txtId;
    QLineEdit* txtDes;
    QPushButton* cmdAceptar;
    QPushButton* cmdCancelar;

    void cmdAceptar_Click();
    void cmdCancelar_Click();

    // A Null shown as empty text.
    static QString Texto(const QVariant& value) { return ui::displayText(value); }

protected:
    // A labelled row under Código and Descripción, in tab order. The label
    // may be empty (a check box carries its own caption).
    void addField(const QString& label, QWidget* field);
    // A labelled text box showing a column, a Null as empty text, and saving
    // its text there.
    void addText(const QString& label, QLineEdit* field, const QString& column);
    // A check box, captioned by itself, showing a Boolean column and saving
    // True or False there.
    void addCheck(QCheckBox* field, const QString& column);
    // A labelled combo chosen by text, filled at the first activation from
    // the statement, whose key field is named as the table's column that
    // keeps the key ("IdNivel"), unless that column is given apart. It is
    // shown with the row, saved with it (see TextKeyCombo::write) and
    // released with the form.
    void addCombo(const QString& label, QComboBox* combo, const QString& statement, const QString& keyField,
                  const QString& textField, const QString& column = QString());
    // A labelled date box ("##/##/####" while it has the focus) showing a
    // date column as dd/MM/yyyy, a Null as empty, and saving the date it
    // holds, or Null when it holds none or no valid one.
    void addDate(const QString& label, MaskEdit* field, const QString& column);
    // The text of a date box, its blank mask read as empty.
    static QString Fecha(const MaskEdit* field);

    // For a table without a description: the row of txtDes is hidden and
    // saves nothing, and the focus starts in the first field below the key.
    void dropDescription();
    // The label of txtId, "Código" unless changed here.
    void setIdCaption(const QString& caption);

    // The statement that loads the edited row:
    // "SELECT * FROM <table> WHERE Id = <id>" unless overridden.
    virtual QString loadStatement() const;

    // Runs once, at the first activation, after the combos of addCombo are
    // filled and before the row is shown: any other list of the form is
    // filled here.
    virtual void loadLists() {}
    // Shows the columns of the fields added by addField.
    virtual void showFields(db::Recordset& row) {}
    // True when the fields may be saved; otherwise a message has been shown
    // and the focus is on the field at fault. By default: txtDes not empty.
    virtual bool ComprobaDatos();
    // Sets the columns of the fields added by addField, on a new row
    // (Estado 0) or on the loaded one (Estado 1).
    virtual void writeFields(db::Recordset& row) {}
    // Closes the recordsets of the form; overrides close their own and call this.
    virtual void releaseRecordsets();

    // Refuses the entry: the text with the information icon, focus to the field.
    static bool Rechazar(const QString& text, QWidget* field);

    void Form_Activate() override;
    void keyPressEvent(QKeyEvent* event) override;
    // Closing by the window's own box releases the recordsets too.
    void done(int result) override;

    QString table;
    QString descriptionMessage = QStringLiteral("Ponga una descripción");
    db::Recordset rs;

private:
    void GrabarNuevo();
    void GrabarModificado();
    void writeAll();
    QWidget* firstField() const;

    struct Bound {
        QWidget* field;
        QString column;
    };
    struct Combo;
    std::vector<Bound> bound_;
    std::vector<std::unique_ptr<Combo>> combos_;

    QFormLayout* fields_;
    quint8 estado_ = 0;
    qint32 id_ = 0;
    bool loaded_ = false;
    bool description_ = true;
};

// A combo box chosen by its text, as the entry forms bind one to a
// recordset of the rows it offers: the recordset stays open while the form
// lives, the box lists its text column in order with the first text chosen,
// and the chosen text is found again in the recordset to give the key.
class TextKeyCombo {
public:
    TextKeyCombo(QComboBox* combo, const QString& keyField, const QString& textField)
        : combo_(combo), keyField_(keyField), textField_(textField)
    {
    }

    void fill(const QString& statement);
    // The text of the row with that key; a Null or a key that is gone leaves
    // the box as it is.
    void showKey(const QVariant& key);
    // Stores the key of the chosen text in keyColumn of the row. An empty
    // box stores 0 there when editing; a new row gets the 0 in a column
    // named as the text field, which no table has: the save fails and the
    // program ends. That only happens when the parent catalogue is empty.
    void write(db::Recordset& row, quint8 estado, const QString& keyColumn);
    // The key of the first row with that text, searched from the first row;
    // nothing when no row has it.
    std::optional<QVariant> keyOf(const QString& text);
    void release() { rs_.Close(); }

private:
    QComboBox* combo_;
    QString keyField_;
    QString textField_;
    db::Recordset rs_;
};

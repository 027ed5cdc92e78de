#pragma once
// The list screen of a catalogue: the grid mshDatos over a recordset that it
// shows row for row, and the buttons cmdNovo, cmdEditar, cmdBorrar and
// cmdSalir. A catalogue is a small subclass that gives, in its constructor,
// the statement, the columns and the texts, and the entry form to open:
//
//     frmNiveles::frmNiveles(QWidget* parent) : ListForm(parent)
//     {
//         setCaption(QStringLiteral("Niveles"));
//         strSql = QStringLiteral("SELECT Id, Des FROM tblNiveles ORDER BY Id");
//         setColumns({500, 1100, 4000}, {QString(), QStringLiteral("Código"), ...});
//         newCaption = QStringLiteral("Nuevo nivel");
//         deleteQuestion = QStringLiteral("Está seguro de elimiar el nivel");
//         table = QStringLiteral("tblNiveles");
//         setFicha<frmNivelesFicha>();
//     }
//
// The list fills on activation unless Tag is "A". The recordset and the grid
// keep the same order: the key of the selected row is read from the
// recordset moved to the grid's row, never from the grid's cells.
//
// A list with more to it (filters above the grid, a count under it, more
// buttons) adds them to gridColumn and by addButton(), builds its statement
// in its own Rellenar(), and opens the other screens of a row through
// sobreFila(), as the edit button does.
#include "db/Recordset.h"
#include "ui/Form.h"
#include "ui/GridShape.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class FichaForm;
class FlexGrid;
class QPushButton;
class QVBoxLayout;

class ListForm : public Form {
    Q_OBJECT

public:
    explicit ListForm(QWidget* parent = nullptr);
    ~ListForm() override;

    FlexGrid* mshDatos;
    QPushButton* cmdNovo;
    QPushButton* cmdEditar;
    QPushButton* cmdBorrar;
    QPushButton* cmdSalir;

    // Opens the statement on gConexion and fills the grid: widths, titles,
    // stripes, row 1 column 1. With no rows, one blank row under the titles.
    virtual void Rellenar();

    // The handlers of the buttons and of a double click on the grid, which
    // edits the row unless the list says otherwise.
    void cmdNovo_Click();
    void cmdEditar_Click();
    void cmdBorrar_Click();
    virtual void mshDatos_DblClick();

    db::Recordset& recordset() { return rs; }

protected:
    // The entry form of a row, made anew for each opening over this list.
    template <typename F>
    void setFicha()
    {
        makeFicha_ = [this] { return std::unique_ptr<FichaForm>(new F(this)); };
    }
    // Deletes the recordset's current row: by default
    // "DELETE * FROM <table> WHERE Id = <id>" on gConexion.
    virtual void BorrarActual();

    // Widths in twips and titles, both from column 0 (the narrow fixed
    // column, which has no title). A width of 0 hides the column.
    void setColumns(const QList<int>& widths, const QStringList& titles);
    // The columns as the grid's description, for a list that wants more
    // (alignments, shares of the width).
    void setColumns(const ui::GridColumns& columns);

    // Another button in the column of buttons, above cmdSalir.
    void addButton(QPushButton* button);

    // Opens another screen over the selected row, whose key must be numeric
    // (an empty list does nothing): busy pointer, the recordset on the row,
    // Tag "A" and the key in CodigoAtopado while `abrir` shows the screen;
    // then the list refills and goes back to the row of that key.
    void sobreFila(const std::function<void(qint32 id)>& abrir);

    void Form_Activate() override;
    void done(int result) override;

    db::Recordset rs;
    QString strSql;                            // the statement of the list
    QString table;                             // the table the rows come from
    QString textField = QStringLiteral("Des"); // the row's text in captions and questions
    QString newCaption;                        // caption of the entry form of a new row
    QString deleteQuestion;                    // followed by CR LF, the row's text and "?"
    bool rowNumbers = false;                   // column 0 shows the row number
    QVBoxLayout* gridColumn;                   // the grid, and what stands above or below it

private:
    void fitTitles();
    int titleTwips(int col) const;
    int lastVisibleCol() const;
    int keyCol() const;

    std::function<std::unique_ptr<FichaForm>()> makeFicha_;
    QVBoxLayout* buttons_;
    ui::GridColumns columns_;
};

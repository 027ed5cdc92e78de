#pragma once
// The list of the students of the year, with their group and e-mail,
// filtered by a typed text. From here the student sheet opens to edit a
// student or to add one, a student is deleted, the AV mark of a row is
// toggled by a double click on its column, and the student reports open.
//
// The list's recordset stays open while the screen lives: the sheet walks it
// with its previous and next buttons, in the order and under the filter the
// list shows.
#include "db/Recordset.h"
#include "ui/Form.h"

class FlexGrid;
class QLabel;
class QLineEdit;
class QPushButton;

class frmAlumnos : public Form {
    Q_OBJECT

public:
    explicit frmAlumnos(QWidget* parent = nullptr);

    QLineEdit* txtFiltro;
    QLabel* lblInfo;
    FlexGrid* mshDatos;
    QPushButton* cmdNovo;
    QPushButton* cmdEditar;
    QPushButton* cmdBorrar;
    QPushButton* cmdInformes;

    // Queries the students under the filter of txtFiltro and lays the grid out.
    void RellenaLista();
    // The statement RellenaLista runs, and the same condition as a report
    // selection ("Sin Filtro" when there is no filter).
    QString Consulta() const;
    QString FiltroInforme() const;

    void cmdNovo_Click();
    void cmdEditar_Click();
    void cmdBorrar_Click();
    void cmdInformes_Click();
    // A double click on the grid: on the AV column it toggles the mark,
    // anywhere else it edits the row.
    void mshDatos_DblClick();

    db::Recordset& recordset() { return rs_; }

protected:
    void Form_Activate() override;
    // The widths follow the grid's width whenever it changes.
    bool eventFilter(QObject* watched, QEvent* event) override;
    // Escape closes the screen.
    void keyPressEvent(QKeyEvent* event) override;
    void done(int result) override;

private:
    void ConfiguraGrid();
    void AnchoColumnas();
    void CambiaAV();

    db::Recordset rs_;
};

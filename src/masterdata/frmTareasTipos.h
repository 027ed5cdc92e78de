#pragma once
// "Tipos de Tareas": the task types in mshDatos and, beside them in mshValor,
// the weights of the selected type for the subject and group chosen above.
// A change of row refills the weights, and so does "&Filtrar"; a change of
// subject or group alone does not, on purpose.
#include "db/Recordset.h"
#include "ui/Form.h"

class FlexGrid;
class QComboBox;
class QLabel;
class QPushButton;

class frmTareasTipos : public Form {
    Q_OBJECT

public:
    explicit frmTareasTipos(QWidget* parent = nullptr);

    FlexGrid* mshDatos;
    FlexGrid* mshValor;
    QLabel* lblMateria;
    QComboBox* cmbMateria;
    QLabel* lblGrupo;
    QComboBox* cmbGrupo;
    QPushButton* cmdFiltrarValor;
    QPushButton* cmdNovo;
    QPushButton* cmdEditar;
    QPushButton* cmdBorrar;
    QPushButton* cmdNovoValor;
    QPushButton* cmdEditarValor;
    QPushButton* cmdBorrarValor;
    QPushButton* cmdSalir;

    // The types, built cell by cell, with the selected row kept; then the weights.
    void RellenarTipos();
    // The weights of the selected type for the chosen subject and group.
    void RellenarValores();

    void cmdNovo_Click();
    void cmdEditar_Click();
    void cmdBorrar_Click();
    void cmdNovoValor_Click();
    void cmdEditarValor_Click();
    void cmdBorrarValor_Click();

protected:
    void Form_Activate() override;
    void resizeEvent(QResizeEvent* event) override;
    void done(int result) override;

private:
    void RellenarCombos();
    void Colocar();
    void AjustarColumnas();
    // The delete of a row of either grid (there must be one): the question
    // with the text of one column, then on Yes each statement with the key of
    // another, the refill, and "PROCESO FINALIZADO".
    void BorrarFila(FlexGrid* grid, int keyCol, int textCol, const QString& pregunta, const QStringList& borrados,
                    void (frmTareasTipos::*rellenar)());

    db::Recordset rsTipos_;
    db::Recordset rsValor_;
    QString sqlTipos_;
    QString sqlValor_;
    int filaTipos_ = 0; // the row whose weights are shown
    bool enchendo_ = false;
};

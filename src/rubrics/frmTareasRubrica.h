#pragma once
// The rubric of one task: its activities, each with its number, its weight
// ("% Valor") and the top of its own scale ("Max. Valor"), in the order of
// the numbers as text ("10" comes between "1" and "2"). The weights need not
// add up to 100. From here the teacher adds, edits and deletes activities,
// copies those of another task ("Cargar &Plantilla") and sees the chart.
//
// The task list sets the task, its type as the list shows it and the
// header, then shows it modal:
//
//     frmTareasRubrica rubrica(this);
//     rubrica.setIdTarea(id);
//     rubrica.setTipoTarea(tipo);          // the templates look for it by this text
//     rubrica.lblCabecera->setText(cabecera);
//     ShowModal(&rubrica);
//
// Deleting an activity leaves its values in tblNotasRubrica.
#include "db/Recordset.h"
#include "rubrics/RubricTask.h"
#include "ui/Form.h"

class FlexGrid;
class QLabel;
class QPushButton;

class frmTareasRubrica : public Form {
    Q_OBJECT

public:
    explicit frmTareasRubrica(QWidget* parent = nullptr);

    void setIdTarea(qint32 id) { idTarea_ = id; }
    qint32 IdTarea() const { return idTarea_; }
    void setTipoTarea(const QString& tipo) { tipoTarea_ = tipo; }
    const QString& TipoTarea() const { return tipoTarea_; }
    // The task as the screens it opens are given it.
    RubricTask Tarea() const;

    QLabel* lblCabecera;
    FlexGrid* mshDatos;
    QPushButton* cmdNovo;
    QPushButton* cmdEditar;
    QPushButton* cmdBorrar;
    QPushButton* cmdPlantilla;
    QPushButton* cmdGrafico;
    QPushButton* cmdSalir;

    // Reads the activities of the task and fills the grid.
    void Rellenar();
    void cmdNovo_Click();
    // Edits the activity of the selected row (also a double click).
    void cmdEditar_Click();
    void cmdBorrar_Click();
    void cmdPlantilla_Click();
    void cmdGrafico_Click();

    const QString& Sql() const { return strSql_; }

protected:
    void Form_Activate() override;
    void resizeEvent(QResizeEvent* event) override;
    void done(int result) override;

private:
    bool HayFila() const;
    void AnchoDescripcion();

    qint32 idTarea_ = 0;
    QString tipoTarea_;
    QString strSql_;
    db::Recordset rs_;
};

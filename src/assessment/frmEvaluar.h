#pragma once
// The marking grid of one task: every student of the task's group with the
// mark and remark of the task, the band colour of each mark in column 0,
// and under it mshEstatistica, the count and percentage of the marks in
// each band. The task list sets IdTarea, IdGrupo, ValorMaximo (the Max of
// the task type) and the text of lblCabecera, then shows it modal.
//
// The colours use ValorMaximo, the counts the task type's Max in the
// database. The percentages divide by the marks found for students of the
// group, while the counts take every mark of the task, so a student who has
// left the group counts in a band and in the first number of the last cell
// ("<marks>/<students>") but not in the percentages. After a delete the
// statistics are deliberately left as they were until the next change of a
// mark.
#include "db/Recordset.h"
#include "ui/Form.h"

class FlexGrid;
class QLabel;
class QPushButton;

class frmEvaluar : public Form {
    Q_OBJECT

public:
    explicit frmEvaluar(QWidget* parent = nullptr);

    void setIdTarea(qint32 id) { idTarea_ = id; }
    qint32 IdTarea() const { return idTarea_; }
    void setIdGrupo(qint32 id) { idGrupo_ = id; }
    qint32 IdGrupo() const { return idGrupo_; }
    void setValorMaximo(qint16 maximo) { valorMaximo_ = maximo; }
    qint16 ValorMaximo() const { return valorMaximo_; }

    QLabel* lblCabecera;
    FlexGrid* mshDatos;
    FlexGrid* mshEstatistica;
    QPushButton* cmdEvaluarNota;
    QPushButton* cmdBorrar;
    QPushButton* cmdFichaAlumno;
    QPushButton* cmdInformes;
    QPushButton* cmdSalir;

    // The marks of students of the group found at the last fill of the marks.
    int NotasEncontradas() const { return notasEncontradas_; }

    // Opens the mark dialog on the selected row (also Enter and a double click).
    void cmdEvaluarNota_Click();
    void cmdBorrar_Click();
    // The student sheet of the row, to consult.
    void cmdFichaAlumno_Click();
    // The report of the task's marks, with the five band cells.
    void cmdInformes_Click();
    // A click on a title sorts by that column.
    void mshDatos_TitleClick(int col);

protected:
    void Form_Activate() override;
    void done(int result) override;

private:
    void AbrirAlumnos();
    void AbrirNotas();
    void ConstruirGrid();
    void RellenarNotas();
    void RellenarEstatistica();
    void VolverAFila(int fila);

    qint32 idTarea_ = 0;
    qint32 idGrupo_ = 0;
    qint16 valorMaximo_ = 0;
    int notasEncontradas_ = 0;
    db::Recordset rsAlumnos_;
    db::Recordset rsNotas_;
};

#pragma once
// Marking one student's task by its rubric: the activities of the task with
// the value this mark has in each (0 where none is stored), the points of
// each (NotaPonderada of its weight, its Max, the value and the Max of the
// task type) and their total in lblNota. Enter or a double click sets a
// value on a slider (frmEvaluarNotaRubricaValor), which stores it at once in
// tblNotasRubrica. A click or Space marks a row with "X" and lblNotaParcial
// adds the points of the marked rows; "." clears the marks. The marks are a
// working aid of the screen and are never stored.
//
// Closing, by any way, takes the total over into the mark field of the mark
// dialog: a field holding 0 (or nothing) takes the total rounded to two
// decimals at once; any other mark asks "Actualizar a nota?", No being the
// default, and only Yes changes it. The mark reaches tblNotas when the mark
// dialog is accepted.
//
// The mark dialog sits above this library, so it hands in what the screen
// reads and writes of it:
//
//     frmEvaluarNotaRubrica rubrica(this);
//     rubrica.setNotaMaxTarea(Max());
//     rubrica.setIdTarea(IdTarea());
//     rubrica.setIdNota(IdNota());            // the mark, already saved
//     rubrica.setDesTarea(DesTarea());
//     rubrica.setAlumno(Caption());
//     rubrica.setCampoNota(txtNota);          // the field the total goes to
//     ShowModal(&rubrica);
#include "ui/Form.h"

#include <QPointer>

class FlexGrid;
class QLabel;
#include <QLineEdit>
class QPushButton;

class frmEvaluarNotaRubrica : public Form {
    Q_OBJECT

public:
    explicit frmEvaluarNotaRubrica(QWidget* parent = nullptr);

    // The columns of mshDatos.
    enum Col : int { ColId, ColNumero, ColNum, ColDes, ColCri, ColPor, ColMax, ColValor, ColPtos, ColMarcar, NCols };

    void setNotaMaxTarea(qint32 maximo) { notaMaxTarea_ = maximo; }
    qint32 NotaMaxTarea() const { return notaMaxTarea_; }
    void setIdTarea(qint32 id) { idTarea_ = id; }
    qint32 IdTarea() const { return idTarea_; }
    void setIdNota(qint32 id) { idNota_ = id; }
    qint32 IdNota() const { return idNota_; }
    void setDesTarea(const QString& des) { desTarea_ = des; }
    void setAlumno(const QString& alumno) { alumno_ = alumno; }
    void setCampoNota(QLineEdit* campo) { campoNota_ = campo; }

    QLabel* lblTarea;
    QLabel* lblAlumno;
    FlexGrid* mshDatos;
    QLabel* lblNota;
    QLabel* lblNotaParcial;
    QPushButton* cmdSalir;

    // Opens the value dialog on the current row (Enter, a double click).
    void AbrirValor();
    // Marks or unmarks the current row (a click, Space).
    void Marcar();
    // Clears the marks of every row (".").
    void Desmarcar();
    // The total of the points, shown in lblNota as plain text.
    void MostrarTotal();

protected:
    void Form_Activate() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void done(int result) override;

private:
    void Cargar();
    void NotaParcial();
    // The total goes to the mark field as it closes.
    void ActualizarNota();

    qint32 notaMaxTarea_ = 0;
    qint32 idTarea_ = 0;
    qint32 idNota_ = -1;
    QString desTarea_;
    QString alumno_;
    QPointer<QLineEdit> campoNota_;
    bool pechando_ = false;
};

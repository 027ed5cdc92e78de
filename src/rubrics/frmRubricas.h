#pragma once
// The templates of a rubric: every task, of this year or of another, whose
// type has the description of the current task's type and which has at
// least one activity. Keys differ between years, so the type is found by
// its description; a type renamed since then finds nothing. Enter or a
// double click on a task copies its activities to the task of the rubric
// screen, after those it already has: a copy adds and never replaces, so
// copying twice doubles them.
//
// Another year is read through a second connection to its Xestion.mdb,
// opened read-only, that lives as long as this screen (or until another
// year is asked for). Enter in txtCurso checks that the year's file exists
// before the list is filled from it.
#include "db/Connection.h"
#include "db/Recordset.h"
#include "rubrics/RubricTask.h"
#include "ui/Form.h"

class FlexGrid;
class QLabel;
class QLineEdit;
class QPushButton;

class frmRubricas : public Form {
    Q_OBJECT

public:
    frmRubricas(const RubricTask& tarea, QWidget* parent = nullptr);

    QLabel* lblInfo;
    QLineEdit* txtCurso;
    FlexGrid* mshDatos;
    QPushButton* cmdSalir;

    // Fills the list from the year of txtCurso.
    void RellenarLista();
    // Enter in txtCurso.
    void txtCurso_Enter();
    // Enter or a double click on a row: asks, then copies.
    void mshDatos_Elegir();

    // The key of the task type found in the listed year, 0 when none was.
    qint32 IdTip() const { return idTip_; }
    // The connection of the listed year: the session's, or the other year's.
    const db::ConnectionPtr& ConexionLista() const { return cnLista_; }

protected:
    void Form_Activate() override;
    void done(int result) override;

private:
    // The connection to another year's database.
    void CargarMDBAnterior();
    void CrearRubrica(qint32 idOrigen);
    QString RutaCurso() const;

    RubricTask tarea_;
    bool cargado_ = false;
    qint32 idTip_ = 0;
    db::ConnectionPtr cnAnterior_;
    QString cursoAnterior_;
    db::ConnectionPtr cnLista_;
    db::Recordset rsLista_;
};

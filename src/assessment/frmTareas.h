#pragma once
// The task list (tblTareas with its type, evaluation, group and subject),
// newest start first, under four filters: the group, the subject, a text
// and "Pendientes". The statement is one of sixteen, one per combination of
// the filters (see clausula). From a row the teacher edits the task, marks
// it (E&valuación, or a double click) or defines its rubric.
//
// Ticking "Pendientes" does not refilter by itself: it counts at the next
// filter. "Nuevo" brings the group and subject back to TODOS and TODAS, as
// the whole start-up runs again when the list becomes active; "Editar" and
// the other screens of a row keep them.
#include "db/Recordset.h"
#include "ui/ListForm.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

class frmTareas : public ListForm {
    Q_OBJECT

public:
    explicit frmTareas(QWidget* parent = nullptr);

    QComboBox* cmbGrupo;
    QComboBox* cmbMateria;
    QLineEdit* txtFiltro;
    QCheckBox* chpPendientes;
    QPushButton* cmdFiltrar;
    QPushButton* cmdEvaluacion;
    QPushButton* cmdRubrica;
    QPushButton* cmdInformes;
    QLabel* lblInfo;

    // Runs the filter of the controls as they stand and rebuilds the grid.
    void Rellenar() override;
    void cmdFiltrar_Click() { Rellenar(); }
    // Opens the marking grid of the selected task.
    void cmdEvaluacion_Click();
    void cmdRubrica_Click();

    // The statement of a filter: pendientes, a group (by its key), a
    // subject (by its text) and a search text, each standing only when
    // its flag does. Texts go in as they are, quotes and all.
    static QString sqlFiltro(bool pendientes, bool grupo, bool materia, bool texto, qint32 idGrupo,
                             const QString& desMateria, const QString& filtro);

protected:
    void Form_Activate() override;
    void BorrarActual() override;
    void mshDatos_DblClick() override { cmdEvaluacion_Click(); }
    void done(int result) override;

private:
    void RellenarCombos();
    qint32 IdGrupoElegido();
    QString Cabecera() const;

    db::Recordset rsGrupos_;
};

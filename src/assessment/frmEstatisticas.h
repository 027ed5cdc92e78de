#pragma once
// How many students of one group fall into each grade band, per subject, for
// one kind of mark: the ordinary or extraordinary final mark, an evaluation
// mark or its recovery. It reads tblNotasFinal and tblNotasEval as they were
// entered and writes nothing. Beside the table, a stacked bar chart of the
// same counts.
//
// Nothing is computed until cmdCalcular, and a change of a filter leaves the
// table as it is. The counts are bare record counts: no percentages, no
// totals. Their bounds start at 0, so a mark of 0 counts as IN here (a task's
// marking grid counts it nowhere), and 4.995, 5.995, 6.995, 8.995 and marks
// above 10 fall between or beyond the bands.
//
// The count statement is chosen by the text of cmbAvaliacion first ("Ordinaria",
// "Extraordinaria") and only then by cmbNotas, and a group or evaluation text
// that is not found keeps the key of the last computation.
#include "db/Recordset.h"
#include "ui/Form.h"

class FlexGrid;
class QChartView;
class QComboBox;
class QPushButton;

class frmEstatisticas : public Form {
    Q_OBJECT

public:
    explicit frmEstatisticas(QWidget* parent = nullptr);

    QComboBox* cmbGrupo;
    QComboBox* cmbNotas;
    QComboBox* cmbAvaliacion;
    QPushButton* cmdCalcular;
    QPushButton* cmdInforme;
    QPushButton* cmdSalir;
    FlexGrid* mshDatos;
    QChartView* chtBandas; // the counts of the table, stacked per subject

    // The keys of the last computation.
    qint32 IdGrupo() const { return idGrupo_; }
    qint32 IdEval() const { return idEval_; }

    // Refills cmbAvaliacion for the kind of mark and selects its first entry.
    void cmbNotas_Click();
    void cmdCalcular_Click();
    // The list of the marks of the current row's subject, with its counts;
    // nothing on an empty table.
    void cmdInforme_Click();

    // The statement that counts the group's marks of one subject in a band,
    // for the texts of cmbNotas and cmbAvaliacion.
    static QString sqlConteo(const QString& notas, const QString& avaliacion, int banda, qint32 grupo, qint32 eval,
                             qint32 materia);

protected:
    void Form_Activate() override;
    void done(int result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AnchoColumnas();
    void DebuxarGrafico();

    bool loaded_ = false;
    qint32 idGrupo_ = 0;
    qint32 idEval_ = 0;
    db::Recordset rsGrupos_;
    db::Recordset rsEvaluaciones_;
    db::Recordset rsMaterias_;
};

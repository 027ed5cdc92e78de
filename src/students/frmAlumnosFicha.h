#pragma once
// The student sheet: one student in four tabs ("DATOS PERSONALES", "NOTAS",
// "RECUPERACIONES", "GRÁFICO") over the strip of buttons fraBotones. The
// opener sets the mode, the student and the list it shows, then the caption,
// and shows it modal:
//
//     frmAlumnosFicha ficha(this);
//     ficha.setEstado(1);          // 0 new, 1 edit, 2 consult
//     ficha.setId(id);
//     ficha.setRcAlumnos(&rs);     // the opener's list; it must have a field Id
//     ficha.setCaption(QStringLiteral("Consultando ") + vb::UCase(nombre));
//     ShowModal(&ficha);
//
// In consult mode the sheet opens on the marks tab and the button strip is
// hidden, so nothing of the student can be saved from it; the marks grids
// still open the mark dialogs. A new student needs no list; previous, next
// and search then have nothing to walk.
//
// The marks tab shows points beside typed marks: the points ("Ptos.",
// "Ptos") are computed each time from the task marks and the weights
// (StudentStanding), the marks ("NOTA", "NFO", "NFE") are what the teacher
// typed in frmNotaFinal. Nothing copies one into the other.
//
// The sheet stays open after a save and keeps its mode. Previous, next and
// search walk the opener's recordset, which they move; changes not saved are
// dropped without a question.
#include "db/Recordset.h"
#include "ui/FichaForm.h"
#include "ui/Form.h"

#include <vector>

class FlexGrid;
class MaskEdit;
class QChartView;
class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
namespace standing {
struct Record;
}

class frmAlumnosFicha : public Form {
    Q_OBJECT

public:
    explicit frmAlumnosFicha(QWidget* parent = nullptr);
    ~frmAlumnosFicha() override;

    void setEstado(quint8 estado) { estado_ = estado; }
    void setId(qint32 id) { id_ = id; }
    void setRcAlumnos(db::Recordset* rs) { rcAlumnos_ = rs; }
    quint8 Estado() const { return estado_; }
    qint32 Id() const { return id_; }
    db::Recordset* rcAlumnos() const { return rcAlumnos_; }

    QTabWidget* sstDatos;
    QWidget* tabDatos;
    QWidget* tabNotas;
    QWidget* tabRecuperaciones;
    QWidget* tabGrafico;

    // The personal data, tab 0.
    QLineEdit* txtApe;
    QLineEdit* txtNom;
    MaskEdit* mskFecNac;
    MaskEdit* mskFecMat;
    QLineEdit* txtDir;
    QLineEdit* txtCP;
    QLineEdit* txtPob;
    QLineEdit* txtPro;
    QLineEdit* txtPais;
    QLineEdit* txtPai;
    QLineEdit* txtTelPai;
    QLineEdit* txtMailPai;
    QLineEdit* txtNai;
    QLineEdit* txtTelNai;
    QLineEdit* txtMailNai;
    QLineEdit* txtMailAlu;
    QPlainTextEdit* txtObs;
    QComboBox* cmbGrupo;
    QLabel* imgFoto;

    // The marks, tab 1: points and typed marks per evaluation and subject,
    // the task types of the current row, their tasks, and the final marks.
    FlexGrid* mshEval;
    FlexGrid* mshNotas;
    FlexGrid* mshNotasDetalle;
    FlexGrid* mshFinal;

    // The recoveries, tab 2.
    FlexGrid* mshEvalRec;
    QGroupBox* fraRecuperaciones;
    QCheckBox* chkRecuperar;
    QLineEdit* txtNotaRec;
    QCheckBox* chkRecuperada;
    QLineEdit* txtObsRec;
    QPushButton* cmdGardarRec;
    QPushButton* cmdBorrarRec;

    // The chart, tab 3: the points of one subject per evaluation.
    QListWidget* lstEval;
    QListWidget* lstMat;
    QListWidget* lstTipoGrafico;
    QChartView* mscGrafico;

    QFrame* fraBotones;
    QPushButton* cmdAceptar;
    QPushButton* cmdCancelar;
    QPushButton* cmdAnterior;
    QPushButton* cmdSeguinte;
    QPushButton* cmdBuscar;
    QPushButton* cmdBorrarEval;
    QPushButton* cmdInforme;

    // The path of the photo shown, saved in Foto.
    const QString& RutaFoto() const { return rutaFoto_; }

    void cmdAceptar_Click();
    void cmdCancelar_Click();
    void cmdAnterior_Click();
    void cmdSeguinte_Click();
    void cmdBuscar_Click();
    // The photo chosen anew, as a double click on it does.
    void imgFoto_DblClick();
    void cmdBorrarEval_Click();
    void cmdInforme_Click();
    // What "&Imprimir" stages before the record opens: the grids walked row by
    // row into the staging database.
    void StageRecord();
    // Double click or Enter on the grids of tab 1.
    void EditaNotaEval();
    void EditaNotaFinal();
    void mshNotasDetalle_DblClick();
    void cmdGardarRec_Click();
    void cmdBorrarRec_Click();
    void lstMat_Click();

    // Columns of the marks grids; the chart and the print read them too.
    enum EvalCol : int { EvEval = 1, EvMat, EvPtos, EvNota, EvIdEva, EvIdMat };
    enum TipoCol : int { TiTarea = 1, TiMedia, TiValor, TiPtos, TiIdTip };
    enum TareaCol : int { TaTarea = 1, TaNota, TaObs, TaIdTarea, TaIdNota };
    enum FinalCol : int { FiMat = 1, FiPtos, FiNota, FiNFO, FiNFE, FiIdMat };
    // A grid of the marks tabs made empty under its titles: one fixed row
    // and the fixed column 0 of width 500, then the columns given (width 0
    // hides one), and `rows` rows in all.
    static FlexGrid* newGrid(QWidget* parent, const char* name);

    // The two validations of a save, each with its verdict. Every check runs;
    // ComprobaDatos gives the verdict of the last one that ran.
    bool ComprobaDatos();
    bool ComprobaNom();

protected:
    void Form_Activate() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void done(int result) override;

private:
    QWidget* buildDatos();
    QFrame* buildBotones();

    void PonColor();
    void CargaAlumno();
    void MostraFoto();
    void GuardaNuevo();
    void GuardaCambios();
    void EscribeCampos(db::Recordset& row);
    // The list of the opener, which previous, next and search need.
    db::Recordset& Lista();
    // One record back or forward in the list, and that student loaded.
    void Move(bool seguinte);
    // The student of id_, loaded after a move, in edit mode.
    void AmosaActual(bool finales);
    // The boxes of the data tab that show a column as text, in the order of
    // the save; the dates among them save as dates.
    struct CampoTexto {
        QLineEdit* box;
        const char* column;
    };
    std::vector<CampoTexto> CamposTexto() const;

    template <class T>
    static T* control(QWidget* parent, const char* name)
    {
        auto* widget = new T(parent);
        widget->setObjectName(QLatin1String(name));
        return widget;
    }

    QWidget* buildNotas();
    QWidget* buildRecuperaciones();
    QWidget* buildGrafico();

    void PonColorGrafico();
    void LimpiaGrids();
    void LimpiaRecuperacion();
    void SoltaRecordsets();
    // Tab 1 and the recoveries from the student's marks, and the lists of
    // the chart.
    void CargaNotas();
    void CargaFinales();
    // The chart of the first subject, or an empty chart.
    void MostraGrafico();

    void AbreEvaluaciones();
    void LlenaEval();
    void AbreTipos();
    void AbreTareas();
    void CargaRecuperaciones();
    void CargaEditorRec();
    void PonGrafico(qint32 idMat);
    void mshEval_RowColChange();
    void mshNotas_RowColChange();
    void mshEvalRec_RowColChange();
    void mshEvalRec_KeyPress(int key);
    // "Borrar Eval." on the recoveries tab.
    void BorraEvalRec();
    // The record as the grids show it, walking every evaluation and type.
    standing::Record RecordFromGrids();
    // The student's group, for the weights.
    qint32 grupoAlumno_ = 0;
    // Whether the pairs, or the stored evaluation marks, have rows; a sheet
    // that loaded no student has neither.
    bool hayEvaluaciones() const { return rsEval_.IsOpen() && rsEval_.RecordCount() > 0; }
    bool hayRecuperaciones() const { return rsRec_.IsOpen() && rsRec_.RecordCount() > 0; }
    db::Recordset rsEval_;  // the pairs of evaluation and subject
    db::Recordset rsRec_;   // the stored evaluation marks, for the recoveries
    bool enchendo_ = false; // grids being filled: their row changes are not the teacher's
    int filaEval_ = 0;
    int filaTipo_ = 0;
    int filaRec_ = 0;

    quint8 estado_ = 0;
    qint32 id_ = 0;
    db::Recordset* rcAlumnos_ = nullptr;
    db::Recordset rsAlumno_; // the student's row, loaded and saved
    TextKeyCombo grupos_;    // cmbGrupo over the groups of the year
    QString apeNomAnterior_; // Ape and Nom run together, as loaded
    QString rutaFoto_;
};

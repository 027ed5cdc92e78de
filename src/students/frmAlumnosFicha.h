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
// hidden, so nothing of the student can be saved from it. A new student
// needs no list; previous, next and search then have nothing to walk.
//
// The sheet stays open after a save and keeps its mode. Previous, next and
// search walk the opener's recordset, which they move; changes not saved are
// dropped without a question.
#include "db/Recordset.h"
#include "ui/FichaForm.h"
#include "ui/Form.h"

#include <vector>

class MaskEdit;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;

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

    // The marks, recoveries and chart tabs keep their grids, recordsets and
    // chart through these; they are called where a student is loaded.
    void PonColorGrafico() {}
    void LimpiaGrids() {}
    void LimpiaRecuperacion() {}
    void SoltaRecordsets() {}
    void CargaNotas() {}
    void CargaFinales() {}
    void MostraGrafico() {}

    quint8 estado_ = 0;
    qint32 id_ = 0;
    db::Recordset* rcAlumnos_ = nullptr;
    db::Recordset rsAlumno_; // the student's row, loaded and saved
    TextKeyCombo grupos_;    // cmbGrupo over the groups of the year
    QString apeNomAnterior_; // Ape and Nom run together, as loaded
    QString rutaFoto_;
};

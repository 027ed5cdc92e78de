#pragma once
// The evaluation mark or a final mark of one student in one subject, typed
// by the teacher: Tipo "Eval" writes tblNotasEval.Nota, "FinalO" and
// "FinalE" write NotaO and NotaE of the one tblNotasFinal row of the
// subject, which shares its Obs between the two exams. Any number is
// accepted. The caller (the student sheet) sets the caption, "NOTA FINAL DE "
// and its own, and its own Tag to "A", then shows it modal:
//
//     frmNotaFinal nota(this);
//     nota.setTipo(QStringLiteral("Eval"));
//     nota.setIdEval(idEval);          // only for "Eval"
//     nota.setIdMat(idMat);
//     nota.setIdAlu(idAlu);
//     nota.setNota(-1);                // no mark yet; 0 for an empty "FinalE"
//     ShowModal(&nota);
//
// A Nota of -1 chooses the INSERT, any other value the UPDATE; there is no
// INSERT for "FinalE", whose mark only ever joins the row of "FinalO". The
// deletes of "&Eliminar" are not the mirror of the saves: "Eval" removes the
// subject's marks of every evaluation of the student, "FinalO" the whole
// row with NotaE and Obs, "FinalE" clears NotaE alone.
#include "marks/NotaDialog.h"

class frmNotaFinal : public NotaDialog {
    Q_OBJECT

public:
    explicit frmNotaFinal(QWidget* parent = nullptr);

    void setTipo(const QString& tipo) { tipo_ = tipo; }
    QString Tipo() const { return tipo_; }
    void setIdEval(qint32 id) { idEval_ = id; }
    void setIdMat(qint32 id) { idMat_ = id; }
    void setIdAlu(qint32 id) { idAlu_ = id; }
    void setNota(float nota) { nota_ = nota; }
    float Nota() const { return nota_; }

    QPushButton* cmdEliminar;

    // Runs its one statement and unloads, without asking.
    void cmdEliminar_Click();

    // The statement that "&Aceptar" runs, and the one of "&Eliminar".
    QString sqlGuardar() const;
    QString sqlEliminar() const;

protected:
    void Form_Activate() override;
    void Guardar() override;

private:
    QString onde() const;

    QString tipo_;
    qint32 idEval_ = 0;
    qint32 idMat_ = 0;
    qint32 idAlu_ = 0;
    float nota_ = -1;
};

#pragma once
// The search dialog that picks one student for another screen. The caller
// sets the mode, shows it modal and then reads CodigoAtopado:
//
//     frmAtopar atopar(this);
//     atopar.setEstado(QStringLiteral("Alumnos"));   // or "AlumnoTutoria"
//     Tag = QStringLiteral("A");
//     ShowModal(&atopar);
//     if (!vb::IsNull(CodigoAtopado)) {
//         const qint32 id = vb::CLng(CodigoAtopado);
//         CodigoAtopado = QVariant();
//         ...
//     }
//
// "Alumnos" lists every student of the year with e-mail and group;
// "AlumnoTutoria" only the students of the groups the teacher tutors. A
// double click or Enter on a row chooses it and closes the dialog; closing it
// any other way chooses nobody.
#include "db/Recordset.h"
#include "ui/Form.h"

class FlexGrid;
class QLineEdit;
class QPushButton;

class frmAtopar : public Form {
    Q_OBJECT

public:
    explicit frmAtopar(QWidget* parent = nullptr);

    void setEstado(const QString& estado) { estado_ = estado; }
    const QString& Estado() const { return estado_; }

    QLineEdit* txtBuscar;
    FlexGrid* mshDatos;
    QPushButton* cmdNuevo;

    // Lists the students of the mode whose name, e-mail or group holds the
    // text of txtBuscar; run on opening and on Enter in txtBuscar.
    void BuscaAlumnos();
    // Takes the student of the selected row, if any, and closes.
    void Elixir();
    void cmdNuevo_Click();

protected:
    void Form_Activate() override;
    void done(int result) override;

private:
    QString estado_;
    db::Recordset rs_;
};

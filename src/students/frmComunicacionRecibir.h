#pragma once
// The import of a class list: the students of an ".alu" file go into
// tblAlumnos, all in the group chosen by level, course and group. Each line
// of the file is "<key>#<surnames>#<name>#"; nothing is checked, keys are
// taken as they stand, and the first line the database refuses ends the run
// with the lines before it imported.
#include "db/Recordset.h"
#include "ui/Form.h"

class QComboBox;
class QLabel;
class QPushButton;

class frmComunicacionRecibir : public Form {
    Q_OBJECT

public:
    explicit frmComunicacionRecibir(QWidget* parent = nullptr);

    QLabel* lblAxuda;
    QComboBox* cmbNiveis;
    QComboBox* cmbCursos;
    QComboBox* cmbGrupos;
    QLabel* lblArchivo;
    QPushButton* cmdBuscar;
    QPushButton* cmdImportar;

    void cmdBuscar_Click();
    void cmdImportar_Click();

    // The common dialog's filter of the file dialog, as it stands.
    static QString filtroArchivos() { return QStringLiteral("Ficheiros alumnos|*.alu|Todos/*.*"); }

protected:
    void Form_Activate() override;
    void done(int result) override;

private:
    void CargarNiveis();
    void CargarCursos(const QVariant& idNivel);
    void CargarGrupos(const QVariant& idCurso);
    void CargarAlumnos();
    void Actualizar();

    void cmbNiveis_Click();
    void cmbCursos_Click();
    void cmbGrupos_Click();

    db::Recordset rsNiveis_;
    db::Recordset rsCursos_;
    db::Recordset rsGrupos_;
    db::Recordset rsAlumnos_;
};

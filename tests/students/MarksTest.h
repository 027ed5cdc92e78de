#pragma once
// What the tests of the sheet's marks, recoveries, chart and printed record
// share: a year built for each case on an empty schema (one group "3º ESO B",
// three evaluations, three subjects, two students), rows added by statement,
// and the sheet opened on a student to edit or to consult.
#include "AlumnosTest.h"
#include "db/Recordset.h"
#include "students/frmAlumnosFicha.h"
#include "ui/MsgBox.h"

#include <QTabWidget>

namespace marks_test {

using alumnos_test::cells;
using alumnos_test::doubleClickCell;

inline void exec(const QString& sql)
{
    gConexion->Execute(sql);
}

// The year's frame: group 1 is "3º ESO B"; evaluations 1 to 3; subjects 1
// Lengua, 2 Matemáticas, 3 Historia; student 1 Souto Vidal, Iria and
// student 2 Rey Mato, Brais, both in group 1.
inline void frame()
{
    exec(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (1, 'ESO')"));
    exec(QStringLiteral("INSERT INTO tblCursos (Id, Des, IdNivel) VALUES (1, '3º', 1)"));
    exec(QStringLiteral("INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (1, 'B', 1, False)"));
    exec(QStringLiteral("INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (2, 'C', 1, False)"));
    const char* evals[] = {"1ª Evaluación", "2ª Evaluación", "3ª Evaluación"};
    for (int i = 0; i < 3; ++i)
        exec(QStringLiteral("INSERT INTO tblEvaluaciones (Id, Des) VALUES (%1, '%2')")
                 .arg(i + 1)
                 .arg(QString::fromUtf8(evals[i])));
    const char* mats[] = {"Lengua", "Matemáticas", "Historia"};
    for (int i = 0; i < 3; ++i)
        exec(QStringLiteral("INSERT INTO tblMaterias (Id, Des) VALUES (%1, '%2')")
                 .arg(i + 1)
                 .arg(QString::fromUtf8(mats[i])));
    alumnos_test::addStudent(1, QStringLiteral("Souto Vidal"), QStringLiteral("Iria"));
    alumnos_test::addStudent(2, QStringLiteral("Rey Mato"), QStringLiteral("Brais"));
}

inline int nextId(const char* table)
{
    return yearq::value(QStringLiteral("SELECT MAX(Id) AS Ultimo FROM %1").arg(QLatin1String(table))).toInt() + 1;
}

inline void tipo(int id, const QString& des, int max)
{
    exec(QStringLiteral("INSERT INTO tblTareasTipos (Id, Des, Min, Max, Val) VALUES (%1, '%2', 0, %3, 1)")
             .arg(id)
             .arg(des)
             .arg(max));
}

// The weight of a type in an evaluation and subject for group 1.
inline void peso(int tip, int eva, int mat, double valor, int grupo = 1)
{
    const int id = nextId("tblTareasTiposValor");
    exec(QStringLiteral("INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor) VALUES (%1, "
                        "%2, %3, %4, %5, %6)")
             .arg(id)
             .arg(tip)
             .arg(eva)
             .arg(mat)
             .arg(grupo)
             .arg(valor));
}

inline void tarea(int id, const QString& des, int tip, int eva, int mat, bool computa = true)
{
    exec(QStringLiteral("INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, Nota, Fin) VALUES (%1, '%2', %3, "
                        "%4, %5, 1, %6, False)")
             .arg(id)
             .arg(des)
             .arg(tip)
             .arg(eva)
             .arg(mat)
             .arg(computa ? QStringLiteral("True") : QStringLiteral("False")));
}

inline void nota(int tarea, int alu, const QString& nota, const QString& obs = QString())
{
    exec(QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (%1, %2, %3, %4, '%5')")
             .arg(nextId("tblNotas"))
             .arg(tarea)
             .arg(alu)
             .arg(nota, obs));
}

inline void notaEval(int eva, int mat, int alu, const QString& nota)
{
    exec(QStringLiteral("INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota) VALUES (%1, %2, %3, %4, %5)")
             .arg(nextId("tblNotasEval"))
             .arg(eva)
             .arg(mat)
             .arg(alu)
             .arg(nota));
}

inline void notaFinal(int mat, int alu, const QString& notaO, const QString& notaE = QStringLiteral("Null"))
{
    exec(QStringLiteral("INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, NotaE) VALUES (%1, %2, %3, %4, %5)")
             .arg(nextId("tblNotasFinal"))
             .arg(mat)
             .arg(alu)
             .arg(notaO, notaE));
}

// The sheet on a student, over the list of every student by key, as the
// student list hands it over.
class SheetOnYear {
public:
    void start()
    {
        year_.start(TempYear::Fill::Empty);
        frame();
    }
    void finish()
    {
        sheet_.reset();
        list_.Close();
        year_.finish();
    }

    frmAlumnosFicha& open(qint32 id, quint8 estado = 1)
    {
        sheet_.reset();
        list_.Close();
        list_.Open(QStringLiteral("SELECT * FROM tblAlumnos ORDER BY Id"), gConexion);
        sheet_ = std::make_unique<frmAlumnosFicha>();
        sheet_->setEstado(estado);
        sheet_->setId(id);
        sheet_->setRcAlumnos(&list_);
        sheet_->setCaption(QStringLiteral("Modificando SOUTO VIDAL IRIA"));
        sheet_->show();
        sheet_->sstDatos->setCurrentWidget(sheet_->tabNotas);
        return *sheet_;
    }

    frmAlumnosFicha& sheet() { return *sheet_; }
    // The year's file, for a process of its own.
    const QString& sheetlessPath() const { return year_.path(); }
    QList<RuntimeError>& errors() { return year_.harness.errors; }

private:
    ScreenYear year_;
    db::Recordset list_;
    std::unique_ptr<frmAlumnosFicha> sheet_;
};

inline bool red(const FlexGrid& g, int row, int col)
{
    return g.CellForeColor(row, col) == QColor(255, 0, 0);
}

} // namespace marks_test

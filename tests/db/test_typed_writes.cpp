// What a statement or a recordset writes to a column of a declared type:
// converted as the engine converts it, or refused with a type mismatch and
// nothing written.
#include "db/Connection.h"
#include "db/Recordset.h"
#include "support/RuntimeErrors.h"
#include "support/TempYear.h"
#include "support/YearQueries.h"
#include "vb/RuntimeError.h"

#include <QtTest>

namespace {

constexpr int kTypeMismatch = RuntimeError::TypeMismatch;

} // namespace

class TestTypedWrites : public QObject {
    Q_OBJECT

    std::unique_ptr<TempYear> year_;
    db::ConnectionPtr cn_;

    // "type:value" of one cell as SQLite holds it.
    QString stored(const QString& table, const QString& column, int id) const
    {
        return yearq::native(year_->path(), QStringLiteral("SELECT typeof(%2) || ':' || IFNULL(%2, '') FROM %1 "
                                                           "WHERE Id = %3")
                                                .arg(table, column)
                                                .arg(id))
            .value(0);
    }

    int execute(const QString& statement) const
    {
        return errorNumber([&] { cn_->Execute(statement); });
    }

    // Every mark as SQLite holds it, type and value.
    QStringList marks() const
    {
        return yearq::native(year_->path(), QStringLiteral("SELECT typeof(Nota) || Nota FROM tblNotas ORDER BY Id"));
    }

    // The statement fails with a type mismatch and the year is as it was.
    void refused(const QString& statement)
    {
        const QStringList before = marks();
        const QMap<QString, int> counts = yearq::tableCounts(year_->path());
        QCOMPARE(execute(statement), kTypeMismatch);
        QCOMPARE(yearq::tableCounts(year_->path()), counts);
        QCOMPARE(marks(), before);
    }

private slots:
    void init()
    {
        year_ = std::make_unique<TempYear>();
        cn_ = year_->connect();
        cn_->ExecuteNative(QStringLiteral(
            "INSERT INTO tblNiveles (Id, Des) VALUES (1, 'ESO');"
            "INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (1, 'A', 1, 0);"
            "INSERT INTO tblAlumnos (Id, Ape, Nom, Grupo, AV) VALUES (1, 'Abal', 'Iria', 1, 0);"
            "INSERT INTO tblTareasTipos (Id, Des, Min, Max, Val) VALUES (1, 'Exame', 0, 10, 0.5);"
            "INSERT INTO tblTareas (Id, Des, IdTip, FecIni, FecFin, Nota, Fin) VALUES (1, 'Proba', 1, '2026-11-02', "
            "'2026-11-02', 1, 0);"
            "INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota) VALUES (1, 1, 1, 6), (2, 1, 2, 7), (3, 1, 3, 8);"
            "INSERT INTO tblHorarioHoras (Id, Ini, Fin, Orden) VALUES (1, '08:30', '09:20', 1);"));
    }

    void cleanup()
    {
        cn_.reset();
        year_.reset();
    }

    // ---- through Connection::Execute

    void aTextThatIsNoNumberIntoASingleColumnIsATypeMismatch()
    {
        refused(QStringLiteral("UPDATE tblNotas SET Nota = 'diez' WHERE Id = 1"));
        refused(QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota) VALUES (4, 1, 4, 'diez')"));
        refused(QStringLiteral("UPDATE tblNotas SET Nota = ''"));
        QCOMPARE(stored("tblNotas", "Nota", 1), QStringLiteral("real:6.0"));
    }

    void aTextThatIsNoDateIntoADateColumnIsATypeMismatch()
    {
        refused(QStringLiteral("UPDATE tblTareas SET FecIni = 'hola' WHERE Id = 1"));
        refused(QStringLiteral("UPDATE tblTareas SET FecIni = '31/02/2026' WHERE Id = 1"));
        refused(QStringLiteral("UPDATE tblHorarioHoras SET Ini = '25:00' WHERE Id = 1"));
        QCOMPARE(stored("tblTareas", "FecIni", 1), QStringLiteral("text:2026-11-02"));
        QCOMPARE(stored("tblHorarioHoras", "Ini", 1), QStringLiteral("text:08:30"));
    }

    void aTextThatIsNoNumberIntoAWholeNumberColumnIsATypeMismatch()
    {
        refused(QStringLiteral("UPDATE tblAlumnos SET AV = 'abc' WHERE Id = 1"));
        refused(QStringLiteral("UPDATE tblTareasTipos SET Max = 'diez' WHERE Id = 1"));
        refused(QStringLiteral("UPDATE tblNotas SET IdAlu = 'x1' WHERE Id = 1"));
        QCOMPARE(stored("tblAlumnos", "AV", 1), QStringLiteral("integer:0"));
        QCOMPARE(stored("tblTareasTipos", "Max", 1), QStringLiteral("integer:10"));
    }

    void aTextThatIsNoNumberIntoADoubleColumnIsATypeMismatch()
    {
        refused(QStringLiteral("UPDATE tblTareasTipos SET Val = 'medio' WHERE Id = 1"));
        QCOMPARE(stored("tblTareasTipos", "Val", 1), QStringLiteral("real:0.5"));
    }

    void aYesNoColumnTakesANumberAsTrueWhenItIsNotZero()
    {
        refused(QStringLiteral("UPDATE tblGrupos SET Tit = 'si' WHERE Id = 1"));
        QCOMPARE(stored("tblGrupos", "Tit", 1), QStringLiteral("integer:0"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblGrupos SET Tit = 5 WHERE Id = 1")), 0);
        QCOMPARE(stored("tblGrupos", "Tit", 1), QStringLiteral("integer:1"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblGrupos SET Tit = 0 WHERE Id = 1")), 0);
        QCOMPARE(stored("tblGrupos", "Tit", 1), QStringLiteral("integer:0"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblGrupos SET Tit = -1 WHERE Id = 1")), 0);
        QCOMPARE(stored("tblGrupos", "Tit", 1), QStringLiteral("integer:1"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblGrupos SET Tit = '0,5' WHERE Id = 1")), 0);
        QCOMPARE(stored("tblGrupos", "Tit", 1), QStringLiteral("integer:1"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblGrupos SET Tit = False WHERE Id = 1")), 0);
        QCOMPARE(stored("tblGrupos", "Tit", 1), QStringLiteral("integer:0"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblGrupos SET Tit = True WHERE Id = 1")), 0);
        QCOMPARE(stored("tblGrupos", "Tit", 1), QStringLiteral("integer:1"));
    }

    // What the screens write in the locale's form is converted, not refused.
    void textsInTheLocalesFormAreConverted()
    {
        QCOMPARE(execute(QStringLiteral("UPDATE tblNotas SET Nota = '7,5' WHERE Id = 1")), 0);
        QCOMPARE(stored("tblNotas", "Nota", 1), QStringLiteral("real:7.5"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblNotas SET Nota = '8.25' WHERE Id = 2")), 0);
        QCOMPARE(stored("tblNotas", "Nota", 2), QStringLiteral("real:8.25"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblTareasTipos SET Val = '0,25', Max = '8' WHERE Id = 1")), 0);
        QCOMPARE(stored("tblTareasTipos", "Val", 1), QStringLiteral("real:0.25"));
        QCOMPARE(stored("tblTareasTipos", "Max", 1), QStringLiteral("integer:8"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblTareas SET FecIni = '25/11/2026', FecFin = #2026/11/27# WHERE "
                                        "Id = 1")),
                 0);
        QCOMPARE(stored("tblTareas", "FecIni", 1), QStringLiteral("text:2026-11-25"));
        QCOMPARE(stored("tblTareas", "FecFin", 1), QStringLiteral("text:2026-11-27"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblHorarioHoras SET Ini = '8:15', Fin = '09:05' WHERE Id = 1")), 0);
        QCOMPARE(stored("tblHorarioHoras", "Ini", 1), QStringLiteral("text:08:15"));
        QCOMPARE(stored("tblHorarioHoras", "Fin", 1), QStringLiteral("text:09:05"));
        QCOMPARE(execute(QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota) VALUES (4, '1', '4', '9,5')")),
                 0);
        QCOMPARE(stored("tblNotas", "Nota", 4) + u' ' + stored("tblNotas", "IdAlu", 4),
                 QStringLiteral("real:9.5 integer:4"));
        QCOMPARE(execute(QStringLiteral("UPDATE tblNotas SET Nota = Null WHERE Id = 4")), 0);
        QCOMPARE(stored("tblNotas", "Nota", 4), QStringLiteral("null:"));
    }

    // One row that cannot be converted fails the whole statement.
    void aStatementWithOneRowOfTheWrongTypeWritesNoRow()
    {
        refused(QStringLiteral("UPDATE tblNotas SET Nota = IIf(Id = 3, 'x', Nota + 1)"));
        refused(QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota) SELECT Id + 10, 1, Id, Des FROM "
                               "tblNiveles"));
        QCOMPARE(yearq::native(year_->path(), QStringLiteral("SELECT SUM(Nota) FROM tblNotas")),
                 QStringList{QStringLiteral("21.0")});
    }

    // ---- through a recordset

    void aRecordsetRefusesValuesOfTheWrongTypeBeforeWriting()
    {
        db::Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM tblNotas WHERE Id = 1"), cn_);
        QCOMPARE(errorNumber([&] { rs.Fields(QStringLiteral("Nota")) = QStringLiteral("diez"); }), kTypeMismatch);
        rs.Close();
        db::Recordset tareas;
        tareas.Open(QStringLiteral("SELECT * FROM tblTareas WHERE Id = 1"), cn_);
        QCOMPARE(errorNumber([&] { tareas.Fields(QStringLiteral("FecIni")) = QStringLiteral("hola"); }), kTypeMismatch);
        QCOMPARE(errorNumber([&] { tareas.Fields(QStringLiteral("Fin")) = QStringLiteral("si"); }), kTypeMismatch);
        tareas.Close();
        db::Recordset alumnos;
        alumnos.Open(QStringLiteral("SELECT * FROM tblAlumnos WHERE Id = 1"), cn_);
        QCOMPARE(errorNumber([&] { alumnos.Fields(QStringLiteral("AV")) = QStringLiteral("abc"); }), kTypeMismatch);
        alumnos.Close();
        QCOMPARE(stored("tblNotas", "Nota", 1), QStringLiteral("real:6.0"));
        QCOMPARE(stored("tblTareas", "FecIni", 1) + u' ' + stored("tblTareas", "Fin", 1),
                 QStringLiteral("text:2026-11-02 integer:0"));
        QCOMPARE(stored("tblAlumnos", "AV", 1), QStringLiteral("integer:0"));
    }

    void aRecordsetConvertsWhatItCan()
    {
        db::Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM tblTareas WHERE Id = 1"), cn_);
        rs.Fields(QStringLiteral("Fin")) = 5;
        rs.Fields(QStringLiteral("FecIni")) = QStringLiteral("25/11/2026");
        rs.Update();
        rs.Close();
        db::Recordset notas;
        notas.Open(QStringLiteral("SELECT * FROM tblNotas WHERE Id = 1"), cn_);
        notas.Fields(QStringLiteral("Nota")) = QStringLiteral("7,5");
        notas.Update();
        notas.Close();
        QCOMPARE(stored("tblTareas", "Fin", 1), QStringLiteral("integer:1"));
        QCOMPARE(stored("tblTareas", "FecIni", 1), QStringLiteral("text:2026-11-25"));
        QCOMPARE(stored("tblNotas", "Nota", 1), QStringLiteral("real:7.5"));
    }
};

QTEST_GUILESS_MAIN(TestTypedWrites)
#include "test_typed_writes.moc"

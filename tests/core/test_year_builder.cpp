// The fixture builder of the suites: keys given in order, rows as the
// engine keeps them, and every kind of row the screens read.
#include "support/SessionYear.h"
#include "support/YearBuilder.h"
#include "support/YearQueries.h"

#include <QtTest>

using yearq::value;

class TestYearBuilder : public QObject {
    Q_OBJECT

    SessionYear session_;

private slots:
    void init() { session_.start(TempYear::Fill::Empty); }
    void cleanup() { session_.finish(); }

    void keysAreGivenInOrderFromOne()
    {
        YearBuilder y;
        const YearBuilder::Frame f = y.frame();
        QCOMPARE(f.level, 1);
        QCOMPARE(f.group, 1);
        QCOMPARE(y.subject(QStringLiteral("Matemáticas")), 2);
        QCOMPARE(y.student(QStringLiteral("O'Neill"), QStringLiteral("Ana"), f.group), 1);
        QCOMPARE(y.row(QStringLiteral("tblMaterias"),
                       {{QStringLiteral("Id"), 9}, {QStringLiteral("Des"), QStringLiteral("Inglés")}}),
                 9);
        QCOMPARE(y.subject(QStringLiteral("Música")), 10);
        QCOMPARE(value(QStringLiteral("SELECT Ape FROM tblAlumnos WHERE Id = 1")).toString(),
                 QStringLiteral("O'Neill"));
        QCOMPARE(value(QStringLiteral("SELECT [tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & [tblGrupos]![Des] "
                                      "FROM (tblGrupos INNER JOIN tblCursos ON tblGrupos.IdCurso = tblCursos.Id) INNER "
                                      "JOIN tblNiveles ON tblCursos.IdNivel = tblNiveles.Id"))
                     .toString(),
                 QStringLiteral("1º ESO A"));
    }

    void marksAreKeptAsSingles()
    {
        YearBuilder y;
        const YearBuilder::Frame f = y.frame();
        const qint32 ana = y.student(QStringLiteral("Abal"), QStringLiteral("Ana"), f.group);
        const qint32 tipo = y.taskType(QStringLiteral("Exame"), 0, 10);
        y.weight(tipo, f.evaluation, f.subject, f.group, 100);
        const qint32 tarea = y.task(QStringLiteral("Tema 1"), tipo, f.evaluation, f.subject, f.group);
        const qint32 nota = y.mark(tarea, ana, 7.3);
        QCOMPARE(value(QStringLiteral("SELECT Nota FROM tblNotas WHERE Id = %1").arg(nota)).toDouble(), double(7.3f));
        y.evaluationMark(ana, f.evaluation, f.subject, 6.5);
        y.recovery(ana, f.evaluation, f.subject, 3, 5, true);
        y.finalMark(ana, f.subject, 6);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM tblNotasEval WHERE Recuperar = True")).toInt(), 1);
        QVERIFY(value(QStringLiteral("SELECT NotaE FROM tblNotasFinal")).isNull());
        const qint32 actividade = y.rubricActivity(tarea, QStringLiteral("1"), QStringLiteral("Plan"), 40, 4);
        y.rubricValue(nota, actividade, 3, 4);
        QCOMPARE(value(QStringLiteral("SELECT Valor & '/' & Max FROM tblNotasRubrica")).toString(),
                 QStringLiteral("3/4"));
    }

    void theRowsOfTheComingScreens()
    {
        YearBuilder y;
        const YearBuilder::Frame f = y.frame();
        const qint32 ana = y.student(QStringLiteral("Abal"), QStringLiteral("Ana"), f.group);
        y.timetableDay(QStringLiteral("Luns"), 1);
        y.timetableHour(QTime(8, 30), QTime(9, 20), 1);
        y.session(1, 1, f.subject, f.group);
        y.diaryNote(QDate(2025, 10, 15), f.group, f.subject, QStringLiteral("Tema 2"));
        y.incident(ana, QDate(2025, 10, 16), QStringLiteral("Retraso"));
        y.appointment(ana, QDateTime(QDate(2025, 10, 17), QTime(17, 0)), QStringLiteral("Familia"));
        const qint32 mat = y.tutoringSubject(QStringLiteral("LC"), QStringLiteral("Lingua castelá"));
        y.tutoringMark(ana, f.evaluation, mat, 7);
        QCOMPARE(value(QStringLiteral("SELECT FORMAT(Dia, 'dd/MM/yyyy') FROM tblDiarioClase")).toString(),
                 QStringLiteral("15/10/2025"));
        QCOMPARE(value(QStringLiteral("SELECT FORMAT(Fec, 'dd/MM/yyyy') FROM tblIncidencias")).toString(),
                 QStringLiteral("16/10/2025"));
        for (const char* table : {"tblHorarioDias", "tblHorarioHoras", "tblHorarioSesiones", "tblTutoriaCitas",
                                  "tblTutoriaMaterias", "tblTutoriaNotas"})
            QCOMPARE(yearq::count(QLatin1String(table)), 1);
    }
};

QTEST_MAIN(TestYearBuilder)
#include "test_year_builder.moc"

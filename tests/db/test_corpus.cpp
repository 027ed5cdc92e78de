// Every statement the screens run, translated and executed against a fresh
// year filled with the sample rows of seed.sql. Entries of corpus.txt:
//   # screen or routine: what it is     (one or more comment lines)
//   # [Impresion] ...                   (runs on the print staging database)
//   STATEMENT                           (one line)
//   => rows N                           (optional: rows it must return)
// A few results are also checked cell by cell against values worked out by hand.
#include "db/Recordset.h"
#include "db/Schema.h"
#include "support/TempYear.h"
#include "vb/RuntimeError.h"

#include <QtTest>

namespace {

struct Entry {
    QString title;
    QString statement;
    int expectedRows = -1;
    bool print = false;
};

QVector<Entry> readCorpus()
{
    QVector<Entry> entries;
    Entry current;
    auto flush = [&] {
        if (!current.statement.isEmpty())
            entries << current;
        current = Entry{};
    };
    const QStringList lines = TempYear::sourceFile(QStringLiteral("tests/db/corpus.txt")).split(u'\n');
    for (const QString& raw : lines) {
        const QString line = QString(raw).remove(u'\r');
        if (line.trimmed().isEmpty()) {
            flush();
        } else if (line.startsWith(QLatin1String("# "))) {
            if (current.title.isEmpty())
                current.title = line.mid(2);
            if (line.contains(QLatin1String("[Impresion]")))
                current.print = true;
        } else if (line.startsWith(QLatin1String("=> rows "))) {
            current.expectedRows = line.mid(8).toInt();
        } else {
            if (!current.statement.isEmpty())
                qFatal("corpus.txt: two statements in one entry: %s", qPrintable(line));
            current.statement = line;
        }
    }
    flush();
    return entries;
}

// Runs one statement; for a query, returns its row count.
int run(const db::ConnectionPtr& cn, const QString& statement)
{
    const db::Translation& t = cn->Translate(statement);
    if (t.kind == db::Translation::Kind::Command) {
        cn->Execute(statement);
        return -1;
    }
    db::Recordset rs;
    rs.Open(statement, cn);
    return rs.RecordCount();
}

QStringList row(db::Recordset& rs)
{
    QStringList cells;
    for (int i = 0; i < rs.FieldCount(); ++i)
        cells << (rs.Value(i).isNull() ? QStringLiteral("Null") : rs.Value(i).toString());
    return cells;
}

const QString kBands = QStringLiteral(
    "SELECT (tblNotas.Nota/[tblTareasTipos]![Max]*10) AS NotaAxustada FROM (tblNotas INNER JOIN tblTareas ON "
    "tblNotas.IdTarea = tblTareas.Id) INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id WHERE "
    "tblNotas.IdTarea=%1");

} // namespace

class TestCorpus : public QObject {
    Q_OBJECT

private slots:
    void corpusIsComplete()
    {
        const QVector<Entry> entries = readCorpus();
        QVERIFY2(entries.size() >= 190, qPrintable(QString::number(entries.size())));
        int checked = 0;
        for (const Entry& e : entries)
            checked += e.expectedRows >= 0;
        QVERIFY(checked >= 150);
    }

    void statementRunsOnAFreshYear_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<int>("expectedRows");
        QTest::addColumn<bool>("print");
        const QVector<Entry> entries = readCorpus();
        for (int i = 0; i < entries.size(); ++i)
            QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(i + 1, 3, 10, QLatin1Char('0')).arg(entries[i].title)))
                << entries[i].statement << entries[i].expectedRows << entries[i].print;
    }

    void statementRunsOnAFreshYear()
    {
        QFETCH(QString, statement);
        QFETCH(int, expectedRows);
        QFETCH(bool, print);
        db::ConnectionPtr cn;
        QTemporaryDir printDir;
        TempYear year(print ? TempYear::Fill::Empty : TempYear::Fill::Seeded);
        if (print) {
            const QString path = printDir.path() + QStringLiteral("/Impresion.mdb");
            db::Schema::CreatePrint(path);
            cn = db::Connection::Open(path);
        } else {
            cn = year.connect();
        }
        try {
            const int rows = run(cn, statement);
            if (expectedRows >= 0)
                QCOMPARE(rows, expectedRows);
        } catch (const RuntimeError& e) {
            QFAIL(qPrintable(QStringLiteral("%1\n%2").arg(e.Description(), cn->Translate(statement).sql)));
        }
    }

    // The screens run their statements one after another on the same year.
    void allStatementsRunInOrderOnOneYear()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        int ran = 0;
        for (const Entry& e : readCorpus()) {
            if (e.print)
                continue;
            try {
                run(cn, e.statement);
                ++ran;
            } catch (const RuntimeError& err) {
                QFAIL(qPrintable(e.title + u'\n' + err.Description()));
            }
        }
        QVERIFY(ran > 0);
        // The last entries empty the year's work, as a new year does.
        QCOMPARE(run(cn, QStringLiteral("SELECT * FROM tblNotas")), 0);
        QCOMPARE(run(cn, QStringLiteral("SELECT * FROM tblAlumnos")), 0);
    }

    // Task 1 (scale 10): 7.5, 4.9995 and 0. Task 2 (scale 5): 9.5, 5.995 and 12 adjusted.
    void bandCountsOfATask_data()
    {
        QTest::addColumn<int>("task");
        QTest::addColumn<QList<int>>("counts");
        QTest::newRow("task 1: 4.9995 counts SF, 0 nowhere") << 1 << QList<int>{0, 1, 0, 1, 0};
        QTest::newRow("task 2: 5.995 and above the maximum nowhere") << 2 << QList<int>{0, 0, 0, 0, 1};
        QTest::newRow("task 3 (scale 100): 4.5 IN, 8.5 NT") << 3 << QList<int>{1, 0, 0, 1, 0};
    }

    void bandCountsOfATask()
    {
        QFETCH(int, task);
        QFETCH(QList<int>, counts);
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        const QString base = kBands.arg(task);
        const QStringList bands = {
            QStringLiteral(" AND (tblNotas.Nota/[tblTareasTipos]![Max]*10)<4.999 AND "
                           "(tblNotas.Nota/[tblTareasTipos]![Max]*10)>0;"),
            QStringLiteral(" AND (tblNotas.Nota/[tblTareasTipos]![Max]*10 BETWEEN 4.999 AND 5.99)"),
            QStringLiteral(" AND (tblNotas.Nota/[tblTareasTipos]![Max]*10 BETWEEN 5.999 AND 6.99)"),
            QStringLiteral(" AND (tblNotas.Nota/[tblTareasTipos]![Max]*10 BETWEEN 6.999 AND 8.99)"),
            QStringLiteral(" AND (tblNotas.Nota/[tblTareasTipos]![Max]*10 BETWEEN 8.999 AND 10)"),
        };
        QList<int> got;
        for (const QString& band : bands)
            got << run(cn, base + band);
        QCOMPARE(got, counts);
    }

    // Student 1, first evaluation, first subject: per task type the mean of the
    // marks of the tasks that count, then scaled to ten and weighted.
    void pointsOfAStudent()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        db::Recordset rs;
        rs.Open(
            QStringLiteral(
                "SELECT tblTareasTipos.Des AS TareaTipo, Avg(tblNotas.Nota) AS Media, tblTareasTipos.Max, "
                "tblTareasTipos.Id AS IdTip, tblTareas.IdEva, tblTareas.IdMat FROM (tblNotas INNER JOIN tblTareas ON "
                "tblNotas.IdTarea = tblTareas.Id) INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id "
                "Where tblTareas.Nota=True AND tblTareas.IdEva =1 And tblTareas.IdMat =1 And tblNotas.IdAlu =1 GROUP "
                "BY tblTareasTipos.Des, tblTareasTipos.Max, tblTareasTipos.Id, tblTareas.IdEva, tblTareas.IdMat "
                "ORDER BY tblTareasTipos.Des;"),
            cn);
        QCOMPARE(rs.RecordCount(), 3);
        QCOMPARE(row(rs), (QStringList{"Deberes", "4.75", "5", "2", "1", "1"}));
        rs.MoveNext();
        QCOMPARE(row(rs), (QStringList{"Examen", "7.5", "10", "1", "1", "1"})); // "Dictado" does not count
        rs.MoveNext();
        QCOMPARE(row(rs), (QStringList{"Proyecto", "85", "100", "3", "1", "1"}));
        // Weights 30, 60 and 10: 9.5 * 0.3 + 7.5 * 0.6 + 8.5 * 0.1 = 8.2
        const QHash<QString, double> weight = {{"Deberes", 30}, {"Examen", 60}, {"Proyecto", 10}};
        double points = 0;
        for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext())
            points +=
                rs.Value("Media").toDouble() / rs.Value("Max").toDouble() * 10 * weight[rs.Value(0).toString()] / 100;
        QCOMPARE(points, 8.2);
    }

    void summaryGridPivot()
    {
        TempYear year(TempYear::Fill::Seeded);
        auto cn = year.connect();
        db::Recordset rs;
        rs.Open(
            QStringLiteral(
                "TRANSFORM First(tblTutoriaNotas.Nota) AS PrimeroDeNota SELECT [tblAlumnos]![Ape] & ', ' & "
                "[tblAlumnos]![Nom] AS Alumno FROM (tblTutoriaNotas INNER JOIN tblAlumnos ON tblTutoriaNotas.IdAlu = "
                "tblAlumnos.Id) INNER JOIN tblTutoriaMaterias ON tblTutoriaNotas.IdMat = tblTutoriaMaterias.Id Where "
                "tblTutoriaNotas.IdEval = 1 GROUP BY [tblAlumnos]![Ape] & ', ' & [tblAlumnos]![Nom] ORDER BY "
                "tblTutoriaMaterias.Cod PIVOT tblTutoriaMaterias.Cod;"),
            cn);
        QStringList names;
        for (int i = 0; i < rs.FieldCount(); ++i)
            names << rs.FieldName(i);
        QCOMPARE(names, (QStringList{"Alumno", "ING", "LEN", "MAT"}));
        QCOMPARE(rs.RecordCount(), 3);
        QCOMPARE(row(rs), (QStringList{"Fernández Núñez, Brais", "Null", "5", "6.25"}));
        rs.MoveNext();
        QCOMPARE(row(rs), (QStringList{"García López, Ana", "9", "7.5", "4.5"}));
        rs.MoveNext();
        QCOMPARE(row(rs), (QStringList{"Pérez Castro, Uxía", "Null", "3", "Null"}));
    }
};

QTEST_GUILESS_MAIN(TestCorpus)
#include "test_corpus.moc"

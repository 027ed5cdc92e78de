// cadernia-sql as power users and support run it.
#include "vb/RuntimeError.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Result {
    int exitCode;
    QString out;
    QString err;
};

Result runTool(const QStringList& args)
{
    QProcess p;
    p.start(QStringLiteral(CADERNIA_BIN_DIR "/cadernia-sql"), args);
    if (!p.waitForFinished(30000))
        qFatal("cadernia-sql did not finish");
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}

} // namespace

class TestCli : public QObject {
    Q_OBJECT

    QTemporaryDir dir_;
    QString year_;

private slots:
    void initTestCase()
    {
        year_ = dir_.path() + QStringLiteral("/Xestion.mdb");
        const Result r = runTool({QStringLiteral("--create"), year_});
        QCOMPARE(r.exitCode, 0);
        QVERIFY(QFile::exists(year_));
    }

    void createRefusesAnExistingYear()
    {
        const Result r = runTool({QStringLiteral("--create"), year_});
        QVERIFY(r.exitCode != 0);
        QVERIFY(r.err.contains(year_));
    }

    void commandsChangeRowsAndQueriesPrintThemTabSeparated()
    {
        QCOMPARE(
            runTool({year_, QStringLiteral("INSERT INTO tblMaterias (Id, Des) VALUES (1, 'Matemáticas')")}).exitCode,
            0);
        QCOMPARE(
            runTool({year_, QStringLiteral("INSERT INTO tblMaterias (Id, Des, Obs) VALUES (2, 'Lingua', 'Galega')")})
                .exitCode,
            0);
        QCOMPARE(
            runTool({year_, QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota) VALUES (1, 1, 1, 7.25)")})
                .exitCode,
            0);
        const Result r = runTool(
            {year_, QStringLiteral("SELECT Id, Des & ' (' & Obs & ')' AS Materia FROM tblMaterias ORDER BY Des")});
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(r.out, QStringLiteral("Id\tMateria\n2\tLingua (Galega)\n1\tMatemáticas ()\n"));
        const Result n = runTool({year_, QStringLiteral("SELECT Nota, Nota/2 AS Media FROM tblNotas")});
        QCOMPARE(n.out, QStringLiteral("Nota\tMedia\n7,25\t3,625\n"));
    }

    void translatePrintsTheSqliteText()
    {
        const Result r =
            runTool({QStringLiteral("--translate"), QStringLiteral("DELETE * FROM tblNotas WHERE Id = 1")});
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(r.out, QStringLiteral("DELETE FROM \"tblNotas\" WHERE \"Id\" = 1\n"));
    }

    void errorsGoToStandardErrorWithAFailingExit()
    {
        const Result r = runTool({year_, QStringLiteral("SELECT Nada FROM tblMaterias")});
        QCOMPARE(r.exitCode, 1);
        QVERIFY(r.out.isEmpty());
        QVERIFY(r.err.startsWith(QStringLiteral("Error ")));
        QVERIFY(r.err.contains(QStringLiteral("Nada")));
        const Result q = runTool({year_, QStringLiteral("UPDATE tblMaterias SET Obs = 'd'Ourense' WHERE Id = 1")});
        QCOMPARE(q.exitCode, 1);
        QCOMPARE(runTool({year_, QStringLiteral("SELECT Obs FROM tblMaterias WHERE Id = 1")}).out,
                 QStringLiteral("Obs\n\n"));
    }

    void aMissingYearIsAnError()
    {
        const Result r = runTool({dir_.path() + QStringLiteral("/nada/Xestion.mdb"), QStringLiteral("SELECT 1 AS x")});
        QCOMPARE(r.exitCode, 1);
        QVERIFY(r.err.contains(QStringLiteral("nada/Xestion.mdb")));
    }

    void wrongArgumentsShowTheUsage()
    {
        const Result r = runTool({});
        QCOMPARE(r.exitCode, 2);
        QVERIFY(r.err.contains(QStringLiteral("Uso:")));
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "test_cli.moc"

// The installer: configuration files, folders, icons, the empty year and the
// print database; refusal over an existing year; school-year names; and the
// demo year read back through the data engine.
#include "setup/Setup.h"
#include "support/YearQueries.h"

#include "db/Connection.h"
#include "db/Recordset.h"
#include "db/Schema.h"
#include "vb/RuntimeError.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray fileBytes(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A fresh folder with room for a base folder and a program folder.
struct Place {
    QTemporaryDir dir;
    QString base() const { return dir.path() + QStringLiteral("/base"); }
    QString program() const { return dir.path() + QStringLiteral("/prog"); }
    setup::SetupOptions options(const QString& year = QStringLiteral("2026-27")) const
    {
        setup::SetupOptions o;
        o.baseFolder = base();
        o.programDir = program();
        o.yearName = year;
        o.today = QDate(2026, 11, 18);
        return o;
    }
};

// Every value of every table, for comparing two years.
QByteArray fingerprint(const db::ConnectionPtr& cn)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString& table : db::Schema::YearTables()) {
        db::Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM %1 ORDER BY Id").arg(table), cn);
        for (; !rs.Eof(); rs.MoveNext()) {
            for (int i = 0; i < rs.FieldCount(); ++i)
                hash.addData(rs.Value(i).toString().toUtf8() + '\x1f');
        }
    }
    return hash.result();
}

} // namespace

class TestSetup : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void freshInstallWritesConfigurationWithCrLf();
    void freshInstallCreatesReportsFolderAndIcons();
    void freshInstallCreatesEmptyYearOfFullSchema();
    void freshInstallPutsTheReportFilesInPlace();
    void freshInstallWritesDefaultColoursInThePrintForm();
    void freshInstallCreatesPrintDatabase();
    void existingPrintDatabaseIsKept();
    void existingYearIsRefusedAndNothingChanges();
    void programRefusesExistingYearOnStandardError();
    void badYearNamesAreRefused();
    void schoolYearName_data();
    void schoolYearName();
    void schoolYearStart();
    void defaultYearIsTheSchoolYearOfToday();

    void demoHasThePromisedFrame();
    void demoTasksPerGroupAndSubject();
    void demoWeightsSumToHundred();
    void demoMarksWithinTheTypeRange();
    void demoMarksBelongToTheTaskGroup();
    void demoNamesCarryAccentsAndEnye();
    void demoHasNoApostrophe();
    void demoRubricsAddUp();
    void demoTimetableAndDiary();
    void demoEvaluationAndFinalMarks();
    void demoTutoringIsForTheTutoredGroup();
    void demoIsDeterministic();
    void demoDatesFollowTheYearName();

private:
    Place demoPlace_;
    setup::SetupResult demo_;
    db::ConnectionPtr cn_;
};

void TestSetup::initTestCase()
{
    setup::SetupOptions o = demoPlace_.options();
    o.demo = true;
    QString error;
    QVERIFY2(setup::setupBase(o, &error, &demo_), qPrintable(error));
    cn_ = db::Connection::Open(demo_.databasePath);
}

void TestSetup::freshInstallWritesConfigurationWithCrLf()
{
    Place p;
    setup::SetupOptions o = p.options();
    o.baseFolder += u'/'; // a trailing slash is not written
    QString error;
    setup::SetupResult r;
    QVERIFY2(setup::setupBase(o, &error, &r), qPrintable(error));
    QCOMPARE(fileBytes(p.program() + QStringLiteral("/ruta.ini")), p.base().toUtf8() + "\r\n");
    QCOMPARE(fileBytes(p.program() + QStringLiteral("/ano.ini")), QByteArray("2026-27\r\n"));
    QCOMPARE(r.basePath, p.base());
    QVERIFY(!QFileInfo::exists(p.base() + QStringLiteral("/ano.ini")));
}

void TestSetup::freshInstallCreatesReportsFolderAndIcons()
{
    Place p;
    QString error;
    QVERIFY2(setup::setupBase(p.options(), &error), qPrintable(error));
    QVERIFY(QFileInfo(p.base() + QStringLiteral("/Informes")).isDir());
    for (const char* name : {"Incidencias.gif", "Alerta.gif"}) {
        const QString path = p.base() + QStringLiteral("/Ico/") + QLatin1String(name);
        QVERIFY2(fileBytes(path).startsWith("GIF89a"), name);
        QImageReader reader(path);
        QCOMPARE(reader.format(), QByteArray("gif"));
        const QImage image = reader.read();
        QVERIFY2(!image.isNull(), qPrintable(reader.errorString()));
        QVERIFY(image.width() >= 16 && image.width() <= 24);
        QCOMPARE(image.height(), image.width());
    }
    QVERIFY(fileBytes(p.base() + QStringLiteral("/Ico/Incidencias.gif")) !=
            fileBytes(p.base() + QStringLiteral("/Ico/Alerta.gif")));
}

void TestSetup::freshInstallPutsTheReportFilesInPlace()
{
    Place p;
    QString error;
    QVERIFY2(setup::setupBase(p.options(), &error), qPrintable(error));
    for (const char* name : {"Alumnos.rpt", "AlumnosGrupo.rpt", "FichaAlumnos.rpt", "NotasFinais.rpt", "NotasTarea.rpt",
                             "NotasAval.rpt", "NotasRec.rpt", "TutoriaCuadro.rpt", "TutoriaBoletin.rpt"})
        QVERIFY2(QFileInfo(p.base() + QStringLiteral("/Informes/") + QLatin1String(name)).size() > 0, name);
    QVERIFY(QFileInfo(p.program() + QStringLiteral("/Impresion/FichaAlumno.rpt")).size() > 0);
}

void TestSetup::freshInstallWritesDefaultColoursInThePrintForm()
{
    Place p;
    QString error;
    QVERIFY2(setup::setupBase(p.options(), &error), qPrintable(error));
    QCOMPARE(fileBytes(p.program() + QStringLiteral("/color.ini")), QByteArray(" 16445670 \r\n"));
    QCOMPARE(fileBytes(p.program() + QStringLiteral("/color2.ini")), QByteArray(" 15790320 \r\n"));
}

void TestSetup::freshInstallCreatesEmptyYearOfFullSchema()
{
    Place p;
    QString error;
    setup::SetupResult r;
    QVERIFY2(setup::setupBase(p.options(), &error, &r), qPrintable(error));
    QCOMPARE(r.databasePath, p.base() + QStringLiteral("/2026-27/Xestion.mdb"));
    const QStringList files = QDir(p.base() + QStringLiteral("/2026-27")).entryList(QDir::Files);
    QCOMPARE(files, QStringList{QStringLiteral("Xestion.mdb")}); // no scratch file or journal left
    auto cn = db::Connection::Open(r.databasePath);
    QVERIFY(db::Schema::YearTables().contains(QStringLiteral("tblTareasRubricaValoracion")));
    for (const QString& table : db::Schema::YearTables())
        QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM ") + table, cn).toInt(), 0);
}

void TestSetup::freshInstallCreatesPrintDatabase()
{
    Place p;
    QString error;
    setup::SetupResult r;
    QVERIFY2(setup::setupBase(p.options(), &error, &r), qPrintable(error));
    QCOMPARE(r.printPath, p.program() + QStringLiteral("/Impresion/Impresion.mdb"));
    QVERIFY(r.printCreated);
    auto cn = db::Connection::Open(r.printPath);
    for (const char* table :
         {"tblFichaAlumno", "tblFichaAval", "tblFichaTareas", "tblFichaTareasDetalle", "tblFichaNF"})
        QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM ") + QLatin1String(table), cn).toInt(), 0);
}

void TestSetup::existingPrintDatabaseIsKept()
{
    Place p;
    const QString print = p.program() + QStringLiteral("/Impresion/Impresion.mdb");
    QVERIFY(QDir().mkpath(p.program() + QStringLiteral("/Impresion")));
    db::Schema::CreatePrint(print);
    db::Connection::Open(print)->Execute(QStringLiteral("INSERT INTO tblFichaAlumno (Id, Nom) VALUES (7, 'Queda')"));
    QString error;
    setup::SetupResult r;
    QVERIFY2(setup::setupBase(p.options(), &error, &r), qPrintable(error));
    QVERIFY(!r.printCreated);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Nom FROM tblFichaAlumno WHERE Id = 7"), db::Connection::Open(print))
                 .toString(),
             QStringLiteral("Queda"));
}

void TestSetup::existingYearIsRefusedAndNothingChanges()
{
    Place p;
    QString error;
    setup::SetupResult r;
    QVERIFY2(setup::setupBase(p.options(), &error, &r), qPrintable(error));
    const QByteArray ruta = fileBytes(r.rutaIni), ano = fileBytes(r.anoIni), year = fileBytes(r.databasePath);
    const QDateTime stamp = QFileInfo(r.databasePath).lastModified();
    QTest::qSleep(20);

    setup::SetupOptions again = p.options();
    again.demo = true;
    error.clear();
    QVERIFY(!setup::setupBase(again, &error));
    QVERIFY2(error.contains(r.databasePath), qPrintable(error));
    QVERIFY2(error.contains(QStringLiteral("ya existe")), qPrintable(error));
    QCOMPARE(fileBytes(r.rutaIni), ruta);
    QCOMPARE(fileBytes(r.anoIni), ano);
    QCOMPARE(fileBytes(r.databasePath), year);
    QCOMPARE(QFileInfo(r.databasePath).lastModified(), stamp);

    // Nor is anything made beside another program folder.
    Place other;
    setup::SetupOptions elsewhere = p.options();
    elsewhere.programDir = other.program();
    QVERIFY(!setup::setupBase(elsewhere, &error));
    QVERIFY(!QFileInfo::exists(other.program()));
}

void TestSetup::programRefusesExistingYearOnStandardError()
{
    Place p;
    const QString program = QStringLiteral(CADERNIA_BIN_DIR "/cadernia-setup");
    const QStringList args{p.base(), QStringLiteral("--year"), QStringLiteral("2030-31"),
                           QStringLiteral("--program-dir"), p.program()};
    QProcess first;
    first.start(program, args);
    QVERIFY(first.waitForFinished(30000));
    QCOMPARE(first.exitCode(), 0);
    QVERIFY(QFileInfo::exists(p.base() + QStringLiteral("/2030-31/Xestion.mdb")));
    const QByteArray ruta = fileBytes(p.program() + QStringLiteral("/ruta.ini"));

    QProcess second;
    second.start(program, args + QStringList{QStringLiteral("--demo")});
    QVERIFY(second.waitForFinished(30000));
    QVERIFY(second.exitCode() != 0);
    const QString err = QString::fromUtf8(second.readAllStandardError());
    QVERIFY2(err.contains(p.base() + QStringLiteral("/2030-31/Xestion.mdb")), qPrintable(err));
    QVERIFY(second.readAllStandardOutput().isEmpty());
    QCOMPARE(fileBytes(p.program() + QStringLiteral("/ruta.ini")), ruta);

    QProcess bad;
    bad.start(program, {QStringLiteral("--demo")});
    QVERIFY(bad.waitForFinished(30000));
    QCOMPARE(bad.exitCode(), 2);
    QVERIFY(QString::fromUtf8(bad.readAllStandardError()).startsWith(QStringLiteral("Uso:")));
}

void TestSetup::badYearNamesAreRefused()
{
    for (const QString& name :
         {QStringLiteral("a/b"), QStringLiteral(".."), QStringLiteral("x:y"), QStringLiteral("  ")}) {
        Place p;
        QString error;
        QVERIFY2(!setup::setupBase(p.options(name), &error), qPrintable(name));
        QVERIFY(!error.isEmpty());
        QVERIFY(!QFileInfo::exists(p.base()));
        QVERIFY(!QFileInfo::exists(p.program()));
    }
    // Blanks and hyphens inside are fine.
    Place p;
    QString error;
    QVERIFY2(setup::setupBase(p.options(QStringLiteral("Curso 2026-27 bis")), &error), qPrintable(error));
    QCOMPARE(fileBytes(p.program() + QStringLiteral("/ano.ini")), QByteArray("Curso 2026-27 bis\r\n"));
}

void TestSetup::schoolYearName_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("name");
    QTest::newRow("november") << QDate(2026, 11, 21) << QStringLiteral("2026-27");
    QTest::newRow("march") << QDate(2026, 3, 1) << QStringLiteral("2025-26");
    QTest::newRow("first of september") << QDate(2026, 9, 1) << QStringLiteral("2026-27");
    QTest::newRow("last of august") << QDate(2026, 8, 31) << QStringLiteral("2025-26");
    QTest::newRow("new year's day") << QDate(2027, 1, 1) << QStringLiteral("2026-27");
    QTest::newRow("century") << QDate(1999, 9, 1) << QStringLiteral("1999-00");
    QTest::newRow("leading zero") << QDate(2009, 12, 31) << QStringLiteral("2009-10");
}

void TestSetup::schoolYearName()
{
    QFETCH(QDate, date);
    QFETCH(QString, name);
    QCOMPARE(setup::schoolYearName(date), name);
}

void TestSetup::schoolYearStart()
{
    QCOMPARE(setup::schoolYearStart(QStringLiteral("2025-26"), QDate(2030, 1, 1)), 2025);
    QCOMPARE(setup::schoolYearStart(QStringLiteral("Curso 2031-2032"), QDate(2030, 1, 1)), 2031);
    QCOMPARE(setup::schoolYearStart(QStringLiteral("Proba"), QDate(2026, 11, 21)), 2026);
    QCOMPARE(setup::schoolYearStart(QStringLiteral("Proba"), QDate(2026, 3, 1)), 2025);
}

void TestSetup::defaultYearIsTheSchoolYearOfToday()
{
    Place p;
    setup::SetupOptions o = p.options(QString());
    o.today = QDate(2026, 3, 1);
    QString error;
    QVERIFY2(setup::setupBase(o, &error), qPrintable(error));
    QVERIFY(QFileInfo::exists(p.base() + QStringLiteral("/2025-26/Xestion.mdb")));
    QCOMPARE(fileBytes(p.program() + QStringLiteral("/ano.ini")), QByteArray("2025-26\r\n"));
}

void TestSetup::demoHasThePromisedFrame()
{
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblNiveles"), cn_).toInt(), 2);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblCursos"), cn_).toInt(), 4);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblGrupos"), cn_).toInt(), 4);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblGrupos WHERE tblGrupos.Tit = Yes"), cn_).toInt(),
             1);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblAlumnos"), cn_).toInt(), 100);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblMaterias"), cn_).toInt(), 6);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblEvaluaciones"), cn_).toInt(), 3);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblTareasTipos"), cn_).toInt(), 4);
    QCOMPARE(demo_.demo.students, 100);
    QCOMPARE(demo_.demo.groups, 4);

    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblAlumnos.Grupo, Count(*) AS N FROM tblAlumnos GROUP BY tblAlumnos.Grupo"), cn_);
    QCOMPARE(rs.RecordCount(), 4);
    for (; !rs.Eof(); rs.MoveNext())
        QCOMPARE(rs.Value(QStringLiteral("N")).toInt(), 25);

    // Evaluations in December, March and June of the school year.
    rs.Open(QStringLiteral("SELECT Fec FROM tblEvaluaciones ORDER BY Id"), cn_);
    QCOMPARE(rs.Value(0).toDate().month(), 12);
    QCOMPARE(rs.Value(0).toDate().year(), 2026);
    rs.MoveNext();
    QCOMPARE(rs.Value(0).toDate().month(), 3);
    QCOMPARE(rs.Value(0).toDate().year(), 2027);
    rs.MoveNext();
    QCOMPARE(rs.Value(0).toDate().month(), 6);

    QCOMPARE(yearq::value(QStringLiteral("SELECT Min(Min) AS A FROM tblTareasTipos"), cn_).toInt(), 0);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Max(Max) AS A FROM tblTareasTipos"), cn_).toInt(), 100);
}

void TestSetup::demoTasksPerGroupAndSubject()
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT IdGru, IdMat, Count(*) AS N, Min(IdEva) AS E1, Max(IdEva) AS E3, Sum(Fin) AS F "
                           "FROM tblTareas GROUP BY IdGru, IdMat"),
            cn_);
    QCOMPARE(rs.RecordCount(), 24);
    for (; !rs.Eof(); rs.MoveNext()) {
        const int n = rs.Value(QStringLiteral("N")).toInt();
        QVERIFY2(n >= 13 && n <= 17, qPrintable(QString::number(n)));
        QCOMPARE(rs.Value(QStringLiteral("E1")).toInt(), 1);
        QCOMPARE(rs.Value(QStringLiteral("E3")).toInt(), 3);
        QVERIFY(rs.Value(QStringLiteral("F")).toInt() > 0);
        QVERIFY(rs.Value(QStringLiteral("F")).toInt() < n);
    }
    const int tasks = yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblTareas"), cn_).toInt();
    const int counting =
        yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblTareas WHERE tblTareas.Nota=Yes"), cn_).toInt();
    QVERIFY(counting > tasks / 2 && counting < tasks);
    // Task dates lie inside their evaluation's months.
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblTareas INNER JOIN tblEvaluaciones ON "
                                         "tblTareas.IdEva = tblEvaluaciones.Id WHERE tblTareas.FecFin > "
                                         "tblEvaluaciones.Fec OR tblTareas.FecIni > tblTareas.FecFin"),
                          cn_)
                 .toInt(),
             0);
    QCOMPARE(
        yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblTareas WHERE FecIni < #2026/09/01#"), cn_).toInt(),
        0);
}

void TestSetup::demoWeightsSumToHundred()
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT IdEval, IdMat, IdGrupo, Sum(Valor) AS S, Count(*) AS N FROM tblTareasTiposValor "
                           "GROUP BY IdEval, IdMat, IdGrupo"),
            cn_);
    QCOMPARE(rs.RecordCount(), 3 * 6 * 4);
    for (; !rs.Eof(); rs.MoveNext()) {
        QCOMPARE(rs.Value(QStringLiteral("S")).toInt(), 100);
        QCOMPARE(rs.Value(QStringLiteral("N")).toInt(), 4);
    }
}

void TestSetup::demoMarksWithinTheTypeRange()
{
    const QString join = QStringLiteral("FROM (tblNotas INNER JOIN tblTareas ON tblNotas.IdTarea = tblTareas.Id) "
                                        "INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id ");
    QCOMPARE(yearq::value(
                 QStringLiteral("SELECT Count(*) AS N ") + join +
                     QStringLiteral("WHERE tblNotas.Nota < tblTareasTipos.Min OR tblNotas.Nota > tblTareasTipos.Max"),
                 cn_)
                 .toInt(),
             0);
    // Nearly every student has a mark in every task, but not all.
    const int marks = yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblNotas"), cn_).toInt();
    const int possible = yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblTareas"), cn_).toInt() * 25;
    QVERIFY2(marks > possible * 9 / 10 && marks < possible,
             qPrintable(QStringLiteral("%1 of %2").arg(marks).arg(possible)));
    QCOMPARE(marks, demo_.demo.marks);
    // Not all alike: the adjusted marks spread over the scale.
    const double mean =
        yearq::value(QStringLiteral("SELECT Avg(tblNotas.Nota / tblTareasTipos.Max * 10) AS A ") + join, cn_)
            .toDouble();
    QVERIFY2(mean > 5.5 && mean < 8.0, qPrintable(QString::number(mean)));
    QVERIFY(yearq::value(QStringLiteral("SELECT Count(*) AS N ") + join +
                             QStringLiteral("WHERE tblNotas.Nota < tblTareasTipos.Max / 2"),
                         cn_)
                .toInt() > marks / 20);
    QVERIFY(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblNotas WHERE Obs Is Not Null"), cn_).toInt() >
            100);
}

void TestSetup::demoMarksBelongToTheTaskGroup()
{
    QCOMPARE(
        yearq::value(QStringLiteral("SELECT Count(*) AS N FROM (tblNotas INNER JOIN tblTareas ON tblNotas.IdTarea = "
                                    "tblTareas.Id) INNER JOIN tblAlumnos ON tblNotas.IdAlu = tblAlumnos.Id WHERE "
                                    "tblAlumnos.Grupo <> tblTareas.IdGru"),
                     cn_)
            .toInt(),
        0);
    QCOMPARE(
        yearq::value(QStringLiteral("SELECT Count(*) AS N FROM (SELECT IdTarea, IdAlu FROM tblNotas GROUP BY IdTarea, "
                                    "IdAlu HAVING Count(*) > 1) AS D"),
                     cn_)
            .toInt(),
        0);
}

void TestSetup::demoNamesCarryAccentsAndEnye()
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT Ape, Nom, FecNac, MailAlu, MailPai, TelNai, Grupo FROM tblAlumnos"), cn_);
    QStringList all;
    int enye = 0, accents = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString ape = rs.Value(QStringLiteral("Ape")).toString(),
                      nom = rs.Value(QStringLiteral("Nom")).toString();
        all << ape + QStringLiteral(", ") + nom;
        QVERIFY2(ape.contains(u' '), qPrintable(ape)); // two surnames
        enye += (ape + nom).contains(QChar(0x00F1)) ? 1 : 0;
        accents += (ape + nom).contains(QRegularExpression(QStringLiteral("[áéíóúÁÉÍÓÚ]"))) ? 1 : 0;
        QVERIFY(rs.Value(QStringLiteral("MailAlu")).toString().endsWith(QStringLiteral("@example.org")));
        const QString father = rs.Value(QStringLiteral("MailPai")).toString();
        QVERIFY(father.isEmpty() || father.endsWith(QStringLiteral("@example.com")));
        QCOMPARE(rs.Value(QStringLiteral("TelNai")).toString().size(), 9);
        QVERIFY(rs.Value(QStringLiteral("FecNac")).toDate().isValid());
    }
    QVERIFY(enye >= 5);
    QVERIFY(accents >= 30);
    for (const char* name : {"Fernández Núñez, Uxía", "Souto Castiñeira, Brais", "Iglesias Ferreño, Iñaki"})
        QVERIFY2(all.contains(QString::fromUtf8(name)), name);
    QCOMPARE(QSet<QString>(all.begin(), all.end()).size(), 100);

    // Born in the right years: 1º ESO in 2026-27 were born in 2014, a repeater in 2013.
    const int born =
        yearq::value(QStringLiteral("SELECT Max(Year(FecNac)) AS Y FROM tblAlumnos WHERE Grupo = 1"), cn_).toInt();
    QCOMPARE(born, 2014);
    QCOMPARE(
        yearq::value(QStringLiteral("SELECT Min(Year(FecNac)) AS Y FROM tblAlumnos WHERE Grupo = 4"), cn_).toInt() >=
            2008,
        true);
}

void TestSetup::demoHasNoApostrophe()
{
    for (const QString& table : db::Schema::YearTables()) {
        db::Recordset rs;
        rs.Open(table, cn_);
        for (; !rs.Eof(); rs.MoveNext()) {
            for (int i = 0; i < rs.FieldCount(); ++i) {
                const QVariant v = rs.Value(i);
                if (v.typeId() == QMetaType::QString)
                    QVERIFY2(!v.toString().contains(u'\''), qPrintable(table + QStringLiteral(": ") + v.toString()));
            }
        }
    }
}

void TestSetup::demoRubricsAddUp()
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT IdTarea, Sum(Por) AS P, Count(*) AS N, Min(Max) AS A, Max(Max) AS B FROM "
                           "tblTareasRubrica GROUP BY IdTarea"),
            cn_);
    QVERIFY(rs.RecordCount() >= 3);
    for (; !rs.Eof(); rs.MoveNext()) {
        QCOMPARE(qRound(rs.Value(QStringLiteral("P")).toDouble()), 100);
        const int n = rs.Value(QStringLiteral("N")).toInt();
        QVERIFY(n == 3 || n == 4);
        QCOMPARE(rs.Value(QStringLiteral("A")).toInt(), rs.Value(QStringLiteral("B")).toInt());
        QVERIFY(rs.Value(QStringLiteral("A")).toInt() == 4 || rs.Value(QStringLiteral("A")).toInt() == 10);
    }
    QCOMPARE(
        yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblNotasRubrica WHERE Valor > Max OR Valor < 0"), cn_)
            .toInt(),
        0);
    // Each rubric mark is the sum of its activities' points.
    rs.Open(
        QStringLiteral("SELECT tblNotas.Id, tblNotas.Nota, Sum(tblNotasRubrica.Valor / tblNotasRubrica.Max * "
                       "tblTareasRubrica.Por / 100 * tblTareasTipos.Max) AS P FROM (((tblNotas INNER JOIN "
                       "tblNotasRubrica ON tblNotas.Id = tblNotasRubrica.IdNota) INNER JOIN tblTareasRubrica ON "
                       "tblNotasRubrica.IdActividad = tblTareasRubrica.Id) INNER JOIN tblTareas ON tblNotas.IdTarea "
                       "= tblTareas.Id) INNER JOIN tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id GROUP BY "
                       "tblNotas.Id, tblNotas.Nota"),
        cn_);
    QVERIFY(rs.RecordCount() > 50);
    for (; !rs.Eof(); rs.MoveNext())
        QVERIFY(qAbs(rs.Value(QStringLiteral("Nota")).toDouble() - rs.Value(QStringLiteral("P")).toDouble()) < 0.01);
}

void TestSetup::demoTimetableAndDiary()
{
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblHorarioDias"), cn_).toInt(), 5);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblHorarioHoras"), cn_).toInt(), 6);
    QCOMPARE(yearq::value(QStringLiteral("SELECT FORMAT(Ini,'HH:mm') AS H FROM tblHorarioHoras WHERE Orden = 1"), cn_)
                 .toString(),
             QStringLiteral("08:30"));
    QCOMPARE(yearq::value(QStringLiteral("SELECT FORMAT(Fin,'HH:mm') AS H FROM tblHorarioHoras WHERE Orden = 6"), cn_)
                 .toString(),
             QStringLiteral("14:10"));
    QCOMPARE(yearq::value(QStringLiteral("SELECT Des FROM tblHorarioDias WHERE Orden = 1"), cn_).toString(),
             QStringLiteral("Luns"));
    QVERIFY(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblHorarioSesiones WHERE IdMat = 0"), cn_).toInt() >=
            1);
    const int lessons =
        yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblHorarioSesiones WHERE IdMat > 0"), cn_).toInt();
    QCOMPARE(lessons, 24);

    // Two weeks of diary around the reference day, Wednesday 18 November 2026.
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblDiarioClase"), cn_).toInt(), 2 * lessons);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Min(Dia) AS D FROM tblDiarioClase"), cn_).toDate(),
             QDate(2026, 11, 9));
    QCOMPARE(yearq::value(QStringLiteral("SELECT Max(Dia) AS D FROM tblDiarioClase"), cn_).toDate(),
             QDate(2026, 11, 20));
    QCOMPARE(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblDiarioClase WHERE Listo < 0 OR Listo > 4"), cn_)
                 .toInt(),
             0);
    QCOMPARE(
        yearq::value(
            QStringLiteral("SELECT Count(*) AS N FROM tblDiarioClase WHERE Dia < #2026/11/18# AND Des Is Null"), cn_)
            .toInt(),
        0);
    QVERIFY(
        yearq::value(
            QStringLiteral("SELECT Count(*) AS N FROM tblDiarioClase WHERE Dia >= #2026/11/18# AND Des Is Null"), cn_)
            .toInt() > 0);
    QVERIFY(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblDiarioClase WHERE Listo = 4"), cn_).toInt() > 10);
}

void TestSetup::demoEvaluationAndFinalMarks()
{
    QVERIFY(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblNotasEval WHERE Recuperar = True"), cn_).toInt() >
            0);
    QVERIFY(
        yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblNotasEval WHERE NotaRec Is Not Null"), cn_).toInt() >
        0);
    QCOMPARE(
        yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblNotasEval WHERE Nota < 0 OR Nota > 10"), cn_).toInt(),
        0);
    const int students =
        yearq::value(QStringLiteral("SELECT Count(*) AS N FROM (SELECT DISTINCT IdAlu FROM tblNotasEval) AS D"), cn_)
            .toInt();
    QVERIFY(students > 0 && students < 100);
    const int finals = yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblNotasFinal"), cn_).toInt();
    const int extraordinary =
        yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblNotasFinal WHERE NotaE Is Not Null"), cn_).toInt();
    QVERIFY(finals > 0);
    QVERIFY(extraordinary > 0 && extraordinary < finals / 4);
}

void TestSetup::demoTutoringIsForTheTutoredGroup()
{
    const QString outside =
        QStringLiteral("SELECT Count(*) AS N FROM (%1 INNER JOIN tblAlumnos ON %1.IdAlu = tblAlumnos.Id) "
                       "INNER JOIN tblGrupos ON tblAlumnos.Grupo = tblGrupos.Id WHERE tblGrupos.Tit = No");
    QVERIFY(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblTutoriaCitas"), cn_).toInt() > 0);
    QCOMPARE(yearq::value(outside.arg(QStringLiteral("tblTutoriaCitas")), cn_).toInt(), 0);
    QVERIFY(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblTutoriaNotas"), cn_).toInt() > 0);
    QCOMPARE(yearq::value(outside.arg(QStringLiteral("tblTutoriaNotas")), cn_).toInt(), 0);
    QCOMPARE(yearq::value(
                 QStringLiteral("SELECT Count(*) AS N FROM tblTutoriaMaterias WHERE Cod = 'MAT' OR Cod = 'EF'"), cn_)
                 .toInt(),
             2);
    QVERIFY(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblIncidencias WHERE Listo = True"), cn_).toInt() >
            0);
    QVERIFY(yearq::value(QStringLiteral("SELECT Count(*) AS N FROM tblIncidencias WHERE Listo = False"), cn_).toInt() >
            0);
}

void TestSetup::demoIsDeterministic()
{
    Place p;
    setup::SetupOptions o = p.options();
    o.demo = true;
    QString error;
    setup::SetupResult r;
    QVERIFY2(setup::setupBase(o, &error, &r), qPrintable(error));
    QCOMPARE(fingerprint(db::Connection::Open(r.databasePath)), fingerprint(cn_));
}

void TestSetup::demoDatesFollowTheYearName()
{
    Place p;
    setup::SetupOptions o = p.options(QStringLiteral("2031-32"));
    o.demo = true; // the reference day lies years before: the demo keeps to its own school year
    QString error;
    setup::SetupResult r;
    QVERIFY2(setup::setupBase(o, &error, &r), qPrintable(error));
    auto cn = db::Connection::Open(r.databasePath);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Min(Fec) AS D FROM tblEvaluaciones"), cn).toDate().year(), 2031);
    QCOMPARE(yearq::value(QStringLiteral("SELECT Max(Fec) AS D FROM tblEvaluaciones"), cn).toDate().year(), 2032);
    QVERIFY(yearq::value(QStringLiteral("SELECT Min(Dia) AS D FROM tblDiarioClase"), cn).toDate() >= QDate(2031, 9, 1));
    QVERIFY(yearq::value(QStringLiteral("SELECT Min(FecIni) AS D FROM tblTareas"), cn).toDate() >= QDate(2031, 9, 1));
}

QTEST_MAIN(TestSetup)
#include "test_setup.moc"

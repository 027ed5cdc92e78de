// A writer killed with SIGKILL at a random moment, again and again on the
// same year: after each kill the year must open, pass SQLite's integrity
// check and hold every mark whose statement had returned to the writer, and
// no statement may be found half done. Backups taken while such a writer
// runs must all be taken.
//
// CADERNIA_RELIABILITY_TRIALS sets the kills per slot (default 20);
// CADERNIA_RELIABILITY_SEED repeats a run (the seed is printed).
#include "db/Connection.h"
#include "db/Schema.h"
#include "utilities/DatabaseCopy.h"
#include "vb/RuntimeError.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <sqlite3.h>

namespace {

int trialsPerSlot()
{
    bool ok = false;
    const int n = qEnvironmentVariableIntValue("CADERNIA_RELIABILITY_TRIALS", &ok);
    return ok && n > 0 ? n : 20;
}

quint32 seed()
{
    bool ok = false;
    const quint32 s = quint32(qEnvironmentVariableIntValue("CADERNIA_RELIABILITY_SEED", &ok));
    return ok ? s : QRandomGenerator::global()->generate();
}

// What the writer acknowledged before it died: whole lines only.
struct Acknowledged {
    QList<qint64> marks;
    qint64 generation = -1; // the last generation acknowledged; -1: none
};

Acknowledged parse(const QByteArray& out)
{
    Acknowledged a;
    const qsizetype end = out.lastIndexOf('\n');
    if (end < 0)
        return a;
    for (const QByteArray& line : out.left(end).split('\n')) {
        const qint64 n = line.mid(2).toLongLong();
        if (line.startsWith("M "))
            a.marks.append(n);
        else if (line.startsWith("G "))
            a.generation = n;
    }
    return a;
}

// The year as SQLite itself opens it, apart from the engine; the first read
// rolls back a journal left by the killed writer.
class PlainYear {
public:
    explicit PlainYear(const QString& path)
    {
        if (sqlite3_open_v2(path.toUtf8().constData(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
            qFatal("%s: %s", qPrintable(path), sqlite3_errmsg(db_));
    }
    ~PlainYear() { sqlite3_close_v2(db_); }
    PlainYear(const PlainYear&) = delete;
    PlainYear& operator=(const PlainYear&) = delete;
    operator sqlite3*() const { return db_; }

private:
    sqlite3* db_ = nullptr;
};

// One column of a plain SQLite query, as text.
QStringList column(sqlite3* db, const char* sql)
{
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr) != SQLITE_OK)
        qFatal("%s: %s", sql, sqlite3_errmsg(db));
    QStringList values;
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW)
        values.append(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0))));
    sqlite3_finalize(stmt);
    if (rc != SQLITE_DONE)
        qFatal("%s: %s", sql, sqlite3_errmsg(db));
    return values;
}

} // namespace

class TestKilledWriter : public QObject {
    Q_OBJECT

    QRandomGenerator random_;

    // Starts the writer on the year, kills it after 10 to 300 ms, and
    // returns what it acknowledged. Fails the test if the writer stopped
    // on its own (an error) instead of being killed.
    Acknowledged killWriterAtRandom(const QString& year, const char* mode, int trial)
    {
        const int delay = random_.bounded(10, 301);
        QProcess writer;
        writer.start(QCoreApplication::applicationDirPath() + QStringLiteral("/cadernia-reliability-writer"),
                     {year, QString::fromLatin1(mode)});
        if (!writer.waitForStarted(10000))
            qFatal("the writer did not start: %s", qPrintable(writer.errorString()));
        QThread::msleep(delay);
        writer.kill(); // SIGKILL
        writer.waitForFinished(10000);
        const QByteArray err = writer.readAllStandardError();
        if (writer.exitStatus() != QProcess::CrashExit || !err.isEmpty())
            qFatal("trial %d (%d ms): the writer ended by itself, code %d: %s", trial, delay, writer.exitCode(),
                   err.constData());
        return parse(writer.readAllStandardOutput());
    }

private slots:
    void initTestCase()
    {
        const quint32 s = seed();
        random_.seed(s);
        qInfo("%d trials per slot, CADERNIA_RELIABILITY_SEED=%u", trialsPerSlot(), s);
    }

    void killedWriterLosesNoAcknowledgedMark()
    {
        QTemporaryDir dir;
        const QString year = dir.path() + QStringLiteral("/Xestion.mdb");
        db::Schema::CreateYear(year);
        QSet<qint64> acknowledged;
        for (int trial = 1; trial <= trialsPerSlot(); ++trial) {
            for (qint64 key : killWriterAtRandom(year, "marks", trial).marks)
                acknowledged.insert(key);
            const PlainYear db(year);
            QCOMPARE(column(db, "PRAGMA integrity_check"), QStringList{QStringLiteral("ok")});
            QSet<qint64> stored;
            for (const QString& id : column(db, "SELECT Id FROM tblNotas"))
                stored.insert(id.toLongLong());
            for (qint64 key : std::as_const(acknowledged))
                QVERIFY2(stored.contains(key),
                         qPrintable(QStringLiteral("trial %1: mark %2 acknowledged, not stored").arg(trial).arg(key)));
            // And the program opens it.
            db::Connection::Open(year)->Close();
        }
        qInfo("%lld marks acknowledged over %d kills", qint64(acknowledged.size()), trialsPerSlot());
        QVERIFY(!acknowledged.isEmpty());
    }

    // Every eighth statement moves all the marks to the next generation: a
    // statement cut in half would leave marks of two generations, and a
    // lost one a generation behind the last acknowledged.
    void killedWriterLeavesNoStatementHalfDone()
    {
        QTemporaryDir dir;
        const QString year = dir.path() + QStringLiteral("/Xestion.mdb");
        db::Schema::CreateYear(year);
        qint64 acknowledged = -1;
        for (int trial = 1; trial <= trialsPerSlot(); ++trial) {
            acknowledged = std::max(acknowledged, killWriterAtRandom(year, "generations", trial).generation);
            const PlainYear db(year);
            QCOMPARE(column(db, "PRAGMA integrity_check"), QStringList{QStringLiteral("ok")});
            const QStringList generations = column(db, "SELECT DISTINCT IdAlu FROM tblNotas");
            QVERIFY2(
                generations.size() <= 1,
                qPrintable(QStringLiteral("trial %1: marks of generations %2").arg(trial).arg(generations.join(u' '))));
            if (acknowledged >= 0) {
                QCOMPARE(generations.size(), 1);
                QVERIFY2(generations[0].toLongLong() >= acknowledged,
                         qPrintable(QStringLiteral("trial %1: generation %2 acknowledged, %3 stored")
                                        .arg(trial)
                                        .arg(acknowledged)
                                        .arg(generations[0])));
            }
            db::Connection::Open(year)->Close();
        }
        qInfo("%lld generations acknowledged over %d kills", acknowledged, trialsPerSlot());
    }

    // Backups of a year that another program writes in a tight loop (a
    // mark a statement, several hundred a second): every backup waits its
    // turn and is taken, whole and of one moment.
    void backupsUnderABusyWriterAreAllTaken()
    {
        QTemporaryDir dir;
        const QString year = dir.path() + QStringLiteral("/Xestion.mdb");
        db::Schema::CreateYear(year);
        QProcess writer;
        writer.start(QCoreApplication::applicationDirPath() + QStringLiteral("/cadernia-reliability-writer"),
                     {year, QStringLiteral("marks")});
        QVERIFY(writer.waitForStarted(10000));
        QVERIFY(writer.waitForReadyRead(10000));
        const QString copy = dir.path() + QStringLiteral("/Copia.mdb");
        int taken = 0, refused = 0;
        qint64 previous = 0;
        QStringList failures;
        for (int trial = 1; trial <= trialsPerSlot(); ++trial) {
            try {
                utilities::copyFile(year, copy);
                ++taken;
            } catch (const RuntimeError& e) {
                ++refused;
                failures << e.Description();
                continue;
            }
            const PlainYear db(copy);
            QCOMPARE(column(db, "PRAGMA integrity_check"), QStringList{QStringLiteral("ok")});
            const qint64 marks = column(db, "SELECT COUNT(*) FROM tblNotas").value(0).toLongLong();
            QVERIFY(marks >= previous);
            previous = marks;
        }
        writer.kill();
        writer.waitForFinished(10000);
        const QByteArray err = writer.readAllStandardError();
        const qint64 acknowledged = parse(writer.readAllStandardOutput()).marks.size();
        qInfo("%d backups taken, %d refused, under a writer that wrote %lld marks", taken, refused, acknowledged);
        QVERIFY2(refused == 0, qPrintable(failures.join(u'\n')));
        QVERIFY2(err.isEmpty(), err.constData()); // nor did the writer give up
        QVERIFY(previous > 0);
    }
};

QTEST_GUILESS_MAIN(TestKilledWriter)

#include "test_killed_writer.moc"

// A backup or a restore killed with SIGKILL at a random moment: the
// destination is always the old file or the whole new one, and what the
// killed copy left beside it is gone once the next copy has run (or, for a
// restore, once the year opens).
//
// CADERNIA_RELIABILITY_TRIALS sets the kills per slot (default 20).
#include "core/Modulo.h"
#include "db/BoundStatement.h"
#include "db/Connection.h"
#include "support/Files.h"
#include "support/TempYear.h"
#include "utilities/DatabaseCopy.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

int trials()
{
    bool ok = false;
    const int n = qEnvironmentVariableIntValue("CADERNIA_RELIABILITY_TRIALS", &ok);
    return ok && n > 0 ? n : 20;
}

using files::bytesOf;
using files::integrity;

int marks(const QString& path)
{
    const db::ConnectionPtr cn = db::Connection::Open(path);
    return db::BoundStatement(*cn, QStringLiteral("SELECT COUNT(*) FROM tblNotas")).rows().value(0).value(0).toInt();
}

QStringList temporaries(const QString& folder)
{
    return QDir(folder).entryList({QStringLiteral("*.tmp"), QStringLiteral("*.tmp-journal")}, QDir::Files);
}

void writeLine(const QString& path, const QString& line)
{
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(line.toUtf8() + "\r\n");
}

// A year whose marks table is large enough for a copy to take a while.
void grow(const QString& path, int rows)
{
    const db::ConnectionPtr cn = db::Connection::Open(path);
    cn->ExecuteNative(QStringLiteral("BEGIN"));
    db::BoundStatement insert(*cn, QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) "
                                                  "VALUES (?, 1, 1, 5, ?)"));
    for (int i = 0; i < rows; ++i)
        insert.execute({1000 + i, QString(120, QChar(u'a' + i % 26))});
    cn->ExecuteNative(QStringLiteral("COMMIT"));
}

// Starts the child and kills it after `ms`; true when it was still copying.
bool killDuring(const QStringList& args, int ms)
{
    QProcess child;
    child.start(QStringLiteral(CADERNIA_BIN_DIR "/cadernia-copy-child"), args);
    if (!child.waitForStarted(10000))
        return false;
    child.waitForFinished(ms);
    const bool running = child.state() == QProcess::Running;
    child.kill();
    child.waitForFinished(10000);
    return running;
}

} // namespace

class TestKilledCopy : public QObject {
    Q_OBJECT

private slots:
    void aKilledBackupLeavesTheOldCopyOrTheWholeNewOne()
    {
        TempYear year(TempYear::Fill::Seeded);
        grow(year.path(), 3000);
        const int wanted = marks(year.path());
        QTemporaryDir drive;
        const QString destination = drive.path() + QStringLiteral("/Xestion.mdb");
        TempYear older(TempYear::Fill::Seeded);
        QVERIFY(QFile::copy(older.path(), destination));
        QRandomGenerator random(quint32(QDateTime::currentMSecsSinceEpoch()));
        int killedMidway = 0;
        for (int t = 0; t < trials(); ++t) {
            const QByteArray before = bytesOf(destination);
            killedMidway += killDuring({QStringLiteral("backup"), year.path(), destination}, random.bounded(20, 700));
            const QByteArray after = bytesOf(destination);
            if (after != before) {
                QCOMPARE(integrity(destination), QStringLiteral("ok"));
                QCOMPARE(marks(destination), wanted);
            }
            // The next copy clears what the killed one left.
            utilities::copyDatabaseFile(older.path(), destination);
            QCOMPARE(temporaries(drive.path()), QStringList());
        }
        qInfo("%d of %d kills landed inside a copy", killedMidway, trials());
        QVERIFY(killedMidway > 0);
    }

    void aKilledRestoreLeavesTheOldYearOrTheWholeBackup()
    {
        TempYear backup(TempYear::Fill::Seeded);
        grow(backup.path(), 3000);
        const int wanted = marks(backup.path());
        QTemporaryDir base;
        const QString year = base.path() + QStringLiteral("/2025-26");
        QVERIFY(QDir().mkpath(year));
        TempYear older(TempYear::Fill::Seeded);
        const int old = marks(older.path());
        // The program folder is the base folder here: ruta.ini and ano.ini name the year.
        SetRutaPrograma(base.path());
        writeLine(base.path() + QStringLiteral("/ruta.ini"), base.path());
        writeLine(base.path() + QStringLiteral("/ano.ini"), QStringLiteral("2025-26"));
        QRandomGenerator random(quint32(QDateTime::currentMSecsSinceEpoch()));
        int killedMidway = 0;
        for (int t = 0; t < trials(); ++t) {
            QFile::remove(year + QStringLiteral("/Xestion.mdb"));
            QVERIFY(QFile::copy(older.path(), year + QStringLiteral("/Xestion.mdb")));
            killedMidway += killDuring({QStringLiteral("restore"), backup.folder(), year}, random.bounded(20, 700));
            // The year is the old one or the whole backup, and opening it
            // clears what the killed copy left in its folder.
            AbrirConexion();
            gConexion.reset();
            const QString file = year + QStringLiteral("/Xestion.mdb");
            QCOMPARE(integrity(file), QStringLiteral("ok"));
            const int n = marks(file);
            QVERIFY2(n == old || n == wanted, qPrintable(QString::number(n)));
            QCOMPARE(temporaries(year), QStringList());
        }
        qInfo("%d of %d kills landed inside a copy", killedMidway, trials());
        QVERIFY(killedMidway > 0);
    }
};

QTEST_GUILESS_MAIN(TestKilledCopy)
#include "test_killed_copy.moc"

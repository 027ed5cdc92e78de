// A full disk or an I/O error at any write or sync of a mark write, a
// backup, a compaction and the copy of a year into a new one: each either
// completes, or fails as a run-time error leaving every file as it was.
// Every write and sync of each operation is failed in turn (FaultVfs).
#include "FaultVfs.h"
#include "db/BoundStatement.h"
#include "db/Connection.h"
#include "support/Files.h"
#include "support/TempYear.h"
#include "utilities/DatabaseCopy.h"
#include "vb/RuntimeError.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

namespace {

// Every row of every table, as text: what a file holds, whatever its pages.
QString contents(const QString& path)
{
    const db::ConnectionPtr cn = db::Connection::Open(path);
    QString text;
    for (const QVariantList& t :
         db::BoundStatement(*cn, QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"))
             .rows()) {
        const QString table = t.value(0).toString();
        text += table + u'\n';
        for (const QVariantList& row :
             db::BoundStatement(*cn, QStringLiteral("SELECT * FROM \"%1\" ORDER BY rowid").arg(table)).rows()) {
            for (const QVariant& v : row)
                text += v.toString() + u'|';
            text += u'\n';
        }
    }
    return text;
}

using files::bytesOf;
using files::integrity;

// Names in a folder that a finished operation must not leave behind.
QStringList leftovers(const QString& folder)
{
    return QDir(folder).entryList({QStringLiteral("*.tmp"), QStringLiteral("*-journal")}, QDir::Files);
}

const faultvfs::Fault kFaults[] = {faultvfs::Fault::DiskFull, faultvfs::Fault::IoError};

} // namespace

class TestFaultInjection : public QObject {
    Q_OBJECT

    // How many writes and syncs `operation` makes on a fresh set-up, so that
    // each of them can be failed in turn.
    static int countOperations(const std::function<void()>& setUp, const std::function<void()>& operation)
    {
        setUp();
        faultvfs::disarm();
        operation();
        return faultvfs::operations();
    }

    // Runs `operation` with its kth write or sync failing; whether it failed
    // (as a run-time error). faultvfs::fired() tells whether the fault came.
    static bool failsAt(int k, faultvfs::Fault fault, const std::function<void()>& operation)
    {
        faultvfs::arm(k, fault);
        bool failed = false;
        try {
            operation();
        } catch (const RuntimeError&) {
            failed = true;
        }
        faultvfs::disarm();
        return failed;
    }

private slots:
    void initTestCase() { faultvfs::install(); }
    void cleanup() { faultvfs::disarm(); }

    void aFailedMarkWriteLeavesTheYearAsItWas()
    {
        const QString insert = QStringLiteral("INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (900, 1, 3, "
                                              "6.5, 'ok')");
        std::unique_ptr<TempYear> year;
        const auto setUp = [&] { year = std::make_unique<TempYear>(TempYear::Fill::Seeded); };
        const auto write = [&] { db::Connection::Open(year->path())->Execute(insert); };
        const int n = countOperations(setUp, write);
        QVERIFY(n > 0);
        qInfo("%d writes and syncs, each failed in turn", n);
        int failures = 0;
        for (const faultvfs::Fault fault : kFaults) {
            for (int k = 1; k <= n; ++k) {
                setUp();
                const QString before = contents(year->path());
                const bool failed = failsAt(k, fault, write);
                QVERIFY2(faultvfs::fired(), qPrintable(QStringLiteral("write or sync %1 was never reached").arg(k)));
                QCOMPARE(integrity(year->path()), QStringLiteral("ok"));
                QCOMPARE(leftovers(year->folder()), QStringList());
                const QString after = contents(year->path());
                if (failed) {
                    ++failures;
                    QCOMPARE(after, before);
                } else {
                    QVERIFY(after.contains(QStringLiteral("900|1|3|6.5|ok|")));
                }
            }
        }
        QVERIFY(failures > 0);
    }

    void aFailedBackupLeavesTheOldCopyAndTheYearAsTheyWere_data()
    {
        QTest::addColumn<bool>("compact");
        QTest::newRow("backup") << false;
        QTest::newRow("compaction") << true;
    }
    void aFailedBackupLeavesTheOldCopyAndTheYearAsTheyWere()
    {
        QFETCH(bool, compact);
        TempYear year(TempYear::Fill::Seeded);
        QTemporaryDir drive;
        const QString destination = drive.path() + QStringLiteral("/Xestion.mdb");
        std::unique_ptr<TempYear> older;
        const QByteArray yearBytes = bytesOf(year.path());
        const auto setUp = [&] {
            // The destination holds an older, smaller year.
            older = std::make_unique<TempYear>(TempYear::Fill::Empty);
            QFile::remove(destination);
            QVERIFY(QFile::copy(older->path(), destination));
        };
        const auto copy = [&] {
            if (compact)
                utilities::compactDatabaseFile(year.path(), destination);
            else
                utilities::copyDatabaseFile(year.path(), destination);
        };
        const int n = countOperations(setUp, copy);
        QVERIFY(n > 0);
        qInfo("%d writes and syncs, each failed in turn", n);
        const QByteArray oldBytes = bytesOf(older->path());
        const QString wanted = contents(year.path());
        int failures = 0;
        for (const faultvfs::Fault fault : kFaults) {
            for (int k = 1; k <= n; ++k) {
                setUp();
                const bool failed = failsAt(k, fault, copy);
                QVERIFY(faultvfs::fired());
                QCOMPARE(bytesOf(year.path()), yearBytes);
                if (failed) {
                    ++failures;
                    QCOMPARE(bytesOf(destination), oldBytes);
                } else {
                    QCOMPARE(integrity(destination), QStringLiteral("ok"));
                    QCOMPARE(contents(destination), wanted);
                }
                // Whatever a failed copy left is gone with the next one.
                copy();
                QCOMPARE(leftovers(drive.path()), QStringList());
                QCOMPARE(contents(destination), wanted);
            }
        }
        QVERIFY(failures > 0);
    }

    void aFailedCopyOfAYearIntoANewOneLeavesTheYearAsItWas()
    {
        TempYear year(TempYear::Fill::Seeded);
        QTemporaryDir base;
        const QString next = base.path() + QStringLiteral("/2025-26");
        const QByteArray yearBytes = bytesOf(year.path());
        const QString wanted = contents(year.path());
        const auto setUp = [&] { QDir(next).removeRecursively(); };
        const auto copy = [&] { utilities::copyFolder(year.folder(), next); };
        const int n = countOperations(setUp, copy);
        QVERIFY(n > 0);
        qInfo("%d writes and syncs, each failed in turn", n);
        for (const faultvfs::Fault fault : kFaults) {
            for (int k = 1; k <= n; ++k) {
                setUp();
                const bool failed = failsAt(k, fault, copy);
                QVERIFY(faultvfs::fired());
                QCOMPARE(bytesOf(year.path()), yearBytes);
                const QString made = next + QStringLiteral("/Xestion.mdb");
                if (failed)
                    QVERIFY(!QFile::exists(made) || contents(made) == wanted);
                else
                    QCOMPARE(contents(made), wanted);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestFaultInjection)
#include "test_fault_injection.moc"

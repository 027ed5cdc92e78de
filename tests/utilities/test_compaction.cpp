// Compaction of the year and the copies it relies on: the scratch file under
// the program folder, the compacted file put in place whole, the failure that
// ends the program, copies that never leave a partial file behind, and the
// temporaries of killed copies cleared away.
#include "support/Files.h"
#include "support/OpenInstall.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "utilities/Compactar.h"
#include "utilities/DatabaseCopy.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>
#include <sqlite3.h>

namespace {

int freePages(const QString& path)
{
    return yearq::native(path, QStringLiteral("PRAGMA freelist_count")).value(0).toInt();
}

using files::filesIn;

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

// What a copy killed half way leaves beside its destination `name`, and
// files of other names that only look alike.
QStringList staleBeside(const QString& name)
{
    return {name + QStringLiteral(".0badf00d.tmp"), name + QStringLiteral(".0badf00d.tmp-journal"),
            name + QStringLiteral(".1234abcd.tmp"), name + QStringLiteral(".1234abcd.tmp.00ff00ff.tmp"),
            name + QStringLiteral(".20250305-103015.antes.deadbeef.tmp")};
}

QStringList unrelatedTo(const QString& name)
{
    return {
        name + QStringLiteral(".bak"),           name + QStringLiteral(".20250305-103015.antes"),
        name + QStringLiteral(".zzzzzzzz.tmp"),  QStringLiteral("notas.tmp"),
        QStringLiteral("Otro.mdb.0badf00d.tmp"), QStringLiteral("Foto.jpg"),
    };
}

} // namespace

class TestCompaction : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenInstall> install_;
    ScreenHarness harness_;

    QString scratch() const { return install_->program() + QStringLiteral("/2025-26/XestionC.mdb"); }

    // Rows written and deleted again, which leave free pages behind.
    void leaveFreePages()
    {
        gConexion->ExecuteNative(QStringLiteral(
            "WITH RECURSIVE n(i) AS (SELECT 100 UNION ALL SELECT i + 1 FROM n WHERE i < 1100) "
            "INSERT INTO tblIncidencias (Id, IdAlu, Asunto, Hechos) SELECT i, 1, 'x', printf('%.500c', 'x') FROM n"));
        gConexion->Execute(QStringLiteral("DELETE * FROM tblIncidencias WHERE Id >= 100"));
    }

private slots:
    void init()
    {
        install_ = std::make_unique<OpenInstall>();
        harness_.start();
    }

    void cleanup()
    {
        harness_.finish();
        install_.reset();
    }

    void compactionGoesThroughTheScratchFileAndReopens()
    {
        leaveFreePages();
        QVERIFY(freePages(install_->database()) > 50);
        const QMap<QString, int> before = yearq::tableCounts(install_->database());
        const qint64 sizeBefore = QFileInfo(install_->database()).size();
        const db::ConnectionPtr old = gConexion;
        ui::guardRuntime([] { Compactar(); });
        QVERIFY(harness_.errors.isEmpty());
        QVERIFY(!old->IsOpen());
        QVERIFY(gConexion->IsOpen());
        QCOMPARE(gConexion->Path(), install_->database());
        QCOMPARE(freePages(install_->database()), 0);
        QVERIFY(QFileInfo(install_->database()).size() < sizeBefore);
        QCOMPARE(yearq::tableCounts(install_->database()), before);
        QCOMPARE(yearq::integrity(install_->database()), QStringLiteral("ok"));
        // The scratch copy stays under the program folder.
        QVERIFY(QFileInfo::exists(scratch()));
        QCOMPARE(yearq::tableCounts(scratch()), before);
        QCOMPARE(QDir(install_->yearFolder()).entryList(QDir::Files), (QStringList{"Xestion.mdb"}));
    }

    void anOldScratchFileIsReplaced()
    {
        QDir().mkpath(QFileInfo(scratch()).absolutePath());
        TempInstall::write(scratch(), "restos de otra vez");
        ui::guardRuntime([] { Compactar(); });
        QVERIFY(harness_.errors.isEmpty());
        QCOMPARE(yearq::integrity(scratch()), QStringLiteral("ok"));
        QCOMPARE(yearq::count(QStringLiteral("tblAlumnos")), 8);
    }

    void aFailedCompactionEndsTheProgramAndLeavesTheYear()
    {
        // A file where the scratch folder should be: nothing can be written there.
        TempInstall::write(install_->program() + QStringLiteral("/2025-26"), "estorbo");
        const QByteArray before = TempInstall::read(install_->database());
        ui::guardRuntime([] { Compactar(); });
        QCOMPARE(harness_.errors.size(), 1);
        // The box's title stands where its buttons go, and cannot convert.
        QCOMPARE(harness_.errors.first().Number(), int(RuntimeError::TypeMismatch));
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(TempInstall::read(install_->database()), before);
    }

    // ---- the copies

    void aFailedCopyLeavesTheOldFileAndNoPartialOne()
    {
        const QString folder = install_->root() + QStringLiteral("/destino");
        QDir().mkpath(folder);
        const QString target = folder + QStringLiteral("/Xestion.mdb");
        QVERIFY(QFile::copy(install_->database(), target));
        const QByteArray old = TempInstall::read(target);
        // A source that says it is a database and is not one.
        const QString broken = install_->root() + QStringLiteral("/roto.mdb");
        TempInstall::write(broken, QByteArray("SQLite format 3", 16) + QByteArray(4000, '\x7f'));
        bool failed = false;
        try {
            utilities::copyDatabaseFile(broken, target);
        } catch (const RuntimeError&) {
            failed = true;
        }
        QVERIFY(failed);
        QCOMPARE(TempInstall::read(target), old);
        QCOMPARE(QDir(folder).entryList(QDir::Files), (QStringList{"Xestion.mdb"}));
    }

    void aFolderCopyLeavesJournalsAsideAndCopiesTheRest()
    {
        const QString from = install_->root() + QStringLiteral("/origen");
        const QString to = install_->root() + QStringLiteral("/copia");
        QDir().mkpath(from + QStringLiteral("/sub"));
        QVERIFY(QFile::copy(install_->database(), from + QStringLiteral("/Xestion.mdb")));
        TempInstall::write(from + QStringLiteral("/Xestion.mdb-journal"), "viejo");
        TempInstall::write(from + QStringLiteral("/sub/texto.txt"), "hola\r\n");
        utilities::copyFolder(from, to);
        QCOMPARE(TempInstall::tree(to), (QStringList{"Xestion.mdb", "sub", "sub/texto.txt"}));
        QCOMPARE(TempInstall::read(to + QStringLiteral("/sub/texto.txt")), QByteArray("hola\r\n"));
        QCOMPARE(yearq::tableCounts(to + QStringLiteral("/Xestion.mdb")), yearq::tableCounts(install_->database()));
    }

    void aFolderLeftByACrashIsCopiedAsItStoodBeforeIt()
    {
        // The files of a year caught in the middle of a large write: the
        // database with some pages written, and the journal that undoes them.
        leaveFreePages();
        gConexion->Close();
        const QString crashed = install_->root() + QStringLiteral("/caido");
        QDir().mkpath(crashed);
        sqlite3* db = nullptr;
        QCOMPARE(sqlite3_open(install_->database().toUtf8().constData(), &db), SQLITE_OK);
        QCOMPARE(sqlite3_exec(db,
                              "PRAGMA cache_size = 1; BEGIN; UPDATE tblAlumnos SET Nom = 'X'; "
                              "INSERT INTO tblIncidencias (Id, IdAlu, Asunto, Hechos) "
                              "WITH RECURSIVE n(i) AS (SELECT 100 UNION ALL SELECT i + 1 FROM n WHERE i < 900) "
                              "SELECT i, 1, 'x', printf('%.800c', 'x') FROM n;",
                              nullptr, nullptr, nullptr),
                 SQLITE_OK);
        QVERIFY(QFileInfo(install_->database() + QStringLiteral("-journal")).size() > 0);
        QVERIFY(QFile::copy(install_->database(), crashed + QStringLiteral("/Xestion.mdb")));
        QVERIFY(QFile::copy(install_->database() + QStringLiteral("-journal"),
                            crashed + QStringLiteral("/Xestion.mdb-journal")));
        sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
        sqlite3_close(db);

        const QString copy = install_->root() + QStringLiteral("/copia");
        utilities::copyFolder(crashed, copy);
        QCOMPARE(TempInstall::tree(copy), (QStringList{"Xestion.mdb"}));
        QCOMPARE(yearq::integrity(copy + QStringLiteral("/Xestion.mdb")), QStringLiteral("ok"));
        QCOMPARE(yearq::tableCounts(copy + QStringLiteral("/Xestion.mdb")), yearq::tableCounts(install_->database()));
        QCOMPARE(yearq::native(copy + QStringLiteral("/Xestion.mdb"),
                               QStringLiteral("SELECT COUNT(*) FROM tblAlumnos WHERE Nom = 'X'")),
                 QStringList{QStringLiteral("0")});
    }

    void aStaleJournalBesideTheReplacedFileGoes()
    {
        const QString target = install_->root() + QStringLiteral("/Xestion.mdb");
        TempInstall::write(target + QStringLiteral("-journal"), "de un fallo anterior");
        utilities::copyFile(install_->database(), target, gConexion.get());
        QVERIFY(!QFileInfo::exists(target + QStringLiteral("-journal")));
        QCOMPARE(yearq::integrity(target), QStringLiteral("ok"));
    }

    void aCopyClearsTheTemporariesOfKilledCopiesBesideItsDestination()
    {
        const QString folder = install_->root() + QStringLiteral("/destino");
        QDir().mkpath(folder);
        for (const QString& name :
             staleBeside(QStringLiteral("Xestion.mdb")) + unrelatedTo(QStringLiteral("Xestion.mdb")))
            TempInstall::write(folder + u'/' + name, QByteArray(50000, 'x'));
        utilities::copyFile(install_->database(), folder + QStringLiteral("/Xestion.mdb"), gConexion.get());
        QCOMPARE(filesIn(folder), sorted(unrelatedTo(QStringLiteral("Xestion.mdb")) << QStringLiteral("Xestion.mdb")));
        QCOMPARE(yearq::integrity(folder + QStringLiteral("/Xestion.mdb")), QStringLiteral("ok"));
    }

    void openingAYearClearsTheTemporariesOfKilledCopies()
    {
        for (const QString& name :
             staleBeside(QStringLiteral("Xestion.mdb")) + unrelatedTo(QStringLiteral("Xestion.mdb")))
            TempInstall::write(install_->yearFolder() + u'/' + name, QByteArray(50000, 'x'));
        gConexion->Close();
        AbrirConexion();
        QVERIFY(gConexion->IsOpen());
        QCOMPARE(filesIn(install_->yearFolder()),
                 sorted(unrelatedTo(QStringLiteral("Xestion.mdb")) << QStringLiteral("Xestion.mdb")));
        QCOMPARE(yearq::count(QStringLiteral("tblAlumnos")), 8);
    }

    void aCopyOverTheOpenYearsOwnFileIsRefused()
    {
        const QByteArray before = TempInstall::read(install_->database());
        const QString throughDotDot =
            install_->yearFolder() + QStringLiteral("/../") + install_->year() + QStringLiteral("/Xestion.mdb");
        const QString other = install_->root() + QStringLiteral("/otro.mdb");
        QVERIFY(QFile::copy(install_->database(), other));
        bool refused = false;
        try {
            utilities::copyFile(other, throughDotDot, gConexion.get());
        } catch (const RuntimeError&) {
            refused = true;
        }
        QVERIFY(refused);
        QCOMPARE(TempInstall::read(install_->database()), before);
        QCOMPARE(filesIn(install_->yearFolder()), QStringList{QStringLiteral("Xestion.mdb")});
    }
};

QTEST_MAIN(TestCompaction)
#include "test_compaction.moc"

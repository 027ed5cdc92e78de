// The backup screen on a temporary installation, with temporary folders
// standing for the drives: the path it proposes, copy and restore with their
// questions and labels, the folders made from the drive, copies of one moment
// while others write, backups that are refused before they touch the year,
// and the safety copies a restore keeps of the year it replaces.
#include "db/Schema.h"
#include "support/Files.h"
#include "support/OpenInstall.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "utilities/DatabaseCopy.h"
#include "utilities/frmCopiaPen.h"
#include "vb/Clock.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRandomGenerator>
#include <QtTest>

#include <memory>
#include <sqlite3.h>

using yearq::count;

namespace {

const QString kCopyQuestion = QStringLiteral(
    "Se copiarán los datos a la unidad indicada\r\nAsegúrese de que hay un disco en la unidad correspondente");
const QString kRestoreQuestion =
    QStringLiteral("¡ A T E N C I Ó N !\r\nSe reemplazarán los datos de facturación actuales\r\n"
                   "por los existentes en el archivo de seguridad\r\n¿Desea continuar?");
const QString kDamaged = QStringLiteral("A copia de seguridade está danada: non se restaurou.");
const QString kOntoTheYear = QStringLiteral("O destino da copia é o propio ficheiro do curso aberto: non se copiou.");
const QString kNoData = QStringLiteral("No se encontraron datos en la unidad indicada");
const QColor kRed(255, 0, 0);
const QColor kGreen(0, 128, 0);
// The moment the tests' safety copies are named after.
const QDateTime kMoment(QDate(2025, 3, 5), QTime(10, 30, 15));
const QString kSafetyCopy = QStringLiteral("Xestion.mdb.20250305-103015.antes");

QColor colorOf(const QLabel* label)
{
    return label->palette().color(QPalette::WindowText);
}

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

using files::filesIn;

} // namespace

class TestBackup : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenInstall> install_;
    ScreenHarness harness_;
    QString startDir_;

    QString drive(const QString& name) const { return install_->root() + u'/' + name; }
    QString backupOf(const QString& driveName) const
    {
        return drive(driveName) + QStringLiteral("/CopiaCadernia/2025-26");
    }

    QString firstError() const { return harness_.errors.isEmpty() ? QString() : harness_.errors.first().Description(); }

    // The year's file as the drive's copy of the year; restoring it is
    // refused, and the year, the session and the year's folder stay as they were.
    void restoreIsRefused(const QByteArray& backup)
    {
        QDir().mkpath(backupOf(QStringLiteral("usbB")));
        TempInstall::write(backupOf(QStringLiteral("usbB")) + QStringLiteral("/Xestion.mdb"), backup);
        gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (9, 'Antes')"));
        const QMap<QString, int> rows = yearq::tableCounts(install_->database());
        const auto form = recoverIsRefused(kDamaged, vbCritical);
        QCOMPARE(yearq::tableCounts(install_->database()), rows);
        QCOMPARE(count(QStringLiteral("tblNiveles")), 3);
        QVERIFY(!form->lblInforma->isVisible()); // no "Espere un momento ..." left behind
    }

    // "Recuperar" answered Sí and then refused with `text`: the year's file,
    // the session and the year's folder stay as they were. The form stays open
    // for the caller's own checks.
    std::unique_ptr<frmCopiaPen> recoverIsRefused(const QString& text, int flags)
    {
        const QByteArray before = TempInstall::read(install_->database());
        const db::ConnectionPtr session = gConexion;
        auto form = std::make_unique<frmCopiaPen>();
        form->show();
        MsgBox::script({vbYes, vbOK});
        click(form->cmdRecuperar);
        [&] {
            QVERIFY(harness_.errors.isEmpty());
            QCOMPARE(MsgBox::shown().size(), 2);
            QCOMPARE(MsgBox::shown().last().text, text);
            QCOMPARE(MsgBox::shown().last().flags, flags);
            QCOMPARE(TempInstall::read(install_->database()), before);
            QCOMPARE(gConexion, session);
            QVERIFY(gConexion->IsOpen());
            QCOMPARE(TempInstall::tree(install_->yearFolder()), QStringList{QStringLiteral("Xestion.mdb")});
        }();
        return form;
    }

    // A copy to `folder`, which is the open year's own folder: refused, with
    // nothing written, and the session still on the year's file.
    void backupOntoTheYearIsRefused(const QString& folder)
    {
        const QByteArray before = TempInstall::read(install_->database());
        const db::ConnectionPtr session = gConexion;
        frmCopiaPen form;
        form.show();
        form.txtRuta->setText(folder);
        MsgBox::script({vbOK, vbOK});
        click(form.cmdRealizar);
        QVERIFY(harness_.errors.isEmpty());
        QCOMPARE(MsgBox::shown().size(), 2);
        QCOMPARE(MsgBox::shown().last().text, kOntoTheYear);
        QCOMPARE(MsgBox::shown().last().flags, int(vbCritical));
        QCOMPARE(TempInstall::read(install_->database()), before);
        QCOMPARE(filesIn(install_->yearFolder()), QStringList{QStringLiteral("Xestion.mdb")});
        QCOMPARE(gConexion, session);
        QVERIFY(gConexion->IsOpen());
        gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (9, 'Después')"));
        QCOMPARE(yearq::native(install_->database(), QStringLiteral("SELECT Des FROM tblNiveles WHERE Id = 9")),
                 QStringList{QStringLiteral("Después")});
        QVERIFY(form.lblInforma->text() != QStringLiteral("La copia se ha completado"));
    }

private slots:
    void initTestCase() { startDir_ = QDir::currentPath(); }

    void init()
    {
        install_ = std::make_unique<OpenInstall>();
        QDir().mkpath(drive(QStringLiteral("usbA")));
        QDir().mkpath(drive(QStringLiteral("usbB")));
        const QString a = drive(QStringLiteral("usbA")), b = drive(QStringLiteral("usbB")) + u'/';
        frmCopiaPen::setUnidades([a, b] {
            return QList<frmCopiaPen::Unidad>{{a, QStringLiteral("DATOS")}, {b, QStringLiteral("PEN")}};
        });
        QDir::setCurrent(QDir::tempPath());
        vb::Clock::setFixed(kMoment);
        harness_.start();
    }

    void cleanup()
    {
        harness_.finish();
        utilities::setBackupStepHook({});
        vb::Clock::reset();
        frmCopiaPen::setUnidades({});
        QDir::setCurrent(startDir_);
        install_.reset();
    }

    // ---- the screen

    void opensOnTheLastDriveWithItsPath()
    {
        frmCopiaPen form;
        form.show();
        QCOMPARE(form.Caption(), QStringLiteral("Copia de Seguridad"));
        QCOMPARE(form.Drive1->count(), 2);
        QCOMPARE(form.Drive1->currentIndex(), 1);
        QCOMPARE(form.Drive1->currentText(), drive(QStringLiteral("usbB")) + QStringLiteral("/ [PEN]"));
        QCOMPARE(form.txtRuta->text(), backupOf(QStringLiteral("usbB")));
        QCOMPARE(form.cmdRealizar->text(), QStringLiteral("&Copiar"));
        QCOMPARE(form.cmdRecuperar->text(), QStringLiteral("&Recuperar"));
        QCOMPARE(form.cmdCerrar->text(), QStringLiteral("&Salir"));
        QVERIFY(form.findChild<QLabel*>(QStringLiteral("lblUnidad"))->text() == QStringLiteral("Unidad"));
        QVERIFY(form.findChild<QLabel*>(QStringLiteral("lblRuta"))->text() ==
                QStringLiteral("Destino u Origen para los datos:"));
    }

    void changingTheDriveWritesItsPath()
    {
        frmCopiaPen form;
        form.show();
        form.Drive1->setCurrentIndex(0);
        QCOMPARE(form.txtRuta->text(), backupOf(QStringLiteral("usbA")));
    }

    void theFormHasNoCloseBoxAndOnlySalirCloses()
    {
        frmCopiaPen form;
        form.show();
        const Qt::WindowFlags flags = form.windowFlags();
        QVERIFY(flags & Qt::CustomizeWindowHint);
        QVERIFY(!(flags & Qt::WindowCloseButtonHint));
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(form.isVisible());
        click(form.cmdCerrar);
        QVERIFY(!form.isVisible());
    }

    void anEmptyPathIsRefusedByBothButtons()
    {
        frmCopiaPen form;
        form.show();
        form.txtRuta->clear();
        MsgBox::script({vbOK, vbOK});
        click(form.cmdRealizar);
        click(form.cmdRecuperar);
        QCOMPARE(MsgBox::shown().size(), 2);
        for (const auto& box : MsgBox::shown()) {
            QCOMPARE(box.text, QStringLiteral("No ha especificado una ruta"));
            QCOMPARE(box.flags, int(vbCritical));
        }
        QCOMPARE(form.lblInforma->text(), QString());
    }

    // ---- copy

    void copyMakesTheFoldersAndCopiesOnlyTheDatabase()
    {
        TempInstall::write(install_->yearFolder() + QStringLiteral("/notas.txt"), "x");
        frmCopiaPen form;
        form.show();
        MsgBox::setNextAnswer(vbOK);
        click(form.cmdRealizar);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().last().text, kCopyQuestion);
        QCOMPARE(MsgBox::shown().last().flags, vbOKCancel + vbInformation);
        QCOMPARE(TempInstall::tree(drive(QStringLiteral("usbB"))),
                 (QStringList{"CopiaCadernia", "CopiaCadernia/2025-26", "CopiaCadernia/2025-26/Xestion.mdb"}));
        const QString copy = backupOf(QStringLiteral("usbB")) + QStringLiteral("/Xestion.mdb");
        QCOMPARE(yearq::integrity(copy), QStringLiteral("ok"));
        QCOMPARE(yearq::tableCounts(copy), yearq::tableCounts(install_->database()));
        QCOMPARE(form.lblInforma->text(), QStringLiteral("La copia se ha completado"));
        QCOMPARE(colorOf(form.lblInforma), kGreen);
        QCOMPARE(QDir::currentPath(), QDir(install_->program()).canonicalPath());
        QVERIFY(gConexion->IsOpen());
    }

    void copyOverAnOlderCopyReplacesIt()
    {
        frmCopiaPen form;
        form.show();
        MsgBox::script({vbOK, vbOK});
        click(form.cmdRealizar);
        gConexion->Execute(QStringLiteral("DELETE * FROM tblIncidencias"));
        click(form.cmdRealizar);
        const QString copy = backupOf(QStringLiteral("usbB")) + QStringLiteral("/Xestion.mdb");
        QCOMPARE(yearq::tableCounts(copy).value(QStringLiteral("tblIncidencias")), 0);
        QCOMPARE(QDir(backupOf(QStringLiteral("usbB"))).entryList(QDir::Files), (QStringList{"Xestion.mdb"}));
    }

    void cancelledCopyCopiesNothingAndStillSaysItIsComplete()
    {
        frmCopiaPen form;
        form.show();
        MsgBox::setNextAnswer(vbCancel);
        click(form.cmdRealizar);
        QVERIFY(TempInstall::tree(drive(QStringLiteral("usbB"))).isEmpty());
        QCOMPARE(form.lblInforma->text(), QStringLiteral("La copia se ha completado"));
        QCOMPARE(colorOf(form.lblInforma), kGreen);
        QCOMPARE(QDir::currentPath(), QDir(install_->program()).canonicalPath());
    }

    void aPathEditedByHandDecidesWhereTheCopyGoes()
    {
        const QString elsewhere = drive(QStringLiteral("usbA")) + QStringLiteral("/mis copias");
        QDir().mkpath(elsewhere);
        frmCopiaPen form;
        form.show();
        form.txtRuta->setText(elsewhere);
        MsgBox::setNextAnswer(vbOK);
        click(form.cmdRealizar);
        QCOMPARE(yearq::integrity(elsewhere + QStringLiteral("/Xestion.mdb")), QStringLiteral("ok"));
        // The folders are still made on the chosen drive, and stay empty.
        QCOMPARE(TempInstall::tree(drive(QStringLiteral("usbB"))),
                 (QStringList{"CopiaCadernia", "CopiaCadernia/2025-26"}));
    }

    void aCopyToAFolderThatDoesNotExistEndsTheProgram()
    {
        frmCopiaPen form;
        form.show();
        form.txtRuta->setText(drive(QStringLiteral("usbA")) + QStringLiteral("/no/existe"));
        MsgBox::setNextAnswer(vbOK);
        click(form.cmdRealizar);
        QCOMPARE(harness_.errors.size(), 1);
        QCOMPARE(harness_.errors.first().Number(), int(RuntimeError::PathNotFound));
        QCOMPARE(form.lblInforma->text(), QStringLiteral("Espere un momento ..."));
        QCOMPARE(colorOf(form.lblInforma), kRed);
    }

    void aCopyIsOfTheMomentItBeganWhileAnotherConnectionWrites()
    {
        // Enough rows for many pages, copied one page at a time.
        gConexion->ExecuteNative(
            QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 100 UNION ALL SELECT i + 1 FROM n WHERE i < 2100) "
                           "INSERT INTO tblIncidencias (Id, IdAlu, Asunto, Hechos) SELECT i, 1, 'Asunto ' || i, "
                           "printf('%.300c', 'x') FROM n"));
        const QMap<QString, int> atStart = yearq::tableCounts(install_->database());
        sqlite3* other = nullptr;
        QCOMPARE(sqlite3_open(install_->database().toUtf8().constData(), &other), SQLITE_OK);
        sqlite3_busy_timeout(other, 0);
        auto insert = [other](int id) {
            const QByteArray sql = QStringLiteral("INSERT INTO tblIncidencias (Id, IdAlu, Asunto) VALUES (%1, 2, "
                                                  "'Durante la copia')")
                                       .arg(id)
                                       .toUtf8();
            return sqlite3_exec(other, sql.constData(), nullptr, nullptr, nullptr);
        };
        // Another connection tries to write between the steps of the copy;
        // a copy that starts over after each write would never end, so the
        // tries stop after twenty.
        int steps = 0, refused = 0;
        utilities::setBackupStepHook(
            [&] {
                if (++steps <= 20 && insert(5000 + steps) == SQLITE_BUSY)
                    ++refused;
            },
            1);
        frmCopiaPen form;
        form.show();
        MsgBox::setNextAnswer(vbOK);
        click(form.cmdRealizar);
        QVERIFY(harness_.errors.isEmpty());
        QVERIFY2(steps > 50, qPrintable(QString::number(steps)));
        // Writers wait while the copy lasts; the copy holds the year as it began.
        QCOMPARE(refused, 20);
        const QString copy = backupOf(QStringLiteral("usbB")) + QStringLiteral("/Xestion.mdb");
        QCOMPARE(yearq::integrity(copy), QStringLiteral("ok"));
        QCOMPARE(yearq::tableCounts(copy), atStart);
        // Once it is over, they write again.
        QCOMPARE(insert(9999), SQLITE_OK);
        sqlite3_close(other);
        QCOMPARE(form.lblInforma->text(), QStringLiteral("La copia se ha completado"));
    }

    void backupsTakenWhileAnotherProgramWritesAreAllAccepted()
    {
        // Another program adds a mark and an incident of the same key in one
        // transaction, up to a hundred times a second.
        QProcess writer;
        writer.start(QStringLiteral(YEAR_WRITER),
                     {install_->database(), QStringLiteral("100000"), QStringLiteral("10")});
        QVERIFY(writer.waitForStarted());
        QVERIFY(writer.waitForReadyRead(20000));
        QCOMPARE(writer.readLine().trimmed(), QByteArray("ready"));

        frmCopiaPen form;
        form.show();
        const QString copy = backupOf(QStringLiteral("usbB")) + QStringLiteral("/Xestion.mdb");
        auto written = [&copy](const char* table) {
            return yearq::native(copy,
                                 QStringLiteral("SELECT COUNT(*) FROM %1 WHERE Id >= 100000").arg(QLatin1String(table)))
                .value(0)
                .toInt();
        };
        int previous = 0;
        for (int i = 0; i < 10; ++i) {
            MsgBox::setNextAnswer(vbOK);
            click(form.cmdRealizar);
            QVERIFY2(harness_.errors.isEmpty(), qPrintable(firstError()));
            QCOMPARE(form.lblInforma->text(), QStringLiteral("La copia se ha completado"));
            QCOMPARE(yearq::integrity(copy), QStringLiteral("ok"));
            // Of one moment: as many marks as incidents, and never fewer than
            // in the copy before.
            const int marks = written("tblNotas");
            QCOMPARE(written("tblIncidencias"), marks);
            QVERIFY(marks >= previous);
            previous = marks;
            QTest::qWait(15 + 10 * i);
        }
        writer.closeWriteChannel();
        QVERIFY(writer.waitForFinished(30000));
        QCOMPARE(writer.exitStatus(), QProcess::NormalExit);
        const QByteArray out = writer.readAllStandardOutput().trimmed();
        QVERIFY2(writer.exitCode() == 0, writer.readAllStandardError().constData());
        QVERIFY(previous > 0);
        QVERIFY(previous <= out.toInt());
        QCOMPARE(yearq::integrity(install_->database()), QStringLiteral("ok"));
    }

    void aBackupClearsTheTemporariesOfKilledCopiesFromTheDrive()
    {
        const QString folder = backupOf(QStringLiteral("usbB"));
        QDir().mkpath(folder);
        const QStringList stale{"Xestion.mdb.0badf00d.tmp", "Xestion.mdb.0badf00d.tmp-journal",
                                "Xestion.mdb.1234abcd.tmp"};
        const QStringList unrelated{"Xestion.mdb.bak", "notas.tmp", "Otro.mdb.0badf00d.tmp",
                                    "Xestion.mdb.zzzzzzzz.tmp"};
        for (const QString& name : stale + unrelated)
            TempInstall::write(folder + u'/' + name, QByteArray(70000, 'x'));
        frmCopiaPen form;
        form.show();
        MsgBox::setNextAnswer(vbOK);
        click(form.cmdRealizar);
        QVERIFY(harness_.errors.isEmpty());
        QCOMPARE(filesIn(folder), sorted(unrelated + QStringList{"Xestion.mdb"}));
        QCOMPARE(yearq::integrity(folder + QStringLiteral("/Xestion.mdb")), QStringLiteral("ok"));
    }

    void aBackupOntoTheOpenYearThroughALinkIsRefused()
    {
        QDir().mkpath(drive(QStringLiteral("usbB")) + QStringLiteral("/CopiaCadernia"));
        QVERIFY(QFile::link(install_->yearFolder(), backupOf(QStringLiteral("usbB"))));
        backupOntoTheYearIsRefused(backupOf(QStringLiteral("usbB")));
    }

    void aBackupOntoTheOpenYearThroughDotDotIsRefused()
    {
        backupOntoTheYearIsRefused(install_->yearFolder() + QStringLiteral("/../") + install_->year());
        if (QTest::currentTestFailed())
            return;
        // Not even the folders on the drive are made.
        QVERIFY(TempInstall::tree(drive(QStringLiteral("usbB"))).isEmpty());
    }

    // ---- restore

    void restoreBringsBackTheCopiedRows()
    {
        frmCopiaPen form;
        form.show();
        MsgBox::script({vbOK, vbYes});
        click(form.cmdRealizar);
        const QMap<QString, int> copied = yearq::tableCounts(install_->database());
        gConexion->Execute(QStringLiteral("DELETE * FROM tblAlumnos"));
        gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (9, 'Después')"));
        const db::ConnectionPtr before = gConexion;
        click(form.cmdRecuperar);
        QCOMPARE(MsgBox::shown().size(), 2);
        QCOMPARE(MsgBox::shown().last().text, kRestoreQuestion);
        QCOMPARE(MsgBox::shown().last().flags, vbYesNo + vbCritical);
        QVERIFY(!before->IsOpen());
        QVERIFY(gConexion != before && gConexion->IsOpen());
        QCOMPARE(gConexion->Path(), install_->database());
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
        QCOMPARE(count(QStringLiteral("tblNiveles")), 2);
        QCOMPARE(yearq::tableCounts(install_->database()), copied);
        QCOMPARE(yearq::integrity(install_->database()), QStringLiteral("ok"));
        QCOMPARE(form.lblInforma->text(), QStringLiteral("La recuperación se ha completado"));
        QCOMPARE(colorOf(form.lblInforma), kGreen);
        QCOMPARE(QDir::currentPath(), QDir(install_->program()).canonicalPath());
        // Beside the year only the safety copy of the year it replaced.
        QCOMPARE(filesIn(install_->yearFolder()), (QStringList{"Xestion.mdb", kSafetyCopy}));
    }

    void restoreCopiesTheWholeFolderOverTheYear()
    {
        const QString backup = backupOf(QStringLiteral("usbB"));
        QDir().mkpath(backup + QStringLiteral("/Fotos"));
        QVERIFY(QFile::copy(install_->database(), backup + QStringLiteral("/Xestion.mdb")));
        TempInstall::write(backup + QStringLiteral("/Fotos/ana.jpg"), "jpg");
        TempInstall::write(install_->yearFolder() + QStringLiteral("/propio.txt"), "queda");
        // The year moved on since the backup, so it is kept as it was.
        gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (9, 'Despois')"));
        frmCopiaPen form;
        form.show();
        MsgBox::setNextAnswer(vbYes);
        click(form.cmdRecuperar);
        QCOMPARE(TempInstall::tree(install_->yearFolder()),
                 (QStringList{"Fotos", "Fotos/ana.jpg", "Xestion.mdb", kSafetyCopy, "propio.txt"}));
    }

    void restoreAnsweredNoChangesNothingAndSaysItIsComplete()
    {
        QDir().mkpath(backupOf(QStringLiteral("usbB")));
        gConexion->Execute(QStringLiteral("DELETE * FROM tblAlumnos"));
        const db::ConnectionPtr before = gConexion;
        frmCopiaPen form;
        form.show();
        MsgBox::setNextAnswer(vbNo);
        click(form.cmdRecuperar);
        QCOMPARE(gConexion, before);
        QVERIFY(gConexion->IsOpen());
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 0);
        QCOMPARE(form.lblInforma->text(), QStringLiteral("La recuperación se ha completado"));
        QCOMPARE(colorOf(form.lblInforma), kGreen);
    }

    void restoreFromADriveWithoutCopiesStopsAtTheRedLabel()
    {
        frmCopiaPen form;
        form.show();
        MsgBox::script({vbYes, vbOK});
        click(form.cmdRecuperar);
        QCOMPARE(MsgBox::shown().size(), 2);
        QCOMPARE(MsgBox::shown().last().text, QStringLiteral("No se encontraron datos en la unidad indicada"));
        QCOMPARE(MsgBox::shown().last().flags, int(vbInformation));
        QCOMPARE(form.lblInforma->text(), QStringLiteral("Espere un momento ..."));
        QCOMPARE(colorOf(form.lblInforma), kRed);
        QVERIFY(gConexion->IsOpen());
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
    }

    void restoreWhenTheYearIsMissingFromTheCopiesEndsTheProgram()
    {
        QDir().mkpath(drive(QStringLiteral("usbB")) + QStringLiteral("/CopiaCadernia/2019-20"));
        const QByteArray before = TempInstall::read(install_->database());
        frmCopiaPen form;
        form.show();
        MsgBox::setNextAnswer(vbYes);
        click(form.cmdRecuperar);
        QCOMPARE(harness_.errors.size(), 1);
        QCOMPARE(harness_.errors.first().Number(), int(RuntimeError::PathNotFound));
        QCOMPARE(TempInstall::read(install_->database()), before);
        QCOMPARE(form.lblInforma->text(), QStringLiteral("Espere un momento ..."));
    }

    // ---- restore: what is refused, and the safety copies

    void aBackupWithADamagedHeaderIsRefusedAndTheYearStays()
    {
        QByteArray backup = TempInstall::read(install_->database());
        backup.replace(0, 16, QByteArray(16, 'X'));
        restoreIsRefused(backup);
    }

    void anEmptyBackupFileIsRefusedAndTheYearStays() { restoreIsRefused(QByteArray()); }

    void aBackupOfRandomBytesIsRefusedAndTheYearStays()
    {
        QRandomGenerator random(20250305);
        QByteArray backup(64 * 1024, Qt::Uninitialized);
        for (char& c : backup)
            c = char(random.bounded(256));
        restoreIsRefused(backup);
    }

    void aDatabaseThatIsNotAYearIsRefusedAndTheYearStays()
    {
        const QString other = install_->root() + QStringLiteral("/otra.sqlite");
        {
            const db::ConnectionPtr cn = db::Connection::Create(other);
            cn->ExecuteNative(QStringLiteral("CREATE TABLE tblNiveles (Id INTEGER PRIMARY KEY, Des TEXT);"
                                             "INSERT INTO tblNiveles VALUES (1, 'Otra cosa');"));
        }
        QCOMPARE(yearq::integrity(other), QStringLiteral("ok"));
        restoreIsRefused(TempInstall::read(other));
    }

    void aYearWithATableMissingIsRefusedAndTheYearStays()
    {
        const QString other = install_->root() + QStringLiteral("/incompleto.mdb");
        QVERIFY(QFile::copy(install_->database(), other));
        db::Connection::Open(other)->ExecuteNative(QStringLiteral("DROP TABLE tblNotas"));
        QCOMPARE(yearq::integrity(other), QStringLiteral("ok"));
        restoreIsRefused(TempInstall::read(other));
    }

    // Every table of a year is there, with one column each.
    void aBackupWhoseTablesHaveOneColumnIsRefusedAndTheYearStays()
    {
        const QString other = install_->root() + QStringLiteral("/columna.mdb");
        {
            const db::ConnectionPtr cn = db::Connection::Create(other);
            QString ddl;
            for (const QString& table : db::Schema::YearTables())
                ddl += QStringLiteral("CREATE TABLE %1 (Id INTEGER PRIMARY KEY);").arg(table);
            cn->ExecuteNative(ddl);
        }
        QCOMPARE(yearq::integrity(other), QStringLiteral("ok"));
        restoreIsRefused(TempInstall::read(other));
    }

    void aBackupWithoutTheMarkColumnIsRefusedAndTheYearStays()
    {
        const QString other = install_->root() + QStringLiteral("/sen_nota.mdb");
        QVERIFY(QFile::copy(install_->database(), other));
        db::Connection::Open(other)->ExecuteNative(QStringLiteral("ALTER TABLE tblNotas DROP COLUMN Nota"));
        QCOMPARE(yearq::integrity(other), QStringLiteral("ok"));
        restoreIsRefused(TempInstall::read(other));
    }

    void aBackupWithAColumnOfAnotherTypeIsRefusedAndTheYearStays()
    {
        const QString other = install_->root() + QStringLiteral("/nota_texto.mdb");
        QVERIFY(QFile::copy(install_->database(), other));
        db::Connection::Open(other)->ExecuteNative(
            QStringLiteral("ALTER TABLE tblNotas RENAME TO vellas; CREATE TABLE tblNotas (Id INTEGER PRIMARY KEY, "
                           "IdTarea INTEGER, IdAlu INTEGER, Nota TEXT, Obs VARCHAR(250)); INSERT INTO tblNotas "
                           "SELECT * FROM vellas; DROP TABLE vellas;"));
        QCOMPARE(yearq::integrity(other), QStringLiteral("ok"));
        restoreIsRefused(TempInstall::read(other));
    }

    // The check compares against the same schema the installer creates: a
    // new year passes it.
    void aNewYearPassesTheCheckOfABackup()
    {
        const QString fresh = install_->root() + QStringLiteral("/novo.mdb");
        db::Schema::CreateYear(fresh);
        utilities::checkYearDatabase(fresh);
        utilities::checkYearDatabase(install_->database());
    }

    void aTruncatedBackupIsRefusedAndTheYearStays()
    {
        const QByteArray year = TempInstall::read(install_->database());
        QVERIFY(year.size() > 8 * 4096);
        restoreIsRefused(year.left(year.size() / 2));
    }

    void aBackupFolderWithoutTheYearsFileFindsNoData()
    {
        QDir().mkpath(backupOf(QStringLiteral("usbB")) + QStringLiteral("/Fotos"));
        TempInstall::write(backupOf(QStringLiteral("usbB")) + QStringLiteral("/Fotos/ana.jpg"), "jpg");
        recoverIsRefused(kNoData, vbInformation);
    }

    void aRestoreKeepsTheReplacedYearAsADatedSafetyCopy()
    {
        frmCopiaPen form;
        form.show();
        MsgBox::script({vbOK, vbYes});
        click(form.cmdRealizar);
        gConexion->Execute(QStringLiteral("DELETE * FROM tblAlumnos"));
        gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (9, 'Después')"));
        const QMap<QString, int> replaced = yearq::tableCounts(install_->database());
        click(form.cmdRecuperar);
        QVERIFY(harness_.errors.isEmpty());
        const QString safety = install_->yearFolder() + u'/' + kSafetyCopy;
        QVERIFY(QFileInfo::exists(safety));
        QCOMPARE(yearq::integrity(safety), QStringLiteral("ok"));
        QCOMPARE(yearq::tableCounts(safety), replaced);
        QCOMPARE(yearq::native(safety, QStringLiteral("SELECT Des FROM tblNiveles WHERE Id = 9")),
                 QStringList{QStringLiteral("Después")});
        // The year itself is the backup's.
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
        QCOMPARE(count(QStringLiteral("tblNiveles")), 2);
        QCOMPARE(form.lblInforma->text(), QStringLiteral("La recuperación se ha completado"));
    }

    void onlyTheThreeNewestSafetyCopiesAreKept()
    {
        TempInstall::write(install_->yearFolder() + QStringLiteral("/Xestion.mdb.bak"), "otra cosa");
        frmCopiaPen form;
        form.show();
        MsgBox::script({vbOK, vbYes, vbYes, vbYes, vbYes});
        click(form.cmdRealizar);
        QStringList made;
        for (int i = 0; i < 4; ++i) {
            const QDateTime moment = kMoment.addDays(i);
            vb::Clock::setFixed(moment);
            gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (%1, 'Antes')").arg(20 + i));
            click(form.cmdRecuperar);
            made << QStringLiteral("Xestion.mdb.") + moment.toString(QStringLiteral("yyyyMMdd-HHmmss")) +
                        QStringLiteral(".antes");
        }
        QVERIFY(harness_.errors.isEmpty());
        QCOMPARE(filesIn(install_->yearFolder()),
                 sorted(QStringList{"Xestion.mdb", "Xestion.mdb.bak", made[1], made[2], made[3]}));
        // Each holds the year as it stood before its own restore.
        for (int i = 1; i < 4; ++i)
            QCOMPARE(yearq::native(install_->yearFolder() + u'/' + made[i],
                                   QStringLiteral("SELECT Id FROM tblNiveles WHERE Id >= 20")),
                     QStringList{QString::number(20 + i)});
    }

    void twoRestoresInOneSecondKeepTwoSafetyCopies()
    {
        frmCopiaPen form;
        form.show();
        MsgBox::script({vbOK, vbYes, vbYes});
        click(form.cmdRealizar);
        gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (20, 'Primera')"));
        click(form.cmdRecuperar);
        gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (21, 'Segunda')"));
        click(form.cmdRecuperar);
        QVERIFY(harness_.errors.isEmpty());
        const QString second = QStringLiteral("Xestion.mdb.20250305-103016.antes");
        QCOMPARE(filesIn(install_->yearFolder()), (QStringList{"Xestion.mdb", kSafetyCopy, second}));
        QCOMPARE(yearq::native(install_->yearFolder() + u'/' + kSafetyCopy,
                               QStringLiteral("SELECT Des FROM tblNiveles WHERE Id >= 20")),
                 QStringList{QStringLiteral("Primera")});
        QCOMPARE(yearq::native(install_->yearFolder() + u'/' + second,
                               QStringLiteral("SELECT Des FROM tblNiveles WHERE Id >= 20")),
                 QStringList{QStringLiteral("Segunda")});
    }

    // The same older backup restored again and again, a second apart: the
    // year as the teacher had it stays among the safety copies, once.
    void fourRestoresOfOneBackupKeepTheRealYearAmongTheSafetyCopies()
    {
        frmCopiaPen form;
        form.show();
        MsgBox::script({vbOK, vbYes, vbYes, vbYes, vbYes});
        click(form.cmdRealizar);
        for (int id = 30; id < 40; ++id)
            gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (%1, 'Real')").arg(id));
        const QMap<QString, int> real = yearq::tableCounts(install_->database());
        for (int i = 0; i < 4; ++i) {
            vb::Clock::setFixed(kMoment.addSecs(i));
            click(form.cmdRecuperar);
        }
        QVERIFY2(harness_.errors.isEmpty(), qPrintable(firstError()));
        const QStringList copies = utilities::safetyCopies(install_->database());
        QCOMPARE(copies.size(), 1);
        QCOMPARE(QFileInfo(copies.first()).fileName(), kSafetyCopy);
        QCOMPARE(yearq::tableCounts(copies.first()), real);
        QCOMPARE(yearq::native(copies.first(), QStringLiteral("SELECT COUNT(*) FROM tblNiveles WHERE Des = 'Real'")),
                 QStringList{QStringLiteral("10")});
        QCOMPARE(yearq::rowCount(QStringLiteral("SELECT Id FROM tblNiveles WHERE Des = 'Real'")), 0);
    }

    // A year that already is the backup is not kept again.
    void restoringTheBackupOfTheYearAsItIsMakesNoSafetyCopy()
    {
        frmCopiaPen form;
        form.show();
        MsgBox::script({vbOK, vbYes});
        click(form.cmdRealizar);
        click(form.cmdRecuperar);
        QVERIFY2(harness_.errors.isEmpty(), qPrintable(firstError()));
        QCOMPARE(filesIn(install_->yearFolder()), QStringList{QStringLiteral("Xestion.mdb")});
        QCOMPARE(form.lblInforma->text(), QStringLiteral("La recuperación se ha completado"));
    }

    // Nor is a year that the newest safety copy already holds: a restore
    // from another drive of the same older year, again.
    void aYearTheNewestSafetyCopyHoldsIsNotKeptAgain()
    {
        frmCopiaPen form;
        form.show();
        MsgBox::script({vbOK, vbYes, vbYes});
        click(form.cmdRealizar); // usbB holds the year before "Real"
        gConexion->Execute(QStringLiteral("INSERT INTO tblNiveles (Id, Des) VALUES (30, 'Real')"));
        click(form.cmdRecuperar); // the year with "Real" kept
        QCOMPARE(utilities::safetyCopies(install_->database()).size(), 1);
        // The safety copy put back by hand, as the README tells, and the
        // same backup restored once more.
        gConexion->Close();
        QVERIFY(QFile::remove(install_->database()));
        QVERIFY(QFile::copy(utilities::safetyCopies(install_->database()).first(), install_->database()));
        AbrirConexion();
        vb::Clock::setFixed(kMoment.addSecs(5));
        click(form.cmdRecuperar);
        QVERIFY2(harness_.errors.isEmpty(), qPrintable(firstError()));
        QCOMPARE(utilities::safetyCopies(install_->database()).size(), 1);
        QCOMPARE(yearq::rowCount(QStringLiteral("SELECT Id FROM tblNiveles WHERE Des = 'Real'")), 0);
    }

    void aRestoreOverADamagedYearKeepsItsBytesAsTheSafetyCopy()
    {
        frmCopiaPen form;
        form.show();
        MsgBox::script({vbOK, vbYes});
        click(form.cmdRealizar);
        // Pages in the middle of the year overwritten: it no longer passes
        // its check, and is still what the teacher had.
        {
            QFile f(install_->database());
            QVERIFY(f.open(QIODevice::ReadWrite));
            QVERIFY(f.size() > 12 * 4096);
            f.seek(3 * 4096);
            f.write(QByteArray(8 * 4096, '\xa5'));
        }
        QVERIFY(yearq::integrity(install_->database()) != QStringLiteral("ok"));
        const QByteArray damaged = TempInstall::read(install_->database());
        click(form.cmdRecuperar);
        QVERIFY2(harness_.errors.isEmpty(), qPrintable(firstError()));
        QCOMPARE(TempInstall::read(install_->yearFolder() + u'/' + kSafetyCopy), damaged);
        QCOMPARE(yearq::integrity(install_->database()), QStringLiteral("ok"));
        QCOMPARE(count(QStringLiteral("tblAlumnos")), 8);
        QCOMPARE(form.lblInforma->text(), QStringLiteral("La recuperación se ha completado"));
    }
};

QTEST_MAIN(TestBackup)
#include "test_backup.moc"

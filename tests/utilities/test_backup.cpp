// The backup screen on a temporary installation, with temporary folders
// standing for the drives: the path it proposes, copy and restore with their
// questions and labels, the folders made from the drive, and copies that are
// whole even while the session writes.
#include "support/OpenInstall.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "utilities/DatabaseCopy.h"
#include "utilities/frmCopiaPen.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using yearq::count;

namespace {

const QString kCopyQuestion = QStringLiteral(
    "Se copiarán los datos a la unidad indicada\r\nAsegúrese de que hay un disco en la unidad correspondente");
const QString kRestoreQuestion =
    QStringLiteral("¡ A T E N C I Ó N !\r\nSe reemplazarán los datos de facturación actuales\r\n"
                   "por los existentes en el archivo de seguridad\r\n¿Desea continuar?");
const QColor kRed(255, 0, 0);
const QColor kGreen(0, 128, 0);

QColor colorOf(const QLabel* label)
{
    return label->palette().color(QPalette::WindowText);
}

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
        harness_.start();
    }

    void cleanup()
    {
        harness_.finish();
        utilities::setBackupStepHook({});
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

    void aCopyTakenWhileTheSessionWritesIsWhole()
    {
        // Enough rows for many pages, and a row written after every page copied.
        gConexion->ExecuteNative(
            QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 100 UNION ALL SELECT i + 1 FROM n WHERE i < 2100) "
                           "INSERT INTO tblIncidencias (Id, IdAlu, Asunto, Hechos) SELECT i, 1, 'Asunto ' || i, "
                           "printf('%.300c', 'x') FROM n"));
        int written = 0;
        utilities::setBackupStepHook(
            [&] {
                ++written;
                gConexion->Execute(
                    QStringLiteral("INSERT INTO tblIncidencias (Id, IdAlu, Asunto, Hechos) VALUES (%1, 2, "
                                   "'Durante la copia', '%2')")
                        .arg(5000 + written)
                        .arg(QString(200, u'y')));
                gConexion->Execute(QStringLiteral("DELETE * FROM tblIncidencias WHERE Id = %1").arg(100 + written));
            },
            1);
        frmCopiaPen form;
        form.show();
        MsgBox::setNextAnswer(vbOK);
        click(form.cmdRealizar);
        QVERIFY2(written > 50, qPrintable(QString::number(written)));
        const QString copy = backupOf(QStringLiteral("usbB")) + QStringLiteral("/Xestion.mdb");
        QCOMPARE(yearq::integrity(copy), QStringLiteral("ok"));
        // Every row written during the copy is in it.
        QCOMPARE(yearq::tableCounts(copy), yearq::tableCounts(install_->database()));
        QCOMPARE(yearq::native(copy, QStringLiteral("SELECT COUNT(*) FROM tblIncidencias WHERE Id > 5000")),
                 QStringList{QString::number(written)});
        QCOMPARE(form.lblInforma->text(), QStringLiteral("La copia se ha completado"));
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
        // Nothing of the copy's own making is left beside the year.
        QCOMPARE(QDir(install_->yearFolder()).entryList(QDir::Files), (QStringList{"Xestion.mdb"}));
    }

    void restoreCopiesTheWholeFolderOverTheYear()
    {
        const QString backup = backupOf(QStringLiteral("usbB"));
        QDir().mkpath(backup + QStringLiteral("/Fotos"));
        QVERIFY(QFile::copy(install_->database(), backup + QStringLiteral("/Xestion.mdb")));
        TempInstall::write(backup + QStringLiteral("/Fotos/ana.jpg"), "jpg");
        TempInstall::write(install_->yearFolder() + QStringLiteral("/propio.txt"), "queda");
        frmCopiaPen form;
        form.show();
        MsgBox::setNextAnswer(vbYes);
        click(form.cmdRecuperar);
        QCOMPARE(TempInstall::tree(install_->yearFolder()),
                 (QStringList{"Fotos", "Fotos/ana.jpg", "Xestion.mdb", "propio.txt"}));
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
};

QTEST_MAIN(TestBackup)
#include "test_backup.moc"

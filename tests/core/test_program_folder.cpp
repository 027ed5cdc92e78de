// Where the program keeps ruta.ini and the other files of "its folder": its
// own folder when run in place, the user's data folder when installed.
#include "core/Modulo.h"
#include "core/ProgramFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

class TestProgramFolder : public QObject {
    Q_OBJECT

    QTemporaryDir tmp_;
    QString dataHome_;

private slots:
    void initTestCase()
    {
        QVERIFY(tmp_.isValid());
        dataHome_ = tmp_.filePath(QStringLiteral("data"));
        qputenv("XDG_DATA_HOME", QFile::encodeName(dataHome_));
    }

    void theUsersFolderIsTheProgramsAppDataLocation()
    {
        QCOMPARE(core::userProgramFolder(), dataHome_ + QStringLiteral("/cadernia"));
        const QString name = QCoreApplication::applicationName();
        QCoreApplication::setApplicationName(QStringLiteral("cadernia"));
        const QString appData = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
        QCoreApplication::setApplicationName(name);
        QCOMPARE(core::userProgramFolder(), appData);
    }

    void aFolderRunInPlaceIsItsOwn()
    {
        const QString bin = tmp_.filePath(QStringLiteral("build/bin"));
        QVERIFY(QDir().mkpath(bin));
        QVERIFY(!core::isInstalledBinaryFolder(bin));
        QCOMPARE(core::programFolderFor(bin), bin);
        QCOMPARE(core::programFolderFor(bin + QStringLiteral("/../bin/")), bin);
    }

    void theBinOfAnInstalledTreeGivesTheUsersFolder()
    {
        const QString prefix = tmp_.filePath(QStringLiteral("usr"));
        QVERIFY(QDir().mkpath(prefix + QStringLiteral("/bin")));
        QVERIFY(QDir().mkpath(prefix + QStringLiteral("/share/cadernia/Informes")));
        QVERIFY(core::isInstalledBinaryFolder(prefix + QStringLiteral("/bin")));
        QCOMPARE(core::programFolderFor(prefix + QStringLiteral("/bin")), dataHome_ + QStringLiteral("/cadernia"));
    }

    void aFolderThatCannotBeWrittenGivesTheUsersFolder()
    {
        if (::geteuid() == 0)
            QSKIP("root writes into any folder");
        const QString bin = tmp_.filePath(QStringLiteral("readonly/bin"));
        QVERIFY(QDir().mkpath(bin));
        QVERIFY(QFile::setPermissions(bin, QFileDevice::ReadOwner | QFileDevice::ExeOwner));
        QCOMPARE(core::programFolderFor(bin), dataHome_ + QStringLiteral("/cadernia"));
        QFile::setPermissions(bin, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }

    void rutaProgramaDecidesOnceForTheRunningProgram()
    {
        SetRutaPrograma(QString());
        const QString decided = RutaPrograma();
        // The test runs from the build's bin/, like `make run`.
        QCOMPARE(decided, QDir::cleanPath(QCoreApplication::applicationDirPath()));
        QCOMPARE(decided, core::programFolderFor(QCoreApplication::applicationDirPath()));
        SetRutaPrograma(tmp_.path());
        QCOMPARE(RutaPrograma(), tmp_.path());
        SetRutaPrograma(QString());
        QCOMPARE(RutaPrograma(), decided);
    }
};

QTEST_GUILESS_MAIN(TestProgramFolder)
#include "test_program_folder.moc"

// The program as a process, started from a copy of it in a prepared program
// folder: the normal start, the command line "T", and a missing ruta.ini.
//
// The run-time error box waits for its Aceptar as it does on a desktop, so
// the failures are read from the text the box also writes to standard error
// while the process waits; the end of the process after the box is tested
// with the box itself (test_ui_runtime_error_box).
#include "support/TempInstall.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QtTest>

#include <memory>

namespace {

const QString kYear = QStringLiteral("2025-26 tarde");

} // namespace

class TestStartup : public QObject {
    Q_OBJECT

    std::unique_ptr<TempInstall> install_;
    QString program_;

    void start(QProcess& p, const QStringList& args)
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        p.setProcessEnvironment(env);
        p.setWorkingDirectory(install_->program());
        p.start(program_, args);
        QVERIFY2(p.waitForStarted(10000), qPrintable(p.errorString()));
    }

    // Standard error until it holds text, or the time is up.
    static QString waitForError(QProcess& p, const QString& text, int ms)
    {
        QString err;
        const QDeadlineTimer deadline(ms);
        while (!deadline.hasExpired() && !err.contains(text) && p.state() == QProcess::Running) {
            p.waitForReadyRead(100);
            err += QString::fromUtf8(p.readAllStandardError());
        }
        err += QString::fromUtf8(p.readAllStandardError());
        return err;
    }

    static void stop(QProcess& p)
    {
        p.kill();
        p.waitForFinished(10000);
    }

private slots:
    void init()
    {
        install_ = std::make_unique<TempInstall>(kYear);
        program_ = install_->program() + QStringLiteral("/cadernia");
        QVERIFY(QFile::copy(QStringLiteral(CADERNIA_BIN_DIR "/cadernia"), program_));
    }

    void withoutArgumentsTheProgramStartsAndStays()
    {
        QProcess p;
        start(p, {});
        QTest::qWait(2000);
        QCOMPARE(p.state(), QProcess::Running);
        const QString err = QString::fromUtf8(p.readAllStandardError());
        QVERIFY2(!err.contains(QStringLiteral("Error '")), qPrintable(err));
        stop(p);
    }

    void commandLineTEndsInTheObjectRequiredError()
    {
        QProcess p;
        start(p, {QStringLiteral("T")});
        const QString err = waitForError(p, QStringLiteral("Se requiere un objeto"), 20000);
        QVERIFY2(err.contains(QStringLiteral("Error '424' en tiempo de ejecución:")), qPrintable(err));
        QVERIFY2(err.contains(QStringLiteral("Se requiere un objeto")), qPrintable(err));
        if (p.state() == QProcess::NotRunning) {
            QCOMPARE(p.exitStatus(), QProcess::NormalExit);
            QVERIFY(p.exitCode() != 0);
        }
        stop(p);
    }

    void missingRutaIniEndsInAnErrorNamingThePathAndCreatesNothing()
    {
        QFile::remove(install_->program() + QStringLiteral("/ruta.ini"));
        const QStringList before = TempInstall::tree(install_->root());
        const QString path = u'/' + kYear + QStringLiteral("/Xestion.mdb");
        QProcess p;
        start(p, {});
        const QString err = waitForError(p, path, 20000);
        QVERIFY2(err.contains(QStringLiteral("en tiempo de ejecución:")), qPrintable(err));
        QVERIFY2(err.contains(QStringLiteral("'") + path + u'\''), qPrintable(err));
        if (p.state() == QProcess::NotRunning) {
            QCOMPARE(p.exitStatus(), QProcess::NormalExit);
            QVERIFY(p.exitCode() != 0);
        }
        stop(p);
        QCOMPARE(TempInstall::tree(install_->root()), before);
        QVERIFY(!QFileInfo::exists(path));
    }
};

QTEST_GUILESS_MAIN(TestStartup)
#include "test_startup.moc"

// The program as a process, started from a copy of it in a prepared program
// folder: the normal start, the command line "T", and a missing ruta.ini.
//
// The run-time error box waits for its Aceptar as it does on a desktop: the
// failures run on a display of their own (Xvfb), where the test reads the
// text the box also writes to standard error, answers the box with Enter as
// a person would (xdotool), and checks how the process ends.
#include "support/TempInstall.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QtTest>

#include <memory>

namespace {

const QString kYear = QStringLiteral("2025-26 tarde");

// An X server of its own for one test, on the first free display.
class TestDisplay {
public:
    TestDisplay()
    {
        server_.start(QStringLiteral("Xvfb"),
                      {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), QStringLiteral("1024x768x24"), QStringLiteral("-nolisten"),
                       QStringLiteral("tcp")});
        const QDeadlineTimer deadline(20000);
        QByteArray out;
        while (!deadline.hasExpired() && !out.contains('\n') && server_.state() != QProcess::NotRunning) {
            server_.waitForReadyRead(100);
            out += server_.readAllStandardOutput();
        }
        if (out.contains('\n'))
            name_ = u':' + QString::fromLatin1(out.trimmed());
    }
    ~TestDisplay()
    {
        server_.terminate();
        server_.waitForFinished(5000);
    }
    const QString& name() const { return name_; }

    // Enter on the window titled exactly `title`, once it is there.
    void pressEnterOn(const QString& title) const
    {
        QProcess tool;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DISPLAY"), name_);
        tool.setProcessEnvironment(env);
        tool.start(QStringLiteral("xdotool"),
                   {QStringLiteral("search"), QStringLiteral("--sync"), QStringLiteral("--name"), u'^' + title + u'$',
                    QStringLiteral("windowfocus"), QStringLiteral("--sync"), QStringLiteral("key"),
                    QStringLiteral("Return")});
        tool.waitForFinished(20000);
    }

private:
    QProcess server_;
    QString name_;
};

} // namespace

class TestStartup : public QObject {
    Q_OBJECT

    std::unique_ptr<TempInstall> install_;
    QString program_;

    void start(QProcess& p, const QStringList& args, const TestDisplay* display = nullptr)
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        if (display) {
            env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
            env.insert(QStringLiteral("DISPLAY"), display->name());
        } else {
            env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        }
        env.remove(QStringLiteral("XDG_RUNTIME_DIR"));
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

    // Answers the error box with Enter; the process must then end with exit
    // code 1. A key that reaches the box before it takes keys (a slow start,
    // under the sanitizers) is pressed again, a few times at most.
    static void answerTheBoxAndExpectTheEnd(QProcess& p, const TestDisplay& display)
    {
        for (int attempt = 0; attempt < 4 && p.state() == QProcess::Running; ++attempt) {
            display.pressEnterOn(QStringLiteral("Cadernia"));
            p.waitForFinished(5000);
        }
        QVERIFY2(p.state() == QProcess::NotRunning, "the process did not end after the error box");
        QCOMPARE(p.exitStatus(), QProcess::NormalExit);
        QCOMPARE(p.exitCode(), 1);
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
        // No warning about a missing runtime folder, set or not.
        QVERIFY2(!err.contains(QStringLiteral("XDG_RUNTIME_DIR")), qPrintable(err));
        stop(p);
    }

    void commandLineTEndsInTheObjectRequiredError()
    {
        const TestDisplay display;
        QVERIFY2(!display.name().isEmpty(), "Xvfb did not start");
        QProcess p;
        start(p, {QStringLiteral("T")}, &display);
        const QString err = waitForError(p, QStringLiteral("Se requiere un objeto"), 20000);
        QVERIFY2(err.contains(QStringLiteral("Error '424' en tiempo de ejecución:")), qPrintable(err));
        QVERIFY2(err.contains(QStringLiteral("Se requiere un objeto")), qPrintable(err));
        QCOMPARE(p.state(), QProcess::Running); // the box waits for its answer
        answerTheBoxAndExpectTheEnd(p, display);
        stop(p);
    }

    void missingRutaIniEndsInAnErrorNamingThePathAndCreatesNothing()
    {
        QFile::remove(install_->program() + QStringLiteral("/ruta.ini"));
        const QStringList before = TempInstall::tree(install_->root());
        const QString path = u'/' + kYear + QStringLiteral("/Xestion.mdb");
        const TestDisplay display;
        QVERIFY2(!display.name().isEmpty(), "Xvfb did not start");
        QProcess p;
        start(p, {}, &display);
        const QString err = waitForError(p, path, 20000);
        QVERIFY2(err.contains(QStringLiteral("en tiempo de ejecución:")), qPrintable(err));
        QVERIFY2(err.contains(QStringLiteral("'") + path + u'\''), qPrintable(err));
        QCOMPARE(p.state(), QProcess::Running);
        answerTheBoxAndExpectTheEnd(p, display);
        stop(p);
        QCOMPARE(TempInstall::tree(install_->root()), before);
        QVERIFY(!QFileInfo::exists(path));
    }
};

QTEST_GUILESS_MAIN(TestStartup)
#include "test_startup.moc"

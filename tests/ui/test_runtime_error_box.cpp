// The fatal run-time error path and the handler that tests put in its place.
#include "ui/MsgBox.h"
#include "ui/RuntimeErrorBox.h"

#include <QProcess>
#include <QPushButton>
#include <QtTest>

class TestRuntimeErrorBox : public QObject {
    Q_OBJECT

    QList<RuntimeError> recorded_;

private slots:
    void init()
    {
        recorded_.clear();
        ui::setRuntimeErrorHandler([this](const RuntimeError& e) { recorded_.append(e); });
    }
    void cleanup() { ui::setRuntimeErrorHandler({}); }

    void installedHandlerRecordsInsteadOfExiting()
    {
        ui::handleRuntimeError(RuntimeError(13, QStringLiteral("No coinciden los tipos")));
        QCOMPARE(recorded_.size(), 1);
        QCOMPARE(recorded_[0].Number(), 13);
        QCOMPARE(recorded_[0].Description(), QStringLiteral("No coinciden los tipos"));
    }

    void guardRuntimeStopsTheBodyAndReportsOnce()
    {
        bool after = false;
        const bool completed = ui::guardRuntime([&] {
            throw RuntimeError(RuntimeError::DivisionByZero, QStringLiteral("División por cero"));
            after = true;
        });
        QVERIFY(!completed);
        QVERIFY(!after);
        QCOMPARE(recorded_.size(), 1);
        QCOMPARE(recorded_[0].Number(), 11);
    }

    void guardRuntimeRunsAQuietBodyToTheEnd()
    {
        int runs = 0;
        QVERIFY(ui::guardRuntime([&] { ++runs; }));
        QCOMPARE(runs, 1);
        QVERIFY(recorded_.isEmpty());
    }

    void boxTextNamesTheNumberAndTheDescription()
    {
        QCOMPARE(ui::runtimeErrorText(RuntimeError(424, QStringLiteral("Se requiere un objeto"))),
                 QStringLiteral("Error '424' en tiempo de ejecución:\n\nSe requiere un objeto"));
    }

    void theBoxIsCriticalUnderTheProgramsTitle()
    {
        MsgBox::reset();
        MsgBox::setNextAnswer(vbOK);
        ui::showRuntimeErrorBox(RuntimeError(62, QStringLiteral("La entrada se ha pasado del final del archivo")));
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown()[0].text,
                 QStringLiteral("Error '62' en tiempo de ejecución:\n\nLa entrada se ha pasado del final del archivo"));
        QCOMPARE(MsgBox::shown()[0].flags, int(vbCritical));
        QCOMPARE(MsgBox::shown()[0].title, QStringLiteral("Cadernia"));
    }

    // The application's safety net catches what an event handler throws. (A
    // throw through Qt's widget code would leave Qt's own objects behind: the
    // net is there to end the process, and the screens guard their slots.)
    void errorThrownInAnEventHandlerReachesTheHandlerThroughTheApplication()
    {
        class ThrowingReceiver : public QObject {
        public:
            bool event(QEvent* e) override
            {
                if (e->type() == QEvent::User)
                    throw RuntimeError(94, QStringLiteral("Uso no válido de Null"));
                return QObject::event(e);
            }
        };
        ThrowingReceiver receiver;
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&receiver, &event);
        QCOMPARE(recorded_.size(), 1);
        QCOMPARE(recorded_[0].Number(), 94);
    }

    void errorThrownInAGuardedSlotReachesTheHandler()
    {
        QPushButton button;
        QObject::connect(&button, &QPushButton::clicked, [] {
            ui::guardRuntime([] { throw RuntimeError(94, QStringLiteral("Uso no válido de Null")); });
        });
        button.show();
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(recorded_.size(), 1);
        QCOMPARE(recorded_[0].Number(), 94);
    }

    void withoutHandlerTheProcessShowsTheBoxAndEndsWithFailure()
    {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--fatal-child")});
        QVERIFY(child.waitForFinished(30000));
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 1);
        const QString err = QString::fromUtf8(child.readAllStandardError());
        QVERIFY2(err.contains(QStringLiteral("Error '13' en tiempo de ejecución:")), qPrintable(err));
        QVERIFY2(err.contains(QStringLiteral("No coinciden los tipos")), qPrintable(err));
        QVERIFY2(!err.contains(QStringLiteral("still running")), qPrintable(err));
    }
};

int main(int argc, char** argv)
{
    GuardedApplication app(argc, argv);
    if (argc > 1 && qstrcmp(argv[1], "--fatal-child") == 0) {
        MsgBox::setNextAnswer(vbOK); // the box is answered in advance
        ui::guardRuntime([] { throw RuntimeError(13, QStringLiteral("No coinciden los tipos")); });
        fprintf(stderr, "still running\n");
        return 0;
    }
    TestRuntimeErrorBox test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_runtime_error_box.moc"

#pragma once
// What the screen tests share around each test: message boxes answered from
// a script (one with no answer waiting ends the run), run-time errors
// recorded instead of ending the process, and, at the end, the checks that
// every scripted answer was taken and no modal driver gave up.
//
//     void init() { harness_.start(); ... }
//     void cleanup() { harness_.finish(); ... }
#include "support/ModalDriver.h"
#include "support/SessionYear.h"
#include "ui/MsgBox.h"
#include "ui/RuntimeErrorBox.h"

#include <QAbstractButton>
#include <QList>
#include <QtTest>

class ScreenHarness {
public:
    void start()
    {
        MsgBox::reset();
        MsgBox::setUnscriptedFatal(true);
        errors.clear();
        ui::setRuntimeErrorHandler([this](const RuntimeError& e) { errors.append(e); });
    }

    void finish()
    {
        const int pending = MsgBox::pendingAnswers();
        const bool gaveUp = ModalDriver::takeTimedOut();
        ui::setRuntimeErrorHandler({});
        MsgBox::reset();
        QCOMPARE(pending, 0);
        QVERIFY(!gaveUp);
    }

    QList<RuntimeError> errors;
};

inline void click(QAbstractButton* button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

// A year as the session's, with the harness around each test of a screen:
//
//     void init() { session_.start(); }
//     void cleanup() { session_.finish(); }
class ScreenYear : public SessionYear {
public:
    void start(TempYear::Fill fill = TempYear::Fill::Seeded)
    {
        SessionYear::start(fill);
        harness.start();
    }

    void finish()
    {
        harness.finish();
        SessionYear::finish();
    }

    ScreenHarness harness;
};

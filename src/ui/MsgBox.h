#pragma once
// The one message box of the program, with its flags and results as numbers.
// Nothing else shows a QMessageBox.
//
// Tests answer boxes in advance and read back every box shown:
//     MsgBox::setNextAnswer(vbYes);
//     ... the screen asks ...
//     QCOMPARE(MsgBox::shown().last().text, "¿Confirma que desea Salir?");
// A scripted answer is taken instead of showing the box. With
// MsgBox::setUnscriptedFatal(true) a box that has no answer waiting ends the
// test run at once, naming the box, instead of waiting for a click.
#include <QList>
#include <QString>

#include <initializer_list>

enum : int {
    vbOKOnly = 0,
    vbOKCancel = 1,
    vbYesNoCancel = 3,
    vbYesNo = 4,
    vbCritical = 16,
    vbQuestion = 32,
    vbExclamation = 48,
    vbInformation = 64,
    vbDefaultButton2 = 256,
};

enum : int {
    vbOK = 1,
    vbCancel = 2,
    vbYes = 6,
    vbNo = 7,
};

// The test seam of MsgBox. The class shares the function's name, so that
// MsgBox::setNextAnswer(...) reads as it does in the tests of every screen.
class MsgBox {
public:
    struct Shown {
        QString text;
        int flags = 0;
        QString title;
    };

    // Queue answers, taken in order by the next boxes.
    static void setNextAnswer(int answer);
    static void script(std::initializer_list<int> answers);
    static int pendingAnswers();
    // Every box asked for since the last reset, scripted or not.
    static const QList<Shown>& shown();
    // Forget the queue and the log.
    static void reset();
    // Shared by the file and colour dialogs: an unanswered dialog is fatal.
    static void setUnscriptedFatal(bool fatal);
    static bool unscriptedFatal();

    // The program's title, used when no title is given.
    static QString defaultTitle() { return QStringLiteral("Cadernia"); }
};

int MsgBox(const QString& text, int flags = vbOKOnly, const QString& title = MsgBox::defaultTitle());

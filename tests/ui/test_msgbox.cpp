// The message box: scripted answers, the log of boxes, the real box with its
// Spanish buttons, and the strict mode of the tests.
#include "support/ModalDriver.h"
#include "ui/MsgBox.h"

#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QtTest>

class TestMsgBox : public QObject {
    Q_OBJECT

private slots:
    void init() { MsgBox::reset(); }

    void scriptedAnswersAreTakenInOrder()
    {
        MsgBox::script({vbYes, vbNo});
        MsgBox::setNextAnswer(vbCancel);
        QCOMPARE(MsgBox(QStringLiteral("uno"), vbYesNo + vbInformation), vbYes);
        QCOMPARE(MsgBox(QStringLiteral("dos"), vbYesNo + vbInformation), vbNo);
        QCOMPARE(MsgBox::pendingAnswers(), 1);
        QCOMPARE(MsgBox(QStringLiteral("tres"), vbOKCancel), vbCancel);
        QCOMPARE(MsgBox::pendingAnswers(), 0);
    }

    void everyBoxIsLoggedWithTextFlagsAndTitle()
    {
        MsgBox::script({vbOK, vbYes});
        MsgBox(QStringLiteral("PROCESO FINALIZADO"), vbInformation);
        MsgBox(QStringLiteral("¿Confirma que desea Salir?"), vbYesNo + vbInformation, QStringLiteral("Atención!!"));
        QCOMPARE(MsgBox::shown().size(), 2);
        QCOMPARE(MsgBox::shown()[0].text, QStringLiteral("PROCESO FINALIZADO"));
        QCOMPARE(MsgBox::shown()[0].flags, 64);
        QCOMPARE(MsgBox::shown()[0].title, QStringLiteral("Cadernia"));
        QCOMPARE(MsgBox::shown()[1].text, QStringLiteral("¿Confirma que desea Salir?"));
        QCOMPARE(MsgBox::shown()[1].flags, 68);
        QCOMPARE(MsgBox::shown()[1].title, QStringLiteral("Atención!!"));
    }

    void resetForgetsAnswersAndLog()
    {
        MsgBox::setNextAnswer(vbYes);
        MsgBox(QStringLiteral("x"));
        MsgBox::setNextAnswer(vbNo);
        MsgBox::reset();
        QCOMPARE(MsgBox::pendingAnswers(), 0);
        QVERIFY(MsgBox::shown().isEmpty());
    }

    void flagAndResultConstantsHaveTheirNumbers()
    {
        QCOMPARE(vbOKOnly, 0);
        QCOMPARE(vbOKCancel, 1);
        QCOMPARE(vbYesNo, 4);
        QCOMPARE(vbCritical, 16);
        QCOMPARE(vbQuestion, 32);
        QCOMPARE(vbExclamation, 48);
        QCOMPARE(vbInformation, 64);
        QCOMPARE(vbOK, 1);
        QCOMPARE(vbCancel, 2);
        QCOMPARE(vbYes, 6);
        QCOMPARE(vbNo, 7);
    }

    void realYesNoBoxHasSpanishButtonsAndAnswersYes()
    {
        QStringList captions;
        QString title;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        ModalDriver::whenModal([&](QWidget* w) {
            auto* box = qobject_cast<QMessageBox*>(w);
            QVERIFY(box);
            title = box->windowTitle();
            icon = box->icon();
            for (QAbstractButton* b : box->buttons())
                captions << b->text();
            for (QAbstractButton* b : box->buttons())
                if (b->text() == QStringLiteral("Sí"))
                    b->click();
        });
        QCOMPARE(MsgBox(QStringLiteral("¿Borrar?"), vbYesNo + vbInformation, QStringLiteral("Atención!!")), vbYes);
        QVERIFY(!ModalDriver::takeTimedOut());
        captions.sort();
        QCOMPARE(captions, (QStringList{QStringLiteral("No"), QStringLiteral("Sí")}));
        QCOMPARE(title, QStringLiteral("Atención!!"));
        QCOMPARE(icon, QMessageBox::Information);
        QCOMPARE(MsgBox::shown().size(), 1);
    }

    void realYesNoBoxAnswersNo()
    {
        ModalDriver::clickButton(QStringLiteral("No"));
        QCOMPARE(MsgBox(QStringLiteral("¿Borrar?"), vbYesNo + vbQuestion), vbNo);
    }

    void realOkCancelBoxAnswersCancelAndOkBoxAnswersOk()
    {
        ModalDriver::clickButton(QStringLiteral("Cancelar"));
        QCOMPARE(MsgBox(QStringLiteral("¿Seguir?"), vbOKCancel), vbCancel);
        ModalDriver::clickButton(QStringLiteral("Aceptar"));
        QCOMPARE(MsgBox(QStringLiteral("Hecho"), vbCritical), vbOK);
        QVERIFY(!ModalDriver::takeTimedOut());
    }

    void unscriptedBoxInStrictModeEndsTheRunNamingTheBox()
    {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--unscripted-child")});
        QVERIFY(child.waitForFinished(30000));
        QVERIFY(child.exitStatus() == QProcess::CrashExit || child.exitCode() != 0);
        QVERIFY2(QString::fromUtf8(child.readAllStandardError()).contains(QStringLiteral("Sin respuesta")),
                 "the message names the box");
    }
};

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    if (argc > 1 && qstrcmp(argv[1], "--unscripted-child") == 0) {
        MsgBox::setUnscriptedFatal(true);
        MsgBox(QStringLiteral("Sin respuesta"));
        return 0; // not reached
    }
    TestMsgBox test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_msgbox.moc"

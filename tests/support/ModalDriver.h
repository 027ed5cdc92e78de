#pragma once
// Drives the modal dialogs a test makes a screen open: arm it before the
// action that opens the dialog, and it runs its lambda on the dialog once the
// dialog is up and its event loop is running.
//
//     ModalDriver::whenModal([](QWidget* w) { static_cast<QDialog*>(w)->accept(); });
//     form.ShowModal(&child);                     // returns when the lambda closed it
//
//     ModalDriver::clickButton(QStringLiteral("Sí"));   // a real message box
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>

class ModalDriver {
public:
    // Runs action on the next modal widget other than the one in front now.
    // Gives up after timeoutMs (the test then sees the dialog still open).
    static void whenModal(std::function<void(QWidget*)> action, int timeoutMs = 5000);
    // Clicks the button with this text in the next modal dialog.
    static void clickButton(const QString& text, int timeoutMs = 5000);
    // Closes the next modal dialog with accept() (QDialog) or close().
    static void closeNext(int timeoutMs = 5000);
    // Whether a driver gave up waiting since the last call of this function.
    static bool takeTimedOut();
};

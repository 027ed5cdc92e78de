#include "support/ModalDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QTimer>
#include <QtTest>

namespace {

bool timedOut = false;

} // namespace

void ModalDriver::whenModal(std::function<void(QWidget*)> action, int timeoutMs)
{
    QPointer<QWidget> before = QApplication::activeModalWidget();
    auto* timer = new QTimer(qApp);
    const QDeadlineTimer deadline(timeoutMs);
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, before, deadline, action = std::move(action)] {
        QWidget* modal = QApplication::activeModalWidget();
        // A dialog is driven once it is the active window: its activation has
        // then given the focus to its widget, as a teacher's keys would find it.
        // Acting as soon as it is visible raced that activation.
        const bool ready = modal && modal != before && modal->isVisible() && modal->isActiveWindow();
        if (ready) {
            timer->stop();
            timer->deleteLater();
            // What the activation posted (focus events, queued slots) runs first.
            QTimer::singleShot(0, modal, [modal = QPointer<QWidget>(modal), action] {
                if (modal)
                    action(modal);
            });
            return;
        }
        if (deadline.hasExpired()) {
            timedOut = true;
            timer->stop();
            timer->deleteLater();
            if (modal && modal != before) {
                // Up but never active: a test driving it now would race the
                // window system. It fails, and the dialog is closed so that
                // the test ends instead of waiting.
                QTest::qFail("ModalDriver: the modal dialog never became the active window", __FILE__, __LINE__);
                modal->close();
            } else {
                // Some tests wait on purpose for a dialog that must not come.
                qWarning("ModalDriver: no modal dialog appeared");
            }
        }
    });
    timer->start();
}

void ModalDriver::clickButton(const QString& text, int timeoutMs)
{
    whenModal(
        [text](QWidget* modal) {
            for (QAbstractButton* button : modal->findChildren<QAbstractButton*>()) {
                if (button->text() == text) {
                    button->click();
                    return;
                }
            }
            qWarning("ModalDriver: no button \"%s\"", qPrintable(text));
            timedOut = true;
            modal->close(); // rather than leave the test waiting forever
        },
        timeoutMs);
}

void ModalDriver::closeNext(int timeoutMs)
{
    whenModal(
        [](QWidget* modal) {
            if (auto* dialog = qobject_cast<QDialog*>(modal))
                dialog->accept();
            else
                modal->close();
        },
        timeoutMs);
}

bool ModalDriver::takeTimedOut()
{
    return std::exchange(timedOut, false);
}

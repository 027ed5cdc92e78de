#include "support/ModalDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QTimer>

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
        if (modal && modal != before && modal->isVisible()) {
            timer->stop();
            timer->deleteLater();
            action(modal);
            return;
        }
        if (deadline.hasExpired()) {
            qWarning("ModalDriver: no modal dialog appeared");
            timedOut = true;
            timer->stop();
            timer->deleteLater();
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

#pragma once
// One message of the mouse wheel over the middle of a widget: 120 is one
// notch away from the user, -120 one notch towards.
#include <QCoreApplication>
#include <QWheelEvent>
#include <QWidget>

inline void wheel(QWidget* target, int delta)
{
    const QPoint pos = target->rect().center();
    QWheelEvent event(pos, target->mapToGlobal(pos), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(target, &event);
}

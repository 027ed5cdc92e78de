#pragma once
// Acts on the modal form that the next step of a test opens, as it stands
// once shown (see ModalDriver). A form the action leaves open is closed
// afterwards and noted, so that a failing check never leaves a test waiting.
//
//     auto run = onModal<frmTareasTiposFicha>([&](frmTareasTiposFicha* f) { ... });
//     list.cmdNovo->click();
//     QCOMPARE(run->caption, QStringLiteral("Nuevo tipo de tarea"));
//     QVERIFY(run->closedByItself());
#include "support/ModalDriver.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

struct ModalRun {
    bool opened = false;
    bool leftOpen = false;
    QString caption;
    bool closedByItself() const { return opened && !leftOpen; }
};

template <typename T>
std::shared_ptr<ModalRun> onModal(std::function<void(T*)> action)
{
    auto run = std::make_shared<ModalRun>();
    ModalDriver::whenModal([run, action = std::move(action)](QWidget* w) {
        T* form = qobject_cast<T*>(w);
        if (!form) {
            qWarning("not the expected form: %s", w->metaObject()->className());
            w->close();
            return;
        }
        run->opened = true;
        run->caption = form->windowTitle();
        action(form);
        if (form->isVisible()) {
            run->leftOpen = true;
            form->close();
        }
    });
    return run;
}

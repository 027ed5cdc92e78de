#pragma once
// The end of every unguarded failure: a RuntimeError that nobody catches is
// shown in a critical box, "Error '<n>' en tiempo de ejecución:" and its text,
// and the process ends with a non-zero code. There is no recovery path.
//
// Qt does not let exceptions cross its event loop, so every slot or event
// handler that may throw runs its body under guardRuntime(); Form does this
// for Form_Activate and for showModal(). GuardedApplication catches what still
// reaches QApplication::notify, as a last net: safe for ending the process,
// not for carrying on, since an exception through Qt's own frames leaves
// their objects behind.
//
// Tests install a handler that records the error instead of ending the process.
#include "vb/RuntimeError.h"

#include <QApplication>

#include <functional>

namespace ui {

using RuntimeErrorHandler = std::function<void(const RuntimeError&)>;

// Shows the box under the program's title and ends the process.
[[noreturn]] void fatalRuntimeError(const RuntimeError& error);
// The text of that box, and the box alone (also written to stderr).
QString runtimeErrorText(const RuntimeError& error);
void showRuntimeErrorBox(const RuntimeError& error);

// Replaces fatalRuntimeError; an empty handler puts it back.
void setRuntimeErrorHandler(RuntimeErrorHandler handler);
// Passes the error to the installed handler, or to fatalRuntimeError.
void handleRuntimeError(const RuntimeError& error);

// Runs body; a RuntimeError it throws goes to handleRuntimeError. Returns true
// when the body ran to its end.
template <typename F>
bool guardRuntime(F&& body)
{
    try {
        std::forward<F>(body)();
        return true;
    } catch (const RuntimeError& error) {
        handleRuntimeError(error);
        return false;
    }
}

} // namespace ui

// The program's QApplication: its event delivery ends in the run-time error
// handler instead of letting a RuntimeError unwind through Qt, and its
// screens are drawn in the program's style (ui::FocusStyle).
class GuardedApplication : public QApplication {
public:
    GuardedApplication(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

#include "ui/RuntimeErrorBox.h"

#include "ui/FocusStyle.h"
#include "ui/MsgBox.h"
#include "ui/QtTranslations.h"

#include <cstdio>
#include <cstdlib>

namespace ui {

namespace {

RuntimeErrorHandler& installedHandler()
{
    static RuntimeErrorHandler handler;
    return handler;
}

} // namespace

QString runtimeErrorText(const RuntimeError& error)
{
    return QStringLiteral("Error '%1' en tiempo de ejecución:\n\n%2").arg(error.Number()).arg(error.Description());
}

void showRuntimeErrorBox(const RuntimeError& error)
{
    const QString text = runtimeErrorText(error);
    std::fprintf(stderr, "%s\n", text.toUtf8().constData());
    std::fflush(stderr);
    // A tool without windows has only the line above.
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        MsgBox(text, vbCritical, MsgBox::defaultTitle());
}

void fatalRuntimeError(const RuntimeError& error)
{
    showRuntimeErrorBox(error);
    // At once: no unloading of forms, no static
    // destructors running behind a live QApplication.
    std::fflush(nullptr);
    std::_Exit(1);
}

void setRuntimeErrorHandler(RuntimeErrorHandler handler)
{
    installedHandler() = std::move(handler);
}

void handleRuntimeError(const RuntimeError& error)
{
    if (installedHandler())
        installedHandler()(error);
    else
        fatalRuntimeError(error);
}

} // namespace ui

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    setStyle(new ui::FocusStyle);
    ui::installQtTranslations();
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError& error) {
        ui::handleRuntimeError(error);
        return false;
    }
}

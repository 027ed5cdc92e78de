#include "reports/engine/ReportSeams.h"

#include <QDesktopServices>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace reports {

namespace {

std::function<bool(const QString&)>& opener()
{
    static std::function<bool(const QString&)> f;
    return f;
}

// Whether the desktop names a program for the file's kind. Qt hands the file
// to xdg-open and counts it opened once xdg-open runs, viewer or not.
bool desktopHasViewerFor(const QString& path)
{
    const QString query = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
    if (query.isEmpty())
        return !QStandardPaths::findExecutable(QStringLiteral("xdg-open")).isEmpty();
    QProcess p;
    p.start(query, {QStringLiteral("query"), QStringLiteral("default"), QMimeDatabase().mimeTypeForFile(path).name()});
    if (!p.waitForFinished(5000) || p.exitCode() != 0)
        return false;
    return !p.readAllStandardOutput().trimmed().isEmpty();
}

} // namespace

bool Desktop::openFile(const QString& path)
{
    if (opener())
        return opener()(path);
    return desktopHasViewerFor(path) && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
void Desktop::setOpenerForTest(std::function<void(const QString&)> f)
{
    opener() = [f = std::move(f)](const QString& path) {
        f(path);
        return true;
    };
}
void Desktop::setNoViewerForTest()
{
    opener() = [](const QString&) { return false; };
}
void Desktop::reset()
{
    opener() = nullptr;
}

} // namespace reports

#include "reports/engine/ReportSeams.h"

#include <QDesktopServices>
#include <QUrl>

namespace reports {

namespace {

std::function<void(const QString&)>& opener()
{
    static std::function<void(const QString&)> f;
    return f;
}

} // namespace

void Desktop::openFile(const QString& path)
{
    if (opener()) {
        opener()(path);
        return;
    }
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
void Desktop::setOpenerForTest(std::function<void(const QString&)> f)
{
    opener() = std::move(f);
}
void Desktop::reset()
{
    opener() = nullptr;
}

} // namespace reports

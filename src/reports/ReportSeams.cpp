#include "reports/ReportSeams.h"

#include "reports/ReportDocument.h"

#include <QDesktopServices>
#include <QPrinter>
#include <QPrinterInfo>
#include <QUrl>

#include <optional>

namespace reports {

namespace {

std::optional<QDateTime>& fixedMoment()
{
    static std::optional<QDateTime> moment;
    return moment;
}

std::function<void(const QString&)>& opener()
{
    static std::function<void(const QString&)> f;
    return f;
}

PrinterOutput::Sink& printerSink()
{
    static PrinterOutput::Sink sink;
    return sink;
}

} // namespace

QDateTime Clock::now()
{
    return fixedMoment() ? *fixedMoment() : QDateTime::currentDateTime();
}
void Clock::setFixed(const QDateTime& moment)
{
    fixedMoment() = moment;
}
void Clock::reset()
{
    fixedMoment().reset();
}

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

void PrinterOutput::print(const QString& printer, const ReportDocument& report)
{
    if (printerSink()) {
        printerSink()(printer, report);
        return;
    }
    QPrinter device(QPrinterInfo::printerInfo(printer), QPrinter::HighResolution);
    device.setDocName(report.name());
    report.paint(&device);
}
void PrinterOutput::setForTest(Sink sink)
{
    printerSink() = std::move(sink);
}
void PrinterOutput::reset()
{
    printerSink() = nullptr;
}

} // namespace reports

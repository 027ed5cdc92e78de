#include "reports/viewers/PrinterOutput.h"

#include "reports/engine/ReportDocument.h"

#include <QPrinter>
#include <QPrinterInfo>

namespace reports {

namespace {

PrinterOutput::Sink& printerSink()
{
    static PrinterOutput::Sink sink;
    return sink;
}

} // namespace

QString PrinterOutput::jobName(const ReportDocument& report)
{
    const QString title = report.header().title.simplified();
    return QStringLiteral("Cadernia - ") + (title.isEmpty() ? report.name() : title);
}

void PrinterOutput::print(const QString& printer, const ReportDocument& report)
{
    if (printerSink()) {
        printerSink()(printer, report);
        return;
    }
    QPrinter device(QPrinterInfo::printerInfo(printer), QPrinter::HighResolution);
    device.setDocName(jobName(report));
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

#pragma once
// Sends a laid out report to a printer of the system, by its name. Tests
// answer it in advance:
//
//     reports::PrinterOutput::setForTest([&](const QString& printer, const ReportDocument& r) { ... });
//
// and put it back with reset().
#include <QString>

#include <functional>

namespace reports {

class ReportDocument;

class PrinterOutput {
public:
    // The name of the job in the printer's queue: "Cadernia - " and the
    // report's title on one line, as the teacher reads it on the page.
    static QString jobName(const ReportDocument& report);
    using Sink = std::function<void(const QString& printer, const ReportDocument& report)>;
    static void print(const QString& printer, const ReportDocument& report);
    static void setForTest(Sink sink);
    static void reset();
};

} // namespace reports

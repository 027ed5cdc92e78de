#pragma once
// What the reports take from the world outside, each behind a small seam
// that tests answer in advance:
//
//     reports::Clock::setFixed(QDateTime(QDate(2025, 3, 5), QTime(10, 30)));
//     reports::Desktop::setOpenerForTest([&](const QString& f) { opened << f; });
//     reports::PrinterOutput::setForTest([&](const QString& printer, const ReportDocument& r) { ... });
//
// and put back with reset().
#include <QDateTime>
#include <QString>

#include <functional>

namespace reports {

class ReportDocument;

// The date printed on the reports and the stamp of the PDF file names.
class Clock {
public:
    static QDateTime now();
    static void setFixed(const QDateTime& moment);
    static void reset();
};

// Opens a written file with the desktop's viewer.
class Desktop {
public:
    static void openFile(const QString& path);
    static void setOpenerForTest(std::function<void(const QString&)> opener);
    static void reset();
};

// Sends a laid out report to a printer of the system, by its name.
class PrinterOutput {
public:
    using Sink = std::function<void(const QString& printer, const ReportDocument& report)>;
    static void print(const QString& printer, const ReportDocument& report);
    static void setForTest(Sink sink);
    static void reset();
};

} // namespace reports

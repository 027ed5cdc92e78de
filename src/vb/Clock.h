#pragma once
// Today and now, as the program sees them. Everything that shows, stores or
// compares the current date asks here, so that a test can fix the moment:
//
//     vb::Clock::setFixed(QDateTime(QDate(2025, 3, 5), QTime(10, 30)));
//     ...
//     vb::Clock::reset();
#include <QDate>
#include <QDateTime>

namespace vb {

class Clock {
public:
    static QDateTime now();
    static QDate today() { return now().date(); }
    static void setFixed(const QDateTime& moment);
    static void reset();
};

} // namespace vb

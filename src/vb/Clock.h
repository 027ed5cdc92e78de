#pragma once
// Today and now, as the program sees them. Everything that shows, stores or
// compares the current date asks here, so that a test can fix the moment:
//
//     vb::Clock::setFixed(QDateTime(QDate(2025, 3, 5), QTime(10, 30)));
//     ...
//     vb::Clock::reset();
//
// A pause of the program goes through here too, so that a test can see the
// pause asked for instead of waiting it:
//
//     QList<int> pauses;
//     vb::Clock::recordPauses(&pauses);   // pause(3000) appends 3000
//     ...
//     vb::Clock::recordPauses(nullptr);   // pauses wait again
#include <QDate>
#include <QDateTime>
#include <QList>

namespace vb {

class Clock {
public:
    static QDateTime now();
    static QDate today() { return now().date(); }
    static void setFixed(const QDateTime& moment);
    static void reset();

    // Waits that many milliseconds, or records them when a test asks.
    static void pause(int ms);
    static void recordPauses(QList<int>* into);
};

} // namespace vb

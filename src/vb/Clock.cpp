#include "vb/Clock.h"

#include <QThread>

#include <optional>

namespace vb {

namespace {

std::optional<QDateTime>& fixedMoment()
{
    static std::optional<QDateTime> moment;
    return moment;
}

QList<int>*& pauseRecord()
{
    static QList<int>* record = nullptr;
    return record;
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

void Clock::pause(int ms)
{
    if (pauseRecord())
        pauseRecord()->append(ms);
    else
        QThread::msleep(ms);
}

void Clock::recordPauses(QList<int>* into)
{
    pauseRecord() = into;
}

} // namespace vb

#include "vb/Clock.h"

#include <optional>

namespace vb {

namespace {

std::optional<QDateTime>& fixedMoment()
{
    static std::optional<QDateTime> moment;
    return moment;
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

} // namespace vb

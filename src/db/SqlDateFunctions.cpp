// The date arithmetic the translator writes for `date + n`, `date - n`,
// DateAdd and DateDiff. Dates are ISO text in the file; a result keeps the
// shape of its operand: a date stays "yyyy-MM-dd", a date and time stays
// "yyyy-MM-dd HH:mm:ss", and a time of day that stays on its day "HH:mm".
#include "db/SqlFunctionsInternal.h"
#include "db/SqlValue.h"
#include "vb/Vb.h"

#include <QDate>
#include <QDateTime>
#include <QTime>
#include <sqlite3.h>

#include <cmath>

namespace db::detail {
namespace {

constexpr qint64 kMsPerDay = 86400000;

// A moment without time zone: a day and the milliseconds into it.
struct Moment {
    enum class Shape { Date, DateTime, Time };
    QDate date;
    qint64 ms = 0;
    Shape shape = Shape::Date;

    // The engine's days for a time of day alone.
    static QDate timeDay() { return QDate(1899, 12, 30); }

    void addMs(qint64 delta)
    {
        const qint64 total = date.toJulianDay() * kMsPerDay + ms + delta;
        const qint64 day = total >= 0 ? total / kMsPerDay : (total - kMsPerDay + 1) / kMsPerDay;
        date = QDate::fromJulianDay(day);
        ms = total - day * kMsPerDay;
    }
};

Moment momentOf(sqlite3_value* value)
{
    QVariant v = dateFromIso(argumentValue(value));
    if (v.typeId() != QMetaType::QDate && v.typeId() != QMetaType::QDateTime && v.typeId() != QMetaType::QTime)
        v = vb::CDate(v); // a text the conversions read as a date, or a date serial
    Moment m;
    switch (v.typeId()) {
    case QMetaType::QDate:
        m.date = v.toDate();
        break;
    case QMetaType::QDateTime:
        m.date = v.toDateTime().date();
        m.ms = v.toDateTime().time().msecsSinceStartOfDay();
        m.shape = Moment::Shape::DateTime;
        break;
    default:
        m.date = Moment::timeDay();
        m.ms = v.toTime().msecsSinceStartOfDay();
        m.shape = Moment::Shape::Time;
        break;
    }
    if (!m.date.isValid())
        vb::Raise(RuntimeError::TypeMismatch);
    return m;
}

// The engine's dates run from the year 100 to 9999.
void setMoment(sqlite3_context* ctx, const Moment& m)
{
    if (!m.date.isValid() || m.date.year() < 100 || m.date.year() > 9999)
        vb::Raise(RuntimeError::InvalidProcedureCall);
    const QTime time = QTime::fromMSecsSinceStartOfDay(int(m.ms));
    QString text;
    if (m.shape == Moment::Shape::Time && m.date == Moment::timeDay())
        text = time.toString(time.second() ? QStringLiteral("HH:mm:ss") : QStringLiteral("HH:mm"));
    else if (m.shape == Moment::Shape::Date && m.ms == 0)
        text = m.date.toString(Qt::ISODate);
    else
        text = m.date.toString(Qt::ISODate) + u' ' + time.toString(QStringLiteral("HH:mm:ss"));
    setResult(ctx, text);
}

// jet_date_add(date, days): Jet's `date + n`, a fraction of a day included.
void dateAdd(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    guarded(ctx, [&] {
        Moment m = momentOf(argv[0]);
        const double days = number(argv[1]);
        if (!std::isfinite(days) || std::fabs(days) > 4.0e6)
            vb::Raise(RuntimeError::Overflow);
        m.addMs(std::llround(days * double(kMsPerDay)));
        setMoment(ctx, m);
    });
}

QByteArray intervalOf(sqlite3_value* v)
{
    return QByteArray(reinterpret_cast<const char*>(sqlite3_value_text(v)), sqlite3_value_bytes(v)).toLower();
}

// jet_dateadd(interval, n, date): DateAdd. n is rounded to a whole number; a
// month or a year later keeps the day, or takes the month's last one.
void dateAddInterval(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    guarded(ctx, [&] {
        const QByteArray interval = intervalOf(argv[0]);
        const qint64 n = vb::CLng(QVariant(number(argv[1])));
        Moment m = momentOf(argv[2]);
        if (interval == "d" || interval == "y" || interval == "w")
            m.date = m.date.addDays(n);
        else if (interval == "ww")
            m.date = m.date.addDays(7 * n);
        else if (interval == "m")
            m.date = m.date.addMonths(int(n));
        else if (interval == "q")
            m.date = m.date.addMonths(int(3 * n));
        else if (interval == "yyyy")
            m.date = m.date.addYears(int(n));
        else
            vb::Raise(RuntimeError::InvalidProcedureCall);
        setMoment(ctx, m);
    });
}

// jet_datediff(interval, a, b): DateDiff, the boundaries of the interval
// crossed from a to b. Days count midnights, weeks ("ww") Sundays, months,
// quarters and years their starts; "w" is whole weeks of days.
void dateDiff(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    guarded(ctx, [&] {
        const QByteArray interval = intervalOf(argv[0]);
        const QDate a = momentOf(argv[1]).date, b = momentOf(argv[2]).date;
        const qint64 days = a.daysTo(b);
        qint64 r;
        if (interval == "d" || interval == "y") {
            r = days;
        } else if (interval == "w") {
            r = days / 7;
        } else if (interval == "ww") {
            auto sunday = [](const QDate& d) { return d.addDays(-(d.dayOfWeek() % 7)); };
            r = sunday(a).daysTo(sunday(b)) / 7;
        } else if (interval == "m") {
            r = qint64(b.year() - a.year()) * 12 + (b.month() - a.month());
        } else if (interval == "q") {
            r = qint64(b.year() - a.year()) * 4 + ((b.month() - 1) / 3 - (a.month() - 1) / 3);
        } else if (interval == "yyyy") {
            r = b.year() - a.year();
        } else {
            vb::Raise(RuntimeError::InvalidProcedureCall);
        }
        sqlite3_result_int64(ctx, r);
    });
}

} // namespace

void registerDateFunctions(sqlite3* db)
{
    registerScalars(db,
                    {{"jet_date_add", 2, dateAdd}, {"jet_dateadd", 3, dateAddInterval}, {"jet_datediff", 3, dateDiff}});
}

} // namespace db::detail

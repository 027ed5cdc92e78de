#pragma once
// Conversions and formats of the classic BASIC runtime under the Spanish locale:
// decimal comma, point as thousands separator, Spanish day and month names.
//
// Values travel as QVariant; an invalid QVariant is Null. A Float QVariant is a
// Single and a Double QVariant is a Double, which matters for CStr and Format.
// Failures throw RuntimeError with the runtime's own number and Spanish text.
#include "vb/RuntimeError.h"

#include <QDate>
#include <QString>
#include <QVariant>

#include <concepts>

namespace vb {

// Spanish text of a run-time error number, as the runtime shows it.
QString ErrorText(int number);
// Throws RuntimeError(number, ErrorText(number)).
[[noreturn]] void Raise(int number);
// a / b as the runtime divides: a number over zero raises "División por
// cero" (11), zero over zero an overflow (6).
double Divide(double a, double b);

inline bool IsNull(const QVariant& v)
{
    return !v.isValid();
}

// Numbers, Booleans and text that reads as a number in the Spanish locale:
// "12,5" and "12.5" (= 125) are numeric, "1,2,3", "" and Null are not.
bool IsNumeric(const QVariant& v);

double CDbl(const QVariant& v);
float CSng(const QVariant& v);
// The integer conversions round half to even and raise an overflow out of range.
qint16 CInt(const QVariant& v);
qint32 CLng(const QVariant& v);
quint8 CByte(const QVariant& v);
// Singles keep 7 significant digits, Doubles 15, both with a decimal comma.
QString CStr(const QVariant& v);

// Numeric patterns ("##0.00") round half away from zero; date patterns
// ("dd/MM/yyyy", "HH:mm", "dddd") are case-insensitive like the runtime's.
QString Format(const QVariant& v, const QString& fmt = QString());

// Half to even on the decimal digits of x as written (its shortest round-trip
// text), so that 8.125 is a tie: Round(8.125, 2) = 8.12, Round(8.135, 2) = 8.14.
double Round(double x, int digits = 0);
float Round(float x, int digits = 0);
template <std::integral T>
double Round(T x, int digits = 0)
{
    return Round(static_cast<double>(x), digits);
}

// Date and time values, and text as "dd/MM/yyyy", "yyyy-MM-dd", "HH:mm[:ss]"
// or a date followed by a time.
bool IsDate(const QVariant& v);
// QDate for a date text, QTime for a time text, QDateTime for both.
QVariant CDate(const QVariant& v);

int Weekday(const QDate& d); // Monday = 1 ... Sunday = 7
QString WeekdayName(const QDate& d);
QString MonthName(int month);
QString UCase(const QVariant& v);

} // namespace vb

#include "vb/Vb.h"

#include "vb/Values.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTime>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vb {
namespace {

// ---- What a QVariant holds, in the runtime's terms

enum class Kind { Null, Bool, Integer, Single, Double, Text, Date, Time, DateTime, Other };

Kind kindOf(const QVariant& v)
{
    if (!v.isValid())
        return Kind::Null;
    switch (v.typeId()) {
    case QMetaType::Bool:
        return Kind::Bool;
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return Kind::Integer;
    case QMetaType::Float:
        return Kind::Single;
    case QMetaType::Double:
        return Kind::Double;
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QChar:
        return Kind::Text;
    case QMetaType::QDate:
        return Kind::Date;
    case QMetaType::QTime:
        return Kind::Time;
    case QMetaType::QDateTime:
        return Kind::DateTime;
    default:
        return Kind::Other;
    }
}

bool isDateKind(Kind k)
{
    return k == Kind::Date || k == Kind::Time || k == Kind::DateTime;
}

// ---- Dates as the runtime counts them: days since 30/12/1899, the time as the fraction

// Date and time kept apart rather than in a QDateTime, so no time zone rule can
// shift or reject a wall-clock time.
struct Moment {
    QDate date;
    QTime time;
};

const QDate kZeroDate(1899, 12, 30);

Moment momentOfValue(const QVariant& v)
{
    switch (kindOf(v)) {
    case Kind::Date:
        return {v.toDate(), QTime(0, 0)};
    case Kind::Time:
        return {kZeroDate, v.toTime()};
    default: {
        const QDateTime dt = v.toDateTime();
        return {dt.date(), dt.time()};
    }
    }
}

double serialOf(const Moment& m)
{
    const auto days = static_cast<double>(kZeroDate.daysTo(m.date));
    const double fraction = m.time.msecsSinceStartOfDay() / 86400000.0;
    // Before the zero date the fraction still counts forward: -1,25 is 29/12/1899 06:00.
    return days < 0 ? days - fraction : days + fraction;
}

Moment momentOfSerial(double serial)
{
    // The runtime's calendar runs from 01/01/0100 to 31/12/9999.
    if (!(serial > -657435.0 && serial < 2958466.0))
        Raise(RuntimeError::Overflow);
    auto days = static_cast<qint64>(std::trunc(serial));
    auto seconds = qRound(std::abs(serial - static_cast<double>(days)) * 86400.0);
    if (seconds >= 86400) {
        days += serial < 0 ? -1 : 1;
        seconds = 0;
    }
    return {kZeroDate.addDays(days), QTime(0, 0).addSecs(seconds)};
}

// ---- Text of dates and times

QDate validDate(int year, int month, int day)
{
    const QDate date(year, month, day);
    return date.isValid() && year >= 100 ? date : QDate();
}

QDate dateFromText(const QString& s)
{
    static const QRegularExpression dayFirst(QStringLiteral(R"(^(\d{1,2})([/-])(\d{1,2})\2(\d{4})$)"));
    static const QRegularExpression yearFirst(QStringLiteral(R"(^(\d{4})([/-])(\d{1,2})\2(\d{1,2})$)"));
    if (const auto m = dayFirst.match(s); m.hasMatch())
        return validDate(m.captured(4).toInt(), m.captured(3).toInt(), m.captured(1).toInt());
    if (const auto m = yearFirst.match(s); m.hasMatch())
        return validDate(m.captured(1).toInt(), m.captured(3).toInt(), m.captured(4).toInt());
    return {};
}

QTime timeFromText(const QString& s)
{
    static const QRegularExpression clock(QStringLiteral(R"(^(\d{1,2}):(\d{2})(?::(\d{2}))?$)"));
    const auto m = clock.match(s);
    if (!m.hasMatch())
        return {};
    return QTime(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
}

// QDate, QTime or QDateTime for a text the runtime reads as a date; Null otherwise.
QVariant dateTimeFromText(const QString& text)
{
    const QString s = text.trimmed();
    if (const QDate d = dateFromText(s); d.isValid())
        return d;
    if (const QTime t = timeFromText(s); t.isValid())
        return t;
    static const QRegularExpression both(QStringLiteral(R"(^(\S+?)(?:\s+|T)(\S+)$)"));
    if (const auto m = both.match(s); m.hasMatch()) {
        const QDate d = dateFromText(m.captured(1));
        const QTime t = timeFromText(m.captured(2));
        if (d.isValid() && t.isValid())
            return QDateTime(d, t);
    }
    return {};
}

// ---- Text of numbers

bool isAsciiDigit(const QString& s, qsizetype i)
{
    return i >= 0 && i < s.size() && s[i] >= u'0' && s[i] <= u'9';
}

// A number in the Spanish locale rewritten as plain ASCII ("1.234,5" -> "1234.5"),
// or nothing when the text is not a number. The point only groups thousands and
// so must stand between two digits of the integer part.
std::optional<std::string> numberText(const QString& text)
{
    const QString s = text.trimmed();
    std::string out;
    qsizetype i = 0;
    int mantissaDigits = 0;
    const auto take = [&] { out += static_cast<char>(s[i++].unicode()); };
    if (i < s.size() && (s[i] == u'-' || s[i] == u'+')) {
        if (s[i] == u'-')
            out += '-';
        ++i;
    }
    const auto isGroupPoint = [&] { return s[i] == u'.' && isAsciiDigit(s, i - 1) && isAsciiDigit(s, i + 1); };
    for (; i < s.size() && (isAsciiDigit(s, i) || isGroupPoint()); ++mantissaDigits) {
        if (s[i] == u'.')
            ++i;
        take();
    }
    if (i < s.size() && s[i] == u',') {
        out += '.';
        ++i;
        for (; isAsciiDigit(s, i); ++mantissaDigits)
            take();
    }
    if (mantissaDigits == 0)
        return std::nullopt;
    if (i < s.size() && (s[i] == u'e' || s[i] == u'E')) {
        out += 'e';
        ++i;
        if (i < s.size() && (s[i] == u'-' || s[i] == u'+'))
            take();
        if (!isAsciiDigit(s, i))
            return std::nullopt;
        while (isAsciiDigit(s, i))
            take();
    }
    if (i != s.size())
        return std::nullopt;
    return out;
}

template <typename T>
T parseBinary(const std::string& text)
{
    T value{};
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec == std::errc::result_out_of_range)
        Raise(RuntimeError::Overflow);
    return value;
}

std::string numberTextOf(const QVariant& v)
{
    const auto text = numberText(v.toString());
    if (!text)
        Raise(RuntimeError::TypeMismatch);
    return *text;
}

// Text of a binary number with at most `precision` significant digits, the way
// the runtime prints it: "0,3333333", "12", "1E+08", "1,5E-05".
template <typename T>
QString significantText(T x, int precision)
{
    if (x == 0)
        return QStringLiteral("0");
    std::array<char, 64> buf{};
    const auto [end, ec] = std::to_chars(buf.data(), buf.data() + buf.size(), x, std::chars_format::general, precision);
    QString text = QString::fromLatin1(buf.data(), end - buf.data());
    return text.replace(u'.', u',').replace(u'e', u'E');
}

// ---- Decimal digits, for rounding on the value as written

// value = 0.digits x 10^pointPos; digits has no leading or trailing zeros and is
// empty for zero.
struct Decimal {
    bool negative = false;
    std::string digits;
    int pointPos = 0;
};

enum class Tie { ToEven, AwayFromZero };

bool isZero(const Decimal& d)
{
    return d.digits.find_first_not_of('0') == std::string::npos;
}

// Reads the text std::to_chars writes: "-8.125", "1e+22", "1.5e-05".
Decimal decimalFromText(std::string_view text)
{
    Decimal d;
    std::string digits;
    int pointPos = 0;
    int exponent = 0;
    bool afterPoint = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '-' && i == 0) {
            d.negative = true;
        } else if (c == '.') {
            afterPoint = true;
        } else if (c == 'e' || c == 'E') {
            const size_t from = i + 1 < text.size() && text[i + 1] == '+' ? i + 2 : i + 1;
            std::from_chars(text.data() + from, text.data() + text.size(), exponent);
            break;
        } else {
            digits += c;
            pointPos += afterPoint ? 0 : 1;
        }
    }
    const size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos)
        return d;
    digits.erase(digits.find_last_not_of('0') + 1);
    d.digits = digits.substr(first);
    d.pointPos = pointPos - static_cast<int>(first) + exponent;
    return d;
}

// The shortest text that reads back as x: 8.125 stays 8.125 and 2.675f stays
// 2.675, though neither is exact in binary.
template <typename T>
Decimal shortestDecimal(T x)
{
    std::array<char, 64> buf{};
    const auto [end, ec] = std::to_chars(buf.data(), buf.data() + buf.size(), x);
    return decimalFromText(std::string_view(buf.data(), end - buf.data()));
}

void incrementLastDigit(Decimal& d)
{
    auto i = static_cast<int>(d.digits.size()) - 1;
    for (; i >= 0 && d.digits[i] == '9'; --i)
        d.digits[i] = '0';
    if (i >= 0) {
        ++d.digits[i];
    } else {
        d.digits.insert(d.digits.begin(), '1');
        ++d.pointPos;
    }
}

Decimal roundDecimal(Decimal d, int decimals, Tie tie)
{
    const int keep = d.pointPos + decimals; // digits that stay
    if (keep >= static_cast<int>(d.digits.size()))
        return d;
    if (keep < 0) // below a tenth of the last place kept: nothing remains
        return Decimal{d.negative, {}, 0};
    const char first = d.digits[keep];
    const bool aboveHalf = d.digits.find_first_not_of('0', keep + 1) != std::string::npos;
    d.digits.resize(keep);
    const bool lastOdd = !d.digits.empty() && (d.digits.back() - '0') % 2 == 1;
    const bool tieUp = tie == Tie::AwayFromZero || lastOdd;
    if (first > '5' || (first == '5' && (aboveHalf || tieUp)))
        incrementLastDigit(d);
    return d;
}

template <typename T>
T binaryOf(const Decimal& d)
{
    if (isZero(d))
        return T(0);
    std::string text = d.negative ? "-" : "";
    text += d.digits + 'e' + std::to_string(d.pointPos - static_cast<int>(d.digits.size()));
    return parseBinary<T>(text);
}

char digitAt(const Decimal& d, int index)
{
    return index >= 0 && index < static_cast<int>(d.digits.size()) ? d.digits[index] : '0';
}

QString integerDigits(const Decimal& d)
{
    QString out;
    for (int i = 0; i < d.pointPos; ++i)
        out += QLatin1Char(digitAt(d, i));
    return out;
}

QString fractionDigits(const Decimal& d, int count)
{
    QString out;
    for (int i = 0; i < count; ++i)
        out += QLatin1Char(digitAt(d, d.pointPos + i));
    return out;
}

template <typename T>
T roundAsWritten(T x, int digits)
{
    if (digits < 0)
        Raise(RuntimeError::InvalidProcedureCall);
    if (!std::isfinite(x))
        return x;
    return binaryOf<T>(roundDecimal(shortestDecimal(x), digits, Tie::ToEven));
}

double roundHalfEven(double x)
{
    const double r = std::round(x); // ties away from zero
    return std::abs(r - x) == 0.5 ? 2.0 * std::round(x / 2.0) : r;
}

template <typename T>
T toInteger(const QVariant& v)
{
    const double r = roundHalfEven(CDbl(v));
    if (!(r >= std::numeric_limits<T>::min() && r <= std::numeric_limits<T>::max()))
        Raise(RuntimeError::Overflow);
    return static_cast<T>(r);
}

// ---- Format with numeric patterns: "#" and "0" placeholders, "." and ","

struct NumberPattern {
    QString prefix;
    QString suffix;
    int minInteger = 0;
    int minDecimals = 0;
    int maxDecimals = 0;
    bool point = false;
    bool grouping = false;
};

NumberPattern parseNumberPattern(const QString& fmt)
{
    NumberPattern p;
    const auto isPlaceholder = [](QChar c) { return c == u'#' || c == u'0'; };
    qsizetype i = 0;
    while (i < fmt.size() && !isPlaceholder(fmt[i]) && fmt[i] != u'.')
        p.prefix += fmt[i++];
    for (; i < fmt.size() && (isPlaceholder(fmt[i]) || fmt[i] == u'.' || fmt[i] == u','); ++i) {
        const QChar c = fmt[i];
        if (c == u'.') {
            p.point = true;
        } else if (!p.point) {
            p.minInteger += c == u'0' ? 1 : 0;
            p.grouping = p.grouping || c == u',';
        } else if (isPlaceholder(c)) {
            p.maxDecimals += 1;
            p.minDecimals += c == u'0' ? 1 : 0;
        }
    }
    p.suffix = fmt.mid(i);
    return p;
}

QString groupThousands(QString digits)
{
    for (qsizetype k = digits.size() - 3; k > 0; k -= 3)
        digits.insert(k, u'.');
    return digits;
}

QString formatDecimal(const Decimal& value, const NumberPattern& p)
{
    const Decimal r = roundDecimal(value, p.maxDecimals, Tie::AwayFromZero);
    QString integer = integerDigits(r);
    if (integer.size() < p.minInteger)
        integer.prepend(QString(p.minInteger - integer.size(), u'0'));
    if (p.grouping)
        integer = groupThousands(integer);
    QString fraction = fractionDigits(r, p.maxDecimals);
    while (fraction.size() > p.minDecimals && fraction.endsWith(u'0'))
        fraction.chop(1);
    // No "-0,00": a value that rounds to zero loses its sign.
    QString text = (r.negative && !isZero(r) ? QStringLiteral("-") : QString()) + p.prefix + integer;
    // Like the runtime, the comma stays even when "#" decimals leave nothing after it.
    if (p.point)
        text += u',' + fraction;
    return text + p.suffix;
}

QString formatNumber(const QVariant& v, Kind k, const QString& fmt)
{
    if (k == Kind::Text && !IsNumeric(v))
        return v.toString(); // the runtime shows such text as it is
    // A Single is rounded on its own shortest digits, not on those of its Double.
    const Decimal value = k == Kind::Single ? shortestDecimal(v.toFloat()) : shortestDecimal(CDbl(v));
    return formatDecimal(value, parseNumberPattern(fmt));
}

// ---- Format with date patterns: runs of d, m, y, h, n, s in any case

struct Token {
    QChar letter; // null for literal text
    int count = 0;
    QString literal;
};

std::vector<Token> tokenize(const QString& fmt)
{
    std::vector<Token> tokens;
    for (qsizetype i = 0; i < fmt.size();) {
        const QChar c = fmt[i].toLower();
        if (QStringView(u"dmyhns").contains(c)) {
            qsizetype j = i;
            while (j < fmt.size() && fmt[j].toLower() == c)
                ++j;
            tokens.push_back({c, static_cast<int>(j - i), {}});
            i = j;
        } else if (c == u'"') {
            qsizetype close = fmt.indexOf(u'"', i + 1);
            close = close < 0 ? fmt.size() : close;
            tokens.push_back({{}, 0, fmt.mid(i + 1, close - i - 1)});
            i = close + 1;
        } else if (c == u'\\' && i + 1 < fmt.size()) {
            tokens.push_back({{}, 0, fmt.mid(i + 1, 1)});
            i += 2;
        } else {
            tokens.push_back({{}, 0, fmt.mid(i, 1)});
            ++i;
        }
    }
    return tokens;
}

bool hasDateTokens(const std::vector<Token>& tokens)
{
    return std::any_of(tokens.begin(), tokens.end(), [](const Token& t) { return !t.letter.isNull(); });
}

// "m" is the minute right after an hour or right before seconds, the month otherwise.
bool isMinute(const std::vector<Token>& tokens, size_t at)
{
    for (size_t i = at; i-- > 0;)
        if (!tokens[i].letter.isNull()) {
            if (tokens[i].letter == u'h')
                return true;
            break;
        }
    for (size_t i = at + 1; i < tokens.size(); ++i)
        if (!tokens[i].letter.isNull())
            return tokens[i].letter == u's';
    return false;
}

QString twoDigits(int n)
{
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}

QString oneOrTwo(int n, int count)
{
    return count == 1 ? QString::number(n) : twoDigits(n);
}

QString renderDay(const QDate& d, int count)
{
    switch (count) {
    case 1:
    case 2:
        return oneOrTwo(d.day(), count);
    case 3:
        return WeekdayName(d).left(3);
    case 4:
        return WeekdayName(d);
    default:
        return d.toString(QStringLiteral("dd/MM/yyyy"));
    }
}

QString renderMonth(const QDate& d, int count)
{
    if (count <= 2)
        return oneOrTwo(d.month(), count);
    return count == 3 ? MonthName(d.month()).left(3) : MonthName(d.month());
}

QString renderYear(const QDate& d, int count)
{
    if (count == 1)
        return QString::number(d.dayOfYear());
    return count == 2 ? twoDigits(d.year() % 100) : QString::number(d.year());
}

QString renderToken(const Token& t, const Moment& m, bool minute)
{
    switch (t.letter.unicode()) {
    case u'd':
        return renderDay(m.date, t.count);
    case u'm':
        return minute ? oneOrTwo(m.time.minute(), t.count) : renderMonth(m.date, t.count);
    case u'y':
        return renderYear(m.date, t.count);
    case u'h':
        return oneOrTwo(m.time.hour(), t.count);
    case u'n':
        return oneOrTwo(m.time.minute(), t.count);
    case u's':
        return oneOrTwo(m.time.second(), t.count);
    default:
        return t.literal;
    }
}

std::optional<Moment> momentForFormat(const QVariant& v, Kind k)
{
    if (isDateKind(k))
        return momentOfValue(v);
    if (k == Kind::Text) {
        const QVariant parsed = dateTimeFromText(v.toString());
        if (parsed.isValid())
            return momentOfValue(parsed);
        if (!IsNumeric(v))
            return std::nullopt;
    }
    return momentOfSerial(CDbl(v));
}

QString formatDate(const QVariant& v, Kind k, const std::vector<Token>& tokens)
{
    const auto moment = momentForFormat(v, k);
    if (!moment)
        return v.toString(); // text that is no date is shown as it is
    QString out;
    for (size_t i = 0; i < tokens.size(); ++i)
        out += renderToken(tokens[i], *moment, tokens[i].letter == u'm' && isMinute(tokens, i));
    return out;
}

} // namespace

// ---- Errors

QString ErrorText(int number)
{
    switch (number) {
    case RuntimeError::InvalidProcedureCall:
        return QStringLiteral("Llamada a procedimiento o argumento no válidos");
    case RuntimeError::Overflow:
        return QStringLiteral("Desbordamiento");
    case RuntimeError::DivisionByZero:
        return QStringLiteral("División por cero");
    case RuntimeError::TypeMismatch:
        return QStringLiteral("No coinciden los tipos");
    case RuntimeError::InvalidUseOfNull:
        return QStringLiteral("Uso no válido de Null");
    default:
        return QStringLiteral("Error %1").arg(number);
    }
}

void Raise(int number)
{
    throw RuntimeError(number, ErrorText(number));
}

double Divide(double a, double b)
{
    if (b == 0)
        Raise(a == 0 ? RuntimeError::Overflow : RuntimeError::DivisionByZero);
    return a / b;
}

// ---- Numbers

bool holdsNumber(const QVariant& v, bool countBoolean)
{
    switch (v.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    case QMetaType::Bool:
        return countBoolean;
    default:
        return false;
    }
}

bool IsNumeric(const QVariant& v)
{
    switch (kindOf(v)) {
    case Kind::Bool:
    case Kind::Integer:
    case Kind::Single:
    case Kind::Double:
        return true;
    case Kind::Text:
        return numberText(v.toString()).has_value();
    default:
        return false;
    }
}

double CDbl(const QVariant& v)
{
    const Kind k = kindOf(v);
    switch (k) {
    case Kind::Null:
        Raise(RuntimeError::InvalidUseOfNull);
    case Kind::Bool:
        return v.toBool() ? -1.0 : 0.0;
    case Kind::Integer:
    case Kind::Single:
    case Kind::Double:
        return v.toDouble();
    case Kind::Text:
        return parseBinary<double>(numberTextOf(v));
    default:
        if (isDateKind(k))
            return serialOf(momentOfValue(v));
        Raise(RuntimeError::TypeMismatch);
    }
}

float CSng(const QVariant& v)
{
    switch (kindOf(v)) {
    case Kind::Single:
        return v.toFloat();
    case Kind::Text: // straight to single precision: "7,3" is the Single nearest to 7,3
        return parseBinary<float>(numberTextOf(v));
    default: {
        const double d = CDbl(v);
        if (std::abs(d) > std::numeric_limits<float>::max())
            Raise(RuntimeError::Overflow);
        return static_cast<float>(d);
    }
    }
}

qint16 CInt(const QVariant& v)
{
    return toInteger<qint16>(v);
}
qint32 CLng(const QVariant& v)
{
    return toInteger<qint32>(v);
}
quint8 CByte(const QVariant& v)
{
    return toInteger<quint8>(v);
}

QString CStr(const QVariant& v)
{
    switch (kindOf(v)) {
    case Kind::Null:
        Raise(RuntimeError::InvalidUseOfNull);
    case Kind::Bool:
        return v.toBool() ? QStringLiteral("Verdadero") : QStringLiteral("Falso");
    case Kind::Integer:
        return v.typeId() == QMetaType::ULongLong ? QString::number(v.toULongLong()) : QString::number(v.toLongLong());
    case Kind::Single:
        return significantText(v.toFloat(), 7);
    case Kind::Double:
        return significantText(v.toDouble(), 15);
    case Kind::Text:
        return v.toString();
    case Kind::Date:
        return v.toDate().toString(QStringLiteral("dd/MM/yyyy"));
    case Kind::Time:
        return v.toTime().toString(QStringLiteral("HH:mm:ss"));
    case Kind::DateTime: {
        const Moment m = momentOfValue(v);
        const QString date = m.date.toString(QStringLiteral("dd/MM/yyyy"));
        return m.time == QTime(0, 0) ? date : date + u' ' + m.time.toString(QStringLiteral("HH:mm:ss"));
    }
    default:
        Raise(RuntimeError::TypeMismatch);
    }
}

QString Format(const QVariant& v, const QString& fmt)
{
    const Kind k = kindOf(v);
    if (k == Kind::Null || (k == Kind::Text && v.toString().isEmpty()))
        return {};
    if (fmt.isEmpty())
        return CStr(v);
    const std::vector<Token> tokens = tokenize(fmt);
    return hasDateTokens(tokens) ? formatDate(v, k, tokens) : formatNumber(v, k, fmt);
}

double Round(double x, int digits)
{
    return roundAsWritten(x, digits);
}
float Round(float x, int digits)
{
    return roundAsWritten(x, digits);
}

// ---- Dates

bool IsDate(const QVariant& v)
{
    switch (kindOf(v)) {
    case Kind::Date:
        return v.toDate().isValid();
    case Kind::Time:
        return v.toTime().isValid();
    case Kind::DateTime:
        return v.toDateTime().isValid();
    case Kind::Text:
        return dateTimeFromText(v.toString()).isValid();
    default:
        return false;
    }
}

QVariant CDate(const QVariant& v)
{
    const Kind k = kindOf(v);
    if (k == Kind::Null)
        Raise(RuntimeError::InvalidUseOfNull);
    if (isDateKind(k) && IsDate(v))
        return v;
    if (k == Kind::Text) {
        QVariant parsed = dateTimeFromText(v.toString());
        if (!parsed.isValid())
            Raise(RuntimeError::TypeMismatch);
        return parsed;
    }
    if (k == Kind::Integer || k == Kind::Single || k == Kind::Double) {
        const Moment m = momentOfSerial(CDbl(v));
        return m.time == QTime(0, 0) ? QVariant(m.date) : QVariant(QDateTime(m.date, m.time));
    }
    Raise(RuntimeError::TypeMismatch);
}

int Weekday(const QDate& d)
{
    if (!d.isValid())
        Raise(RuntimeError::InvalidProcedureCall);
    return d.dayOfWeek();
}

QString WeekdayName(const QDate& d)
{
    static const std::array<QString, 7> names = {
        QStringLiteral("lunes"),   QStringLiteral("martes"), QStringLiteral("miércoles"), QStringLiteral("jueves"),
        QStringLiteral("viernes"), QStringLiteral("sábado"), QStringLiteral("domingo")};
    return names[Weekday(d) - 1];
}

QString MonthName(int month)
{
    static const std::array<QString, 12> names = {
        QStringLiteral("enero"),   QStringLiteral("febrero"),   QStringLiteral("marzo"),
        QStringLiteral("abril"),   QStringLiteral("mayo"),      QStringLiteral("junio"),
        QStringLiteral("julio"),   QStringLiteral("agosto"),    QStringLiteral("septiembre"),
        QStringLiteral("octubre"), QStringLiteral("noviembre"), QStringLiteral("diciembre")};
    if (month < 1 || month > 12)
        Raise(RuntimeError::InvalidProcedureCall);
    return names[month - 1];
}

QString UCase(const QVariant& v)
{
    return IsNull(v) ? QString() : CStr(v).toUpper();
}

} // namespace vb

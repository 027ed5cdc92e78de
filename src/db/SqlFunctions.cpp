#include "db/SqlFunctions.h"

#include "db/JetSql.h"
#include "db/SqlFunctionsInternal.h"
#include "db/SqlValue.h"
#include "vb/Clock.h"
#include "vb/RuntimeError.h"
#include "vb/Vb.h"

#include <QCollator>
#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QTime>
#include <QVarLengthArray>
#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace db {
namespace {
int gFunctionError = 0;
} // namespace

namespace detail {

void fail(sqlite3_context* ctx, int number, const QString& text)
{
    gFunctionError = number;
    const QByteArray utf8 = text.toUtf8();
    sqlite3_result_error(ctx, utf8.constData(), utf8.size());
}

bool anyNull(int argc, sqlite3_value** argv)
{
    for (int i = 0; i < argc; ++i)
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL)
            return true;
    return false;
}

double number(sqlite3_value* v)
{
    if (sqlite3_value_type(v) == SQLITE_TEXT)
        return vb::CDbl(argumentValue(v));
    return sqlite3_value_double(v);
}

} // namespace detail

using namespace detail;

namespace {

QVariant arg(sqlite3_value** argv, int i)
{
    return argumentValue(argv[i]);
}

// The text of a value in a text join: numbers with the decimal comma, dates as
// the short date.
QString joinText(const QVariant& v)
{
    switch (v.typeId()) {
    case QMetaType::QString: {
        const QVariant d = dateFromIso(v);
        return d.typeId() == QMetaType::QString ? v.toString() : vb::CStr(d);
    }
    default:
        return vb::CStr(v);
    }
}

// Texts and Nulls alone are joined as they are stored, byte by byte.
bool concatTexts(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    for (int i = 0; i < argc; ++i) {
        const int type = sqlite3_value_type(argv[i]);
        if (type != SQLITE_TEXT && type != SQLITE_NULL)
            return false;
    }
    QVarLengthArray<char, 256> out;
    bool any = false;
    for (int i = 0; i < argc; ++i) {
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL)
            continue;
        any = true;
        // As a blob the text is read where it lies, with no terminator added.
        const char* text = static_cast<const char*>(sqlite3_value_blob(argv[i]));
        out.append(text, sqlite3_value_bytes(argv[i]));
    }
    if (any)
        sqlite3_result_text(ctx, out.constData(), int(out.size()), SQLITE_TRANSIENT);
    else
        sqlite3_result_null(ctx);
    return true;
}

// a & b & ...: a Null operand counts as "", all Null gives Null.
void jetConcat(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (concatTexts(ctx, argc, argv))
        return;
    guarded(ctx, [&] {
        QString out;
        bool any = false;
        for (int i = 0; i < argc; ++i) {
            if (sqlite3_value_type(argv[i]) == SQLITE_NULL)
                continue;
            any = true;
            if (sqlite3_value_type(argv[i]) == SQLITE_TEXT)
                out += QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(argv[i])),
                                         sqlite3_value_bytes(argv[i]));
            else
                out += joinText(arg(argv, i));
        }
        if (!any)
            sqlite3_result_null(ctx);
        else
            setResult(ctx, out);
    });
}

// a / b: always floating point; a zero divisor is a run-time error.
void jetDiv(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    guarded(ctx, [&] {
        const double b = number(argv[1]);
        if (b == 0.0)
            throw RuntimeError(RuntimeError::DivisionByZero, QStringLiteral("División por cero"));
        sqlite3_result_double(ctx, number(argv[0]) / b);
    });
}

// a \ b and a MOD b work on the operands rounded to whole numbers.
template <qint64 (*Op)(qint64, qint64)>
void wholeDivision(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    guarded(ctx, [&] {
        const qint64 a = vb::CLng(arg(argv, 0)), b = vb::CLng(arg(argv, 1));
        if (b == 0)
            throw RuntimeError(RuntimeError::DivisionByZero, QStringLiteral("División por cero"));
        sqlite3_result_int64(ctx, Op(a, b));
    });
}

qint64 quotient(qint64 a, qint64 b)
{
    return a / b;
}
qint64 remainder(qint64 a, qint64 b)
{
    return a % b;
}

void jetPow(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    guarded(ctx, [&] { sqlite3_result_double(ctx, std::pow(number(argv[0]), number(argv[1]))); });
}

bool isIsoDate(const char* s, int n)
{
    if (n != 10 || s[4] != '-' || s[7] != '-')
        return false;
    for (int i : {0, 1, 2, 3, 5, 6, 8, 9})
        if (s[i] < '0' || s[i] > '9')
            return false;
    return true;
}

// The two formats every list uses, straight from the stored ISO text.
bool quickFormat(sqlite3_context* ctx, sqlite3_value* value, sqlite3_value* format)
{
    if (sqlite3_value_type(value) != SQLITE_TEXT || sqlite3_value_type(format) != SQLITE_TEXT)
        return false;
    const char* s = static_cast<const char*>(sqlite3_value_blob(value)); // no terminator needed
    const int n = sqlite3_value_bytes(value);
    const char* f = reinterpret_cast<const char*>(sqlite3_value_text(format));
    if (std::strcmp(f, "dd/MM/yyyy") == 0 && (isIsoDate(s, n) || (n == 19 && isIsoDate(s, 10)))) {
        const char out[10] = {s[8], s[9], '/', s[5], s[6], '/', s[0], s[1], s[2], s[3]};
        sqlite3_result_text(ctx, out, 10, SQLITE_TRANSIENT);
        return true;
    }
    if (std::strcmp(f, "HH:mm") == 0 && (n == 5 || n == 8) && s[2] == ':') {
        sqlite3_result_text(ctx, s, 5, SQLITE_TRANSIENT);
        return true;
    }
    return false;
}

// FORMAT(value, format): dates stored as ISO text are dates here.
void jetFormat(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL)
        return sqlite3_result_null(ctx);
    if (argc > 1 && quickFormat(ctx, argv[0], argv[1]))
        return;
    guarded(ctx, [&] {
        const QString format = argc > 1 ? arg(argv, 1).toString() : QString();
        setResult(ctx, vb::Format(dateFromIso(arg(argv, 0)), format));
    });
}

// STR(value): a date reads dd/MM/yyyy HH:mm; a number as Str() writes it,
// with a leading blank for the sign and a decimal point.
void jetStr(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL)
        return sqlite3_result_null(ctx);
    guarded(ctx, [&] {
        const QVariant v = dateFromIso(arg(argv, 0));
        switch (v.typeId()) {
        case QMetaType::QDateTime:
            setResult(ctx, v.toDateTime().toString(QStringLiteral("dd/MM/yyyy HH:mm")));
            return;
        case QMetaType::QDate:
            setResult(ctx, v.toDate().toString(QStringLiteral("dd/MM/yyyy")));
            return;
        case QMetaType::QTime:
            setResult(ctx, v.toTime().toString(QStringLiteral("HH:mm")));
            return;
        case QMetaType::QString:
            setResult(ctx, v);
            return;
        default: {
            QString s = vb::CStr(v).replace(u',', u'.');
            if (!s.startsWith(u'-'))
                s.prepend(u' ');
            setResult(ctx, s);
        }
        }
    });
}

// A function of one argument: Null gives Null, anything else goes through F.
template <QVariant (*F)(const QVariant&)>
void unary(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL)
        return sqlite3_result_null(ctx);
    guarded(ctx, [&] { setResult(ctx, F(arg(argv, 0))); });
}

QVariant upperCase(const QVariant& v)
{
    return vb::UCase(v);
}
QVariant lowerCase(const QVariant& v)
{
    return v.toString().toLower();
}
QVariant toText(const QVariant& v)
{
    return vb::CStr(dateFromIso(v));
}
QVariant toInteger(const QVariant& v)
{
    return qint64(vb::CInt(v));
}
QVariant toLong(const QVariant& v)
{
    return qint64(vb::CLng(v));
}
QVariant toDouble(const QVariant& v)
{
    return vb::CDbl(v);
}
QVariant toSingle(const QVariant& v)
{
    return double(vb::CSng(v));
}
// Int(x): the largest whole number not above x.
QVariant wholePart(const QVariant& v)
{
    return std::floor(vb::CDbl(v));
}

void jetRound(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    guarded(ctx, [&] {
        const int digits = argc > 1 ? int(sqlite3_value_int(argv[1])) : 0;
        sqlite3_result_double(ctx, vb::Round(number(argv[0]), digits));
    });
}

// Val(text): the leading number of a text, with a decimal point; 0 when none.
void jetVal(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL)
        return sqlite3_result_null(ctx);
    if (sqlite3_value_type(argv[0]) != SQLITE_TEXT)
        return sqlite3_result_value(ctx, argv[0]);
    const QString s = arg(argv, 0).toString().remove(u' ');
    int end = 0;
    while (end < s.size() && (s[end].isDigit() || s[end] == u'.' || (end == 0 && (s[0] == u'-' || s[0] == u'+'))))
        ++end;
    sqlite3_result_double(ctx, QStringView(s).left(end).toDouble());
}

void jetRight(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL)
        return sqlite3_result_null(ctx);
    const QString s = arg(argv, 0).toString();
    setResult(ctx, s.right(qMax(0, sqlite3_value_int(argv[1]))));
}

void jetNow(sqlite3_context* ctx, int, sqlite3_value**)
{
    setResult(ctx, vb::Clock::now().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
}

void jetDate(sqlite3_context* ctx, int, sqlite3_value**)
{
    setResult(ctx, vb::Clock::today().toString(Qt::ISODate));
}

template <int Part>
QVariant datePart(const QVariant& value)
{
    QVariant v = dateFromIso(value);
    if (v.typeId() == QMetaType::QString)
        v = vb::CDate(v);
    const QDate d = v.typeId() == QMetaType::QDateTime ? v.toDateTime().date() : v.toDate();
    if (!d.isValid())
        throw RuntimeError(RuntimeError::TypeMismatch, QStringLiteral("No coinciden los tipos"));
    return Part == 0 ? d.year() : Part == 1 ? d.month() : d.day();
}

// First and Last: the value of the first (last) row of the group, Null kept.
struct PickState {
    bool seen = false;
    sqlite3_value* value = nullptr;
};

template <bool Last>
void pickStep(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    auto* st = static_cast<PickState*>(sqlite3_aggregate_context(ctx, sizeof(PickState)));
    if (!st)
        return sqlite3_result_error_nomem(ctx);
    if (st->seen && !Last)
        return;
    if (st->value)
        sqlite3_value_free(st->value);
    st->value = sqlite3_value_dup(argv[0]);
    st->seen = true;
}

void pickFinal(sqlite3_context* ctx)
{
    auto* st = static_cast<PickState*>(sqlite3_aggregate_context(ctx, 0));
    if (!st || !st->value)
        return sqlite3_result_null(ctx);
    sqlite3_result_value(ctx, st->value);
    sqlite3_value_free(st->value);
    st->value = nullptr;
}

// ------------------------------------------------------------ LIKE

bool isAscii(const QString& s)
{
    for (QChar c : s)
        if (c.unicode() >= 0x80)
            return false;
    return true;
}

// Lower case without accents: "Álvarez" and "alvarez" fold alike.
QString fold(const QString& s)
{
    if (isAscii(s))
        return s.toLower();
    const QString decomposed = s.normalized(QString::NormalizationForm_D);
    QString out;
    out.reserve(decomposed.size());
    for (QChar c : decomposed)
        if (c.category() != QChar::Mark_NonSpacing)
            out += c;
    return out.toCaseFolded();
}

bool matchFolded(QStringView p, QStringView t, QChar escape)
{
    // Iterative match with backtracking over the last '%'.
    qsizetype pi = 0, ti = 0, starP = -1, starT = 0;
    while (ti < t.size()) {
        if (pi < p.size()) {
            const QChar pc = p[pi];
            if (!escape.isNull() && pc == escape && pi + 1 < p.size()) {
                if (p[pi + 1] == t[ti]) {
                    pi += 2;
                    ++ti;
                    continue;
                }
            } else if (pc == u'%') {
                starP = pi++;
                starT = ti;
                continue;
            } else if (pc == u'_' || pc == t[ti]) {
                ++pi;
                ++ti;
                continue;
            }
        }
        if (starP < 0)
            return false;
        pi = starP + 1;
        ti = ++starT;
    }
    while (pi < p.size() && p[pi] == u'%')
        ++pi;
    return pi == p.size();
}

void likeFunction(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (anyNull(argc, argv))
        return sqlite3_result_null(ctx);
    // The folded pattern is kept with the statement while it runs.
    auto* folded = static_cast<QString*>(sqlite3_get_auxdata(ctx, 0));
    if (!folded) {
        folded = new QString(fold(arg(argv, 0).toString()));
        sqlite3_set_auxdata(ctx, 0, folded, [](void* p) { delete static_cast<QString*>(p); });
        folded = static_cast<QString*>(sqlite3_get_auxdata(ctx, 0));
        if (!folded)
            return sqlite3_result_error_nomem(ctx);
    }
    QChar escape;
    if (argc == 3) {
        const QString e = arg(argv, 2).toString();
        if (e.size() != 1)
            return fail(ctx, RuntimeError::DatabaseError, QStringLiteral("ESCAPE debe ser un solo carácter"));
        escape = fold(e).at(0);
    }
    const QString text = sqlite3_value_type(argv[1]) == SQLITE_TEXT ? arg(argv, 1).toString() : joinText(arg(argv, 1));
    sqlite3_result_int(ctx, matchFolded(*folded, fold(text), escape) ? 1 : 0);
}

// ------------------------------------------------------------ collation

QCollator& spanishCollator()
{
    static QCollator collator = [] {
        QCollator c(QLocale(QLocale::Spanish, QLocale::Spain));
        c.setCaseSensitivity(Qt::CaseInsensitive);
        c.setNumericMode(false);
        return c;
    }();
    return collator;
}

// Texts of digits and the same separators in the same places (ISO dates,
// times) sort by their bytes, which is the collator's order for them too.
bool sameShapeDigits(const char* a, int na, const char* b, int nb)
{
    if (na != nb)
        return false;
    for (int i = 0; i < na; ++i) {
        const char x = a[i], y = b[i];
        const bool dx = x >= '0' && x <= '9', dy = y >= '0' && y <= '9';
        if (dx != dy)
            return false;
        if (!dx && (x != y || !(x == '-' || x == ':' || x == ' ' || x == '/' || x == '.')))
            return false;
    }
    return true;
}

int collateSpanish(void*, int na, const void* pa, int nb, const void* pb)
{
    const char* a = static_cast<const char*>(pa);
    const char* b = static_cast<const char*>(pb);
    if (sameShapeDigits(a, na, b, nb))
        return std::memcmp(a, b, size_t(na));
    return compareSpanish(QString::fromUtf8(a, na), QString::fromUtf8(b, nb));
}

// Grouping: texts equal but for case are one, accents stay apart. The order
// is that of the case-folded texts, so that grouping can sort by it; for
// ASCII, folding is lower-casing and the bytes compare as the UTF-16 units do.
int collateNoCase(void*, int na, const void* pa, int nb, const void* pb)
{
    const auto* a = static_cast<const unsigned char*>(pa);
    const auto* b = static_cast<const unsigned char*>(pb);
    const int n = std::min(na, nb);
    int i = 0;
    for (; i < n; ++i) {
        const unsigned char x = a[i], y = b[i];
        if ((x | y) >= 0x80)
            break;
        const unsigned char lx = x >= 'A' && x <= 'Z' ? x + 32 : x, ly = y >= 'A' && y <= 'Z' ? y + 32 : y;
        if (lx != ly)
            return lx < ly ? -1 : 1;
    }
    if (i == n && i == na && i == nb)
        return 0;
    if (i == n && ((i == na || a[i] < 0x80) && (i == nb || b[i] < 0x80)))
        return na < nb ? -1 : 1; // one ASCII text is the start of the other
    const QString x = QString::fromUtf8(reinterpret_cast<const char*>(a + i), na - i).toCaseFolded();
    const QString y = QString::fromUtf8(reinterpret_cast<const char*>(b + i), nb - i).toCaseFolded();
    const int c = QStringView(x).compare(QStringView(y));
    return c < 0 ? -1 : c > 0 ? 1 : 0;
}

} // namespace

int takeFunctionErrorNumber()
{
    const int n = gFunctionError;
    gFunctionError = 0;
    return n;
}

bool jetLike(const QString& pattern, const QString& text, QChar escape)
{
    return matchFolded(fold(pattern), fold(text), escape.isNull() ? escape : fold(QString(escape)).at(0));
}

int compareSpanish(const QString& a, const QString& b)
{
    const int c = spanishCollator().compare(a, b);
    return c < 0 ? -1 : c > 0 ? 1 : 0;
}

void detail::registerScalars(sqlite3* db, std::initializer_list<Scalar> scalars)
{
    for (const Scalar& s : scalars)
        sqlite3_create_function_v2(db, s.name, s.args, SQLITE_UTF8 | (s.deterministic ? SQLITE_DETERMINISTIC : 0),
                                   nullptr, s.fn, nullptr, nullptr, nullptr);
}

void registerSqlFunctions(sqlite3* db)
{
    registerScalars(db, {
                            {"jet_concat", -1, jetConcat, true},
                            {"jet_div", 2, jetDiv, true},
                            {"jet_idiv", 2, wholeDivision<quotient>, true},
                            {"jet_mod", 2, wholeDivision<remainder>, true},
                            {"jet_pow", 2, jetPow, true},
                            {"jet_format", 2, jetFormat, true},
                            {"jet_format", 1, jetFormat, true},
                            {"jet_str", 1, jetStr, true},
                            {"jet_ucase", 1, unary<upperCase>, true},
                            {"jet_lcase", 1, unary<lowerCase>, true},
                            {"jet_cstr", 1, unary<toText>, true},
                            {"jet_cint", 1, unary<toInteger>, true},
                            {"jet_clng", 1, unary<toLong>, true},
                            {"jet_cdbl", 1, unary<toDouble>, true},
                            {"jet_csng", 1, unary<toSingle>, true},
                            {"jet_int", 1, unary<wholePart>, true},
                            {"jet_round", 1, jetRound, true},
                            {"jet_round", 2, jetRound, true},
                            {"jet_val", 1, jetVal, true},
                            {"jet_right", 2, jetRight, true},
                            {"jet_now", 0, jetNow, false},
                            {"jet_date", 0, jetDate, false},
                            {"jet_year", 1, unary<datePart<0>>, true},
                            {"jet_month", 1, unary<datePart<1>>, true},
                            {"jet_day", 1, unary<datePart<2>>, true},
                            {"like", 2, likeFunction, true},
                            {"like", 3, likeFunction, true},
                        });
    sqlite3_create_function_v2(db, "jet_first", 1, SQLITE_UTF8, nullptr, nullptr, pickStep<false>, pickFinal, nullptr);
    sqlite3_create_function_v2(db, "jet_last", 1, SQLITE_UTF8, nullptr, nullptr, pickStep<true>, pickFinal, nullptr);
    sqlite3_create_collation_v2(db, JetSql::kCollation, SQLITE_UTF8, nullptr, collateSpanish, nullptr);
    sqlite3_create_collation_v2(db, JetSql::kGroupCollation, SQLITE_UTF8, nullptr, collateNoCase, nullptr);
    registerDateFunctions(db);
    registerWriteChecks(db);
}

} // namespace db

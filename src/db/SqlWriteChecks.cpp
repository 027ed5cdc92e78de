// What INSERT and UPDATE write, fitted to the declared type of the target
// column as the engine fitted it. The translator wraps each value written
// (see Parser::fitToColumn); the schema stays plain SQLite, readable and
// writable by any tool.
//   jet_single(x)             a Single column: the nearest single-precision number
//   jet_check_text(x, n)      a text column of n characters: longer fails
//   jet_check_range(x, lo, hi) a Byte, Integer or Long column: outside fails (Overflow)
//   jet_number(x)             a Double column
//   jet_bool(x)               a Yes/No column: a number not zero is True (1)
//   jet_date(x)               a date or time column: ISO text as it is, other dates made ISO
// A text is converted as the engine converts it for the column's type: a
// number written as SQLite reads one ("7.5") or in the locale's form ("7,5"),
// a date in ISO form or the locale's ("25/11/2026"); a text that is no number
// or no date is a type mismatch (13) and the statement writes nothing.
#include "db/SqlFunctionsInternal.h"
#include "db/SqlValue.h"
#include "vb/Vb.h"

#include <QDate>

#include <sqlite3.h>

#include <cfloat>
#include <cmath>
#include <cstring>

namespace db::detail {
namespace {

[[noreturn]] void typeMismatch()
{
    throw RuntimeError(RuntimeError::TypeMismatch, vb::ErrorText(RuntimeError::TypeMismatch));
}

// A value written to a numeric column: Null, or a number.
struct Number {
    bool null = false;
    bool integer = false;
    qint64 i = 0;
    double d = 0;
};

QString textOf(sqlite3_value* v)
{
    return QString::fromUtf8(static_cast<const char*>(sqlite3_value_blob(v)), sqlite3_value_bytes(v));
}

// A number as it is; a text read first as SQLite reads a number (what the
// column's affinity would make of it), then as the conversions read the
// locale's numbers. Anything else is a type mismatch.
Number numberOf(sqlite3_value* v)
{
    Number n;
    int type = sqlite3_value_type(v);
    if (type == SQLITE_TEXT)
        type = sqlite3_value_numeric_type(v);
    switch (type) {
    case SQLITE_NULL:
        n.null = true;
        return n;
    case SQLITE_INTEGER:
        n.integer = true;
        n.i = sqlite3_value_int64(v);
        n.d = double(n.i);
        return n;
    case SQLITE_FLOAT:
        n.d = sqlite3_value_double(v);
        return n;
    case SQLITE_TEXT: {
        const QString text = textOf(v);
        if (!vb::IsNumeric(text))
            typeMismatch();
        n.d = vb::CDbl(text);
        return n;
    }
    default:
        typeMismatch();
    }
}

void resultOf(sqlite3_context* ctx, const Number& n)
{
    if (n.null)
        sqlite3_result_null(ctx);
    else if (n.integer)
        sqlite3_result_int64(ctx, n.i);
    else
        sqlite3_result_double(ctx, n.d);
}

void single(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    guarded(ctx, [&] {
        const Number n = numberOf(argv[0]);
        if (n.null)
            return sqlite3_result_null(ctx);
        const float f = static_cast<float>(n.d);
        if (std::isinf(f))
            return fail(ctx, RuntimeError::Overflow, vb::ErrorText(RuntimeError::Overflow));
        sqlite3_result_double(ctx, static_cast<double>(f));
    });
}

void doubleValue(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    guarded(ctx, [&] { resultOf(ctx, numberOf(argv[0])); });
}

void boolean(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    guarded(ctx, [&] {
        const Number n = numberOf(argv[0]);
        if (n.null)
            return sqlite3_result_null(ctx);
        sqlite3_result_int(ctx, n.d != 0.0 ? 1 : 0);
    });
}

void checkRange(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    guarded(ctx, [&] {
        const Number n = numberOf(argv[0]);
        const qint64 lo = sqlite3_value_int64(argv[1]), hi = sqlite3_value_int64(argv[2]);
        bool inside = true;
        if (n.integer) {
            inside = n.i >= lo && n.i <= hi;
        } else if (!n.null) {
            // The engine stores the whole number nearest, half to even.
            const double v = std::nearbyint(n.d);
            inside = v >= double(lo) && v <= double(hi);
        }
        if (!inside)
            return fail(ctx, RuntimeError::Overflow, vb::ErrorText(RuntimeError::Overflow));
        resultOf(ctx, n);
    });
}

bool digits(const char* p, int count)
{
    for (int k = 0; k < count; ++k)
        if (p[k] < '0' || p[k] > '9')
            return false;
    return true;
}

int twoDigits(const char* p)
{
    return (p[0] - '0') * 10 + (p[1] - '0');
}

// HH:mm, or HH:mm:ss with `seconds`.
bool isoTime(const char* t, bool seconds)
{
    if (!digits(t, 2) || t[2] != ':' || !digits(t + 3, 2) || twoDigits(t) > 23 || twoDigits(t + 3) > 59)
        return false;
    return !seconds || (t[5] == ':' && digits(t + 6, 2) && twoDigits(t + 6) <= 59);
}

// The forms a date column holds: yyyy-MM-dd, yyyy-MM-dd HH:mm:ss, HH:mm and
// HH:mm:ss, each a real date or time.
bool isoDateOrTime(const char* p, int size)
{
    if (size == 5 || size == 8)
        return isoTime(p, size == 8);
    if (size != 10 && size != 19)
        return false;
    if (!digits(p, 4) || p[4] != '-' || !digits(p + 5, 2) || p[7] != '-' || !digits(p + 8, 2))
        return false;
    const QDate d(twoDigits(p) * 100 + twoDigits(p + 2), twoDigits(p + 5), twoDigits(p + 8));
    return d.isValid() && (size == 10 || (p[10] == ' ' && isoTime(p + 11, true)));
}

void date(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    sqlite3_value* v = argv[0];
    switch (sqlite3_value_type(v)) {
    case SQLITE_NULL:
        return sqlite3_result_null(ctx);
    case SQLITE_TEXT:
        if (isoDateOrTime(static_cast<const char*>(sqlite3_value_blob(v)), sqlite3_value_bytes(v)))
            return sqlite3_result_value(ctx, v);
        return guarded(ctx, [&] {
            const QString text = textOf(v);
            if (!vb::IsDate(text))
                typeMismatch();
            setResult(ctx, vb::CDate(text));
        });
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
        // A number is a count of days, as the conversions read it.
        return guarded(ctx, [&] { setResult(ctx, vb::CDate(argumentValue(v))); });
    default:
        return fail(ctx, RuntimeError::TypeMismatch, vb::ErrorText(RuntimeError::TypeMismatch));
    }
}

// The length of the text a value is stored as in a text column.
qsizetype storedLength(sqlite3_value* v)
{
    char buf[64];
    switch (sqlite3_value_type(v)) {
    case SQLITE_TEXT: {
        const char* bytes = static_cast<const char*>(sqlite3_value_blob(v)); // no terminator needed
        return textLength(bytes, sqlite3_value_bytes(v));
    }
    case SQLITE_INTEGER:
        sqlite3_snprintf(sizeof buf, buf, "%lld", sqlite3_value_int64(v));
        return qsizetype(std::strlen(buf));
    case SQLITE_FLOAT:
        sqlite3_snprintf(sizeof buf, buf, "%!.15g", sqlite3_value_double(v));
        return qsizetype(std::strlen(buf));
    default:
        return 0;
    }
}

void checkText(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    const qint64 size = sqlite3_value_int64(argv[1]);
    // A text of no more bytes than characters allowed fits without counting.
    // (Its bytes are asked of a text only: asking them of a number would
    // turn it into text.)
    const bool text = sqlite3_value_type(argv[0]) == SQLITE_TEXT;
    if ((!text || sqlite3_value_bytes(argv[0]) > size) && storedLength(argv[0]) > size)
        return fail(ctx, RuntimeError::DatabaseError,
                    QStringLiteral("El campo es demasiado pequeño para aceptar la cantidad de datos que intentó "
                                   "agregar. Intente insertar o pegar menos datos."));
    sqlite3_result_value(ctx, argv[0]);
}

} // namespace

void registerWriteChecks(sqlite3* db)
{
    registerScalars(db, {{"jet_single", 1, single},
                         {"jet_check_text", 2, checkText},
                         {"jet_check_range", 3, checkRange},
                         {"jet_number", 1, doubleValue},
                         {"jet_bool", 1, boolean},
                         {"jet_date", 1, date}});
}

} // namespace db::detail

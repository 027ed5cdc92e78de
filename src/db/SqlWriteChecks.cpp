// What INSERT and UPDATE write, fitted to the declared type of the target
// column as the engine fitted it. The translator wraps each value written
// (see Parser::fitToColumn); the schema stays plain SQLite, readable and
// writable by any tool.
//   jet_single(x)             a Single column: the nearest single-precision number
//   jet_check_text(x, n)      a text column of n characters: longer fails
//   jet_check_range(x, lo, hi) a Byte, Integer or Long column: outside fails (Overflow)
#include "db/SqlFunctionsInternal.h"
#include "db/SqlValue.h"
#include "vb/Vb.h"

#include <sqlite3.h>

#include <cfloat>
#include <cmath>
#include <cstring>

namespace db::detail {
namespace {

// What the column's affinity would make of a text that reads as a number.
int numericType(sqlite3_value* v)
{
    const int type = sqlite3_value_type(v);
    return type == SQLITE_TEXT ? sqlite3_value_numeric_type(v) : type;
}

void single(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    const int type = numericType(argv[0]);
    if (type != SQLITE_INTEGER && type != SQLITE_FLOAT)
        return sqlite3_result_value(ctx, argv[0]); // Null, or a text the column keeps as it is
    const float f = static_cast<float>(sqlite3_value_double(argv[0]));
    if (std::isinf(f))
        return fail(ctx, RuntimeError::Overflow, vb::ErrorText(RuntimeError::Overflow));
    sqlite3_result_double(ctx, static_cast<double>(f));
}

void checkRange(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    const int type = numericType(argv[0]);
    const qint64 lo = sqlite3_value_int64(argv[1]), hi = sqlite3_value_int64(argv[2]);
    bool inside = true;
    if (type == SQLITE_INTEGER) {
        const qint64 v = sqlite3_value_int64(argv[0]);
        inside = v >= lo && v <= hi;
    } else if (type == SQLITE_FLOAT) {
        // The engine stores the whole number nearest, half to even.
        const double v = std::nearbyint(sqlite3_value_double(argv[0]));
        inside = v >= double(lo) && v <= double(hi);
    }
    if (!inside)
        return fail(ctx, RuntimeError::Overflow, vb::ErrorText(RuntimeError::Overflow));
    sqlite3_result_value(ctx, argv[0]);
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
    registerScalars(db,
                    {{"jet_single", 1, single}, {"jet_check_text", 2, checkText}, {"jet_check_range", 3, checkRange}});
}

} // namespace db::detail

#pragma once
// Internal to the user functions: how a function fails with a run-time
// error, shared by SqlFunctions.cpp (text, numbers, LIKE, collations),
// SqlDateFunctions.cpp (date arithmetic) and SqlWriteChecks.cpp (what is
// written to a column).
#include "vb/RuntimeError.h"

#include <QString>

#include <initializer_list>

struct sqlite3;
struct sqlite3_context;
struct sqlite3_value;

namespace db::detail {

// Ends the function with an error; the statement's failure then carries
// `number` (see takeFunctionErrorNumber).
void fail(sqlite3_context* ctx, int number, const QString& text);

// Runs a function body; a RuntimeError of the conversions becomes the
// statement's error with the same number.
template <typename F>
void guarded(sqlite3_context* ctx, F body)
{
    try {
        body();
    } catch (const RuntimeError& e) {
        fail(ctx, e.Number(), e.Description());
    }
}

bool anyNull(int argc, sqlite3_value** argv);
// A numeric argument; a text is read as the conversions read it.
double number(sqlite3_value* v);

// A scalar function of the dialect, as registered on a connection.
struct Scalar {
    const char* name;
    int args;
    void (*fn)(sqlite3_context*, int, sqlite3_value**);
    bool deterministic = true;
};
void registerScalars(sqlite3* db, std::initializer_list<Scalar> scalars);

void registerDateFunctions(sqlite3* db);
void registerWriteChecks(sqlite3* db);

} // namespace db::detail

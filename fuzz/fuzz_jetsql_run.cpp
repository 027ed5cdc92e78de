// A statement of the dialect translated and run on a sample year, inside a
// transaction that is rolled back, so that every input meets the same rows.
// Queries are read to the end, every value of every row. A RuntimeError is a
// normal answer; SQLite's own work per input is capped (an interruption is
// one more RuntimeError), so a cross join of the sample tables is no hang.
#include "FuzzYear.h"
#include "db/Recordset.h"
#include "vb/RuntimeError.h"

#include <sqlite3.h>

namespace {

int progressCalls = 0;
sqlite3* year = nullptr;

// About two million steps of SQLite per input.
int stopLongStatements(void*)
{
    return ++progressCalls > 2000;
}

// The engine keeps its SQLite handle to itself; an automatic extension sees
// the handle of every connection opened after it is registered.
int watchConnection(sqlite3* db, char**, const sqlite3_api_routines*)
{
    year = db;
    sqlite3_progress_handler(db, 1000, stopLongStatements, nullptr);
    return SQLITE_OK;
}

void run(const db::ConnectionPtr& cn, const QString& statement)
{
    if (cn->Translate(statement).kind == db::Translation::Kind::Command) {
        cn->Execute(statement);
        return;
    }
    db::Recordset rs;
    rs.Open(statement, cn);
    for (; !rs.Eof(); rs.MoveNext())
        for (int i = 0; i < rs.FieldCount(); ++i)
            (void)rs.Value(i).toString();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static db::ConnectionPtr cn = [] {
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(watchConnection));
        return fuzz::openYear(true);
    }();
    const QString statement = fuzz::utf8(data, size);
    progressCalls = 0;
    cn->ExecuteNative(QStringLiteral("BEGIN"));
    try {
        run(cn, statement);
    } catch (const RuntimeError&) {
    }
    progressCalls = 0;
    // A statement of the dialect never ends the transaction itself; if one
    // did, the year would drift from input to input, so stop loudly.
    if (sqlite3_get_autocommit(year))
        __builtin_trap();
    cn->ExecuteNative(QStringLiteral("ROLLBACK"));
    return 0;
}

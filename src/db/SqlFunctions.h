#pragma once
// The user functions and the collations that the translated statements call:
// jet_concat (&), jet_div (/), jet_format, jet_str, jet_first ... and like(),
// which replaces SQLite's own so that LIKE ignores case and accents; the date
// arithmetic (SqlDateFunctions.cpp) and the fitting of written values to
// their columns (SqlWriteChecks.cpp); the collations jet_es (order) and
// jet_nocase (grouping).
#include <QString>

struct sqlite3;

namespace db {

void registerSqlFunctions(sqlite3* handle);

// The run-time error number raised by the last failing user function
// (0 when the failure was SQLite's own); read once, then cleared.
int takeFunctionErrorNumber();

// Case- and accent-insensitive LIKE with the ANSI wildcards % and _.
bool jetLike(const QString& pattern, const QString& text, QChar escape = QChar());

// The database's text order: Spanish alphabet, case-insensitive (<0, 0, >0).
int compareSpanish(const QString& a, const QString& b);

} // namespace db

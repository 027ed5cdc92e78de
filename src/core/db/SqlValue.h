#pragma once
// Conversions between SQLite values and the QVariants the screens use.
// Dates live in the file as ISO text and come back as QDate, QDateTime or
// QTime by the column's declared type; Booleans are 0/1 and come back as bool;
// a Single column comes back as float.
#include <QVariant>

struct sqlite3_stmt;
struct sqlite3_value;
struct sqlite3_context;

namespace db {

enum class ColumnType { Any, Integer, Boolean, Single, Double, Date, Text };

// From a declared type of the schema ("INTEGER", "BOOLEAN", "FLOAT", "DATE", "VARCHAR(50)" ...).
ColumnType columnTypeFromDecl(const char* decl);

// The value of a column of the current row, typed by the column's type.
QVariant columnValue(sqlite3_stmt* stmt, int col, ColumnType type);

// A user function's argument, untyped: integer, double, text or Null.
QVariant argumentValue(sqlite3_value* value);

// ISO text ("yyyy-MM-dd", "yyyy-MM-dd HH:mm:ss", "HH:mm") to a date, date and
// time, or time; anything else stays as it is.
QVariant dateFromIso(const QVariant& v);

// The text or number that a value is stored as.
void bindValue(sqlite3_stmt* stmt, int index, const QVariant& value);
void setResult(sqlite3_context* ctx, const QVariant& value);

} // namespace db

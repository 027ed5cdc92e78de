#pragma once
// Conversions between SQLite values and the QVariants the screens use.
// Dates live in the file as ISO text and come back as QDate, QDateTime or
// QTime by the column's declared type; Booleans are 0/1 and come back as bool;
// a Single column comes back as float.
#include <QString>
#include <QVariant>
#include <QVector>

#include <string>
#include <vector>

struct sqlite3_stmt;
struct sqlite3_value;
struct sqlite3_context;

namespace db {

enum class ColumnType { Any, Integer, Boolean, Single, Double, Date, Text };

// From a declared type of the schema ("INTEGER", "BOOLEAN", "FLOAT", "DATE", "VARCHAR(50)" ...).
ColumnType columnTypeFromDecl(const char* decl);

// What a column's declared type says of the values written to it. FLOAT is
// single precision; TINYINT, SMALLINT and INTEGER are the engine's Byte,
// Integer and Long; VARCHAR(n) holds at most n characters.
struct ColumnDecl {
    QString name;
    ColumnType type = ColumnType::Any;
    int size = 0;   // the longest text; 0: no limit
    qint64 min = 0; // whole numbers: the range; min == max: no limit
    qint64 max = 0;

    bool hasRange() const { return min != max; }
};

ColumnDecl columnDeclFrom(const char* decl);

struct TableDecl {
    QString name;
    QVector<ColumnDecl> columns; // in the order of the table

    // By name, without regard to case; null when missing.
    const ColumnDecl* column(QStringView name) const;
};

// The length of a text as the engine counts it (UTF-16 units), from UTF-8.
qsizetype textLength(const char* utf8, qsizetype bytes);

// The short texts of one column lately read, given back shared instead of
// decoded anew: a list repeats its groups, subjects and dates row after row.
// A slot per text by a hash of its ends; a text that finds its slot taken by
// another is decoded and takes the slot.
class TextCache {
public:
    QVariant text(const char* bytes, int size);

private:
    static constexpr size_t kSlots = 512;
    static constexpr int kMaxBytes = 64;
    struct Slot {
        std::string bytes;
        QVariant value;
    };
    static size_t slotOf(const char* bytes, int size);
    std::vector<Slot> slots_;
    // A column that mostly misses (descriptions, remarks) stops looking.
    int hits_ = 0;
    int misses_ = 0;
};

// The value of a column of the current row, typed by the column's type.
// Texts go through `cache` when one is given.
QVariant columnValue(sqlite3_stmt* stmt, int col, ColumnType type, TextCache* cache = nullptr);

// A user function's argument, untyped: integer, double, text or Null.
QVariant argumentValue(sqlite3_value* value);

// ISO text ("yyyy-MM-dd", "yyyy-MM-dd HH:mm:ss", "HH:mm") to a date, date and
// time, or time; anything else stays as it is.
QVariant dateFromIso(const QVariant& v);

// The text or number that a value is stored as.
void bindValue(sqlite3_stmt* stmt, int index, const QVariant& value);
void setResult(sqlite3_context* ctx, const QVariant& value);

} // namespace db

#include "db/SqlValue.h"

#include <QDate>
#include <QDateTime>
#include <QTime>
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace db {

ColumnType columnTypeFromDecl(const char* decl)
{
    if (!decl || !*decl)
        return ColumnType::Any;
    auto is = [decl](const char* prefix) { return strncasecmp(decl, prefix, std::strlen(prefix)) == 0; };
    if (is("BOOLEAN"))
        return ColumnType::Boolean;
    if (is("FLOAT"))
        return ColumnType::Single;
    if (is("DOUBLE") || is("REAL") || is("NUMERIC"))
        return ColumnType::Double;
    if (is("DATE") || is("TIME"))
        return ColumnType::Date;
    if (is("INT") || is("SMALLINT") || is("TINYINT") || is("BIGINT"))
        return ColumnType::Integer;
    return ColumnType::Text;
}

ColumnDecl columnDeclFrom(const char* decl)
{
    ColumnDecl c;
    c.type = columnTypeFromDecl(decl);
    if (!decl)
        return c;
    auto is = [decl](const char* prefix) { return strncasecmp(decl, prefix, std::strlen(prefix)) == 0; };
    switch (c.type) {
    case ColumnType::Integer:
        if (is("TINYINT")) {
            c.min = 0;
            c.max = 255;
        } else if (is("SMALLINT")) {
            c.min = -32768;
            c.max = 32767;
        } else if (is("INT")) { // INT, INTEGER
            c.min = INT32_MIN;
            c.max = INT32_MAX;
        }
        break;
    case ColumnType::Text:
        if (is("VARCHAR(") || is("TEXT(") || is("CHAR(")) {
            const char* open = std::strchr(decl, '(');
            c.size = std::max(0, std::atoi(open + 1));
        }
        break;
    default:
        break;
    }
    return c;
}

const ColumnDecl* TableDecl::column(QStringView name) const
{
    for (const ColumnDecl& c : columns)
        if (name.compare(c.name, Qt::CaseInsensitive) == 0)
            return &c;
    return nullptr;
}

qsizetype textLength(const char* utf8, qsizetype bytes)
{
    qsizetype n = 0;
    for (qsizetype i = 0; i < bytes; ++i) {
        const unsigned char b = static_cast<unsigned char>(utf8[i]);
        if ((b & 0xC0) != 0x80)
            n += b >= 0xF0 ? 2 : 1; // four bytes: a pair of UTF-16 units
    }
    return n;
}

size_t TextCache::slotOf(const char* bytes, int size)
{
    const int n = std::min(size, 8);
    quint64 head = 0, tail = 0;
    std::memcpy(&head, bytes, size_t(n));
    std::memcpy(&tail, bytes + size - n, size_t(n));
    const quint64 h = (head * 0x9E3779B97F4A7C15ull) ^ (tail * 0xC2B2AE3D27D4EB4Full) ^ quint64(size);
    return size_t(h >> 40) % kSlots;
}

QVariant TextCache::text(const char* bytes, int size)
{
    if (size > kMaxBytes || (misses_ > int(kSlots) && misses_ > hits_))
        return QString::fromUtf8(bytes, size);
    if (slots_.empty())
        slots_.resize(kSlots);
    Slot& slot = slots_[slotOf(bytes, size)];
    if (slot.value.isValid() && slot.bytes == std::string_view(bytes, size_t(size))) {
        ++hits_;
        return slot.value;
    }
    ++misses_;
    slot.bytes.assign(bytes, size_t(size));
    slot.value = QString::fromUtf8(bytes, size);
    return slot.value;
}

static QVariant textOf(sqlite3_stmt* stmt, int col, TextCache* cache)
{
    // Read as a blob, a text comes as it is stored, without SQLite copying it
    // to add a terminator.
    const char* bytes = static_cast<const char*>(sqlite3_column_blob(stmt, col));
    const int size = sqlite3_column_bytes(stmt, col);
    if (!bytes)
        bytes = ""; // an empty text is empty, not missing
    return cache ? cache->text(bytes, size) : QVariant(QString::fromUtf8(bytes, size));
}

static QVariant integerValue(sqlite3_int64 v)
{
    if (v >= INT32_MIN && v <= INT32_MAX)
        return QVariant(int(v));
    return QVariant(qint64(v));
}

QVariant dateFromIso(const QVariant& v)
{
    if (v.typeId() != QMetaType::QString)
        return v;
    const QString s = v.toString();
    switch (s.size()) {
    case 10:
        if (s[4] == u'-') {
            const QDate d = QDate::fromString(s, Qt::ISODate);
            if (d.isValid())
                return d;
        }
        break;
    case 19:
    case 16:
        if (s[4] == u'-' && (s[10] == u' ' || s[10] == u'T')) {
            const QDateTime dt = QDateTime::fromString(QString(s).replace(10, 1, u'T'), Qt::ISODate);
            if (dt.isValid())
                return dt;
        }
        break;
    case 5:
    case 8:
        if (s[2] == u':') {
            const QTime t = QTime::fromString(s, s.size() == 5 ? QStringLiteral("HH:mm") : QStringLiteral("HH:mm:ss"));
            if (t.isValid())
                return t;
        }
        break;
    default:
        break;
    }
    return v;
}

QVariant columnValue(sqlite3_stmt* stmt, int col, ColumnType type, TextCache* cache)
{
    const int storage = sqlite3_column_type(stmt, col);
    if (storage == SQLITE_NULL)
        return QVariant();
    switch (type) {
    case ColumnType::Boolean:
        return QVariant(sqlite3_column_int64(stmt, col) != 0);
    case ColumnType::Single:
        if (storage == SQLITE_TEXT)
            return textOf(stmt, col, cache);
        return QVariant(float(sqlite3_column_double(stmt, col)));
    case ColumnType::Double:
        if (storage == SQLITE_TEXT)
            return textOf(stmt, col, cache);
        return QVariant(sqlite3_column_double(stmt, col));
    case ColumnType::Date:
        return storage == SQLITE_TEXT ? dateFromIso(textOf(stmt, col, cache))
                                      : QVariant(sqlite3_column_double(stmt, col));
    case ColumnType::Integer:
        if (storage == SQLITE_INTEGER)
            return integerValue(sqlite3_column_int64(stmt, col));
        break;
    case ColumnType::Text:
        return textOf(stmt, col, cache);
    case ColumnType::Any:
        break;
    }
    switch (storage) {
    case SQLITE_INTEGER:
        return integerValue(sqlite3_column_int64(stmt, col));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(stmt, col));
    case SQLITE_BLOB:
        return QByteArray(reinterpret_cast<const char*>(sqlite3_column_blob(stmt, col)),
                          sqlite3_column_bytes(stmt, col));
    default:
        return textOf(stmt, col, cache);
    }
}

QVariant argumentValue(sqlite3_value* value)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return QVariant();
    case SQLITE_INTEGER:
        return integerValue(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_value_double(value));
    default:
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)), sqlite3_value_bytes(value));
    }
}

// How a value is written: dates as ISO text, Booleans as 0/1, a Single as the
// double nearest to it.
template <typename Text, typename Int, typename Real, typename Null>
static void storeAs(const QVariant& v, Text text, Int integer, Real real, Null null)
{
    if (!v.isValid() || v.isNull()) {
        null();
        return;
    }
    switch (v.typeId()) {
    case QMetaType::Bool:
        integer(v.toBool() ? 1 : 0);
        return;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::UChar:
    case QMetaType::SChar:
    case QMetaType::Char:
        integer(v.toLongLong());
        return;
    case QMetaType::Float:
        real(double(v.toFloat()));
        return;
    case QMetaType::Double:
        real(v.toDouble());
        return;
    case QMetaType::QDate:
        text(v.toDate().toString(Qt::ISODate));
        return;
    case QMetaType::QDateTime:
        text(v.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
        return;
    case QMetaType::QTime:
        text(v.toTime().toString(QStringLiteral("HH:mm")));
        return;
    default:
        text(v.toString());
    }
}

void bindValue(sqlite3_stmt* stmt, int index, const QVariant& value)
{
    storeAs(
        value,
        [&](const QString& s) {
            const QByteArray utf8 = s.toUtf8();
            sqlite3_bind_text(stmt, index, utf8.constData(), utf8.size(), SQLITE_TRANSIENT);
        },
        [&](qint64 i) { sqlite3_bind_int64(stmt, index, i); }, [&](double d) { sqlite3_bind_double(stmt, index, d); },
        [&]() { sqlite3_bind_null(stmt, index); });
}

void setResult(sqlite3_context* ctx, const QVariant& value)
{
    storeAs(
        value,
        [&](const QString& s) {
            const QByteArray utf8 = s.toUtf8();
            sqlite3_result_text(ctx, utf8.constData(), utf8.size(), SQLITE_TRANSIENT);
        },
        [&](qint64 i) { sqlite3_result_int64(ctx, i); }, [&](double d) { sqlite3_result_double(ctx, d); },
        [&]() { sqlite3_result_null(ctx); });
}

} // namespace db

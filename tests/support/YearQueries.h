#pragma once
// Reading a year back in tests: one value of a query, the rows of a table,
// and what a database file holds as a whole.
#include "core/Modulo.h"
#include "db/Connection.h"
#include "db/Recordset.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <sqlite3.h>

namespace yearq {

// The first column of the first row, Null when there is none.
inline QVariant value(const QString& sql, const db::ConnectionPtr& cn = gConexion)
{
    db::Recordset rs;
    rs.Open(sql, cn);
    return rs.Eof() ? QVariant() : rs.Value(0);
}

inline int count(const QString& table, const db::ConnectionPtr& cn = gConexion)
{
    return value(QStringLiteral("SELECT COUNT(*) FROM ") + table, cn).toInt();
}

// One column of the row of a table with that key, as text; "Null" for a Null.
inline QString field(const QString& table, const QString& column, int id, const db::ConnectionPtr& cn = gConexion)
{
    const QVariant v = value(QStringLiteral("SELECT %1 FROM %2 WHERE Id = %3").arg(column, table).arg(id), cn);
    return v.isNull() ? QStringLiteral("Null") : v.toString();
}

// How many rows a query gives.
inline int rowCount(const QString& sql, const db::ConnectionPtr& cn = gConexion)
{
    db::Recordset rs;
    rs.Open(sql, cn);
    return rs.RecordCount();
}

// The first column of every row, as text.
inline QStringList column(const QString& sql, const db::ConnectionPtr& cn = gConexion)
{
    QStringList values;
    db::Recordset rs;
    rs.Open(sql, cn);
    for (; !rs.Eof(); rs.MoveNext())
        values << rs.Value(0).toString();
    return values;
}

// The first column of every row of plain SQLite text, on a file opened
// read-only for the purpose.
inline QStringList native(const QString& path, const QString& sql)
{
    QStringList values;
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        sqlite3_stmt* stmt = nullptr;
        if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &stmt, nullptr) == SQLITE_OK)
            while (sqlite3_step(stmt) == SQLITE_ROW)
                values << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
        sqlite3_finalize(stmt);
    }
    sqlite3_close_v2(db);
    return values;
}

// PRAGMA integrity_check of a file: "ok" when sound.
inline QString integrity(const QString& path)
{
    return native(path, QStringLiteral("PRAGMA integrity_check")).join(u' ');
}

// The row count of every table of a file.
inline QMap<QString, int> tableCounts(const QString& path)
{
    QMap<QString, int> counts;
    for (const QString& table :
         native(path, QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name")))
        counts.insert(table, native(path, QStringLiteral("SELECT COUNT(*) FROM \"%1\"").arg(table)).value(0).toInt());
    return counts;
}

} // namespace yearq

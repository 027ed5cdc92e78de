#include "db/BoundStatement.h"

#include "db/SqlValue.h"

#include <sqlite3.h>

namespace db {

BoundStatement::BoundStatement(Connection& connection, const QString& sqliteText)
    : connection_(connection), text_(sqliteText)
{
}

sqlite3_stmt* BoundStatement::bound(const QVariantList& values)
{
    sqlite3_stmt* stmt = connection_.Prepare(text_);
    int index = 0;
    for (const QVariant& v : values)
        bindValue(stmt, ++index, v);
    return stmt;
}

int BoundStatement::execute(const QVariantList& values)
{
    sqlite3_stmt* stmt = bound(values);
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    }
    if (rc != SQLITE_DONE) {
        sqlite3_reset(stmt);
        connection_.Fail(text_);
    }
    sqlite3_reset(stmt);
    return sqlite3_changes(connection_.Handle());
}

QList<QVariantList> BoundStatement::rows(const QVariantList& values)
{
    sqlite3_stmt* stmt = bound(values);
    QList<QVariantList> out;
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
        QVariantList row;
        for (int c = 0, n = sqlite3_column_count(stmt); c < n; ++c) {
            switch (sqlite3_column_type(stmt, c)) {
            case SQLITE_INTEGER:
                row.append(qint64(sqlite3_column_int64(stmt, c)));
                break;
            case SQLITE_FLOAT:
                row.append(sqlite3_column_double(stmt, c));
                break;
            case SQLITE_NULL:
                row.append(QVariant());
                break;
            default:
                row.append(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, c)),
                                             sqlite3_column_bytes(stmt, c)));
            }
        }
        out.append(row);
    }
    if (rc != SQLITE_DONE) {
        sqlite3_reset(stmt);
        connection_.Fail(text_);
    }
    sqlite3_reset(stmt);
    return out;
}

} // namespace db

#pragma once
// One statement of SQLite text with its values bound by position, for the
// few places that run the same statement many times with values rather
// than text (the demo filler, the benchmark year) or that read what SQLite
// holds untouched by the dialect (schema questions, query plans in tests).
// The prepared statement comes from the connection's cache.
//
//     db::BoundStatement insert(cn, "INSERT INTO tblNotas (Id, Nota) VALUES (?, ?)");
//     insert.execute({1, 7.5});
#include "db/Connection.h"

#include <QList>
#include <QVariant>

namespace db {

class BoundStatement {
public:
    BoundStatement(Connection& connection, const QString& sqliteText);

    // Binds the values in order and runs the statement to its end; the rows
    // it changed. A failure throws RuntimeError and leaves nothing done.
    int execute(const QVariantList& values = {});
    // Binds the values and returns every row, each value as SQLite holds it
    // (whole numbers as qint64, reals as double, texts, Null invalid).
    QList<QVariantList> rows(const QVariantList& values = {});

private:
    sqlite3_stmt* bound(const QVariantList& values);

    Connection& connection_;
    QString text_;
};

} // namespace db

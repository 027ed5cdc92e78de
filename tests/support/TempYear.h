#pragma once
// A throw-away year database for tests: a temporary folder holding an empty
// Xestion.mdb of the full schema, optionally filled with the sample rows of
// tests/db/seed.sql.
#include "db/Connection.h"

#include <QString>
#include <QTemporaryDir>

class TempYear {
public:
    enum class Fill { Empty, Seeded };
    explicit TempYear(Fill fill = Fill::Empty);

    const QString& path() const { return path_; } // .../Xestion.mdb
    QString folder() const { return dir_.path(); }
    db::ConnectionPtr connect() const { return db::Connection::Open(path_); }

    // Plain SQLite text of a file under the source tree.
    static QString sourceFile(const QString& relative);
    static QString seedSql();

private:
    QTemporaryDir dir_;
    QString path_;
};

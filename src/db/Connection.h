#pragma once
// A session on one year's database file. Statements in the system's dialect
// are translated (JetSql), prepared once and kept in a cache by their text.
#include "db/JetSql.h"
#include "db/SqlValue.h"

#include <QHash>
#include <QString>
#include <memory>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace db {

class Connection {
public:
    // Opens an existing database file for reading and writing. A missing file,
    // or one that is not an SQLite database (an old Jet file, say), throws
    // RuntimeError with a message that names the path.
    static std::shared_ptr<Connection> Open(const QString& path);
    // Creates the file if it is missing: for the installer and the schema.
    static std::shared_ptr<Connection> Create(const QString& path);
    // Opens an existing database file that is only read (another year's,
    // say): any write through it fails as a run-time error.
    static std::shared_ptr<Connection> OpenReadOnly(const QString& path);

    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Close();
    bool IsOpen() const { return db_ != nullptr; }
    const QString& Path() const { return path_; }

    // Runs one statement of the dialect; returns the rows it changed.
    int Execute(const QString& statement);
    // Runs SQLite text as it stands (schema, maintenance); several statements allowed.
    void ExecuteNative(const QString& sql);

    // The declared size of a text column (VARCHAR(n): n), for entry fields
    // that limit typing to it; 0 for a column without one or unknown.
    int columnSize(const QString& table, const QString& column);
    // The declared columns of a table, from the year's schema; null when
    // there is no such table.
    const TableDecl* tableDecl(QStringView table);

    // Translation, cached by text.
    const Translation& Translate(const QString& statement, bool rowids = false);

    // Throws the RuntimeError of the last failure of this connection.
    [[noreturn]] void Fail(const QString& context = QString()) const;

private:
    // SQLite itself stays inside the engine: the recordset and the bound
    // statement step what the cache prepares.
    friend class Recordset;
    friend class BoundStatement;

    // A prepared statement from the cache, reset and ready to step. The
    // caller steps it and must not finalize it.
    sqlite3_stmt* Prepare(const QString& sqliteText);
    sqlite3* Handle() const { return db_; }

    enum class Mode { ReadWrite, Create, ReadOnly };

    explicit Connection(const QString& path);
    void openFile(Mode mode);
    void clearCache();
    // Whether table.column is declared a date.
    bool isDateColumn(const QString& table, const QString& column);
    // The year's schema, read once, at the first question, and again after
    // a change of the schema through ExecuteNative.
    const QVector<TableDecl>& schema();

    QString path_;
    sqlite3* db_ = nullptr;
    QHash<QString, sqlite3_stmt*> statements_;
    QHash<QString, Translation> translations_[2];
    std::optional<QVector<TableDecl>> schema_;
};

using ConnectionPtr = std::shared_ptr<Connection>;

} // namespace db

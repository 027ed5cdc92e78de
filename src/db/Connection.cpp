#include "db/Connection.h"

#include "db/SqlFunctions.h"
#include "db/SqlValue.h"
#include "vb/RuntimeError.h"

#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace db {
namespace {

constexpr int kMaxCachedStatements = 256;
constexpr int kMaxCachedTranslations = 2048;

// What the first bytes of the file say it is.
void checkFileKind(const QString& path)
{
    QFile f(path);
    if (!f.exists())
        throw RuntimeError(RuntimeError::DatabaseError,
                           QStringLiteral("No se pudo encontrar el archivo '%1'.").arg(path));
    if (!f.open(QIODevice::ReadOnly))
        throw RuntimeError(RuntimeError::DatabaseError,
                           QStringLiteral("No se pudo abrir el archivo '%1': %2").arg(path, f.errorString()));
    const QByteArray head = f.read(100);
    if (head.startsWith(QByteArrayLiteral("SQLite format 3\0")))
        return;
    if (head.mid(4, 15) == QByteArrayLiteral("Standard Jet DB") ||
        head.mid(4, 17) == QByteArrayLiteral("Standard ACE DB"))
        throw RuntimeError(RuntimeError::DatabaseError,
                           QStringLiteral("'%1' es una base de datos Jet antigua; este programa sólo abre años "
                                          "guardados como base de datos SQLite.")
                               .arg(path));
    throw RuntimeError(RuntimeError::DatabaseError, QStringLiteral("'%1' no es una base de datos SQLite.").arg(path));
}

} // namespace

Connection::Connection(const QString& path) : path_(path) {}

std::shared_ptr<Connection> Connection::Open(const QString& path)
{
    checkFileKind(path);
    std::shared_ptr<Connection> c(new Connection(path));
    c->openFile(Mode::ReadWrite);
    return c;
}

std::shared_ptr<Connection> Connection::OpenReadOnly(const QString& path)
{
    checkFileKind(path);
    std::shared_ptr<Connection> c(new Connection(path));
    c->openFile(Mode::ReadOnly);
    return c;
}

std::shared_ptr<Connection> Connection::Create(const QString& path)
{
    if (QFileInfo::exists(path) && QFileInfo(path).size() > 0)
        checkFileKind(path);
    std::shared_ptr<Connection> c(new Connection(path));
    c->openFile(Mode::Create);
    return c;
}

void Connection::openFile(Mode mode)
{
    // One thread uses a connection, so SQLite's own locking is not needed.
    const QByteArray file = path_.toUtf8();
    const int access = mode == Mode::ReadOnly ? SQLITE_OPEN_READONLY
                       : mode == Mode::Create ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE
                                              : SQLITE_OPEN_READWRITE;
    const int flags = access | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(file.constData(), &db_, flags, nullptr) != SQLITE_OK) {
        const QString msg = db_ ? QString::fromUtf8(sqlite3_errmsg(db_)) : QStringLiteral("sin memoria");
        sqlite3_close_v2(db_);
        db_ = nullptr;
        throw RuntimeError(RuntimeError::DatabaseError,
                           QStringLiteral("No se pudo abrir la base de datos '%1': %2").arg(path_, msg));
    }
    sqlite3_extended_result_codes(db_, 1);
    // A quoted name that matches no column is an error, never a text.
    sqlite3_db_config(db_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(db_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_busy_timeout(db_, 5000);
    registerSqlFunctions(db_);
    // The year file stays whole after each statement: years are copied as
    // folders. A file only read leaves its journal mode as it is.
    const char* pragmas = mode == Mode::ReadOnly
                              ? "PRAGMA foreign_keys=OFF;"
                              : "PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL; PRAGMA foreign_keys=OFF;";
    char* err = nullptr;
    if (sqlite3_exec(db_, pragmas, nullptr, nullptr, &err) != SQLITE_OK) {
        const QString msg = QString::fromUtf8(err ? err : "");
        sqlite3_free(err);
        sqlite3_close_v2(db_);
        db_ = nullptr;
        throw RuntimeError(RuntimeError::DatabaseError, QStringLiteral("'%1': %2").arg(path_, msg));
    }
}

Connection::~Connection()
{
    Close();
}

void Connection::clearCache()
{
    for (sqlite3_stmt* s : std::as_const(statements_))
        sqlite3_finalize(s);
    statements_.clear();
}

void Connection::Close()
{
    if (!db_)
        return;
    clearCache();
    sqlite3_close_v2(db_);
    db_ = nullptr;
}

void Connection::Fail(const QString& context) const
{
    int number = takeFunctionErrorNumber();
    if (!number)
        number = RuntimeError::DatabaseError;
    QString msg = db_ ? QString::fromUtf8(sqlite3_errmsg(db_)) : QStringLiteral("La conexión está cerrada.");
    if (!context.isEmpty())
        msg += QStringLiteral("\n") + context;
    throw RuntimeError(number, msg);
}

const Translation& Connection::Translate(const QString& statement, bool rowids)
{
    QHash<QString, Translation>& cache = translations_[rowids ? 1 : 0];
    auto it = cache.constFind(statement);
    if (it != cache.constEnd())
        return *it;
    if (cache.size() >= kMaxCachedTranslations)
        cache.clear();
    JetSql::Options options;
    options.rowids = rowids;
    options.isDateColumn = [this](const QString& table, const QString& column) { return isDateColumn(table, column); };
    options.tableDecl = [this](QStringView table) { return tableDecl(table); };
    return *cache.insert(statement, JetSql::translate(statement, options));
}

const QVector<TableDecl>& Connection::schema()
{
    if (!schema_) {
        schema_.emplace();
        schema_->reserve(32);
        sqlite3_stmt* stmt = Prepare(QStringLiteral("SELECT m.name, p.name, p.type FROM sqlite_master AS m JOIN "
                                                    "pragma_table_info(m.name) AS p WHERE m.type = 'table' "
                                                    "ORDER BY m.name, p.cid"));
        auto text = [stmt](int col) { return reinterpret_cast<const char*>(sqlite3_column_text(stmt, col)); };
        while (sqlite3_step(stmt) == SQLITE_ROW) {
            const QString table = QString::fromUtf8(text(0));
            if (schema_->isEmpty() || schema_->constLast().name != table)
                schema_->append(TableDecl{table, {}});
            TableDecl& t = schema_->last();
            ColumnDecl c = columnDeclFrom(text(2));
            c.name = QString::fromUtf8(text(1));
            t.columns << c;
        }
        sqlite3_reset(stmt);
    }
    return *schema_;
}

// A year has a score of tables: a look along them, without regard to case,
// costs less than a lower-case copy of the name for a hash.
const TableDecl* Connection::tableDecl(QStringView table)
{
    for (const TableDecl& t : schema())
        if (t.name.size() == table.size() && table.compare(t.name, Qt::CaseInsensitive) == 0)
            return &t;
    return nullptr;
}

bool Connection::isDateColumn(const QString& table, const QString& column)
{
    const TableDecl* t = tableDecl(table);
    const ColumnDecl* c = t ? t->column(column) : nullptr;
    return c && c->type == ColumnType::Date;
}

int Connection::columnSize(const QString& table, const QString& column)
{
    const TableDecl* t = tableDecl(table);
    const ColumnDecl* c = t ? t->column(column) : nullptr;
    return c ? c->size : 0;
}

sqlite3_stmt* Connection::Prepare(const QString& sqliteText)
{
    if (!db_)
        throw RuntimeError(RuntimeError::DatabaseError, QStringLiteral("La conexión está cerrada."));
    auto it = statements_.constFind(sqliteText);
    if (it != statements_.constEnd()) {
        sqlite3_reset(*it);
        sqlite3_clear_bindings(*it);
        return *it;
    }
    if (statements_.size() >= kMaxCachedStatements)
        clearCache();
    const QByteArray utf8 = sqliteText.toUtf8();
    sqlite3_stmt* stmt = nullptr;
    const char* tail = nullptr;
    takeFunctionErrorNumber();
    if (sqlite3_prepare_v3(db_, utf8.constData(), utf8.size(), SQLITE_PREPARE_PERSISTENT, &stmt, &tail) != SQLITE_OK)
        Fail(sqliteText);
    if (!stmt)
        throw RuntimeError(RuntimeError::DatabaseError, QStringLiteral("Instrucción SQL vacía."));
    while (tail && *tail && (*tail == ' ' || *tail == ';' || *tail == '\n' || *tail == '\r' || *tail == '\t'))
        ++tail;
    if (tail && *tail) {
        sqlite3_finalize(stmt);
        throw RuntimeError(RuntimeError::DatabaseError,
                           QStringLiteral("Se encontraron caracteres después del final de la instrucción SQL."));
    }
    statements_.insert(sqliteText, stmt);
    return stmt;
}

int Connection::Execute(const QString& statement)
{
    const Translation& t = Translate(statement);
    sqlite3_stmt* stmt = Prepare(t.sql);
    takeFunctionErrorNumber();
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    }
    if (rc != SQLITE_DONE) {
        sqlite3_reset(stmt);
        Fail();
    }
    const int changed = sqlite3_changes(db_);
    sqlite3_reset(stmt);
    return changed;
}

void Connection::ExecuteNative(const QString& sql)
{
    if (!db_)
        throw RuntimeError(RuntimeError::DatabaseError, QStringLiteral("La conexión está cerrada."));
    // A new or changed table changes what the translations know of it.
    if (sql.contains(QLatin1String("CREATE"), Qt::CaseInsensitive) ||
        sql.contains(QLatin1String("ALTER"), Qt::CaseInsensitive) ||
        sql.contains(QLatin1String("DROP"), Qt::CaseInsensitive)) {
        schema_.reset();
        translations_[0].clear();
        translations_[1].clear();
    }
    char* err = nullptr;
    if (sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, &err) != SQLITE_OK) {
        const QString msg = QString::fromUtf8(err ? err : "");
        sqlite3_free(err);
        throw RuntimeError(RuntimeError::DatabaseError, msg);
    }
}

} // namespace db

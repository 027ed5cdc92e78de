#include "db/OnlineCopy.h"

#include "db/Connection.h"
#include "vb/RuntimeError.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <memory>
#include <sqlite3.h>

namespace db::OnlineCopy {
namespace {

constexpr int kBusyTimeoutMs = 5000;
// A source that another program writes in a tight loop is free only for a
// moment between its transactions: the copy looks for that moment every
// millisecond (SQLite's own timeout looks less and less often) for up to
// kSourcePatienceMs, and then takes its read transaction anew, after a
// pause that grows, up to kReadAttempts times.
constexpr int kSourcePatienceMs = 10000;
constexpr int kReadAttempts = 4;
// A source is opened for writing where it can be (a write-protected file
// opens for reading): a journal left by a crash must be played back before
// the file is read, or a copy would take a half-written transaction.
constexpr int kSourceFlags = SQLITE_OPEN_READWRITE;

struct StepHook {
    std::function<void()> between;
    int pages = 256;
};

StepHook& stepHook()
{
    static StepHook hook;
    return hook;
}

[[noreturn]] void fail(const QString& text)
{
    throw RuntimeError(RuntimeError::DatabaseError, text);
}

QString errorOf(sqlite3* db)
{
    return QString::fromUtf8(sqlite3_errmsg(db));
}

QString quotedName(QString name)
{
    return u'"' + name.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

// A connection of the copy's own, closed when it goes.
class Handle {
public:
    Handle(const QString& path, int flags) : path_(path)
    {
        if (sqlite3_open_v2(path.toUtf8().constData(), &db_, flags, nullptr) != SQLITE_OK) {
            const QString msg = db_ ? errorOf(db_) : QStringLiteral("sin memoria");
            sqlite3_close_v2(db_);
            db_ = nullptr;
            fail(QStringLiteral("No se pudo abrir la base de datos '%1': %2").arg(path, msg));
        }
        sqlite3_busy_timeout(db_, kBusyTimeoutMs);
    }
    ~Handle() { close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    sqlite3* get() const { return db_; }
    const QString& path() const { return path_; }
    void close()
    {
        if (db_)
            sqlite3_close_v2(db_);
        db_ = nullptr;
    }

    void exec(const QString& sql) const
    {
        char* err = nullptr;
        if (sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, &err) != SQLITE_OK) {
            const QString msg = err ? QString::fromUtf8(err) : errorOf(db_);
            sqlite3_free(err);
            fail(QStringLiteral("'%1': %2").arg(path_, msg));
        }
    }

    // The first column of every row of a statement, as text.
    QStringList firstColumn(const QString& sql) const
    {
        sqlite3_stmt* stmt = nullptr;
        if (sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &stmt, nullptr) != SQLITE_OK)
            fail(QStringLiteral("'%1': %2").arg(path_, errorOf(db_)));
        QStringList values;
        int rc;
        while ((rc = sqlite3_step(stmt)) == SQLITE_ROW)
            values << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
        sqlite3_finalize(stmt);
        if (rc != SQLITE_DONE)
            fail(QStringLiteral("'%1': %2").arg(path_, errorOf(db_)));
        return values;
    }

private:
    QString path_;
    sqlite3* db_ = nullptr;
};

int waitForWriters(void*, int count)
{
    if (count >= kSourcePatienceMs)
        return 0;
    sqlite3_sleep(1);
    return 1;
}

// A source connection that writes nothing of its own.
std::unique_ptr<Handle> openSource(const QString& path)
{
    if (!QFileInfo(path).isFile())
        fail(QStringLiteral("No se pudo encontrar el archivo '%1'.").arg(path));
    auto source = std::make_unique<Handle>(path, kSourceFlags);
    sqlite3_busy_handler(source->get(), waitForWriters, nullptr);
    source->exec(QStringLiteral("PRAGMA query_only = 1"));
    return source;
}

// Whether the last failure on a connection was a lock held by another.
bool lockedOut(const Handle& db)
{
    const int code = sqlite3_errcode(db.get()) & 0xff;
    return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

// One read transaction on a connection: the moment everything read through
// it belongs to. It ends when it goes, whatever happened.
class ReadTransaction {
public:
    explicit ReadTransaction(const Handle& db) : db_(db) { db_.exec(QStringLiteral("BEGIN")); }
    ~ReadTransaction()
    {
        if (!sqlite3_get_autocommit(db_.get()))
            sqlite3_exec(db_.get(), "COMMIT", nullptr, nullptr, nullptr);
    }
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

private:
    const Handle& db_;
};

RowCounts countRows(const Handle& db)
{
    RowCounts counts;
    const QStringList tables = db.firstColumn(
        QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'"));
    for (const QString& table : tables) {
        counts.insert(
            table, db.firstColumn(QStringLiteral("SELECT COUNT(*) FROM ") + quotedName(table)).value(0).toLongLong());
    }
    return counts;
}

// The online backup of `source` into a new file, step by step.
void backupInto(const Handle& source, const QString& destination)
{
    Handle target(destination, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    sqlite3_backup* backup = sqlite3_backup_init(target.get(), "main", source.get(), "main");
    if (!backup)
        fail(QStringLiteral("No se pudo copiar la base de datos en '%1': %2").arg(destination, errorOf(target.get())));
    const StepHook& hook = stepHook();
    int rc;
    int waits = 0;
    while (true) {
        rc = sqlite3_backup_step(backup, hook.pages);
        if (rc == SQLITE_OK) {
            if (hook.between)
                hook.between();
        } else if ((rc == SQLITE_BUSY || rc == SQLITE_LOCKED) && ++waits < 200) {
            sqlite3_sleep(25);
        } else {
            break;
        }
    }
    const int finished = sqlite3_backup_finish(backup);
    if (rc != SQLITE_DONE || finished != SQLITE_OK)
        fail(QStringLiteral("No se pudo copiar la base de datos en '%1': %2").arg(destination, errorOf(target.get())));
    target.close();
}

TableColumns columnsOf(const Handle& db)
{
    TableColumns columns;
    const QStringList tables = db.firstColumn(
        QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'"));
    for (const QString& table : tables) {
        sqlite3_stmt* stmt = nullptr;
        const QByteArray sql = (QStringLiteral("PRAGMA table_info(") + quotedName(table) + u')').toUtf8();
        if (sqlite3_prepare_v2(db.get(), sql.constData(), -1, &stmt, nullptr) != SQLITE_OK)
            fail(QStringLiteral("'%1': %2").arg(db.path(), errorOf(db.get())));
        QStringList list;
        while (sqlite3_step(stmt) == SQLITE_ROW)
            list << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 1))) + u' ' +
                        QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 2))).toUpper();
        sqlite3_finalize(stmt);
        columns.insert(table, list);
    }
    return columns;
}

QString quotedText(QString text)
{
    return u'\'' + text.replace(u'\'', QStringLiteral("''")) + u'\'';
}

const QString kTemporarySuffix = QStringLiteral("\\.[0-9a-f]{8}\\.tmp");
const QString kJournalSuffix = QStringLiteral("(-journal|-wal|-shm)?");

} // namespace

bool HasSqliteHeader(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) && f.read(16) == QByteArrayLiteral("SQLite format 3\0");
}

RowCounts Backup(const QString& source, const QString& destination)
{
    const std::unique_ptr<Handle> from = openSource(source);
    for (int attempt = 1;; ++attempt) {
        try {
            const ReadTransaction moment(*from);
            // Counting first also takes the read lock that holds the moment.
            const RowCounts counts = countRows(*from);
            backupInto(*from, destination);
            return counts;
        } catch (const RuntimeError&) {
            if (attempt >= kReadAttempts || !lockedOut(*from))
                throw;
        }
        sqlite3_sleep(100 << attempt);
    }
}

RowCounts Backup(const Connection& source, const QString& destination)
{
    if (!source.IsOpen())
        throw RuntimeError(RuntimeError::DatabaseError, QStringLiteral("La conexión está cerrada."));
    return Backup(source.Path(), destination);
}

RowCounts VacuumInto(const QString& source, const QString& destination)
{
    // VACUUM cannot run inside a transaction, so the moment is taken by a
    // backup first, and the compacted copy is made from that private file.
    const QString moment = TemporaryName(destination);
    try {
        const RowCounts counts = Backup(source, moment);
        {
            Handle from(moment, SQLITE_OPEN_READWRITE);
            from.exec(QStringLiteral("VACUUM INTO ") + quotedText(destination));
        }
        QFile::remove(moment);
        return counts;
    } catch (...) {
        QFile::remove(moment);
        QFile::remove(moment + QStringLiteral("-journal"));
        throw;
    }
}

QStringList IntegrityCheck(const QString& path)
{
    const std::unique_ptr<Handle> db = openSource(path);
    return db->firstColumn(QStringLiteral("PRAGMA integrity_check"));
}

RowCounts TableRowCounts(const QString& path)
{
    const std::unique_ptr<Handle> db = openSource(path);
    const ReadTransaction moment(*db);
    return countRows(*db);
}

TableColumns ColumnsOf(const QString& path)
{
    const std::unique_ptr<Handle> db = openSource(path);
    return columnsOf(*db);
}

TableColumns ColumnsOfDdl(const QString& ddl)
{
    const Handle db(QStringLiteral(":memory:"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    db.exec(ddl);
    return columnsOf(db);
}

QByteArray ContentDigest(const QString& path)
{
    const std::unique_ptr<Handle> db = openSource(path);
    const ReadTransaction moment(*db);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString& sql :
         db->firstColumn(QStringLiteral("SELECT type || ' ' || name || ' ' || IFNULL(sql, '') FROM sqlite_master "
                                        "WHERE name NOT LIKE 'sqlite_%' ORDER BY type, name")))
        hash.addData(sql.toUtf8().append('\0'));
    const QStringList tables = db->firstColumn(QStringLiteral(
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' ORDER BY name"));
    for (const QString& table : tables) {
        sqlite3_stmt* stmt = nullptr;
        const QByteArray sql =
            (QStringLiteral("SELECT * FROM ") + quotedName(table) + QStringLiteral(" ORDER BY rowid")).toUtf8();
        if (sqlite3_prepare_v2(db->get(), sql.constData(), -1, &stmt, nullptr) != SQLITE_OK)
            fail(QStringLiteral("'%1': %2").arg(path, errorOf(db->get())));
        const int columns = sqlite3_column_count(stmt);
        int rc;
        while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
            for (int c = 0; c < columns; ++c) {
                // The type goes in with each value: 7 and '7' are not the same.
                const char type = char('0' + sqlite3_column_type(stmt, c));
                hash.addData(QByteArrayView(&type, 1));
                const void* bytes = sqlite3_column_blob(stmt, c);
                const int size = sqlite3_column_bytes(stmt, c);
                const qint32 length = size;
                hash.addData(QByteArrayView(reinterpret_cast<const char*>(&length), sizeof length));
                if (bytes && size > 0)
                    hash.addData(QByteArrayView(static_cast<const char*>(bytes), size));
            }
        }
        sqlite3_finalize(stmt);
        if (rc != SQLITE_DONE)
            fail(QStringLiteral("'%1': %2").arg(path, errorOf(db->get())));
    }
    return hash.result();
}

QString TemporaryName(const QString& destination)
{
    return destination + QStringLiteral(".%1.tmp").arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
}

bool IsTemporaryName(const QString& fileName)
{
    static const QRegularExpression re(QStringLiteral("^.+") + kTemporarySuffix + kJournalSuffix + u'$');
    return re.match(fileName).hasMatch();
}

void RemoveStaleTemporaries(const QString& destination)
{
    const QFileInfo target(destination);
    const QRegularExpression re(u'^' + QRegularExpression::escape(target.fileName()) + QStringLiteral("(\\..*)?") +
                                kTemporarySuffix + kJournalSuffix + u'$');
    QDir folder(target.absolutePath());
    const QStringList names = folder.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : names)
        if (re.match(name).hasMatch())
            folder.remove(name);
}

void SetStepHook(std::function<void()> hook, int pagesPerStep)
{
    StepHook& h = stepHook();
    if (hook) {
        h.between = std::move(hook);
        h.pages = pagesPerStep;
    } else {
        h = StepHook{};
    }
}

} // namespace db::OnlineCopy

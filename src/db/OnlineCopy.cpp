#include "db/OnlineCopy.h"

#include "db/Connection.h"
#include "vb/RuntimeError.h"

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

// A source connection that writes nothing of its own.
std::unique_ptr<Handle> openSource(const QString& path)
{
    if (!QFileInfo(path).isFile())
        fail(QStringLiteral("No se pudo encontrar el archivo '%1'.").arg(path));
    auto source = std::make_unique<Handle>(path, kSourceFlags);
    source->exec(QStringLiteral("PRAGMA query_only = 1"));
    return source;
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
    for (QString table : tables) {
        const QString quoted = u'"' + table.replace(u'"', QStringLiteral("\"\"")) + u'"';
        counts.insert(table, db.firstColumn(QStringLiteral("SELECT COUNT(*) FROM ") + quoted).value(0).toLongLong());
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
    const ReadTransaction moment(*from);
    // Counting first also takes the read lock that holds the moment.
    const RowCounts counts = countRows(*from);
    backupInto(*from, destination);
    return counts;
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

#include "utilities/DatabaseCopy.h"

#include "db/Connection.h"
#include "vb/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRandomGenerator>
#include <QStringList>

#include <filesystem>
#include <sqlite3.h>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace utilities {

namespace {

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

// A connection of the copy's own, closed when it goes.
class RawDatabase {
public:
    RawDatabase(const QString& path, int flags)
    {
        if (sqlite3_open_v2(path.toUtf8().constData(), &db_, flags, nullptr) != SQLITE_OK) {
            const QString msg = db_ ? QString::fromUtf8(sqlite3_errmsg(db_)) : QStringLiteral("sin memoria");
            sqlite3_close_v2(db_);
            db_ = nullptr;
            fail(QStringLiteral("No se pudo abrir la base de datos '%1': %2").arg(path, msg));
        }
        sqlite3_busy_timeout(db_, 5000);
    }
    ~RawDatabase() { close(); }
    RawDatabase(const RawDatabase&) = delete;
    RawDatabase& operator=(const RawDatabase&) = delete;

    sqlite3* get() const { return db_; }
    void close()
    {
        if (db_)
            sqlite3_close_v2(db_);
        db_ = nullptr;
    }

private:
    sqlite3* db_ = nullptr;
};

QString errorOf(sqlite3* db)
{
    return QString::fromUtf8(sqlite3_errmsg(db));
}

// The first column of every row of a statement, as text.
QStringList firstColumn(sqlite3* db, const QString& sql)
{
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &stmt, nullptr) != SQLITE_OK)
        fail(errorOf(db));
    QStringList values;
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW)
        values << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
    sqlite3_finalize(stmt);
    if (rc != SQLITE_DONE)
        fail(errorOf(db));
    return values;
}

QMap<QString, qint64> rowCounts(sqlite3* db)
{
    QMap<QString, qint64> counts;
    const QStringList tables = firstColumn(
        db, QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'"));
    for (QString table : tables) {
        const QString quoted = u'"' + table.replace(u'"', QStringLiteral("\"\"")) + u'"';
        counts.insert(table, firstColumn(db, QStringLiteral("SELECT COUNT(*) FROM ") + quoted).value(0).toLongLong());
    }
    return counts;
}

// The copy must be sound and hold as many rows in each table as its source.
void verifyCopy(const QMap<QString, qint64>& expected, const QString& copy)
{
    RawDatabase check(copy, SQLITE_OPEN_READONLY);
    const QStringList integrity = firstColumn(check.get(), QStringLiteral("PRAGMA integrity_check"));
    if (integrity != QStringList{QStringLiteral("ok")})
        fail(QStringLiteral("La copia '%1' está dañada: %2").arg(copy, integrity.join(u' ')));
    if (rowCounts(check.get()) != expected)
        fail(QStringLiteral("La copia '%1' no tiene las mismas filas que su original.").arg(copy));
}

QString temporaryBeside(const QString& destination)
{
    return destination + QStringLiteral(".%1.tmp").arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
}

bool isLeftover(const QString& name)
{
    return name.endsWith(QLatin1String(".tmp")) && name.size() > 13 && name.at(name.size() - 13) == u'.';
}

std::filesystem::path fsPath(const QString& path)
{
    return std::filesystem::path(path.toStdU16String());
}

void syncFile(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadWrite))
        fail(QStringLiteral("No se pudo abrir '%1': %2").arg(path, f.errorString()));
#ifdef Q_OS_WIN
    const bool synced = _commit(f.handle()) == 0;
#else
    const bool synced = ::fsync(f.handle()) == 0;
#endif
    if (!synced)
        fail(QStringLiteral("No se pudo escribir en el disco '%1'.").arg(path));
}

// The rename itself must reach the disk too.
void syncFolder(const QString& folder)
{
#ifndef Q_OS_WIN
    const int fd = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
#else
    Q_UNUSED(folder);
#endif
}

const char* const kJournals[] = {"-journal", "-wal", "-shm"};

// Puts the whole temporary file in place of the destination.
void commit(const QString& temporary, const QString& destination, bool database)
{
    syncFile(temporary);
    if (database) {
        // A journal left beside the old file by a crash belongs to that file;
        // played back onto the new one it would spoil it.
        for (const char* suffix : kJournals)
            QFile::remove(destination + QLatin1String(suffix));
    }
    std::error_code ec;
    std::filesystem::rename(fsPath(temporary), fsPath(destination), ec);
    if (ec)
        fail(QStringLiteral("No se pudo poner '%1' en su sitio: %2")
                 .arg(destination, QString::fromStdString(ec.message())));
    syncFolder(QFileInfo(destination).absolutePath());
}

// Writes a temporary file beside the destination and commits it; the
// temporary file goes if anything fails.
template <typename Write>
void writeBeside(const QString& destination, bool database, Write&& write)
{
    const QString temporary = temporaryBeside(destination);
    try {
        write(temporary);
        commit(temporary, destination, database);
    } catch (...) {
        QFile::remove(temporary);
        throw;
    }
}

void backupInto(sqlite3* source, const QString& temporary)
{
    RawDatabase target(temporary, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    sqlite3_backup* backup = sqlite3_backup_init(target.get(), "main", source, "main");
    if (!backup)
        fail(errorOf(target.get()));
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
        fail(QStringLiteral("No se pudo copiar la base de datos en '%1': %2").arg(temporary, errorOf(target.get())));
    target.close();
}

// A closed database is opened for writing where it can be: a journal left
// beside it by a crash must be played back before the file is read, or the
// copy would take a half-written transaction. A write-protected file opens
// for reading.
constexpr int kClosedSource = SQLITE_OPEN_READWRITE;

bool isDatabaseFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) && f.read(16) == QByteArrayLiteral("SQLite format 3\0");
}

bool isJournal(const QFileInfo& file)
{
    for (const char* suffix : kJournals) {
        const QString name = file.fileName();
        if (name.endsWith(QLatin1String(suffix)))
            return QFileInfo::exists(file.absolutePath() + u'/' + name.chopped(int(qstrlen(suffix))));
    }
    return false;
}

bool sameFile(const QString& a, const QString& b)
{
    const QString ca = QFileInfo(a).canonicalFilePath();
    return !ca.isEmpty() && ca == QFileInfo(b).canonicalFilePath();
}

} // namespace

void pathNotFound(const QString& path)
{
    throw RuntimeError(RuntimeError::PathNotFound,
                       QStringLiteral("No se ha encontrado la ruta de acceso: '%1'").arg(path));
}

void makeFolder(const QString& path)
{
    if (!QDir().mkdir(path))
        pathNotFound(path);
}

void copyDatabase(sqlite3* source, const QString& destination)
{
    writeBeside(destination, true, [&](const QString& temporary) {
        backupInto(source, temporary);
        verifyCopy(rowCounts(source), temporary);
    });
}

void copyDatabaseFile(const QString& source, const QString& destination)
{
    RawDatabase from(source, kClosedSource);
    copyDatabase(from.get(), destination);
}

void compactDatabaseFile(const QString& source, const QString& destination)
{
    RawDatabase from(source, kClosedSource);
    writeBeside(destination, true, [&](const QString& temporary) {
        QString target = temporary;
        const QString sql = QStringLiteral("VACUUM INTO '") + target.replace(u'\'', QStringLiteral("''")) + u'\'';
        char* err = nullptr;
        if (sqlite3_exec(from.get(), sql.toUtf8().constData(), nullptr, nullptr, &err) != SQLITE_OK) {
            const QString msg = QString::fromUtf8(err ? err : "");
            sqlite3_free(err);
            fail(QStringLiteral("No se pudo compactar '%1': %2").arg(source, msg));
        }
        verifyCopy(rowCounts(from.get()), temporary);
    });
}

void copyFile(const QString& source, const QString& destination, const db::Connection* live)
{
    if (!QFileInfo(source).isFile())
        pathNotFound(source);
    if (!QFileInfo(QFileInfo(destination).absolutePath()).isDir())
        pathNotFound(destination);
    if (live && live->IsOpen() && sameFile(source, live->Path())) {
        copyDatabase(live->Handle(), destination);
    } else if (isDatabaseFile(source)) {
        copyDatabaseFile(source, destination);
    } else {
        writeBeside(destination, false, [&](const QString& temporary) {
            QFile from(source);
            if (!from.copy(temporary))
                fail(QStringLiteral("No se pudo copiar '%1': %2").arg(source, from.errorString()));
        });
    }
}

void copyFolder(const QString& source, const QString& destination, const db::Connection* live)
{
    if (!QFileInfo(source).isDir())
        pathNotFound(source);
    if (!QFileInfo(destination).isDir())
        makeFolder(destination);
    const QFileInfoList entries =
        QDir(source).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System, QDir::Name);
    for (const QFileInfo& entry : entries) {
        const QString target = destination + u'/' + entry.fileName();
        if (entry.isDir())
            copyFolder(entry.filePath(), target, live);
        else if (!isJournal(entry) && !isLeftover(entry.fileName()))
            copyFile(entry.filePath(), target, live);
    }
}

void setBackupStepHook(std::function<void()> hook, int pagesPerStep)
{
    StepHook& h = stepHook();
    if (hook) {
        h.between = std::move(hook);
        h.pages = pagesPerStep;
    } else {
        h = StepHook{};
    }
}

} // namespace utilities

#include "utilities/DatabaseCopy.h"

#include "db/Connection.h"
#include "db/OnlineCopy.h"
#include "db/Schema.h"
#include "vb/Clock.h"
#include "vb/RuntimeError.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace utilities {

namespace {

using db::OnlineCopy::RowCounts;

[[noreturn]] void fail(const QString& text)
{
    throw RuntimeError(RuntimeError::DatabaseError, text);
}

// The copy must be sound and hold as many rows in each table as its source.
void verifyCopy(const RowCounts& expected, const QString& copy)
{
    const QStringList integrity = db::OnlineCopy::IntegrityCheck(copy);
    if (integrity != QStringList{QStringLiteral("ok")})
        fail(QStringLiteral("La copia '%1' está dañada: %2").arg(copy, integrity.join(u' ')));
    if (db::OnlineCopy::TableRowCounts(copy) != expected)
        fail(QStringLiteral("La copia '%1' no tiene las mismas filas que su original.").arg(copy));
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

void removeTemporary(const QString& temporary)
{
    QFile::remove(temporary);
    for (const char* suffix : kJournals)
        QFile::remove(temporary + QLatin1String(suffix));
}

// Writes a temporary file beside the destination and commits it; the
// temporary file goes if anything fails. What earlier copies to the same
// destination left there when they were killed goes first.
template <typename Write>
void writeBeside(const QString& destination, bool database, Write&& write)
{
    db::OnlineCopy::RemoveStaleTemporaries(destination);
    const QString temporary = db::OnlineCopy::TemporaryName(destination);
    try {
        write(temporary);
        commit(temporary, destination, database);
    } catch (...) {
        removeTemporary(temporary);
        throw;
    }
}

bool sameBytes(const QString& a, const QString& b)
{
    QFile fa(a), fb(b);
    if (!fa.open(QIODevice::ReadOnly) || !fb.open(QIODevice::ReadOnly) || fa.size() != fb.size())
        return false;
    while (!fa.atEnd())
        if (fa.read(1 << 20) != fb.read(1 << 20))
            return false;
    return true;
}

// Any file, byte for byte; with `check`, the copy is read back and compared.
void copyBytes(const QString& source, const QString& destination, bool check)
{
    writeBeside(destination, false, [&](const QString& temporary) {
        QFile from(source);
        if (!from.copy(temporary))
            fail(QStringLiteral("No se pudo copiar '%1': %2").arg(source, from.errorString()));
        if (check && !sameBytes(source, temporary))
            fail(QStringLiteral("La copia de '%1' no es igual a su original.").arg(source));
    });
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

const QString kSafetyStamp = QStringLiteral("yyyyMMdd-HHmmss");

bool isSafetyCopyName(const QString& name)
{
    static const QRegularExpression re(QStringLiteral("^.+\\.\\d{8}-\\d{6}\\.antes$"));
    return re.match(name).hasMatch();
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

void copyDatabase(const db::Connection& source, const QString& destination)
{
    writeBeside(destination, true,
                [&](const QString& temporary) { verifyCopy(db::OnlineCopy::Backup(source, temporary), temporary); });
}

void copyDatabaseFile(const QString& source, const QString& destination)
{
    writeBeside(destination, true,
                [&](const QString& temporary) { verifyCopy(db::OnlineCopy::Backup(source, temporary), temporary); });
}

void compactDatabaseFile(const QString& source, const QString& destination)
{
    writeBeside(destination, true, [&](const QString& temporary) {
        verifyCopy(db::OnlineCopy::VacuumInto(source, temporary), temporary);
    });
}

bool sameFile(const QString& a, const QString& b)
{
    std::error_code ec;
    return std::filesystem::equivalent(fsPath(a), fsPath(b), ec) && !ec;
}

void copyFile(const QString& source, const QString& destination, const db::Connection* live)
{
    if (!QFileInfo(source).isFile())
        pathNotFound(source);
    if (!QFileInfo(QFileInfo(destination).absolutePath()).isDir())
        pathNotFound(destination);
    const bool session = live && live->IsOpen();
    if (session && sameFile(destination, live->Path()))
        fail(QStringLiteral("No se puede copiar sobre '%1': es la base de datos abierta.").arg(destination));
    if (session && sameFile(source, live->Path()))
        copyDatabase(*live, destination);
    else if (db::OnlineCopy::HasSqliteHeader(source))
        copyDatabaseFile(source, destination);
    else
        copyBytes(source, destination, false);
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
        else if (!isJournal(entry) && !db::OnlineCopy::IsTemporaryName(entry.fileName()) &&
                 !isSafetyCopyName(entry.fileName()))
            copyFile(entry.filePath(), target, live);
    }
}

void checkYearDatabase(const QString& path)
{
    if (!QFileInfo(path).isFile())
        fail(QStringLiteral("No se pudo encontrar el archivo '%1'.").arg(path));
    if (!db::OnlineCopy::HasSqliteHeader(path))
        fail(QStringLiteral("'%1' no es una base de datos SQLite.").arg(path));
    const QStringList integrity = db::OnlineCopy::IntegrityCheck(path);
    if (integrity != QStringList{QStringLiteral("ok")})
        fail(QStringLiteral("'%1' está dañada: %2").arg(path, integrity.join(u' ')));
    // Every table of a year with its columns, names and declared types, in
    // their order: a backup whose tables are there but not their columns
    // would open and then fail on the first screen.
    static const db::OnlineCopy::TableColumns year = db::OnlineCopy::ColumnsOfDdl(db::Schema::YearDdl());
    QMap<QString, QStringList> present;
    const db::OnlineCopy::TableColumns columns = db::OnlineCopy::ColumnsOf(path);
    for (auto it = columns.cbegin(); it != columns.cend(); ++it)
        present.insert(it.key().toLower(), it.value());
    QStringList missing, different;
    for (const QString& table : db::Schema::YearTables()) {
        const auto found = present.constFind(table.toLower());
        if (found == present.cend())
            missing << table;
        else if (QString(found->join(u',')).compare(year.value(table).join(u','), Qt::CaseInsensitive) != 0)
            different << table;
    }
    if (!missing.isEmpty())
        fail(QStringLiteral("'%1' no es la base de datos de un curso: le faltan %2").arg(path, missing.join(u", ")));
    if (!different.isEmpty())
        fail(QStringLiteral("'%1' no es la base de datos de un curso: las columnas de %2 no son las de un curso")
                 .arg(path, different.join(u", ")));
}

QStringList safetyCopies(const QString& database)
{
    const QFileInfo file(database);
    const QRegularExpression re(u'^' + QRegularExpression::escape(file.fileName()) +
                                QStringLiteral("\\.\\d{8}-\\d{6}\\.antes$"));
    const QDir folder(file.absolutePath());
    QStringList copies;
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System))
        if (re.match(name).hasMatch())
            copies << folder.filePath(name);
    // The stamp sorts as the time.
    std::sort(copies.begin(), copies.end(), std::greater<>());
    return copies;
}

namespace {

// What a database holds, or nothing when it cannot be read whole (a damaged
// year is never the same as another).
QByteArray digestOf(const QString& path)
{
    try {
        return db::OnlineCopy::ContentDigest(path);
    } catch (const RuntimeError&) {
        return QByteArray();
    }
}

bool sameYear(const QByteArray& digest, const QString& other)
{
    return !digest.isEmpty() && QFileInfo(other).isFile() && digestOf(other) == digest;
}

} // namespace

QString keepSafetyCopy(const QString& database, const db::Connection* live, const QString& replacement)
{
    if (!QFileInfo(database).isFile())
        return QString();
    // A year that is the backup itself, or that the newest safety copy
    // already holds, needs no copy: restoring one backup again and again
    // must not push the real year out of the safety copies.
    const QByteArray year = digestOf(database);
    const QStringList before = safetyCopies(database);
    if ((!replacement.isEmpty() && sameYear(year, replacement)) ||
        (!before.isEmpty() && sameYear(year, before.first())))
        return QString();

    // Two restores within one second keep both years.
    QDateTime moment = vb::Clock::now();
    QString copy;
    do {
        copy = database + u'.' + moment.toString(kSafetyStamp) + QStringLiteral(".antes");
        moment = moment.addSecs(1);
    } while (QFileInfo::exists(copy));

    try {
        copyFile(database, copy, live);
    } catch (const RuntimeError&) {
        // A year that is being replaced because it is damaged is kept as it is.
        bool kept = true;
        try {
            copyBytes(database, copy, true);
        } catch (const RuntimeError&) {
            kept = false;
        }
        if (!kept)
            throw;
    }

    // Only now that the new copy is written and verified may an older one
    // go. The one just made stays, whatever its stamp says against the
    // others' (a clock put back); of the others, the newest that hold a year
    // of their own: a copy holding the same year as one kept adds nothing.
    QList<QByteArray> kept{year};
    for (const QString& older : before) {
        const QByteArray digest = digestOf(older);
        const bool repeated = !digest.isEmpty() && kept.contains(digest);
        if (repeated || kept.size() >= kSafetyCopiesKept)
            QFile::remove(older);
        else
            kept << (digest.isEmpty() ? QByteArray::number(kept.size()) : digest);
    }
    return copy;
}

void setBackupStepHook(std::function<void()> hook, int pagesPerStep)
{
    db::OnlineCopy::SetStepHook(std::move(hook), pagesPerStep);
}

} // namespace utilities

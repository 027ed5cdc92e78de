#pragma once
// Copies of database files that stay consistent while other connections and
// other processes use the file, and the checks that go with them.
//
// A copy reads its source through a connection of its own that holds one
// read transaction across the whole copy and the row counts of the source:
// the copy and the counts are of the same moment. While it lasts, writers
// wait (the year's journal mode keeps readers and writers apart), so a copy
// is short. Writers wait up to five seconds for a copy; a copy waits its
// turn for longer, looking for the lock every millisecond, and takes its
// read transaction anew a few times before it gives up, so that another
// program writing in a tight loop does not make a backup fail.
//
// A source file is opened for writing where it can be, so that a journal
// left beside it by a crash is played back before the file is read; nothing
// else is ever written to it. The destination is created (or overwritten
// when it is an empty or database file); putting it in place under its final
// name is for the caller.
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

namespace db {

class Connection;

namespace OnlineCopy {

// Rows of every table, by the table's name.
using RowCounts = QMap<QString, qint64>;

// Whether the file begins with SQLite's header ("SQLite format 3\0").
bool HasSqliteHeader(const QString& path);

// The database file `source` into the file `destination`, through SQLite's
// online backup; returns the source's row counts, read in the same
// transaction as the copy.
RowCounts Backup(const QString& source, const QString& destination);
// The same for the file a connection has open. The connection stays as it
// is; its committed rows are all in the file.
RowCounts Backup(const Connection& source, const QString& destination);
// The compacted copy of the database file `source` (VACUUM INTO, from a copy
// of one moment); returns the source's row counts of that moment.
RowCounts VacuumInto(const QString& source, const QString& destination);

// PRAGMA integrity_check of a file: "ok" alone when it is sound. A file that
// cannot be read at all throws RuntimeError.
QStringList IntegrityCheck(const QString& path);
// The row count of every table of a file (in one read transaction).
RowCounts TableRowCounts(const QString& path);

// The columns of every table of a file, each "name TYPE" as declared, in
// the table's order; the same of the tables a DDL text creates.
using TableColumns = QMap<QString, QStringList>;
TableColumns ColumnsOf(const QString& path);
TableColumns ColumnsOfDdl(const QString& ddl);
// A digest of what a database holds: its schema and every row of every
// table, in key order. Two files with the same digest hold the same year,
// whatever their pages look like.
QByteArray ContentDigest(const QString& path);

// The temporary name a copy to `destination` writes first:
// "<destination>.<8 hex digits>.tmp", beside it.
QString TemporaryName(const QString& destination);
// Whether a file name is such a temporary (or the journal of one).
bool IsTemporaryName(const QString& fileName);
// Removes from the folder of `destination` the temporaries (and their
// journals) of copies to it, or to files named after it such as its safety
// copies, that were killed half way; other files stay. Files that cannot be
// removed are left.
void RemoveStaleTemporaries(const QString& destination);

// For tests: runs `hook` between the steps of every backup, each step copying
// `pagesPerStep` pages. An empty hook puts the default back.
void SetStepHook(std::function<void()> hook, int pagesPerStep = 1);

} // namespace OnlineCopy
} // namespace db

#pragma once
// Whole, consistent copies of year databases and folders. A copy is never
// written under its final name: it goes to a temporary name beside it, is
// synced to disk, checked (PRAGMA integrity_check and the row count of every
// table against the source) and only then renamed into place, so that the
// destination is always either the old file or the whole new one. What a
// killed copy left beside its destination is cleared before a copy starts.
//
// A database is read through a connection of the copy's own, in one read
// transaction that covers the copy and the counts (db/OnlineCopy.h): writers
// of the session or of other programs wait until it ends.
#include <QString>
#include <QStringList>

#include <functional>

namespace db {
class Connection;
}

namespace utilities {

// The database open in `source`, into `destination`.
void copyDatabase(const db::Connection& source, const QString& destination);
// A closed database file, into `destination`.
void copyDatabaseFile(const QString& source, const QString& destination);
// VACUUM INTO: the compacted copy of a closed database file.
void compactDatabaseFile(const QString& source, const QString& destination);

// One file: a database file (the one `live` has open or another) through a
// connection of the copy's own, any other file byte for byte. The
// destination's folder must exist, and it must not be the file `live` has
// open: the session would go on with a file that is no longer there.
void copyFile(const QString& source, const QString& destination, const db::Connection* live = nullptr);
// Every file and subfolder of `source` into `destination`, made when missing,
// overwriting what is there and leaving the rest. Journals of databases,
// temporaries of copies and safety copies are not copied: each database copy
// is whole by itself, and the safety copies belong to the folder they are in.
void copyFolder(const QString& source, const QString& destination, const db::Connection* live = nullptr);

// Whether two paths name the same file, through links and ".." (false when
// either does not exist).
bool sameFile(const QString& a, const QString& b);

// Whether `path` holds a sound year: SQLite's header, a file that opens and
// passes PRAGMA integrity_check, and every table of a year with the columns
// of a year (names and declared types, in order). Throws
// RuntimeError saying what is wrong.
void checkYearDatabase(const QString& path);

// Keeps the year database `database` (open in `live`, or closed) as its
// safety copy "<database>.<yyyyMMdd-HHmmss>.antes" beside it (the moment of
// vb::Clock, a second on while that name is taken), made like any other
// copy; a year that fails the copy's checks is kept byte for byte, as it is.
// No copy is made when the year holds the same as `replacement` (the file
// about to replace it) or as the newest safety copy. Once the new copy is
// written and verified, only the newest kSafetyCopiesKept copies that each
// hold a different year stay. Returns the copy's path, or "" when none was
// made.
QString keepSafetyCopy(const QString& database, const db::Connection* live = nullptr,
                       const QString& replacement = QString());
inline constexpr int kSafetyCopiesKept = 3;
// The safety copies of `database`, newest first.
QStringList safetyCopies(const QString& database);

// Run-time error 76, as a missing folder raises it.
[[noreturn]] void pathNotFound(const QString& path);
// Makes one folder (its parent must exist); raises error 76 when it cannot.
void makeFolder(const QString& path);

// For tests: runs `hook` between the steps of every backup, each step copying
// `pagesPerStep` pages. An empty hook puts the default back.
void setBackupStepHook(std::function<void()> hook, int pagesPerStep = 1);

} // namespace utilities

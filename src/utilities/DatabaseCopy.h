#pragma once
// Whole, consistent copies of year databases and folders. A copy is never
// written under its final name: it goes to a temporary name beside it, is
// synced to disk, checked (PRAGMA integrity_check and the row count of every
// table against the source) and only then renamed into place, so that the
// destination is always either the old file or the whole new one.
//
// A database open in the session is copied through SQLite's online backup,
// which stays consistent while the session writes between its steps; a
// closed one is read through a read-only connection of its own.
#include <QString>

#include <functional>

struct sqlite3;

namespace db {
class Connection;
}

namespace utilities {

// The database open on `source`, into `destination`.
void copyDatabase(sqlite3* source, const QString& destination);
// A closed database file, into `destination`.
void copyDatabaseFile(const QString& source, const QString& destination);
// VACUUM INTO: the compacted copy of a closed database file.
void compactDatabaseFile(const QString& source, const QString& destination);

// One file: the one `live` has open through the session, another database
// file through a connection of its own, any other file byte for byte.
// The destination's folder must exist.
void copyFile(const QString& source, const QString& destination, const db::Connection* live = nullptr);
// Every file and subfolder of `source` into `destination`, made when missing,
// overwriting what is there and leaving the rest. Journals of databases are
// not copied: each database copy is whole by itself.
void copyFolder(const QString& source, const QString& destination, const db::Connection* live = nullptr);

// Run-time error 76, as a missing folder raises it.
[[noreturn]] void pathNotFound(const QString& path);
// Makes one folder (its parent must exist); raises error 76 when it cannot.
void makeFolder(const QString& path);

// For tests: runs `hook` between the steps of every backup, each step copying
// `pagesPerStep` pages. An empty hook puts the default back.
void setBackupStepHook(std::function<void()> hook, int pagesPerStep = 1);

} // namespace utilities

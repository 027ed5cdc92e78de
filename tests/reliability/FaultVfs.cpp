#include "FaultVfs.h"

#include <sqlite3.h>

#include <cstring>

namespace faultvfs {

namespace {

sqlite3_vfs* g_base = nullptr;
sqlite3_vfs g_vfs;
int g_count = 0;
int g_failAt = 0; // 0: never
int g_code = SQLITE_FULL;
bool g_fired = false;

struct File {
    sqlite3_file base;
    sqlite3_file* real; // the base layer's file, right after this struct
};

sqlite3_file* real(sqlite3_file* f)
{
    return reinterpret_cast<File*>(f)->real;
}

// True when this write or sync is the one to fail.
bool failsNow()
{
    ++g_count;
    if (g_failAt != 0 && g_count == g_failAt) {
        g_fired = true;
        return true;
    }
    return false;
}

int xClose(sqlite3_file* f)
{
    const int rc = real(f)->pMethods->xClose(real(f));
    return rc;
}
int xRead(sqlite3_file* f, void* buf, int n, sqlite3_int64 off)
{
    return real(f)->pMethods->xRead(real(f), buf, n, off);
}
int xWrite(sqlite3_file* f, const void* buf, int n, sqlite3_int64 off)
{
    if (failsNow())
        return g_code == SQLITE_FULL ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    return real(f)->pMethods->xWrite(real(f), buf, n, off);
}
int xTruncate(sqlite3_file* f, sqlite3_int64 size)
{
    return real(f)->pMethods->xTruncate(real(f), size);
}
int xSync(sqlite3_file* f, int flags)
{
    if (failsNow())
        return g_code == SQLITE_FULL ? SQLITE_FULL : SQLITE_IOERR_FSYNC;
    return real(f)->pMethods->xSync(real(f), flags);
}
int xFileSize(sqlite3_file* f, sqlite3_int64* size)
{
    return real(f)->pMethods->xFileSize(real(f), size);
}
int xLock(sqlite3_file* f, int level)
{
    return real(f)->pMethods->xLock(real(f), level);
}
int xUnlock(sqlite3_file* f, int level)
{
    return real(f)->pMethods->xUnlock(real(f), level);
}
int xCheckReservedLock(sqlite3_file* f, int* out)
{
    return real(f)->pMethods->xCheckReservedLock(real(f), out);
}
int xFileControl(sqlite3_file* f, int op, void* arg)
{
    return real(f)->pMethods->xFileControl(real(f), op, arg);
}
int xSectorSize(sqlite3_file* f)
{
    return real(f)->pMethods->xSectorSize(real(f));
}
int xDeviceCharacteristics(sqlite3_file* f)
{
    return real(f)->pMethods->xDeviceCharacteristics(real(f));
}

// Version 1: no shared memory and no memory mapping, which a year in
// rollback-journal mode does not use.
const sqlite3_io_methods kMethods = {1,
                                     xClose,
                                     xRead,
                                     xWrite,
                                     xTruncate,
                                     xSync,
                                     xFileSize,
                                     xLock,
                                     xUnlock,
                                     xCheckReservedLock,
                                     xFileControl,
                                     xSectorSize,
                                     xDeviceCharacteristics};

int xOpen(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* f, int flags, int* outFlags)
{
    auto* file = reinterpret_cast<File*>(f);
    file->real = reinterpret_cast<sqlite3_file*>(file + 1);
    std::memset(file->real, 0, size_t(g_base->szOsFile));
    const int rc = g_base->xOpen(g_base, name, file->real, flags, outFlags);
    file->base.pMethods = file->real->pMethods ? &kMethods : nullptr;
    return rc;
}

} // namespace

void install()
{
    if (g_base)
        return;
    g_base = sqlite3_vfs_find(nullptr);
    g_vfs = *g_base;
    g_vfs.szOsFile = int(sizeof(File)) + g_base->szOsFile;
    g_vfs.zName = "cadernia-fault";
    g_vfs.pNext = nullptr;
    g_vfs.xOpen = xOpen;
    // The rest (delete, access, full path, randomness, time) goes straight
    // to the base layer, which ignores the vfs argument's identity.
    sqlite3_vfs_register(&g_vfs, 1);
}

void arm(int nth, Fault fault)
{
    g_count = 0;
    g_failAt = nth;
    g_code = fault == Fault::DiskFull ? SQLITE_FULL : SQLITE_IOERR;
    g_fired = false;
}

void disarm()
{
    g_count = 0;
    g_failAt = 0;
}

int operations()
{
    return g_count;
}

bool fired()
{
    return g_fired;
}

} // namespace faultvfs

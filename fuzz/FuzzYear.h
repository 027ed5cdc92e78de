#pragma once
// A year for the fuzz targets: a temporary folder with an empty Xestion.mdb of
// the full schema, optionally filled with the sample rows of tests/db/seed.sql.
// Made once per process, in scratchFolder(), which goes when the process ends.
#include "db/Connection.h"
#include "db/Schema.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace fuzz {

// A scratch folder for the process, in memory where the system offers one:
// the targets rewrite files at every input, and a disk makes that slow.
inline const QString& scratchFolder()
{
    static QTemporaryDir dir(QDir(QStringLiteral("/dev/shm")).exists()
                                 ? QStringLiteral("/dev/shm/cadernia-fuzz-XXXXXX")
                                 : QDir::tempPath() + QStringLiteral("/cadernia-fuzz-XXXXXX"));
    static const QString path = dir.isValid() ? dir.path() : (std::abort(), QString());
    return path;
}

inline db::ConnectionPtr openYear(bool seeded)
{
    const QString path = scratchFolder() + (seeded ? QStringLiteral("/seeded.mdb") : QStringLiteral("/empty.mdb"));
    db::Schema::CreateYear(path);
    auto cn = db::Connection::Open(path);
    if (seeded) {
        QFile seed(QStringLiteral(CADERNIA_SOURCE_DIR "/tests/db/seed.sql"));
        if (!seed.open(QIODevice::ReadOnly))
            std::abort();
        cn->ExecuteNative(QStringLiteral("BEGIN;") + QString::fromUtf8(seed.readAll()) + QStringLiteral("\nCOMMIT;"));
    }
    return cn;
}

inline QString utf8(const uint8_t* data, size_t size)
{
    return QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
}

} // namespace fuzz

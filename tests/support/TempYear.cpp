#include "support/TempYear.h"

#include "db/Schema.h"

#include <QFile>

TempYear::TempYear(Fill fill)
{
    path_ = dir_.path() + QStringLiteral("/Xestion.mdb");
    db::Schema::CreateYear(path_);
    if (fill == Fill::Seeded) {
        auto cn = connect();
        cn->ExecuteNative(QStringLiteral("BEGIN;") + seedSql() + QStringLiteral("\nCOMMIT;"));
    }
}

QString TempYear::sourceFile(const QString& relative)
{
    QFile f(QStringLiteral(CADERNIA_SOURCE_DIR "/") + relative);
    if (!f.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(f.fileName()));
    return QString::fromUtf8(f.readAll());
}

QString TempYear::seedSql()
{
    return sourceFile(QStringLiteral("tests/db/seed.sql"));
}

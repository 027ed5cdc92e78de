#include "support/TempInstall.h"

#include "db/Connection.h"
#include "db/Schema.h"
#include "support/TempYear.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

TempInstall::TempInstall(const QString& yearName) : year_(yearName)
{
    QDir().mkpath(program());
    QDir().mkpath(yearFolder());
    db::Schema::CreateYear(database());
    db::Connection::Open(database())
        ->ExecuteNative(QStringLiteral("BEGIN;") + TempYear::seedSql() + QStringLiteral("\nCOMMIT;"));
    write(program() + QStringLiteral("/ruta.ini"), base().toUtf8() + "\r\n");
    write(program() + QStringLiteral("/ano.ini"), year_.toUtf8() + "\r\n");
}

void TempInstall::write(const QString& path, const QByteArray& content)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(path));
    f.write(content);
}

QByteArray TempInstall::read(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray();
    return f.readAll();
}

QStringList TempInstall::tree(const QString& folder)
{
    QStringList entries;
    QDirIterator it(folder, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
    const QDir root(folder);
    while (it.hasNext())
        entries.append(root.relativeFilePath(it.next()));
    entries.sort();
    return entries;
}

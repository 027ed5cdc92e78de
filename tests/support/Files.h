#pragma once
// Files as the tests read them back: their bytes, the files of a folder, the
// text of a PDF, and the soundness of a database opened as the program
// opens a year.
#include "db/BoundStatement.h"
#include "db/Connection.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace files {

// The whole file; empty when it cannot be read.
inline QByteArray bytesOf(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The names of the files of a folder, hidden ones included, sorted.
inline QStringList filesIn(const QString& folder)
{
    QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden);
    names.sort();
    return names;
}

// The text of a PDF laid out as on the page (pdftotext), or a line that
// says why there is none.
inline QString pdfText(const QString& pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"),
            {QStringLiteral("-layout"), QStringLiteral("-enc"), QStringLiteral("UTF-8"), pdf, QStringLiteral("-")});
    if (!p.waitForFinished(30000) || p.exitCode() != 0)
        return QStringLiteral("<pdftotext failed: %1>").arg(QString::fromUtf8(p.readAllStandardError()));
    return QString::fromUtf8(p.readAllStandardOutput());
}

// PRAGMA integrity_check of a database opened through the engine, as the
// program opens a year (a journal left by a killed writer is rolled back
// first): "ok" when sound.
inline QString integrity(const QString& path)
{
    const db::ConnectionPtr cn = db::Connection::Open(path);
    return db::BoundStatement(*cn, QStringLiteral("PRAGMA integrity_check")).rows().value(0).value(0).toString();
}

} // namespace files

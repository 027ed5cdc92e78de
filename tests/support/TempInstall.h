#pragma once
// An installed program for the shell's tests: a program folder with ruta.ini
// and ano.ini (CR LF), and a base folder holding one year with an
// Xestion.mdb of the full schema, filled with the sample rows.
#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

class TempInstall {
public:
    explicit TempInstall(const QString& yearName = QStringLiteral("2025-26"));

    QString program() const { return dir_.path() + QStringLiteral("/programa"); }
    QString base() const { return dir_.path() + QStringLiteral("/base"); }
    QString yearFolder() const { return base() + u'/' + year_; }
    QString database() const { return yearFolder() + QStringLiteral("/Xestion.mdb"); }
    const QString& year() const { return year_; }
    QString root() const { return dir_.path(); }

    static void write(const QString& path, const QByteArray& content);
    static QByteArray read(const QString& path);
    // Every file and folder under folder, as relative paths, sorted.
    static QStringList tree(const QString& folder);

private:
    QTemporaryDir dir_;
    QString year_;
};

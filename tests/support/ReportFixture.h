#pragma once
// A base folder for report tests: the shipped report files under Informes,
// the sample year of tests/db/seed.sql as "2024-25", a smaller second
// year "2025-26", and a program folder whose Impresion/Impresion.mdb holds
// one staged student record. The session globals point at the first year,
// the current directory is the program folder, and the reports' clock
// stands at 05/03/2025 10:30.
#include <QDir>
#include <QString>
#include <QTemporaryDir>

class ReportFixture {
public:
    ReportFixture();
    ~ReportFixture();

    QString base() const { return dir_.path() + QStringLiteral("/base"); }
    QString program() const { return dir_.path() + QStringLiteral("/programa"); }
    QString yearPath(const QString& year) const { return base() + u'/' + year + QStringLiteral("/Xestion.mdb"); }
    QString reportPath(const QString& file) const { return base() + QStringLiteral("/Informes/") + file; }

    // Points gAno and gRutaBD at another year folder (as a year switch does).
    void switchYear(const QString& year);

    static QString firstYear() { return QStringLiteral("2024-25"); }
    static QString secondYear() { return QStringLiteral("2025-26"); }

private:
    QTemporaryDir dir_;
    QString previousDir_;
};

#pragma once
// The installer's work: the two configuration files beside the program, the
// base folder with its reports folder and icons, the first year with an empty
// database of the full schema (or the demo class book), and the print staging
// database beside the program.
#include "setup/DemoYear.h"

#include <QDate>
#include <QString>

#include <functional>

namespace setup {

struct SetupOptions {
    QString baseFolder; // required; made absolute against the current directory
    QString programDir; // where ruta.ini, ano.ini and Impresion/ go; empty: the program folder of this binary's folder
    QString yearName;   // folder of the first year; empty: the school year of `today`
    bool demo = false;  // fill the year with the demo class book
    // An existing year is used as it is (a second user of a shared base
    // folder) instead of being refused; its database is not touched.
    bool keepExistingYear = false;
    QDate today; // invalid: the system's date
    // Told before each step: how far the work is (0 to 100) and what comes
    // next, in Spanish. Called on the installing thread.
    std::function<void(int percent, const QString& step)> progress;
};

struct SetupResult {
    QString basePath;     // absolute, no trailing slash: what ruta.ini holds
    QString yearName;     // what ano.ini holds
    QString databasePath; // <base>/<year>/Xestion.mdb
    QString printPath;    // <program>/Impresion/Impresion.mdb
    bool printCreated = false;
    QString rutaIni;
    QString anoIni;
    DemoSummary demo; // zeros unless options.demo
};

// Installs a base folder and its first year. Nothing is touched when the year
// already holds an Xestion.mdb, unless options.keepExistingYear. On failure returns false with a Spanish
// message in *error.
bool setupBase(const SetupOptions& options, QString* error, SetupResult* result = nullptr);

// The school year a date falls in: from September on "2026-27" for 2026,
// January to August the year that began the September before.
QString schoolYearName(const QDate& date);
// The calendar year in which a school year begins: the first four digits of
// its name ("2026-27" gives 2026), or the school year of `fallback`.
int schoolYearStart(const QString& yearName, const QDate& fallback);

// Refuses empty names, "." and "..", and characters no folder name may hold
// on any of the systems a year is copied to. Returns the reason, or "".
QString checkYearName(const QString& name);

// Writes a one-line configuration file with a CR LF end, whole or not at all.
bool writeConfigLine(const QString& path, const QString& line, QString* error);

} // namespace setup

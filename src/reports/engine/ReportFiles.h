#pragma once
// The report files that come with the program. They travel inside it as
// resources, so an installation, or a restore of a lost file, needs no other
// disk: the year's reports go to <base>/Informes and the student record to
// <program>/Impresion, beside its staging database.
#include <QString>
#include <QStringList>

namespace reports {

// The names of the files under Informes, then "FichaAlumno.rpt".
QStringList reportFileNames();

// The text of a report file as shipped; "" for an unknown name.
QString shippedReportText(const QString& fileName);

// Writes every report file; a file already in place is the user's and stays
// unless `overwrite`. The folders are made when missing. On failure returns
// false with a Spanish message in *error.
bool installReportFiles(const QString& baseFolder, const QString& programDir, QString* error = nullptr,
                        bool overwrite = false);

} // namespace reports

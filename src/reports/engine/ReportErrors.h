#pragma once
// The numbers of the report engine's own failures, thrown as RuntimeError.
// The viewers recognise the missing file by its number.
#include <QString>

namespace reports {

enum ReportError : int {
    FileNotFound = -2147206461,   // the report file does not exist
    InvalidFile = -2147206460,    // the file is not a report, or its template does not parse
    NoDataLocation = -2147206459, // a report of the year with no database given
    FormulaError = -2147206458    // the selection formula cannot be read
};

// The message of a report file that is not where the catalogue says.
inline QString missingFileText()
{
    return QStringLiteral("El archivo de reporte no se encuentra, restáurelo de los discos de instalación");
}

} // namespace reports

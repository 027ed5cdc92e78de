#pragma once
// The staging database of the printed student record (Impresion.mdb): five
// tables that hold one student at a time, as the sheet's grids show it, with
// a decimal comma written as a point and an empty cell as the empty text.
// A staging is written whole or not at all: the old rows are deleted and the
// new ones added in one transaction, so a failure leaves the last print as it
// was and two records never mix. Beside the cells, each task type row keeps
// the number of its evaluation row (IdFila), which the record groups by.
#include "students/StudentStanding.h"

namespace staging {

// Where the sheet stages, relative to the working folder.
QString defaultPath();

// Replaces what the staging database at `path` holds by the record. A missing
// file raises the connection's run-time error; a file of an earlier version
// (numeric mark columns) gets its tables made anew first.
void stage(const standing::Record& record, const QString& path = defaultPath());

// A cell as staged: "7,40" becomes "7.40".
QString cell(const QString& text);

} // namespace staging

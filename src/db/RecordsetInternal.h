#pragma once
// Internal to Recordset: the errors it raises and the comparison of values
// shared by Find and the crosstab. The recordset's work is split by what it
// does: Recordset.cpp (open, fetch, moves, fields), RecordsetFind.cpp,
// RecordsetPivot.cpp and RecordsetWrite.cpp.
#include <QString>
#include <QVariant>

namespace db::detail {

[[noreturn]] void noCurrentRecord();
[[noreturn]] void badArgument(const QString& detail = QString());
[[noreturn]] void closedRecordset();

// Numbers as numbers, dates as dates, anything else as text in the
// database's order (<0, 0, >0).
int compareValues(const QVariant& a, const QVariant& b);

} // namespace db::detail

#pragma once
// The text of a class list file (.alu), line by line. Each line is read as
// UTF-8 when its bytes are UTF-8, and otherwise as Windows-1252, the
// character set such lists were written in; one line with a stray byte
// does not change how the others read.
#include <QByteArray>
#include <QString>
#include <QStringList>

namespace students {

// The lines of the file's bytes, without their ends (LF or CR LF).
QStringList importLines(const QByteArray& bytes);

// One line's bytes as text.
QString decodeImportLine(QByteArrayView line);

} // namespace students

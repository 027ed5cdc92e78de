#pragma once
// The text of a class list file (.alu), line by line. Each line is read as
// UTF-8 when its bytes are UTF-8, and otherwise as Windows-1252, the
// character set such lists were written in; one line with a stray byte
// does not change how the others read.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace db {
class Recordset;
}

namespace students {

// The lines of the file's bytes, without their ends (LF, CR LF or CR). A
// file that begins with a UTF-16 byte-order mark is read as UTF-16; a UTF-8
// byte-order mark is left out.
QStringList importLines(const QByteArray& bytes);

// One line's bytes as text.
QString decodeImportLine(QByteArrayView line);

// Adds a student to the open recordset of tblAlumnos for each line, in the
// group given. Each field of a line is closed by "#": key, surnames, name; a
// field that is not there, or empty, leaves its column unset, and its text
// ends at a NUL character, as a string of the runtime does when it reaches
// the database. A line without a key is refused as the database refuses a
// Null key (run-time error, nothing of that line written); the lines before
// it stay.
void importStudents(db::Recordset& alumnos, const QStringList& lines, const QVariant& group);

} // namespace students

#pragma once
// The one-line configuration files the screens write: ano.ini, color.ini and
// color2.ini. Each holds its value and CR LF, and is written whole or not at
// all.
#include <QString>

namespace utilities {

// Writes the line; a file that cannot be written raises run-time error 76.
void EscribirLinea(const QString& path, const QString& line);

// A number as the numeric print form writes it: a blank in the place of the
// sign of a positive number, and a blank after it (" 12632256 ").
QString printedNumber(qint64 value);

} // namespace utilities

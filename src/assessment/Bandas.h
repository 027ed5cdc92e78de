#pragma once
// The grade bands of a task's marks, IN, SF, BE, NT and SB. Two sets of
// bounds stand here on purpose and are not to be aligned: the colour of a
// row uses whole numbers on the adjusted mark N = Nota / Max * 10, while the
// counts run statements whose bounds leave a hundredth between bands, so a
// mark may be coloured in one band and counted in another, or in none
// (N = 5.995 is coloured SF and counted nowhere; N = 4.9995 is coloured IN
// and counted SF).
#include <QColor>
#include <QString>

#include <optional>

namespace bands {

enum Band : int { IN, SF, BE, NT, SB, Count };

// "IN", "SF", "BE", "NT", "SB".
QString name(int band);
QColor colour(int band);

// The colour of a row for a stored mark on the task type's maximum: the
// band's colour, the button face for a mark below 0, and none for 0 or above
// the scale (the cell is left as it is). A maximum of 0 is a division by
// zero, raised as the run-time error.
std::optional<QColor> markColour(float mark, qint16 maximum);

// The statement that counts the marks of a task in a band.
QString countStatement(int band, qint32 taskId);

// The condition that counts a mark in SF, BE, NT or SB, "BETWEEN 4.999 AND
// 5.99" for SF: the same wherever marks are counted, a hundredth falling
// between bands. IN has none of its own here: each count states where it
// begins (above 0 on a task, at 0 on evaluation and final marks).
QString between(int band);

} // namespace bands

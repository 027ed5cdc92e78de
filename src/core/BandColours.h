#pragma once
// The colours of the grade bands IN, SF, BE, NT and SB, as the marking grid
// paints its cells and the reports print them: one table for screen and
// paper. Values are 0xRRGGBB.
#include <QtGlobal>

namespace bands {

inline constexpr int kCount = 5;
inline constexpr const char* kNames[kCount] = {"IN", "SF", "BE", "NT", "SB"};
inline constexpr quint32 kColours[kCount] = {0xFF9191, 0xFADEF9, 0x6D80E2, 0x81CB83, 0xEBDEA0};

} // namespace bands

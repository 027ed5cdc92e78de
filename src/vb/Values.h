#pragma once
// What a value holds, as the engine and the reports tell numbers from texts.
#include <QVariant>

namespace vb {

// Whether the value holds a number of its own, not a text that reads as
// one; a Boolean counts when asked.
bool holdsNumber(const QVariant& v, bool countBoolean = false);

} // namespace vb

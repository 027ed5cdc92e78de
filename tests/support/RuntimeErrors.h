#pragma once
// The number of the run-time error a piece of code raises, 0 when it raises none.
#include "vb/RuntimeError.h"

#include <functional>

inline int errorNumber(const std::function<void()>& f)
{
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.Number();
    }
    return 0;
}

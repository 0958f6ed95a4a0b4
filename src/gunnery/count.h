// Counted moves: inside one handler a counter goes from one value to another in steps, so that the user sees
// the move. Only the final values affect the practice; the duration in seconds is for display.
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/machine.h"

namespace vorn {

// The number of counts: one at `from`, and one for each whole step as far as `to`. 0 if `from` is past `to`.
inline int counts(double from, double to, double step)
{
    constexpr double rounding = 1e-9;   // so that a fractional step reaches the end
    constexpr double most = 1e9;
    const double n = std::floor((to - from) / step + rounding);
    return n < 0 ? 0 : static_cast<int>(std::min(n, most)) + 1;
}

// Calls `each` with the value of each count. The counts are spread over `seconds`.
template <class action>
void count(machine& m, double from, double to, double step, double seconds, action each)
{
    const int all = counts(from, to, step);
    for (int i = 0; i < all; ++i) {
        each(from + i * step);
        m.pace(seconds / all);
    }
}

}   // namespace vorn

// Counted moves: a counter goes from one value to another by a step, inside one handler, and what it moves is
// seen meanwhile. Only the end values belong to the model; the time is how long the move is shown.
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/machine.h"

namespace vorn {

using coordinate = double object_fields::*;

// How many counts there are, the first value itself included and the last one not beyond the end; none when
// the first value lies beyond it. A step that isn't a whole number may miss the end by no more than rounding.
inline int counts(double from, double to, double step)
{
    constexpr double rounding = 1e-9, most = 1e9;
    const double n = std::floor((to - from) / step + rounding);
    return n < 0 ? 0 : static_cast<int>(std::min(n, most)) + 1;
}

// Does something at each count, spread over so many seconds; gives the number of counts.
template <class action>
int count(machine& m, double from, double to, double step, double seconds, action each)
{
    const int all = counts(from, to, step);
    for (int i = 0; i < all; ++i) {
        each(from + i * step);
        m.pace(seconds / all);
    }
    return all;
}

}   // namespace vorn

// The numbers in which the visual and the thermal sight differ. Distances in twips, ranges in metres.
#pragma once

#include <limits>

namespace vorn {

enum class sight_kind { visual, thermal };

// One direction of the commander's lay: the end lies up to `spread` beyond `base` in the direction of the
// step.
struct slew_numbers {
    double base;
    double spread;
    double step;
};

struct sight_numbers {
    const char* resultmode;     // the sight's word in the record
    int timer1;                 // milliseconds
    int nearest;                // a target nearer than this is taken as this far
    double widest;              // width of a target at no distance, before the bounds
    int far;                    // from this range on a target has its smallest width
    slew_numbers right, left;   // with the target left of the sight, and not
    slew_numbers down, up;      // with the target above it, and not
    bool eventsinlay;           // the lay lets events run between its steps
    int loadedat;               // loader's count at which the gun is loaded
    int heldticks;              // Timvoice ticks after which a held call is over
};

inline constexpr sight_numbers visualsight{
    "VISUAL",          1,    600, 660, 2200, {4000, 200, 350}, {4000, 200, -350}, {3000, 100, 250},
    {3000, 100, -250}, true, 4,   4};
inline constexpr sight_numbers thermalsight{"THERMAL",
                                            10,
                                            std::numeric_limits<int>::min(),
                                            560,
                                            std::numeric_limits<int>::max(),
                                            {800, 600, 50},
                                            {2000, 800, -50},
                                            {700, 400, 50},
                                            {1800, 300, -50},
                                            false,
                                            5,
                                            3};

// A target's width at a range: larger divisors make larger targets.
inline constexpr double smallest_target = 160;
inline constexpr double largest_target = 480;

}   // namespace vorn

// The numbers in which the visual and the thermal sight differ. Distances in twips, ranges in metres.
#pragma once

#include <algorithm>
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

// Where a picture stops: its left or top edge to the one side, so much of it left in the window to the other.
struct limit_numbers {
    double near;     // Left and Top beyond which it goes no further right and down
    double across;   // of its Width, and
    double down;     // of its Height that stay
};

struct sight_numbers {
    const char* resultmode;     // the sight's word in the record
    int timer1;                 // milliseconds
    int nearest;                // a target nearer than this is taken as this far
    double widest;              // width of a target at no distance, before the bounds
    int far;                    // from this range on a target has its smallest width
    slew_numbers right, left;   // with the target left of the sight, and not
    slew_numbers down, up;      // with the target above it, and not
    int pressstep;              // twips a tick while a direction is held
    bool accelerates;           // each tick moves one twip more than the last
    limit_numbers keylimits;    // of the directions held
    limit_numbers sticklimits;
    bool eventsinlay;   // the lay lets events run between its steps
    int loadedat;       // loader's count at which the gun is loaded
    int holdticks;      // timautolay ticks that pass before the lay
    int voiceticks;     // Timvoice ticks after which a held call is over
};

inline constexpr sight_numbers visualsight{
    .resultmode = "VISUAL",
    .timer1 = 1,
    .nearest = 600,
    .widest = 660,
    .far = 2200,
    .right = {4000, 200, 350},
    .left = {4000, 200, -350},
    .down = {3000, 100, 250},
    .up = {3000, 100, -250},
    .pressstep = 20,
    .accelerates = true,
    .keylimits = {-100, 4500, 4000},
    .sticklimits = {-100, 4500, 3000},
    .eventsinlay = true,
    .loadedat = 4,
    .holdticks = 3,
    .voiceticks = 4,
};
inline constexpr sight_numbers thermalsight{
    .resultmode = "THERMAL",
    .timer1 = 10,
    .nearest = std::numeric_limits<int>::min(),
    .widest = 560,
    .far = std::numeric_limits<int>::max(),
    .right = {800, 600, 50},
    .left = {2000, 800, -50},
    .down = {700, 400, 50},
    .up = {1800, 300, -50},
    .pressstep = 30,
    .accelerates = false,
    .keylimits = {-10, 9500, 5800},
    .sticklimits = {-100, 5000, 3000},
    .eventsinlay = false,
    .loadedat = 5,
    .holdticks = 2,
    .voiceticks = 3,
};

// A target's width at a range: larger divisors make larger targets.
inline constexpr double smallest_target = 160;
inline constexpr double largest_target = 480;
inline double target_width(const sight_numbers& n, int metres, int divisor)
{
    const int range = std::max(metres, n.nearest);
    const double width = range < n.far ? n.widest - static_cast<double>(range) / divisor : smallest_target;
    return std::clamp(width, smallest_target, largest_target);
}

// Where the corner of a round hits, against the corner of the target; twips, the edges themselves are a miss.
struct kill_box {
    double left, right, top, bottom;
};
// The margin is taken off all sides; at the top of a thermal target it isn't.
inline kill_box kill_box_of(sight_kind kind, double width, double height, double margin)
{
    return {margin, width - margin, kind == sight_kind::visual ? margin : 0, height - margin};
}

}   // namespace vorn

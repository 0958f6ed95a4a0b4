// The numbers in which the visual and the thermal sight differ, and the sizes of target and kill box.
// Distances in twips, ranges in metres.
#pragma once

#include <algorithm>
#include <limits>
#include <string>

#include "platform/objects.h"

namespace vorn {

enum class sight_kind { visual, thermal };

// One direction of the commander's lay. The target is moved in steps until another step would take it past a
// random place. This place is up to `spread` beyond `base` in the step's direction.
struct slew_numbers {
    double base;
    double spread;
    double step;
};

// Limits of the traverse. They are tested before each move, so a move can go past them.
struct limit_numbers {
    double near;     // the picture moves right only if its Left, and down only if its Top, is less than this
    double across;   // width of the picture that must remain right of the window's left edge
    double down;     // height of the picture that must remain below the window's top edge
};

// A drop proportional to the range: `twips` for each `metres`.
struct drop_numbers {
    double twips;
    double metres;

    constexpr double at(double range) const { return range * twips / metres; }
};

// The flight of a FIN or DST round: it starts below the aim point, gets smaller, and rises to the place that
// is its drop below the aim point.
struct fin_numbers {
    double from;       // below the aim point
    drop_numbers to;   // below the aim point
    double step;
    double size;       // at the start
    double shrink;     // per step
    double smallest;   // lower limit of the size
    double drift;      // per step, to the right
};

// The flight of a HESH round. It starts above the aim point, by `from` plus one twip per metre of range. It
// ends below the aim point, by its drop less the upward move of a relay.
struct hesh_numbers {
    double from;
    drop_numbers to;
    double step;
    double below;   // added to the drop at any range
};

struct coax_numbers {
    double size;         // of the tracer
    drop_numbers drop;   // of the beaten zone, below the aim point
    int bursts;          // needed for a kill in addition to coaxbursts
};

struct loader_numbers {
    int from, to;   // the gun is loaded when `loadcount` is from `from` to `to`
};

// The ticks of Timpause from one target to the next, drawn at random from `least` to `most`.
struct wait_numbers {
    int least, most;
};

struct explosion_numbers {
    int interval;            // of Timexplode, milliseconds
    const char* drawing;     // first part of the pictures' names
    const char* voiceless;   // sound with voices off
};

struct sight_numbers {
    const char* resultmode;      // name of the sight in the record
    area window;                 // the sight window on the screen
    area aim;                    // the aim point in the window
    area picture;                // the range picture in the window, as designed
    int timer1;                  // interval of Timer1, milliseconds
    int nearest;                 // a nearer target counts as this far away
    double widest;               // width of a target at range 0, before clamping
    int far;                     // from this range on a target has its smallest width
    slew_numbers right, left;    // the target moves right if it is left of the sight, otherwise left
    slew_numbers down, up;       // down if it is above the sight, otherwise up
    int pressstep;               // per tick while a direction is held
    bool accelerates;            // with one direction held, each tick moves one twip more than the last
    limit_numbers keylimits;     // of the traverse by keys and direction buttons
    limit_numbers sticklimits;   // of the traverse by the joystick
    bool eventsinlay;            // events are handled between the steps of the commander's lay
    int fastest, usual;          // maximum and design value of the lay speed slider
    int holdticks;               // timautolay ticks before the one that starts the lay
    drop_numbers reversionary;   // upward move of picture and target for the reversionary mark
    fin_numbers fin;
    hesh_numbers hesh;
    coax_numbers coax;
    double scatter;   // height of the band in which main gun rounds scatter; 0: none, and no draw
    drop_numbers finjump, otherjump;   // downward jump of the thermal sight's ballistic mark: FIN, and others
    loader_numbers loaded;
    wait_numbers wait;
    explosion_numbers explosion;
    int voiceticks;   // Timvoice ticks after which a call of the crew ends
};

inline constexpr sight_numbers visualsight{
    .resultmode = "VISUAL",
    .window = {5760, 1400, 8850, 6615},
    .aim = {4525, 1140, 30, 30},
    .picture = {-45600, -12000, 64425, 31815},
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
    .fastest = 160,
    .usual = 110,
    .holdticks = 3,
    .reversionary = {0, 1},
    .fin = {.from = 1420, .to = {1, 2}, .step = -20, .size = 600, .shrink = 20, .smallest = 20, .drift = 3},
    .hesh = {.from = 1105, .to = {2, 1}, .step = 0.3, .below = 0},
    .coax = {.size = 5, .drop = {2, 1}, .bursts = 1},
    .scatter = 150,
    .finjump = {0, 1},
    .otherjump = {0, 1},
    .loaded = {4, std::numeric_limits<int>::max()},
    .wait = {5, 5},
    .explosion = {.interval = 10, .drawing = ":explosion", .voiceless = "explode1.wav"},
    .voiceticks = 4,
};
inline constexpr sight_numbers thermalsight{
    .resultmode = "THERMAL",
    .window = {3630, 1875, 9465, 5775},
    .aim = {4700, 2600, 55, 50},
    .picture = {-7080, -3720, 21780, 11520},
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
    .fastest = 20,
    .usual = 3,
    .holdticks = 2,
    .reversionary = {1, 2},
    .fin = {.from = 1000, .to = {0, 1}, .step = -1, .size = 500, .shrink = 2, .smallest = 10, .drift = 1},
    .hesh = {.from = 1000, .to = {0, 1}, .step = 0.2, .below = 50},
    .coax = {.size = 15, .drop = {1, 7}, .bursts = 2},
    .scatter = 0,
    .finjump = {1, 3},
    .otherjump = {1, 1},
    .loaded = {5, 5},
    .wait = {3, 7},
    .explosion = {.interval = 1, .drawing = ":hotexplosion", .voiceless = "explode.wav"},
    .voiceticks = 3,
};

constexpr const sight_numbers& numbers_of(sight_kind kind)
{
    return kind == sight_kind::visual ? visualsight : thermalsight;
}
// The sight of a range or record of this type.
inline sight_kind sight_of(const std::string& type)
{
    return type == thermalsight.resultmode ? sight_kind::thermal : sight_kind::visual;
}

// The visual sight's columns of figures and ticks, which show the drop of HESH and coax. For display only.
inline constexpr area figures_left{2880, 2520, 375, 3255}, figures_right{6360, 2520, 255, 3495};
inline constexpr area ticks_left{3480, 2430, 255, 2775}, ticks_right{5640, 2430, 255, 2775};

// The width of a target at a range. A larger divisor makes a larger target.
inline constexpr double smallest_target = 160;
inline constexpr double largest_target = 480;
inline double target_width(const sight_numbers& n, double metres, int divisor)
{
    const double range = std::max<double>(metres, n.nearest);
    const double width = range < n.far ? n.widest - range / divisor : smallest_target;
    return std::clamp(width, smallest_target, largest_target);
}

// The bounds of a round's upper left corner for a hit, relative to that of the target. A round exactly on a
// bound misses.
struct kill_box {
    double left, right, top, bottom;
};
// The margin is taken off all sides of the target, on the thermal sight off all but the top.
inline kill_box kill_box_of(sight_kind kind, double width, double height, double margin)
{
    return {margin, width - margin, kind == sight_kind::visual ? margin : 0, height - margin};
}

}   // namespace vorn

#include "gunnery/count.h"
#include "gunnery/gunnery.h"
#include "trainer.h"

namespace vorn {

namespace {

struct direction_row {
    timer gunnery_screen::*clock;
    int16 gunnery_screen::*step;
    coordinate along;
    coordinate extent;   // size of the picture along this axis
    int sign;            // of the picture's movement
    int faster;          // added to traverseaccel per tick
    int weight;          // factor of traverseaccel in the step
};

// Indexed by the direction in which the view moves; the picture moves the other way.
const direction_row rows[] = {{&gunnery_screen::Timleft, &gunnery_screen::traversestep, &object_fields::Left,
                               &object_fields::Width, 1, 1, 1},
                              {&gunnery_screen::Timright, &gunnery_screen::traversestep, &object_fields::Left,
                               &object_fields::Width, -1, 1, -1},
                              {&gunnery_screen::Timup, &gunnery_screen::elevatestep, &object_fields::Top,
                               &object_fields::Height, 1, -1, -1},
                              {&gunnery_screen::Timdown, &gunnery_screen::elevatestep, &object_fields::Top,
                               &object_fields::Height, -1, 1, -1}};

const direction_row& row_of(direction d)
{
    return rows[static_cast<int>(d)];
}

bool within(const gunnery_screen& s, const limit_numbers& limits, const direction_row& d)
{
    const double at = s.Imgrange.*d.along;
    const double far = d.along == &object_fields::Left ? limits.across : limits.down;
    return d.sign > 0 ? at < limits.near : at > 1 - s.Imgrange.*d.extent + far;
}

// The limit is tested before the move. At the limit neither the picture nor traverseaccel changes.
void tick(gunnery_screen& s, const direction_row& d)
{
    if (!within(s, s.numbers.keylimits, d)) return;
    if (s.numbers.accelerates) s.traverseaccel += d.faster;
    movepicture(s, d.along, s.*d.step + d.weight * s.traverseaccel);
}

// Moves the picture one twip for each 100 units of the reading beyond the dead band. Rounding down makes this
// asymmetric: movement starts just below the lower bound, but 100 units above the upper one.
void stick_axis(gunnery_screen& s, direction below, direction above, double at, double centre, double factor)
{
    const double low = centre - 2 * factor, high = centre + 2 * factor;
    if (at < low && within(s, s.numbers.sticklimits, row_of(below)))
        movepicture(s, row_of(below).along, -Int((at - low) / 100));
    if (at > high && within(s, s.numbers.sticklimits, row_of(above)))
        movepicture(s, row_of(above).along, -Int((at - high) / 100));
}

}   // namespace

void movepicture(gunnery_screen& s, coordinate along, double twips)
{
    s.Imgtargets.*along += twips;
    s.Imgrange.*along += twips;
}

void pressdirection(gunnery_screen& s, direction d)
{
    s.*row_of(d).step = row_of(d).sign * s.numbers.pressstep;
    start(s.*row_of(d).clock);
}

void releasedirection(gunnery_screen& s, direction d)
{
    stop(s.*row_of(d).clock);
    s.*row_of(d).step = 0;
    s.traverseaccel = 0;
}

void movestick(const trainer& t, gunnery_screen& s, int x, int y)
{
    if (!t.shared.joyselected) return;
    stick_axis(s, direction::up, direction::down, y, t.shared.joyycentre, t.shared.joyyfactor);
    stick_axis(s, direction::left, direction::right, x, t.shared.joyxcentre, t.shared.joyxfactor);
}

void make_traverse(gunnery_screen& s)
{
    for (const direction_row& d : rows) add(s.window, s.*d.clock, 1, [&s, &d] { tick(s, d); });
}

}   // namespace vorn

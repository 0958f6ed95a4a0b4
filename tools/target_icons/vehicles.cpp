#include "vehicles.h"

#include <algorithm>

namespace {

constexpr material armour{{.115, .125, .055}, .40, true};
constexpr material turret_armour{{.115, .125, .055}, .29, true};   // far from the engine
constexpr material dry_armour{{.165, .155, .078}, .40, true};      // the carriers are of another paint
constexpr material plain_armour{{.115, .125, .055}, .42};
constexpr material deck{{.075, .08, .045}, .88};   // over an engine
constexpr material louvre{{.03, .032, .022}, 1};
constexpr material exhaust{{.045, .035, .03}, 1};
constexpr material rubber{{.022, .022, .021}, .70};
constexpr material steel{{.075, .075, .06}, .82};   // of road wheels and tracks: warm from running
constexpr material hub{{.10, .105, .055}, .92};
constexpr material barrel{{.040, .044, .028}, .84};
constexpr material skirt{{.105, .11, .055}, .48, true};
constexpr material fitting{{.055, .06, .038}, .42};
constexpr material canvas{{.27, .24, .145}, .36};
constexpr material glass{{.03, .04, .045}, .25};
constexpr material lamp{{.34, .34, .28}, .45};
constexpr material bare_wood{{.16, .13, .075}, .36};

// Six corners on the left, the same on the right: an outline from above.
std::vector<point> mirrored(const std::vector<point>& left_side)
{
    std::vector<point> whole = left_side;
    for (auto p = left_side.rbegin(); p != left_side.rend(); ++p) whole.push_back({p->x, -p->y});
    return whole;
}

// Tracks ----------------------------------------------------------------------------------------------------

struct running_gear {
    span length;     // of the track
    span width;      // of the one on the left
    double height;   // of its upper run
    int wheels;
    double radius;   // of a road wheel
};

// A track: its two runs with the wheels between, sprocket and idler raised at the ends.
void add_track(solid& to, const running_gear& g)
{
    constexpr double thickness = .09, end_wheel = .31;
    const auto [rear, front] = g.length;
    add_pair(to, across({{rear + .75, 0},
                         {front - .8, 0},
                         {front, g.height - .5},
                         {front, g.height - .15},
                         {front - .2, g.height},
                         {rear + .2, g.height},
                         {rear, g.height - .15},
                         {rear, g.height - .5}},
                        {g.width.from, g.width.to - .1}, rubber));
    // The run on the ground stands out from the wheels by its own thickness.
    add_pair(to, across({{rear + .7, 0}, {front - .75, 0}, {front - .65, thickness}, {rear + .6, thickness}},
                        g.width, steel));
    const auto wheel = [&](double x, double z, double radius) {
        const double out = g.width.to;
        add_pair(to, rod({x, out - .3, z}, {x, out - .02, z}, radius, radius, steel));
        add_pair(to, rod({x, out - .02, z}, {x, out, z}, radius * .74, radius * .7, hub));
        add_pair(to, rod({x, out, z}, {x, out + .05, z}, radius * .26, radius * .2, steel));
    };
    const double first = rear + .95, spacing = (front - rear - 1.95) / (g.wheels - 1);
    for (int i = 0; i < g.wheels; ++i) wheel(first + spacing * i, g.radius + thickness * .6, g.radius);
    wheel(rear + .38, g.height - .36, end_wheel);
    wheel(front - .38, g.height - .36, end_wheel);
}

// The tank --------------------------------------------------------------------------------------------------

solid tank_hull()
{
    solid s;
    add_track(s, {{-3.45, 3.4}, {1.12, 1.72}, .95, 6, .37});
    add(s, across({{-3.35, .5}, {-3.5, 1.0}, {-3.3, 1.35}, {1.5, 1.42}, {3.5, .92}, {3.0, .42}},
                  {-1.15, 1.15}, armour));
    add_pair(s,
             across({{-3.5, .95}, {-3.5, 1.3}, {1.9, 1.34}, {3.6, .98}, {3.6, .86}, {1.9, .98}}, {1.1, 1.78},
                    armour));   // over the tracks
    add_pair(s, across({{-3.3, .66}, {-3.3, 1.0}, {2.5, 1.0}, {2.5, .66}}, {1.74, 1.8}, skirt));
    for (double x = -2.4; x < 2; x += 1.2)   // joints of the skirt
        add_pair(s, box({x, x + .05}, {1.8, 1.815}, {.66, 1.0}, fitting));
    add_pair(s, box({-2.9, -1.5}, {1.2, 1.7}, {1.3, 1.55}, plain_armour));   // bins
    add_pair(s, box({-1.2, .5}, {1.35, 1.75}, {1.32, 1.52}, plain_armour));
    add(s, box({-3.3, -1.75}, {-1.15, 1.15}, {1.36, 1.47}, deck));
    for (double x = -3.15; x < -1.9; x += .3) add(s, box({x, x + .14}, {-1, 1}, {1.47, 1.5}, louvre));
    add(s, rod({-2.5, 1.72, 1.16}, {-2.5, 1.9, 1.16}, .2, .18, exhaust));
    add(s, rod({-3.35, -1, 1.5}, {-3.35, 1, 1.5}, .16, .16, bare_wood));   // to get unstuck with
    add(s,
        across({{2.4, 1.22}, {2.4, 1.42}, {2.46, 1.42}, {2.5, 1.2}}, {-1.1, 1.1}, fitting));   // splash board
    add_pair(s, rod({3.25, .75, 1.14}, {3.4, .75, 1.12}, .13, .13, lamp));
    add(s, rod({1.35, 0, 1.42}, {1.35, 0, 1.48}, .32, .32, fitting));   // the driver's hatch
    return s;
}

solid tank_turret(double thinnest)
{
    solid s;
    add(s,
        between(mirrored({{1.55, .45}, {1.1, 1.2}, {.2, 1.5}, {-1.1, 1.5}, {-1.75, .95}}), 1.42,
                mirrored({{1.25, .38}, {.7, .9}, {0, 1.12}, {-1, 1.1}, {-1.55, .8}}), 2.12, turret_armour));
    add(s, between(mirrored({{1.25, .38}, {.7, .9}, {0, 1.12}, {-1, 1.1}, {-1.55, .8}}), 2.12,
                   mirrored({{.7, .3}, {.4, .6}, {0, .8}, {-.9, .8}, {-1.3, .6}}), 2.26, turret_armour));
    add(s, box({-2.3, -1.5}, {-1.0, 1.0}, {1.62, 2.1}, canvas));   // stowage
    add(s, box({-2.35, -2.3}, {-1.05, 1.05}, {1.85, 1.92}, fitting));
    add(s, box({1.1, 1.75}, {-.36, .36}, {1.6, 2.0}, fitting));   // mantlet
    const double radius = std::max(.085, thinnest);
    add(s, rod({1.5, 0, 1.8}, {4.75, 0, 2.15}, radius * 1.15, radius, barrel));
    add(s, rod({3.0, 0, 1.961}, {3.7, 0, 2.037}, radius + .07, radius + .07, barrel));    // fume extractor
    add(s, rod({4.62, 0, 2.136}, {4.8, 0, 2.155}, radius + .03, radius + .03, barrel));   // muzzle
    add(s, rod({-.3, .45, 2.2}, {-.3, .45, 2.52}, .42, .38, fitting));                    // cupola
    add(s, rod({-.3, .45, 2.52}, {-.3, .45, 2.58}, .3, .26, plain_armour));
    add(s, rod({-.45, .45, 2.66}, {.75, .45, 2.76}, .045, .035, barrel));   // its machine gun
    add(s, box({-.1, .2}, {.36, .54}, {2.5, 2.72}, fitting));
    add(s, rod({-.3, -.5, 2.2}, {-.3, -.5, 2.32}, .34, .34, plain_armour));   // the loader's hatch
    add(s, box({.45, .75}, {.5, .8}, {2.15, 2.42}, fitting));                 // sight
    add(s, box({.75, .77}, {.53, .77}, {2.22, 2.39}, glass));
    for (double x = .05; x < .7; x += .2)   // smoke dischargers
        add_pair(s, rod({x, 1.3 - x * .3, 1.75}, {x + .2, 1.55 - x * .3, 1.92}, .06, .06, fitting));
    add(s, slender(rod({-1.4, .75, 2.2}, {-1.5, .8, 3.5}, .02, .012, fitting)));
    add(s, slender(rod({-1.4, -.75, 2.2}, {-1.5, -.8, 3.3}, .02, .012, fitting)));
    return s;
}

// The carrier -----------------------------------------------------------------------------------------------

solid carrier_hull()
{
    solid s;
    add_track(s, {{-3.15, 2.95}, {1.0, 1.5}, .92, 5, .33});
    // A boat's bow below, a wedge above, and a high room for the infantry behind.
    add(s, across({{-3.2, .5}, {-3.3, 1.9}, {-3.1, 2.0}, {.7, 1.98}, {3.3, 1.12}, {2.7, .45}}, {-1.02, 1.02},
                  dry_armour));
    add_pair(s, across({{-3.25, .9}, {-3.3, 1.75}, {.75, 1.75}, {3.2, 1.12}, {3.2, .95}, {2.4, .9}},
                       {1.0, 1.55}, dry_armour));
    add_pair(s, across({{-3.1, 1.75}, {-3.1, 1.98}, {.7, 1.96}, {.75, 1.75}}, {1.0, 1.25}, dry_armour));
    add_pair(s, across({{-3.1, .62}, {-3.1, .92}, {2.3, .92}, {2.6, .7}}, {1.5, 1.56}, skirt));
    // The engine lies beside the driver, at the front.
    add(s, across({{1.1, 1.86}, {1.1, 1.9}, {2.5, 1.45}, {2.5, 1.4}}, {-.9, .0}, deck));
    for (double x = 1.2; x < 2.4; x += .28)
        add(s, across({{x, 1.87 - (x - 1.1) * .322},
                       {x, 1.91 - (x - 1.1) * .322},
                       {x + .12, 1.87 - (x - .98) * .322},
                       {x + .12, 1.84 - (x - .98) * .322}},
                      {-.85, -.05}, louvre));
    add(s, box({.5, 1.3}, {1.55, 1.62}, {1.25, 1.6}, exhaust));
    for (double x : {.62, .82, 1.02}) add(s, box({x, x + .1}, {1.62, 1.65}, {1.29, 1.56}, louvre));
    add(s, across({{2.0, 1.62}, {2.05, 1.75}, {3.25, 1.24}, {3.2, 1.16}}, {-1.0, 1.0},
                  plain_armour));   // trim vane
    add_pair(s, rod({2.95, 1.25, 1.3}, {3.12, 1.25, 1.26}, .13, .13, lamp));
    add(s, rod({.95, .6, 1.88}, {.95, .6, 2.0}, .3, .28, fitting));   // the driver's hatch
    for (double x : {-2.6, -1.75, -.9}) {                             // firing ports with their periscopes
        add_pair(s, rod({x, 1.55, 1.45}, {x, 1.62, 1.45}, .12, .1, fitting));
        add_pair(s, box({x - .12, x + .12}, {1.05, 1.2}, {1.96, 2.08}, fitting));
    }
    add_pair(s, box({-3.05, -1.5}, {.08, .95}, {2.0, 2.06}, plain_armour));   // roof hatches
    add_pair(s, box({-3.5, -3.25}, {.1, .95}, {.7, 1.75}, plain_armour));     // rear doors
    add(s, box({-2.4, -.4}, {1.55, 1.68}, {1.02, 1.2}, bare_wood));           // tools
    return s;
}

solid carrier_turret(double thinnest)
{
    solid s;
    const std::vector<point> ring = mirrored({{.95, .4}, {.55, .85}, {-.35, .9}, {-.95, .45}});
    const std::vector<point> roof = mirrored({{.6, .3}, {.35, .6}, {-.35, .62}, {-.75, .35}});
    add(s, between(ring, 1.98, roof, 2.52, dry_armour));
    add(s, box({.6, 1.05}, {-.2, .2}, {2.1, 2.36}, fitting));
    const double radius = std::max(.055, thinnest * .8);
    add(s, rod({.9, 0, 2.24}, {2.75, 0, 2.36}, radius * 1.2, radius, barrel));
    add(s, rod({2.6, 0, 2.35}, {2.85, 0, 2.366}, radius + .025, radius + .025, barrel));
    add(s, rod({-.25, .3, 2.5}, {-.25, .3, 2.64}, .27, .25, fitting));   // hatch
    add(s, box({.1, .35}, {.15, .4}, {2.5, 2.7}, fitting));              // sight
    add(s, box({.35, .37}, {.18, .37}, {2.56, 2.67}, glass));
    add(s, box({-.5, .6}, {-.72, -.5}, {2.45, 2.72}, plain_armour));   // missile box
    add(s, slender(rod({-.7, .4, 2.5}, {-.85, .45, 3.7}, .02, .012, fitting)));
    return s;
}

// The truck -------------------------------------------------------------------------------------------------

void add_wheel(solid& s, double x)
{
    constexpr double radius = .58, outside = 1.25, inside = .85;
    add_pair(s, rod({x, inside, radius}, {x, outside, radius}, radius, radius * .96, rubber));
    add_pair(s, rod({x, outside - .04, radius}, {x, outside + .01, radius}, radius * .56, radius * .5, hub));
    add_pair(s, rod({x, outside, radius}, {x, outside + .08, radius}, .14, .1, steel));
}

void add_cab(solid& s)
{
    constexpr material roof{{.13, .14, .065}, .38};
    add(s, across({{1.95, .95}, {1.95, 1.72}, {2.05, 1.8}, {3.5, 1.62}, {3.55, .95}}, {-.72, .72},
                  material{{.115, .125, .055}, .80}));   // bonnet
    add(s, box({3.53, 3.6}, {-.55, .55}, {1.0, 1.52}, louvre));
    for (double y = -.45; y < .5; y += .22) add(s, box({3.6, 3.62}, {y, y + .08}, {1.0, 1.52}, deck));
    add(s, across({{.65, .8}, {.65, 2.55}, {.8, 2.65}, {1.6, 2.65}, {1.75, 2.55}, {2.0, 1.75}, {2.0, .8}},
                  {-1.1, 1.1}, roof));
    add(s,
        across({{1.78, 2.5}, {1.8, 2.5}, {2.01, 1.84}, {1.98, 1.84}}, {-.98, -.06}, glass));   // windscreen
    add(s, across({{1.78, 2.5}, {1.8, 2.5}, {2.01, 1.84}, {1.98, 1.84}}, {.06, .98}, glass));
    add_pair(s, across({{.9, 1.8}, {.9, 2.45}, {1.62, 2.45}, {1.85, 1.8}}, {1.1, 1.12}, glass));
    add_pair(
        s, across({{1.55, .75}, {1.75, 1.25}, {3.4, 1.3}, {3.65, 1.05}, {3.6, .95}, {2.2, 1.1}, {1.95, .75}},
                  {.72, 1.22}, armour));   // mudguards
    add_pair(s, rod({3.3, .95, 1.38}, {3.5, .95, 1.38}, .14, .15, lamp));
    add(s, box({3.6, 3.72}, {-1.15, 1.15}, {.68, .92}, fitting));    // bumper
    add_pair(s, box({1.2, 1.8}, {1.0, 1.2}, {.45, .52}, fitting));   // steps
}

void add_load(solid& s)
{
    add(s, box({-3.5, .5}, {-1.22, 1.22}, {1.12, 1.28}, fitting));
    add(s, box({-3.5, .45}, {-1.25, 1.25}, {1.28, 1.8}, armour));
    for (double x = -3.5; x < .5; x += .97) add_pair(s, box({x, x + .06}, {1.25, 1.29}, {1.2, 1.8}, fitting));
    // A cover over hoops, sagging between them.
    const auto hoop = [](double sag) {   // height and half the width
        return mirrored({{1.8, 1.25 - sag}, {2.7 - sag, 1.22 - sag}, {3.02 - sag, .9}, {3.12 - sag, .3}});
    };
    constexpr double from = -3.5, to = .45, each = (to - from) / 4;
    for (int i = 0; i < 8; ++i) {
        const double x = from + each / 2 * i, lower = i % 2 == 0 ? 0 : .06, next = .06 - lower;
        add(s, laid_down(between(hoop(lower), x, hoop(next), x + each / 2, canvas)));
    }
}

}   // namespace

solid tank(double thinnest, double turret)
{
    solid s = tank_hull();
    add(s, moved(turned(tank_turret(thinnest), turret), {.1, 0, 0}));
    return s;
}

solid carrier(double thinnest, double turret)
{
    solid s = carrier_hull();
    add(s, moved(turned(carrier_turret(thinnest), turret), {-.35, 0, 0}));
    return s;
}

solid truck(double, double)
{
    solid s;
    add(s, box({-3.4, 3.5}, {-.45, .45}, {.62, 1.12}, fitting));   // frame
    for (double x : {2.6, -1.35, -2.7}) add_wheel(s, x);
    for (double x : {2.6, -1.35, -2.7}) add(s, rod({x, -.9, .58}, {x, .9, .58}, .14, .14, steel));   // axles
    add_cab(s);
    add_load(s);
    add(s, rod({-.5, .6, .8}, {.4, .6, .8}, .2, .2, exhaust));   // silencer
    add(s, rod({.56, .95, 1.0}, {.56, .95, 2.75}, .08, .08, exhaust));
    add_pair(s, box({-.55, .4}, {.75, 1.2}, {.6, 1.05}, plain_armour));   // fuel
    return s;
}

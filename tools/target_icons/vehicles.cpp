#include "vehicles.h"

namespace tools {
namespace {

constexpr material armour{{.115f, .125f, .055f}, .30f, true};
constexpr material turret_armour{{.115f, .125f, .055f}, 0, true};   // colder, far from the engine
constexpr material dry_armour{{.165f, .155f, .078f}, .24f, true};   // of the carrier, paler
constexpr material plain_armour{{.115f, .125f, .055f}, .26f};
constexpr material deck{{.075f, .08f, .045f}, .8f};   // over an engine
constexpr material louvre{{.03f, .032f, .022f}, 1};
constexpr material exhaust{{.045f, .035f, .03f}, 1};
constexpr material rubber{{.022f, .022f, .021f}, .76f};
constexpr material steel{{.075f, .075f, .06f}, .9f};   // road wheels and tracks are warm from friction
constexpr material hub{{.10f, .105f, .055f}, .55f};
constexpr material barrel{{.040f, .044f, .028f}, .2f};
constexpr material skirt{{.105f, .11f, .055f}, .42f, true};
constexpr material fitting{{.055f, .06f, .038f}, .12f};
constexpr material aerial{.paint = fitting.paint, .heat = fitting.heat, .slender = true};
constexpr material canvas{{.27f, .24f, .145f}, .05f};
constexpr material glass{{.03f, .04f, .045f}, .05f};
constexpr material lamp{{.34f, .34f, .28f}, .1f};
constexpr material bare_wood{{.16f, .13f, .075f}, .2f};

// The whole of a symmetric outline, made from its left half.
path mirrored(const path& left_side)
{
    path whole = left_side;
    for (auto p = left_side.rbegin(); p != left_side.rend(); ++p) whole.push_back({p->x, -p->y});
    return whole;
}

// Tracks ----------------------------------------------------------------------------------------------------

struct running_gear {
    limits length;   // of the track
    limits width;    // of the left track
    float height;    // of the upper run of the track
    int wheels;
    float radius;   // of a road wheel
};

// Adds the links of both tracks: bars along an outline that runs counterclockwise when the front is on the
// right.
void add_links(solid& to, const path& round, limits y)
{
    constexpr float pitch = .17f, half = .045f, proud = .035f;
    for (std::size_t i = 0; i < round.size(); ++i) {
        const point a = round[i], way = round[(i + 1) % round.size()] - a;
        const point along = way / length(way), out = point{along.y, -along.x} * proud;
        for (float at = pitch / 2; at < length(way); at += pitch) {
            const point rear = a + along * (at - half), front = a + along * (at + half);
            add_pair(to, across({rear, front, front + out, rear + out}, y, steel));
        }
    }
}

// Adds both tracks: upper and lower run, the road wheels between them, and sprocket and idler at the ends.
void add_track(solid& to, const running_gear& g)
{
    constexpr float thickness = .09f, end_wheel = .31f;
    const auto [rear, front] = g.length;
    const path band{{rear + .75f, 0},         {front - .8f, 0},        {front, g.height - .5f},
                    {front, g.height - .15f}, {front - .2f, g.height}, {rear + .2f, g.height},
                    {rear, g.height - .15f},  {rear, g.height - .5f}};
    add_pair(to, across(band, {g.width.low, g.width.high - .1f}, rubber));
    add_links(to, band, g.width);
    // The lower run is wider than the wheels.
    add_pair(to,
             across({{rear + .7f, 0}, {front - .75f, 0}, {front - .65f, thickness}, {rear + .6f, thickness}},
                    g.width, steel));
    const auto wheel = [&](float x, float z, float radius) {
        const float out = g.width.high;
        add_pair(to, rod({x, out - .3f, z}, {x, out - .02f, z}, radius, radius, steel));
        add_pair(to, rod({x, out - .02f, z}, {x, out, z}, radius * .74f, radius * .7f, hub));
        add_pair(to, rod({x, out, z}, {x, out + .05f, z}, radius * .26f, radius * .2f, steel));
    };
    const float first = rear + .95f, spacing = (front - rear - 1.95f) / real(g.wheels - 1);
    for (int i = 0; i < g.wheels; ++i) wheel(first + spacing * real(i), g.radius + thickness * .6f, g.radius);
    wheel(rear + .38f, g.height - .36f, end_wheel);
    wheel(front - .38f, g.height - .36f, end_wheel);
}

// The tank --------------------------------------------------------------------------------------------------

solid tank_hull()
{
    solid s;
    add_track(s, {{-3.45f, 3.4f}, {1.12f, 1.72f}, .95f, 6, .37f});
    add(s, across({{-3.35f, .5f}, {-3.5f, 1.0f}, {-3.3f, 1.35f}, {1.5f, 1.42f}, {3.5f, .92f}, {3.0f, .42f}},
                  {-1.15f, 1.15f}, armour));
    add_pair(s,
             across({{-3.5f, .95f}, {-3.5f, 1.3f}, {1.9f, 1.34f}, {3.6f, .98f}, {3.6f, .86f}, {1.9f, .98f}},
                    {1.1f, 1.78f},
                    armour));   // over the tracks
    add_pair(s, across({{-3.3f, .66f}, {-3.3f, 1.0f}, {2.5f, 1.0f}, {2.5f, .66f}}, {1.74f, 1.8f}, skirt));
    for (float x = -2.4f; x < 2; x += 1.2f)   // joints of the skirt
        add_pair(s, box({x, x + .05f}, {1.8f, 1.815f}, {.66f, 1.0f}, fitting));
    add_pair(s, box({-2.9f, -1.5f}, {1.2f, 1.7f}, {1.3f, 1.55f}, plain_armour));   // bins
    add_pair(s, box({-1.2f, .5f}, {1.35f, 1.75f}, {1.32f, 1.52f}, plain_armour));
    add(s, box({-3.3f, -1.75f}, {-1.15f, 1.15f}, {1.36f, 1.47f}, deck));
    for (float x = -3.15f; x < -1.9f; x += .3f) add(s, box({x, x + .14f}, {-1, 1}, {1.47f, 1.5f}, louvre));
    add(s, rod({-2.5f, 1.72f, 1.16f}, {-2.5f, 1.9f, 1.16f}, .2f, .18f, exhaust));
    add(s, rod({-3.35f, -1, 1.5f}, {-3.35f, 1, 1.5f}, .16f, .16f, bare_wood));   // unditching beam
    add(s, across({{2.4f, 1.22f}, {2.4f, 1.42f}, {2.46f, 1.42f}, {2.5f, 1.2f}}, {-1.1f, 1.1f},
                  fitting));                      // splash board
    for (float y = -1.65f; y < 1.5f; y += .42f)   // blocks of added armour
        for (float x : {2.52f, 2.86f}) {
            const float to = x + .3f, down = (x - 2.5f) * .25f;
            add(s, across({{x, 1.17f - down}, {x, 1.27f - down}, {to, 1.19f - down}, {to, 1.09f - down}},
                          {y, y + .37f}, armour));
        }
    // Spare links.
    for (float y = -1; y < 1; y += .25f) add(s, box({3.2f, 3.34f}, {y, y + .2f}, {.98f, 1.1f}, fitting));
    add_pair(s, box({3.3f, 3.62f}, {.5f, .62f}, {.6f, .78f}, fitting));                  // hooks
    add_pair(s, rod({-1.4f, 1.62f, 1.58f}, {.4f, 1.62f, 1.56f}, .035f, .035f, steel));   // tow cables
    add_pair(s, rod({3.25f, 1.35f, 1.14f}, {3.4f, 1.35f, 1.12f}, .11f, .11f, lamp));
    add(s, rod({1.35f, 0, 1.42f}, {1.35f, 0, 1.48f}, .32f, .32f, fitting));
    for (float y : {-.3f, -.1f, .1f})
        add(s, box({1.72f, 1.78f}, {y, y + .16f}, {1.38f, 1.5f}, glass));   // the driver's periscopes
    return s;
}

solid tank_turret(float thinnest)
{
    solid s;
    const path ring = mirrored({{1.55f, .45f}, {1.1f, 1.2f}, {.2f, 1.5f}, {-1.1f, 1.5f}, {-1.75f, .95f}});
    const path edge = mirrored({{1.25f, .38f}, {.7f, .9f}, {0, 1.12f}, {-1, 1.1f}, {-1.55f, .8f}});
    const path roof = mirrored({{.7f, .3f}, {.4f, .6f}, {0, .8f}, {-.9f, .8f}, {-1.3f, .6f}});
    add(s, between(ring, 1.42f, edge, 2.12f, turret_armour));
    add(s, between(edge, 2.12f, roof, 2.26f, turret_armour));
    add(s, box({-2.3f, -1.5f}, {-1.0f, 1.0f}, {1.62f, 2.1f}, canvas));   // stowage
    add(s, box({-2.35f, -2.3f}, {-1.05f, 1.05f}, {1.85f, 1.92f}, fitting));
    add(s, box({1.1f, 1.75f}, {-.36f, .36f}, {1.6f, 2.0f}, fitting));   // mantlet
    const float radius = std::max(.085f, thinnest);
    add(s, rod({1.5f, 0, 1.8f}, {4.75f, 0, 2.15f}, radius * 1.15f, radius, barrel));
    add(s, rod({3.0f, 0, 1.961f}, {3.7f, 0, 2.037f}, radius + .07f, radius + .07f, barrel));    // extractor
    add(s, rod({4.62f, 0, 2.136f}, {4.8f, 0, 2.155f}, radius + .03f, radius + .03f, barrel));   // muzzle
    add(s, rod({-.3f, .45f, 2.2f}, {-.3f, .45f, 2.52f}, .42f, .38f, fitting));                  // cupola
    add(s, rod({-.3f, .45f, 2.52f}, {-.3f, .45f, 2.58f}, .3f, .26f, plain_armour));
    add(s, rod({-.45f, .45f, 2.66f}, {.75f, .45f, 2.76f}, .045f, .035f, barrel));   // machine gun
    add(s, box({-.1f, .2f}, {.36f, .54f}, {2.5f, 2.72f}, fitting));
    add(s, rod({-.3f, -.5f, 2.2f}, {-.3f, -.5f, 2.32f}, .34f, .34f, plain_armour));   // the loader's hatch
    for (float x : {-.12f, .02f}) add(s, box({x, x + .04f}, {.28f, .62f}, {2.42f, 2.5f}, glass));
    for (float y = -.78f; y < .7f; y += .3f)   // blocks of added armour
        if (std::abs(y + .12f) > .3f) add(s, box({.8f, 1.22f}, {y, y + .26f}, {1.72f, 2.05f}, turret_armour));
    for (float x = -1.3f; x < .2f; x += .45f)
        add_pair(s, box({x, x + .4f}, {1.2f, 1.5f}, {1.62f, 1.95f}, turret_armour));
    add_pair(s, rod({-1.1f, .95f, 2.3f}, {.1f, 1.02f, 2.3f}, .025f, .025f, fitting));   // rails
    add(s, box({.45f, .75f}, {.5f, .8f}, {2.15f, 2.42f}, fitting));                     // sight
    add(s, box({.75f, .77f}, {.53f, .77f}, {2.22f, 2.39f}, glass));
    for (float x = .05f; x < .7f; x += .2f)   // smoke dischargers
        add_pair(s, rod({x, 1.3f - x * .3f, 1.75f}, {x + .2f, 1.55f - x * .3f, 1.92f}, .06f, .06f, fitting));
    add(s, rod({-1.4f, .75f, 2.2f}, {-1.5f, .8f, 3.5f}, .02f, .012f, aerial));
    add(s, rod({-1.4f, -.75f, 2.2f}, {-1.5f, -.8f, 3.3f}, .02f, .012f, aerial));
    return s;
}

// The carrier -----------------------------------------------------------------------------------------------

solid carrier_hull()
{
    solid s;
    add_track(s, {{-3.15f, 2.95f}, {1.0f, 1.5f}, .92f, 5, .33f});
    // A boat-shaped bow with a wedge above, and a high compartment for the infantry.
    add(s, across({{-3.2f, .5f}, {-3.3f, 1.9f}, {-3.1f, 2.0f}, {.7f, 1.98f}, {3.3f, 1.12f}, {2.7f, .45f}},
                  {-1.02f, 1.02f}, dry_armour));
    add_pair(s,
             across({{-3.25f, .9f}, {-3.3f, 1.75f}, {.75f, 1.75f}, {3.2f, 1.12f}, {3.2f, .95f}, {2.4f, .9f}},
                    {1.0f, 1.55f}, dry_armour));
    add_pair(
        s, across({{-3.1f, 1.75f}, {-3.1f, 1.98f}, {.7f, 1.96f}, {.75f, 1.75f}}, {1.0f, 1.25f}, dry_armour));
    add_pair(s, across({{-3.1f, .62f}, {-3.1f, .92f}, {2.3f, .92f}, {2.6f, .7f}}, {1.5f, 1.56f}, skirt));
    // The engine is at the front, beside the driver.
    add(s, across({{1.1f, 1.86f}, {1.1f, 1.9f}, {2.5f, 1.45f}, {2.5f, 1.4f}}, {-.9f, .0f}, deck));
    for (float x = 1.2f; x < 2.4f; x += .28f) {
        const float to = x + .12f, down = (x - 1.1f) * .322f, lower = (x - .98f) * .322f;
        add(s, across({{x, 1.87f - down}, {x, 1.91f - down}, {to, 1.87f - lower}, {to, 1.84f - lower}},
                      {-.85f, -.05f}, louvre));
    }
    add(s, box({.5f, 1.3f}, {1.55f, 1.62f}, {1.25f, 1.6f}, exhaust));
    for (float x : {.62f, .82f, 1.02f}) add(s, box({x, x + .1f}, {1.62f, 1.65f}, {1.29f, 1.56f}, louvre));
    add(s, across({{2.0f, 1.62f}, {2.05f, 1.75f}, {3.25f, 1.24f}, {3.2f, 1.16f}}, {-1.0f, 1.0f},
                  plain_armour));            // trim vane
    for (float y = -.9f; y < 1; y += .44f)   // ribs of the trim vane
        add(s, across({{2.08f, 1.74f}, {2.1f, 1.79f}, {3.2f, 1.30f}, {3.2f, 1.25f}}, {y, y + .05f}, fitting));
    for (float x = -3; x < .6f; x += .58f)   // plates on the side
        add_pair(s, box({x, x + .52f}, {1.53f, 1.58f}, {1.0f, 1.34f}, dry_armour));
    add_pair(s, rod({-3.1f, 1.5f, 1.82f}, {.6f, 1.5f, 1.82f}, .03f, .03f, fitting));   // rail
    add_pair(s, rod({2.95f, 1.25f, 1.3f}, {3.12f, 1.25f, 1.26f}, .13f, .13f, lamp));
    add(s, rod({.95f, .6f, 1.88f}, {.95f, .6f, 2.0f}, .3f, .28f, fitting));   // the driver's hatch
    for (float x : {-2.6f, -1.75f, -.9f}) {   // firing ports with their periscopes
        add_pair(s, rod({x, 1.55f, 1.45f}, {x, 1.62f, 1.45f}, .12f, .1f, fitting));
        add_pair(s, box({x - .12f, x + .12f}, {1.05f, 1.2f}, {1.96f, 2.08f}, fitting));
    }
    add_pair(s, box({-3.05f, -1.5f}, {.08f, .95f}, {2.0f, 2.06f}, plain_armour));   // roof hatches
    add_pair(s, box({-3.5f, -3.25f}, {.1f, .95f}, {.7f, 1.75f}, plain_armour));     // rear doors
    add(s, box({-2.4f, -.4f}, {1.55f, 1.68f}, {1.02f, 1.2f}, bare_wood));           // tools
    return s;
}

solid carrier_turret(float thinnest)
{
    solid s;
    const path ring = mirrored({{.95f, .4f}, {.55f, .85f}, {-.35f, .9f}, {-.95f, .45f}});
    const path roof = mirrored({{.6f, .3f}, {.35f, .6f}, {-.35f, .62f}, {-.75f, .35f}});
    add(s, between(ring, 1.98f, roof, 2.52f, dry_armour));
    add(s, box({.6f, 1.05f}, {-.2f, .2f}, {2.1f, 2.36f}, fitting));
    const float radius = std::max(.055f, thinnest * .8f);
    add(s, rod({.9f, 0, 2.24f}, {2.75f, 0, 2.36f}, radius * 1.2f, radius, barrel));
    add(s, rod({2.6f, 0, 2.35f}, {2.85f, 0, 2.366f}, radius + .025f, radius + .025f, barrel));
    add(s, rod({-.25f, .3f, 2.5f}, {-.25f, .3f, 2.64f}, .27f, .25f, fitting));   // hatch
    add(s, box({.1f, .35f}, {.15f, .4f}, {2.5f, 2.7f}, fitting));                // sight
    add(s, box({.35f, .37f}, {.18f, .37f}, {2.56f, 2.67f}, glass));
    add(s, box({-.5f, .6f}, {-.72f, -.5f}, {2.45f, 2.72f}, plain_armour));   // missile box
    add(s, rod({-.7f, .4f, 2.5f}, {-.85f, .45f, 3.7f}, .02f, .012f, aerial));
    return s;
}

// The truck -------------------------------------------------------------------------------------------------

void add_wheel(solid& s, float x)
{
    constexpr float radius = .58f, outside = 1.25f, inside = .85f;
    add_pair(s, rod({x, inside, radius}, {x, outside, radius}, radius, radius * .96f, rubber));
    add_pair(s,
             rod({x, outside - .04f, radius}, {x, outside + .01f, radius}, radius * .56f, radius * .5f, hub));
    add_pair(s, rod({x, outside, radius}, {x, outside + .08f, radius}, .14f, .1f, steel));
    for (int i = 0; i < 24; ++i) {   // tread
        const vec3 out{std::cos(real(i) * .2618f), 0, std::sin(real(i) * .2618f)};
        const vec3 foot = vec3{x, 0, radius} + out * (radius - .03f);
        add_pair(s, rod(foot + vec3{0, inside, 0}, foot + vec3{0, outside - .02f, 0}, .045f, .045f, rubber));
    }
}

void add_cab(solid& s)
{
    constexpr material roof{{.13f, .14f, .065f}, .22f};
    add(s, across({{1.95f, .95f}, {1.95f, 1.72f}, {2.05f, 1.8f}, {3.5f, 1.62f}, {3.55f, .95f}}, {-.72f, .72f},
                  material{{.115f, .125f, .055f}, .80f}));   // bonnet
    add(s, box({3.53f, 3.6f}, {-.55f, .55f}, {1.0f, 1.52f}, louvre));
    for (float y = -.45f; y < .5f; y += .22f) add(s, box({3.6f, 3.62f}, {y, y + .08f}, {1.0f, 1.52f}, deck));
    const path cab{{.65f, .8f},    {.65f, 2.55f}, {.8f, 2.65f}, {1.6f, 2.65f},
                   {1.75f, 2.55f}, {2.0f, 1.75f}, {2.0f, .8f}};
    add(s, across(cab, {-1.1f, 1.1f}, roof));
    // Windscreen and side windows.
    add_pair(s, across({{1.78f, 2.5f}, {1.8f, 2.5f}, {2.01f, 1.84f}, {1.98f, 1.84f}}, {.06f, .98f}, glass));
    add_pair(s, across({{.9f, 1.8f}, {.9f, 2.45f}, {1.62f, 2.45f}, {1.85f, 1.8f}}, {1.1f, 1.12f}, glass));
    for (float x : {.82f, 1.92f})
        add_pair(s, box({x, x + .03f}, {1.1f, 1.115f}, {.95f, 1.75f}, fitting));   // door
    add_pair(s, box({.95f, 1.1f}, {1.1f, 1.14f}, {1.58f, 1.63f}, steel));
    add_pair(s, box({2.0f, 2.05f}, {1.2f, 1.38f}, {1.95f, 2.3f}, fitting));   // mirrors
    add_pair(s, rod({1.95f, 1.1f, 2.1f}, {2.02f, 1.25f, 2.1f}, .025f, .025f, fitting));
    const path mudguard{{1.55f, .75f}, {1.75f, 1.25f}, {3.4f, 1.3f}, {3.65f, 1.05f},
                        {3.6f, .95f},  {2.2f, 1.1f},   {1.95f, .75f}};
    add_pair(s, across(mudguard, {.72f, 1.22f}, armour));
    add_pair(s, rod({3.3f, .95f, 1.38f}, {3.5f, .95f, 1.38f}, .14f, .15f, lamp));
    add(s, box({3.6f, 3.72f}, {-1.15f, 1.15f}, {.68f, .92f}, fitting));    // bumper
    add_pair(s, box({1.2f, 1.8f}, {1.0f, 1.2f}, {.45f, .52f}, fitting));   // steps
}

void add_load(solid& s)
{
    add(s, box({-3.5f, .5f}, {-1.22f, 1.22f}, {1.12f, 1.28f}, fitting));
    add(s, box({-3.5f, .45f}, {-1.25f, 1.25f}, {1.28f, 1.8f}, armour));
    for (float x = -3.5f; x < .5f; x += .97f)
        add_pair(s, box({x, x + .06f}, {1.25f, 1.29f}, {1.2f, 1.8f}, fitting));
    // A canvas cover over hoops. It sags between the hoops.
    const auto hoop = [](float sag) {   // outline: height and half the width
        return mirrored(
            {{1.8f, 1.25f - sag}, {2.7f - sag, 1.22f - sag}, {3.02f - sag, .9f}, {3.12f - sag, .3f}});
    };
    constexpr float from = -3.5f, to = .45f, each = (to - from) / 4;
    for (int i = 0; i < 8; ++i) {
        const float x = from + each / 2 * real(i), lower = i % 2 == 0 ? 0 : .06f, next = .06f - lower;
        add(s, laid_down(between(hoop(lower), x, hoop(next), x + each / 2, canvas)));
    }
}

}   // namespace

solid tank(float thinnest, float turret)
{
    solid s = tank_hull();
    add(s, mounted(tank_turret(thinnest), turret, .1f));
    return s;
}

solid carrier(float thinnest, float turret)
{
    solid s = carrier_hull();
    add(s, mounted(carrier_turret(thinnest), turret, -.35f));
    return s;
}

solid truck(float, float)
{
    solid s;
    add(s, box({-3.4f, 3.5f}, {-.45f, .45f}, {.62f, 1.12f}, fitting));   // chassis
    for (float x : {2.6f, -1.35f, -2.7f}) {
        add_wheel(s, x);
        add(s, rod({x, -.9f, .58f}, {x, .9f, .58f}, .14f, .14f, steel));   // axle
    }
    add_cab(s);
    add_load(s);
    add(s, rod({-.5f, .6f, .8f}, {.4f, .6f, .8f}, .2f, .2f, exhaust));   // silencer
    add(s, rod({.56f, .95f, 1.0f}, {.56f, .95f, 2.75f}, .08f, .08f, exhaust));
    add_pair(s, box({-.55f, .4f}, {.75f, 1.2f}, {.6f, 1.05f}, plain_armour));   // fuel
    return s;
}

}   // namespace tools

// The description of a range picture and its landscape. countries.cpp has one for each range.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "common/geometry.h"
#include "gunnery/sight.h"

namespace tools {

// A place by its bearing from the middle of the view, in radians or degrees, and its distance in metres.
inline point polar(float bearing, float metres)
{
    return {metres * std::sin(bearing), metres * std::cos(bearing)};
}
inline point at(float degrees, float metres)
{
    return polar(degrees * 3.14159265f / 180, metres);
}

// The linear light of a screen colour, which the constructor takes in percent. The gamma is 2.2.
struct rgb : vec3 {
    rgb(int red, int green, int blue) : vec3{light(red), light(green), light(blue)} {}

private:
    static float light(int percent) { return std::pow(real(percent) / 100, 2.2f); }
};

struct belt_plan {
    path line;
    float width;      // metres
    float height;     // of its trees, metres
    float conifers;   // share of conifers
};
struct copse_plan {
    point middle;
    float radius, height, conifers;   // metres; the last two as in belt_plan
};
struct hedge_plan {
    path line;
    float height;
};
struct farm_plan {
    point place;
    float angle;   // radians
};

// Reflectances of the ground.
struct ground_paint {
    rgb heath;   // bracken and heather
    struct {
        rgb dry, middling, lush, dark, straw;
    } grass;
    rgb bare, soil;   // pale and dark ground without grass
    rgb crops[7];
    rgb woodfloor;
};

struct sky_paint {
    rgb zenith, horizon, haze_band;
    float cover;   // by cumulus clouds: 0 nearly clear, 1 nearly overcast
    float veil;    // density of high cloud, 0 to 1
};

struct country {
    const char* picture;   // file name
    const char* range;     // file name of the range file
    const char* name;      // of the range, at most 20 characters
    vorn::sight_kind sight = vorn::sight_kind::visual;
    bool night = false;
    int width = 4012, height = 2000;   // of the picture, pixels
    int twin_quality = 74;             // of the JPEG of the twin, 1 to 100
    std::uint32_t seed;

    vec3 towards_sun;   // always to the upper left, behind the gunner
    vec3 sunlight, skylight;
    ground_paint ground;
    sky_paint sky;

    float folds;               // height of the hills and hollows, metres
    float farmed_from;         // distance at which the rough grass ends and fields begin, metres
    float rough_share = 0;     // of rough ground among the fields, 0 to 1
    float wooded;              // woods among the fields: 0 few, 1 many
    float heath;               // density of bracken and heather on the rough ground, 0 to 1
    float scrub;               // density of bushes on the rough ground, 0 to 1
    float conifers;            // share of the woods that are mostly of conifers
    vec3 needles;              // reflectance of conifers
    std::vector<rgb> leaves;   // reflectances of foliage; each broadleaf or bush has one of them, varied
    float bare_trees = 0;      // share of bare broadleaf trees: none near houses, no tall ones by rivers
    vec3 tufts{1, 1, 1};       // colour of tufts of grass, relative to the ground
    float snow = 0;            // amount of snow, 0 to 1; the colours of snowy ground are in `ground`

    std::vector<path> tracks{}, roads{}, rivers{};
    std::vector<belt_plan> belts{};
    std::vector<copse_plan> copses{};
    std::vector<hedge_plan> hedges{};
    std::vector<farm_plan> farms{};
    std::optional<point> hamlet{};

    // From the foot of something one metre high to the end of its shadow on level ground, metres.
    point shadow() const { return point{towards_sun.x, towards_sun.y} / -towards_sun.z; }
};

// All ranges that the trainer ships with.
const std::vector<country>& countries();

// The projection of a picture: cylindrical, around the gunner's eye.
struct view {
    int width, height;   // of the whole picture, pixels
    float pixel;         // angle of a pixel, radians
    float horizon;       // row of the horizontal line of sight
    int left = 0;        // first column, if only a strip of the picture is viewed

    float bearing(float x) const { return (real(left) + x - real(width) / 2) * pixel; }
    float elevation(float y) const { return (horizon - y) * pixel; }
    float row(float elevation) const { return horizon - elevation / pixel; }
    float column(float bearing) const { return bearing / pixel + real(width) / 2 - real(left); }
};

// The view of the picture itself if `scale` is 1, of its twin if it is .5.
view view_of(const country&, float scale);

// Where the lower edge of a target must be for the range author to propose this range (metres). In pixels
// from the top of the picture, not of its twin.
float agreeing_row(const country&, float range);

// The range that the range author proposes for a target whose lower edge is on this row; 0 outside the ground
// band. `range` is the target's true range in metres, from which its size follows.
float proposed_range(const country&, int row, float range);

// The side of a target's square at a range, twips, for the default target size.
float target_side(vorn::sight_kind, float range);

}   // namespace tools

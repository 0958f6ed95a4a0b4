// Makes the two ranges that the trainer ships with, from places on the visual picture where a target stands
// in the open. The thermal picture shows the same country at a smaller scale.
//
// Usage: make_ranges POSITIONS FOLDER

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "gunnery/sight.h"
#include "platform/objects.h"
#include "ranges/rangefile.h"

using namespace vorn;

// A place where a target's foot can stand, in pixels of one of the pictures.
struct place {
    double x, y;
    int range;   // metres
};

// The chosen places, named by their x on the visual picture. The last one of a range is never drawn.
//
// Visual: near and far in turn over the width of the picture. Left of 310 pixels the sight can't be laid,
// since the traverse stops at the picture's edge; right of 4010 the window would show beyond it.
static const std::vector<int> visual_choice{408,  585,  717,  888,  1128, 1236, 1473, 1638, 1965, 2220,
                                            2319, 2673, 2772, 2886, 3201, 3288, 3558, 3756, 3849, 3969};
// Thermal: all that the traverse reaches, from 320 to 1130 pixels of its own picture. They are eighteen, so
// two near ones stand for two positions.
static const std::vector<int> thermal_choice{996,  1128, 1236, 1407, 1473, 1638, 1830, 1965, 2091, 2220,
                                             2319, 2550, 2673, 2772, 2886, 3096, 3201, 3288, 1965, 2319};

static std::vector<place> read_places(const std::string& path)
{
    std::vector<place> places;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        place p{};
        if (std::istringstream(line) >> p.x >> p.y >> p.range) places.push_back(p);
    }
    return places;
}

static std::vector<place> chosen(const std::vector<place>& places, const std::vector<int>& choice)
{
    std::vector<place> result;
    for (int x : choice)
        for (const place& p : places)
            if (static_cast<int>(p.x) == x) result.push_back(p);
    return result;
}

// Both pictures have their horizon at the same part of their height and their middle at the same bearing.
static place on_thermal(place p)
{
    constexpr double scale = 1452.0 / 4295, horizon = .46;
    return {p.x * scale, (p.y - horizon * 2121) * scale + horizon * 768, p.range};
}

// The stored point is the upper left corner of the target as the sight draws it with the usual target size,
// so that its foot comes down on the place.
static void put_position(practice_state& p, std::size_t entry, const place& at, const sight_numbers& sight)
{
    constexpr double targetsize = 4;
    const double width = at.range < sight.far ? sight.widest - at.range / targetsize : smallest_target;
    const double side = std::clamp(width, smallest_target, largest_target);
    p.targetx[entry] = static_cast<std::int32_t>(std::lround(at.x * twips_per_pixel - side / 2));
    p.targety[entry] = static_cast<std::int32_t>(std::lround(at.y * twips_per_pixel - side));
    p.targetrange[entry] = at.range;
}

static void put_icons(practice_state& p, const std::string& name)
{
    p.targeticon1 = "/target icons/" + name + "1.ico";
    p.targeticon2 = "/target icons/" + name + "2.ico";
    p.targeticon3 = "/target icons/" + name + "3.ico";
}

// A range of these places, for the sight whose numbers give the size of its targets.
static practice_state range_of(const char* name, const char* picture, const char* type, const char* icons,
                               const std::vector<place>& places, const sight_numbers& sight)
{
    practice_state p;
    p.rangename = name;
    p.rangepicture = picture;
    p.rangetype = type;
    put_icons(p, icons);
    for (std::size_t entry = 1; const place& at : places) put_position(p, entry++, at, sight);
    return p;
}

static practice_state visual_range(const std::vector<place>& places)
{
    return range_of("THORNMERE DOWN", "visualrange.vrp", "VISUAL", "target", chosen(places, visual_choice),
                    visualsight);
}

static practice_state thermal_range(const std::vector<place>& places)
{
    std::vector<place> seen = chosen(places, thermal_choice);
    for (place& at : seen) at = on_thermal(at);
    return range_of("THORNMERE DOWN TI", "thermalrange.trp", "THERMAL", "thermal", seen, thermalsight);
}

static bool save(const std::string& path, const practice_state& p)
{
    if (p.targetrange.back() == 0) {
        std::fprintf(stderr, "make_ranges: too few positions for %s\n", path.c_str());
        return false;
    }
    std::ofstream file(path, std::ios::binary);
    file << range_file_bytes(p) << std::flush;
    if (!file) std::fprintf(stderr, "make_ranges: can't write %s\n", path.c_str());
    return file.good();
}

int main(int count, char** arguments)
{
    if (count != 3) {
        std::fprintf(stderr, "usage: make_ranges POSITIONS FOLDER\n");
        return 2;
    }
    const std::vector<place> places = read_places(arguments[1]);
    const std::string folder = arguments[2];
    const bool visual = save(folder + "/visualrange.arf", visual_range(places));
    const bool thermal = save(folder + "/Thermalrange.arf", thermal_range(places));
    return visual && thermal ? 0 : 1;
}

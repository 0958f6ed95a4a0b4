// Draws the target icons that the ranges ship with and some more for makers of ranges: bodies to scale,
// modelled in vehicles.cpp, lit and drawn by render.cpp. The three of a range are seen from before and a
// little above, so that each fills its square: the sights take the middle of the square for the middle of the
// vehicle.
//
// Usage: target_icons FOLDER

#include <cstdio>
#include <fstream>
#include <string>

#include "ico.h"
#include "render.h"
#include "vehicles.h"

namespace {

struct icon {
    const char* name;
    const char* hot_name;   // of the same for thermal ranges
    solid (*vehicle)(double thinnest, double turret);
    double turret;   // degrees to the left of the vehicle's front
    view from;
};

constexpr icon icons[] = {
    {"target1", "thermal1", tank, -21, {14.5, 26}},
    {"target2", "thermal2", carrier, -33, {21.5, 24}},
    {"target3", "thermal3", truck, 0, {30, 19}},
    {"tank_side", "tank_side_hot", tank, 0, {90, 5}},
    {"tank_front", "tank_front_hot", tank, 0, {4, 9}},
    {"carrier_side", "carrier_side_hot", carrier, 0, {90, 5}},
    {"carrier_front", "carrier_front_hot", carrier, 0, {6, 9}},
    {"truck_side", "truck_side_hot", truck, 0, {90, 5}},
    {"truck_rear", "truck_rear_hot", truck, 0, {148, 12}},
};

bool save(const std::string& path, const icon& i, look l)
{
    constexpr double width = 6.5, thinnest = .62;   // of a picture in metres; of a barrel's radius in pixels
    std::vector<image> pictures;
    for (const int size : {256, 128, 64, 48, 32, 24, 16})
        pictures.push_back(render(i.vehicle(thinnest * width / size, i.turret), i.from, l, size));
    std::ofstream file(path, std::ios::binary);
    file << icon_file(pictures) << std::flush;
    if (!file) std::fprintf(stderr, "target_icons: can't write %s\n", path.c_str());
    return file.good();
}

}   // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: target_icons FOLDER\n");
        return 2;
    }
    const std::string folder = arguments[1] + std::string("/");
    bool saved = true;
    for (const icon& i : icons) {
        saved &= save(folder + i.name + ".ico", i, look::painted);
        saved &= save(folder + i.hot_name + ".ico", i, look::hot);
    }
    return saved ? 0 : 1;
}

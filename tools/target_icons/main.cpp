// Draws the target icons of the shipped ranges, and more icons for makers of ranges. The vehicles are
// modelled to scale in vehicles.cpp and drawn by render.cpp. The icons of the shipped ranges show a
// vehicle from the front and above, so that its width and height are at least three quarters of those of its
// square: the sights treat the middle of the square as the middle of the vehicle.
//
// Usage: target_icons FOLDER

#include <QDir>

#include "common/save.h"
#include "render.h"
#include "vehicles.h"

using namespace tools;

struct icon_plan {
    const char* name;
    const char* hot_name;   // of the icon for thermal ranges
    solid (*vehicle)(float thinnest, float turret);
    float turret;   // degrees to the left of the vehicle's front
    view from;
};

static constexpr icon_plan icons[] = {
    {"target1", "thermal1", tank, -21, {14.5f, 26}},
    {"target2", "thermal2", carrier, -33, {21.5f, 24}},
    {"target3", "thermal3", truck, 0, {30, 19}},
    {"tank_side", "tank_side_hot", tank, 0, {90, 5}},
    {"tank_front", "tank_front_hot", tank, 0, {4, 9}},
    {"carrier_side", "carrier_side_hot", carrier, 0, {90, 5}},
    {"carrier_front", "carrier_front_hot", carrier, 0, {6, 9}},
    {"truck_side", "truck_side_hot", truck, 0, {90, 5}},
    {"truck_rear", "truck_rear_hot", truck, 0, {148, 12}},
};

static QByteArray drawn(const icon_plan& i, look l)
{
    // Usual width of a picture in metres; `thinnest` of the vehicles in pixels.
    constexpr float width = 6.5f, thinnest = .62f;
    std::vector<QImage> pictures;
    for (const int size :
         {256, 192, 128, 96, 64, 48, 32, 24, 16})   // largest first, for programs that read only the first
        pictures.push_back(render(i.vehicle(thinnest * width / real(size), i.turret), i.from, l, size));
    return icon(pictures);
}

int main(int count, char** arguments)
{
    if (count != 2) fail("usage: target_icons FOLDER");
    const QDir folder(arguments[1]);
    for (const icon_plan& i : icons) {
        save(folder.filePath(QString(i.name) + ".ico"), drawn(i, look::painted));
        save(folder.filePath(QString(i.hot_name) + ".ico"), drawn(i, look::hot));
    }
}

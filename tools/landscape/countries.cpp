// The countries of the shipped ranges. A place is given by its bearing from the middle of the picture, in
// degrees, and its distance in metres. Each picture covers 42 degrees to either side.
#include "country.h"

namespace tools {
namespace {

const ground_paint chalk_summer{
    .heath = {36, 40, 22},
    .grass = {{63, 58, 40}, {52, 52, 32}, {39, 44, 24}, {30, 33, 19}, {72, 67, 47}},
    .bare = {80, 76, 66},
    .soil = {58, 51, 39},
    .crops =
        {{47, 51, 28}, {44, 49, 25}, {72, 66, 43}, {56, 50, 38}, {50, 54, 29}, {65, 62, 38}, {36, 44, 21}},
    .woodfloor = {21, 25, 14}};

const ground_paint green_valley{
    .heath = {34, 42, 21},
    .grass = {{57, 56, 36}, {46, 51, 29}, {36, 45, 22}, {27, 34, 18}, {66, 64, 42}},
    .bare = {68, 62, 50},
    .soil = {50, 42, 32},
    .crops =
        {{44, 50, 26}, {39, 46, 23}, {66, 60, 40}, {54, 45, 32}, {48, 53, 28}, {56, 55, 35}, {36, 42, 22}},
    .woodfloor = {18, 23, 12}};

const ground_paint autumn_moor{
    .heath = {46, 34, 21},
    .grass = {{64, 54, 36}, {53, 46, 30}, {44, 43, 26}, {38, 29, 20}, {72, 64, 45}},
    .bare = {69, 63, 51},
    .soil = {46, 36, 26},
    .crops =
        {{47, 47, 26}, {46, 50, 25}, {74, 66, 45}, {44, 35, 24}, {53, 50, 29}, {68, 59, 38}, {47, 39, 26}},
    .woodfloor = {40, 29, 19}};

// Thin snow, through which stubble and clods show.
const ground_paint snowfields{
    .heath = {66, 62, 58},
    .grass = {{83, 83, 84}, {87, 88, 90}, {89, 90, 92}, {70, 68, 66}, {78, 75, 69}},
    .bare = {70, 66, 61},
    .soil = {56, 51, 46},
    .crops =
        {{88, 89, 91}, {84, 85, 84}, {81, 79, 75}, {68, 65, 63}, {89, 90, 92}, {84, 82, 79}, {77, 79, 77}},
    .woodfloor = {62, 61, 61}};

const std::vector<rgb> summer_leaves{{33, 41, 20}, {38, 45, 23}, {43, 47, 25}, {36, 44, 26}, {46, 48, 28}};
const std::vector<rgb> autumn_leaves{{53, 36, 21}, {61, 46, 24}, {46, 32, 21},
                                     {64, 53, 28}, {43, 42, 23}, {52, 41, 25}};

country thornmere()
{
    country c{.picture = "visualrange.vrp",
              .range = "visualrange.arf",
              .name = "THORNMERE DOWN",
              .seed = 1000,
              .towards_sun = unit({-.62f, -.42f, .50f}),
              .sunlight = {2.55f, 2.32f, 1.95f},
              .skylight = {.38f, .47f, .62f},
              .ground = chalk_summer,
              .sky = {{27, 45, 74}, {76, 83, 90}, {86, 88, 89}, .42f, .38f},
              .folds = 17,
              .farmed_from = 2250,
              .wooded = .30f,
              .heath = .15f,
              .scrub = .6f,
              .conifers = .15f,
              .needles = rgb(33, 39, 23) * .7f,
              .leaves = summer_leaves};
    c.tracks = {
        {at(-44, 250), at(-31, 330), at(-14, 450), at(1, 620), at(7, 860), at(2, 1120), at(-7, 1380),
         at(-5, 1750), at(-11, 2150), at(-8, 2700), at(-12, 3200)},
        {at(-14, 450), at(-25, 560), at(-33, 760), at(-37, 1050), at(-33, 1400), at(-38, 1900)},
        {at(1, 620), at(15, 650), at(26, 800), at(34, 1050), at(30, 1400), at(36, 1900), at(33, 2600)},
        {at(2, 1120), at(12, 1260), at(22, 1440), at(30, 1400)},
        {at(-33, 1400), at(-22, 1700), at(-5, 1750), at(10, 1930), at(22, 2150), at(25, 2700)},
        {at(26, 800), at(33, 640), at(41, 560), at(48, 600)}};
    c.belts = {{{at(-39, 1560), at(-33, 1640), at(-27, 1600), at(-25, 1580)}, 26, 12, .1f},
               {{at(-19, 1900), at(-12, 1960), at(-8, 1900)}, 24, 12, 0},
               {{at(13, 1560), at(20, 1640), at(25, 1620)}, 22, 11, 0},
               {{at(34, 1240), at(38, 1330), at(43, 1300)}, 30, 12, .5f},
               {{at(0, 2250), at(9, 2330), at(18, 2280)}, 34, 14, .2f},
               {{at(-30, 2320), at(-24, 2400), at(-16, 2350)}, 36, 14, .3f},
               {{at(-29, 1010), at(-25, 1060), at(-22, 1130)}, 18, 10, 0},
               {{at(17, 990), at(21, 1010), at(24, 1080)}, 17, 10, 0},
               {{at(-14, 1220), at(-10, 1260), at(-6, 1230)}, 18, 11, .1f},
               {{at(28, 1900), at(33, 2050), at(38, 2000)}, 30, 13, .2f}};
    c.copses = {{at(-36, 1290), 30, 12, 0},  {at(-17, 1500), 30, 12, .2f}, {at(15, 1350), 22, 11, 0},
                {at(38, 1010), 24, 11, .6f}, {at(7, 1640), 30, 13, 0},     {at(-28, 1990), 44, 14, .8f},
                {at(24, 1820), 40, 14, .1f}, {at(-20, 800), 14, 9, 0},     {at(30, 690), 15, 9, 0},
                {at(-3, 1010), 12, 9, 0},    {at(36, 1600), 38, 13, .3f},  {at(-39, 870), 18, 10, 0}};
    c.hedges = {{{at(-38, 1720), at(-30, 1780), at(-22, 1840), at(-19, 1900)}, 2.6f},
                {{at(-8, 1900), at(2, 1990), at(12, 1960)}, 2.6f},
                {{at(22, 1180), at(28, 1240), at(34, 1240)}, 2.5f},
                {{at(-22, 1130), at(-20, 1330), at(-22, 1520)}, 2.4f},
                {{at(24, 1080), at(27, 1240), at(25, 1420)}, 2.4f},
                {{at(-39, 1180), at(-33, 1210), at(-25, 1060)}, 2.3f}};
    c.farms = {{at(-15, 1840), .25f}, {at(33, 1790), -.35f}, {at(7, 2430), .1f}, {at(-33, 2500), .4f}};
    return c;
}

country elderbeck()
{
    country c = thornmere();
    c.picture = "valley.vrp";
    c.range = "valley.arf";
    c.name = "ELDERBECK VALE";
    c.seed = 2200;
    c.ground = green_valley;
    c.sky = {{30, 48, 76}, {78, 85, 91}, {88, 90, 91}, .30f, .55f};
    c.folds = 13;
    c.farmed_from = 560;
    c.rough_share = .10f;
    c.wooded = .42f;
    c.scrub = .8f;
    c.conifers = .2f;
    c.rivers = {{at(-58, 1650), at(-48, 1420), at(-41, 1240), at(-34, 1330), at(-27, 1500), at(-20, 1390),
                 at(-16, 1190), at(-9, 1090), at(-2, 1190), at(4, 1350), at(11, 1330), at(16, 1150),
                 at(21, 1010), at(28, 1000), at(33, 1150), at(39, 1290), at(46, 1200), at(58, 1150)}};
    c.hamlet = at(-5, 1400);
    c.roads = {{at(44, 520), at(34, 640), at(22, 720), at(10, 800), at(0, 930), at(-6, 1050), at(-8.5f, 1180),
                at(-7, 1330), at(-5, 1410), at(-1, 1520), at(7, 1680), at(9, 1900), at(2, 2150), at(5, 2500),
                at(1, 2900), at(4, 3300)},
               {at(-5, 1410), at(-13, 1560), at(-24, 1720), at(-33, 1640), at(-44, 1760)}};
    c.tracks = {{at(0, 930), at(-13, 880), at(-24, 960), at(-32, 1120), at(-35, 1190)},
                {at(-40, 250), at(-33, 350), at(-27, 480), at(-22, 660), at(-13, 880)},
                {at(9, 1900), at(20, 1760), at(30, 1830), at(40, 1700)}};
    c.belts = {{{at(26, 1290), at(31, 1380), at(37, 1460)}, 20, 11, 0},
               {{at(-39, 1450), at(-34, 1480), at(-30, 1600)}, 18, 11, 0}};
    c.copses = {{at(14, 930), 18, 10, 0}, {at(-30, 820), 22, 11, 0}, {at(29, 850), 16, 10, 0}};
    c.hedges = {};
    c.farms = {{at(25, 1480), -.3f},
               {at(-27, 1180), .3f},
               {at(14, 2080), .1f},
               {at(-17, 2020), .5f},
               {at(35, 930), .6f}};
    return c;
}

country harrowmoor()
{
    country c = thornmere();
    c.picture = "range1.vrp";
    c.range = "range1.arf";
    c.name = "HARROWMOOR FELL";
    c.seed = 3300;
    c.towards_sun = unit({-.70f, -.40f, .36f});
    c.sunlight = {2.52f, 2.20f, 1.68f};
    c.skylight = {.42f, .47f, .56f};
    c.ground = autumn_moor;
    c.sky = {{45, 55, 68}, {84, 85, 84}, {92, 89, 83}, .66f, .6f};
    c.folds = 18;
    c.farmed_from = 900;
    c.rough_share = .42f;
    c.wooded = .34f;
    c.heath = .9f;
    c.scrub = .9f;
    c.conifers = .3f;
    c.leaves = autumn_leaves;
    c.bare_trees = .25f;
    c.tracks = {{at(42, 250), at(33, 350), at(18, 470), at(6, 620), at(-6, 800), at(-11, 1050), at(-5, 1300),
                 at(3, 1560), at(-2, 1900), at(5, 2300), at(2, 2800), at(6, 3300)},
                {at(6, 620), at(18, 690), at(28, 880), at(33, 1200), at(27, 1500), at(31, 1900)},
                {at(-6, 800), at(-18, 830), at(-30, 1000), at(-36, 1300), at(-31, 1650), at(-37, 2100)},
                {at(-5, 1300), at(-17, 1480), at(-31, 1650)},
                {at(3, 1560), at(14, 1620), at(27, 1500)}};
    c.belts = {{{at(-40, 1150), at(-34, 1190), at(-28, 1280)}, 22, 11, .1f},
               {{at(10, 1250), at(16, 1310), at(22, 1290)}, 20, 11, 0},
               {{at(28, 1680), at(34, 1700), at(40, 1640)}, 28, 13, .6f}};
    c.copses = {{at(-24, 1380), 26, 12, 0}, {at(35, 960), 24, 11, .4f}, {at(-14, 640), 12, 8, 0},
                {at(23, 610), 13, 8, 0},    {at(9, 1050), 16, 10, 0},   {at(-33, 780), 17, 9, .3f}};
    c.hedges = {};
    c.farms = {{at(16, 1700), .3f}, {at(-22, 1760), -.2f}, {at(34, 2100), .4f}};
    return c;
}

country frostfield()
{
    country c = harrowmoor();
    c.picture = "winter.vrp";
    c.range = "winter.arf";
    c.name = "FROSTFIELD PLAIN";
    c.seed = 4400;
    c.sunlight = {1.62f, 1.46f, 1.20f};
    c.skylight = {.36f, .44f, .58f};
    c.ground = snowfields;
    c.sky = {{44, 56, 74}, {86, 88, 90}, {91, 90, 88}, .50f, .7f};
    c.folds = 9;
    c.farmed_from = 760;
    c.rough_share = .25f;
    c.wooded = .32f;
    c.heath = .25f;
    c.scrub = .8f;
    c.conifers = .45f;
    c.needles = rgb(31, 36, 27) * .7f;
    c.leaves = {{44, 38, 33}, {40, 34, 30}, {48, 42, 35}};
    c.bare_trees = 1;
    c.tufts = {.60f, .52f, .41f};
    c.snow = 1;
    // The layout of HARROWMOOR FELL, mirrored.
    for (path& track : c.tracks)
        for (point& p : track) p.x = -p.x;
    for (belt_plan& belt : c.belts)
        for (point& p : belt.line) p.x = -p.x;
    for (copse_plan& copse : c.copses) copse.middle.x = -copse.middle.x;
    for (farm_plan& farm : c.farms) farm = {{-farm.place.x, farm.place.y}, -farm.angle};
    c.roads = {{at(-46, 1150), at(-32, 1420), at(-18, 1480), at(-2, 1600), at(14, 1720), at(28, 1850),
                at(44, 1800)}};
    return c;
}

country thermal_of(country c, const char* picture, const char* range, const char* name, bool night)
{
    c.picture = picture;
    c.range = range;
    c.name = name;
    c.night = night;
    c.sight = vorn::sight_kind::thermal;
    c.width = 3009;
    c.height = 1400;
    c.twin_quality = 85;
    return c;
}

}   // namespace

const std::vector<country>& countries()
{
    static const std::vector<country> all{
        thornmere(),
        elderbeck(),
        harrowmoor(),
        thermal_of(thornmere(), "thermalrange.trp", "Thermalrange.arf", "THORNMERE DOWN TI", false),
        thermal_of(elderbeck(), "valnight.trp", "valnight.arf", "ELDERBECK BY NIGHT", true),
        frostfield(),
        thermal_of(frostfield(), "wintnght.trp", "wintnght.arf", "FROSTFIELD BY NIGHT", true)};
    return all;
}

}   // namespace tools

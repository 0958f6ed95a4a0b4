// The countries of the shipped ranges. A place is given by its bearing from the middle of the picture, in
// degrees, and its distance in metres. The picture covers 42 degrees to either side.
#include "country.h"

namespace tools {
namespace {

const vec3 afternoon_sun = unit({-.62f, -.42f, .50f}), low_sun = unit({-.70f, -.40f, .36f});

const ground_paint chalk_summer{
    .heath = linear(.36f, .40f, .22f),
    .dry = linear(.63f, .58f, .40f),
    .middling = linear(.52f, .52f, .32f),
    .lush = linear(.39f, .44f, .24f),
    .dark = linear(.30f, .33f, .19f),
    .straw = linear(.72f, .67f, .47f),
    .bare = linear(.80f, .76f, .66f),
    .soil = linear(.58f, .51f, .39f),
    .crops = {linear(.47f, .51f, .28f), linear(.44f, .49f, .25f), linear(.72f, .66f, .43f),
              linear(.56f, .50f, .38f), linear(.50f, .54f, .29f), linear(.65f, .62f, .38f),
              linear(.36f, .44f, .21f)},
    .woodfloor = linear(.21f, .25f, .14f)};

const ground_paint green_valley{
    .heath = linear(.34f, .42f, .21f),
    .dry = linear(.57f, .56f, .36f),
    .middling = linear(.46f, .51f, .29f),
    .lush = linear(.36f, .45f, .22f),
    .dark = linear(.27f, .34f, .18f),
    .straw = linear(.66f, .64f, .42f),
    .bare = linear(.68f, .62f, .50f),
    .soil = linear(.50f, .42f, .32f),
    .crops = {linear(.44f, .50f, .26f), linear(.39f, .46f, .23f), linear(.66f, .60f, .40f),
              linear(.54f, .45f, .32f), linear(.48f, .53f, .28f), linear(.56f, .55f, .35f),
              linear(.36f, .42f, .22f)},
    .woodfloor = linear(.18f, .23f, .12f)};

const ground_paint autumn_moor{
    .heath = linear(.46f, .34f, .21f),
    .dry = linear(.64f, .54f, .36f),
    .middling = linear(.53f, .46f, .30f),
    .lush = linear(.44f, .43f, .26f),
    .dark = linear(.38f, .29f, .20f),
    .straw = linear(.72f, .64f, .45f),
    .bare = linear(.69f, .63f, .51f),
    .soil = linear(.46f, .36f, .26f),
    .crops = {linear(.47f, .47f, .26f), linear(.46f, .50f, .25f), linear(.74f, .66f, .45f),
              linear(.44f, .35f, .24f), linear(.53f, .50f, .29f), linear(.68f, .59f, .38f),
              linear(.47f, .39f, .26f)},
    .woodfloor = linear(.40f, .29f, .19f)};

// Thin snow, through which stubble and clods show.
const ground_paint snowfields{
    .heath = linear(.66f, .62f, .58f),
    .dry = linear(.83f, .83f, .84f),
    .middling = linear(.87f, .88f, .90f),
    .lush = linear(.89f, .90f, .92f),
    .dark = linear(.70f, .68f, .66f),
    .straw = linear(.78f, .75f, .69f),
    .bare = linear(.70f, .66f, .61f),
    .soil = linear(.56f, .51f, .46f),
    .crops = {linear(.88f, .89f, .91f), linear(.84f, .85f, .84f), linear(.81f, .79f, .75f),
              linear(.68f, .65f, .63f), linear(.89f, .90f, .92f), linear(.84f, .82f, .79f),
              linear(.77f, .79f, .77f)},
    .woodfloor = linear(.62f, .61f, .61f)};

const std::vector<vec3> summer_leaves{linear(.33f, .41f, .20f), linear(.38f, .45f, .23f),
                                      linear(.43f, .47f, .25f), linear(.36f, .44f, .26f),
                                      linear(.46f, .48f, .28f)};
const std::vector<vec3> autumn_leaves{linear(.53f, .36f, .21f), linear(.61f, .46f, .24f),
                                      linear(.46f, .32f, .21f), linear(.64f, .53f, .28f),
                                      linear(.43f, .42f, .23f), linear(.52f, .41f, .25f)};

country thornmere()
{
    country c{
        .picture = "visualrange.vrp",
        .range = "visualrange.arf",
        .name = "THORNMERE DOWN",
        .sight = vorn::sight_kind::visual,
        .night = false,
        .width = 4012,
        .height = 2000,
        .twin_quality = 74,
        .seed = 1000,
        .towards_sun = afternoon_sun,
        .sunlight = {2.55f, 2.32f, 1.95f},
        .skylight = {.38f, .47f, .62f},
        .ground = chalk_summer,
        .sky = {linear(.27f, .45f, .74f), linear(.76f, .83f, .90f), linear(.86f, .88f, .89f), .42f, .38f},
        .folds = 17,
        .farmed_from = 2250,
        .rough_share = 0,
        .wooded = .30f,
        .heath = .15f,
        .scrub = .6f,
        .conifers = .15f,
        .needles = linear(.33f, .39f, .23f) * .7f,
        .leaves = summer_leaves,
        .bare_trees = 0};
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
    c.sky = {linear(.30f, .48f, .76f), linear(.78f, .85f, .91f), linear(.88f, .90f, .91f), .30f, .55f};
    c.folds = 13;
    c.farmed_from = 560;
    c.rough_share = .10f;
    c.wooded = .42f;
    c.scrub = .8f;
    c.conifers = .2f;
    c.river = {at(-58, 1650), at(-48, 1420), at(-41, 1240), at(-34, 1330), at(-27, 1500), at(-20, 1390),
               at(-16, 1190), at(-9, 1090),  at(-2, 1190),  at(4, 1350),   at(11, 1330),  at(16, 1150),
               at(21, 1010),  at(28, 1000),  at(33, 1150),  at(39, 1290),  at(46, 1200),  at(58, 1150)};
    c.river_width = 27;
    c.hamlet = true;
    c.hamlet_at = at(-5, 1400);
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
    c.towards_sun = low_sun;
    c.sunlight = {2.52f, 2.20f, 1.68f};
    c.skylight = {.42f, .47f, .56f};
    c.ground = autumn_moor;
    c.sky = {linear(.45f, .55f, .68f), linear(.84f, .85f, .84f), linear(.92f, .89f, .83f), .66f, .6f};
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
    c.sky = {linear(.44f, .56f, .74f), linear(.86f, .88f, .90f), linear(.91f, .90f, .88f), .50f, .7f};
    c.folds = 9;
    c.farmed_from = 760;
    c.rough_share = .25f;
    c.wooded = .32f;
    c.heath = .25f;
    c.scrub = .8f;
    c.conifers = .45f;
    c.needles = linear(.31f, .36f, .27f) * .7f;
    c.leaves = {linear(.44f, .38f, .33f), linear(.40f, .34f, .30f), linear(.48f, .42f, .35f)};
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

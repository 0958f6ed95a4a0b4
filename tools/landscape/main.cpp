// Makes the ranges that the trainer ships with: panoramic pictures of invented country for the visual and the
// thermal sight, and the range files with twenty target positions on each.
//
// The ground has true heights, so each pixel has a true range. On it are grass, crops, woods, tracks, water
// and houses; sun, cloud shadows and haze light them. The relief is chosen so that the range author proposes
// nearly the true range for a place on the picture; the program prints how far the proposals are off.

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

#include "common/save.h"
#include "develop.h"
#include "positions.h"

using namespace tools;

static void report(const country& land, const std::vector<position>& positions, qsizetype bytes)
{
    std::vector<float> off;
    int under1300 = 0, under1600 = 0;
    for (std::size_t i = 0; const position& p : positions) {
        off.push_back(std::fabs(proposed_range(land, p) - p.range));
        if (++i == positions.size()) break;   // a practice never uses the last one
        under1300 += p.range < 1300 ? 1 : 0;
        under1600 += p.range < 1600 ? 1 : 0;
    }
    std::sort(off.begin(), off.end());
    std::printf(
        "%-18s %4lld kB, %zu positions, %d under 1300 m, %d under 1600 m; proposed range off by %.0f m "
        "(median), %.0f m (worst)\n",
        land.picture, static_cast<long long>(bytes / 1024), positions.size(), under1300, under1600,
        static_cast<double>(off[off.size() / 2]), static_cast<double>(off.back()));
}

static bool make(const country& land, const QString& folder, int scale)
{
    const world w(land);
    const rendered r = render(w, view_of(land, scale));
    const bool visual = land.sight == vorn::sight_kind::visual;
    const QByteArray picture = jpeg(visual ? photograph(r) : thermal_image(r), land.quality);
    if (!save(folder + '/' + land.picture, picture)) return false;
    if (scale > 1) return true;
    const std::vector<position> positions = choose_positions(land, r);
    if (positions.size() < 20) {
        std::fprintf(stderr, "landscape: only %zu positions on %s\n", positions.size(), land.picture);
        return false;
    }
    report(land, positions, picture.size());
    return save(folder + '/' + land.range, QByteArray::fromStdString(range_file(land, positions)));
}

int main(int argc, char** argv)
{
    const QCoreApplication program(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addPositionalArgument("folder", "Where the pictures and range files go.");
    options.addOption({"only", "Makes this picture and its range alone.", "picture"});
    options.addOption({"scale", "Divides the picture size by this, makes no range files.", "times", "1"});
    options.process(program);
    const int scale = options.value("scale").toInt();
    if (options.positionalArguments().size() != 1 || scale < 1) options.showHelp(2);
    bool good = true;
    for (const country& land : countries())
        if (!options.isSet("only") || options.value("only") == land.picture)
            good = make(land, options.positionalArguments().first(), scale) && good;
    return good ? 0 : 1;
}

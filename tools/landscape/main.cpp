// Makes the ranges that the trainer ships with: panoramic pictures of invented landscapes for the visual and
// the thermal sight, and for each picture a range file with twenty target positions.
//
// The ground has a height at each place, so the exact range of each of its pixels is known. Plants, tracks,
// roads, water and buildings are drawn on it, with light and haze. The range author proposes a range for each
// row of the ground band. The relief is shaped so that the proposals are nearly right; the program prints the
// median and the largest of their errors at the target positions.
//
// Each picture is drawn with twice the pixels each way. The result is saved as the twin, for a sight that is
// drawn large. Reduced to half its size it is the picture itself.

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

#include "common/save.h"
#include "picture.h"

using namespace tools;

static void make(const country& land, const QString& folder, int scale)
{
    const world w(land);
    const rendered r = render(w, view_of(land, real(scale) / 2));
    const QImage big = land.sight == vorn::sight_kind::visual ? photograph(r) : thermal_image(r);
    save(folder + '/' + land.picture, encoded(halved(big), "jpeg", 90));
    save(folder + '/' + QString(land.picture).replace('.', "@2x."), encoded(big, "jpeg", land.twin_quality));
    if (scale > 1) return;
    const std::vector<position> positions = choose_positions(land, halved(r));
    std::vector<float> off;
    for (const position& p : positions)
        off.push_back(std::fabs(proposed_range(land, p.y, p.range) - p.range));
    std::ranges::sort(off);
    std::printf("%-18s proposed range off by %.0f m (median), %.0f m (worst)\n", land.picture,
                static_cast<double>(off[off.size() / 2]), static_cast<double>(off.back()));
    save(folder + '/' + land.range, QByteArray::fromStdString(range_file(land, positions)));
}

int main(int argc, char** argv)
{
    const QCoreApplication program(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addPositionalArgument("folder", "Where the pictures and range files go.");
    options.addOption({"only", "Makes only this picture, its twin and its range file.", "picture"});
    options.addOption(
        {"scale", "Divides the picture size by this number. Above 1, makes no range files.", "times", "1"});
    options.process(program);
    const int scale = options.value("scale").toInt();
    if (options.positionalArguments().size() != 1 || scale < 1) options.showHelp(2);
    bool made = false;
    for (const country& land : countries())
        if (!options.isSet("only") || options.value("only") == land.picture) {
            make(land, options.positionalArguments().first(), scale);
            made = true;
        }
    if (!made) fail("there is no picture named " + options.value("only"));
}

// Makes the ranges that the trainer ships with: panoramic pictures of invented country for the visual and the
// thermal sight, and the range files with twenty target positions on each.
//
// What is modelled: ground with true heights, so that each pixel has a true range; grass, crops, woodland,
// tracks, water and houses on it; sun, cloud shadow, and air that pales with distance. The relief is made so
// that the height of a place on the picture tells its range as the range author's band does; the program
// prints by how much they differ.
//
// Usage: landscape FOLDER [--only PICTURE] [--scale N]
// With --scale it makes smaller pictures for a quick look, and no range files.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "develop.h"
#include "jpeg.h"
#include "positions.h"

using namespace landscape;

struct orders {
    std::string folder, only;
    int scale = 1;
};

static bool save(const std::string& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file << bytes << std::flush;
    if (!file) std::fprintf(stderr, "landscape: can't write %s\n", path.c_str());
    return file.good();
}

static void report(const country& land, const std::vector<position>& positions, std::size_t bytes)
{
    std::vector<float> off;
    int under1300 = 0, under1600 = 0;
    for (std::size_t i = 0; const position& p : positions) {
        off.push_back(std::fabs(proposed_range(land, p) - p.range));
        if (++i == positions.size()) break;   // the last is never drawn
        under1300 += p.range < 1300 ? 1 : 0;
        under1600 += p.range < 1600 ? 1 : 0;
    }
    std::sort(off.begin(), off.end());
    std::printf(
        "%-18s %4zu kB, %zu positions, %d under 1300 m, %d under 1600 m; proposed range off by %.0f m "
        "(median), %.0f m (worst)\n",
        land.picture, bytes / 1024, positions.size(), under1300, under1600,
        static_cast<double>(off[off.size() / 2]), static_cast<double>(off.back()));
}

static bool make(const country& land, const orders& o)
{
    const world w(land);
    const view v = view_of(land, o.scale);
    const rendered r = render(w, v);
    const bool visual = land.sight == vorn::sight_kind::visual;
    const std::string picture =
        jpeg(visual ? photograph(r) : thermal_image(r), r.width, r.height, visual ? 3 : 1, land.quality);
    if (!save(o.folder + '/' + land.picture, picture)) return false;
    if (o.scale > 1) return true;
    const std::vector<position> positions = choose_positions(land, r);
    if (positions.size() < 20) {
        std::fprintf(stderr, "landscape: only %zu positions on %s\n", positions.size(), land.picture);
        return false;
    }
    report(land, positions, picture.size());
    std::fflush(stdout);
    return save(o.folder + '/' + land.range, range_file(land, positions));
}

static int usage()
{
    std::fprintf(stderr, "usage: landscape FOLDER [--only PICTURE] [--scale N]\n");
    return 2;
}

int main(int count, char** arguments)
{
    if (count < 2) return usage();
    orders o{.folder = arguments[1], .only = {}};
    for (int i = 2; i < count; i += 2) {
        const std::string option = arguments[i];
        if (i + 1 == count) return usage();
        if (option == "--only")
            o.only = arguments[i + 1];
        else if (option == "--scale")
            o.scale = std::max(1, std::atoi(arguments[i + 1]));
        else
            return usage();
    }
    bool good = true;
    for (const country& land : countries())
        if (o.only.empty() || o.only == land.picture) good = make(land, o) && good;
    return good ? 0 : 1;
}

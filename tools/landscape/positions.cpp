#include "picture.h"

#include <cmath>
#include <limits>
#include <optional>

#include "common/noise.h"
#include "common/save.h"
#include "platform/objects.h"
#include "ranges/rangefile.h"

namespace tools {
namespace {

constexpr int wanted = 20;
constexpr float nearest = 600, farthest = 2500;   // metres
// The preferred range of each position, from left to right. Near and far positions are mixed. Of the first
// nineteen, eleven are near enough for the coax (1300 m) and fourteen for FIN (1600 m).
constexpr float preferred[wanted] = {900,  2300, 1250, 700,  1500, 1050, 2050, 820,  1400, 1150,
                                     1750, 650,  1200, 2400, 980,  1550, 750,  1900, 1100, 2200};
// Accepted differences from the preferred range, in metres. The next is tried if no position is found.
constexpr float tolerances[] = {380, 800, 1900};

constexpr auto twip = real(vorn::twips_per_pixel);
constexpr float spare = 1000;   // twips, for aiming beside the target in a wind, and above it

struct box {
    float left, right, top, bottom;   // pixels
};

// The part of the picture that the keys can bring to the aim point while the picture fills the sight, less
// some room at the left, the right and the top.
box in_reach(const country& land)
{
    const vorn::sight_numbers& sight = vorn::numbers_of(land.sight);
    const vorn::area& aim = sight.aim;
    const vorn::limit_numbers& keys = sight.keylimits;
    const float width = real(land.width) * twip, height = real(land.height) * twip;
    const float across = real(std::max(keys.across, sight.window.Width));
    const float down = real(std::max(keys.down, sight.window.Height));
    // On the visual sight the autolay moves the picture down, at most by the drop of HESH. On the thermal
    // sight the switch to the reversionary mark moves it up. Each move is 0 on the other sight.
    const float above = real(sight.hesh.to.at(farthest)), below = real(sight.reversionary.at(farthest));
    const float x = real(aim.Left), y = real(aim.Top), near = real(keys.near);
    return {(x - near + spare) / twip, (x + width - across - spare) / twip, (y - near + above + spare) / twip,
            (y + height - down - below) / twip};
}

// Whether a target's lower edge can be here. The commander's lay shifts the target on the picture by one step
// along each axis, in either direction, so the ground must be open that far around it as well.
bool is_open(const country& land, const rendered& r, int x, int y, float range)
{
    const vorn::sight_numbers& sight = vorn::numbers_of(land.sight);
    const float side = target_side(land.sight, range);
    const int half = static_cast<int>((side / 2 + real(sight.right.step)) / twip);
    const int slip = static_cast<int>(real(sight.down.step) / twip);
    for (int i = -half; i <= half; i += 2) {
        for (int j = -slip; j <= slip; j += 2) {
            const pixel& foot = r.at(x + i, y + j);
            if (foot.made_of != material::ground) return false;
            if (std::fabs(foot.range - range) > .12f * range) return false;   // a crest
        }
        for (int j = slip; j <= static_cast<int>(side / twip); j += 2) {
            const pixel& body = r.at(x + i, y - j);
            if (body.made_of >= material::plant && body.range < range) return false;   // hides the target
        }
    }
    return true;
}

std::optional<position> best_between(const country& land, const rendered& r, const box& reach, int left,
                                     int right, float range, float within, rng& random)
{
    std::optional<position> best;
    float least = std::numeric_limits<float>::infinity();
    for (int y = static_cast<int>(reach.top); y < static_cast<int>(reach.bottom); y += 3)
        for (int x = left; x < right; x += 5) {
            const float there = r.at(x, y).range;
            if (there < nearest || there > farthest || std::fabs(there - range) > within) continue;
            const position p{x, y, std::round(there)};
            const float proposed = proposed_range(land, y, p.range);
            const float disagrees = proposed > 0 ? std::fabs(proposed - p.range) : 1000;
            const float cost = std::fabs(p.range - range) + .6f * disagrees + 40 * random.unit();
            if (cost >= least || !is_open(land, r, x, y, there)) continue;
            best = p;
            least = cost;
        }
    return best;
}

}   // namespace

std::vector<position> choose_positions(const country& land, const rendered& r)
{
    const box reach = in_reach(land);
    rng random(land.seed + 12345);
    std::vector<position> chosen;
    const float slot = (reach.right - reach.left) / wanted;
    // Neighbouring positions are at least the width of a target apart.
    const float apart = real(vorn::largest_target) / twip / 2;
    for (int i = 0; i < wanted; ++i) {
        const float left = reach.left + slot * real(i);
        std::optional<position> p;
        for (const float within : tolerances)
            if (!p)
                p = best_between(land, r, reach, static_cast<int>(left + apart),
                                 static_cast<int>(left + slot - apart), preferred[i], within, random);
        if (!p) fail(QString("no place for target %1 on %2").arg(i + 1).arg(land.picture));
        chosen.push_back(*p);
    }
    return chosen;
}

std::string range_file(const country& land, const std::vector<position>& positions)
{
    vorn::practice_state p;
    p.rangename = land.name;
    p.rangepicture = land.picture;
    p.rangetype = vorn::numbers_of(land.sight).resultmode;
    const std::string icons =
        land.sight == vorn::sight_kind::visual ? "/target icons/target" : "/target icons/thermal";
    p.targeticon1 = icons + "1.ico";
    p.targeticon2 = icons + "2.ico";
    p.targeticon3 = icons + "3.ico";
    for (int entry = 1; const position& at : positions) {
        const float side = target_side(land.sight, at.range);
        p.targetx[entry] = static_cast<std::int32_t>(std::lround(real(at.x) * twip - side / 2));
        p.targety[entry] = static_cast<std::int32_t>(std::lround(real(at.y) * twip - side));
        p.targetrange[entry] = static_cast<std::int16_t>(at.range);
        entry += 1;
    }
    return vorn::range_file_bytes(p);
}

}   // namespace tools

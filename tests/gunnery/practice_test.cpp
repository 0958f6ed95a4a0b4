// Whole practices fired by the scripted gunner: each nature of target in each state of the system, on both
// sights. The record is compared with the gunner's notes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "drill.h"

namespace vorn {
namespace {

enum class system_option { full, laze, tls, degrading };

struct shoot {
    sight_kind sight;
    int engagements;   // 1 mixed, 2 coax, 3 HESH, 4 FIN
    system_option system;
    device by;
};

std::string name_of(const testing::TestParamInfo<shoot>& i)
{
    static constexpr const char* natures[] = {"mixed", "coax", "hesh", "fin"};
    static constexpr const char* systems[] = {"full", "laze_only", "tls_only", "degrading"};
    static constexpr const char* devices[] = {"keys", "buttons", "stick"};
    return std::string(i.param.sight == sight_kind::visual ? "visual_" : "thermal_") +
           natures[i.param.engagements - 1] + '_' + systems[static_cast<int>(i.param.system)] + "_by_" +
           devices[static_cast<int>(i.param.by)];
}

// Each combination of sight, nature and system once, with the devices in turn.
std::vector<shoot> all_shoots()
{
    std::vector<shoot> all;
    for (const sight_kind sight : {sight_kind::visual, sight_kind::thermal})
        for (int nature = 1; nature <= 4; ++nature)
            for (const system_option s :
                 {system_option::full, system_option::laze, system_option::tls, system_option::degrading})
                all.push_back({sight, nature, s, static_cast<device>(all.size() % 3)});
    return all;
}

// On the shipped data, with unlimited time and without a debrief.
struct long_drill : drill {
    long_drill(sight_kind sight, int engagements) : drill(sight, VORN_SOURCE_DIR "/data")
    {
        t.shared.engagementtype = engagements;
        t.shared.targettime = 500;
        t.shared.fulldebrief = false;
    }
};

struct practice : testing::TestWithParam<shoot> {
    long_drill d{GetParam().sight, GetParam().engagements};
    practice_state& p = d.t.shared;
    gunnery_screen& s = d.screen();

    practice()
    {
        const shoot& set = GetParam();
        p.selfdegrading = set.system == system_option::degrading;
        p.systemstatus = p.selfdegrading ? 1 : static_cast<int>(set.system) + 1;
        p.targetblocks = p.selfdegrading ? 3 : 2;
    }
};
INSTANTIATE_TEST_SUITE_P(all, practice, testing::ValuesIn(all_shoots()), name_of);

// A fifth round overwrites the fourth.
void expect_rounds(const practice_state& p, bool visual, int e, const engagement_note& n)
{
    ASSERT_EQ(n.falls.size(), n.aims.size()) << "a round was not seen";
    EXPECT_EQ(p.recrounds[e], std::min<int>(static_cast<int>(n.aims.size()), 3));
    int row = 0;
    for (std::size_t i = 0; i < n.aims.size(); ++i) {
        if (row < 4) row += 1;
        if (row == 4) i = n.aims.size() - 1;
        EXPECT_NEAR(p.recaimx[e][row], n.aims[i].x, 0.51);
        EXPECT_NEAR(p.recaimy[e][row], visual ? n.aims[i].y : -n.aims[i].y, 0.51);
        EXPECT_NEAR(p.recfallx[e][row], n.falls[i].x, 0.51) << "row " << row;
        EXPECT_NEAR(p.recfally[e][row], n.falls[i].y, 0.51) << "row " << row;
    }
}

// The thermal reset always sets row 1 to FULL.
std::string system_of(const gunnery_screen& s, int e, const engagement_note& n)
{
    if (!s.visual() && e == 1) return "FULL";
    return n.system == "T" ? "TLS ONLY" : n.system == "L" ? "LAZE ONLY" : "FULL";
}

void expect_kill(const practice_state& p, const gunnery_screen& s, int e, const engagement_note& n)
{
    EXPECT_TRUE(n.hit);
    EXPECT_EQ(p.rechit[e], "YES");
    EXPECT_EQ(p.rectarget[e], e);
    EXPECT_EQ(p.recammo[e], n.order);
    EXPECT_EQ(p.recsystem[e], system_of(s, e, n));
    // The order counts as one second; the seconds of lays and flights are not counted.
    EXPECT_LE(p.rectime[e], n.killed - n.ordered + 1);
    EXPECT_GE(p.rectime[e], n.killed - n.ordered - 5 * static_cast<double>(n.aims.size()));
    EXPECT_LT(p.rectime[e], 120);
    expect_rounds(p, s.visual(), e, n);
}

// The box at the end of a practice without a debrief.
void expect_score(const drill& d, int targets, int hits, int average, int score)
{
    const std::string text = d.pc.boxes.back().text + '\n';
    for (const auto& [words, n] : {std::pair{"NUMBER OF TARGETS = ", targets},
                                   {"NUMBER OF HITS = ", hits},
                                   {"AVERAGE TIME = ", average},
                                   {"SCORE = ", score}})
        EXPECT_NE(text.find(words + std::to_string(n) + '\n'), std::string::npos)
            << words << n << " in " << text;
}

TEST_P(practice, is_recorded_as_fired)
{
    gunner g = d.gunner_by(GetParam().by);
    d.set_up();
    g.fire_practice();
    const int targets = p.targetblocks * 3;
    ASSERT_EQ(std::ssize(g.notes), targets);
    int sum = 0;
    for (int e = 1; const engagement_note& n : g.notes) {
        SCOPED_TRACE("target " + std::to_string(e) + " at " + std::to_string(p.recrange[e]));
        expect_kill(p, s, e, n);
        sum += p.rectime[e++];
    }
    expect_score(d, targets, targets, sum / targets, sum / targets * targets * 2);
}

// Each position of each shipped range in turn.
class shipped_range_shoot : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(all, shipped_range_shoot, testing::ValuesIn(shipped_ranges()),
                         [](const auto& file) { return std::filesystem::path(file.param).stem().string(); });

// Fires at this position and the following ones, three per block.
void shoot_in_turn(const std::string& file, sight_kind sight, int first, int16 blocks)
{
    long_drill d(sight, 3);   // HESH: it takes any range
    practice_state& p = d.t.shared;
    p.rangefile = p.rootpath + '/' + file;
    p.targetblocks = blocks;
    gunner g = d.gunner_by(device::key);
    d.set_up();
    const practice_state range = p;
    // Puts the position that is next in turn in place of all others.
    d.t.random.source = [&p, &range, first, other = random_numbers{}]() mutable {
        const int turn = std::min(first - 1 + p.engagement, 19);
        std::ranges::fill(p.targetx, range.targetx[turn]);
        std::ranges::fill(p.targety, range.targety[turn]);
        std::ranges::fill(p.targetrange, range.targetrange[turn]);
        return Rnd(other);
    };
    g.fire_practice();
    ASSERT_EQ(std::ssize(g.notes), blocks * 3);
    for (int e = 1; const engagement_note& n : g.notes) {
        SCOPED_TRACE("position " + std::to_string(first - 1 + e));
        EXPECT_TRUE(n.hit);
        EXPECT_EQ(p.recx[e], range.targetx[first - 1 + e]);
        e += 1;
    }
}

TEST_P(shipped_range_shoot, each_target_can_be_killed)
{
    headless_machine pc;
    practice_state head;
    ASSERT_EQ(read_range_head(pc, VORN_SOURCE_DIR "/data/ranges/" + GetParam(), head), "");
    const sight_kind sight = head.rangetype == "THERMAL" ? sight_kind::thermal : sight_kind::visual;
    shoot_in_turn(GetParam(), sight, 1, 5);
    shoot_in_turn(GetParam(), sight, 14, 2);
}

TEST(hesh_practice, a_corrected_round_kills_in_any_wind)
{
    for (const sight_kind sight : both_sights)
        for (const int wind : {-3, -2, 2, 3}) {
            SCOPED_TRACE(testing::Message()
                         << (sight == sight_kind::visual ? "visual " : "thermal ") << wind);
            long_drill d(sight, 3);
            d.t.shared.windbias = wind;
            d.t.shared.heshcorrectall = true;
            gunner g = d.gunner_by(wind % 2 == 0 ? device::key : device::stick);
            d.set_up();
            g.fire_practice();
            ASSERT_EQ(g.notes.size(), 6U);
            std::size_t rounds = 0;
            for (const engagement_note& n : g.notes) {
                EXPECT_TRUE(n.hit);
                EXPECT_TRUE(n.corrected);
                EXPECT_GE(n.aims.size(), 2U) << "no uncorrected round hits";
                rounds += n.aims.size();
            }
            EXPECT_LE(rounds, 18U) << "most second rounds kill";
        }
}

TEST(timed_practice, hits_and_misses_are_scored)
{
    long_drill d(sight_kind::visual, 3);
    practice_state& p = d.t.shared;
    p.systemstatus = 3;
    p.targettime = 20;
    p.killarea = 4;   // small, so that some targets are missed
    p.targetblocks = 5;
    gunner g = d.gunner_by(device::key);
    d.set_up();
    g.fire_practice();
    ASSERT_EQ(g.notes.size(), 15U);
    int hits = 0, sum = 0;
    for (int e = 0; const engagement_note& n : g.notes) {
        SCOPED_TRACE(++e);
        EXPECT_EQ(p.rechit[e], n.hit ? "YES" : "NO");
        EXPECT_EQ(p.rectarget[e], e);
        if (!n.hit) {
            EXPECT_EQ(p.rectime[e], 100);
            continue;
        }
        hits += 1;
        sum += p.rectime[e];
        EXPECT_NEAR(p.rectime[e], 20 - n.timeleft, 1.1);
    }
    EXPECT_GT(hits, 2);
    EXPECT_LT(hits, 15);
    expect_score(d, 15, hits, sum / 15, sum / 15 * hits * 50);
}

}   // namespace
}   // namespace vorn

// Whole practices fired by the scripted gunner: each nature of target in each system status, on both sights.
// The record is compared with the gunner's notes.
#include <algorithm>

#include "drill.h"

namespace vorn {
namespace {

struct shoot {
    sight_kind sight;
    int engagements;   // 1 mixed, 2 coax, 3 HESH, 4 FIN
    int system;        // 1 full, 2 laze only, 3 TLS only, 4 self-degrading
    device by;
    std::string range;
};

std::string name_of(const testing::TestParamInfo<shoot>& i)
{
    static constexpr const char* natures[] = {"mixed", "coax", "hesh", "fin"};
    static constexpr const char* systems[] = {"full", "laze_only", "tls_only", "degrading"};
    static constexpr const char* devices[] = {"keys", "buttons", "stick"};
    return std::string(i.param.sight == sight_kind::visual ? "visual_" : "thermal_") +
           natures[i.param.engagements - 1] + '_' + systems[i.param.system - 1] + "_by_" +
           devices[static_cast<int>(i.param.by)] + "_on_" + i.param.range;
}

// Each combination of `sight`, `engagements` and `system` once, with the devices and shipped ranges in turn.
std::vector<shoot> all_shoots()
{
    const std::vector<std::string> visual{"visualrange", "range1", "valley", "winter"};
    const std::vector<std::string> thermal{"Thermalrange", "valnight", "wintnght"};
    std::vector<shoot> all;
    for (const sight_kind sight : both_sights)
        for (int nature = 1; nature <= 4; ++nature)
            for (int system = 1; system <= 4; ++system)
                all.push_back({sight, nature, system, static_cast<device>(all.size() % 3),
                               sight == sight_kind::visual ? visual[all.size() / 3 % visual.size()]
                                                           : thermal[all.size() / 2 % thermal.size()]});
    return all;
}

// A drill on the shipped data, with targets that stay up for 500 seconds and without a debrief.
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
        p.rangefile = p.rootpath + '/' + set.range + ".arf";
        p.selfdegrading = set.system == 4;
        p.systemstatus = p.selfdegrading ? 1 : set.system;
        p.targetblocks = p.selfdegrading ? 3 : 2;
    }
};
INSTANTIATE_TEST_SUITE_P(all, practice, testing::ValuesIn(all_shoots()), name_of);

// In the record each round after the fourth overwrites the fourth.
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
    // The order counts as one second. A lay or a flight counts as one second at most, however long it is.
    EXPECT_LE(p.rectime[e], n.killed - n.ordered + 1);
    EXPECT_GE(p.rectime[e], n.killed - n.ordered - 5 * static_cast<double>(n.aims.size()));
    EXPECT_LT(p.rectime[e], 120);
    expect_rounds(p, s.visual(), e, n);
}

TEST_P(practice, is_recorded_as_fired)
{
    const std::vector<engagement_note> notes = d.fire_by(GetParam().by);
    const int targets = p.targetblocks * 3;
    ASSERT_EQ(std::ssize(notes), targets);
    int sum = 0;
    for (int e = 1; const engagement_note& n : notes) {
        SCOPED_TRACE("target " + std::to_string(e) + " at " + std::to_string(p.recrange[e]));
        expect_kill(p, s, e, n);
        sum += p.rectime[e++];
    }
    const std::string all = std::to_string(targets), average = std::to_string(sum / targets);
    const std::string score = std::to_string(sum / targets * targets * 2);   // 2: 1000 / targettime (500)
    EXPECT_TRUE(d.last_box().ends_with("NUMBER OF TARGETS = " + all + "\n\rNUMBER OF HITS = " + all +
                                       "\n\rAVERAGE TIME = " + average + "\n\rSCORE = " + score))
        << d.last_box();
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
            const auto notes = d.fire_by(wind % 2 == 0 ? device::key : device::stick);
            ASSERT_EQ(notes.size(), 6U);
            std::size_t rounds = 0;
            for (const engagement_note& n : notes) {
                EXPECT_TRUE(n.hit);
                EXPECT_TRUE(n.corrected);
                EXPECT_GE(n.aims.size(), 2U) << "no uncorrected round hits";
                rounds += n.aims.size();
            }
            EXPECT_LE(rounds, 18U) << "three rounds a target on average, at most";
        }
}

}   // namespace
}   // namespace vorn

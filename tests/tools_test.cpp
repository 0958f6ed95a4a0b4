// The data that the trainer ships with: complete for a practice, and consistent.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "drill.h"
#include "platform/files.h"

namespace vorn {
namespace {

const std::string program_directory = VORN_SOURCE_DIR "/data";
const std::string root = program_directory + "/ranges";

// A range that the trainer ships with, on the screen of its sight.
class shipped_range : public testing::TestWithParam<std::string> {
protected:
    shipped_range() : range_(taken_in())
    {
        d_.emplace(range_.rangetype == "THERMAL" ? sight_kind::thermal : sight_kind::visual,
                   program_directory);
        d_->t.shared.rangefile = root + '/' + GetParam();
        d_->set_up();
    }
    practice_state taken_in()
    {
        practice_state range;
        EXPECT_TRUE(change_directory(pc_, root));
        item_reader items(read_file(pc_, GetParam()).text.value_or(""));
        EXPECT_TRUE(take_range(items, range));
        return range;
    }
    // Width of a target at a position, as the sight draws it; twips.
    double side(int i) const { return target_width(numbers_of(d_->kind), range_.targetrange[i], 4); }

    headless_machine pc_;
    practice_state range_;
    std::optional<drill> d_;
};
INSTANTIATE_TEST_SUITE_P(all, shipped_range, testing::ValuesIn(shipped_ranges()),
                         [](const auto& file) { return std::filesystem::path(file.param).stem().string(); });

TEST_P(shipped_range, is_whole_and_its_pictures_are_there)
{
    EXPECT_TRUE(range_.rangetype == "VISUAL" || range_.rangetype == "THERMAL") << range_.rangetype;
    EXPECT_FALSE(range_.rangename.trimmed().empty());
    for (const std::string& icon : {range_.targeticon1, range_.targeticon2, range_.targeticon3})
        EXPECT_TRUE(pc_.load_picture(icon_path(pc_, root, icon)).result) << icon;
    const loaded_picture country = pc_.load_picture(range_.rangepicture.trimmed());
    ASSERT_TRUE(country.result) << country.reason;
    EXPECT_GT(country.result->width, 40000);
    EXPECT_GE(country.result->height, 18000);
    EXPECT_EQ(d_->screen().Imgrange.Width, country.result->width) << "on the sight";
    std::string twin = range_.rangepicture.trimmed();
    twin.insert(twin.find('.'), "@2x");
    const loaded_picture dense = pc_.load_picture(twin);
    ASSERT_TRUE(dense.result) << twin << ": " << dense.reason;
    EXPECT_EQ(dense.result->width, 2 * country.result->width);
    EXPECT_EQ(dense.result->height, 2 * country.result->height);
}

TEST_P(shipped_range, has_targets_near_and_far_for_every_nature)
{
    // The positions that a practice draws from.
    const auto under = [this](int limit) {
        return std::count_if(range_.targetrange.begin() + 1, range_.targetrange.begin() + practice_entries,
                             [limit](int metres) { return metres < limit; });
    };
    EXPECT_GE(under(1300), 8) << "for the coax";
    EXPECT_GE(under(1600), 12) << "for FIN";
    EXPECT_LE(under(1600), 16) << "the far ones are missing";
    for (int i = 1; i < positions; ++i) {
        EXPECT_GE(range_.targetrange[i], 600) << i;
        EXPECT_LE(range_.targetrange[i], 2500) << i;
        for (int k = 1; k < i; ++k)
            EXPECT_FALSE(std::abs(range_.targetx[i] - range_.targetx[k]) < std::max(side(i), side(k)) &&
                         std::abs(range_.targety[i] - range_.targety[k]) < std::max(side(i), side(k)))
                << i << " overlaps " << k;
    }
}

// With the keys, from any position to any other; the picture fills the window when the sight is on
// the target, and as far above it as the gun is laid for the range.
TEST_P(shipped_range, can_be_laid_on_all_over)
{
    const gunnery_screen& s = d_->screen();
    const limit_numbers& keys = s.numbers.keylimits;
    const double width = s.Imgrange.Width, height = s.Imgrange.Height;
    for (int i = 1; i < positions; ++i) {
        SCOPED_TRACE(i);
        const double x = range_.targetx[i] + side(i) / 2, y = range_.targety[i] + side(i) / 2;
        const double left = s.mbs1.Left - x, top = s.mbs1.Top - y;
        EXPECT_LT(left, keys.near);
        EXPECT_GT(left, 1 - width + std::max(keys.across, s.Picrange.Width));
        EXPECT_LT(top + (s.visual() ? 2.0 * range_.targetrange[i] : 0), keys.near);
        EXPECT_GT(top - (s.visual() ? 0 : range_.targetrange[i] / 2.0),
                  1 - height + std::max(keys.down, s.Picrange.Height));
    }
}

}   // namespace
}   // namespace vorn

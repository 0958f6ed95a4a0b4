// The data that the trainer ships with: what a practice needs of it is there and fits together.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <set>

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
    // As the sight sizes its target there.
    double side(int i) const
    {
        const sight_numbers& n = numbers_of(d_->kind);
        const double metres = range_.targetrange[i];
        return std::clamp(metres < n.far ? n.widest - metres / 4 : 0, smallest_target, largest_target);
    }

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

// By hand from any position to any other, with the picture on all sides of the window when the sight is on
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

// The icons: each of their pictures is there, the bitmap of 32 pixels is looked at.
constexpr int small = 32;

int number_at(const std::string& bytes, std::size_t at, int count)
{
    int value = 0;
    for (int i = count; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(i)));
    return value;
}

struct icon_head {
    std::set<int> sizes;
    std::size_t bitmap = 0;   // where the colours of the small one begin
};

icon_head head_of(const std::string& bytes)
{
    icon_head found;
    for (int i = 0; i < number_at(bytes, 4, 2); ++i) {
        const std::size_t entry = 6 + 16 * static_cast<std::size_t>(i);
        const int size = number_at(bytes, entry, 1), offset = number_at(bytes, entry + 12, 4);
        found.sizes.insert(size == 0 ? 256 : size);
        EXPECT_LE(offset + number_at(bytes, entry + 8, 4), static_cast<int>(bytes.size()));
        if (size == small) found.bitmap = static_cast<std::size_t>(offset) + 40;
    }
    return found;
}

TEST(shipped_icons, are_whole_and_the_hot_ones_have_no_colour)
{
    headless_machine pc;
    for (const auto& entry : std::filesystem::directory_iterator(root + "/target icons")) {
        const std::filesystem::path& file = entry.path();
        SCOPED_TRACE(file.string());
        const loaded_picture icon = pc.load_picture(file.string());
        ASSERT_TRUE(icon.result) << icon.reason;
        const std::string bytes = read_file(pc, file.string()).text.value();
        const icon_head head = head_of(bytes);
        EXPECT_EQ(head.sizes, (std::set{16, 24, 32, 48, 64, 128, 256}));
        const std::string name = file.stem().string();
        const bool hot = name.starts_with("thermal") || name.ends_with("_hot");
        int coloured = 0;
        for (std::size_t at = head.bitmap; at < head.bitmap + std::size_t{4} * small * small; at += 4)
            coloured += bytes[at] != bytes[at + 1] || bytes[at] != bytes[at + 2];
        EXPECT_EQ(coloured == 0, hot);
    }
}

// Sights and debrief take the middle of the square for the middle of the target.
TEST(shipped_icons, of_the_ranges_fill_their_squares)
{
    headless_machine pc;
    for (const char* name : {"target1", "target2", "target3", "thermal1", "thermal2", "thermal3"}) {
        SCOPED_TRACE(name);
        const std::string bytes = read_file(pc, root + "/target icons/" + name + ".ico").text.value();
        const std::size_t from = head_of(bytes).bitmap;
        double across = 0, up = 0, count = 0;
        for (std::size_t i = 0; i < std::size_t{small} * small; ++i) {   // rows from the bottom
            if (number_at(bytes, from + 4 * i + 3, 1) < 128) continue;
            across += static_cast<double>(i % small) + .5;
            const std::size_t row = i / small;
            up += static_cast<double>(row) + .5;
            ++count;
        }
        EXPECT_NEAR(across / count / small, .5, .12);
        EXPECT_NEAR(up / count / small, .5, .12);
        EXPECT_GT(count / small / small, .4);
    }
}

}   // namespace
}   // namespace vorn

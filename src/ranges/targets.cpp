#include <charconv>
#include <limits>
#include <optional>
#include <string>

#include "flow/boxes.h"
#include "gunnery/sight.h"
#include "ranges/rangefile.h"
#include "ranges/ranges.h"
#include "ranges/rauthor.h"
#include "trainer.h"

namespace vorn {

namespace {

constexpr double marker_aside = 100;   // twips right and down from the overview's cursor to the marker

void lbltargetnum_click(rauthor_screen& s, int position)
{
    for (int i = 1; i < positions; ++i) {
        s.Lbltargetnum[i].ForeColor = i == position ? colour::white : colour::text;
        s.Lbltargetnum[i].bold = i == position;
    }
    s.target = position;
    s.Lbltarget.Caption = std::to_string(position);
}

// Parses a range in metres; nothing if the text isn't a whole number that a position can store.
std::optional<int> range_of(const std::string& text)
{
    const std::size_t from = text.find_first_not_of(' ');
    const std::string digits = from == std::string::npos ? "" : without_padding(text.substr(from));
    int metres = -1;
    const auto [end, failed] = std::from_chars(digits.data(), digits.data() + digits.size(), metres);
    const bool whole = failed == std::errc() && end == digits.data() + digits.size();
    constexpr int farthest = std::numeric_limits<std::int16_t>::max();
    if (!whole || metres < 0 || metres > farthest) return std::nullopt;
    return metres;
}

void lblsavetarget_click(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    const int n = s.target;
    place_at(s.Img[n], s.Imgpoint.Left + marker_aside, s.Imgpoint.Top + marker_aside);
    showplaced(s, n);
    t.shared.targetx[n] = static_cast<std::int32_t>(rounded(s.pointx));
    t.shared.targety[n] = static_cast<std::int32_t>(rounded(s.pointy));
    t.shared.targetrange[n] = s.metres;
    s.outcome.Caption = s.metres == 0
                            ? "Target " + std::to_string(n) +
                                  " has no range yet: move up or down, or TARGET RANGE, and save it again"
                            : "";
}

void lbltargetrange_click(trainer& t)
{
    const auto typed = t.pc.input_box("ALTER RANGE", "ENTER NEW RANGE", t.rauthor.Lbltgtrange.Caption);
    if (!typed) return;
    if (const auto metres = range_of(*typed)) return settargetrange(t.rauthor, *metres);
    tell(t, "A RANGE IS A WHOLE NUMBER OF METRES BETWEEN 0 AND 32767", "ALTER RANGE");
}

std::string& icontext(practice_state& p, int icon)
{
    return icon == 1 ? p.targeticon1 : icon == 2 ? p.targeticon2 : p.targeticon3;
}

bool showicon(trainer& t, int icon, const std::string& path)
{
    loaded_picture loaded = t.pc.load_picture(path);
    if (loaded.result) t.rauthor.Imgtarget[icon].Picture = std::move(*loaded.result);
    showtarget(t.rauthor);
    return loaded.result.has_value();
}

void imgtarget_click(trainer& t, int icon)
{
    rauthor_screen& s = t.rauthor;
    s.iconnumber = icon;
    showtarget(s);
    const auto chosen = t.pc.choose_file({.title = "OPEN TARGETS",
                                          .filter = "Target Files (*.ico)|*.ico|",
                                          .folder = t.shared.rootpath,
                                          .picture = true});
    if (!chosen) return;
    if (showicon(t, icon, *chosen))
        icontext(t.shared, icon) = stored_icon(t.pc, t.shared.rootpath, *chosen);
    else
        s.outcome.Caption = *chosen + " could not be loaded as an icon";
}

}   // namespace

void showplaced(rauthor_screen& s, int position)
{
    s.Lbltargetnum[position].BackColor = colour::red;
    s.Lbltargetnum[position].AccessibleName = "Placed, target number";
}

void settargetrange(rauthor_screen& s, int metres)
{
    s.metres = metres;
    s.Lbltgtrange.Caption = std::to_string(metres);
    showtarget(s);
}

void showtarget(rauthor_screen& s)
{
    screen_object& target = s.shown_target;
    target.Visible = s.metres > 0;
    if (!target.Visible) return;
    const sight_numbers& sight = numbers_of(sight_of(s.Lblrangetype.Caption));
    target.Width = target.Height = target_width(sight, s.metres, s.targetsize);
    target.Picture = s.Imgtarget[s.iconnumber].Picture;
}

bool loadicon(trainer& t, int icon)
{
    return showicon(t, icon, icon_path(t.pc, t.shared.rootpath, icontext(t.shared, icon)));
}

void make_targets(trainer& t)
{
    rauthor_screen& s = t.rauthor;
    for (int i = 1; i < positions; ++i) s.Lbltargetnum[i].Click = [&s, i] { lbltargetnum_click(s, i); };
    for (int i = 1; i <= 3; ++i) s.Imgtarget[i].Click = [&t, i] { imgtarget_click(t, i); };
    s.Lblsavetarget.Click = [&t] { lblsavetarget_click(t); };
    s.Lbltargetrange.Click = [&t] { lbltargetrange_click(t); };
}

}   // namespace vorn

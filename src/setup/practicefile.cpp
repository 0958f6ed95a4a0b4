#include <optional>
#include <string>

#include "platform/files.h"
#include "setup/setup.h"
#include "setup/startsim.h"
#include "state/item_text.h"
#include "trainer.h"

namespace vorn {

namespace {

using S = startsim_screen;

// The order of the items: options, the wind, more options, lines 1 to 7 of the summary.
constexpr startsim_option before_wind[] = {&S::Optmode1, &S::Optmode2, &S::Opttarg1, &S::Opttarg2,
                                           &S::Option2,  &S::Option3,  &S::Option4};
constexpr startsim_option after_wind[] = {&S::Optsys1,     &S::Optsys2,     &S::Optsys3,     &S::Optsys4,
                                          &S::Opteng1,     &S::Opteng2,     &S::Opteng3,     &S::Opteng4,
                                          &S::Opttargets1, &S::Opttargets2, &S::Opttargets3, &S::Opttargets4,
                                          &S::Opttime1,    &S::Opttime2,    &S::Opttime3,    &S::Opttime4};
constexpr int first_line = 1, last_line = 7;

// False clears the option without running a handler. True selects the option, which runs its Click handler
// unless it is already selected.
bool take_option(item_reader& items, screen_object& o)
{
    bool chosen = false;
    if (!items.take(chosen)) return false;
    if (chosen)
        select_option(o);
    else
        o.Value = 0;
    return true;
}

template <std::size_t N>
bool take_options(item_reader& items, startsim_screen& s, const startsim_option (&options)[N])
{
    for (const startsim_option o : options)
        if (!take_option(items, s.*o)) return false;
    return true;
}

bool take_wind(item_reader& items, screen_object& slider)
{
    std::int32_t position = 0;
    if (!items.take(position) || position < slider.Min || position > slider.Max) return false;
    set_slider(slider, position);
    return true;
}

// Asks for a practice file. Returns nothing if the user cancels.
std::optional<std::string> choose_practice(trainer& t, bool save)
{
    t.startsim.outcome.Caption.clear();
    auto chosen = t.pc.choose_file({.title = save ? "SAVE PRACTICE SETUP" : "OPEN PRACTICE SETUP",
                                    .filter = "Practice Files (*.prf)|*.prf|",
                                    .folder = t.shared.rootpath,
                                    .save = save});
    if (chosen) t.startsim.practicefile = *chosen;
    return chosen;
}

void cmdopenset_click(trainer& t)
{
    const auto chosen = choose_practice(t, false);
    if (!chosen) return;
    const file_text file = read_file(t.pc, *chosen);
    if (file.text) apply_practice(t, *file.text);
}

void cmdsaveset_click(trainer& t)
{
    const auto chosen = choose_practice(t, true);
    if (chosen && write_file(t.pc, *chosen, practice_file_bytes(t.startsim)).empty())
        t.startsim.outcome.Caption = *chosen + " is saved";
}

}   // namespace

std::string practice_file_bytes(const startsim_screen& s)
{
    item_writer items;
    for (const startsim_option o : before_wind) items.put((s.*o).Value != 0);
    items.put(s.HScrwind.Value);
    for (const startsim_option o : after_wind) items.put((s.*o).Value != 0);
    for (int i = first_line; i <= last_line; ++i) items.put(s.lblprac[i].Caption);
    return items.file_bytes();
}

void apply_practice(trainer& t, const std::string& text)
{
    startsim_screen& s = t.startsim;
    item_reader items(text);
    if (!take_options(items, s, before_wind) || !take_wind(items, s.HScrwind) ||
        !take_options(items, s, after_wind))
        return;
    for (int i = first_line; i <= last_line; ++i)
        if (!items.take(s.lblprac[i].Caption)) return;
}

void make_practicefile(trainer& t)
{
    t.startsim.cmdopenset.Click = [&t] { cmdopenset_click(t); };
    t.startsim.cmdsaveset.Click = [&t] { cmdsaveset_click(t); };
}

}   // namespace vorn

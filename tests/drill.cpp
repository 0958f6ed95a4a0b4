#include "drill.h"

#include <filesystem>

#include "flow/intro.h"
#include "setup/startsim.h"

namespace vorn {

std::string shown_screens(const machine& m)
{
    std::string names;
    for (const form* f : m.screens.shown) names += (names.empty() ? "" : " ") + f->name;
    return names;
}

double draw_of(int position)
{
    return (position - 0.5) / 19;
}

drill::drill(sight_kind k, const std::string& program) : kind(k)
{
    pc.default_directory = program.empty() ? data.program() : program;
    pc.event([this] { start_program(t); });
    pc.click(t.intro.lblstart);
    pc.click(t.startsim.Optcon2);
    if (kind == sight_kind::thermal) pc.click(t.startsim.Optmode2);
    pc.watch(screen().lblcrew);
}

drill::~drill()
{
    for (const std::string& sound : sounds())
        EXPECT_TRUE(std::filesystem::exists(VORN_SOURCE_DIR "/data/ranges/wavs/" + sound)) << sound;
}

void drill::set_up()
{
    pc.answers.push_back({true});
    pc.click(t.startsim.Cmdstart);
}

void drill::start()
{
    if (screen().window.state != form_state::shown) set_up();
    pc.click(screen().Cmdstartsim);
}

gunner drill::gunner_by(device by)
{
    practice_state& p = t.shared;
    p.keyboardselected = by != device::mouse;
    p.mouseselected = by == device::mouse;
    p.joyselected = by == device::stick;
    if (!p.joycalibrated) {
        p.joycalibrated = true;
        p.joyxcentre = p.joyycentre = 32768;
        p.joyxfactor = p.joyyfactor = 1000;
    }
    return {pc, t, screen(), by};
}

void drill::present(int position)
{
    random(draw_of(position));
    start();
    pc.advance(8);
    ASSERT_TRUE(screen().Imgtargets.Visible);
}

void drill::target_at(double left, double top)
{
    screen().Imgtargets.Left = left;
    screen().Imgtargets.Top = top;
}

void drill::tap(int key)
{
    pc.key_down(key);
    pc.key_up(key);
}

void drill::hold(int key, double seconds)
{
    pc.key_down(key);
    pc.wait(seconds);
    pc.key_up(key);
}

void drill::random(double number)
{
    t.random.source = [number] { return number; };
}

double drill::to_the_end()
{
    const double from = pc.now();
    for (int i = 0; i < 20000 && screen().simrunning && !pc.ended; ++i) pc.advance(1);
    EXPECT_FALSE(screen().simrunning) << "the practice does not end";
    return pc.now() - from;
}

std::vector<double> drill::times_of(const std::string& line)
{
    std::vector<double> found;
    for (const logged& l : pc.log)
        if (l.kind == "caption" && l.text == line) found.push_back(l.time);
    return found;
}

}   // namespace vorn

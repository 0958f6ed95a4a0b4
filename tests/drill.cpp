#include "drill.h"

#include <unistd.h>

#include <fstream>

namespace vorn {

namespace fs = std::filesystem;

data_folder::data_folder()
{
    const auto self = std::to_string(reinterpret_cast<std::uintptr_t>(this));
    path_ = fs::temp_directory_path() / from_utf8("vö я-" + std::to_string(getpid()) + "-" + self);
    fs::remove_all(path_);
    fs::create_directories(path_ / "ranges" / "target icons");
    for (const char* icon : {"target1.ico", "target2.ico", "target3.ico"})
        put(std::string("target icons/") + icon, picture_head(32, 32));
    put("visualrange.vrp", picture_head(4295, 2121));
    put("thermalrange.trp", picture_head(1452, 768));
    put_range("visualrange.arf", plain_range(sight_kind::visual));
    put_range("Thermalrange.arf", plain_range(sight_kind::thermal));
}

data_folder::~data_folder()
{
    std::error_code failed;
    fs::remove_all(path_, failed);
}

void data_folder::put(const std::string& name, const std::string& bytes) const
{
    std::ofstream(path_ / "ranges" / name, std::ios::binary) << bytes;
}

std::string native(const std::string& path)
{
    return to_utf8(from_utf8(path).make_preferred());
}

std::string bytes_of(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string first_lines(const std::string& text, int n)
{
    std::size_t end = 0;
    while (n-- > 0) end = text.find('\n', end) + 1;
    return text.substr(0, end);
}

std::string picture_head(unsigned width, unsigned height)
{
    std::string b = "\x89PNG\r\n\x1a\n";
    b += std::string("\0\0\0\rIHDR", 8);
    for (const unsigned n : {width, height})
        for (const unsigned shift : {24U, 16U, 8U, 0U}) b += static_cast<char>(n >> shift & 0xFFU);
    return b;
}

practice_state plain_range(sight_kind kind)
{
    const bool visual = kind == sight_kind::visual;
    practice_state r;
    r.rangename = visual ? "PLAIN" : "PLAIN THERMAL";
    r.rangepicture = visual ? "visualrange.vrp" : "thermalrange.trp";
    r.rangetype = visual ? "VISUAL" : "THERMAL";
    r.targeticon1 = "/target icons/target1.ico";
    r.targeticon2 = "\\target icons\\target2.ico";
    r.targeticon3 = "/target icons/TARGET3.ICO";
    for (int i = 1; i < positions; ++i) {
        r.targetx[i] = visual ? 51000 : 9480;
        r.targety[i] = visual ? 15500 : 5620;
        r.targetrange[i] = 500 + 100 * i;
    }
    return r;
}

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
        EXPECT_TRUE(fs::exists(VORN_SOURCE_DIR "/data/ranges/wavs/" + sound)) << sound;
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

std::vector<engagement_note> drill::fire_by(device by)
{
    practice_state& p = t.shared;
    p.keyboardselected = by != device::mouse;
    p.mouseselected = by == device::mouse;
    p.joyselected = by == device::stick;
    p.joycalibrated = true;
    p.joyxcentre = p.joyycentre = 32768;
    p.joyxfactor = p.joyyfactor = 1000;
    set_up();
    return fire_practice(pc, t, screen(), by);
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

// The fixture of a drill: test data, a headless machine with the program, and the steps to a gunnery screen.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/headless/headless_machine.h"
#include "ranges/rangefile.h"
#include "screens.h"

namespace vorn {

using texts = std::vector<std::string>;

// A path with the separators of the system.
std::string native(const std::string& path);

// The bytes of a file; none if it can't be read.
std::string bytes_of(const std::filesystem::path&);

// A temporary program directory: ranges, and the headers of their pictures and icons. Its path has a space
// and letters of two alphabets, as a user's path may have.
class data_folder {
public:
    data_folder();
    ~data_folder();
    data_folder(const data_folder&) = delete;
    data_folder& operator=(const data_folder&) = delete;

    std::string program() const { return to_utf8(path_); }
    std::string ranges() const { return to_utf8(path_ / "ranges"); }
    std::string path(const std::string& name) const { return native(ranges() + '/' + name); }
    void put(const std::string& name, const std::string& bytes) const;   // a file below "ranges"
    std::string get(const std::string& name) const { return bytes_of(path_ / "ranges" / name); }
    void remove(const std::string& name) const { std::filesystem::remove(path_ / "ranges" / name); }
    void put_range(const std::string& name, const practice_state& r) const { put(name, range_file_bytes(r)); }

private:
    std::filesystem::path path_;
};

// A range whose 20 positions are at one place, so that the lay is the same for all. Their ranges are 600 to
// 2500 metres, in steps of 100. After a load of the screen this place is right of and below the one to which
// the commander's lay brings a target.
practice_state plain_range(sight_kind);
// The first lines of the text of a file.
std::string first_lines(const std::string& text, int n);
// The header of a PNG file of this many pixels, which is all that the headless machine needs of a picture.
std::string picture_head(unsigned width, unsigned height);

// The gunner's controls: the key, the button on the screen and the stick button of each.
enum class device { key, mouse, stick };
enum class control { up, left, right, down, coax, off, mainarm, ammo, laze, lay, fire };

struct control_row {
    int key;
    screen_object gunnery_screen::*button;
    int stick;   // number of the stick button; 0: none
};
constexpr std::array<control_row, 11> controls{{{'U', &gunnery_screen::Cmdup, 0},
                                                {'H', &gunnery_screen::Cmdleft, 0},
                                                {'J', &gunnery_screen::Cmdright, 0},
                                                {'N', &gunnery_screen::Cmddown, 0},
                                                {'Q', &gunnery_screen::Cmdcoax, 0},
                                                {'W', &gunnery_screen::Cmdoff, 0},
                                                {'E', &gunnery_screen::Cmdselectmain, 0},
                                                {'R', &gunnery_screen::Cmdmaingun, 2},
                                                {'A', &gunnery_screen::Cmdlaze, 3},
                                                {'S', &gunnery_screen::Cmdautolay, 4},
                                                {'D', &gunnery_screen::Cmdfire, 1}}};

// A place in the sight window or an offset, twips.
struct spot {
    double x = 0, y = 0;
};

struct engagement_note {
    std::string order;    // "FIN", "HESH" or "COAX"
    std::string system;   // the letter in Lblsystem at the last shot
    double ordered = 0, killed = 0;
    bool hit = false;
    bool corrected = false;    // the HESH correction was used
    std::vector<spot> aims;    // per round or burst: the target's centre relative to the aim point
    std::vector<spot> falls;   // per round or burst: the target's upper left corner relative to the round's
};

// A scripted gunner fires a practice, from START SIM until it has ended, and returns notes to compare with
// the record. The gunner acts only on what a gunner sees and hears: visible objects and crew lines. The
// machine must watch `lblcrew`. Random events in between may cause misses or end the practice.
std::vector<engagement_note> fire_practice(headless_machine&, trainer&, gunnery_screen&, device);

// The names of the screens that are shown, the front one last.
std::string shown_screens(const machine&);
// The random number that selects this position.
double draw_of(int position);

struct drill {
    // Uses the test data, or the given program directory.
    explicit drill(sight_kind, const std::string& program = {});
    ~drill();   // checks that every sound in the log is a shipped file
    drill(const drill&) = delete;
    drill& operator=(const drill&) = delete;

    gunnery_screen& screen() { return kind == sight_kind::visual ? t.simulator : t.thermal; }
    std::string path(const std::string& name) const { return data.path(name); }
    std::string last_box() const { return pc.boxes.back().text; }
    std::string crew() { return screen().lblcrew.Caption; }
    // Shows the gunnery screen. Set the options before.
    void set_up();
    // Shows the gunnery screen if it isn't shown, and clicks on Cmdstartsim.
    void start();
    // Sets the options for this device, and fires the practice with it.
    std::vector<engagement_note> fire_by(device);
    // Starts a practice and waits until the first target is up at this position.
    void present(int position);
    void target_at(double left, double top);
    void tap(int key);
    void hold(int key, double seconds);
    // All random numbers are this one from now on.
    void random(double number)
    {
        t.random.source = [number] { return number; };
    }
    // Waits until the practice has ended. Returns the seconds waited.
    double to_the_end();
    // The times at which the crew line changed to this text.
    std::vector<double> times_of(const std::string& line);
    texts sounds() { return pc.of_kind("sound"); }

    sight_kind kind;
    data_folder data;
    headless_machine pc;
    trainer t{pc};
};

void expect_at(const area& object, double left, double top, const auto& which)
{
    EXPECT_DOUBLE_EQ(object.Left, left) << which;
    EXPECT_DOUBLE_EQ(object.Top, top) << which;
}

// A suite of drills that begin on the set-up screen.
struct on_setup : testing::Test {
    drill d{sight_kind::visual};
    headless_machine& pc = d.pc;
    trainer& t = d.t;
    practice_state& p = t.shared;
    std::string path(const std::string& name) const { return d.path(name); }
};

// A suite of drills on one sight.
template <sight_kind sight>
struct on_sight : testing::Test {
    drill d{sight};
    gunnery_screen& s = d.screen();
    practice_state& p = d.t.shared;
};
using on_visual = on_sight<sight_kind::visual>;
using on_thermal = on_sight<sight_kind::thermal>;

constexpr sight_kind both_sights[] = {sight_kind::visual, sight_kind::thermal};

// A suite of drills that run on each sight.
struct each_sight : testing::TestWithParam<sight_kind> {
    drill d{GetParam()};
    gunnery_screen& s = d.screen();
    practice_state& p = d.t.shared;
    const bool visual = s.visual();
};
inline std::string sight_name(const testing::TestParamInfo<sight_kind>& i)
{
    return i.param == sight_kind::visual ? "visual" : "thermal";
}

}   // namespace vorn

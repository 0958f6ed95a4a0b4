// The fixture of a drill: a folder of test data, a headless machine with the program running, and the steps
// to a gunnery screen.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data_folder.h"
#include "gunner.h"
#include "platform/headless/headless_machine.h"
#include "ranges/rangefile.h"
#include "trainer.h"

namespace vorn {

// The names of the screens that are shown, the front one last.
std::string shown_screens(const machine&);
// The random number that selects this position.
double draw_of(int position);

struct drill {
    // On the test data, or on that of another program directory.
    explicit drill(sight_kind, const std::string& program = {});
    ~drill();   // every sound that was played must be among those shipped
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
    // A gunner who uses this device. Sets the options for it.
    gunner gunner_by(device);
    // Starts a practice and waits until the first target is up at this position.
    void present(int position);
    void target_at(double left, double top);
    void tap(int key);
    void hold(int key, double seconds);
    // All random numbers are this one from now on.
    void random(double number);
    // Waits until the practice has ended. Returns the seconds it took.
    double to_the_end();
    // The times at which the crew line was set to this text.
    std::vector<double> times_of(const std::string& line);
    std::vector<std::string> sounds() { return pc.of_kind("sound"); }

    sight_kind kind;
    data_folder data;
    headless_machine pc;
    trainer t{pc};
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

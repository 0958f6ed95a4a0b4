// A scripted gunner who fires whole practices. It uses only what a gunner sees and hears: visible objects and
// crew lines. It operates keys, buttons or stick, and takes notes to compare with the record. The machine
// must watch the crew line. What others do meanwhile may spoil the shoot, but doesn't stop the gunner.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "gunnery/screen.h"
#include "platform/headless/headless_machine.h"
#include "trainer.h"

namespace vorn {

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

inline const control_row& row_of(control c)
{
    return controls.at(static_cast<std::size_t>(c));
}

// A place in the sight window, twips.
struct spot {
    double x = 0, y = 0;
};

struct engagement_note {
    std::string order;    // "FIN", "HESH" or "COAX"
    std::string system;   // the letter shown at the last shot
    double ordered = 0, killed = 0;
    int timeleft = 0;   // as shown at the hit
    bool hit = false;
    bool corrected = false;    // the HESH correction was used
    std::vector<spot> aims;    // per round: the target's centre relative to the aim point
    std::vector<spot> falls;   // per round: the target's corner relative to where the round was seen last
};

class gunner {
public:
    gunner(headless_machine&, trainer&, gunnery_screen&, device);
    ~gunner() { pc_.at_pace = nullptr; }
    gunner(const gunner&) = delete;
    gunner& operator=(const gunner&) = delete;
    // From START SIM until the practice has ended.
    void fire_practice();

    std::vector<engagement_note> notes;

private:
    bool running() const { return !pc_.ended && front(pc_) == &s_.window && !s_.Cmdstartsim.Enabled; }
    std::optional<spot> target() const;
    std::optional<spot> round() const;
    spot mark();
    bool degraded() const { return s_.Lblsystem.Caption != "F"; }
    bool order_is(const std::string& nature) const { return notes.back().order == nature; }
    std::optional<std::string> heard(const std::string& words) const;
    bool await(const std::function<bool()>& condition, double seconds);

    void push_panel_button(screen_object&, char key);
    void resume();
    void work(control, bool down);
    void tap(control);
    void hold(control, double seconds);
    void push(control less, control more, double off);
    void bring(spot to);
    void shift(spot by);

    bool awaitorder();
    void engage();
    void select();
    double range() const;
    spot drop(double metres) const;
    void lay();
    void shoot();
    void burst();
    void note_aim();
    void note_fall(spot round);
    void correctwind();
    void judge();

    headless_machine& pc_;
    const practice_state& p_;
    gunnery_screen& s_;
    device by_;
    std::size_t heard_ = 0;      // end of the part of the log searched for orders
    std::size_t order_at_ = 0;   // index of the last order in the log
    spot mark_;                  // where the mark was seen last
    spot off_;                   // correction of the lay from the rounds observed
    std::optional<spot> seen_;   // where the round was seen last
    bool correcting_ = false;    // the HESH correction has just been made: no new lase
};

}   // namespace vorn

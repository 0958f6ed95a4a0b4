// A gunner for whole practices. He sees what a gunner sees, the objects that are visible and what the crew
// says, works keys, buttons or stick, and keeps notes, against which a drill holds the record.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "controls.h"
#include "drill.h"

namespace vorn {

// A place in the sight window, twips.
struct spot {
    double x = 0, y = 0;
};

// What he noted of one engagement.
struct engagement_note {
    std::string order;    // "FIN", "HESH" or "COAX"
    std::string system;   // the letter shown as he fired last
    double ordered = 0, killed = 0;
    int timeleft = 0;   // as shown when it was hit
    bool hit = false;
    bool corrected = false;    // the switch has taken a correction for the wind
    std::vector<spot> aims;    // at each round: the target's centre against the aim point
    std::vector<spot> falls;   // of each round: the target's corner against the place where it was seen last
};

class gunner {
public:
    gunner(drill&, device);
    // From the click on START SIM until it can be clicked again.
    void fire_practice();

    std::vector<engagement_note> notes;

private:
    bool running() const { return !s_.Cmdstartsim.Enabled; }
    std::optional<spot> target() const;
    std::optional<spot> round() const;
    spot mark();
    bool degraded() const { return s_.Lblsystem.Caption != "F"; }
    bool order_is(const char* nature) const { return notes.back().order == nature; }
    std::optional<std::string> heard(const std::string& words) const;
    bool await(const std::function<bool()>& seen, double seconds);

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
    spot lead(double metres) const;
    void lay();
    void shoot();
    void burst();
    bool blown() const;
    void correctwind();
    void learn();
    void judge();

    drill& d_;
    gunnery_screen& s_;
    device by_;
    std::size_t heard_ = 0;      // how far he has listened for orders
    std::size_t order_at_ = 0;   // where in the log the last order stands
    spot mark_;                  // where the mark was last seen
    spot off_;                   // what he aims off after seeing where the rounds went
    std::optional<spot> seen_;   // the round, where it was seen last
    bool correcting_ = false;    // he has just put a correction for the wind on
};

}   // namespace vorn

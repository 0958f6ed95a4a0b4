#include "gunner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace vorn {

namespace {

constexpr double centre = 32768;   // where the stick rests
constexpr double event = 0.016;    // seconds between its moves

// Where a stick is held to move the view so many twips an event.
long deflected(double middle, double factor, int sign, int twips)
{
    const double off = 2 * factor + 100 * twips;
    return static_cast<long>(sign < 0 ? middle - off + 50 : middle + off + 1);
}

}   // namespace

gunner::gunner(drill& d, device by) : d_(d), s_(d.screen()), by_(by)
{
    practice_state& p = d.t.shared;
    p.keyboardselected = by != device::mouse;
    p.mouseselected = by == device::mouse;
    p.joyselected = by == device::stick;
    if (!p.joycalibrated) {
        p.joycalibrated = true;
        p.joyxcentre = p.joyycentre = centre;
        p.joyxfactor = p.joyyfactor = 1000;
    }
    d.pc.glance = [this] {
        if (const auto r = round()) seen_ = r;
    };
}

// Eyes and ears --------------------------------------------------------------------------------------------

std::optional<spot> gunner::target() const
{
    const screen_object& o = s_.Imgtargets;
    if (!o.Visible) return std::nullopt;
    return spot{o.Left + o.Width / 2, o.Top + o.Height / 2};
}

std::optional<spot> gunner::round() const
{
    if (!s_.ammo.Visible) return std::nullopt;
    return spot{s_.ammo.Left, s_.ammo.Top};
}

// The dot of the visual sight; of the thermal one the middle of the mark that is shown.
spot gunner::mark()
{
    const screen_object* marks[] = {&s_.mbs1, &s_.Imglam, &s_.imgbam, &s_.Imgrevfin, &s_.Imgrevhesh};
    for (const screen_object* o : marks)
        if (o->Visible) return mark_ = {o->Left + o->Width / 2, o->Top + o->Height / 2};
    return mark_;
}

// The crew line in which the words were said since the order, if they were.
std::optional<std::string> gunner::heard(const std::string& words) const
{
    for (std::size_t i = order_at_; i < d_.pc.log.size(); ++i) {
        const logged& l = d_.pc.log[i];
        if (l.kind == "caption" && l.text.find(words) != std::string::npos) return l.text;
    }
    return std::nullopt;
}

bool gunner::await(const std::function<bool()>& seen, double seconds)
{
    for (double waited = 0; !seen() && waited < seconds && running(); waited += 0.1) d_.pc.wait(0.1);
    return seen();
}

// Hands ----------------------------------------------------------------------------------------------------

void gunner::work(control c, bool down)
{
    const control_row& row = row_of(c);
    screen_object& button = s_.*row.button;
    if (by_ == device::stick && row.stick != 0) return d_.pc.stick_button(row.stick, down);
    if (by_ != device::mouse) return down ? d_.pc.key_down(row.key) : d_.pc.key_up(row.key);
    if (down && button.Click) return d_.pc.click(button);
    down ? d_.pc.press(button) : d_.pc.release(button);
}

void gunner::tap(control c)
{
    work(c, true);
    work(c, false);
}

// A direction, for a while. The stick is held off its centre, gently for a short while.
void gunner::hold(control c, double seconds)
{
    if (by_ != device::stick) {
        work(c, true);
        d_.pc.wait(seconds);
        return work(c, false);
    }
    const int sign = c == control::left || c == control::up ? -1 : 1;
    const bool across = c == control::left || c == control::right;
    const practice_state& p = d_.t.shared;
    const long at = deflected(across ? p.joyxcentre : p.joyycentre, across ? p.joyxfactor : p.joyyfactor,
                              sign, seconds < 0.05 ? 20 : 100);
    for (double t = 0; t < seconds; t += event) {
        d_.pc.stick(across ? at : static_cast<long>(centre), across ? static_cast<long>(centre) : at);
        d_.pc.wait(event);
    }
    d_.pc.stick(static_cast<long>(centre), static_cast<long>(centre));
}

void gunner::push(control less, control more, double off)
{
    if (std::abs(off) > 15) hold(off > 0 ? more : less, std::abs(off) > 500 ? 0.12 : 0.017);
}

// Moves the view until the target's centre is at a place in the sight.
void gunner::bring(spot to)
{
    for (int i = 0; i < 300 && target(); ++i) {
        const spot at = *target();
        if (std::abs(at.x - to.x) <= 15 && std::abs(at.y - to.y) <= 15) return;
        push(control::left, control::right, at.x - to.x);
        push(control::up, control::down, at.y - to.y);
    }
}

void gunner::shift(spot by)
{
    if (const auto at = target()) bring({at->x + by.x, at->y + by.y});
}

// An engagement --------------------------------------------------------------------------------------------

bool gunner::awaitorder()
{
    static constexpr std::array<std::pair<const char*, const char*>, 3> orders{
        {{"FIN TANK", "FIN"}, {"HESH BMP", "HESH"}, {"COAX TRANSPORT", "COAX"}}};
    for (; running(); d_.pc.wait(0.1))
        for (; heard_ < d_.pc.log.size(); ++heard_) {
            const logged& l = d_.pc.log[heard_];
            for (const auto& [words, name] : orders) {
                if (l.kind != "caption" || l.text.find(words) == std::string::npos ||
                    l.text.ends_with("!!!") || l.text.find("ON ") != std::string::npos)
                    continue;
                order_at_ = heard_++;
                notes.emplace_back();
                notes.back().order = name;
                notes.back().ordered = l.time;
                return true;
            }
        }
    return false;
}

void gunner::select()
{
    if (order_is("COAX")) return tap(control::coax);
    tap(control::mainarm);
    for (int i = 0; i < 2 && order_is("HESH"); ++i) tap(control::ammo);
}

// What the laser shows; else what the commander has called, which is rounded down to the hundred; else what
// the size of the target tells.
double gunner::range() const
{
    if (s_.visual() && !s_.Lblrange.Caption.empty()) return std::stod(s_.Lblrange.Caption);
    if (!s_.visual() && degraded()) return std::stod(s_.Lblrange.Caption);
    if (const auto call = heard(" ON ")) {
        const std::size_t number = call->find_first_of("0123456789");
        if (number != std::string::npos) return std::stod(call->substr(number)) + 50;
    }
    return std::clamp(4 * (660 - s_.Imgtargets.Width), 600.0, 2250.0);
}

// How far the target's centre is held from the mark so that a round laid by hand comes down on it.
spot gunner::lead(double metres) const
{
    const bool coax = order_is("COAX");
    const spot zone = coax ? spot{45, 30} : spot{};   // the middle of the coax's beaten zone
    if (!s_.visual()) return {zone.x, zone.y + (coax ? metres / 7 : 0)};
    return {zone.x, zone.y + (order_is("FIN") ? metres / 2 : 2 * metres)};
}

// Lays the gun, by the fire control where that helps and by hand where it doesn't.
void gunner::lay()
{
    if (!std::exchange(correcting_, false)) {
        bring(mark());
        tap(control::laze);
    }
    const bool autolay = !degraded();
    if (autolay) {
        work(control::lay, true);
        d_.pc.wait(2.6);
    }
    if (s_.visual() && autolay) {
        if (order_is("COAX")) shift({45, 30});
        return shift(off_);
    }
    const spot at = mark();
    const spot off = lead(range());
    bring({at.x + off.x + off_.x, at.y + off.y + off_.y});
}

// What the last round has shown is put on for the next.
void gunner::learn()
{
    off_.x += seen_->x - target()->x;
    off_.y += seen_->y - target()->y;
}

// The wind has carried a laid HESH round off the target's side.
bool gunner::blown() const
{
    return order_is("HESH") && !degraded() && std::abs(seen_->x - target()->x) > s_.Imgtargets.Width / 3;
}

// The dot goes to the strike, the switch is pressed, it goes back to the target and the switch is pressed
// again.
void gunner::correctwind()
{
    const spot at = *target();
    bring({at.x - (seen_->x - at.x), at.y});
    tap(control::ammo);
    bring(at);
    tap(control::ammo);
    correcting_ = true;
    notes.back().corrected = true;
}

void gunner::shoot()
{
    await([this] { return s_.Imgloaded.Visible || !target(); }, 20);
    if (!s_.Imgloaded.Visible || !target()) return;
    engagement_note& n = notes.back();
    n.system = s_.Lblsystem.Caption;
    n.aims.push_back({target()->x - s_.mbs1.Left, target()->y - s_.mbs1.Top});
    seen_.reset();
    work(control::fire, true);
    work(control::fire, false);
    const screen_object& o = s_.Imgtargets;
    if (seen_) n.falls.push_back({o.Left - seen_->x, o.Top - seen_->y});
}

// Bursts until the target is dead or the tracer is seen to lie off it: each is judged on where the one before
// ended.
void gunner::burst()
{
    await([this] { return heard("LOADE") || !target(); }, 20);
    engagement_note& n = notes.back();
    for (int i = 0; i < 8 && target() && !heard("COMD: TARGET STOP"); ++i) {
        n.system = s_.Lblsystem.Caption;
        n.aims.push_back({target()->x - s_.mbs1.Left, target()->y - s_.mbs1.Top});
        const screen_object& o = s_.Imgtargets;
        n.falls.push_back({o.Left - s_.ammo.Left, o.Top - s_.ammo.Top});
        work(control::fire, true);
        for (int look = 0; look < 15; ++look) {
            d_.pc.wait(0.02);
            if (const auto r = round()) seen_ = r;
        }
        work(control::fire, false);
    }
}

// What has come of the rounds: a kill, or something to do better with the next one.
void gunner::judge()
{
    engagement_note& n = notes.back();
    if (heard("COMD: TARGET STOP")) {
        n.hit = true;
        n.killed = d_.pc.now();
        n.timeleft = std::atoi(s_.Label1.Caption.c_str());
        await([this] { return !target(); }, 3);
    } else if (seen_ && target()) {
        blown() ? correctwind() : learn();
    }
}

void gunner::engage()
{
    off_ = {};
    correcting_ = false;
    await([this] { return target().has_value(); }, 3);
    select();
    while (target() && running()) {
        lay();
        order_is("COAX") ? burst() : shoot();
        work(control::lay, false);
        judge();
    }
    tap(control::off);
}

void gunner::fire_practice()
{
    heard_ = d_.pc.log.size();
    d_.pc.click(s_.Cmdstartsim);
    while (awaitorder()) engage();
}

}   // namespace vorn

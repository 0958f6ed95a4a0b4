#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <optional>
#include <utility>

#include "drill.h"

namespace vorn {

namespace {

constexpr int centre = 32768;     // of the stick
constexpr double event = 0.016;   // seconds between two stick events

constexpr spot beaten_zone{45, 30};   // its approximate centre, relative to the mark plus the drop, twips

struct gunner {
    bool running() const { return !pc_.ended && front(pc_) == &s_.window && !s_.Cmdstartsim.Enabled; }
    bool degraded() const { return s_.Lblsystem.Caption != "F"; }
    bool order_is(const std::string& nature) const { return notes.back().order == nature; }

    // What the gunner sees and hears.
    std::optional<spot> target() const
    {
        const screen_object& o = s_.Imgtargets;
        if (!o.Visible) return std::nullopt;
        return spot{o.Left + o.Width / 2, o.Top + o.Height / 2};
    }
    void look()
    {
        if (s_.ammo.Visible) seen_ = {s_.ammo.Left, s_.ammo.Top};
    }
    // The dot of the visual sight; the centre of the visible mark of the thermal one.
    spot mark()
    {
        const screen_object* marks[] = {&s_.mbs1, &s_.Imglam, &s_.imgbam, &s_.Imgrevfin, &s_.Imgrevhesh};
        for (const screen_object* o : marks)
            if (o->Visible) return mark_ = {o->Left + o->Width / 2, o->Top + o->Height / 2};
        return mark_;
    }
    // The first crew line with these words at heard_from_ or later; null if there is none.
    const logged* heard(const char* words) const
    {
        for (std::size_t i = heard_from_; i < pc_.log.size(); ++i)
            if (pc_.log[i].kind == "caption" && pc_.log[i].text.find(words) != std::string::npos)
                return &pc_.log[i];
        return nullptr;
    }
    bool await(const std::function<bool()>& condition, double seconds)
    {
        for (double waited = 0; !condition() && waited < seconds && running(); waited += 0.1) pc_.wait(0.1);
        return condition();
    }

    // The controls.
    // Clicks on a button of the practice, or presses its key if it can't be clicked.
    void push_panel_button(screen_object& o, char key)
    {
        takes_input(o) ? pc_.click(o) : pc_.key_down(key, true);
    }
    void resume()
    {
        if (s_.Cmdpausesim.Caption == "PAUSE OFF") push_panel_button(s_.Cmdpausesim, 'P');
    }
    void work(control c, bool down)
    {
        if (down && !running()) return;
        const control_row& row = controls.at(static_cast<std::size_t>(c));
        screen_object& button = s_.*row.button;
        const bool key = by_ == device::key || (by_ == device::stick && row.stick == 0);
        const int code = key ? row.key : row.stick;
        // The release goes to the screen that received the press, even if another is in front by then.
        if (by_ != device::mouse && !down)
            return pc_.event([&] { (key ? s_.window.KeyUp : s_.window.ButtonUp)(code); });
        if (by_ != device::mouse) return key ? pc_.key_down(code) : pc_.stick_button(code, true);
        if (down && button.Click) return pc_.click(button);
        down ? pc_.press(button) : pc_.release(button);
    }
    void tap(control c)
    {
        work(c, true);
        work(c, false);
    }
    // Holds a direction. A short hold deflects the stick less.
    void hold(control c, double seconds)
    {
        if (by_ != device::stick) {
            work(c, true);
            pc_.wait(seconds);
            return work(c, false);
        }
        const bool less = c == control::left || c == control::up;
        const bool across = c == control::left || c == control::right;
        const double middle = across ? p_.joyxcentre : p_.joyycentre;
        const int twips = seconds < 0.05 ? 20 : 100;   // of the view, per event
        const double off = 2 * (across ? p_.joyxfactor : p_.joyyfactor) + 100 * twips;
        const auto at = static_cast<int>(less ? middle - off + 50 : middle + off + 1);
        for (double t = 0; t < seconds; t += event) {
            pc_.stick(across ? at : centre, across ? centre : at);
            pc_.wait(event);
        }
        pc_.stick(centre, centre);
    }
    void push(control less, control more, double off)
    {
        if (std::abs(off) > 15) hold(off > 0 ? more : less, std::abs(off) > 500 ? 0.12 : 0.017);
    }
    // Moves the view until the target's centre is at this place.
    void bring(spot to)
    {
        for (int i = 0; i < 300 && target(); ++i) {
            const spot at = *target();
            if (std::abs(at.x - to.x) <= 15 && std::abs(at.y - to.y) <= 15) return;
            push(control::left, control::right, at.x - to.x);
            push(control::up, control::down, at.y - to.y);
        }
    }
    void shift(spot by)
    {
        if (const auto at = target()) bring({at->x + by.x, at->y + by.y});
    }

    // An engagement.
    bool awaitorder()
    {
        static constexpr std::array<std::pair<const char*, const char*>, 3> orders{
            {{"FIN TANK", "FIN"}, {"HESH BMP", "HESH"}, {"COAX TRANSPORT", "COAX"}}};
        // After half a minute without an order the gunner assumes a pause, after a minute the end.
        for (int waited = 0; running() && waited < 600; pc_.wait(0.1), ++waited) {
            if (waited == 300) resume();
            if (s_.Cmdtarget.Enabled) push_panel_button(s_.Cmdtarget, 'G');
            for (const auto& [words, name] : orders)
                if (const logged* line = heard(words)) {
                    heard_from_ = static_cast<std::size_t>(line - pc_.log.data());
                    engagement_note& n = notes.emplace_back();
                    n.order = name;
                    n.ordered = line->time;
                    return true;
                }
        }
        return false;
    }
    void select()
    {
        if (order_is("COAX")) return tap(control::coax);
        tap(control::mainarm);
        for (int i = 0; i < 2 && order_is("HESH"); ++i) tap(control::ammo);
    }
    // The laser's range (on the thermal sight only in a degraded system); else the one called by the
    // commander, which is usually rounded down to hundreds; else an estimate from the size of the target.
    double range() const
    {
        if (s_.visual() ? !s_.Lblrange.Caption.empty() : degraded())
            return std::atof(s_.Lblrange.Caption.c_str());
        if (const logged* call = heard(" ON ")) {
            const std::size_t number = call->text.find_first_of("0123456789");
            if (number != std::string::npos) return std::stod(call->text.substr(number)) + 50;
        }
        return std::clamp(4 * (660 - s_.Imgtargets.Width), 600.0, 2250.0);
    }
    // About where a round falls, relative to the mark, in twips. The small drop of HESH on the thermal sight
    // is left out. On the visual sight HESH falls there only without the autolay.
    spot drop(double metres) const
    {
        if (order_is("COAX")) return {beaten_zone.x, beaten_zone.y + (s_.visual() ? 2 * metres : metres / 7)};
        return {0, !s_.visual() ? 0 : order_is("FIN") ? metres / 2 : 2 * metres};
    }
    // Lases and lays; after a correction only lays. On the visual sight a full autolay itself moves the
    // target to where the round falls.
    void lay()
    {
        if (!std::exchange(correcting_, false)) {
            bring(mark());
            tap(control::laze);
        }
        const bool autolay = !degraded();
        if (autolay) {
            work(control::lay, true);
            pc_.wait(2.6);
        }
        if (s_.visual() && autolay) {
            if (order_is("COAX")) shift(beaten_zone);
            return shift(off_);
        }
        const spot at = mark();
        const spot fall = drop(range());
        bring({at.x + fall.x + off_.x, at.y + fall.y + off_.y});
    }
    // Moves the view sideways by the distance from the target to the fall of shot, presses AMMO SELECT,
    // moves the view back, and presses again.
    void correctwind()
    {
        const spot at = *target();
        bring({at.x - (seen_->x - at.x), at.y});
        tap(control::ammo);
        bring(at);
        tap(control::ammo);
        correcting_ = true;
        notes.back().corrected = true;
    }
    void note_aim()
    {
        engagement_note& n = notes.back();
        n.system = s_.Lblsystem.Caption;
        n.aims.push_back({target()->x - s_.mbs1.Left, target()->y - s_.mbs1.Top});
    }
    void note_fall(spot round)
    {
        notes.back().falls.push_back({s_.Imgtargets.Left - round.x, s_.Imgtargets.Top - round.y});
    }
    void shoot()
    {
        await([this] { return s_.Imgloaded.Visible || !target(); }, 20);
        if (!s_.Imgloaded.Visible || !target()) return;
        note_aim();
        seen_.reset();
        tap(control::fire);
        if (seen_) note_fall(*seen_);
    }
    // Each burst is assessed where the one before ended.
    void burst()
    {
        await([this] { return heard("LOADE") || !target(); }, 20);
        for (int i = 0; i < 8 && target() && !heard("COMD: TARGET STOP"); ++i) {
            note_aim();
            note_fall({s_.ammo.Left, s_.ammo.Top});
            work(control::fire, true);
            for (int n = 0; n < 15; ++n) {
                pc_.wait(0.02);
                look();
            }
            work(control::fire, false);
        }
    }
    // After a round or some bursts: notes a kill, corrects for wind, or adjusts the next lay. A HESH round
    // that was fired after an autolay and falls clearly left or right of the target's middle shows the wind.
    void judge()
    {
        engagement_note& n = notes.back();
        if (heard("COMD: TARGET STOP")) {
            n.hit = true;
            n.killed = pc_.now();
            await([this] { return !target(); }, 3);
        } else if (!seen_) {
            pc_.wait(0.1);   // no round was fired
            resume();
        } else if (target()) {
            const spot at = *target();
            if (order_is("HESH") && !degraded() && std::abs(seen_->x - at.x) > s_.Imgtargets.Width / 3)
                return correctwind();
            off_ = {off_.x + seen_->x - at.x, off_.y + seen_->y - at.y};
        }
    }
    void engage()
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
        heard_from_ = pc_.log.size();
    }
    // Fires a practice, from START SIM until it has ended.
    void fire_practice()
    {
        heard_from_ = pc_.log.size();
        push_panel_button(s_.Cmdstartsim, 'S');
        while (awaitorder()) engage();
    }

    headless_machine& pc_;
    const practice_state& p_;
    gunnery_screen& s_;
    device by_;
    std::vector<engagement_note> notes = {};
    std::size_t heard_from_ = 0;   // index of the last order in the log, or where to search for the next one
    spot mark_ = {};               // where the mark was seen last
    spot off_ = {};                // adjustment of the lay from the rounds observed
    std::optional<spot> seen_ = {};   // where the round was seen last
    bool correcting_ = false;         // the HESH correction has just been made: no new lase
};

}   // namespace

std::vector<engagement_note> fire_practice(headless_machine& pc, trainer& t, gunnery_screen& s, device by)
{
    gunner g{pc, t.shared, s, by};
    pc.at_pace = [&g] { g.look(); };
    g.fire_practice();
    pc.at_pace = nullptr;
    return g.notes;
}

}   // namespace vorn

#include "platform/headless/headless_machine.h"

#include <algorithm>

#include "platform/files.h"

namespace vorn {

namespace {

// Thrown by end_program to leave all running handlers.
struct program_ended {};

}   // namespace

void headless_machine::pace(double seconds)
{
    clock_ += seconds;
    if (at_pace) at_pace();
}

void headless_machine::do_events()
{
    if (next_event() <= clock_) run_until(clock_);
}

void headless_machine::end_program()
{
    ended = true;
    throw program_ended();
}

void headless_machine::note(const std::string& kind, const std::string& text)
{
    log.push_back({clock_, kind, text});
}

void headless_machine::note_changes()
{
    if (front(*this) != last_front_) {
        last_front_ = front(*this);
        note("screen", last_front_ == nullptr ? "" : last_front_->name);
    }
    for (auto& [object, caption] : watched_)
        if (object->Caption != caption) {
            caption = object->Caption;
            note("caption", caption);
        }
}

bool headless_machine::message_box(const message& box)
{
    note_changes();
    boxes.push_back(box);
    note("box", box.text);
    box_answer answer{box.buttons == box_buttons::ok, 0};
    if (!answers.empty()) {
        answer = answers.front();
        answers.pop_front();
    }
    run_until(clock_ + answer.after);
    return answer.yes || box.buttons == box_buttons::ok;
}

static std::optional<std::string> take_first(std::deque<std::string>& script)
{
    if (script.empty()) return std::nullopt;
    std::string first = std::move(script.front());
    script.pop_front();
    return first;
}

std::optional<std::string> headless_machine::input_box(const std::string& title, const std::string& prompt,
                                                       const std::string&)
{
    note("box", title + ": " + prompt);
    return take_first(inputs);
}

std::optional<std::string> headless_machine::choose_file(const file_dialog& dialog)
{
    note("box", dialog.title);
    dialogs.push_back(dialog);
    return take_first(files);
}

void headless_machine::play(const std::string& path)
{
    playing = path;
    note("sound", to_utf8(from_utf8(path).filename()));
}

print_outcome headless_machine::print(const std::vector<printed_line>& lines, const std::string&)
{
    if (!printer) return {.reason = "There is no printer."};
    for (const printed_line& line : lines) note("printed", line.text);
    return {};
}

std::vector<std::string> headless_machine::of_kind(const std::string& kind) const
{
    std::vector<std::string> texts;
    for (const logged& l : log)
        if (l.kind == kind) texts.push_back(l.text);
    return texts;
}

void headless_machine::event(const std::function<void()>& what)
{
    if (ended) return;
    try {
        handle(*this, what);
    } catch (const program_ended&) {
        if (screens.depth > 0) throw;   // the outer handler ends too
    }
    note_changes();
}

void headless_machine::confirm(screen_object& o)
{
    answers = {{true}};
    click(o);
}

void headless_machine::choose(screen_object& o, const std::string& path)
{
    files = {path};
    click(o);
}

void headless_machine::press(screen_object& o)
{
    if (takes_input(o)) event(o.MouseDown);
}

void headless_machine::key_down(int code, bool alt)
{
    const form* f = front(*this);
    if (screen_object* b = f == nullptr ? nullptr : button_of_key(*f, code, alt)) return event(b->Click);
    if (!alt) send(&form::KeyDown, code);
}

void headless_machine::plug_stick(bool in)
{
    stick_present = in;
    event([this] { joystick_changed(*this); });
}

void headless_machine::stick(int x, int y)
{
    if (!stick_present) return;
    joystick[13] = x;
    joystick[14] = y;
    send(&form::Move, x, y);
}

void headless_machine::stick_button(int number, bool down)
{
    if (stick_present) send(down ? &form::ButtonDown : &form::ButtonUp, number);
}

void headless_machine::later(double seconds, std::function<void()> action)
{
    plans_.push_back({clock_ + seconds, std::move(action)});
}

double headless_machine::next_event()
{
    double next = next_tick(*this);
    for (const planned& p : plans_) next = std::min(next, p.time);
    return next;
}

// Scheduled actions run before ticks that are due at the same time.
void headless_machine::deliver()
{
    const auto due =
        std::find_if(plans_.begin(), plans_.end(), [&](const planned& p) { return p.time <= clock_; });
    if (due != plans_.end()) {
        const auto action = std::move(due->action);
        plans_.erase(due);
        action();
        return;
    }
    deliver_ticks(*this, [this] { note_changes(); });
}

void headless_machine::run_until(double moment)
{
    try {
        for (double next = next_event(); !ended && next <= moment; next = next_event()) {
            clock_ = std::max(clock_, next);
            deliver();
        }
    } catch (const program_ended&) {
        if (screens.depth > 0) throw;
    }
    clock_ = std::max(clock_, moment);
}

void headless_machine::wait(double seconds)
{
    goal_ = clock_;
    advance(seconds);
}

void headless_machine::advance(double seconds)
{
    goal_ = std::max(goal_ + seconds, clock_);
    if (!ended) run_until(goal_);
}

}   // namespace vorn

#include "platform/desktop/desktop_machine.h"

#include <QApplication>
#include <QPrinterInfo>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>
#include <utility>

#include "platform/desktop/drawing/pictures.h"
#include "platform/desktop/windows/access.h"
#include "platform/files.h"

namespace vorn {

static constexpr double frame = 1.0 / 60;      // seconds
static constexpr double longest_delay = 0.1;   // a move later than this starts its time anew rather than rush

static double steady_seconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

desktop_machine::desktop_machine()
    : leave([] { std::_Exit(EXIT_SUCCESS); }),
      world_clock(steady_seconds),
      printer_present([] { return !QPrinterInfo::availablePrinterNames().isEmpty(); }),
      keyboard_(*this),
      stick_(*this)
{
    prepare_fonts();
    describe_pictures();
    icon_ = window_icon();
    clock_.setTimerType(Qt::PreciseTimer);
    clock_.setSingleShot(true);
    QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] { tick(); });
}

desktop_machine::~desktop_machine()
{
    ending_ = true;   // the screens may be gone already, and the windows must not ask them anything
    windows_.clear();
}

double desktop_machine::now() const
{
    return set_to_ + (world_clock() - set_at_) * speed_;
}

void desktop_machine::set_speed(double times)
{
    set_to_ = now();
    set_at_ = world_clock();
    speed_ = times;
    arm();
}

// Events --------------------------------------------------------------------------------------------------

void desktop_machine::run(const std::function<void()>& event)
{
    if (ending_) return;
    const auto outer =
        std::exchange(move_, std::nullopt);   // of the handler that lets this event run in its midst
    handle(*this, event);
    move_ = outer;
    if (screens.depth == 0 && held_mouse_ != nullptr && !takes_input(*held_mouse_)) release_mouse();
    sync();
    arm();
}

void desktop_machine::sync()
{
    place_windows();
    for (const form* f : screens.shown) window(*f)->sync();
}

void desktop_machine::activated(form& f)
{
    if (ending_ || f.state != form_state::shown || front(*this) == &f) return;
    last_front_ = window(f);   // it is active: asking for that again, two windows could go on taking turns
    run([&] { came_to_front(*this, f); });
}

bool desktop_machine::press(screen_object& o)
{
    if (held_mouse_ != &o) release_mouse();   // held by the other hand: nobody would let go of it
    held_mouse_ = &o;
    if (o.MouseDown) run(o.MouseDown);
    return held_mouse_ == &o;
}

void desktop_machine::release_mouse()
{
    screen_object* o = std::exchange(held_mouse_, nullptr);
    if (o != nullptr && o->MouseUp && o->owner->state != form_state::not_loaded) run(o->MouseUp);
}

void desktop_machine::release_input()
{
    if (ending_) return;
    keyboard_.release_all();
    stick_.release_all();
    release_mouse();
    for (const auto& w : windows_) w->release_sliders();
}

void desktop_machine::end_program()
{
    ending_ = true;
    close_sound();
    for (const auto& w : windows_) w->hide();
    if (help_ != nullptr) help_->hide();
    leave();
    std::_Exit(EXIT_SUCCESS);
}

// Time ----------------------------------------------------------------------------------------------------

void desktop_machine::arm()
{
    const double next = next_tick(*this);
    if (std::isinf(next)) return clock_.stop();
    clock_.start(static_cast<int>(std::ceil(std::max(0.0, next - now()) / speed_ * 1000)));
}

// The gunner's keys that waited for a move come before the ticks that fell due in it, as they would have done
// had there been no move.
void desktop_machine::tick()
{
    if (std::exchange(keys_waited_, false)) QCoreApplication::processEvents();
    if (ending_) return;
    const auto outer = std::exchange(move_, std::nullopt);
    deliver_ticks(*this, [this] { move_.reset(); });
    move_ = outer;
    sync();
    arm();
}

void desktop_machine::pace(double seconds)
{
    if (QApplication::activeModalWidget() != nullptr)
        return;   // behind a box nobody watches, and it must answer
    const double start = now();
    if (!move_ || start > move_->clock + longest_delay) move_ = counted_move{start, start + frame};
    keys_waited_ = true;
    move_->clock += seconds;
    if (move_->clock < move_->next_frame) return;
    sync();
    for (const form* f : screens.shown) window(*f)->paint_now();
    std::this_thread::sleep_for(std::chrono::duration<double>((move_->clock - now()) / speed_));
    move_->next_frame = std::max(move_->clock, now()) + frame;
}

void desktop_machine::do_events()
{
    if (!move_) sync();   // a move shows its own pictures, when they are due
    arm();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

// Files ---------------------------------------------------------------------------------------------------

loaded_picture desktop_machine::load_picture(const std::string& path)
{
    return read_picture(path, find_path(*this, path));
}

void desktop_machine::show_help(const std::string& path)
{
    if (help_ == nullptr) help_ = std::make_unique<help_window>(icon_);
    help_->open_file(find_path(*this, path));
}

// Sound and stick -----------------------------------------------------------------------------------------

void desktop_machine::play(const std::string& path)
{
    sound_.play(find_path(*this, path));
}

void desktop_machine::close_sound()
{
    sound_.stop();
}

long desktop_machine::joystick_reading(int number)
{
    return stick_.reading(number);
}

bool desktop_machine::joystick_present()
{
    return stick_.present();
}

}   // namespace vorn

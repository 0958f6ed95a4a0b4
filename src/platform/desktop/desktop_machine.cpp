#include "platform/desktop/desktop_machine.h"

#include <QApplication>
#include <QFileInfo>
#include <QPrinterInfo>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>
#include <utility>

#include "platform/desktop/data_directory.h"
#include "platform/desktop/drawing/pictures.h"
#include "platform/desktop/windows/sight_view.h"
#include "platform/desktop/windows/views.h"
#include "platform/files.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace vorn {

// Seconds.
static constexpr double frame = 1.0 / 60;
static constexpr double max_delay = 0.1;   // a counted move further behind than this doesn't catch up

static double steady_seconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Keeps pictures out of the heaps that glibc makes for threads: memory that is freed there isn't returned to
// the system.
static void return_freed_pictures()
{
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, 256 * 1024);
#endif
}

desktop_machine::desktop_machine()
    : leave([] { std::_Exit(EXIT_SUCCESS); }),
      world_clock(steady_seconds),
      printer_present([] { return !QPrinterInfo::availablePrinterNames().isEmpty(); }),
      keyboard_(*this),
      stick_(*this)
{
    return_freed_pictures();
    prepare_fonts();
    describe_pictures();
    icon_ = window_icon();
    clock_.setTimerType(Qt::PreciseTimer);
    clock_.setSingleShot(true);
    QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] { tick(); });
}

desktop_machine::~desktop_machine()
{
    ending_ = true;   // no handlers from now on: the screens may have been destroyed
    windows_.clear();
}

double desktop_machine::now() const
{
    return set_to_ + (world_clock() - set_at_) * speed_;
}

void desktop_machine::set_speed(double factor)
{
    set_to_ = now();
    set_at_ = world_clock();
    speed_ = factor;
    start_clock();
}

// Events --------------------------------------------------------------------------------------------------

void desktop_machine::run(const std::function<void()>& event)
{
    if (ending_) return;
    const auto outer =
        std::exchange(move_, std::nullopt);   // the move of an outer handler, which has called do_events
    handle(*this, event);
    move_ = outer;
    if (screens.depth == 0 && pressed_ != nullptr && !takes_input(*pressed_)) release_pressed();
    sync();
    start_clock();
}

void desktop_machine::sync()
{
    if (placing_) return;   // the outer call places windows until all are up to date
    place_windows();
    for (const form* f : screens.shown) {
        window(*f)->sync();
        window(*f)->set_progress(1);
    }
}

void desktop_machine::activated(form& f)
{
    // While windows are being placed, the program chooses the front window.
    if (ending_ || placing_ || f.state != form_state::shown || front(*this) == &f) return;
    last_front_ = window(f);   // keeps sync from activating it again: two windows could alternate endlessly
    run([&] { show(*this, f); });
}

bool desktop_machine::press(screen_object& o)
{
    if (pressed_ != &o) release_pressed();   // otherwise the previous object would get no MouseUp
    pressed_ = &o;
    if (o.MouseDown) run(o.MouseDown);
    return pressed_ == &o;
}

void desktop_machine::release_pressed()
{
    screen_object* o = std::exchange(pressed_, nullptr);
    if (o != nullptr && o->MouseUp && o->owner->state != form_state::not_loaded) run(o->MouseUp);
}

void desktop_machine::release_input()
{
    if (ending_) return;
    keyboard_.release_all();
    stick_.release_all();
    release_pressed();
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

void desktop_machine::start_clock()
{
    const double next = next_wake(*this);
    if (std::isinf(next)) return clock_.stop();
    clock_.start(static_cast<int>(std::ceil(std::max(0.0, next - now()) / speed_ * 1000)));
}

// User events delayed by a counted move are handled before the ticks that became due during the move, as if
// the events had not been delayed.
void desktop_machine::tick()
{
    if (std::exchange(events_delayed_, false)) QCoreApplication::processEvents();
    if (ending_) return;
    const auto outer = std::exchange(move_, std::nullopt);
    deliver_ticks(*this, [this] { move_.reset(); });
    move_ = outer;
    sync();
    start_clock();
}

// Shows for this many seconds the step that a counted move has just made. Paints the frames due in this time,
// with a round in flight between its old and its new place. Skips the frames that fall due while it is late.
void desktop_machine::pace(double seconds)
{
    if (QApplication::activeModalWidget() != nullptr) return;   // the box in front must respond
    const double start = now();
    if (!move_ || start > move_->clock + max_delay) move_ = counted_move{start, start + frame};
    events_delayed_ = true;
    sync();
    const double from = std::exchange(move_->clock, move_->clock + seconds);
    while (move_->next_frame <= move_->clock) {
        const double time = move_->next_frame;
        for (const form* f : screens.shown) {
            window(*f)->animate();
            window(*f)->set_progress(seconds > 0 ? (time - from) / seconds : 1);
            window(*f)->paint_now();
        }
        std::this_thread::sleep_for(std::chrono::duration<double>((time - now()) / speed_));
        move_->next_frame = std::max(time, now()) + frame;
    }
}

void desktop_machine::do_events()
{
    if (!move_) sync();   // a counted move paints its own frames
    start_clock();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

// Files ---------------------------------------------------------------------------------------------------

// A picture that is still in use is decoded again only if its file has changed. The twin of the user's copy
// of an installed picture is in the installed folder.
loaded_picture desktop_machine::load_picture(const std::string& path)
{
    const std::string found = find_path(*this, path);
    const QFileInfo file(QString::fromStdString(found));
    const QDateTime time = file.lastModified();
    for (const recent_picture& r : recent_)
        if (auto pixels = r.pixels.lock();
            pixels && r.path == found && r.time == time && r.bytes == file.size())
            return {picture{path, r.width, r.height, pixels}, {}};
    loaded_picture loaded = read_picture(path, found, folder_of_same_file(installed_data, found));
    std::erase_if(recent_, [](const recent_picture& r) { return r.pixels.expired(); });
    if (loaded.result)
        recent_.push_back(
            {found, time, file.size(), loaded.result->width, loaded.result->height, loaded.result->pixels});
    return loaded;
}

void desktop_machine::show_help(const std::string& path)
{
    if (help_ == nullptr) help_ = std::make_unique<help_window>(icon_);
    const form* screen = front(*this);
    help_->open_file(find_path(*this, path), screen == nullptr ? "" : screen->name, front_window());
}

// Sound and strikes ---------------------------------------------------------------------------------------

void desktop_machine::play(const std::string& path)
{
    sound_.play(find_path(*this, path));
}

void desktop_machine::show_strike(const strike& s)
{
    for (const auto& w : windows_)
        if (sight_view* v = w->sight_of(*s.ground)) v->show_strike(s);
}

void desktop_machine::clear_strikes()
{
    for (const auto& w : windows_) w->clear_strikes();
}

}   // namespace vorn

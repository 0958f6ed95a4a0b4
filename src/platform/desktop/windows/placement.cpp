// Shows, hides and raises windows so that they match the screens shown by the program.
#include <QWindow>
#include <algorithm>

#include "platform/desktop/desktop_machine.h"

namespace vorn {

static bool contains(const std::vector<form*>& forms, const form* f)
{
    return std::find(forms.begin(), forms.end(), f) != forms.end();
}

form_window* desktop_machine::window(const form& f) const
{
    for (const auto& w : windows_)
        if (&w->model == &f) return w.get();
    return nullptr;
}

form_window* desktop_machine::window_of(const QObject* handle) const
{
    for (const auto& w : windows_)
        if (handle == w->windowHandle() && handle != nullptr) return w.get();
    return nullptr;
}

QWidget* desktop_machine::front_window() const
{
    const form* f = front(*this);
    form_window* w = f == nullptr ? nullptr : window(*f);
    return w != nullptr && w->isVisible() ? w : nullptr;
}

void desktop_machine::open_window(form_window& w, const form_window* before, bool over_it)
{
    if (w.isVisible()) return;   // its screen was hidden, but hide_leaving hasn't run yet
    if (before != nullptr && before != &w) w.place_like(*before, over_it);
    w.sync();
    w.show();
}

// Showing or raising a window may activate it and deactivate another immediately. The handlers of these
// events may show further screens, which the next pass of the loop places.
void desktop_machine::place_windows()
{
    placing_ = true;
    while (shown_ != screens.shown) place_shown();
    placing_ = false;
}

// A window is hidden after the next one has been painted, so that the desktop doesn't appear in between.
void desktop_machine::place_shown()
{
    const std::vector<form*> shown = screens.shown;
    const std::vector<form*> before = std::exchange(shown_, shown);
    const bool replaced =
        std::any_of(before.begin(), before.end(), [&](form* f) { return !contains(shown, f); });
    for (form* f : shown)
        if (window(*f) == nullptr) windows_.push_back(std::make_unique<form_window>(*f, *this));
    for (form* f : shown)
        if (!contains(before, f)) open_window(*window(*f), last_front_, !before.empty() && !replaced);
    for (form* f : before)
        if (!contains(shown, f)) leaving_.push_back(window(*f));
    if (shown.empty()) return hide_leaving();
    form_window& top = *window(*shown.back());
    if (last_front_ != &top) {
        top.raise();
        top.activateWindow();
    }
    last_front_ = &top;
    QTimer::singleShot(150, &top, [this] { hide_leaving(); });   // in case `top` is never painted
}

void desktop_machine::hide_leaving()
{
    for (form_window* w : std::exchange(leaving_, {}))
        if (w->model.state != form_state::shown) {
            w->hide();
            // The next load of an unloaded screen begins with the default focus.
            QWidget* focus = w->model.state == form_state::not_loaded ? w->focusWidget() : nullptr;
            if (focus != nullptr) focus->clearFocus();
        }
}

}   // namespace vorn

// The widgets of a form's objects: created by kind, set from the fields, and reporting the user's actions.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "platform/objects.h"

namespace vorn {

// Runs a handler to its end and updates the windows.
using event_runner = std::function<void(const std::function<void()>&)>;

// An object of a form and its widget. `drawn` is the state of the widget: the object's fields at the last
// update, plus the change that the user has made in the widget and that is being handled.
struct shown_object {
    screen_object* object = nullptr;
    object_fields drawn;
    area before;                 // its place at the update before, or at the last one if it was hidden
    QWidget* widget = nullptr;   // for an object in a sight: that of the sight
    std::vector<const shown_object*> inside;   // the objects in a sight, in drawing order
};

bool in_sight(const screen_object&);
bool has_mouse_handler(const screen_object&);
// True when it, or a frame around it, has a handler for mouse moves.
bool has_move_handler(const screen_object&);

QWidget* make_widget(shown_object&, QWidget* parent, const event_runner&);

// Updates the widget from the fields that have changed, or from all, which a new scale requires.
void draw_fields(shown_object&, bool everything);

}   // namespace vorn

// Creates the widgets of a form's objects, updates them from the fields, and reports the user's actions.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "platform/objects.h"

namespace vorn {

// Runs a handler to its end and updates the windows.
using event_runner = std::function<void(const std::function<void()>&)>;

// An object of a form and its widget. `drawn` is what the widget shows: the fields of the object at the last
// update and, while a change by the user is being handled, this change.
struct shown_object {
    screen_object* object = nullptr;
    object_fields drawn;
    area before;                 // its place at the update before the last, if it was visible then
    QWidget* widget = nullptr;   // for an object in a sight: the widget of the sight
    std::vector<const shown_object*> inside;   // for a sight: its objects, in drawing order
};

bool in_sight(const screen_object&);
bool has_mouse_handler(const screen_object&);
// The object or its nearest parent that has a MouseMove handler; null if none has.
const screen_object* move_handler_of(const screen_object&);

QWidget* make_widget(shown_object&, QWidget* parent, const event_runner&);

// Updates the widget from the fields that have changed, or from all fields, as needed for a new scale.
void draw_fields(shown_object&, bool everything);

}   // namespace vorn

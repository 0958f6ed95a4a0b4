// The widgets of a form's objects: made by their kind, set from their fields, and telling what the user does.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "platform/objects.h"

namespace vorn {

// Runs an event to its end and draws what it changed.
using event_runner = std::function<void(const std::function<void()>&)>;

// One object of a form as it is seen. `drawn` is what the user sees at this moment: what the model last said,
// and, until the event is done, what the user's own click or drag has just changed in the widget.
struct shown_object {
    screen_object* object = nullptr;
    object_fields drawn;
    QWidget* widget = nullptr;                 // for an object in a sight, the sight
    std::vector<const shown_object*> inside;   // what a sight paints, in order
};

bool in_sight(const screen_object&);
bool has_hooks(const screen_object&);
// Whether it, or a frame that holds it, wants to know where the mouse is.
bool hears_moves(const screen_object&);

QWidget* make_widget(shown_object&, QWidget* parent, const event_runner&);

// Sets the widget from the fields where they differ from what is drawn; everything, when the scale is new.
void draw_fields(shown_object&, double scale, bool everything);

}   // namespace vorn

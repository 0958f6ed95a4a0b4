// Where the objects of a form are shown in a window of any shape. A form without a docked sight is scaled as
// a whole and has its own layout for wide windows. One with a sight keeps its panels at the scale of the form
// and gives the sight the remaining space.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <unordered_map>

#include "platform/objects.h"

namespace vorn {

struct arrangement {
    double scale = 1;   // pixels for each pixel of the form at 1024 x 768
    QPointF corner;     // of the form in the window, pixels
    // Shown at these places in the parent, in twips, or enlarged; all other objects are shown at their own
    // place.
    std::unordered_map<const screen_object*, QRectF> places;
    std::unordered_map<const screen_object*, enlargement> enlarged;
};

// Depends on the window's size in pixels and on which objects are visible.
arrangement arrange(const form&, const QSize& window);

// Whether the arrangement depends on the object being visible.
bool affects_arrangement(const screen_object&);

}   // namespace vorn

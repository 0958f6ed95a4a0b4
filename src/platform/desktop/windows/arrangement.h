// Arranges the objects of a form in a window of any shape. A form without a docked sight is scaled as a
// whole; in a wide window its objects may be spread over the width, or it may have its own layout there. In a
// form with a docked sight the panels fill strips left of the sight and below it.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <unordered_map>

#include "platform/objects.h"

namespace vorn {

struct arrangement {
    double scale = 1;   // pixels for each pixel of the form at 1024 x 768
    QPointF corner;     // upper left corner of the form in the window, pixels
    // Objects with a new place (in the parent, twips) and objects that are enlarged. Of an object in both,
    // only the text and the child objects are enlarged. Objects in neither are shown at their own place.
    std::unordered_map<const screen_object*, QRectF> places;
    std::unordered_map<const screen_object*, enlargement> enlarged;
};

// The result depends on the window's size in pixels, on the places and sizes of the objects, and on which
// are visible.
arrangement arrange(const form&, const QSize& window);

// Whether the arrangement can change with the visibility of the object.
bool affects_arrangement(const screen_object&);

}   // namespace vorn

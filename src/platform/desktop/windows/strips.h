// Strips of panels beside and below a docked sight: columns of blocks that fill the room they get. All in
// twips.
#pragma once

#include <QRectF>
#include <span>
#include <vector>

#include "platform/desktop/windows/arrangement.h"

namespace vorn {

inline constexpr double gap = 90;            // between blocks
inline constexpr double frame_title = 330;   // height of a frame's caption

// A docked object. It is never smaller than `size`.
struct block {
    const screen_object* object = nullptr;
    QSizeF size = {};
    bool flat = false;   // shown in its flat layout
    double give = 1;     // its part of the height that is left, for each twip of its own
    QRectF at = {};
};

// The blocks as designed, without the rows of hidden buttons.
block block_of(const form&, const screen_object&);
// The same in the flat layout, if the object has one.
block flat_block_of(const form&, const screen_object&);

struct column {
    std::vector<block> blocks;
    QSizeF size = {};   // the least
    double give = 0;    // height times give of all blocks
};

struct strip {
    std::vector<column> columns;
    QSizeF size = {};   // the least

    bool empty() const { return columns.empty(); }
};

// The lowest strip of so many columns, with the blocks in their order.
strip make_strip(std::span<const block>, std::size_t columns);

// Places the blocks of the strip so that they fill the rectangle.
void fill(strip&, const QRectF&);

// Shows a block at its place, given in twips of the form, and what it contains spread over that place.
void place_block(arrangement&, const form&, const block&, const QPointF& parent_corner);

// Spreads all objects of a form over a form wider by this factor. Text and pictures keep their size.
void spread_across(arrangement&, const form&, double wider);

}   // namespace vorn

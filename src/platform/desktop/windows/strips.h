// Strips of panels beside and below a docked sight: columns of blocks that fill the room they get. Lengths
// are in twips.
#pragma once

#include <QRectF>
#include <span>
#include <vector>

#include "platform/desktop/windows/arrangement.h"

namespace vorn {

inline constexpr double gap = 90;            // between blocks
inline constexpr double frame_title = 330;   // height of a frame's caption

// A docked object, or a frame in a docked panel. It is never smaller than `size`.
struct block {
    const screen_object* object = nullptr;
    QSizeF size = {};
    bool flat = false;   // shown in its flat layout
    double give = 1;     // its share of spare height is proportional to its height times this
    QRectF at = {};
};

// The block of an object in its designed size, less the rows of hidden buttons.
block block_of(const form&, const screen_object&);
// The block of an object in its flat layout, or the result of block_of if it has none.
block flat_block_of(const form&, const screen_object&);

struct column {
    std::vector<block> blocks;
    QSizeF size = {};   // smallest size
    double give = 0;    // sum of height times give over the blocks
};

struct strip {
    std::vector<column> columns;
    QSizeF size = {};   // smallest size

    bool empty() const { return columns.empty(); }
};

// Whether a column consists mostly of objects that can't fill more height, such as pictures.
bool is_rigid(const column&);
// The strip of least height with this many columns. A strip with a rigid column is returned only if all
// strips without one are clearly higher. The blocks keep their order.
strip make_strip(std::span<const block>, std::size_t columns);

// Places the blocks of the strip so that they fill the rectangle.
void fill(strip&, const QRectF&);

// Shows a block at its place (`at`, in twips of the form), with its contents spread over that place.
void place_block(arrangement&, const form&, const block&, const QPointF& parent_corner);

// Spreads the objects of a form over `wider` times its width. Text and pictures keep their size.
void spread_across(arrangement&, const form&, double wider);

}   // namespace vorn

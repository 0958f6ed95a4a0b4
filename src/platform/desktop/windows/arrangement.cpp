#include "platform/desktop/windows/arrangement.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace vorn {

namespace {

// Twips at the scale of the form.
constexpr double margin = 60;         // around everything
constexpr double gap = 90;            // between blocks
constexpr double border = 75;         // around the sight
constexpr double panel_title = 330;   // height

using object_list = std::vector<const screen_object*>;

// The visible docked objects of a form.
struct docked_objects {
    const screen_object* sight = nullptr;
    const screen_object* panel = nullptr;
    const screen_object* title = nullptr;   // above or left of the panel
    object_list frames;                     // in the panel
    object_list beside, above, below;
};

docked_objects docked_of(const form& f)
{
    docked_objects d;
    for (const screen_object* o : f.objects) {
        if (!o->Visible) continue;
        if (o->docked == dock::sight) d.sight = o;
        if (o->docked == dock::panel) d.panel = o;
        if (o->docked == dock::beside) d.beside.push_back(o);
        if (o->docked == dock::above) d.above.push_back(o);
        if (o->docked == dock::below) d.below.push_back(o);
        if (o->parent != nullptr && o->parent->docked == dock::panel) d.frames.push_back(o);
    }
    std::ranges::stable_sort(d.frames, {}, &screen_object::Top);
    return d;
}

// An object to be placed.
struct block {
    const screen_object* object;
    QSizeF size;
    QPointF at = {};
    bool folded = false;   // its lower part, from `fold` on, is shown beside the upper part
};

block block_of(const screen_object* o, bool folded = false)
{
    block b{o, {o->Width, o->Height}};
    b.folded = folded && o->fold > 0;
    if (b.folded) b.size = {2 * o->Width - gap, std::max(o->fold, o->Height - o->fold) + gap};
    return b;
}

// Places blocks below each other, and starts a new column where a block would pass `bottom`. Returns the
// right and lower edges of all blocks.
QPointF fill_columns(std::vector<block>& blocks, const QPointF& from, double bottom)
{
    QPointF at = from, end = from;
    for (block& b : blocks) {
        if (at.y() > from.y() && at.y() + b.size.height() > bottom) at = {end.x() + gap, from.y()};
        b.at = at;
        at.ry() += b.size.height() + gap;
        end = {std::max(end.x(), b.at.x() + b.size.width()), std::max(end.y(), at.y() - gap)};
    }
    return end;
}

// Places blocks side by side, and starts a new row where a block would pass `right`. Returns the lower edge
// of all blocks.
double fill_rows(std::vector<block>& blocks, const QPointF& from, double right)
{
    QPointF at = from;
    double end = from.y();
    for (block& b : blocks) {
        if (at.x() > from.x() && at.x() + b.size.width() > right) at = {from.x(), end + gap};
        b.at = at;
        at.rx() += b.size.width() + gap;
        end = std::max(end, at.y() + b.size.height());
    }
    return end;
}

double right_edge(const std::vector<block>& blocks)
{
    double right = 0;
    for (const block& b : blocks) right = std::max(right, b.at.x() + b.size.width());
    return right;
}

// If the title is the only object above the sight, it is placed next to the panel instead, unless the panel
// is too high.
void move_title(docked_objects& d)
{
    double height = d.above.front()->Height + 2 * margin + panel_title;
    for (const screen_object* o : d.frames) height += o->Height + gap;
    if (height > form_height / 2) return;
    d.title = d.above.front();
    d.above.clear();
}

std::vector<block> frames_of(const docked_objects& d)
{
    std::vector<block> frames;
    for (const screen_object* o : d.frames) frames.push_back(block_of(o));
    return frames;
}

struct frames_in_panel {
    std::vector<block> frames;
    QSizeF size;   // of the panel
};

// Places the frames in the panel: in one column if `upright`, otherwise in columns as high as the highest
// frame.
frames_in_panel fill_panel(const docked_objects& d, bool upright)
{
    frames_in_panel p{frames_of(d), {}};
    if (p.frames.empty()) return p;
    double highest = 0;
    for (const block& b : p.frames) highest = std::max(highest, b.size.height());
    const QPointF end = fill_columns(p.frames, {gap, panel_title}, upright ? 1e9 : panel_title + highest);
    p.size = {end.x() + gap, end.y() + gap};
    return p;
}

// One way to arrange the objects. Places and sizes are in twips at this scale.
struct plan {
    double scale = 1;
    frames_in_panel panel = {};
    std::vector<block> blocks = {};
    QRectF sight = {};
    double growth = 0;   // of the sight; 0 if the objects don't fit into the window
    double width = 0;    // of all objects with the margins

    double sight_area() const { return growth * scale * growth * scale; }
};

double height_of(const object_list& line)
{
    double height = 0;
    for (const screen_object* o : line) height = std::max(height, o->Height);
    return height;
}

// Puts all blocks below the sight if `in_columns` is 0. Otherwise title and panel are left of the sight, with
// further blocks until there are `in_columns` of them; the rest is below.
plan make_plan(const docked_objects& d, const QSizeF& window, double scale, std::size_t in_columns)
{
    plan p{.scale = scale, .panel = fill_panel(d, in_columns > 0)};
    const QSizeF room = window / scale;
    std::vector<block> columns, rows;
    if (d.title != nullptr) columns.push_back(block_of(d.title));
    if (!d.frames.empty()) columns.push_back({d.panel, p.panel.size});
    if (in_columns == 0) rows = std::exchange(columns, {});
    for (const screen_object* o : d.beside)
        (columns.size() < in_columns ? columns : rows).push_back(block_of(o, columns.size() >= in_columns));

    const QPointF columns_end = fill_columns(columns, {margin, margin}, room.height() - margin);
    if (columns_end.y() > room.height() - margin + 0.5) return p;   // too high
    const double left = columns.empty() ? margin : columns_end.x() + gap;
    const double rows_height = rows.empty() ? 0 : fill_rows(rows, {left, 0}, room.width() - margin) + gap;
    const double head = height_of(d.above), foot = height_of(d.below);
    const QSizeF free(room.width() - margin - left - 2 * border,
                      room.height() - 2 * margin - head - foot - rows_height - 2 * border);
    if (free.isEmpty()) return p;
    const double rows_right = right_edge(rows);
    if (rows_right > room.width() - margin + 0.5) return p;   // too wide
    const double growth = std::min(free.width() / d.sight->Width, free.height() / d.sight->Height);
    if (!d.below.empty() && growth < 1) return p;   // the objects below the sight would overlap
    p.growth = growth;
    const QSizeF size = QSizeF(d.sight->Width, d.sight->Height) * p.growth;
    // Centred in the remaining height.
    const double top = margin + head + border + (free.height() - size.height()) / 2;
    p.sight = QRectF(QPointF(left + border, top), size);
    for (block& b : rows) b.at.ry() += p.sight.bottom() + border + foot + gap;
    p.width = std::max(p.sight.right() + border, rows_right) + margin;
    p.blocks = std::move(columns);
    p.blocks.insert(p.blocks.end(), rows.begin(), rows.end());
    return p;
}

// The plan with all blocks below the sight. They are enlarged as long as the sight keeps 95 % of its area.
plan panels_below(const docked_objects& d, const QSizeF& window, double scale)
{
    plan best = make_plan(d, window, scale, 0);
    const double least = 0.95 * best.sight_area();
    for (int percent = 105; percent <= 250; percent += 5) {
        plan larger = make_plan(d, window, scale * percent / 100, 0);
        if (larger.sight_area() >= least) best = std::move(larger);
    }
    return best;
}

// The plan with the largest sight. A plan with more blocks beside the sight, where they are easier to see, is
// preferred even if its sight is slightly smaller.
plan best_plan(const docked_objects& d, const QSizeF& window, double scale)
{
    constexpr double nearly = 0.97;
    plan best = panels_below(d, window, scale);
    for (std::size_t in_columns = 1; in_columns <= d.beside.size() + 2; ++in_columns) {
        plan p = make_plan(d, window, scale, in_columns);
        if (p.sight_area() > nearly * best.sight_area()) best = std::move(p);
    }
    return best;
}

// Places the row above the sight. Right-aligned objects end at the right edge of the sight; another object
// gets the remaining width.
void place_above(arrangement& a, const object_list& line, const QRectF& sight)
{
    double right = sight.right();
    for (const screen_object* o : line) {
        const bool at_right = o->Alignment == alignment::right;
        const double left = at_right ? right - o->Width : sight.left();
        a.places[o] = {left, sight.top() - border - o->Height, right - left, o->Height};
        if (at_right) right = left - gap;
    }
}

void fold_objects(arrangement& a, const form& f, const screen_object& frame)
{
    for (const screen_object* o : f.objects)
        if (o->parent == &frame && o->Top >= frame.fold)
            a.enlarged[o] = {.right = frame.Width - gap, .down = gap - frame.fold};
}

void place_sight(arrangement& a, const screen_object& sight, const QRectF& at)
{
    const double factor = at.width() / sight.Width;
    a.enlarged[&sight] = {factor, at.left() - factor * sight.Left, at.top() - factor * sight.Top};
}

void place_below(arrangement& a, const object_list& line, const screen_object& sight, const QRectF& at)
{
    const double growth = at.width() / sight.Width;
    for (const screen_object* o : line)
        a.places[o] = {at.left() + (o->Left - sight.Left) * growth, at.bottom() + border, o->Width,
                       o->Height};
}

// Enlarges a backdrop from the middle of the form until it covers the window.
enlargement cover(const screen_object& o, const QSizeF& room)
{
    const double factor = std::max({1.0, room.width() / o.Width, room.height() / o.Height});
    return {factor, form_width / 2 - factor * (o.Left + o.Width / 2),
            form_height / 2 - factor * (o.Top + o.Height / 2)};
}

void arrange_without_sight(arrangement& a, const form& f, const QSizeF& room)
{
    constexpr double wider = 150;   // twips; a smaller difference doesn't change the layout
    const bool wide = f.wide && room.width() > form_width + wider;
    const wide_layout layout = wide ? f.wide(room.width()) : wide_layout{};
    a.corner =
        QPointF(room.width() - layout.width, room.height() - form_height) / 2 / twips_per_pixel * a.scale;
    for (const auto& [o, at] : layout.places) a.places[o] = {at.Left, at.Top, at.Width, at.Height};
    a.enlarged = layout.enlarged;
    for (const screen_object* o : f.objects)
        if (o->docked == dock::backdrop) a.enlarged[o] = cover(*o, room);
}

}   // namespace

arrangement arrange(const form& f, const QSize& window)
{
    const QSizeF twips = QSizeF(window) * twips_per_pixel;
    arrangement a;
    a.scale = std::min(twips.width() / form_width, twips.height() / form_height);
    docked_objects d = docked_of(f);
    if (d.sight == nullptr) {
        arrange_without_sight(a, f, twips / a.scale);
        return a;
    }
    if (d.above.size() == 1) move_title(d);
    const plan p = best_plan(d, twips, a.scale);
    a.scale = p.scale;
    a.corner = {(window.width() - p.width / twips_per_pixel * a.scale) / 2, 0};
    place_sight(a, *d.sight, p.sight);
    for (const block& b : p.panel.frames) a.places[b.object] = QRectF(b.at, b.size);
    if (d.panel != nullptr) a.places[d.panel] = {};   // stays empty if it has no frames
    for (const block& b : p.blocks) {
        a.places[b.object] = QRectF(b.at, b.size);
        if (b.folded) fold_objects(a, f, *b.object);
    }
    place_above(a, d.above, p.sight);
    place_below(a, d.below, *d.sight, p.sight);
    return a;
}

bool affects_arrangement(const screen_object& o)
{
    return o.docked != dock::none || (o.parent != nullptr && o.parent->docked == dock::panel);
}

}   // namespace vorn

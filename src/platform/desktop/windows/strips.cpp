#include "platform/desktop/windows/strips.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace vorn {

namespace {

constexpr double largest_growth = 2;      // of the text in a frame that is larger than designed
constexpr double largest_readout = 1.8;   // of large text in a frame that grows more in height than in width
constexpr double give_of_picture = 0.3;   // of pictures, and of frames with only pictures

using object_list = std::vector<const screen_object*>;

object_list inside(const form& f, const screen_object* frame)
{
    object_list found;
    for (const screen_object* o : f.objects)
        if (o->parent == frame) found.push_back(o);
    return found;
}

bool is_picture(const screen_object& o)
{
    return o.kind == object_kind::image || o.kind == object_kind::shape;
}

// How far a hidden button is above the next visible object; 0 if a visible object is beside it or none is
// below.
double hidden_row(const object_list& all, const screen_object& o)
{
    if (o.Visible || o.kind != object_kind::button) return 0;
    double next = std::numeric_limits<double>::max();
    for (const screen_object* other : all) {
        if (!other->Visible) continue;
        if (other->Top < o.Top + o.Height && other->Top + other->Height > o.Top) return 0;
        if (other->Top > o.Top) next = std::min(next, other->Top);
    }
    return next == std::numeric_limits<double>::max() ? 0 : next - o.Top;
}

// How far up an object is moved because rows above it are hidden.
double raised(const object_list& all, double top)
{
    double height = 0;
    for (const screen_object* o : all)
        if (o->Top < top) height += hidden_row(all, *o);
    return height;
}

double give_of(const screen_object& o, const object_list& all)
{
    if (is_picture(o)) return give_of_picture;
    if (o.kind != object_kind::frame) return 0;
    return std::ranges::all_of(all, [](const screen_object* o) { return is_picture(*o); }) ? give_of_picture
                                                                                           : 1;
}

void measure(column& c)
{
    c.size = {0, -gap};
    for (const block& b : c.blocks) {
        c.give += b.size.height() * b.give;
        c.size = {std::max(c.size.width(), b.size.width()), c.size.height() + b.size.height() + gap};
    }
}

// `first` says for each block whether a column begins with it.
strip strip_of(std::span<const block> blocks, const std::vector<bool>& first)
{
    strip s;
    for (std::size_t n = 0; n < blocks.size(); ++n) {
        if (first[n]) s.columns.emplace_back();
        s.columns.back().blocks.push_back(blocks[n]);
    }
    s.size = {-gap, 0};
    for (column& c : s.columns) {
        measure(c);
        s.size = {s.size.width() + c.size.width() + gap, std::max(s.size.height(), c.size.height())};
    }
    return s;
}

void fill_column(column& c, const QRectF& at)
{
    const double extra = at.height() - c.size.height();
    double top = c.give > 0 ? at.top() : at.top() + extra / 2;
    for (block& b : c.blocks) {
        const double more = c.give > 0 ? extra * b.size.height() * b.give / c.give : 0;
        b.at = {at.left(), top, at.width(), b.size.height() + more};
        top = b.at.bottom() + gap;
    }
}

// The factors by which the cells (the places of the objects) in a frame or a form are stretched to fill it. A
// picture keeps its shape. Places are in the frame's own twips: its enlargement is applied afterwards.
struct spread {
    double across, down;
    double title;   // height of the caption, which is not spread

    QRectF cell(const QRectF& r) const
    {
        return {r.left() * across, title + (r.top() - title) * down, r.width() * across, r.height() * down};
    }
    QSizeF picture(const QSizeF& size) const { return size * std::min(across, down); }
};

QRectF centred(const QSizeF& size, const QRectF& in)
{
    return {in.center().x() - size.width() / 2, in.center().y() - size.height() / 2, size.width(),
            size.height()};
}

using places = std::vector<std::pair<const screen_object*, QRectF>>;

// The places of a block's objects: those of its flat layout, or those of the design, moved up over hidden
// rows.
places places_in(const form& f, const block& b)
{
    places found;
    const object_list all = inside(f, b.object);
    for (const screen_object* o : all) {
        area at = *o;
        if (b.flat) {
            const auto flat = b.object->flat.places.find(o);
            at = flat == b.object->flat.places.end() ? area{} : flat->second;
        } else
            at.Top -= raised(all, at.Top);
        found.emplace_back(o, QRectF(at.Left, at.Top, at.Width, at.Height));
    }
    return found;
}

// The picture on which an object lies; null when there is none.
const std::pair<const screen_object*, QRectF>* picture_under(const places& all, const QRectF& at)
{
    for (const auto& p : all)
        if (p.first->Visible && p.first->kind == object_kind::image && p.second.contains(at) &&
            p.second != at)
            return &p;
    return nullptr;
}

// The place of the label that ends where a lamp begins; null when there is none.
const QRectF* words_before(const places& all, const QRectF& lamp)
{
    for (const auto& [o, at] : all)
        if (o->kind == object_kind::label && at.right() == lamp.left() && at.top() < lamp.bottom() &&
            at.bottom() > lamp.top())
            return &at;
    return nullptr;
}

bool keeps_shape(const screen_object& o)
{
    return o.kind == object_kind::image || o.kind == object_kind::sight ||
           (o.kind == object_kind::shape && o.Shape != shape_kind::rectangle);
}

QRectF spread_place(const spread& s, const places& all, const screen_object& o, const QRectF& at)
{
    if (keeps_shape(o)) {
        QRectF now = centred(s.picture(at.size()), s.cell(at));
        if (const QRectF* words = words_before(all, at)) now.moveLeft(s.cell(*words).left() + words->width());
        return now;
    }
    if (const auto* under = picture_under(all, at)) {
        const QRectF now = centred(s.picture(under->second.size()), s.cell(under->second));
        const double factor = now.width() / under->second.width();
        return {now.topLeft() + (at.topLeft() - under->second.topLeft()) * factor, at.size() * factor};
    }
    const QRectF cell = s.cell(at);
    return o.kind == object_kind::slider ? centred({cell.width(), at.height()}, cell) : cell;
}

}   // namespace

block block_of(const form& f, const screen_object& o)
{
    const object_list all = inside(f, &o);
    return {&o, {o.Width, o.Height - raised(all, o.Height)}, false, give_of(o, all)};
}

block flat_block_of(const form& f, const screen_object& o)
{
    if (o.flat.Height == 0) return block_of(f, o);
    return {&o, {o.flat.Width, o.flat.Height}, true, give_of(o, inside(f, &o))};
}

bool is_rigid(const column& c)
{
    return c.give < 0.5 * c.size.height();
}

// A strip with a rigid column counts as higher than it is.
static double cost_of(const strip& s)
{
    constexpr double of_rigid_column = 1.2;
    return s.size.height() * (std::ranges::any_of(s.columns, is_rigid) ? of_rigid_column : 1);
}

strip make_strip(std::span<const block> blocks, std::size_t columns)
{
    if (columns == 0 || blocks.size() < columns) return {};
    std::vector<bool> first(blocks.size());
    std::fill_n(first.begin(), columns, true);
    strip best;
    do {
        strip s = strip_of(blocks, first);
        if (best.empty() || cost_of(s) < cost_of(best)) best = std::move(s);
    } while (std::prev_permutation(first.begin() + 1, first.end()));
    return best;
}

void fill(strip& s, const QRectF& at)
{
    const double gaps = gap * static_cast<double>(s.columns.size() - 1);
    const double wider = (at.width() - gaps) / (s.size.width() - gaps);
    double left = at.left();
    for (column& c : s.columns) {
        const double width = c.size.width() * wider;
        fill_column(c, {left, at.top(), width, at.height()});
        left += width + gap;
    }
}

void place_block(arrangement& a, const form& f, const block& b, const QPointF& parent_corner)
{
    const screen_object& o = *b.object;
    const double across = b.at.width() / b.size.width(), down = b.at.height() / b.size.height();
    if (o.kind == object_kind::image) {
        a.places[&o] = centred(b.size * std::min(across, down), b.at).translated(-parent_corner);
        return;
    }
    QRectF at = b.at;
    if (b.flat && o.kind == object_kind::label) at.setTop(at.bottom() - std::min(at.height(), o.Height));
    a.places[&o] = at.translated(-parent_corner);
    if (o.kind != object_kind::frame) return;
    const double growth = std::clamp(std::min(across, down), 1.0, largest_growth);
    a.enlarged[&o] = {.factor = growth};
    const double title = o.Caption.empty() ? 0 : frame_title;
    const spread s{across / growth, (b.at.height() / growth - title) / (b.size.height() - title), title};
    const places all = places_in(f, b);
    for (const auto& [child, at] : all) {
        a.places[child] = spread_place(s, all, *child, at);
        if (child->kind == object_kind::label && child->size == text_size::large)
            a.enlarged[child] = {.factor = std::clamp(s.down, 1.0, largest_readout)};
    }
}

void spread_across(arrangement& a, const form& f, double wider)
{
    const spread s{wider, 1, 0};
    const auto spread_inside = [&](const screen_object* parent) {
        places all;
        for (const screen_object* o : inside(f, parent))
            all.emplace_back(o, QRectF(o->Left, o->Top, o->Width, o->Height));
        for (const auto& [o, at] : all) a.places[o] = spread_place(s, all, *o, at);
    };
    spread_inside(nullptr);
    for (const screen_object* o : f.objects)
        if (o->kind == object_kind::frame) spread_inside(o);
}

}   // namespace vorn

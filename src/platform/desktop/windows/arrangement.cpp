#include "platform/desktop/windows/arrangement.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "platform/desktop/windows/strips.h"

namespace vorn {

namespace {

// Lengths are in twips of the form, before it is scaled.
constexpr double border = 75;                // width of the border around the sight
constexpr double longest_crew_line = 7700;   // room for the longest text, also in a wider typeface
constexpr std::size_t most_columns = 4;

using object_list = std::vector<const screen_object*>;

// The visible docked objects of a form.
struct docked_objects {
    const screen_object* sight = nullptr;
    const screen_object* panel = nullptr;
    object_list beside;          // sorted by rank; includes the frames in the panel
    object_list above, below;    // the lines above and below the sight
    double head = 0, foot = 0;   // heights of these lines
};

double height_of(const object_list& line)
{
    return line.empty() ? 0 : (*std::ranges::max_element(line, {}, &screen_object::Height))->Height;
}

docked_objects docked_of(const form& f)
{
    docked_objects d;
    for (const screen_object* o : f.objects) {
        if (!o->Visible) continue;
        if (o->docked == dock::sight) d.sight = o;
        if (o->docked == dock::panel) d.panel = o;
        if (o->docked == dock::above) d.above.push_back(o);
        if (o->docked == dock::below) d.below.push_back(o);
        if (o->docked == dock::beside || (o->parent != nullptr && o->parent->docked == dock::panel))
            d.beside.push_back(o);
    }
    // When the crew line is hidden, the title joins the panels and has no line of its own.
    if (d.above.size() == 1) d.beside.push_back(std::exchange(d.above, {}).front());
    std::ranges::stable_sort(d.beside, {}, &screen_object::rank);
    d.head = height_of(d.above);
    d.foot = height_of(d.below);
    return d;
}

// One way to arrange the objects at one scale.
struct plan {
    double scale = 1;
    const strip* left = nullptr;    // strip left of the sight, over the whole height
    const strip* under = nullptr;   // strip below the sight
    double head = 0;
    QRectF sight = {};
    QRectF left_at = {}, under_at = {};
    double score = -1e9;
};

// The two strips of a plan. Together they hold all blocks.
struct strips {
    strip left, under;
};

std::vector<block> blocks_of(const form& f, const object_list& all, unsigned chosen, bool flat)
{
    std::vector<block> blocks;
    for (std::size_t n = 0; n < all.size(); ++n)
        if ((chosen >> n & 1) != 0) blocks.push_back(flat ? flat_block_of(f, *all[n]) : block_of(f, *all[n]));
    return blocks;
}

std::vector<strips> possible_strips(const form& f, const docked_objects& d)
{
    std::vector<strips> found;
    const unsigned all = (1U << d.beside.size()) - 1;
    for (unsigned chosen = 0; chosen <= all; ++chosen) {
        const std::vector<block> left = blocks_of(f, d.beside, all & ~chosen, false);
        std::vector<strip> lefts, unders;
        if (left.empty()) lefts.emplace_back();
        for (std::size_t n = 1; n <= std::min(most_columns, left.size()); ++n)
            lefts.push_back(make_strip(left, n));
        const std::vector<block> row = blocks_of(f, d.beside, chosen, true);
        unders.push_back(make_strip(row, row.size()));
        if (left.empty())
            for (std::size_t n = 1; n <= std::min(most_columns, row.size()); ++n)
                unders.push_back(make_strip(blocks_of(f, d.beside, chosen, false), n));
        for (const strip& l : lefts)
            for (const strip& u : unders) found.push_back({l, u});
    }
    return found;
}

// How far the columns are from their designed shape, and how far they are enlarged beyond `good_growth`.
// Pictures can't be stretched, so columns of them count more.
double distortion(const strip& s, const QRectF& at)
{
    constexpr double good_growth = 2, of_pictures = 3;
    double sum = 0;
    for (const column& c : s.columns) {
        const double across = at.width() / s.size.width(), down = at.height() / c.size.height();
        const double wrong =
            std::abs(std::log(across / down)) + std::max(0.0, std::log(std::min(across, down) / good_growth));
        const double weight = is_rigid(c) ? of_pictures : 1;
        sum += c.size.width() / s.size.width() * weight * (wrong + 2 * wrong * wrong);
    }
    return sum;
}

// A large sight counts most, then large panels, then panels near their designed shape. Unused area lowers
// the score.
double score_of(const plan& p, const QSizeF& room, double larger)
{
    const double area = room.width() * room.height();
    const auto part = [&](const QRectF& r) { return r.width() * r.height() / area; };
    const double used = part(p.sight) + part(p.left_at) + part(p.under_at);
    return std::log(part(p.sight)) + 0.3 * std::log(larger) -
           0.15 * (part(p.left_at) * distortion(*p.left, p.left_at) +
                   part(p.under_at) * distortion(*p.under, p.under_at)) -
           (1 - used);
}

plan make_plan(const docked_objects& d, const strips& s, const QSizeF& window, double scale, double larger)
{
    plan p{.scale = scale * larger, .left = &s.left, .under = &s.under};
    const QSizeF room = window / p.scale;
    // The panel's caption has no line of its own when all blocks are in one flat row.
    const bool flat = s.left.empty() && !s.under.empty() && s.under.columns.front().blocks.front().flat;
    const double caption = flat ? 0 : frame_title;
    const double width = s.left.empty() ? 0 : s.left.size.width() + gap;
    double height = s.under.empty() ? 0 : s.under.size.height() + gap + (s.left.empty() ? caption : 0);
    const auto too_large = [&](const QSizeF& size, const QSizeF& space) {
        return size.width() > space.width() + 0.5 || size.height() > space.height() + 0.5;
    };
    if (too_large(s.left.size, {room.width(), room.height() - caption - gap})) return p;
    const double beside = room.width() - 2 * gap - width;
    if (too_large(s.under.size, {beside, room.height()})) return p;
    p.head = d.head;
    if (d.above.size() > 1 && beside < longest_crew_line + gap + d.above.front()->Width) p.head *= 2;
    if (d.head > 0 && beside < longest_crew_line) return p;
    const QSizeF free(beside - 2 * border, room.height() - 2 * gap - p.head - d.foot - height - 2 * border);
    if (free.isEmpty()) return p;
    const QSizeF model(d.sight->Width, d.sight->Height);
    const QSizeF size = model.scaled(free, Qt::KeepAspectRatio);
    // The line of objects below the sight would be too narrow.
    if (!d.below.empty() && size.width() < model.width()) return p;
    const QSizeF spare = free - size;
    const double left =
        s.left.empty() ? gap + border + spare.width() / 2 : room.width() - gap - border - size.width();
    const double top = gap + p.head + border + (s.under.empty() ? spare.height() / 2 : 0);
    p.sight = QRectF(QPointF(left, top), size);
    if (!s.left.empty()) p.left_at = {gap, caption, left - border - 2 * gap, room.height() - caption - gap};
    const double under_left = s.left.empty() ? gap : left - border;
    const double under_top = p.sight.bottom() + border + d.foot + gap + (s.left.empty() ? caption : 0);
    if (!s.under.empty())
        p.under_at = {under_left, under_top, room.width() - gap - under_left,
                      room.height() - gap - under_top};
    p.score = score_of(p, room, larger);
    return p;
}

plan best_plan(const docked_objects& d, const std::vector<strips>& possible, const QSizeF& window,
               double scale)
{
    plan best;
    for (int percent = 100; percent <= 300; percent += 5)
        for (const strips& s : possible) {
            plan p = make_plan(d, s, window, scale, percent / 100.0);
            if (p.score > best.score) best = p;
        }
    return best;
}

// Places the title and the crew line above the sight. The title ends at the right edge of the sight, above
// the crew line if that needs the whole width.
void place_above(arrangement& a, const docked_objects& d, const plan& p)
{
    const QRectF line(p.sight.left(), p.sight.top() - border - p.head, p.sight.width(), p.head);
    const bool two_lines = p.head > d.head;
    for (const screen_object* o : d.above) {
        const bool title = o->Alignment == alignment::right;
        const double left = title ? line.right() - o->Width : line.left();
        const double right = title || two_lines ? line.right() : line.right() - d.above.front()->Width - gap;
        const double top = title ? line.top() : line.bottom() - o->Height;
        a.places[o] = {left, top, right - left, o->Height};
    }
}

// Places the sight and the line below it.
void place_sight(arrangement& a, const object_list& below, const screen_object& sight, const QRectF& at)
{
    const double growth = at.width() / sight.Width;
    a.enlarged[&sight] = {growth, at.left() - growth * sight.Left, at.top() - growth * sight.Top};
    for (const screen_object* o : below)
        a.places[o] = {at.left() + (o->Left - sight.Left) * growth, at.bottom() + border, o->Width,
                       o->Height};
}

// The panel surrounds the sight if there are blocks left of it.
void place_strips(arrangement& a, const form& f, const docked_objects& d, const plan& p, const QSizeF& room)
{
    QRectF panel;
    if (!p.left->empty())
        panel = QRectF(QPointF(0, 0), room);
    else if (!p.under->empty()) {
        const double top = p.sight.bottom() + border + d.foot;
        panel = QRectF(0, top, room.width(), room.height() - top);
    }
    bool frames = false;
    strip left = *p.left, under = *p.under;
    fill(left, p.left_at);
    fill(under, p.under_at);
    for (const strip* s : {&left, &under})
        for (const column& c : s->columns)
            for (const block& b : c.blocks) {
                const bool in_panel = b.object->parent == d.panel && d.panel != nullptr;
                place_block(a, f, b, in_panel ? panel.topLeft() : QPointF());
                frames |= in_panel;
            }
    if (d.panel != nullptr) a.places[d.panel] = frames ? panel : QRectF();
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
    constexpr double wider = 150;    // twips; a smaller difference doesn't change the layout
    constexpr double widest = 1.5;   // largest layout.width when the objects are spread, in form widths
    const bool wide = room.width() > form_width + wider;
    wide_layout layout = wide && f.wide ? f.wide(room.width()) : wide_layout{};
    if (wide && f.spreads) {
        layout.width = std::min(room.width(), widest * form_width);
        spread_across(a, f, layout.width / form_width);
    }
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
    const docked_objects d = docked_of(f);
    if (d.sight == nullptr) {
        arrange_without_sight(a, f, twips / a.scale);
        return a;
    }
    const std::vector<strips> possible = possible_strips(f, d);
    const plan p = best_plan(d, possible, twips, a.scale);
    if (p.left == nullptr) return a;
    a.scale = p.scale;
    place_sight(a, d.below, *d.sight, p.sight);
    place_strips(a, f, d, p, twips / p.scale);
    place_above(a, d, p);
    return a;
}

bool affects_arrangement(const screen_object& o)
{
    if (o.kind == object_kind::frame && o.owner->wide) return true;
    if (o.docked != dock::none || (o.parent != nullptr && o.parent->docked == dock::panel)) return true;
    return o.kind == object_kind::button && o.parent != nullptr && affects_arrangement(*o.parent);
}

}   // namespace vorn

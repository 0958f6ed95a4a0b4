// Functions for the layout of a screen, in twips. Most return the design values of one object: its fields at
// each load of the screen.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "platform/objects.h"

namespace vorn {

inline object_fields placed(object_kind kind, area at, std::string caption = {}, std::string tip = {})
{
    object_fields f;
    static_cast<area&>(f) = at;
    f.kind = kind;
    f.Caption = std::move(caption);
    f.ToolTipText = std::move(tip);
    return f;
}

inline object_fields frame(area at, std::string caption = {}, std::string tip = {})
{
    return placed(object_kind::frame, at, std::move(caption), std::move(tip));
}

inline object_fields button(area at, std::string caption, std::string tip = {})
{
    return placed(object_kind::button, at, std::move(caption), std::move(tip));
}

inline object_fields option(area at, std::string caption, bool selected = false)
{
    object_fields f = placed(object_kind::option, at, std::move(caption));
    f.Value = selected ? 1 : 0;
    return f;
}

inline object_fields slider(area at, int min, int max, int position, int page = 1)
{
    object_fields f = placed(object_kind::slider, at);
    f.Min = min;
    f.Max = max;
    f.Value = position;
    f.LargeChange = page;
    return f;
}

inline object_fields textbox(area at, std::string text = {})
{
    object_fields f = placed(object_kind::textbox, at);
    f.Text = std::move(text);
    return f;
}

// An image with the built-in drawing ":name", or without a picture.
inline object_fields image(area at, std::string drawing = {})
{
    object_fields f = placed(object_kind::image, at);
    f.Picture.source = std::move(drawing);
    return f;
}

inline object_fields shape(area at, shape_kind kind, colour fore, colour back = colour::ground)
{
    object_fields f = placed(object_kind::shape, at);
    f.Shape = kind;
    f.ForeColor = fore;
    f.BackColor = back;
    return f;
}

inline object_fields label(area at, std::string caption, colour fore = colour::text,
                           text_size size = text_size::normal, alignment align = alignment::left)
{
    object_fields f = placed(object_kind::label, at, std::move(caption));
    f.ForeColor = fore;
    f.size = size;
    f.Alignment = align;
    return f;
}

// Adds objects to a frame of a screen, or to the screen itself.
template <class screen>
struct panel {
    screen& s;
    screen_object* frame = nullptr;   // null: the screen

    void add(screen_object& o, object_fields design) const
    {
        vorn::add(s.window, o, std::move(design), frame);
    }
    // Adds a label or drawing that never changes. The screen's list `captions` contains it.
    screen_object& caption(object_fields design) const
    {
        screen_object& o = s.captions.emplace_back();
        add(o, std::move(design));
        return o;
    }
};

// Adds a frame to a screen or to another frame. Returns the panel to fill.
template <class screen>
panel<screen> add_frame(screen& s, screen_object& o, object_fields design, screen_object* parent = nullptr)
{
    add(s.window, o, std::move(design), parent);
    return {s, &o};
}

// One button of a row.
struct button_row {
    screen_object& o;
    const char* caption;
    const char* tip;
};
// Adds a row of buttons of equal size. The first is at `first`, each further one `step` twips right of the
// one before it.
inline void put_buttons(form& f, area first, double step, std::initializer_list<button_row> row)
{
    for (const button_row& r : row) {
        add(f, r.o, button(first, r.caption, r.tip));
        first.Left += step;
    }
}

// The functions from here to `bounded` return the design values with one field changed.
inline object_fields named(object_fields f, std::string name)
{
    f.AccessibleName = std::move(name);
    return f;
}

inline object_fields with_tip(object_fields f, std::string tip)
{
    f.ToolTipText = std::move(tip);
    return f;
}

inline object_fields hidden(object_fields f)
{
    f.Visible = false;
    return f;
}

inline object_fields disabled(object_fields f)
{
    f.Enabled = false;
    return f;
}

inline object_fields bold(object_fields f)
{
    f.bold = true;
    return f;
}

inline object_fields with_background(object_fields f, colour back)
{
    f.BackColor = back;
    return f;
}

// An object that is shown at the edge of `bounds` when it is outside.
inline object_fields bounded(object_fields f, area bounds)
{
    f.Within = bounds;
    return f;
}

// A label that shows a current value.
inline object_fields readout(area at, std::string value = {}, text_size size = text_size::normal,
                             alignment align = alignment::left)
{
    return bold(label(at, std::move(value), colour::live, size, align));
}

}   // namespace vorn

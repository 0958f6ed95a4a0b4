#include "platform/objects.h"

#include <algorithm>

namespace vorn {

void start(timer& t)
{
    if (t.Enabled) return;
    t.Enabled = true;
    t.fresh = true;
}

void stop(timer& t)
{
    t.Enabled = false;
}

void add(form& f, screen_object& o, screen_object* parent)
{
    o.parent = parent;
    o.owner = &f;
    f.objects.push_back(&o);
}

void add(form& f, screen_object& o, object_fields design, screen_object* parent)
{
    static_cast<object_fields&>(o) = design;
    o.design = std::move(design);
    add(f, o, parent);
}

void add(form& f, timer& t, int interval, std::function<void()> tick)
{
    t.Interval = interval;
    t.tick = std::move(tick);
    f.timers.push_back(&t);
}

static void run(const std::function<void()>& action)
{
    if (action) action();
}

void select_option(screen_object& option)
{
    if (option.Value != 0) return;
    for (screen_object* o : option.owner->objects)
        if (o->kind == object_kind::option && o->parent == option.parent) o->Value = 0;
    option.Value = 1;
    run(option.Click);
}

void set_slider(screen_object& slider, int position)
{
    const int bounded = std::clamp(position, slider.Min, slider.Max);
    if (slider.Value == bounded) return;
    slider.Value = bounded;
    run(slider.Change);
}

void set_text(screen_object& textbox, const std::string& text)
{
    if (textbox.Text == text) return;
    textbox.Text = text;
    run(textbox.Change);
}

bool takes_input(const screen_object& object)
{
    if (object.owner == nullptr || object.owner->state != form_state::shown) return false;
    for (const screen_object* o = &object; o != nullptr; o = o->parent)
        if (!o->Visible || !o->Enabled) return false;
    return true;
}

static bool panel_hidden(const screen_object& object)
{
    for (const screen_object* o = object.parent; o != nullptr; o = o->parent)
        if (!o->Visible) return true;
    return false;
}

screen_object* button_of_key(const form& f, int code, bool alt)
{
    if (f.state != form_state::shown) return nullptr;
    for (const panel_key& k : f.panel_keys)
        if (k.code == code && k.alt == alt && k.button->Visible && k.button->Enabled &&
            panel_hidden(*k.button))
            return k.button;
    return nullptr;
}

void user_click(screen_object& object)
{
    if (!takes_input(object)) return;
    if (object.kind == object_kind::option) return select_option(object);
    if (object.kind == object_kind::checkbox) object.Value = 1 - object.Value;
    run(object.Click);
}

void user_click_at(screen_object& object, double x, double y)
{
    if (takes_input(object) && object.ClickAt) object.ClickAt(x, y);
}

void user_slide(screen_object& slider, int position)
{
    if (takes_input(slider)) set_slider(slider, position);
}

void user_types(screen_object& textbox, const std::string& text)
{
    if (takes_input(textbox) && !textbox.ReadOnly) set_text(textbox, text);
}

}   // namespace vorn

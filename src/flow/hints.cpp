#include "flow/hints.h"

#include <cstring>

namespace vorn {

namespace {

constexpr double beside = 800;   // twips from a button's left edge to its hint
constexpr int rest_ticks = 3;    // a hint comes up at the tick after so many
constexpr double letter = 80;    // twips that a letter of a hint takes, with something to spare
constexpr int interval = 400;    // milliseconds

void show_hint_later(const hint_panel& p, const screen_object& button, const char* text)
{
    p.label.Caption = text;
    p.label.Left = button.Left + beside;
    p.label.Top = button.Top + p.below;
    p.label.Width = letter * static_cast<double>(std::strlen(text)) + 2 * letter;
    start(p.clock);
}

void timhelp_tick(const hint_panel& p)
{
    p.ticks += 1;
    if (p.ticks <= rest_ticks) return;
    p.label.Visible = true;
    p.ticks = rest_ticks;   // the next button's hint comes at once
}

}   // namespace

void lay_out_hints(form& f, screen_object& bar, const rectangle& at, const char* words, screen_object& hint)
{
    add(f, bar, label(at, words, colour::highlight, text_size::normal, alignment::centre));
    object_fields look = label({0, 0, 1200, 300}, "", colour::text, text_size::small, alignment::centre);
    look.BackColor = colour::black;
    add(f, hint, hidden(std::move(look)));
}

void end_rest(screen_object& label, timer& clock, int& ticks)
{
    ticks = 0;
    stop(clock);
    label.Visible = false;
}

void make_hints(const hint_panel& p, std::initializer_list<hint> frames, std::initializer_list<hint> buttons)
{
    add(p.window, p.clock, interval, [p] { timhelp_tick(p); });
    for (const hint& h : frames) h.over->MouseMove = [p, text = h.text] { p.bar.Caption = text; };
    for (const hint& h : buttons) {
        h.over->MouseMove = [p, h] { show_hint_later(p, *h.over, h.text); };
        h.over->Click = [p, click = h.over->Click] {   // or it would come up behind the box that asks
            end_rest(p.label, p.clock, p.ticks);
            if (click) click();
        };
    }
    p.window.MouseMove = [p] {
        p.bar.Caption = p.bare_text;
        end_rest(p.label, p.clock, p.ticks);
    };
}

void end_hints_over(const hint_panel& p, screen_object& o)
{
    o.MouseMove = [p, told = o.MouseMove] {
        if (told) told();
        end_rest(p.label, p.clock, p.ticks);
    };
}

}   // namespace vorn

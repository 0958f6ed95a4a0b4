#include "flow/hints.h"

namespace vorn {

namespace {

constexpr double beside = 800;   // twips from the left edge of a button to its hint
constexpr double letter = 80;    // twips: room for one letter of a hint
constexpr int rest_ticks = 3;    // ticks before the one that shows the hint
constexpr int interval = 400;    // milliseconds

void begin_hint(const hint_panel& p, const hint& h)
{
    p.label.Caption = h.text;
    p.label.Left = h.over->Left + beside;
    p.label.Top = h.over->Top + p.below;
    p.label.Width = letter * (static_cast<double>(p.label.Caption.size()) + 2);
    start(p.clock);
}

// Once visible, the label stays until end_hint. When the cursor moves to another button, the label shows that
// button's hint at once.
void timhelp_tick(const hint_panel& p)
{
    p.ticks += 1;
    if (p.ticks > rest_ticks) p.label.Visible = true;
}

}   // namespace

void end_hint(const hint_panel& p)
{
    p.ticks = 0;
    stop(p.clock);
    p.label.Visible = false;
}

void end_hint_over(const hint_panel& p, std::initializer_list<screen_object*> objects)
{
    for (screen_object* o : objects)
        o->MouseMove = [p, move = o->MouseMove] {
            if (move) move();
            end_hint(p);
        };
}

void make_hints(const hint_panel& p, std::initializer_list<hint> frames, std::initializer_list<hint> buttons)
{
    add(p.window, p.clock, interval, [p] { timhelp_tick(p); });
    for (const hint& h : frames) h.over->MouseMove = [p, text = h.text] { p.bar.Caption = text; };
    for (const hint& h : buttons) {
        h.over->MouseMove = [p, h] { begin_hint(p, h); };
        // Ends the hint first: otherwise it would appear behind a box that the click opens.
        h.over->Click = [p, click = h.over->Click] {
            end_hint(p);
            if (click) click();
        };
    }
    p.window.MouseMove = [p] {
        p.bar.Caption = p.bare_text;
        end_hint(p);
    };
}

}   // namespace vorn

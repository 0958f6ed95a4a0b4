#include "platform/desktop/drawing/look.h"

#include <QPainter>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "state/numbers.h"

namespace vorn {

namespace {

struct role_shades {
    QRgb text, back;
};

// Indexed by `colour`. Some colours that are readable as text are too light as a background for white
// figures; their background shade is darker.
constexpr table<role_shades, 12> shades{{{
    {0xff272a21, 0xff272a21},   // ground
    {0xffe9e4d3, 0xffe9e4d3},   // text
    {0xffffcf70, 0xffffcf70},   // highlight
    {0xffaeab97, 0xff5b5e4d},   // dim
    {0xfff4b340, 0xffb9801c},   // live
    {0xffff5b4a, 0xffe23b2d},   // red
    {0xffc4574a, 0xff86271f},   // darkred
    {0xffffffff, 0xffffffff},   // white
    {0xff0b0c09, 0xff0b0c09},   // black
    {0xffe2f08c, 0xff2b3a1a},   // sight
    {0xffffa53c, 0xffffa53c},   // tracer
    {0xfff2f2f2, 0xfff2f2f2},   // hottracer
}}};

// At scale 1; indexed by `text_size`: small, normal, large.
constexpr table<int, 3> text_pixels{{11, 13, 20}};

constexpr const char* type_face = "Liberation Sans";

bool has(const QStyleOption& o, QStyle::StateFlag flag)
{
    return o.state.testFlag(flag);
}

// The rectangle inset by half a line, so that an outline covers whole pixels.
QRectF inside(const QRect& r, double line)
{
    return QRectF(r).adjusted(line / 2, line / 2, -line / 2, -line / 2);
}

QColor edge_of(const QStyleOption& o)
{
    const QColor edge(control_colour::edge);
    if (!has(o, QStyle::State_Enabled)) return edge;
    if (has(o, QStyle::State_HasFocus)) return shade(colour::live);
    return has(o, QStyle::State_MouseOver) ? mixed(edge, shade(colour::live), 0.6) : edge.lighter(125);
}

QColor button_face(const QStyleOption& o)
{
    const QColor face(control_colour::face);
    if (!has(o, QStyle::State_Enabled)) return mixed(face, shade(colour::ground), 0.65);
    if (has(o, QStyle::State_Sunken)) return QColor(control_colour::field);
    return has(o, QStyle::State_MouseOver) ? face.lighter(122) : face;
}

void draw_button_face(QPainter& p, const QStyleOption& o, double scale)
{
    const QColor face = button_face(o);
    const bool raised = has(o, QStyle::State_Enabled) && !has(o, QStyle::State_Sunken);
    const double line = std::max(1.0, scale);
    const QRectF r = inside(o.rect, line);
    QLinearGradient fill(r.topLeft(), r.bottomLeft());
    fill.setColorAt(0, raised ? face.lighter(116) : face);
    fill.setColorAt(1, raised ? face.darker(112) : face);
    draw_rounded(p, o.rect, fill, edge_of(o), 3 * scale, scale);
    if (!has(o, QStyle::State_HasFocus) || !has(o, QStyle::State_Enabled)) return;
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(mixed(face, shade(colour::live), 0.4), line));
    p.drawRoundedRect(r.adjusted(2 * line, 2 * line, -2 * line, -2 * line), 2 * scale, 2 * scale);
}

// The colour of a disabled object: dimmer, yet readable.
QColor disabled_shade(const QColor& c)
{
    return mixed(c, shade(colour::ground), 0.48);
}

QColor mark_shade(const QStyleOption& o)
{
    const QColor live = shade(colour::live);
    return has(o, QStyle::State_Enabled) ? live : disabled_shade(live);
}

void draw_option_mark(QPainter& p, const QStyleOption& o, double scale)
{
    draw_rounded(p, o.rect, QColor(control_colour::field), edge_of(o), o.rect.width() / 2.0, scale);
    if (!has(o, QStyle::State_On)) return;
    const double inset = o.rect.width() * 0.27;
    p.setPen(Qt::NoPen);
    p.setBrush(mark_shade(o));
    p.drawEllipse(QRectF(o.rect).adjusted(inset, inset, -inset, -inset));
}

void draw_check_mark(QPainter& p, const QStyleOption& o, double scale)
{
    draw_rounded(p, o.rect, QColor(control_colour::field), edge_of(o), 2.5 * scale, scale);
    if (!has(o, QStyle::State_On)) return;
    const QRectF r(o.rect);
    const auto at = [&](double x, double y) {
        return QPointF(r.x() + x * r.width(), r.y() + y * r.height());
    };
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(mark_shade(o), r.width() * 0.15, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolyline(QPolygonF{at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.29)});
}

void draw_focus(QPainter& p, const QStyleOption& o, double scale)
{
    const QColor edge = mixed(shade(colour::ground), shade(colour::live), 0.6);
    draw_rounded(p, o.rect, Qt::NoBrush, edge, 2 * scale, scale);
}

void draw_field(QPainter& p, const QStyleOption& o, double scale)
{
    const QColor field(control_colour::field), disabled = mixed(field, QColor(control_colour::panel), 0.6);
    draw_rounded(p, o.rect, has(o, QStyle::State_Enabled) ? field : disabled, edge_of(o), 2 * scale, scale);
}

void draw_frame(QPainter& p, const QStyleOptionGroupBox& o, double scale)
{
    draw_rounded(p, o.rect, o.palette.window(), QColor(control_colour::edge), 4 * scale, scale);
    const QRectF title = QRectF(o.rect).adjusted(8 * scale, 2 * scale, -4 * scale, 0);
    p.setPen(o.palette.color(QPalette::WindowText));
    p.drawText(title, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine | Qt::TextShowMnemonic,
               o.text.trimmed());
}

void draw_slider(QPainter& p, const QStyleOptionSlider& o, const QRect& knob, double scale)
{
    const double middle = o.rect.center().y() + 0.5;
    const QRectF groove(o.rect.left(), middle - 2.5 * scale, o.rect.width(), 5 * scale);
    QRectF passed = groove;
    passed.setRight(knob.center().x());
    p.setPen(QPen(QColor(control_colour::edge), std::max(1.0, scale)));
    p.setBrush(QColor(control_colour::field));
    p.drawRoundedRect(groove, 2.5 * scale, 2.5 * scale);
    p.setPen(Qt::NoPen);
    p.setBrush(mixed(QColor(control_colour::field), mark_shade(o), 0.75));
    p.drawRoundedRect(passed, 2.5 * scale, 2.5 * scale);
    QStyleOption face = o;
    face.rect = knob;
    if (o.activeSubControls != QStyle::SC_SliderHandle) face.state &= ~QStyle::State_Sunken;
    draw_button_face(p, face, scale);
}

}   // namespace

QColor shade(colour role)
{
    return QColor(shades[static_cast<int>(role)].text);
}

QColor back_shade(colour role)
{
    return QColor(shades[static_cast<int>(role)].back);
}

QColor mixed(const QColor& a, const QColor& b, double part_of_b)
{
    const auto mix = [&](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * part_of_b)); };
    return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

void draw_rounded(QPainter& p, const QRect& at, const QBrush& fill, const QColor& edge, double radius,
                  double scale)
{
    const double line = std::max(1.0, scale);
    p.setBrush(fill);
    p.setPen(QPen(edge, line));
    p.drawRoundedRect(inside(at, line), radius, radius);
}

double line_height(text_size size)
{
    return text_pixels[static_cast<int>(size)] * 1.17;
}

QFont text_font(text_size size, bool bold, double scale)
{
    QFont font(type_face);
    // Mostly rounded down, so that a text that fits at scale 1 usually fits at other scales too.
    const double pixels = text_pixels[static_cast<int>(size)] * scale;
    font.setPixelSize(std::max(5, static_cast<int>(pixels + 0.25)));
    font.setBold(bold);
    return font;
}

QFont narrowed(const QFont& font, QString caption, int width)
{
    constexpr double narrowest = 0.85;
    const double natural = QFontMetricsF(font).horizontalAdvance(caption.remove('&'));
    const double line = width - 2;   // Qt wraps a line that fills its width to the last pixel
    QFont fitting = font;
    if (natural > line && natural * narrowest <= line)
        fitting.setStretch(static_cast<int>(100 * line / natural));
    return fitting;
}

void prepare_fonts()
{
    QFont::insertSubstitutions(type_face, {"Arimo", "Arial", "Helvetica", "Nimbus Sans", "DejaVu Sans"});
    QFont::insertSubstitution("MS Sans Serif", type_face);
}

static void set_text_roles(QPalette& p, const QColor& c)
{
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        p.setColor(role, c);
        p.setColor(QPalette::Disabled, role, disabled_shade(c));
    }
}

QPalette form_palette()
{
    QPalette p(QColor(control_colour::face), shade(colour::ground));
    p.setColor(QPalette::Base, QColor(control_colour::field));
    p.setColor(QPalette::AlternateBase, QColor(control_colour::panel));
    p.setColor(QPalette::Highlight, mixed(shade(colour::ground), shade(colour::live), 0.55));
    p.setColor(QPalette::HighlightedText, shade(colour::white));
    p.setColor(QPalette::Link, shade(colour::live));
    p.setColor(QPalette::LinkVisited, shade(colour::highlight));
    p.setColor(QPalette::PlaceholderText, shade(colour::dim));
    set_text_roles(p, shade(colour::text));
    return p;
}

QPalette object_palette(colour fore, colour back)
{
    QPalette p = form_palette();
    set_text_roles(p, shade(fore));
    if (back != colour::ground) p.setColor(QPalette::Window, back_shade(back));
    return p;
}

QIcon window_icon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QString(":/icons/vorn-%1.png").arg(size), QSize(size, size));
    return icon;
}

form_style::form_style() : QProxyStyle("Fusion") {}

double form_style::scale_on(const QWidget* w) const
{
    return w == nullptr ? scale : scale_of(*w);
}

int form_style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    struct scaled_metric {
        PixelMetric metric;
        int pixels;   // at scale 1
    };
    constexpr scaled_metric metrics[] = {
        {PM_ExclusiveIndicatorWidth, 14}, {PM_ExclusiveIndicatorHeight, 14}, {PM_IndicatorWidth, 14},
        {PM_IndicatorHeight, 14},         {PM_RadioButtonLabelSpacing, 6},   {PM_CheckBoxLabelSpacing, 6},
        {PM_SliderThickness, 18},         {PM_SliderControlThickness, 18},   {PM_SliderLength, 11},
        {PM_DefaultFrameWidth, 3}};
    for (const scaled_metric& m : metrics)
        if (m.metric == metric) return std::max(1, qRound(m.pixels * scale_on(widget)));
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int form_style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const
{
    return hint == SH_EtchDisabledText ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
}

// The whole rectangle of an option or check box can be clicked, not only its indicator and text.
QRect form_style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    if (element == SE_RadioButtonClickRect || element == SE_CheckBoxClickRect) return option->rect;
    return QProxyStyle::subElementRect(element, option, widget);
}

// Qt calls this function for labels and for the captions of options and check boxes.
void form_style::drawItemText(QPainter* p, const QRect& at, int flags, const QPalette& palette, bool enabled,
                              const QString& text, QPalette::ColorRole role) const
{
    const QFont font = p->font();
    p->setFont(narrowed(font, text, at.width()));
    QProxyStyle::drawItemText(p, at, flags, palette, enabled, text, role);
    p->setFont(font);
}

void form_style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* p,
                               const QWidget* widget) const
{
    struct drawing {
        PrimitiveElement element;
        void (*draw)(QPainter&, const QStyleOption&, double scale);
    };
    constexpr drawing drawings[] = {{PE_PanelButtonCommand, draw_button_face},
                                    {PE_IndicatorRadioButton, draw_option_mark},
                                    {PE_IndicatorCheckBox, draw_check_mark},
                                    {PE_FrameFocusRect, draw_focus},
                                    {PE_PanelLineEdit, draw_field}};
    for (const drawing& d : drawings) {
        if (d.element != element) continue;
        p->save();
        p->setRenderHint(QPainter::Antialiasing);
        d.draw(*p, *option, scale_on(widget));
        return p->restore();
    }
    QProxyStyle::drawPrimitive(element, option, p, widget);
}

void form_style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* p,
                                    const QWidget* widget) const
{
    const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    p->save();
    p->setRenderHint(QPainter::Antialiasing);
    if (control == CC_GroupBox && box != nullptr)
        draw_frame(*p, *box, scale_on(widget));
    else if (control == CC_Slider && slider != nullptr)
        draw_slider(*p, *slider, subControlRect(control, option, SC_SliderHandle, widget), scale_on(widget));
    else
        QProxyStyle::drawComplexControl(control, option, p, widget);
    p->restore();
}

static constexpr const char* growth_property = "growth";

static double growth_of(const QWidget& w)
{
    const QVariant growth = w.property(growth_property);
    return growth.isValid() ? growth.toDouble() : 1;
}

bool set_growth(QWidget& w, double growth)
{
    if (growth_of(w) == growth) return false;
    w.setProperty(growth_property, growth);
    return true;
}

double scale_of(const QWidget& w)
{
    const auto* style = dynamic_cast<const form_style*>(w.style());
    return style == nullptr ? 1 : style->scale * growth_of(w);
}

}   // namespace vorn

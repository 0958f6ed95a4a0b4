#include "platform/desktop/windows/look.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/desktop/drawing/drawings.h"

namespace vorn {

namespace {

struct role_shades {
    QRgb text, back;
};

// In the order of the roles. A red that is readable as text is too pale to put white numbers on.
constexpr std::array<role_shades, 12> shades{{
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
}};

// In the order small, normal, large; pixels at the designed size.
constexpr std::array<int, 3> text_pixels{11, 13, 20};

constexpr const char* type_face = "Liberation Sans";

bool has(const QStyleOption& o, QStyle::StateFlag flag)
{
    return o.state.testFlag(flag);
}

// Half a line's width inside the rectangle, so that an outline comes out sharp.
QRectF inside(const QRect& r, double line)
{
    return QRectF(r).adjusted(line / 2, line / 2, -line / 2, -line / 2);
}

QColor outline(const QStyleOption& o)
{
    const QColor edge(furniture::edge);
    if (!has(o, QStyle::State_Enabled)) return edge;
    if (has(o, QStyle::State_HasFocus)) return shade(colour::live);
    return has(o, QStyle::State_MouseOver) ? mixed(edge, shade(colour::live), 0.6) : edge.lighter(125);
}

QColor button_face(const QStyleOption& o)
{
    const QColor face(furniture::face);
    if (!has(o, QStyle::State_Enabled)) return mixed(face, shade(colour::ground), 0.65);
    if (has(o, QStyle::State_Sunken)) return QColor(furniture::field);
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
    p.setBrush(fill);
    p.setPen(QPen(outline(o), line));
    p.drawRoundedRect(r, 3 * scale, 3 * scale);
    if (!has(o, QStyle::State_HasFocus) || !has(o, QStyle::State_Enabled)) return;
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(mixed(face, shade(colour::live), 0.4), line));
    p.drawRoundedRect(r.adjusted(2 * line, 2 * line, -2 * line, -2 * line), 2 * scale, 2 * scale);
}

QColor mark_shade(const QStyleOption& o)
{
    const QColor live = shade(colour::live);
    return has(o, QStyle::State_Enabled) ? live : disabled_shade(live);
}

void draw_indicator_well(QPainter& p, const QStyleOption& o, double radius, double scale)
{
    const double line = std::max(1.0, scale);
    p.setBrush(QColor(furniture::field));
    p.setPen(QPen(outline(o), line));
    p.drawRoundedRect(inside(o.rect, line), radius, radius);
}

void draw_option_mark(QPainter& p, const QStyleOption& o, double scale)
{
    draw_indicator_well(p, o, o.rect.width() / 2.0, scale);
    if (!has(o, QStyle::State_On)) return;
    const double inset = o.rect.width() * 0.27;
    p.setPen(Qt::NoPen);
    p.setBrush(mark_shade(o));
    p.drawEllipse(QRectF(o.rect).adjusted(inset, inset, -inset, -inset));
}

void draw_check_mark(QPainter& p, const QStyleOption& o, double scale)
{
    draw_indicator_well(p, o, 2.5 * scale, scale);
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
    const double line = std::max(1.0, scale);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(mixed(shade(colour::ground), shade(colour::live), 0.6), line));
    p.drawRoundedRect(inside(o.rect, line), 2 * scale, 2 * scale);
}

void draw_field(QPainter& p, const QStyleOption& o, double scale)
{
    const double line = std::max(1.0, scale);
    const QColor field(furniture::field);
    p.setBrush(has(o, QStyle::State_Enabled) ? field : mixed(field, QColor(furniture::panel), 0.6));
    p.setPen(QPen(outline(o), line));
    p.drawRoundedRect(inside(o.rect, line), 2 * scale, 2 * scale);
}

void draw_frame(QPainter& p, const QStyleOptionGroupBox& o, double scale)
{
    const double line = std::max(1.0, scale);
    p.setBrush(o.palette.window());
    p.setPen(QPen(QColor(furniture::edge), line));
    p.drawRoundedRect(inside(o.rect, line), 4 * scale, 4 * scale);
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
    p.setPen(QPen(QColor(furniture::edge), std::max(1.0, scale)));
    p.setBrush(QColor(furniture::field));
    p.drawRoundedRect(groove, 2.5 * scale, 2.5 * scale);
    p.setPen(Qt::NoPen);
    p.setBrush(mixed(QColor(furniture::field), mark_shade(o), 0.75));
    p.drawRoundedRect(passed, 2.5 * scale, 2.5 * scale);
    QStyleOption face = o;
    face.rect = knob;
    if (o.activeSubControls != QStyle::SC_SliderHandle) face.state &= ~QStyle::State_Sunken;
    draw_button_face(p, face, scale);
}

int scaled(double pixels, double scale)
{
    return std::max(1, static_cast<int>(std::lround(pixels * scale)));
}

}   // namespace

QColor shade(colour role)
{
    return QColor(shades.at(static_cast<std::size_t>(role)).text);
}

QColor back_shade(colour role)
{
    return QColor(shades.at(static_cast<std::size_t>(role)).back);
}

QColor mixed(const QColor& a, const QColor& b, double part_of_b)
{
    const auto mix = [&](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * part_of_b)); };
    return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

QColor disabled_shade(const QColor& c)
{
    return mixed(c, shade(colour::ground), 0.48);
}

double line_height(text_size size)
{
    return text_pixels.at(static_cast<std::size_t>(size)) * 1.17;
}

QFont text_font(text_size size, bool bold, double scale)
{
    QFont font(type_face);
    // Rounded down for the most part: a text that fits at one scale must not outgrow its place at another.
    const double pixels = text_pixels.at(static_cast<std::size_t>(size)) * scale;
    font.setPixelSize(std::max(5, static_cast<int>(pixels + 0.25)));
    font.setBold(bold);
    return font;
}

QFont narrowed(const QFont& font, QString caption, int room)
{
    constexpr double narrowest = 0.85;
    const double wide = QFontMetricsF(font).horizontalAdvance(caption.remove('&'));
    QFont fitting = font;
    const double line = room - 2;   // the toolkit breaks a line that fills its room to the last pixel
    if (wide > line && wide * narrowest <= line) fitting.setStretch(static_cast<int>(100 * line / wide));
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
    QPalette p(QColor(furniture::face), shade(colour::ground));
    p.setColor(QPalette::Base, QColor(furniture::field));
    p.setColor(QPalette::AlternateBase, QColor(furniture::panel));
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

int form_style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
            return scaled(14, scale);
        case PM_RadioButtonLabelSpacing:
        case PM_CheckBoxLabelSpacing:
            return scaled(6, scale);
        case PM_SliderThickness:
        case PM_SliderControlThickness:
            return scaled(18, scale);
        case PM_SliderLength:
            return scaled(11, scale);
        case PM_DefaultFrameWidth:
            return scaled(3, scale);
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
            return 0;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int form_style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const
{
    if (hint == SH_EtchDisabledText || hint == SH_DitherDisabledText) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

// An option is chosen wherever it is clicked, not on its text alone.
QRect form_style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    if (element == SE_RadioButtonClickRect || element == SE_CheckBoxClickRect) return option->rect;
    return QProxyStyle::subElementRect(element, option, widget);
}

// The captions of options and check boxes.
void form_style::drawItemText(QPainter* p, const QRect& at, int flags, const QPalette& palette, bool enabled,
                              const QString& text, QPalette::ColorRole role) const
{
    const QFont font = p->font();
    p->setFont(narrowed(font, text, at.width()));
    QProxyStyle::drawItemText(p, at, flags, palette, enabled, text, role);
    p->setFont(font);
}

using primitive_drawing = void (*)(QPainter&, const QStyleOption&, double);

static primitive_drawing drawing_of(QStyle::PrimitiveElement element)
{
    switch (element) {
        case QStyle::PE_PanelButtonCommand:
            return draw_button_face;
        case QStyle::PE_IndicatorRadioButton:
            return draw_option_mark;
        case QStyle::PE_IndicatorCheckBox:
            return draw_check_mark;
        case QStyle::PE_FrameFocusRect:
            return draw_focus;
        case QStyle::PE_PanelLineEdit:
            return draw_field;
        default:
            return nullptr;
    }
}

void form_style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* p,
                               const QWidget* widget) const
{
    const primitive_drawing draw = drawing_of(element);
    if (draw == nullptr) return QProxyStyle::drawPrimitive(element, option, p, widget);
    p->save();
    p->setRenderHint(QPainter::Antialiasing);
    draw(*p, *option, scale);
    p->restore();
}

void form_style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* p,
                                    const QWidget* widget) const
{
    const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    p->save();
    p->setRenderHint(QPainter::Antialiasing);
    if (control == CC_GroupBox && box != nullptr)
        draw_frame(*p, *box, scale);
    else if (control == CC_Slider && slider != nullptr)
        draw_slider(*p, *slider, subControlRect(control, option, SC_SliderHandle, widget), scale);
    else
        QProxyStyle::drawComplexControl(control, option, p, widget);
    p->restore();
}

double scale_of(const QWidget& w)
{
    const auto* style = dynamic_cast<const form_style*>(w.style());
    return style == nullptr ? 1 : style->scale;
}

}   // namespace vorn

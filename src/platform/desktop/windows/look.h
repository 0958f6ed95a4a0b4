// The look of the screens: every shade and every size of text, and the style that draws buttons, options,
// sliders, text boxes and frames at the scale of their window. Boxes and dialogs keep the platform's look.
#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QProxyStyle>

#include "platform/objects.h"

namespace vorn {

// Shades of the furniture, which no screen object names.
namespace furniture {
inline constexpr QRgb panel = 0xff33372b;   // a frame
inline constexpr QRgb edge = 0xff4d5242;    // its border
inline constexpr QRgb field = 0xff1b1d16;   // where something is typed, chosen or slid
inline constexpr QRgb face = 0xff484d3d;    // a button
inline constexpr QRgb shadow = 0xff14150f;
}   // namespace furniture

QColor shade(colour role);        // as text or line
QColor back_shade(colour role);   // as what lies behind
// The same colour for something that can't be used at the moment: dimmer, yet readable.
QColor disabled_shade(const QColor&);
QColor mixed(const QColor& a, const QColor& b, double part_of_b);

// Pixels from one line of text to the next at the designed size.
double line_height(text_size);
// Font of a text size where `scale` pixels go to the designed one.
QFont text_font(text_size, bool bold, double scale);
// A caption that is only just too wide for its line is narrowed a little rather than broken in two or cut.
QFont narrowed(const QFont&, QString caption, int room);
// Names what to use where the type face isn't installed; once, before the first window.
void prepare_fonts();

QPalette form_palette();
// The palette for one object that has its own text and back colour.
QPalette object_palette(colour fore, colour back);
QIcon window_icon();

// One for each window, since each has its own scale.
class form_style final : public QProxyStyle {
public:
    form_style();

    int pixelMetric(PixelMetric, const QStyleOption*, const QWidget*) const override;
    int styleHint(StyleHint, const QStyleOption*, const QWidget*, QStyleHintReturn*) const override;
    void drawItemText(QPainter*, const QRect&, int flags, const QPalette&, bool enabled, const QString&,
                      QPalette::ColorRole) const override;
    QRect subElementRect(SubElement, const QStyleOption*, const QWidget*) const override;
    void drawPrimitive(PrimitiveElement, const QStyleOption*, QPainter*, const QWidget*) const override;
    void drawComplexControl(ComplexControl, const QStyleOptionComplex*, QPainter*,
                            const QWidget*) const override;

    double scale = 1;   // pixels to the designed one
};

// The scale of a widget of a form.
double scale_of(const QWidget&);

}   // namespace vorn

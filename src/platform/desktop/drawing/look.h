// The look of the screens: the colours for each role, the text sizes, and the style that draws controls
// and frames at any scale. Boxes and file dialogs have the look of the platform.
#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QProxyStyle>

#include "platform/objects.h"

namespace vorn {

// Colours of the controls; no screen object refers to them.
namespace control_colour {
inline constexpr QRgb panel = 0xff33372b;    // a frame
inline constexpr QRgb edge = 0xff4d5242;     // borders of frames and controls
inline constexpr QRgb field = 0xff1b1d16;    // text box, option, check box, slider groove, pressed button
inline constexpr QRgb face = 0xff484d3d;     // a button
inline constexpr QRgb shadow = 0xff14150f;   // the border around a sight
}   // namespace control_colour

QColor shade(colour role);        // as text or line
QColor back_shade(colour role);   // as background
QColor mixed(const QColor& a, const QColor& b, double part_of_b);

// Draws a rectangle with rounded corners. Its edge is a line of one pixel at scale 1, inside `at`.
void draw_rounded(QPainter&, const QRect& at, const QBrush& fill, const QColor& edge, double radius,
                  double scale);

// The distance between two lines of text in pixels, at scale 1.
double line_height(text_size);
// The font of a text size; scale 1 is the form at 1024 x 768.
QFont text_font(text_size, bool bold, double scale);
// The font, condensed by up to 15 % if that makes the caption fit into this many pixels.
QFont narrowed(const QFont&, QString caption, int width);
// Sets the substitutes for typefaces that are not installed. To be called once, before the first window.
void prepare_fonts();

QPalette form_palette();
// The palette of an object with its own text and background colour.
QPalette object_palette(colour fore, colour back);
QIcon window_icon();

// Each window has a style object, since each has its own scale.
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

    double scale = 1;   // 1 is the form at 1024 x 768

private:
    double scale_on(const QWidget*) const;
};

// Sets the growth of a widget, the factor by which it is enlarged. True if the growth has changed.
bool set_growth(QWidget&, double growth);
// The scale at which a widget is shown: the scale of its form times its growth.
double scale_of(const QWidget&);

}   // namespace vorn

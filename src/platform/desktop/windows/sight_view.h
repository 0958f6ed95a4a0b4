// The widget of a sight. It draws the objects of the model. It also animates strikes and burning targets: the
// model only says where they are.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/desktop/drawing/scrolled_picture.h"
#include "platform/desktop/windows/widgets.h"
#include "platform/machine.h"

namespace vorn {

class sight_view final : public QWidget {
public:
    sight_view(const shown_object& sight, QWidget* parent);

    void show_strike(const strike&);
    void clear_strikes();   // and fires
    // Repaints strikes and fires at most once per 30 ms, and when the last one has ended. False when there
    // are none.
    bool animate();
    // Sets where rounds in flight are drawn: 0 is their place before the last update, 1 their present place.
    void set_progress(double part);

    std::function<double()> now = [] { return 0.0; };   // seconds

protected:
    void paintEvent(QPaintEvent*) override;
    void showEvent(QShowEvent*) override;
    void hideEvent(QHideEvent*) override;

private:
    struct shown_strike {
        strike what;
        double since;
    };
    struct shown_fire {
        double lit;
        std::optional<double> dying;   // when the target was taken down; empty before
    };

    void paint_objects(QPainter&, const QRect& whole);
    void paint_tracer(QPainter&, const shown_object&);
    void paint_strikes(QPainter&, const QRect& whole);
    void find_fires(double time);
    void paint_burning(QPainter&, const object_fields&, const shown_fire&) const;
    QRect ground_rect(const object_fields&) const;
    const QImage* ground_image(const object_fields&, const QRect& whole) const;
    double scale() const;   // device pixels for each pixel of the form at 1024 x 768

    const shown_object& sight_;
    std::vector<shown_strike> strikes_;
    std::unordered_map<const shown_object*, shown_fire> fires_;
    scrolled_picture ground_;
    double progress_ = 1;
    double animated_ = 0;   // time of the last repaint by animate
    QTimer twin_wait_;      // repaints the sight until the twin of its picture has been read
};

}   // namespace vorn

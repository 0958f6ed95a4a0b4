// The window of a form. It arranges the form's objects for its own size.
#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

#include "platform/desktop/drawing/look.h"
#include "platform/desktop/windows/arrangement.h"
#include "platform/desktop/windows/widgets.h"

class QAbstractButton;

namespace vorn {

class desktop_machine;
class sight_edge;
class sight_view;

class form_window final : public QWidget {
public:
    form_window(form&, desktop_machine&);
    ~form_window() override;

    // Updates the widgets whose objects have changed.
    void sync();
    // Paints the pending updates immediately, without handling events.
    void paint_now();
    void toggle_full_screen();
    // The sight that contains this object; null if no sight of this form does.
    sight_view* sight_of(const screen_object& ground) const;
    void clear_strikes();
    // Animates strikes and fires in the sights: now, and by a timer until there are none.
    void animate();
    // See sight_view::set_progress.
    void set_progress(double part);
    // Gives this hidden window the geometry and state of another; `cascade` moves it a step down and right.
    void place_like(const form_window& before, bool cascade);
    void release_sliders();
    QWidget* widget(const screen_object&) const;
    double scale() const { return style_.scale; }

    form& model;

protected:
    bool event(QEvent*) override;
    bool eventFilter(QObject*, QEvent*) override;
    void closeEvent(QCloseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void showEvent(QShowEvent*) override;
    void moveEvent(QMoveEvent*) override;

private:
    QRect normal_place() const;
    void make_object(screen_object&);
    void connect_space(QAbstractButton&, screen_object&);
    void arrange_objects();
    void place_objects();
    QRectF shown_place(const screen_object&) const;
    double growth_of(const screen_object*) const;
    QPointF corner_of(const screen_object*) const;
    QRect place_of(const screen_object&) const;
    bool mouse_event(screen_object&, const QMouseEvent&);
    shown_object* shown(const screen_object*) const;

    desktop_machine& pc_;
    form_style style_;
    arrangement arrangement_;
    QSize fitted_;           // the window size for which arrangement_ was made
    bool painted_ = false;   // since the window was shown
    QRect normal_;           // the geometry when neither maximised nor full screen
    QTimer animation_;
    QTimer settled_;   // times out when the geometry hasn't changed for a while
    Qt::WindowStates before_full_screen_{};
    const screen_object* pressed_by_space_ = nullptr;
    std::vector<std::unique_ptr<shown_object>> objects_;
    std::vector<sight_view*> sights_;
    sight_edge* sight_edge_ = nullptr;   // around a sight that is in no frame
};

}   // namespace vorn

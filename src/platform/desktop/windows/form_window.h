// The window of one form: scales it as a whole, and shows its objects as they are.
#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

#include "platform/desktop/windows/look.h"
#include "platform/desktop/windows/widgets.h"

class QAbstractButton;

namespace vorn {

class desktop_machine;

class form_window final : public QWidget {
public:
    form_window(form&, desktop_machine&);
    ~form_window() override;

    // Draws what has changed since the last time.
    void sync();
    // Puts what has been drawn on the screen at once, without an event being handled.
    void paint_now();
    void toggle_full_screen();
    // Puts a window that isn't seen where the one before it is, in the same state.
    void take_place(const form_window& before, bool aside);
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
    void make_new_objects();
    void make_object(screen_object&);
    void hold_by_key(QAbstractButton&, screen_object&);
    void fit_scale();
    void place_objects();
    QRect place_of(const screen_object&) const;
    bool mouse_event(screen_object&, QEvent&);
    shown_object* shown(const screen_object*) const;

    desktop_machine& pc_;
    form_style style_;
    QPoint corner_;   // of the scaled form in the window
    QSize fitted_;    // the window size that the scale was made for
    bool seen_ = false;
    QRect normal_;                      // its place when it is neither maximised nor fills the screen
    QTimer settled_;                    // runs out when it hasn't been moved for a while
    Qt::WindowStates beneath_full_{};   // maximised or not, where it fills the screen
    const screen_object* held_by_key_ = nullptr;   // the button that the space bar holds down
    std::vector<std::unique_ptr<shown_object>> objects_;
};

}   // namespace vorn

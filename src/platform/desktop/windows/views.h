// Widgets that paint an object themselves. Each paints the fields as they were last drawn, so that all that
// is seen belongs to one moment.
#pragma once

#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>

#include "platform/desktop/windows/widgets.h"

namespace vorn {

// A button with its caption on as many lines as it needs, or with a picture instead.
class push_button final : public QPushButton {
public:
    push_button(const object_fields& fields, QWidget* parent);

protected:
    bool event(QEvent*) override;
    void paintEvent(QPaintEvent*) override;

private:
    void paint_picture(QPainter&);
    const object_fields& fields_;
};

// A label that can be clicked: text without a border, reached by Tab like any button.
class text_button final : public QPushButton {
public:
    text_button(const object_fields& fields, QWidget* parent);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    void paint_plate(QPainter&);
    const object_fields& fields_;
};

// A text box that selects all when it is arrived in by mouse, as it does by Tab: what is typed replaces it.
class text_box final : public QLineEdit {
public:
    explicit text_box(QWidget* parent);

protected:
    void focusInEvent(QFocusEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;

private:
    bool arrived_ = false;   // by the mouse, which is still held
    bool entered_ = false;   // has had the focus before
};

// A picture stretched to the object. It keeps its pixels at the size in which they are on the screen.
class picture_view final : public QAbstractButton {
public:
    picture_view(const object_fields& fields, QWidget* parent);

protected:
    void paintEvent(QPaintEvent*) override;
    void hideEvent(QHideEvent*) override;

private:
    QPixmap rendered(const QSize& device) const;
    const object_fields& fields_;
    QPixmap cache_;
    picture cached_;
};

class shape_view final : public QWidget {
public:
    shape_view(const object_fields& fields, QWidget* parent);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    const object_fields& fields_;
};

// The sight: clips what lies in it and draws it in its order.
class sight_view final : public QWidget {
public:
    sight_view(const shown_object& sight, QWidget* parent);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    const shown_object& sight_;
};

}   // namespace vorn

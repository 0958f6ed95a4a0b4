// The program's own kinds of widgets. Most paint the fields of an object as of the last update, so that
// everything on the screen belongs to the same state.
#pragma once

#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>

#include "platform/desktop/windows/widgets.h"

namespace vorn {

// The widget of a `button`: shows its picture, or else its caption, wrapped if that is too wide.
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

// A label that can be clicked. It gets the focus by Tab like any button.
class text_button final : public QPushButton {
public:
    text_button(const object_fields& fields, QWidget* parent);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    void paint_background(QPainter&);
    const object_fields& fields_;
};

// A text box that selects its text when it gets the focus, also by mouse.
class text_box final : public QLineEdit {
public:
    explicit text_box(QWidget* parent);

protected:
    void focusInEvent(QFocusEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;

private:
    bool clicked_ = false;   // got the focus by a mouse press, and the button is still down
    bool had_focus_ = false;
};

// A picture scaled to the object, with a cache of the scaled pixels.
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

// Makes Qt tell screen readers that a picture without a Click handler is a graphic, and that it is invisible
// if another picture covers it.
void describe_pictures();

// The dark border around a sight. It is stacked below the sight and above a panel that surrounds the sight.
class sight_edge final : public QWidget {
public:
    explicit sight_edge(QWidget* parent);
    void surround(const QWidget& sight);

protected:
    void paintEvent(QPaintEvent*) override;
};

class shape_view final : public QWidget {
public:
    shape_view(const object_fields& fields, QWidget* parent);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    const object_fields& fields_;
};

}   // namespace vorn

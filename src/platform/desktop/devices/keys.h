// The keyboard: a form sees each key before its controls do, once, by its virtual key code.
#pragma once

#include <QObject>
#include <map>

#include "platform/objects.h"

class QKeyEvent;

namespace vorn {

class desktop_machine;
class form_window;

// 65 to 90 the letters, 48 to 57 the digits, 13 Return, 27 Escape and so on; 0 for a key without a code.
// Letters go by what is on the key; on a keyboard without Latin letters, by where the letter is on a US one.
int virtual_key(const QKeyEvent&);

// Asks the window system not to report a held key as pressed and let go over and over.
void ask_for_steady_repeat();

class keyboard final : public QObject {
public:
    explicit keyboard(desktop_machine&);
    // Key-ups for all keys that a form has had a key-down of.
    void release_all();

protected:
    bool eventFilter(QObject*, QEvent*) override;

private:
    struct key_down {
        form* holder = nullptr;   // has had a key-down and waits for the key-up
        int code = 0;
        quint64 last = 0;   // milliseconds of the window system's clock
    };

    bool pressed(form_window*, const QKeyEvent&);
    void released(const QKeyEvent&);
    void tell_form(form&, int code, key_down&);
    void let_go(key_down&);

    desktop_machine& pc_;
    std::map<quint32, key_down> down_;
};

}   // namespace vorn

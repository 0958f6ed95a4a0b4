// The keyboard. A form gets a key, and its auto-repeats, as a virtual key code before its widgets get it,
// except F1, F11, Alt with a letter, and the keys that click buttons of hidden panels.
#pragma once

#include <QObject>
#include <QTimer>
#include <map>

#include "platform/objects.h"

class QKeyEvent;

namespace vorn {

class desktop_machine;
class form_window;

// The virtual key code: 65 to 90 for letters, 48 to 57 for digits, 13 for Return and so on; 0: none.
// A key with any other character has the code of the letter or digit at its position on a US keyboard.
int virtual_key(const QKeyEvent&);

class keyboard final : public QObject {
public:
    explicit keyboard(desktop_machine&);
    // For each key that is down, sends the key-up to the form that got the key-down.
    void release_all();

protected:
    bool eventFilter(QObject*, QEvent*) override;

private:
    struct key_down {
        form* holder = nullptr;   // got the key-down and will get the key-up
        int code = 0;
        quint64 last = 0;   // time of the last press or repeat, milliseconds
    };

    bool pressed(form_window*, const QKeyEvent&);
    void send_down(form&, int code, key_down&);
    void send_up(key_down&);
    void end(quint32 key);
    void watch();
    void look_for_releases();

    desktop_machine& pc_;
    QTimer watch_;
    std::map<quint32, key_down> down_;
};

}   // namespace vorn

#include "platform/desktop/devices/keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLibrary>
#include <QLineEdit>
#include <QMessageBox>
#include <QTextEdit>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/desktop/desktop_machine.h"

namespace vorn {

namespace {

// For this many seconds after a message box opens, a letter is ignored: it was probably meant for the gun.
constexpr double letter_delay = 1;

// The longest interval of auto-repeat, in milliseconds. A press after a longer interval is a new press: the
// release before it was missed. Used where the system doesn't mark auto-repeat.
constexpr quint64 longest_repeat = 1500;

constexpr std::array<std::pair<int, int>, 26> named_keys{{
    {Qt::Key_Backspace, 8},    {Qt::Key_Tab, 9},       {Qt::Key_Backtab, 9},  {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},       {Qt::Key_Shift, 16},    {Qt::Key_Control, 17}, {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},       {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, 27},  {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},      {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},     {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},        {Qt::Key_Up, 38},       {Qt::Key_Right, 39},   {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},       {Qt::Key_Insert, 45},   {Qt::Key_Delete, 46},  {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145}, {Qt::Key_AltGr, 18},
}};

// The letter or digit of a US keyboard at this X11 key code; 0 for other keys.
int code_by_position(quint32 scan_code)
{
    constexpr quint32 first = 10;
    constexpr std::string_view keys = "1234567890    QWERTYUIOP    ASDFGHJKL     ZXCVBNM";
    const bool known = scan_code >= first && scan_code - first < keys.size();
    return known && keys[scan_code - first] != ' ' ? keys[scan_code - first] : 0;
}

bool is_letter(int code)
{
    return code >= 'A' && code <= 'Z';
}

// Identifies a key. Its scan code, if known, is the same at press and release even if Shift changes in
// between.
quint32 identity(const QKeyEvent& e)
{
    return e.nativeScanCode() != 0 ? e.nativeScanCode() : static_cast<quint32>(e.key());
}

// In a text, Space types a space or scrolls a page, also by auto-repeat.
bool text_has_focus()
{
    const QWidget* focus = QApplication::focusWidget();
    return qobject_cast<const QLineEdit*>(focus) != nullptr ||
           qobject_cast<const QTextEdit*>(focus) != nullptr;
}

// A key that answers a box or clicks a button.
bool is_answer(const QKeyEvent& e)
{
    return e.key() == Qt::Key_Return || e.key() == Qt::Key_Enter || e.key() == Qt::Key_Escape ||
           (e.key() == Qt::Key_Space && !text_has_focus());
}

// A letter without Alt, Ctrl or Meta, which in a box clicks the button with this access key.
bool is_bare_letter(const QKeyEvent& e)
{
    const bool letter = is_letter(virtual_key(e)) || (!e.text().isEmpty() && e.text().front().isLetter());
    return letter && !(e.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier));
}

// Whether the system marks presses that are auto-repeat. X11 doesn't mark them when it sends no releases
// during auto-repeat (see enable_detectable_repeat).
bool marks_repeat()
{
    return QGuiApplication::platformName() == "windows" || QGuiApplication::platformName() == "wayland";
}

// A function of Xlib, without its first parameter, the display; null without X11. Xlib isn't linked,
// since Qt has loaded it if there is an X server.
template <class... Parameters>
std::function<void(Parameters...)> x11_function([[maybe_unused]] const char* name)
{
#if QT_CONFIG(xcb)
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    Display* const display = x11 == nullptr ? nullptr : x11->display();
    if (display == nullptr) return nullptr;
    const auto call = reinterpret_cast<int (*)(Display*, Parameters...)>(QLibrary::resolve("X11", 6, name));
    if (call != nullptr) return [=](Parameters... p) { call(display, p...); };
#endif
    return nullptr;
}

// Asks X11 to send no release events during auto-repeat.
void enable_detectable_repeat()
{
    if (const auto set = x11_function<int, int*>("XkbSetDetectableAutoRepeat")) set(1, nullptr);
}

// A function that asks X11 whether the key of this scan code is down; null without X11.
std::function<bool(quint32)> x11_key_state()
{
    const auto query = x11_function<char*>("XQueryKeymap");
    if (!query) return nullptr;
    return [=](quint32 key) {
        std::array<char, 32> bits{};   // one for each key
        query(bits.data());
        return key / 8 >= bits.size() || (bits[key / 8] >> key % 8 & 1) != 0;
    };
}

}   // namespace

int virtual_key(const QKeyEvent& e)
{
#ifdef Q_OS_WIN
    if (e.nativeVirtualKey() != 0) return static_cast<int>(e.nativeVirtualKey());
#endif
    const int key = e.key();
    const bool digit = key >= '0' && key <= '9';
    if (digit && e.modifiers().testFlag(Qt::KeypadModifier)) return key - '0' + 96;
    if (digit || is_letter(key)) return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return key - Qt::Key_F1 + 112;
    for (const auto& [named, code] : named_keys)
        if (key == named) return code;
    return code_by_position(e.nativeScanCode());
}

keyboard::keyboard(desktop_machine& pc) : pc_(pc)
{
    qApp->installEventFilter(this);
    enable_detectable_repeat();
    pc_.key_is_down = x11_key_state();
    watch_.setInterval(10);   // ms; shorter than the time from a release to the next press
    QObject::connect(&watch_, &QTimer::timeout, this, &keyboard::look_for_releases);
}

// Starts to look for releases that the program may not get: of a key that answers a box, or that is down when
// another window gets the input. Otherwise the next press of the key would be taken for auto-repeat.
void keyboard::watch()
{
    if (pc_.key_is_down) watch_.start();
}

void keyboard::look_for_releases()
{
    std::vector<quint32> up;
    for (const auto& [key, k] : down_)
        if (!pc_.key_is_down(key)) up.push_back(key);
    for (const quint32 key : up) end(key);
    if (down_.empty()) watch_.stop();
}

void keyboard::end(quint32 key)
{
    const auto found = down_.find(key);
    if (found == down_.end()) return;
    key_down k = found->second;
    down_.erase(found);
    send_up(k);
}

void keyboard::send_up(key_down& k)
{
    form* holder = std::exchange(k.holder, nullptr);
    if (holder != nullptr && holder->KeyUp && holder->state != form_state::not_loaded)
        pc_.run([holder, code = k.code] { holder->KeyUp(code); });
}

void keyboard::release_all()
{
    // The handler of a key-up may change down_.
    std::vector<quint32> keys;
    for (const auto& [key, k] : down_) keys.push_back(key);
    for (const quint32 key : keys)
        if (const auto k = down_.find(key); k != down_.end()) send_up(k->second);
    watch();
}

void keyboard::send_down(form& f, int code, key_down& k)
{
    k.holder = &f;
    k.code = code;
    if (f.KeyDown) pc_.run([&f, code] { f.KeyDown(code); });
}

// Returns true if the key must not reach any widget. Auto-repeat must not answer a box or click a button.
bool keyboard::pressed(form_window* w, const QKeyEvent& e)
{
    key_down& k = down_[identity(e)];
    const bool unreleased = k.last != 0 && e.timestamp() - k.last < longest_repeat;
    const bool held = e.isAutoRepeat() || (unreleased && !marks_repeat());
    k.last = e.timestamp();
    if (w == nullptr) {
        watch();
        const bool box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
        if (box && is_bare_letter(e) && pc_.box_age() < letter_delay) return true;
        return held && (box || is_answer(e));
    }
    if (e.key() == Qt::Key_F11) {
        if (!held) w->toggle_full_screen();
        return true;
    }
    if (e.key() == Qt::Key_F1 && pc_.open_manual) {
        if (!held) pc_.run(pc_.open_manual);
        return true;
    }
    const int code = virtual_key(e);
    const bool alt = e.modifiers().testFlag(Qt::AltModifier);
    const bool alt_gr = alt && e.modifiers().testFlag(Qt::ControlModifier);
    if (screen_object* button = alt_gr ? nullptr : button_of_key(w->model, code, alt)) {
        if (!held) pc_.run(button->Click);
        return true;
    }
    const bool access_key = alt && is_letter(code);
    if (code != 0 && !access_key && w->model.state == form_state::shown) send_down(w->model, code, k);
    return held && is_answer(e);
}

// Qt delivers each key first to the window and then to its widgets; only the first event is handled.
bool keyboard::eventFilter(QObject* o, QEvent* e)
{
    if ((e->type() != QEvent::KeyPress && e->type() != QEvent::KeyRelease) || !o->isWindowType())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*e);
    if (e->type() == QEvent::KeyPress) return pressed(pc_.window_of(o), key);
    if (!key.isAutoRepeat()) end(identity(key));
    return false;
}

}   // namespace vorn

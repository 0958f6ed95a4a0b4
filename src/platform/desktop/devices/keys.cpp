#include "platform/desktop/devices/keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLibrary>
#include <QLineEdit>
#include <QMessageBox>
#include <QTextEdit>
#include <array>
#include <cstring>
#include <utility>

#include "platform/desktop/desktop_machine.h"

namespace vorn {

namespace {

// A letter that comes sooner after a box was meant for the gun. Seconds.
constexpr double letters_wait = 1;

// The longest time between two reports of a held key; one that comes later was let go unseen meanwhile.
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

// What the keys carry on a US keyboard, by the key numbers of X11, row by row.
int by_place(quint32 scan_code)
{
    struct key_row {
        quint32 first;
        const char* letters;
    };
    constexpr std::array<key_row, 4> rows{
        {{10, "1234567890"}, {24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}}};
    for (const key_row& r : rows)
        if (scan_code >= r.first && scan_code < r.first + std::strlen(r.letters))
            return r.letters[scan_code - r.first];
    return 0;
}

bool is_letter(int code)
{
    return code >= 'A' && code <= 'Z';
}

// The same for press and release, whatever Shift does meanwhile.
quint32 identity(const QKeyEvent& e)
{
    return e.nativeScanCode() != 0 ? e.nativeScanCode() : static_cast<quint32>(e.key());
}

// Where a text is edited or read, Space is a blank or turns the page, as often as it repeats.
bool in_text()
{
    const QWidget* focus = QApplication::focusWidget();
    return qobject_cast<const QLineEdit*>(focus) != nullptr ||
           qobject_cast<const QTextEdit*>(focus) != nullptr;
}

bool answers(const QKeyEvent& e)
{
    return e.key() == Qt::Key_Return || e.key() == Qt::Key_Enter || e.key() == Qt::Key_Escape ||
           (e.key() == Qt::Key_Space && !in_text());
}

// A bare letter chooses the button of a box that has it as its access key.
bool bare_letter(const QKeyEvent& e)
{
    const bool letter = is_letter(virtual_key(e)) || (!e.text().isEmpty() && e.text().front().isLetter());
    return letter && !(e.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier));
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
    return by_place(e.nativeScanCode());
}

void ask_for_steady_repeat()
{
#if QT_CONFIG(xcb)
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || x11->display() == nullptr) return;
    using set_detectable = int (*)(Display*, int, int*);
    // Looked up rather than linked: Qt has loaded the library where there is an X server.
    const auto set =
        reinterpret_cast<set_detectable>(QLibrary::resolve("X11", 6, "XkbSetDetectableAutoRepeat"));
    if (set != nullptr) set(x11->display(), 1, nullptr);
#endif
}

keyboard::keyboard(desktop_machine& pc) : pc_(pc)
{
    qApp->installEventFilter(this);
    ask_for_steady_repeat();
}

void keyboard::let_go(key_down& k)
{
    form* holder = std::exchange(k.holder, nullptr);
    if (holder != nullptr && holder->KeyUp && holder->state != form_state::not_loaded)
        pc_.run([holder, code = k.code] { holder->KeyUp(code); });
}

void keyboard::release_all()
{
    // By copies of the names: a handler may come back here.
    std::vector<quint32> names;
    for (const auto& [name, k] : down_) names.push_back(name);
    for (const quint32 name : names)
        if (const auto k = down_.find(name); k != down_.end()) let_go(k->second);
}

// Alt with a letter is an access key, and nothing to the form.
void keyboard::tell_form(form& f, int code, key_down& k)
{
    k.holder = &f;
    k.code = code;
    if (f.KeyDown) pc_.run([&f, code] { f.KeyDown(code); });
}

// Gives true when nobody else is to have the key: the repeats of a held one must not answer a box, nor press
// a button again and again.
bool keyboard::pressed(form_window* w, const QKeyEvent& e)
{
    key_down& k = down_[identity(e)];
    const bool held = e.isAutoRepeat() || (k.last != 0 && e.timestamp() - k.last < longest_repeat);
    k.last = e.timestamp();
    if (w == nullptr) {
        const bool box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
        if (box && bare_letter(e) && pc_.box_age() < letters_wait) return true;
        return held && (box || answers(e));
    }
    if (e.key() == Qt::Key_F11) {
        if (!held) w->toggle_full_screen();
        return true;
    }
    const int code = virtual_key(e);
    const bool alt = e.modifiers().testFlag(Qt::AltModifier);
    if (screen_object* button = button_of_key(w->model, code, alt)) {
        if (!held) pc_.run(button->Click);
        return true;
    }
    const bool access_key = alt && is_letter(code);
    if (code != 0 && !access_key && w->model.state == form_state::shown) tell_form(w->model, code, k);
    return held && answers(e);
}

void keyboard::released(const QKeyEvent& e)
{
    const auto found = down_.find(identity(e));
    if (found == down_.end() || e.isAutoRepeat()) return;
    key_down k = found->second;
    down_.erase(found);
    let_go(k);
}

// Each key passes here several times on its way: once for the window, then for widgets in it.
bool keyboard::eventFilter(QObject* o, QEvent* e)
{
    if ((e->type() != QEvent::KeyPress && e->type() != QEvent::KeyRelease) || !o->isWindowType())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*e);
    if (e->type() == QEvent::KeyPress) return pressed(pc_.window_of(o), key);
    released(key);
    return false;
}

}   // namespace vorn

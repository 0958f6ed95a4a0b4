// Screens and their objects: plain structs whose fields are the model. Handlers write the fields; after each
// handler the machine redraws what has changed.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace vorn {

inline constexpr double twips_per_pixel = 15;   // of a form at 1024 x 768
inline constexpr double form_width = 15360;     // every screen is designed for 1024 x 768 pixels
inline constexpr double form_height = 11520;

// Colours by role; the desktop machine defines their RGB values.
enum class colour {
    ground,      // background of forms; as BackColor: no background of its own
    text,        // ordinary text and button text
    highlight,   // for example the hint bar, headings of the manual, the message that there is no joystick
    dim,         // secondary text
    live,        // what is current, such as readouts and the round on view
    red,
    darkred,
    white,
    black,
    sight,       // marks of the sights, readable over sky and ground
    tracer,      // a round in flight in the visual sight
    hottracer,   // a round in flight in the thermal sight
};

enum class alignment { left, centre, right };
enum class text_size { small, normal, large };
enum class shape_kind { rectangle, dashed_rectangle, ellipse, filled_ellipse };

// A killed target is drawn on fire: `flames` on the visual sight, `hot` on the thermal one.
enum class fire { none, flames, hot };

// Where an object is docked to the sight of its screen. The sight keeps its shape in the space that the
// docked objects leave.
enum class dock {
    none,
    sight,      // the sight itself
    panel,      // a frame whose child frames are placed as with `beside`
    beside,     // left of the sight or below it
    above,      // above the sight, in one or two rows; a single visible object is placed as with `beside`
    below,      // in a row below the sight
    backdrop,   // a picture that covers the whole window of a screen without a sight
};

enum class object_kind {
    frame,   // a panel: it contains other objects and may have a caption
    sight,   // a viewport that clips its child objects and draws them in their order
    label,   // text; a label with a Click handler is also a button
    button,
    option,   // a radio button; the options of one parent form a group
    checkbox,
    slider,
    textbox,
    image,   // a picture with transparency, stretched to the object's size; a drawing may keep its shape
    shape,
};

// Decoded pixels; only the machine that decoded them knows their type.
struct picture_pixels {
    virtual ~picture_pixels() = default;
};

// A loaded picture file, or the built-in drawing that `source` names as ":name".
struct picture {
    std::string source;
    double width = 0;   // natural size, 15 twips to a pixel of the picture; 0 for a drawing
    double height = 0;
    std::shared_ptr<const picture_pixels> pixels;

    bool operator==(const picture&) const = default;
};

// A rectangle in twips from the upper left corner of the parent.
struct area {
    double Left = 0, Top = 0, Width = 0, Height = 0;

    bool operator==(const area&) const = default;
};
inline void place_at(area& at, double left, double top)
{
    at.Left = left;
    at.Top = top;
}

// The visible properties of an object. The machine compares these fields with those it last drew.
struct object_fields : area {
    object_kind kind = object_kind::label;
    area Within;   // an object outside this area is shown at the area's edge; size 0: no such area
    bool Visible = true;
    bool Enabled = true;
    std::string Caption;     // in a button '&' marks the access key
    std::string Text;        // text box
    bool ReadOnly = false;   // text box: can't be edited
    std::string ToolTipText;
    std::string AccessibleName;   // spoken by a screen reader; if there is a caption, before it
    colour ForeColor = colour::text;
    colour BackColor = colour::ground;
    picture Picture;                         // image; on a button it replaces the caption
    bool Pale = false;                       // image: drawn faintly
    fire Fire = fire::none;                  // image in a sight
    int Value = 0;                           // option and check box: 0 or 1; slider: position
    int Min = 0, Max = 0, LargeChange = 1;   // slider
    alignment Alignment = alignment::left;
    text_size size = text_size::normal;
    bool bold = false;
    shape_kind Shape = shape_kind::rectangle;

    bool operator==(const object_fields&) const = default;
};
// Gives an image the natural size of its picture.
inline void take_natural_size(object_fields& image)
{
    image.Width = image.Picture.width;
    image.Height = image.Picture.height;
}

struct form;
struct screen_object;

// A layout only a line or two high, for an object in a strip below the sight. Of the child objects only those
// in `places` are shown. Height 0: the object has no flat layout.
struct flat_layout {
    double Width = 0, Height = 0;
    std::unordered_map<const screen_object*, area> places = {};
};

struct screen_object : object_fields {
    std::optional<object_fields> design;   // values that each load gives the fields
    screen_object* parent = nullptr;       // null: the form itself
    form* owner = nullptr;
    dock docked = dock::none;
    int rank = 0;   // the order of the objects in a strip; those of equal rank are in drawing order
    flat_layout flat;

    std::function<void()> Click;                   // button, label, image, option, check box
    std::function<void(double, double)> ClickAt;   // image; twips from its upper left corner
    std::function<void()> Change;                  // slider, text box
    std::function<void()> MouseDown;
    std::function<void()> MouseUp;
    std::function<void()> MouseMove;   // over the object, or over a child object without such a handler
};

// A repeating timer. Only `start` and `stop` write Enabled. `start` begins a new interval unless the timer is
// already running.
struct timer {
    int Interval = 0;   // milliseconds
    bool Enabled = false;
    double slack = 0;   // seconds that a tick may be late, so that the program wakes up less often
    std::function<void()> tick;

    // Used by screens.cpp and `start`.
    bool fresh = false;     // started; `due` is not yet set
    bool ticking = false;   // its handler is running
    double due = 0;         // seconds on the machine's clock
};

void start(timer&);
void stop(timer&);

inline constexpr int escape_key = 27;   // virtual key code
// A key that clicks a button while the panel of the button is hidden.
struct panel_key {
    int code = 0;       // virtual key code
    bool alt = false;   // with Alt held
    screen_object* button = nullptr;
};

// Enlarges an object and its child objects: place and size are multiplied by `factor`, then the place is
// moved by `right` and `down`, in twips of the parent.
struct enlargement {
    double factor = 1, right = 0, down = 0;
};

// How a screen is shown in a window that is wider than the form. Objects that are neither in `places` nor in
// `enlarged` are shown at their own place.
struct wide_layout {
    double width = form_width;                                    // twips
    std::unordered_map<const screen_object*, area> places = {};   // shown there, with text of the usual size
    std::unordered_map<const screen_object*, enlargement> enlarged = {};
};

enum class form_state { not_loaded, hidden, shown };

// One screen: its objects in drawing order, its timers and its handlers.
struct form {
    std::string name;
    std::string Caption;
    form_state state = form_state::not_loaded;
    std::vector<screen_object*> objects;
    std::vector<timer*> timers;
    screen_object* exit_button = nullptr;   // clicked when the user closes the window
    std::function<void()> closed;           // called instead if there is no exit_button
    std::vector<panel_key> panel_keys;
    // The object that gets the keyboard focus after the current handler. The desktop clears this field.
    const screen_object* takes_focus = nullptr;
    // For a screen without a docked sight: returns the layout for a window that is this many twips wide when
    // scaled to the height of the form.
    std::function<wide_layout(double width)> wide;
    bool spreads = false;   // without `wide`: in a wide window the objects are spread over the width

    std::function<void()> load;      // runs at each load, after the design values are set
    std::function<void()> arrival;   // runs when the screen has been shown or has come to the front
    std::function<void()> unloaded;
    std::function<void()> MouseMove;    // over the form, where no object takes mouse events
    std::function<void()> MouseLeave;   // the mouse has left the window
    std::function<void(int)> KeyDown;   // virtual key code; called before the focused object gets the key
    std::function<void(int)> KeyUp;
    std::function<void(int)> ButtonDown;   // joystick button, from 1
    std::function<void(int)> ButtonUp;
    std::function<void(int, int)> Move;      // joystick; X to the right, Y towards the gunner, 0 to 65535
    std::function<void()> JoystickChanged;   // joystick connected or disconnected; also on a hidden screen
};

// Adds an object to the form, on top of the others. Each load restores its design values, if given.
void add(form&, screen_object&, screen_object* parent = nullptr);
void add(form&, screen_object&, object_fields design, screen_object* parent = nullptr);
void add(form&, timer&, int interval, std::function<void()> tick);   // interval in milliseconds

// Selects an option, clears the others of its group and runs its Click handler. Does nothing if the option is
// already selected.
void select_option(screen_object& option);
// Moves a slider, at most to its Min or Max; runs its Change handler only if the position changes.
void set_slider(screen_object& slider, int position);
// Replaces the text of a text box; runs its Change handler only if the text changes.
void set_text(screen_object& textbox, const std::string& text);

// Whether the user can use the object: it and its parents are visible and enabled, and its screen is shown.
bool takes_input(const screen_object&);

// The button that a key clicks because the button's panel is hidden. Null if the panel is visible, or if the
// button itself is hidden or disabled.
screen_object* button_of_key(const form&, int code, bool alt);

// User input. Ignored if the object takes no input; user_types also if the text box is ReadOnly.
void user_click(screen_object&);
void user_click_at(screen_object&, double x, double y);
void user_slide(screen_object& slider, int position);
void user_types(screen_object& textbox, const std::string& text);

}   // namespace vorn

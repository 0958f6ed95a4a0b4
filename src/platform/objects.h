// Screens and their objects: plain structs whose fields are the model, and the few rules beyond plain fields.
// Handlers write the fields; after a handler the machine shows what has changed.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace vorn {

inline constexpr double twips_per_pixel = 15;   // at 96 dots per inch
inline constexpr double form_width = 15360;     // every screen is designed on 1024 x 768 pixels
inline constexpr double form_height = 11520;

// Colours by their role; the desktop machine gives each its RGB values.
enum class colour {
    ground,      // background of form or frame; as a back colour: transparent
    text,        // ordinary text and button text
    highlight,   // text under the mouse cursor, the selected item
    dim,         // secondary text
    live,        // current values: readouts, the crew line
    red,         // full red
    darkred,     // half red
    white,
    black,
    sight,       // marks of the sight picture, readable over sky and ground
    tracer,      // a round in flight
    hottracer,   // a round in flight in the thermal sight
};

enum class alignment { left, centre, right };
enum class text_size { small, normal, large };
enum class shape_kind { rectangle, dashed_rectangle, ellipse, filled_ellipse };

// A target that has been hit is drawn as a wreck on fire, as the eye or as a thermal sight sees it.
enum class fire { none, flames, hot };

// How an object is arranged around the sight of its screen, so that the sight can take all the space that the
// others leave. `none`: at its own place.
enum class dock {
    none,
    sight,      // the sight itself
    panel,      // a frame whose frames may be placed below or beside each other
    beside,     // left of the sight or below it
    above,      // in the line above the sight
    below,      // in the line below the sight
    backdrop,   // a picture that covers the whole window of a screen without a sight
};

enum class object_kind {
    frame,   // a panel with a caption that contains other objects
    sight,   // a window that clips its objects and draws them in their order
    label,   // text; with a Click handler also a button without a border
    button,
    option,   // one of a group: the options inside one parent
    checkbox,
    slider,
    textbox,
    image,   // a picture stretched to the object, transparent where the picture is
    shape,
};

// Decoded pixels; only the machine that decoded them knows their type.
struct picture_pixels {
    virtual ~picture_pixels() = default;
};

// A loaded file, or a built-in drawing with the `source` ":name".
struct picture {
    std::string source;
    double width = 0;   // natural size, 15 twips to a pixel of the picture; 0 for a drawing
    double height = 0;
    std::shared_ptr<const picture_pixels> pixels;

    bool operator==(const picture&) const = default;
};

// A rectangle in a parent, twips from its upper left corner.
struct area {
    double Left = 0, Top = 0, Width = 0, Height = 0;

    bool operator==(const area&) const = default;
};

// Everything about an object that can be seen. The machine compares it with what it last drew.
struct object_fields : area {
    object_kind kind = object_kind::label;
    area Within;   // an object outside is shown at the edge; ignored if its size is 0
    bool Visible = true;
    bool Enabled = true;
    std::string Caption;     // in a button '&' marks the access key
    std::string Text;        // text box
    bool ReadOnly = false;   // text box: can't be edited
    std::string ToolTipText;
    std::string AccessibleName;   // what a screen reader says before the caption or without one
    colour ForeColor = colour::text;
    colour BackColor = colour::ground;
    picture Picture;                         // image; a button shows it instead of its caption
    bool Pale = false;                       // image: drawn faintly
    fire Fire = fire::none;                  // image in a sight
    int Value = 0;                           // option and check box 0 or 1, slider its position
    int Min = 0, Max = 0, LargeChange = 1;   // slider
    alignment Alignment = alignment::left;
    text_size size = text_size::normal;
    bool bold = false;
    shape_kind Shape = shape_kind::rectangle;

    bool operator==(const object_fields&) const = default;
};

struct form;

struct screen_object : object_fields {
    std::optional<object_fields> design;   // values of the fields at each load
    screen_object* parent = nullptr;       // none: the form itself
    form* owner = nullptr;
    dock docked = dock::none;
    double fold = 0;   // docked beside: what is below this Top may be shown beside what is above it

    std::function<void()> Click;                   // button, label, option, check box
    std::function<void(double, double)> ClickAt;   // image; twips from its upper left corner
    std::function<void()> Change;                  // slider, text box
    std::function<void()> MouseDown;
    std::function<void()> MouseUp;
    std::function<void()> MouseMove;   // the mouse is over it
};

// A repeating timer. Only start and stop write Enabled. start begins a new interval unless the timer runs
// already.
struct timer {
    int Interval = 0;   // milliseconds
    bool Enabled = false;
    std::function<void()> tick;

    // Used by the clock only.
    bool fresh = false;     // started; `due` is not yet set
    bool ticking = false;   // its handler is running
    double due = 0;         // seconds on the machine's clock
};

void start(timer&);
void stop(timer&);

// A key, by its virtual key code, that clicks a button while the panel of the button is hidden.
struct panel_key {
    int code = 0;
    bool alt = false;   // with Alt held
    screen_object* button = nullptr;
};

// An object shown larger with all it contains: its place times the factor, then moved, in twips of the
// parent.
struct enlargement {
    double factor = 1, right = 0, down = 0;
};

// How a screen is shown in a window that is wider than the form. Other objects are shown at their own place.
struct wide_layout {
    double width = form_width;                                    // of all
    std::unordered_map<const screen_object*, area> places = {};   // shown there, at the size of the form
    std::unordered_map<const screen_object*, enlargement> enlarged = {};
};

enum class form_state { not_loaded, hidden, shown };

// One screen: its objects from bottom to top, its timers and its handlers.
struct form {
    std::string name;
    std::string Caption;
    form_state state = form_state::not_loaded;
    std::vector<screen_object*> objects;
    std::vector<timer*> timers;
    screen_object* exit_button = nullptr;   // clicked when the user closes the window
    std::function<void()> closed;           // called then if there is no exit_button
    std::vector<panel_key> panel_keys;
    // Set by a handler: the object that gets the keyboard focus after it. The machine clears it.
    const screen_object* takes_focus = nullptr;
    // The layout for a window of this width, at the height of the form; none: as designed.
    std::function<wide_layout(double width)> wide;

    std::function<void()> load;      // sets the design values; runs at the first show after an unload
    std::function<void()> arrival;   // the screen has been shown or has come to the front
    std::function<void()> unloaded;
    std::function<void()> MouseMove;    // over the form outside its objects
    std::function<void()> MouseLeave;   // the mouse has left the window
    std::function<void(int)> KeyDown;   // virtual key code; seen before the controls see it
    std::function<void(int)> KeyUp;
    std::function<void(int)> ButtonDown;   // joystick, buttons from 1
    std::function<void(int)> ButtonUp;
    std::function<void(long, long)> Move;    // joystick, X to the right and Y towards the gunner, 0 to 65535
    std::function<void()> JoystickChanged;   // connected or disconnected; also on a hidden screen
};

// Adds an object to the form, on top of the others. Each load resets it to the design values, if given.
void add(form&, screen_object&, screen_object* parent = nullptr);
void add(form&, screen_object&, object_fields design, screen_object* parent = nullptr);
void add(form&, timer&, int interval, std::function<void()> tick);

// Selects an option, clears the others of its group and runs its action, unless it is selected already.
void select_option(screen_object& option);
// Moves a slider within its bounds; runs its action only if the position changes.
void set_slider(screen_object& slider, int position);
// Replaces the text of a text box; runs its action only if the text changes.
void set_text(screen_object& textbox, const std::string& text);

// Whether the user can use the object: it and its parents are visible and enabled, and its screen is shown.
bool takes_input(const screen_object&);

// The button that a key works although its panel is hidden; none if the panel is visible or the button can't
// be used.
screen_object* button_of_key(const form&, int code, bool alt);

// Input by the user, on either machine. Ignored if the object takes no input.
void user_click(screen_object&);
void user_click_at(screen_object&, double x, double y);
void user_slide(screen_object& slider, int position);
void user_types(screen_object& textbox, const std::string& text);

}   // namespace vorn

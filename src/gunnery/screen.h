// A gunnery screen, visual or thermal: its variables, objects and timers. A name with the comment "visual" or
// "thermal" matters on that sight only. The numbers of the two sights are in sight.h.
#pragma once

#include <deque>
#include <string>

#include "gunnery/sight.h"
#include "platform/objects.h"
#include "state/numbers.h"

namespace vorn {

enum nature_of_target { no_nature = -1, fin_tank = 0, hesh_bmp = 1, coax_transport = 2 };

// What Lblammotype shows. During a HESH correction on the thermal sight it shows FIN and DST in turn,
// although the round selected is still HESH.
enum class ammo_shown { nothing, fin, dst, hesh, coax, hesh_as_fin, hesh_as_dst };

// The variables of a screen, grouped by the event that sets their start values. Resetting a group also resets
// the groups that it derives from: `static_cast<since_reset&>(s) = {}` resets since_target too.

struct since_target {            // since the last target went down
    bool targetcalled = false;   // the commander has laid the gun near the target
    bool targethit = false;
    bool hasfired = false;   // a round has been fired since the weapon was selected
};

struct since_reset : since_target {
    // The sequencer and the score.
    bool simrunning = false;
    int16 targetnumber;   // targets presented so far
    int16 pausecount;     // Timpause ticks since the last order
    int16 hits;
    int16 hittime;   // sum of targetticks of all hits

    // The gun and the fire control.
    bool gunloaded = false;
    bool ammoarmed = false;     // a weapon is selected
    bool layready = false;      // the next autolay is allowed; it clears this
    bool coaxrunning = false;   // visual
    float leadperstep = 0;      // lead, twips sideways per twip of lay; visual
};

struct since_load : since_reset {
    // The sequencer. A reset keeps targetlife: it is used for the score of a practice stopped before its
    // first order.
    int currenttarget = 0;     // position of the current target
    int currentrange = 0;      // metres
    int16 targetticks;         // 1 at the order, one more each second; targetlife after a hit
    int16 targetlife;          // targetticks at which the target goes down
    int16 targetwait;          // Timpause ticks before the next order
    int windoffset = 0;        // drift of a HESH round to the right, twips; the visual reset clears it
    bool pauseshown = false;   // Cmdpausesim shows "PAUSE OFF"

    // The traverse.
    int16 traversestep, elevatestep;   // twips per tick; 0 while no direction is held
    int16 traverseaccel;               // twips per tick gained by acceleration, negative for up; visual

    // The fire control.
    int layspeed = 3;           // twips per coarse step of the autolay, from the slider; visual
    bool lazed = false;         // set by a lase or an autolay; needed to correct the next HESH round
    int chargecount = 0;        // Timchrg ticks; visual
    int autolaycount = 0;       // timautolay ticks, kept between presses; visual: selecting FIN or DST sets 2
    bool autolayheld = false;   // AUTO was held for the full time; thermal: also after a short press or click
    bool autolaydown = false;   // AUTO is held down or was clicked; visual
    std::string rangesuffix;    // letter shown after the range; empty on the visual sight

    // The gun.
    ammo_shown shown = ammo_shown::nothing;
    int ammoselected = 0;                   // nature of the selected round; must match the target's
    int16 ammoindex;                        // position in the cycle FIN, DST, HESH
    int16 loadcount;                        // Timloading ticks, counted from 0, 1 or 3
    bool heshcorrecting = false;            // a HESH round was fired: Cmdmaingun sets heshcorrection
    int correctstep = 0;                    // presses of Cmdmaingun in the correction, 0 to 2
    float correctfrom = 0, correctto = 0;   // the picture's Left at the first and the second press
    float heshcorrection = 0;               // set by the gunner: sideways move of a round, twips to the left
    int explodeframe = 0;
    int coaxhits = 0;         // bursts that have hit and count towards the next kill
    bool coaxfired = false;   // the coax has fired since the last deselect; visual

    // Crew voice and sound. Each load resets these variables, since an unload stops Timvoice.
    std::string soundfile;
    bool voicebusy = false;   // a call by callcrew is in progress; say doesn't set it
    int voicecount = 0;       // Timvoice ticks
};

struct gunnery_screen : since_load {
    explicit gunnery_screen(sight_kind k) : kind(k), numbers(numbers_of(k)) {}

    const sight_kind kind;
    const sight_numbers& numbers;
    bool visual() const { return kind == sight_kind::visual; }

    form window;

    // The sight window and its contents. Their places and sizes are the state of the simulation.
    screen_object Picrange;
    screen_object Imgrange;     // the range picture, which slides under the sight
    screen_object Imgtargets;   // the target
    screen_object Imgtargetfin, Imgtargethesh, Imgtargetcoax;   // holders of the three target pictures
    screen_object mbs;                                          // the ring of the sight; visual
    screen_object mbs1;                                         // the aim point
    screen_object laze;                                         // mark that a lase leaves; visual
    screen_object ammo;                                         // the round in flight
    screen_object Imgstadia;               // stadia mark, hidden by the selection of a weapon; thermal
    screen_object Imglam;                  // laser aiming mark; thermal
    screen_object imgbam;                  // ballistic aiming mark; thermal
    screen_object Imgrevfin, Imgrevhesh;   // reversionary marks; thermal
    screen_object Imgstadia1[4];   // holders of the stadia pictures, for near to distant targets; thermal
    screen_object Imgexplode;      // the explosion
    screen_object Imgexp[16];      // holders of its pictures

    // Panels.
    screen_object Frame1;           // "CONTROL PANEL", the parent of the other frames except Frame2
    screen_object Frame3;           // the practice's buttons
    screen_object Frmsys;           // information
    screen_object Frmmousecon;      // the gunner's buttons
    screen_object Frame5;           // lights; visual
    screen_object Frame4;           // lights; thermal. An empty hidden frame on the visual screen
    screen_object Frame2;           // readouts: range, ammunition; visual
    screen_object Frmcon, Image1;   // the card of the keys: frame and picture
    screen_object keynote;          // if Frame3 is hidden: the keys of its buttons, until START SIM; visual

    // Practice control.
    screen_object HScspeed;
    screen_object Cmdstartsim, Cmdstopsim, Cmdpausesim, Cmdmain, Cmdhelpon, Cmdtarget;
    screen_object CMDEXIT;

    // The gunner's buttons.
    screen_object Cmdup, Cmdleft, Cmdright, Cmddown;
    screen_object Cmdcoax, Cmdoff, Cmdselectmain, Cmdmaingun, Cmdlaze, Cmdautolay, Cmdfire;

    // Readouts.
    screen_object lblcrew;        // the crew line
    screen_object lbltargetnum;   // count of targets in a quick start; visual
    screen_object Imgname;        // emblem, shown in a quick start; visual
    screen_object Label2, lblhits, Label1, Lblsystem,
        Lblavetime;   // target, hits, time left, system, average time
    screen_object Lblrange, Lblammotype, Lblcharge, Lblpred;
    screen_object Imgcoax, Imgcoaxon, Imghesh, Imgheshon, Imgloaded, Imgunloaded;   // lamps
    std::deque<screen_object> captions;   // labels and drawings that never change

    timer Timer1, Timpause, Timtarget, Timloading, Timvoice, Timchrg;
    timer Timleft, Timright, Timup, Timdown, timautolay, Timcoax, Timexplode;

    // Variables that nothing resets.
    int targetindex = 0;   // candidate position, 1 to 19, drawn again on each tick of Timer1
    int ordercount = 0;    // orders so far in practices of the type Mixed
    int16 nature;          // a nature_of_target: that of the last order
    int resets = 0;        // number of resets, loads and unloads; tells a handler that its practice has ended
};

}   // namespace vorn

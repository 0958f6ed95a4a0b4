// A gunnery screen, visual or thermal: its variables, objects and timers. The numbers of the two sights are
// in sight.h.
#pragma once

#include <deque>
#include <string>

#include "gunnery/sight.h"
#include "platform/objects.h"
#include "state/numbers.h"

namespace vorn {

enum nature_of_target { no_nature = -1, fin_tank = 0, hesh_bmp = 1, coax_transport = 2 };

// What Lblammotype shows. In the HESH correction the thermal sight shows FIN and DST in turn; both mean HESH.
enum class ammo_shown { nothing, fin, dst, hesh, coax, hesh_as_fin, hesh_as_dst };

// The variables of a screen, grouped by the event that gives them their start values. Resetting a group also
// resets those it derives from: `static_cast<since_reset&>(s) = {}` starts a practice and its first target.

struct since_target {            // since the last target went down
    bool targetcalled = false;   // the commander has laid the gun near the target
    bool targethit = false;
    bool hasfired = false;   // a round has been fired at this target
};

struct since_reset : since_target {
    // The sequencer and the score.
    bool simrunning = false;
    int16 targetnumber;   // targets presented so far
    int16 pausecount;     // Timpause ticks so far
    int16 hits;
    int16 hittime;   // sum of targetticks over the hits

    // The gun and the fire control.
    bool gunloaded = false;
    bool ammoarmed = false;     // a weapon is selected
    bool layready = false;      // autolay may run once
    bool coaxrunning = false;   // visual
    float leadperstep = 0;      // sideways move per twip of lay, for the wind; visual
};

struct since_load : since_reset {
    // The sequencer. targetlife is kept over a reset: the score is worked out from it.
    int currenttarget = 0;     // position of the target now up
    int currentrange = 0;      // metres
    int16 targetticks;         // seconds since the order, plus 1
    int16 targetlife;          // targetticks at which the target goes down
    int16 targetwait;          // Timpause ticks before the next order
    int windoffset = 0;        // of a HESH fall of shot, twips; the visual reset clears it
    bool pauseshown = false;   // Cmdpausesim shows "PAUSE OFF"

    // The traverse.
    int16 traversestep, elevatestep;   // twips per tick; 0 while no direction is held
    int16 traverseaccel;               // one count for all four directions; visual

    // The fire control.
    int layspeed = 3;           // twips per step of the autolay; each reset reads the slider; visual
    bool lazed = false;         // a range has been taken for the next round
    int chargecount = 0;        // Timchrg ticks; visual
    int autolaycount = 0;       // timautolay ticks, kept from one press to the next
    bool autolayheld = false;   // the input has been held for the full count
    bool autolaydown = false;   // the input is held down now; visual
    std::string rangesuffix;    // letter after the range; thermal

    // The gun.
    ammo_shown shown = ammo_shown::nothing;
    int ammoselected = 0;                   // nature of the selected round, compared with that of the target
    int16 ammoindex;                        // position in the cycle FIN, DST, HESH
    int16 loadcount;                        // Timloading ticks
    bool heshcorrecting = false;            // after the first HESH round: Cmdmaingun takes the correction
    int correctstep = 0;                    // presses of Cmdmaingun in the correction, 0 to 2
    float correctfrom = 0, correctto = 0;   // the picture's Left at the first and the second press
    float heshcorrection = 0;               // sideways correction set by the gunner, twips
    int explodeframe = 0;
    int coaxhits = 0;         // bursts that have hit since the last kill
    bool coaxfired = false;   // the coax has fired since the last deselect; visual

    // Crew voice and sound. An unload stops Timvoice, so these must start again with a load.
    std::string soundfile;
    bool voicebusy = false;   // a call of the crew counts as still being spoken
    int voicecount = 0;       // Timvoice ticks
};

struct gunnery_screen : since_load {
    explicit gunnery_screen(sight_kind k) : kind(k), numbers(numbers_of(k)) {}

    const sight_kind kind;
    const sight_numbers& numbers;
    bool visual() const { return kind == sight_kind::visual; }

    form window;

    // The sight window and what it shows. Places and sizes are the state of the simulation.
    screen_object Picrange;
    screen_object Imgrange;     // the range picture, which slides under the sight
    screen_object Imgtargets;   // the target
    screen_object Imgtargetfin, Imgtargethesh, Imgtargetcoax;   // holders of the three target pictures
    screen_object mbs;                                          // the round sight ring; visual
    screen_object mbs1;                                         // the aim point
    screen_object laze;                                         // mark that a lase leaves; visual
    screen_object ammo;                                         // the round in flight
    screen_object Imgstadia;   // stadia mark, shown when no weapon is selected; thermal, like those below
    screen_object Imglam;      // laser aiming mark
    screen_object imgbam;      // ballistic aiming mark
    screen_object Imgrevfin, Imgrevhesh;   // reversionary marks
    screen_object
        Imgstadia1[4];   // holders of the stadia pictures, from the nearest class of target to the farthest
    screen_object Imgexplode;   // the explosion
    screen_object Imgexp[16];   // holders of its pictures

    // Panels.
    screen_object Frame1;           // "CONTROL PANEL", the parent of those below
    screen_object Frame3;           // the practice's buttons
    screen_object Frmsys;           // information
    screen_object Frmmousecon;      // the gunner's buttons
    screen_object Frame5;           // lights; visual
    screen_object Frame4;           // lights; thermal. An empty hidden frame on the visual screen
    screen_object Frame2;           // display of the visual sight
    screen_object Frmcon, Image1;   // picture of the gunner's keys
    screen_object keynote;          // the keys of the practice's buttons while their panel is hidden; visual

    // Practice control.
    screen_object HScspeed;
    screen_object Cmdstartsim, Cmdstopsim, Cmdpausesim, Cmdmain, Cmdhelpon, Cmdtarget;
    screen_object CMDEXIT;   // Cmdquit on the thermal screen

    // The gunner's buttons.
    screen_object Cmdup, Cmdleft, Cmdright, Cmddown;
    screen_object Cmdcoax, Cmdoff, Cmdselectmain, Cmdmaingun, Cmdlaze, Cmdautolay, Cmdfire;

    // Readouts.
    screen_object lblcrew;        // the crew line
    screen_object lbltargetnum;   // count of targets in a quick start; visual
    screen_object Imgname;        // title picture of a quick start; visual
    screen_object Label2, lblhits, Label1, Lblsystem,
        Lblavetime;   // target, hits, time left, system, average time
    screen_object Lblrange, Lblammotype, Lblcharge, Lblpred;
    screen_object Imgcoax, Imgcoaxon, Imghesh, Imgheshon, Imgloaded, Imgunloaded;   // lamps
    std::deque<screen_object> captions;   // labels that never change

    timer Timer1, Timpause, Timtarget, Timloading, Timvoice, Timchrg;
    timer Timleft, Timright, Timup, Timdown, timautolay, Timcoax, Timexplode;

    // Variables that nothing resets.
    int targetindex = 0;   // candidate position, 1 to 19, drawn again on each tick of Timer1
    int ordercount = 0;    // orders so far of the type Mixed
    int16 nature;          // nature_of_target of the target
    int resets = 0;        // count of resets, loads and unloads: shows a handler that its practice has ended
};

}   // namespace vorn

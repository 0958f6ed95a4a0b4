// A gunnery screen: its variables, its objects and its timers. Visual and thermal are one struct; what
// differs between them in number is a row of sight.h.
#pragma once

#include <deque>
#include <string>

#include "gunnery/sight.h"
#include "platform/objects.h"
#include "state/numbers.h"

namespace vorn {

enum nature_of_target { fin_tank = 0, hesh_bmp = 1, coax_transport = 2 };

// The variables of a screen by the moment at which they begin anew. A longer life begins the shorter ones
// with it: `static_cast<since_reset&>(s) = {}` begins a practice and its first target.

struct since_target {            // until it goes down
    bool targetcalled = false;   // the commander has laid the gun near the target
    bool targethit = false;
    bool hasfired = false;   // a round has gone at this target
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
    // The sequencer. The time of the last order outlives the reset: the score box is worked out from it.
    int currenttarget = 0;   // position of the target now up
    int currentrange = 0;    // metres
    int16 targetticks;       // since the order, which counts as the first
    int16 targetlife;        // targetticks at which the target goes down
    int16 targetwait;        // Timpause ticks before the next order
    int windoffset = 0;      // twips, in the fall of shot; the visual reset clears it

    // The traverse: base steps in twips, not 0 while a direction is held, and the ticks that a move has
    // lasted.
    int16 traversestep, elevatestep;
    int16 traverseaccel;   // one counter for all four directions; visual

    // The fire control.
    int layspeed = 3;           // twips a step of the autolay, until a reset has read the slider; visual
    bool lazed = false;         // a range has been taken and the next round may use it
    int chargecount = 0;        // Timchrg ticks; visual
    int autolaycount = 0;       // timautolay ticks, kept from one press to the next
    bool autolayheld = false;   // the input has been held for the full count
    bool autolaydown = false;   // it is held down now; visual
    double relayed = 0;         // twips that the last re-lay moved; visual
    std::string rangesuffix;    // letter behind the range; thermal

    // The gun.
    int ammoselected = 0;                   // nature of the selected round, compared with that of the target
    int16 ammoindex;                        // place in the cycle FIN, DST, HESH
    int16 loadcount;                        // Timloading ticks
    int16 spreadx, spready;                 // of the round in flight, twips
    int aimrow = 0;                         // row of the record that took the aim of the round in flight
    bool heshcorrecting = false;            // the first HESH round has gone: the switch takes the correction
    int correctstep = 0;                    // presses of the switch in the correction, 0 to 2
    float correctfrom = 0, correctto = 0;   // the picture's Left at the first and the second press
    float heshcorrection = 0;               // sideways correction put on by the gunner, twips
    int explodeframe = 0;
    int coaxhits = 0;         // bursts that have hit since the last kill
    bool coaxfired = false;   // the coax has fired since the last deselect; visual

    // Crew voice and sound. The unload stops the timer that would end a held call.
    std::string soundfile;
    bool voicebusy = false;   // a spoken call is held to be running
    int voicecount = 0;       // Timvoice ticks
};

struct gunnery_screen : since_load {
    explicit gunnery_screen(sight_kind k)
        : kind(k), numbers(k == sight_kind::visual ? visualsight : thermalsight)
    {
    }

    const sight_kind kind;
    const sight_numbers& numbers;
    bool visual() const { return kind == sight_kind::visual; }

    form window;

    // The sight window and what is seen in it. Places and sizes are the state of the simulation.
    screen_object Picrange;
    screen_object Imgrange;     // the range picture, which slides under the sight
    screen_object Imgtargets;   // the target
    screen_object Imgtargetfin, Imgtargethesh, Imgtargetcoax;   // holders of the three target pictures
    screen_object mbs;                                          // the round sight ring; visual
    screen_object mbs1;                                         // the aim point
    screen_object laze;                                         // mark left by a lase; visual
    screen_object ammo;                                         // the round in flight
    screen_object Imgstadia;   // stadia mark, shown when no weapon is selected; thermal, as those that follow
    screen_object Imglam;      // laser aiming mark
    screen_object imgbam;      // ballistic aiming mark
    screen_object Imgrevfin, Imgrevhesh;   // reversionary marks
    screen_object
        Imgstadia1[4];   // holders of the stadia pictures, from the nearest class of target to the farthest
    screen_object Imgexplode;   // the explosion
    screen_object Imgexp[16];   // holders of its pictures

    // Panels.
    screen_object Frame1;           // "CONTROL PANEL", which holds those below
    screen_object Frame3;           // the practice's buttons
    screen_object Frmsys;           // information
    screen_object Frmmousecon;      // the gunner's buttons
    screen_object Frame5;           // lights; visual
    screen_object Frame4;           // lights; thermal. On the visual screen an empty frame that nothing shows
    screen_object Frame2;           // display of the visual sight
    screen_object Frmcon, Image1;   // card of the gunner's keys
    screen_object keynote;          // the keys of the practice's buttons while their panel is hidden; visual

    // Practice control.
    screen_object HScspeed;
    screen_object Cmdstartsim, Cmdstopsim, Cmdpausesim, Cmdmain, Cmdhelpon, Cmdtarget;
    screen_object CMDEXIT;   // Cmdquit on the thermal screen

    // The gunner's buttons.
    screen_object Cmdup, Cmdleft, Cmdright, Cmddown;
    screen_object Cmdcoax, Cmdoff, Cmdselectmain, Cmdmaingun, Cmdlaze, Cmdautolay, Cmdfire;

    // What is told.
    screen_object lblcrew;        // the crew line
    screen_object lbltargetnum;   // count of targets in a quick start; visual
    screen_object Imgname;        // title picture of a quick start; visual
    screen_object Label2, lblhits, Label1, Lblsystem,
        Lblavetime;   // target, hits, time left, system, average time
    screen_object Lblrange, Lblammotype, Lblcharge, Lblpred;
    screen_object Imgcoax, Imgcoaxon, Imghesh, Imgheshon, Imgloaded, Imgunloaded;   // lamps: off over on
    std::deque<screen_object> captions;   // labels that never change

    timer Timer1, Timpause, Timtarget, Timloading, Timvoice, Timchrg;
    timer Timleft, Timright, Timup, Timdown, timautolay, Timcoax, Timexplode;

    // What nothing brings back to its start.
    int targetindex = 0;   // candidate position, 1 to 19, redrawn on every tick of Timer1
    int ordercount = 0;    // step of the Mixed pattern
    int16 nature;          // of the target: nature_of_target. The 19th Mixed order keeps that of the 18th
    int resets = 0;        // resets and unloads so far: tells a handler that its practice is gone
};

}   // namespace vorn

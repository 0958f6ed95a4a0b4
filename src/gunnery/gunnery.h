// Functions shared by the sources of a gunnery screen, listed by source.
#pragma once

#include <string>

#include "gunnery/screen.h"
#include "platform/machine.h"

namespace vorn {

struct trainer;

using coordinate = double object_fields::*;

// reset.cpp, design.cpp: the screen as a whole.
void make_gunnery(trainer&, gunnery_screen&);
void design_gunnery(gunnery_screen&);
// Prepares the screen for the next practice. If the range or one of its pictures can't be read, shows a box,
// goes back to the set-up screen and returns false.
bool screenreset(trainer&, gunnery_screen&);

// sequencer.cpp: orders and targets.
void make_sequencer(trainer&, gunnery_screen&);
void nexttarget(trainer&, gunnery_screen&);
void cmdstopsim_click(trainer&, gunnery_screen&);
// Sets the caption of the pause button to what a click on it will do.
void showpause(gunnery_screen&, bool paused);

// slew.cpp: the commander's lay. Returns false if a stop, reset or unload has ended the practice meanwhile.
bool commanderslay(trainer&, gunnery_screen&);

// crew.cpp: the crew line and the sounds. `file` is the name of a wave file.
void make_crew(trainer&, gunnery_screen&);
void playsound(trainer&, gunnery_screen&, const std::string& file);   // if sounds are on
// Plays a sound. During a call of the crew, only stops the current sound.
void effect(trainer&, gunnery_screen&, const std::string& file);
void say(trainer&, gunnery_screen&, const std::string& file);   // a voice, if voices are on
// A call of the crew, if voices are on. For some seconds `effect` then plays nothing.
void callcrew(trainer&, gunnery_screen&, const std::string& file);
void callrange(trainer&, gunnery_screen&);   // the commander states the range
void reporton(trainer&, gunnery_screen&);    // the commander's report after the lay

// traverse.cpp: moves the picture, and the target with it, under the sight.
enum class direction { left, right, up, down };   // in which the view moves
void make_traverse(gunnery_screen&);
void movepicture(gunnery_screen&, coordinate along, double twips);
void pressdirection(gunnery_screen&, direction);
void releasedirection(gunnery_screen&, direction);
void movestick(const trainer&, gunnery_screen&, int x, int y);

// laser.cpp
void make_laser(gunnery_screen&);
void keylaze(trainer&, gunnery_screen&);
// The offset from the aim point to the target's centre, twips; positive: the target is to the right or below.
double aimacross(const gunnery_screen&);
double aimdown(const gunnery_screen&);
// Switches the thermal sight to its reversionary mark and moves picture and target up, about half a twip per
// metre of range.
void reversionarydrop(gunnery_screen&);

// autolay.cpp
void make_autolay(trainer&, gunnery_screen&);
void pressautolay(gunnery_screen&);
void releaseautolay(trainer&, gunnery_screen&);
void keyautolay(trainer&, gunnery_screen&);
// Reverses a HESH lay when the round is fired. Returns by how many twips the target moved up.
double relay(trainer&, gunnery_screen&);

// armament.cpp: weapons, the loader and the trigger.
void make_armament(trainer&, gunnery_screen&);
void keyfire(trainer&, gunnery_screen&);
// Sets `shown` and the caption of Lblammotype. Doesn't move the label.
void showammo(gunnery_screen&, ammo_shown);
// The nature of the round in `shown`: HESH also for hesh_as_fin and hesh_as_dst; no_nature for `nothing`.
nature_of_target natureshown(const gunnery_screen&);

// flight.cpp: the flight and the hit of a round.
void make_flight(gunnery_screen&);
void firefin(trainer&, gunnery_screen&, int round);
void firehesh(trainer&, gunnery_screen&, int round);
// Records the fall of shot of this round and tests it against the kill box. Returns false if it has missed.
bool assessround(trainer&, gunnery_screen&, int round);
// Makes the machine show where the round has come down.
void showstrike(trainer&, const gunnery_screen&, round_kind);

// coax.cpp
void make_coax(trainer&, gunnery_screen&);
void firecoax(trainer&, gunnery_screen&, int round);
void keycoaxstop(trainer&, gunnery_screen&);

// input.cpp: keys, joystick, and the gunner's buttons on the screen.
void make_input(trainer&, gunnery_screen&);

// stadia.cpp: selects the picture of the stadia mark for the target's size.
void choosestadia(gunnery_screen&);

// score.cpp: hits, and the score at the end of a practice.
int row(const trainer&);   // row of the record for the current engagement
void recordhit(trainer&, gunnery_screen&);
void practiceend(trainer&, gunnery_screen&);

}   // namespace vorn

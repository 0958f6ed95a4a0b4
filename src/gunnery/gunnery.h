// What the sources of a gunnery screen do for each other. One source per subject.
#pragma once

#include <string>

#include "gunnery/screen.h"

namespace vorn {

struct trainer;

// setup.cpp, design.cpp: the screen as a whole.
void make_gunnery(trainer&, gunnery_screen&);
void design_gunnery(gunnery_screen&);
// Makes the screen ready for the next practice. False when the range or a picture of it can't be read: the
// user has then been told, and the road leads back to the set-up screen.
bool screenreset(trainer&, gunnery_screen&);

// sequencer.cpp: orders, targets and their time.
void make_sequencer(trainer&, gunnery_screen&);
void nexttarget(trainer&, gunnery_screen&);
void cmdstopsim_click(trainer&, gunnery_screen&);

// slew.cpp: the commander's lay. False when the practice has gone meanwhile: a stop, a reset or an unload.
bool commanderslay(trainer&, gunnery_screen&);

// crew.cpp: crew lines and the one sound channel.
void make_crew(trainer&, gunnery_screen&);
void playsound(trainer&, gunnery_screen&, const std::string& file);   // from its start, if sounds are on
void effect(trainer&, gunnery_screen&, const std::string& file);      // held back while a held call runs
void say(trainer&, gunnery_screen&, const std::string& file);         // spoken, if voices are on
void callcrew(trainer&, gunnery_screen&,
              const std::string& file);      // spoken, and holds back effects meanwhile
void callrange(trainer&, gunnery_screen&);   // the commander states the range
void reporton(trainer&, gunnery_screen&);    // the commander's report after his lay

// traverse.cpp: the picture slides under the sight, and the target with it.
enum class direction { left, right, up, down };   // of the view
void make_traverse(gunnery_screen&);
void movepicture(gunnery_screen&, double object_fields::*along, double twips);
void pressdirection(gunnery_screen&, direction);
void releasedirection(gunnery_screen&, direction);
void movestick(const trainer&, gunnery_screen&, long x, long y);

// laser.cpp
void make_laser(gunnery_screen&);
void keylaze(trainer&, gunnery_screen&);
// The target's centre against the aim point, twips; positive to the right and below.
double aimacross(const gunnery_screen&);
double aimdown(const gunnery_screen&);
// The thermal sight drops to its reversionary mark: picture and target jump up by half the range.
void reversionarydrop(gunnery_screen&);

// autolay.cpp
void make_autolay(trainer&, gunnery_screen&);
void pressautolay(gunnery_screen&);
void releaseautolay(trainer&, gunnery_screen&);
void keyautolay(trainer&, gunnery_screen&);
// Takes a HESH lay off again while the round is in the air.
void relay(trainer&, gunnery_screen&);

// armament.cpp: weapons, the loader, the trigger, the flight and what it hits.
void make_armament(trainer&, gunnery_screen&);
void keyfire(trainer&, gunnery_screen&);
void assessround(trainer&, gunnery_screen&);

// coax.cpp
void make_coax(trainer&, gunnery_screen&);
void firecoax(trainer&, gunnery_screen&);
void keycoaxstop(trainer&, gunnery_screen&);

// input.cpp: keys, stick buttons and the gunner's buttons on the screen.
void make_input(trainer&, gunnery_screen&);

// stadia.cpp: the thermal stadia picture for the target's size.
void choosestadia(gunnery_screen&);

// score.cpp: what a hit and a practice come to.
void recordhit(trainer&, gunnery_screen&);
void practiceend(trainer&, gunnery_screen&);

}   // namespace vorn

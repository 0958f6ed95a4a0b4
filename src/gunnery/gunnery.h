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
void say(trainer&, gunnery_screen&, const std::string& file);         // spoken, if voices are on
void heldcall(trainer&, gunnery_screen&,
              const std::string& file);      // spoken, and holds back effects meanwhile
void callrange(trainer&, gunnery_screen&);   // the commander states the range
void reporton(trainer&, gunnery_screen&);    // the commander's report after his lay

// armament.cpp
void make_armament(trainer&, gunnery_screen&);

// score.cpp: what a hit and a practice come to.
void recordhit(trainer&, gunnery_screen&);
void practiceend(trainer&, gunnery_screen&);

}   // namespace vorn

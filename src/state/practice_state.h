// The practice state that all screens share: paths, the options of the practice, the calibration of the
// joystick, the run flags, the running engagement, the open range and the record, which stores each
// engagement for the debrief. Screens read and write the fields directly.
#pragma once

#include <cstdint>
#include <string>

#include "state/numbers.h"

namespace vorn {

inline constexpr int positions = 21;         // entries of a range file, 0 to 20
inline constexpr int engagement_rows = 17;   // rows 1 to 15 are shown; `engagement` is 16 after 15 targets
inline constexpr int round_rows = 5;         // entries 1 to 4 are shown

template <class T>
using per_engagement = table<T, engagement_rows>;
template <class T>
using per_round = table<table<T, round_rows>, engagement_rows>;

// The initial values are those at the start of the program.
struct practice_state {
    // Paths and file names.
    std::string rootpath;                                    // folder of the ranges, no trailing separator
    std::string rangefile = "Visualrange.arf";               // path of the practice's range file
    std::string resultsfile;                                 // the current results file of the debrief
    std::string targeticon1 = "target icons\\target1.ico";   // icon path of a FIN target, as in a range file
    std::string targeticon2 = "target icons\\target2.ico";   // of a HESH target
    std::string targeticon3 = "target icons\\target3.ico";   // of a COAX target

    // Options of the practice.
    int practicemode = 1;          // 1 visual, 2 thermal
    bool targetauto = true;        // targets come automatically; otherwise on demand
    int16 targetblocks = 2;        // number of targets divided by 3: 2 to 5
    int16 targetcount;             // engagements in the record; set only by START PRACTICE and OPEN
    int16 targettime = 30;         // seconds from the order until a miss, plus 1; 500 for Till destroyed
    int16 engagementtype = 1;      // 1 mixed, 2 coax, 3 HESH, 4 FIN and DST
    int16 systemstatus = 1;        // 0 and 1 full system, 2 laze only, 3 TLS only (visual sight: no laser)
    bool selfdegrading = false;    // systemstatus worsens during the practice
    int targetsize = 4;            // a target's width decreases by range / targetsize
    int killarea = 15;             // killradius is the target's width / killarea
    int coaxbursts = 2;            // 2 to 4; a coax target takes one burst more, on the thermal sight two
    int coaxerror = 20;            // error of a burst, twips down
    double coaxerrorwide = 30;     // error of a burst, twips to the right
    bool coaxlight = true;         // the lights panel is shown
    bool heshcorrectall = false;   // true: each deselect clears the HESH correction
    int windbias = 0;              // -3 to 3; negative: to the left; 1 mild, 2 fresh, 3 strong
    bool gunlight = true;          // thermal sight: the lights panel needs both coaxlight and gunlight
    bool infosystem = true;        // the information panel is shown
    bool infocontrol = true;       // the card of the keys is shown if only the keyboard is selected
    bool infocrew = true;          // the crew line is shown
    bool plainscreen = false;      // visual sight: hides crew line, buttons, information and card of the keys
    bool fulldebrief = true;       // a practice ends with the offer of a debrief; otherwise with a score
    bool soundson = true;
    bool voiceson = true;
    bool joyselected = true;
    bool keyboardselected = true;
    bool mouseselected = false;   // the on-screen gunner's buttons are shown
    int practicenumber = 0;       // the programmed practice selected last, 1 to 12
    padded<30> studentdetails;    // name and number, joined by "_"

    // Calibration of the joystick.
    bool joycalibrated = false;
    double joyxcentre = 0, joyycentre = 0;   // half the maximum reading
    double joyxfactor = 0, joyyfactor = 0;   // the dead band is twice the factor on each side

    // Run flags.
    bool quickstart = false;    // the practice is a quick start
    bool debriefonly = false;   // the debrief has been opened from the set-up; never cleared
    bool paused = false;

    // The running engagement.
    int engagement = 1;     // row of the record for the current target
    int roundnumber = 0;    // index of the next round in this row, 1 to 4; 0 at the start of the program
    float killradius = 0;   // twips

    // The open range.
    padded<20> rangename;
    padded<60> rangepicture;                    // path of the picture
    std::string rangetype;                      // "THERMAL"; any other is a visual range
    table<std::int32_t, positions> targetx{};   // twips from the picture's left edge
    table<std::int32_t, positions> targety{};   // twips from the top edge
    table<int16, positions> targetrange{};      // metres

    // The range and sight of the record.
    std::string resultpicture;
    std::string resultmode;   // "VISUAL" or "THERMAL"
    std::string resultrange;
    std::string resulticon1, resulticon2, resulticon3;

    // The record by engagement. Nothing clears it: rows of targets that weren't reached keep the values of an
    // earlier practice.
    per_engagement<std::string> recsystem;   // "FULL", "LAZE ONLY", "TLS ONLY"
    per_engagement<int16> rectarget{};       // number of the engagement; 0 if never completed
    per_engagement<int16> recrounds{};
    per_engagement<std::string> recammo;
    per_engagement<std::string> rechit;   // "YES" or "NO"
    per_engagement<int16> rectime{};      // seconds from the order to the kill, rounded up; 100 if missed
    per_engagement<int16> recwidth{};     // twips
    per_engagement<int16> recrange{};     // metres
    per_engagement<std::int32_t> recx{}, recy{};   // twips on the range picture
    // Offset from the aim point to the target at the last lase, twips.
    per_engagement<int16> reclazex{}, reclazey{};

    // The record by engagement and round: offsets from the aim point and from the fall of shot to the target,
    // twips. recaimy has the opposite sign on the thermal sight.
    per_round<int16> recaimx{}, recaimy{};
    per_round<int16> recfallx{}, recfally{};
};

}   // namespace vorn

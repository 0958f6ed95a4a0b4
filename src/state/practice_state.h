// The practice state that every screen shares: the options of the practice, the joystick's calibration, the
// run flags, the open range and the record. It lives as long as the program and is read and written in place.
#pragma once

#include <cstdint>
#include <string>

#include "state/numbers.h"

namespace vorn {

inline constexpr int positions = 21;   // of a range: entries 0 to 20
inline constexpr int engagement_rows =
    17;                                // rows 1 to 15 for targets, one more to move on to after the last
inline constexpr int round_rows = 5;   // rounds 1 to 4

template <class T>
using per_engagement = table<T, engagement_rows>;
template <class T>
using per_round = table<table<T, round_rows>, engagement_rows>;

struct practice_state {
    // Paths and file names.
    std::string rootpath;      // the data folder, no separator at its end
    std::string rangefile;     // the range of the practice
    std::string resultsfile;   // the results file that is open in the debrief
    std::string targeticon1;   // picture of a FIN target, below rootpath
    std::string targeticon2;   // of a HESH target
    std::string targeticon3;   // of a COAX target

    // Options of the practice.
    int practicemode = 0;          // 1 visual, 2 thermal
    bool targetauto = false;       // the next target comes by itself; otherwise on demand
    int16 targetblocks;            // number of targets divided by 3: 2 to 5
    int16 targetcount;             // targets in the practice, fixed when it starts
    int16 targettime;              // seconds a target stays up; 500: till destroyed
    int16 engagementtype;          // 1 mixed, 2 coax, 3 HESH, 4 DST and FIN
    int16 systemstatus;            // 0 and 1 full system, 2 laze only, 3 TLS only
    bool selfdegrading = false;    // the status worsens as the practice goes on
    int targetsize = 0;            // divisor of the range in the target's width
    int killarea = 0;              // divisor of the target's width in the kill radius
    int coaxbursts = 0;            // bursts needed on a coax target: 2 to 4
    int coaxerror = 0;             // vertical error of a burst, twips
    double coaxerrorwide = 0;      // horizontal error of a burst, twips
    bool coaxlight = false;        // the lights panel is shown
    bool heshcorrectall = false;   // HESH correction on all targets; otherwise till correct
    int windbias = 0;              // -3 strong from the left to 3 strong to the right
    bool gunlight = false;         // the second lights panel is shown
    bool infosystem = false;       // the information panel is shown
    bool infocontrol = false;      // the keyboard card may be shown
    bool infocrew = false;         // the crew line is shown
    bool plainscreen = false;      // all side panels are hidden, visual sight only
    bool fulldebrief = false;      // the end of a practice offers the debrief; otherwise a quick score
    bool soundson = false;
    bool voiceson = false;
    bool joyselected = false;
    bool keyboardselected = false;
    bool mouseselected = false;   // the on-screen gunner's buttons are shown
    int practicenumber = 0;       // 1 to 12, the programmed practice chosen last
    padded<30> studentdetails;    // name and number, joined by "_"

    // Calibration of the joystick.
    bool joycalibrated = false;
    double joyxcentre = 0, joyycentre = 0;   // centre of the stick
    double joyxfactor = 0, joyyfactor = 0;   // unit of the dead band

    // Run flags.
    bool quickstart = false;    // the practice was started by the quick start
    bool debriefonly = false;   // the debrief was opened with no practice behind it
    bool paused = false;

    // The running engagement.
    int engagement = 1;     // row of the record for the target now up
    int roundnumber = 0;    // row of the round now being fired, 1 to 4
    float killradius = 0;   // twips

    // The open range.
    padded<20> rangename;
    padded<60> rangepicture;                    // path of the picture
    std::string rangetype;                      // "THERMAL"; anything else is a visual range
    table<std::int32_t, positions> targetx{};   // twips from the picture's left edge
    table<std::int32_t, positions> targety{};   // twips from its top edge
    table<int16, positions> targetrange{};      // metres

    // Head of the record.
    std::string resultpicture;
    std::string resultmode;   // "VISUAL" or "THERMAL"
    std::string resultrange;
    std::string resulticon1, resulticon2, resulticon3;

    // The record by engagement. Nothing clears it: targets never reached keep an earlier practice's rows.
    per_engagement<std::string> recsystem;   // "FULL", "LAZE ONLY", "TLS ONLY"
    per_engagement<int16> rectarget{};       // the engagement's own number; 0 in a row that never closed
    per_engagement<int16> recrounds{};
    per_engagement<std::string> recammo;
    per_engagement<std::string> rechit;             // "YES" or "NO"
    per_engagement<int16> rectime{};                // seconds from the order to the kill; 100 when missed
    per_engagement<int16> recwidth{};               // twips
    per_engagement<int16> recrange{};               // metres
    per_engagement<std::int32_t> recx{}, recy{};    // twips on the range picture
    per_engagement<int16> reclazex{}, reclazey{};   // sight against target at the last laze, twips

    // The record by engagement and round, twips against the target.
    per_round<int16> recaimx{}, recaimy{};
    per_round<int16> recfallx{}, recfally{};
};

// The options as the program starts with them. rootpath is still empty then, so the names that are joined
// to it come out relative to the working directory.
void set_defaults(practice_state&);

}   // namespace vorn

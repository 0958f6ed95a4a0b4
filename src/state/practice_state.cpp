#include "state/practice_state.h"

namespace vorn {

static void default_files(practice_state& p)
{
    p.rangefile = p.rootpath + "Visualrange.arf";
    const std::string icons = p.rootpath + "target icons\\";
    p.targeticon1 = icons + "target1.ico";
    p.targeticon2 = icons + "target2.ico";
    p.targeticon3 = icons + "target3.ico";
}

static void default_practice(practice_state& p)
{
    p.practicemode = 1;
    p.targetauto = true;
    p.targetblocks = 2;
    p.targettime = 30;
    p.engagementtype = 1;
    p.systemstatus = 1;
    p.selfdegrading = false;
    p.targetsize = 4;
    p.killarea = 15;
    p.coaxbursts = 2;
    p.coaxerror = 20;
    p.coaxerrorwide = 30;
    p.heshcorrectall = false;
    p.windbias = 0;
    p.fulldebrief = true;
}

static void default_screen_and_controls(practice_state& p)
{
    p.coaxlight = true;
    p.gunlight = true;
    p.infosystem = true;
    p.infocontrol = true;
    p.infocrew = true;
    p.plainscreen = false;
    p.soundson = true;
    p.voiceson = true;
    p.joyselected = true;
    p.keyboardselected = true;
    p.mouseselected = false;
    p.joycalibrated = false;
}

void set_defaults(practice_state& p)
{
    default_files(p);
    default_practice(p);
    default_screen_and_controls(p);
}

}   // namespace vorn

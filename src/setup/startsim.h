// The practice set-up screen: the student, the options or a programmed practice, the range, the controls, and
// the start of a practice. Each option is written to the shared state when it is selected.
#pragma once

#include <deque>
#include <string>

#include "platform/objects.h"

namespace vorn {

struct trainer;

struct startsim_screen {
    form window;

    // The buttons along the top.
    screen_object cmdopenset, cmdsaveset, Cmdstart, cmdgame, Cmddebrief, Cmdabout, Cmdhelpon, Cmdexit;

    screen_object Frame2, Txtname, Txtnum;   // student details
    screen_object Frame3, Label3, Image1;    // instructions, and the program picture that can cover them

    // Practices: twelve programmed practices, drawn as numbered targets (the last as a STOP sign), and the
    // summary of the set-up.
    screen_object Frame13, Label14;
    screen_object Imgpractice[13], Lblpractice[13];   // indexed from 1
    screen_object lblprac[8];

    // Options.
    screen_object Frmoptions;
    screen_object Frmsystem, Optsys1, Optsys2, Optsys3, Optsys4;
    screen_object Frmengagements, Opteng1, Opteng2, Opteng3, Opteng4;
    screen_object Frame1, Opttargets1, Opttargets2, Opttargets3, Opttargets4;
    screen_object FrmTiming, Opttime1, Opttime2, Opttime3, Opttime4;
    screen_object Frmmode, Optmode1, Optmode2;
    screen_object Frmtargetry, Opttarg1, Opttarg2;
    screen_object Frame10, Option1, Option2, Option3, Option4;   // coax bursts; Option1 is never shown
    screen_object Frame6, HScrwind, lblwinddir, Lblwindstr;

    // Range.
    screen_object Frame9, Lblrangename, lblrangetype, Cmdopenrange, cmdeditrange, Command3;

    // Options for what the gunnery screens show.
    screen_object Frame5, Chkinfo1, Chkinfo2, chkinfo3, Chkgunlight, Chkcoax;
    screen_object Frame8, Optscreen1, Optscreen2;

    // Controls.
    screen_object Frmcontrols;
    screen_object Frmmethod, Optcon1, Optcon2, Optcon3, Optcon4;   // Optcon4 is never shown
    screen_object Frmvoices, Optvoice1, Optvoice2;
    screen_object Frmsounds, Optsound1, Opsound2;
    screen_object Frmresults, optcontroller1, Optcontroller2;
    screen_object Frmhesh, opthesh1, Opthesh2;
    screen_object cmdstick;

    screen_object Frame7;   // advanced options
    screen_object Frmtgtsize, HSctgt, Frmkillarea, hsctarget, Frmcoaxerror, HSccoax;

    screen_object outcome;   // says which practice file was saved
    screen_object Lblinfo, Lblhelp;
    std::deque<screen_object> captions;   // labels and drawings that never change

    timer Timhelp;
    int hintticks = 0;          // ticks of Timhelp with the cursor on a button
    std::string practicefile;   // path of the practice file chosen last
};

using startsim_option = screen_object startsim_screen::*;   // names an option of the screen

void make_startsim(trainer&);

// Reads name and type from the file of the range, and sets the practice mode by the type. If the file can't
// be read, asks the user for another; the answer No ends the program.
void readrangehead(trainer&);

}   // namespace vorn

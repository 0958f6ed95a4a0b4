// The debrief screen. It shows the engagements of a practice one at a time. The last lase, and the aim and
// the fall of shot of one round at a time, are marked on the target. The screen saves, opens, deletes and
// prints records.
#pragma once

#include <cstdint>
#include <deque>

#include "platform/objects.h"

namespace vorn {

struct trainer;

struct results_screen {
    form window;

    // The buttons along the top.
    screen_object Cmdsave, Cmdopen, Cmdprint, Cmddelete, cmdnew, Cmdreplay, Cmdexit, Cmdhelpon;

    screen_object Imgrange;           // the range picture, scaled to a strip
    screen_object imgtargetpointer;   // marks the selected target on the strip
    screen_object originalrange;      // holder of the same picture at full size, for the scale of the strip

    // The list of engagements, indexed from 1.
    screen_object Frame4;
    screen_object Lbltgtnumber[16], Imgtgtnumber[16];
    screen_object Imgfin, Imghesh, Imgcoax, imgblank;   // holders for list and target; imgblank: list only

    screen_object Frame3, Txtstudent, Txtpractype, Txtrngename;
    screen_object Frame2, Lbltargetnum, Lblsystem, Lblammo, lbltargetrange, Lbltarget, Lbltime;

    // The target and its marks. Shape1 is never shown: its place is that of a mark whose offset is 0.
    screen_object Frame1, Lblrounds, Cmdround1, cmdround2, Cmdround3, cmdround4;
    screen_object Imgtargetdetails, Shape1, Imgreptarget, Imglaze, Imagepoa, Imgfos, Lbltargetvis, Frame7;
    screen_object killbox;   // outline of the kill box, to compare with the middle of a round's mark

    screen_object Frmreading;   // how to read the marks
    screen_object Frmtherm, Imgthermtarget, Imgbam, Imgrevfin, Imgrevhesh;

    screen_object outcome;   // what was saved, printed or deleted last
    screen_object Lblinfo, lblhelp;
    std::deque<screen_object> captions;   // labels and drawings that never change

    timer Timhelp;
    int hintticks = 0;
    int selectedengagement = 0;
    std::int32_t markerscale = 0;   // twips on Imgtargetdetails per twip on the gunnery screen
    std::int32_t overviewscalex = 0, overviewscaley = 0;   // twips of the whole picture per twip of the strip
};

void make_results(trainer&);

}   // namespace vorn

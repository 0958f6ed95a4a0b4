// The range author. An instructor moves a panoramic picture behind a small sight window and marks twenty
// numbered target positions on it. Each gets a range in metres. The instructor also chooses the three icons,
// and saves the range file.
#pragma once

#include <deque>
#include <string>

#include "platform/objects.h"
#include "state/practice_state.h"

namespace vorn {

struct trainer;

struct rauthor_screen {
    form window;

    // The buttons along the top.
    screen_object cmdnew, Cmdopen, Cmdsave, Cmdstart, Cmdexit, Command1;

    screen_object Frame2;    // contains Frame3 to Frame6 and the instructions
    screen_object guide;     // the instructions
    screen_object marking;   // the note below the view through the sight

    // The sight window: the picture moves behind it. The marked point is the lower right corner of the fixed
    // cursor.
    screen_object Frame5, Picture1, Imagerange, Imgex;
    screen_object shown_target;   // a target at the marked point, with the icon clicked last

    screen_object Frame3;         // target selector: the icons, and the arrow buttons
    screen_object Imgtarget[4];   // indexed from 1
    screen_object Cmdbigup, cmdup, Cmddown, Cmdbigdown, Cmdbigleft, cmdleft, cmdright, Cmdbigright;

    screen_object Frame4;   // range details
    screen_object Textname, Lblrangetype, Lbltargetrange, Lblsavetarget;
    screen_object Lbltargetnum[positions];   // indexed from 1; red: the position is placed

    screen_object Frame6;   // range info
    screen_object Lbltarget, Lblx, Lbly, Lblwide, Lblhigh, Lbltgtrange;

    // The overview of the range, with a cursor at the marked point and a marker for each position.
    screen_object Frame1, Image1, Imgpoint;
    screen_object Img[positions];   // indexed from 1

    screen_object outcome;   // what was opened or saved last, a failure, or a warning
    screen_object Lblinfo, lblhelp;
    std::deque<screen_object> captions;   // labels and drawings that never change

    timer Timex, Timex1, Timey, Timey1, Timhelp;

    int iconnumber = 1;              // the icon clicked last
    int targetsize = 4;              // a copy of practice_state::targetsize
    double pointx = 0, pointy = 0;   // the marked point, twips on the picture, shown by Lblx and Lbly
    int target = 1;                  // the selected position, shown by Lbltarget
    int metres = 0;                  // range of the marked point, shown by Lbltgtrange; 0: none yet
    float authorscalex = 1, authorscaley = 1;             // twips of the picture per twip of Image1
    double bandbottom = 0, bandtop = 0, bandheight = 0;   // the ground band, twips on the picture
    int stepx = 0, stepy = 0;                             // twips per tick of the arrow pressed last
    int hintticks = 0;                                    // ticks of Timhelp with the cursor on a button
};

void make_rauthor(trainer&);

}   // namespace vorn

// The range author: an instructor moves a panoramic picture behind a small sight window, marks twenty
// numbered target positions on it, gives each a range, chooses the three icons and saves the range file.
#pragma once

#include <deque>
#include <string>

#include "platform/objects.h"
#include "state/practice_state.h"

namespace vorn {

struct trainer;

struct rauthor_screen {
    form window;

    // Along the top.
    screen_object cmdnew, Cmdopen, Cmdsave, Cmdstart, Cmdexit, Command1;

    screen_object Frame2;   // contains the four frames that follow, and the instructions
    screen_object guide;    // the instructions

    // The sight window: the picture moves behind it. The marked point is the lower right corner of the fixed
    // cursor.
    screen_object Frame5, Picture1, Imagerange, Imgex;
    screen_object shown_target;   // the target of the icon chosen last, as it would be seen there

    screen_object Frame3;         // target selector, and the cross of arrows
    screen_object Imgtarget[4];   // from 1
    screen_object Cmdbigup, cmdup, Cmddown, Cmdbigdown, Cmdbigleft, cmdleft, cmdright, Cmdbigright;

    screen_object Frame4;   // range details
    screen_object Textname, Lblrangetype, Lbltargetrange, Lblsavetarget;
    screen_object Lbltargetnum[positions];   // from 1; the back colour is red if the position is placed

    screen_object Frame6;   // range info
    screen_object Lbltarget, Lblx, Lbly, Lblwide, Lblhigh, Lbltgtrange;

    // The overview of the range, with a cursor at the marked point and a marker for each position.
    screen_object Frame1, Image1, Imgpoint;
    screen_object Img[positions];   // from 1

    screen_object outcome;   // the outcome of the last new, open or save, for which there is no box
    screen_object Lblinfo, lblhelp;
    std::deque<screen_object> captions;   // the labels that never change

    timer Timex, Timex1, Timey, Timey1, Timhelp;

    int iconnumber = 1;              // the icon clicked last
    int targetsize = 4;              // as in practice_state: divisor of the range in a target's width
    double pointx = 0, pointy = 0;   // the marked point, twips on the picture, shown by Lblx and Lbly
    int target = 1;                  // the selected position, shown by Lbltarget
    int metres = 0;                  // range of the marked point, shown by Lbltgtrange; 0: none yet
    float authorscalex = 1, authorscaley = 1;             // twips of the picture per twip of Image1
    double bandbottom = 0, bandtop = 0, bandheight = 0;   // the ground band, twips on the picture
    int stepx = 0, stepy = 0;                             // twips a tick, of the arrow pressed last
    int hintticks = 0;   // ticks of Timhelp since the cursor came to a button
};

void make_rauthor(trainer&);

}   // namespace vorn

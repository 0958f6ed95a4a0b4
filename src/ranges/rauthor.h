// The range author: an instructor looks across a panoramic picture through a small sight window, marks twenty
// numbered target positions on it with a range for each, chooses the three icons and saves the whole.
#pragma once

#include <cstddef>
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

    screen_object Frame2;   // holds the four frames that follow, and the instructions

    // The sight window: the picture moves behind it. The point being marked is the lower right corner of the
    // fixed cursor.
    screen_object Frame5, Picture1, Imagerange, Imgex;
    screen_object shown_target;   // the target of the icon chosen last, as it would be seen at the point

    screen_object Frame3;         // target selector, and the cross of arrows
    screen_object Imgtarget[4];   // from 1
    screen_object Cmdbigup, cmdup, Cmddown, Cmdbigdown, Cmdbigleft, cmdleft, cmdright, Cmdbigright;

    screen_object Frame4;   // range details
    screen_object Textname, Lblrangetype, Lbltargetrange, Lblsavetarget;
    screen_object Lbltargetnum[positions];   // from 1; the back colour records whether the position is placed

    screen_object Frame6;   // range info
    screen_object Lbltarget, Lblx, Lbly, Lblwide, Lblhigh, Lbltgtrange;

    // The whole range, with a cursor where the sight window is and a marker for each position.
    screen_object Frame1, Image1, Imgpoint;
    screen_object Img[positions];   // from 1

    screen_object outcome;   // what came of the last picture, range or icon; in words, since no box tells
    screen_object Lblinfo, lblhelp;
    std::deque<screen_object> captions;   // labels that never change

    timer Timex, Timex1, Timey, Timey1, Timhelp;

    int iconnumber = 1;              // the icon clicked last
    int targetsize = 4;              // the option of that name: divisor of the range in a target's width
    double pointx = 0, pointy = 0;   // the point being marked, twips on the picture: what Lblx and Lbly show
    int target = 1;                  // the position being edited: what Lbltarget shows
    float authorscalex = 1, authorscaley = 1;             // twips of the picture to one of Image1
    double bandbottom = 0, bandtop = 0, bandheight = 0;   // the ground band, twips on the picture
    int stepx = 0, stepy = 0;                             // twips a tick, of the arrow pressed last
    int hintticks = 0;   // ticks of Timhelp since the cursor came to a button
};

void make_rauthor(trainer&);

}   // namespace vorn

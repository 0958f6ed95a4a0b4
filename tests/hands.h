// What a gunner works: the same hands by key, by button of the screen and by stick.
#pragma once

#include <array>

#include "gunnery/screen.h"

namespace vorn {

enum class device { key, mouse, stick };
enum class hand { up, left, right, down, coax, off, mainarm, ammo, laze, lay, fire };

struct hand_row {
    int key;
    screen_object gunnery_screen::*button;
    int stick;   // its number there; 0: none
};
constexpr std::array<hand_row, 11> hands{{{'U', &gunnery_screen::Cmdup, 0},
                                          {'H', &gunnery_screen::Cmdleft, 0},
                                          {'J', &gunnery_screen::Cmdright, 0},
                                          {'N', &gunnery_screen::Cmddown, 0},
                                          {'Q', &gunnery_screen::Cmdcoax, 0},
                                          {'W', &gunnery_screen::Cmdoff, 0},
                                          {'E', &gunnery_screen::Cmdselectmain, 0},
                                          {'R', &gunnery_screen::Cmdmaingun, 2},
                                          {'A', &gunnery_screen::Cmdlaze, 3},
                                          {'S', &gunnery_screen::Cmdautolay, 4},
                                          {'D', &gunnery_screen::Cmdfire, 1}}};

inline const hand_row& row_of(hand h)
{
    return hands.at(static_cast<std::size_t>(h));
}

}   // namespace vorn

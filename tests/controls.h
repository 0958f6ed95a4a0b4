// The gunner's controls: the key, the button on the screen and the stick button of each.
#pragma once

#include <array>

#include "gunnery/screen.h"

namespace vorn {

enum class device { key, mouse, stick };
enum class control { up, left, right, down, coax, off, mainarm, ammo, laze, lay, fire };

struct control_row {
    int key;
    screen_object gunnery_screen::*button;
    int stick;   // number of the stick button; 0: none
};
constexpr std::array<control_row, 11> controls{{{'U', &gunnery_screen::Cmdup, 0},
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

inline const control_row& row_of(control c)
{
    return controls.at(static_cast<std::size_t>(c));
}

}   // namespace vorn

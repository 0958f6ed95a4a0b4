// What a screen reader is told of the widgets that the toolkit doesn't know.
#pragma once

namespace vorn {

// Pictures that can't be clicked are pictures to a screen reader, and one that lies beneath another isn't
// there.
void describe_pictures();

}   // namespace vorn

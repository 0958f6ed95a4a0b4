// Accessibility of the program's own widgets, for screen readers.
#pragma once

namespace vorn {

// Makes Qt report pictures that can't be clicked as graphics, and as invisible if covered by another picture.
void describe_pictures();

}   // namespace vorn

// Accessibility of the program's own widgets, for screen readers.
#pragma once

namespace vorn {

// Reports pictures that can't be clicked as graphics, and one that is covered by another as invisible.
void describe_pictures();

}   // namespace vorn

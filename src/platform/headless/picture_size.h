// The natural size of a picture file, read from its header. A machine without a screen needs no pixels.
#pragma once

#include <string>

#include "platform/machine.h"

namespace vorn {

// JPEG, PNG or ICO, recognised by content. An icon file has the size of its largest image.
loaded_picture picture_of_file(const std::string& file);

}   // namespace vorn

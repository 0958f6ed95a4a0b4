// Work shared out among threads.
#pragma once

#include <functional>

namespace landscape {

// Does the work for 0 to count - 1, in any order, on two threads.
void share_out(int count, const std::function<void(int)>& work);

}   // namespace landscape

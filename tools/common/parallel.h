// Runs work on all cores of the processor.
#pragma once

#include <QThreadPool>

namespace tools {

// Calls work(0) to work(count - 1), in any order, on all cores.
template <class Work>
void parallel_for(int count, const Work& work)
{
    QThreadPool pool;
    for (int i = 0; i < count; ++i) pool.start([&work, i] { work(i); });
    pool.waitForDone();
}

}   // namespace tools

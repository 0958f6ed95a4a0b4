#include "workers.h"

#include <atomic>
#include <thread>
#include <vector>

namespace landscape {

void share_out(int count, const std::function<void(int)>& work)
{
    constexpr int threads = 2;
    std::atomic<int> next{0};
    const auto serve = [&] {
        for (int i = next++; i < count; i = next++) work(i);
    };
    std::vector<std::thread> others;
    for (int i = 1; i < threads; ++i) others.emplace_back(serve);
    serve();
    for (std::thread& t : others) t.join();
}

}   // namespace landscape

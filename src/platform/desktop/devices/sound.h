// The one sound channel, on SDL's audio queue: plays a wave file without blocking and stops at once. A
// machine without sound, or whose device comes and goes, is silent while there is none and heard again when
// there is.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vorn {

class sound_channel {
public:
    sound_channel() = default;
    ~sound_channel();
    sound_channel(const sound_channel&) = delete;
    sound_channel& operator=(const sound_channel&) = delete;

    // Cuts off what is playing and plays this file; a missing or broken one is passed over in silence.
    void play(const std::string& file);
    void stop();
    bool playing() const;

    // Looking for a device takes time and makes some drivers complain aloud: once in so many seconds is
    // enough.
    double retry_seconds = 5;

private:
    bool ready();
    void close_device();

    std::uint32_t device_ = 0;   // SDL's number of the open device; 0: none
    double retry_at_ = 0;        // seconds; before it no device is looked for again
};

}   // namespace vorn

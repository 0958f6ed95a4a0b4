// The only sound channel, on SDL's audio queue. It plays a wave file without blocking and can be stopped
// immediately. The audio device may be connected or disconnected at any time; without a device the channel is
// silent.
#pragma once

#include <cstdint>
#include <string>

namespace vorn {

class sound_channel {
public:
    sound_channel() = default;
    ~sound_channel();
    sound_channel(const sound_channel&) = delete;
    sound_channel& operator=(const sound_channel&) = delete;

    // Stops the current sound and plays this file if it can be read.
    void play(const std::string& file);
    void stop();
    bool playing() const;

    // The shortest time from a failed attempt to open a device to the next one: an attempt is slow, and some
    // drivers print messages at each.
    double retry_seconds = 5;

private:
    bool open_device();
    void close_device();

    std::uint32_t device_ = 0;   // SDL's id of the open device; 0: none
    double retry_at_ = 0;        // seconds; the earliest time of the next attempt to open a device
};

}   // namespace vorn

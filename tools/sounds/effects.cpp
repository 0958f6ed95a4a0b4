// Synthesizes one sound effect from filtered noise, falling tones and resonators. Prints it in the text
// format of sox: a header, then a time and a sample in each line. The samples aren't normalized.
//
// Usage: effects fire|coax|explode1

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "common/noise.h"
#include "common/save.h"

namespace tools {
namespace {

constexpr int rate = 22050;   // samples per second
constexpr double turn = 2 * std::numbers::pi;

// Times are in seconds, frequencies in Hz. Rise, decay and fall are rates per second: a higher one is
// quicker.

// Low-pass filtered noise; with a higher cut-off frequency it sounds sharper.
struct rush {
    double start, cutoff, rise, decay, loudness;
};
// A thud: a low tone that falls in pitch.
struct thump {
    double start, high, low, fall, rise, decay, loudness;
};
// The sound of steel after a blow: noise in a resonant filter, whose response to an impulse is a tone that
// decays.
struct ring {
    double start, pitch, decay, loudness;
};

double envelope(double time, double rise, double decay)
{
    return (1 - std::exp(-time * rise)) * std::exp(-time * decay);
}

struct sound {
    std::vector<double> samples;
    rng random;

    sound(double seconds, std::uint64_t seed)
        : samples(static_cast<std::size_t>(seconds * rate)), random(seed)
    {
    }

    double noise() { return 2 * random.fine() - 1; }   // -1 to 1

    // Adds wave(seconds since `start`) until it has decayed to a thousandth.
    void add_wave(double start, double decay, const auto& wave)
    {
        const auto first = static_cast<std::size_t>(start * rate);
        const auto count = static_cast<std::size_t>(7 / decay * rate);
        for (std::size_t i = 0; i < count && first + i < samples.size(); ++i)
            samples[first + i] += wave(static_cast<double>(i) / rate);
    }
    void add(const rush& r)
    {
        const double share = 1 - std::exp(-turn * r.cutoff / rate);
        // A lower cut-off passes less of the noise. The gain makes the loudness independent of the cut-off.
        const double gain = r.loudness * std::sqrt(rate / 2.0 / r.cutoff);
        double once = 0, twice = 0;   // noise after one low-pass filter, and after two
        add_wave(r.start, r.decay, [&](double time) {
            once += share * (noise() - once);
            twice += share * (once - twice);
            return gain * twice * envelope(time, r.rise, r.decay);
        });
    }
    void add(const thump& b)
    {
        double phase = 0;
        add_wave(b.start, b.decay, [&](double time) {
            phase += turn * (b.low + (b.high - b.low) * std::exp(-time * b.fall)) / rate;
            return b.loudness * std::sin(phase) * envelope(time, b.rise, b.decay);
        });
    }
    void add(const ring& r)
    {
        const double pitch = turn * r.pitch / rate, kept = std::exp(-r.decay / rate);
        double last = 0, before = 0;   // the last two results of the filter
        add_wave(r.start, r.decay, [&](double time) {
            const double blow = noise() * std::exp(-time * 120);
            const double y =
                std::sin(pitch) * blow + 2 * kept * std::cos(pitch) * last - kept * kept * before;
            before = std::exchange(last, y);
            return .2 * r.loudness * y;
        });
    }
    void add(const auto&... parts) { (add(parts), ...); }
};

// The main gun as the crew hears it: the shot outside the armour, the ringing turret, recoil and run-out, and
// the stub of the case falling into its bin.
sound fire()
{
    sound s(1.9, 0x3f1972d6a49fd2f2);
    s.add(rush{.002, 4200, 4000, 48, 1.3},   // the crack
          rush{.004, 900, 900, 5.5, 1.2},    // the blast
          rush{.04, 260, 25, 2.2, .8},       // reverberation from the ground
          rush{.29, 520, 60, 3.5, .4},       // echo of the blast
          rush{.62, 420, 60, 3, .3});
    s.add(thump{.002, 150, 42, 16, 700, 5.5, 1.3}, thump{.002, 260, 95, 30, 900, 16, .7});
    s.add(ring{.01, 183, 3, .5}, ring{.01, 317, 3.5, .4}, ring{.01, 548, 4, .25});     // the turret
    s.add(ring{.11, 412, 9, .5}, ring{.11, 1130, 11, .4}, ring{.11, 2270, 14, .25});   // recoil
    s.add(ring{.52, 536, 14, .35}, ring{.52, 1490, 16, .25});                          // run-out
    s.add(ring{.78, 874, 8, .2}, ring{.78, 2380, 10, .2});                             // the stub
    s.add(ring{.93, 903, 8, .12}, ring{.93, 2430, 10, .12});   // the stub again, after a bounce
    return s;
}

// One long burst, since the sound isn't looped while the trigger is held.
sound coax()
{
    constexpr double seconds = 12, ceasing = seconds - .7, between = 60.0 / 650;
    sound s(seconds, 0xfba0f83118119d19);
    for (double shot = .002; shot < ceasing;) {
        const double loudness = 1 + .1 * s.noise();
        s.add(rush{shot, 5200, 6000, 85, .9 * loudness}, rush{shot, 1100, 3000, 38, .8 * loudness},
              thump{shot, 160, 95, 60, 2000, 42, .6 * loudness});
        s.add(ring{shot + .034, 2700, 160, .7}, ring{shot + .034, 1750, 140, .5});   // the bolt
        s.add(rush{shot + .01, 330, 60, 6, .12 * loudness});   // reverberation from the ground
        shot += between * (1 + .025 * s.noise());
    }
    for (int link = 0; link < 5; ++link) {   // the last links fall
        const double late = .03 * s.noise();
        s.add(ring{ceasing + .14 + .06 * link + late, 3900 + 350.0 * link, 60, .3});
    }
    return s;
}

// A vehicle exploding far away: a thud and a long roll with echoes, but no crack.
sound explode1()
{
    sound s(2.2, 0xbcd1a5b378990964);
    s.add(rush{.002, 800, 220, 7, 1.5}, rush{.06, 300, 12, 1.6, 1}, rush{.42, 380, 40, 3, .5},
          rush{.78, 320, 40, 3, .35}, rush{1.2, 280, 40, 3, .25}, rush{.1, 1500, 8, 4, .25});
    s.add(thump{.002, 80, 34, 8, 200, 4, 1.2}, thump{.002, 150, 70, 12, 300, 9, .6});
    return s;
}

}   // namespace
}   // namespace tools

using namespace tools;

int main(int count, char** arguments)
{
    const std::string name = count == 2 ? arguments[1] : "";
    const sound s = name == "fire"       ? fire()
                    : name == "coax"     ? coax()
                    : name == "explode1" ? explode1()
                                         : sound(0, 0);
    if (s.samples.empty()) fail("usage: effects fire|coax|explode1");
    std::printf("; Sample Rate %d\n; Channels 1\n", rate);
    // The hyperbolic tangent clips softly.
    for (std::size_t i = 0; i < s.samples.size(); ++i)
        std::printf("%.6f %.6f\n", static_cast<double>(i) / rate, std::tanh(s.samples[i]));
    return std::ferror(stdout) != 0;
}

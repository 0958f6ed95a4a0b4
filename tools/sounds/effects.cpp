// Synthesizes one gun sound from filtered noise, falling tones and resonators. Prints it in the text format
// of sox: a time and a sample in each line, not normalized.
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

constexpr int rate = 22050;
constexpr double turn = 2 * std::numbers::pi;

using track = std::vector<double>;

track silence(double seconds)
{
    return track(static_cast<std::size_t>(seconds * rate));
}

double white_noise(rng& random)   // -1 to 1
{
    return 2 * random.fine() - 1;
}

struct low_pass {
    explicit low_pass(double hertz) : share(1 - std::exp(-turn * hertz / rate)) {}
    double operator()(double x) { return level += share * (x - level); }

    double share, level = 0;
};

// A resonant filter: its response to an impulse is a tone that decays.
struct resonator {
    resonator(double hertz, double decay)
        : pitch(turn * hertz / rate), kept(std::exp(-decay / rate)), last(2 * kept * std::cos(pitch))
    {
    }
    double operator()(double x)
    {
        const double y = std::sin(pitch) * x + last * y1 - kept * kept * y2;
        y2 = std::exchange(y1, y);
        return y;
    }

    double pitch, kept, last;
    double y1 = 0, y2 = 0;   // the last two results
};

// Adds sound(seconds since `start`) to the track, until it has decayed to a thousandth.
template <typename Sound>
void add(track& t, double start, double decay, Sound sound)
{
    const auto first = static_cast<std::size_t>(start * rate);
    const auto count = static_cast<std::size_t>(7 / decay * rate);
    for (std::size_t i = 0; i < count && first + i < t.size(); ++i)
        t[first + i] += sound(static_cast<double>(i) / rate);
}

// Attack and decay as rates: a higher rate is quicker.
double envelope(double time, double rise, double decay)
{
    return (1 - std::exp(-time * rise)) * std::exp(-time * decay);
}

// Low-pass noise; a higher cut-off frequency sounds sharper.
struct rush {
    double start, cutoff, rise, decay, loudness;
};

void add(track& t, const rush& r, rng& random)
{
    low_pass first(r.cutoff), second(r.cutoff);
    // A lower cut-off passes less of the noise. The gain makes the loudness independent of the cut-off.
    const double gain = r.loudness * std::sqrt(rate / 2.0 / r.cutoff);
    add(t, r.start, r.decay, [&](double time) {
        return gain * second(first(white_noise(random))) * envelope(time, r.rise, r.decay);
    });
}

// A thud: a low tone that falls in pitch.
struct thump {
    double start, high, low, fall, rise, decay, loudness;
};

void add(track& t, const thump& b)
{
    double phase = 0;
    add(t, b.start, b.decay, [&](double time) {
        phase += turn * (b.low + (b.high - b.low) * std::exp(-time * b.fall)) / rate;
        return b.loudness * std::sin(phase) * envelope(time, b.rise, b.decay);
    });
}

// The sound of steel after a blow.
struct ring {
    double start, pitch, decay, loudness;
};

void add(track& t, const ring& r, rng& random)
{
    resonator steel(r.pitch, r.decay);
    add(t, r.start, r.decay,
        [&](double time) { return .2 * r.loudness * steel(white_noise(random) * std::exp(-time * 120)); });
}

// The main gun as the crew hears it: the shot through the armour, the ringing turret, recoil and run-out, and
// the stub of the case falling into its bin.
track fire()
{
    track t = silence(1.9);
    rng random(0x3f1972d6a49fd2f2);
    constexpr rush rushes[] = {{.002, 4200, 4000, 48, 1.3},   // the crack
                               {.004, 900, 900, 5.5, 1.2},    // the blast
                               {.04, 260, 25, 2.2, .8},       // reverberation from the ground
                               {.29, 520, 60, 3.5, .4},       // echo of the blast
                               {.62, 420, 60, 3, .3}};
    constexpr thump thumps[] = {{.002, 150, 42, 16, 700, 5.5, 1.3}, {.002, 260, 95, 30, 900, 16, .7}};
    constexpr ring rings[] = {{.01, 183, 3, .5},   {.01, 317, 3.5, .4},  {.01, 548, 4, .25},     // the turret
                              {.11, 412, 9, .5},   {.11, 1130, 11, .4},  {.11, 2270, 14, .25},   // recoil
                              {.52, 536, 14, .35}, {.52, 1490, 16, .25},                         // run-out
                              {.78, 874, 8, .2},   {.78, 2380, 10, .2},                          // the stub
                              {.93, 903, 8, .12},  {.93, 2430, 10, .12}};   // second bounce of the stub
    for (const rush& r : rushes) add(t, r, random);
    for (const thump& b : thumps) add(t, b);
    for (const ring& r : rings) add(t, r, random);
    return t;
}

void add_shot(track& t, double start, double loudness, rng& random)
{
    add(t, rush{start, 5200, 6000, 85, .9 * loudness}, random);
    add(t, rush{start, 1100, 3000, 38, .8 * loudness}, random);
    add(t, thump{start, 160, 95, 60, 2000, 42, .6 * loudness});
    add(t, ring{start + .034, 2700, 160, .7}, random);   // the bolt
    add(t, ring{start + .034, 1750, 140, .5}, random);
    add(t, rush{start + .01, 330, 60, 6, .12 * loudness}, random);   // reverberation from the ground
}

// One long burst. It is longer than anybody holds the trigger, since the sound isn't repeated.
track coax()
{
    constexpr double seconds = 12, ceasing = seconds - .7, between = 60.0 / 650;
    track t = silence(seconds);
    rng random(0xfba0f83118119d19);
    for (double start = .002; start < ceasing;) {
        const double loudness = 1 + .1 * white_noise(random);
        add_shot(t, start, loudness, random);
        const double uneven = .025 * white_noise(random);
        start += between * (1 + uneven);
    }
    for (int link = 0; link < 5; ++link) {   // the last links fall
        const double late = .03 * white_noise(random);
        add(t, ring{ceasing + .14 + .06 * link + late, 3900 + 350.0 * link, 60, .3}, random);
    }
    return t;
}

// A vehicle exploding far away: a thud and a long roll with echoes, but no crack.
track explode1()
{
    track t = silence(2.2);
    rng random(0xbcd1a5b378990964);
    constexpr rush rushes[] = {{.002, 800, 220, 7, 1.5}, {.06, 300, 12, 1.6, 1}, {.42, 380, 40, 3, .5},
                               {.78, 320, 40, 3, .35},   {1.2, 280, 40, 3, .25}, {.1, 1500, 8, 4, .25}};
    constexpr thump thumps[] = {{.002, 80, 34, 8, 200, 4, 1.2}, {.002, 150, 70, 12, 300, 9, .6}};
    for (const rush& r : rushes) add(t, r, random);
    for (const thump& b : thumps) add(t, b);
    return t;
}

}   // namespace
}   // namespace tools

using namespace tools;

int main(int count, char** arguments)
{
    const std::string name = count == 2 ? arguments[1] : "";
    const track t = name == "fire"       ? fire()
                    : name == "coax"     ? coax()
                    : name == "explode1" ? explode1()
                                         : track();
    if (t.empty()) fail("usage: effects fire|coax|explode1");
    std::printf("; Sample Rate %d\n; Channels 1\n", rate);
    for (std::size_t i = 0; i < t.size(); ++i)   // soft clipping
        std::printf("%.6f %.6f\n", static_cast<double>(i) / rate, std::tanh(t[i]));
    return std::ferror(stdout) != 0;
}

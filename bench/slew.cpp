// Measures the visual sight: its opening and repaints, the latency from a key press to the changed frame, the
// time between frames while the gunner traverses and while a round flies, and CPU time and memory while
// nothing happens. QT_QPA_PLATFORM=offscreen runs it without a display, QT_SCALE_FACTOR=2 at twice the size.
// The arguments are the size of the window:
//
//     vorn_bench_slew [WIDTH HEIGHT]
#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "flow/intro.h"
#include "gunnery/gunnery.h"
#include "platform/desktop/desktop_machine.h"
#include "platform/files.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace {

using namespace vorn;

// Records the time of each repaint of a widget.
class frame_times : public QObject {
public:
    frame_times(QWidget& w, const machine& pc) : pc_(pc) { w.installEventFilter(this); }
    std::vector<double> seconds;

protected:
    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() == QEvent::Paint) seconds.push_back(pc_.now());
        return false;
    }

private:
    const machine& pc_;
};

// Runs the event loop as the program does. QTest::qWait would sleep between events.
void run_for(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

void print(const char* what, std::vector<double> milliseconds)
{
    if (milliseconds.empty()) return;
    std::sort(milliseconds.begin(), milliseconds.end());
    const auto last = static_cast<double>(milliseconds.size() - 1);
    const auto at = [&](double part) { return milliseconds[static_cast<std::size_t>(part * last)]; };
    std::printf("%-34s median %6.2f   95 %% %6.2f   99 %% %6.2f   worst %6.2f ms   (%zu)\n", what, at(0.5),
                at(0.95), at(0.99), at(1), milliseconds.size());
}

double cpu_seconds()
{
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto seconds = [](const timeval& v) {
        return static_cast<double>(v.tv_sec) + static_cast<double>(v.tv_usec) / 1e6;
    };
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

void open_sight(trainer& t, desktop_machine& pc, const QSize& size)
{
    pc.default_directory = VORN_SOURCE_DIR "/data";
    pc.run([&] {
        load(pc, t.startsim.window);
        finddata(t);
        change_directory(pc, t.shared.rootpath);
        t.shared.joyselected = false;
    });
    const double before = pc.now();
    pc.run([&] { show(pc, t.simulator.window); });
    form_window& w = *pc.window(t.simulator.window);
    w.resize(size);
    w.grab();   // paints the sight; this starts the reading of the twin of the range picture
    std::printf("%-34s %.0f ms\n", "opening of the screen", (pc.now() - before) * 1000);
    run_for(500);
}

// Moves the picture step by step and paints each step. On a virtual machine whose host is busy the CPU time
// is the better measure.
void repaints(gunnery_screen& s, desktop_machine& pc)
{
    QWidget& sight = *pc.window(s.window)->widget(s.Picrange);
    std::vector<double> times, cpu_times;
    for (int i = 0; i < 400; ++i) {
        s.Imgrange.Left += i % 40 < 20 ? 70 : -70;
        pc.sync();
        const double before = pc.now(), cpu_before = cpu_seconds();
        sight.repaint();
        times.push_back((pc.now() - before) * 1000);
        cpu_times.push_back((cpu_seconds() - cpu_before) * 1000);
    }
    print("repaint of the sight", times);
    print("the same in CPU time", cpu_times);
}

void key_latency(gunnery_screen& s, desktop_machine& pc, frame_times& frames)
{
    QWindow* handle = pc.window(s.window)->windowHandle();
    std::vector<double> latency;
    for (int i = 0; i < 60; ++i) {
        run_for(40 + i % 17);
        frames.seconds.clear();
        const double pressed = pc.now();
        QTest::keyPress(handle, Qt::Key_H);
        while (frames.seconds.empty()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        latency.push_back((frames.seconds.front() - pressed) * 1000);
        QTest::keyRelease(handle, Qt::Key_H);
    }
    print("key press to changed frame", latency);
}

void slew(gunnery_screen& s, desktop_machine& pc, frame_times& frames)
{
    QWindow* handle = pc.window(s.window)->windowHandle();
    std::vector<double> intervals;
    for (const Qt::Key k : {Qt::Key_H, Qt::Key_J}) {
        frames.seconds.clear();
        QTest::keyPress(handle, k);
        run_for(1500);
        QTest::keyRelease(handle, k);
        for (std::size_t i = 1; i < frames.seconds.size(); ++i)
            intervals.push_back((frames.seconds[i] - frames.seconds[i - 1]) * 1000);
    }
    print("between frames while traversing", intervals);
}

// FIN and HESH rounds at a range of 1500 m.
void flights(trainer& t, desktop_machine& pc, frame_times& frames)
{
    gunnery_screen& s = t.simulator;
    for (const auto& [nature, title] : {std::pair{fin_tank, "between frames, FIN in flight"},
                                        std::pair{hesh_bmp, "between frames, HESH in flight"}}) {
        std::vector<double> intervals;
        for (int i = 0; i < 3; ++i) {
            s.gunloaded = true;
            s.nature = s.ammoselected = nature;
            s.currentrange = 1500;
            frames.seconds.clear();
            pc.run([&] { keyfire(t, s); });
            for (std::size_t n = 1; n < frames.seconds.size(); ++n)
                intervals.push_back((frames.seconds[n] - frames.seconds[n - 1]) * 1000);
        }
        print(title, intervals);
    }
}

// /proc/self/statm gives sizes in pages.
long resident_megabytes()
{
    long all = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * sysconf(_SC_PAGESIZE) / (1024 * 1024);
}

void idle()
{
    run_for(3000);   // until the last bursts have ended
    const double before = cpu_seconds();
    run_for(5000);
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    std::printf("%-34s %.2f %% of a core, resident memory %ld MB, at most %ld MB\n", "idle sight",
                (cpu_seconds() - before) / 5 * 100, resident_megabytes(), used.ru_maxrss / 1024);
}

}   // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    desktop_machine pc;
    trainer t(pc);
    open_sight(t, pc, argc > 2 ? QSize(std::atoi(argv[1]), std::atoi(argv[2])) : QSize(1024, 768));
    frame_times frames(*pc.window(t.simulator.window)->widget(t.simulator.Picrange), pc);
    repaints(t.simulator, pc);
    key_latency(t.simulator, pc, frames);
    slew(t.simulator, pc, frames);
    flights(t, pc, frames);
    idle();
    return 0;
}

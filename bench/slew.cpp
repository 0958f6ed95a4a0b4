// What a gunner feels on the visual sight: the time from a key to a changed picture, the intervals between
// pictures while the view slews and while a round flies, and what an idle sight costs. Run it on a window
// system, or off screen with QT_QPA_PLATFORM=offscreen; QT_SCALE_FACTOR=2 for twice the size.
#include <sys/resource.h>

#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "flow/intro.h"
#include "gunnery/gunnery.h"
#include "platform/desktop/desktop_machine.h"
#include "platform/files.h"
#include "setup/startsim.h"
#include "trainer.h"

namespace {

using namespace vorn;

// Notes the moment of each picture of a widget.
class paint_watch : public QObject {
public:
    paint_watch(QWidget& w, const machine& pc) : pc_(pc) { w.installEventFilter(this); }
    std::vector<double> moments;

protected:
    bool eventFilter(QObject*, QEvent* e) override
    {
        if (e->type() == QEvent::Paint) moments.push_back(pc_.now());
        return false;
    }

private:
    const machine& pc_;
};

// Lets the event loop run as it does in the program. (The test library's own waiting sleeps in between.)
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
    const auto at = [&](double part) {
        return milliseconds[static_cast<std::size_t>(part * static_cast<double>(milliseconds.size() - 1))];
    };
    std::printf("%-34s median %6.2f   95 %% %6.2f   worst %6.2f ms   (%zu)\n", what, at(0.5), at(0.95), at(1),
                milliseconds.size());
}

void to_the_sight(trainer& t, desktop_machine& pc)
{
    pc.default_directory = VORN_SOURCE_DIR "/data";
    pc.run([&] {
        load(pc, t.startsim.window);
        finddata(t);
        change_directory(pc, t.shared.rootpath);
        t.shared.joyselected = false;
        show(pc, t.simulator.window);
    });
    run_for(500);
}

void key_to_picture(gunnery_screen& s, desktop_machine& pc, paint_watch& seen)
{
    QWindow* handle = pc.window(s.window)->windowHandle();
    std::vector<double> latency;
    for (int i = 0; i < 60; ++i) {
        run_for(40 + i % 17);
        seen.moments.clear();
        const double pressed = pc.now();
        QTest::keyPress(handle, Qt::Key_H);
        while (seen.moments.empty()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        latency.push_back((seen.moments.front() - pressed) * 1000);
        QTest::keyRelease(handle, Qt::Key_H);
    }
    print("key to changed picture", latency);
}

void slew(gunnery_screen& s, desktop_machine& pc, paint_watch& seen)
{
    QWindow* handle = pc.window(s.window)->windowHandle();
    std::vector<double> intervals;
    for (const Qt::Key k : {Qt::Key_H, Qt::Key_J}) {
        seen.moments.clear();
        QTest::keyPress(handle, k);
        run_for(1500);
        QTest::keyRelease(handle, k);
        for (std::size_t i = 1; i < seen.moments.size(); ++i)
            intervals.push_back((seen.moments[i] - seen.moments[i - 1]) * 1000);
    }
    print("between pictures while slewing", intervals);
}

// Rounds of both kinds, fired at a target 1500 metres away.
void flights(trainer& t, desktop_machine& pc, paint_watch& seen)
{
    gunnery_screen& s = t.simulator;
    for (const auto& [nature, words] : {std::pair{fin_tank, "between pictures, FIN in flight"},
                                        std::pair{hesh_bmp, "between pictures, HESH in flight"}}) {
        std::vector<double> intervals;
        for (int i = 0; i < 3; ++i) {
            s.gunloaded = true;
            s.nature = s.ammoselected = nature;
            s.currentrange = 1500;
            seen.moments.clear();
            pc.run([&] { keyfire(t, s); });
            for (std::size_t n = 1; n < seen.moments.size(); ++n)
                intervals.push_back((seen.moments[n] - seen.moments[n - 1]) * 1000);
        }
        print(words, intervals);
    }
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

void idle()
{
    const double before = cpu_seconds();
    run_for(5000);
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    std::printf("%-34s %.2f %% of a core, %ld MB resident at most\n", "idle sight",
                (cpu_seconds() - before) / 5 * 100, used.ru_maxrss / 1024);
}

}   // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    desktop_machine pc;
    trainer t(pc);
    to_the_sight(t, pc);
    paint_watch seen(*pc.window(t.simulator.window)->widget(t.simulator.Picrange), pc);
    key_to_picture(t.simulator, pc, seen);
    slew(t.simulator, pc, seen);
    flights(t, pc, seen);
    idle();
    return 0;
}

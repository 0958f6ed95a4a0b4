// Measures the duration of a repaint of the sight, of a comparison of all fields when none has changed
// (sync), and of a start from the creation of a machine to its first window. The argument is a range
// picture; the default is visualrange.vrp.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QWindow>
#include <cstdlib>
#include <deque>
#include <string>

#include "platform/desktop/desktop_machine.h"

namespace {

using namespace vorn;

// A screen about as complex as a gunnery screen: a sight with a picture and marks, and a frame with eighty
// objects.
struct busy_screen {
    form f;
    std::deque<screen_object> objects;
    screen_object* range = nullptr;

    explicit busy_screen(const picture& p)
    {
        screen_object& sight = put(object_kind::sight, 5760, 1400, 8850, 6615, nullptr);
        range = &put(object_kind::image, -20000, -13000, p.width, p.height, &sight);
        range->Picture = p;
        put(object_kind::image, 4000, 1400, 480, 480, &sight).Picture = p;
        put(object_kind::shape, 4410, 1035, 250, 250, &sight).Shape = shape_kind::ellipse;
        put(object_kind::shape, 4525, 1140, 30, 30, &sight).Shape = shape_kind::filled_ellipse;
        put(object_kind::label, 3900, 5800, 1200, 400, &sight).Caption = "1420";
        screen_object& frame = put(object_kind::frame, 100, 100, 5000, 11000, nullptr);
        for (int i = 0; i < 40; ++i) {
            put(object_kind::label, 100, 260 + i * 260, 2300, 250, &frame).Caption = "Time left on target";
            put(object_kind::button, 2500, 260 + i * 260, 2300, 250, &frame).Caption = "&PAUSE SIM";
        }
    }

    screen_object& put(object_kind kind, double left, double top, double width, double height,
                       screen_object* parent)
    {
        screen_object& o = objects.emplace_back();
        o.kind = kind;
        o.Left = left;
        o.Top = top;
        o.Width = width;
        o.Height = height;
        o.ForeColor = colour::sight;
        add(f, o, parent);
        return o;
    }
};

void open(desktop_machine& pc, busy_screen& s, int scale)
{
    pc.run([&] { show(pc, s.f); });
    pc.window(s.f)->resize(1024 * scale, 768 * scale);
    while (!pc.window(s.f)->windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

picture range_picture(desktop_machine& pc, const std::string& path)
{
    const loaded_picture p = pc.load_picture(path);
    if (!p.result) std::abort();
    return *p.result;
}

void sight_repaint(benchmark::State& state, const std::string& path)
{
    desktop_machine pc;
    busy_screen s(range_picture(pc, path));
    open(pc, s, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        s.range->Left += s.range->Left > -10000 ? -10000 : 21;
        pc.sync();
        pc.window(s.f)->paint_now();
    }
}

void sync_without_change(benchmark::State& state, const std::string& path)
{
    desktop_machine pc;
    busy_screen s(range_picture(pc, path));
    open(pc, s, 1);
    for (auto _ : state) pc.sync();
}

void start_to_first_window(benchmark::State& state)
{
    for (auto _ : state) {
        desktop_machine pc;
        busy_screen s{picture{}};
        open(pc, s, 1);
    }
}

}   // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    QApplication app(argc, argv);
    const std::string path = argc > 1 ? argv[1] : VORN_SOURCE_DIR "/data/ranges/visualrange.vrp";
    benchmark::RegisterBenchmark("sight_repaint", sight_repaint, path)
        ->Arg(1)
        ->Arg(2)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("sync_without_change", sync_without_change, path)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("start_to_first_window", start_to_first_window)
        ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
}

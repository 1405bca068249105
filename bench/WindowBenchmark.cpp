// Measures the picture of a ball grid of 2,025 pins in the window: all of it, and while it is moved.
//   QT_QPA_PLATFORM=offscreen veka_bench_window [benchmark options]

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>

#include "BallGrid.h"
#include "drawing/Drawing.h"
#include "host/qt/SceneView.h"

namespace {

constexpr int kWidth = 1200, kHeight = 800;

std::shared_ptr<const drawing::Scene> FootprintOfGrid() {
    const drawing::Part part(bench::BallGrid());
    return std::make_shared<const drawing::Scene>(FootprintScene(part, *part.DefaultFootprint()));
}

/// A view of the ball grid as a window has it.
class GridView {
public:
    explicit GridView(double zoom) : m_image(kWidth, kHeight, QImage::Format_RGB32) {
        m_view.resize(kWidth, kHeight);
        m_view.show();
        m_view.ShowScene(FootprintOfGrid(), drawing::Side::Top);
        m_view.Zoom(zoom, QPointF(kWidth / 2.0, kHeight / 2.0));
        do Paint();
        while (!m_view.IsPainted());
    }
    void Paint() { m_view.render(&m_image); }
    /// Moves the scene with the middle button.
    void Drag(QPoint by) {
        const QPoint from(kWidth / 2, kHeight / 2);
        Send(QEvent::MouseButtonPress, from, Qt::MiddleButton);
        Send(QEvent::MouseMove, from + by, Qt::NoButton);
        Send(QEvent::MouseButtonRelease, from + by, Qt::MiddleButton);
    }
    host::SceneView& View() { return m_view; }

private:
    void Send(QEvent::Type type, QPoint at, Qt::MouseButton button) {
        QMouseEvent event(type, at, m_view.mapToGlobal(at), button, Qt::MiddleButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_view, &event);
    }

    host::SceneView m_view;
    QImage m_image;
};

/// One step of moving the picture and the redraw after it. The argument is the zoom in percent of all.
void Pan(benchmark::State& state) {
    GridView grid(static_cast<double>(state.range(0)) / 100);
    int step = 0;
    size_t late = 0;
    for (auto _ : state) {
        grid.Drag((step++ / 20) % 2 ? QPoint(-15, -10) : QPoint(15, 10));
        grid.Paint();
        late += grid.View().IsPainted() ? 0 : 1;
    }
    state.counters["not whole"] = static_cast<double>(late);
}
BENCHMARK(Pan)->Arg(100)->Arg(300)->Arg(1000)->Unit(benchmark::kMillisecond);

/// All of the picture, without pause.
void Whole(benchmark::State& state) {
    GridView grid(static_cast<double>(state.range(0)) / 100);
    bool on = false;
    for (auto _ : state) {
        on = !on;
        grid.View().Highlight(on ? std::vector<size_t>{0} : std::vector<size_t>());
        do grid.Paint();
        while (!grid.View().IsPainted());
    }
}
BENCHMARK(Whole)->Arg(100)->Arg(300)->Unit(benchmark::kMillisecond);

/// From the records to what the view holds.
void Build(benchmark::State& state) {
    host::SceneView view;
    view.resize(kWidth, kHeight);
    for (auto _ : state) view.ShowScene(FootprintOfGrid(), drawing::Side::Top);
}
BENCHMARK(Build)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

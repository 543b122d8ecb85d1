// What a segment costs on the image surface, beside the painter of Qt on the same image.
#include "qtsurface/image_surface.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <QPen>

#include <random>
#include <vector>

namespace quelmont {
namespace {

constexpr int Width = 1600;
constexpr int Height = 1000;

/// A line that wanders over the picture in steps of up to reach pixels each way, as coastlines do.
std::vector<SurfacePoint> Wander(int reach, std::size_t count) {
    std::mt19937 random(1);
    std::vector<SurfacePoint> points{{Width / 2, Height / 2}};
    const auto step = [&](int at, int size) {
        const int moved = at + static_cast<int>(random() % static_cast<unsigned>(2 * reach + 1)) - reach;
        return moved < 0 || moved >= size ? at : moved;
    };
    while (points.size() < count) {
        const SurfacePoint next{step(points.back().x, Width), step(points.back().y, Height)};
        if (next != points.back()) {
            points.push_back(next);
        }
    }
    return points;
}

void PerSegment(benchmark::State& state, std::size_t segments) {
    state.counters["segment"] =
        benchmark::Counter(static_cast<double>(segments),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void OurLines(benchmark::State& state) {
    const auto points = Wander(static_cast<int>(state.range(0)), 100000);
    ImageSurface image(Width, Height);
    DrawSurface& surface = image;
    surface.SelectObject(surface.CreatePen(PenStyleSolid, static_cast<std::int32_t>(state.range(1)), 0xFF));
    for (auto _ : state) {
        surface.MoveToEx(points[0].x, points[0].y);
        for (const SurfacePoint& point : points) {
            surface.LineTo(point.x, point.y);
        }
        benchmark::ClobberMemory();
    }
    PerSegment(state, points.size() - 1);
}

void OurSmoothLines(benchmark::State& state) {
    const auto points = Wander(static_cast<int>(state.range(0)), 100000);
    ImageSurface surface(Width, Height);
    FineLines* const lines = surface.Smooth(true);
    surface.SelectObject(lines->CreateFinePen(static_cast<double>(state.range(1)), 0xFF));
    for (auto _ : state) {
        surface.MoveToEx(points[0].x, points[0].y);
        for (const SurfacePoint& point : points) {
            surface.LineTo(point.x, point.y);
        }
        surface.Smooth(true); // which ends the line
        benchmark::ClobberMemory();
    }
    PerSegment(state, points.size() - 1);
}

void PaintByPainter(benchmark::State& state, bool smooth) {
    const auto points = Wander(static_cast<int>(state.range(0)), 100000);
    QImage image(Width, Height, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    painter.setPen(QPen(Qt::red, static_cast<double>(state.range(1)), Qt::SolidLine, Qt::RoundCap));
    for (auto _ : state) {
        for (std::size_t i = 1; i < points.size(); ++i) {
            painter.drawLine(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
        }
        benchmark::ClobberMemory();
    }
    PerSegment(state, points.size() - 1);
}

void PainterLines(benchmark::State& state) { PaintByPainter(state, false); }
void PainterSmoothLines(benchmark::State& state) { PaintByPainter(state, true); }

void Arguments(benchmark::internal::Benchmark* lines) {
    lines->ArgNames({"reach", "pen"})->Unit(benchmark::kMillisecond);
    for (const int pen : {1, 2, 3, 5, 10}) {
        lines->Args({2, pen});
    }
    lines->Args({20, 1})->Args({20, 3})->Args({200, 1})->Args({200, 3})->Args({2, 100});
}

BENCHMARK(OurLines)->Apply(Arguments);
BENCHMARK(OurSmoothLines)->Apply(Arguments);
BENCHMARK(PainterLines)->Apply(Arguments);
BENCHMARK(PainterSmoothLines)->Apply(Arguments);

} // namespace
} // namespace quelmont

BENCHMARK_MAIN();

// The road of the points of a large map file, stage by stage, in nanoseconds per point (the column
// "per_point"). The file comes from make_big_map:
//
//   make_big_map big.map && QUELMONT_BENCH_MAP=big.map map_stages_bench
//
// Without the variable a file of a million points is made in the temporary folder.

#include "core/constant_defs.h"
#include "core/core_state.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "graticule/calc_graticule.h"
#include "mapinput/byte_reader.h"
#include "mapinput/feature_rows.h"
#include "mapinput/map_plot.h"
#include "mapinput/minute_grid_file.h"
#include "output/device_pen.h"
#include "output/scale_screen.h"
#include "projection/param_select.h"
#include "support/silent_machine.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace quelmont {
namespace {

/// No projection has this number: points pass the bounds and the clipping of a rectangle, and
/// nothing computes their place.
constexpr std::int16_t NoProjection = 0;

std::string MapName() {
    if (const char* name = std::getenv("QUELMONT_BENCH_MAP")) {
        return name;
    }
    static const std::string made = [] {
        const std::string name = (std::filesystem::temp_directory_path() / "quelmont_bench.map").string();
        const std::string command = QUELMONT_MAKE_BIG_MAP " " + name + " 1000000";
        return std::system(command.c_str()) == 0 ? name : std::string();
    }();
    return made;
}

std::int64_t PointsOfMap() {
    std::error_code failed;
    const auto size = std::filesystem::file_size(MapName(), failed);
    return failed ? 0 : static_cast<std::int64_t>(size / MinuteGridRecordSize);
}

void CountPoints(benchmark::State& state) {
    const auto points = static_cast<double>(state.iterations() * PointsOfMap());
    state.counters["per_point"] =
        benchmark::Counter(points, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    if (PointsOfMap() == 0) {
        state.SkipWithError("no map file");
    }
}

/// The whole world on a projection.
void PrepareMap(std::int16_t projNum) {
    ResetCore();
    ConstantDefs();
    ConstantGrid();
    Design.ProjNum = projNum;
    CalcGraticule();
    ParamStdParallel();
    ParamSelect();
    ScaleScreen();
    Design.LobeLast = true;
    Design.InputFiles = {NewMapFileEntry(MapName())};
    Design.MapFileCount = 1;
}

void Plot(benchmark::State& state, NullSurface& surface) {
    const SilentMachine machine(surface);
    for (auto iteration : state) {
        (void)iteration;
        MapPlot();
    }
    if (machine.boxes > 0) {
        state.SkipWithError("a box was shown");
    }
    CountPoints(state);
}

void Reading(benchmark::State& state) {
    for (auto iteration : state) {
        (void)iteration;
        OpenFile(InputFileNumber, MapName(), OpenMode::Input);
        ByteReader bytes;
        int ranks = 0;
        int sum = 0;
        while (bytes.Has(MinuteGridRecordSize)) {
            const MinuteGridRecord record = DecodeMinuteGrid(bytes.Take<MinuteGridRecordSize>());
            ranks += RankOf(record.Code) != 0 ? 1 : 0;
            sum += record.Lat + record.Lon;
        }
        benchmark::DoNotOptimize(ranks);
        benchmark::DoNotOptimize(sum);
        CloseFile(InputFileNumber);
    }
    CountPoints(state);
}

/// A map of no height: every point is tested, none is inside.
void ReadingAndBounds(benchmark::State& state) {
    NullSurface surface;
    {
        const SilentMachine machine(surface);
        PrepareMap(ProjEquirectangular);
    }
    Design.LatNorthSec = Design.LatSouthSec - 1;
    Plot(state, surface);
}

void ReadingClippingDrawing(benchmark::State& state) {
    NullSurface surface;
    {
        const SilentMachine machine(surface);
        PrepareMap(ProjEquirectangular);
    }
    Design.ProjNum = NoProjection;
    Plot(state, surface);
}

/// Everything: reading, clipping, projecting, drawing.
void WholeRoad(benchmark::State& state) {
    NullSurface surface;
    {
        const SilentMachine machine(surface);
        PrepareMap(static_cast<std::int16_t>(state.range(0)));
    }
    Plot(state, surface);
}

BENCHMARK(Reading)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadingAndBounds)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadingClippingDrawing)->Unit(benchmark::kMillisecond);
BENCHMARK(WholeRoad)
    ->ArgName("ProjNum")
    ->Arg(ProjRobinson)
    ->Arg(ProjEquirectangular)
    ->Arg(ProjAzimuthalEqualArea)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quelmont

BENCHMARK_MAIN();

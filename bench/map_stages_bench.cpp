// The road of the points of a large map file, stage by stage, in nanoseconds per point (the column
// "per_point"). The file comes from make_big_map and is a minute-grid, a packed or a world file:
//
//   make_big_map big.mps && QUELMONT_BENCH_MAP=big.mps map_stages_bench
//
// Without the variable a minute-grid file of a million points is made in the temporary folder.

#include "core/constant_defs.h"
#include "core/core_state.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "graticule/calc_graticule.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/feature_rows.h"
#include "mapfiles/map_formats.h"
#include "mapfiles/minute_grid_records.h"
#include "mapfiles/packed_segments.h"
#include "mapfiles/world_records.h"
#include "mapinput/map_plot.h"
#include "output/device_pen.h"
#include "output/scale_screen.h"
#include "projection/param_select.h"
#include "projection/param_std_parallel.h"
#include "support/silent_machine.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace quelmont {
namespace {

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

/// What was read of a file, so that nothing of it can be left out.
struct Sums {
    std::int64_t points = 0;
    std::int64_t places = 0;
};

void ReadMinuteGridRecords(ByteReader& bytes, Sums& sums) {
    for (MinuteGridRecords records(bytes); records.Next();) {
        sums.places += records.Feature() + records.LatSec() + records.LonSec();
        ++sums.points;
    }
}

void ReadPackedSegments(ByteReader& bytes, PackedRanks ranks, Sums& sums) {
    for (PackedSegments segments(bytes, ranks); segments.Next() && segments.IsWhole();) {
        segments.VisitPoints([&](std::int32_t lat, std::int32_t lon, bool begins) {
            sums.places += lat + lon + (begins ? 1 : 0);
            ++sums.points;
            return true;
        });
    }
}

void ReadWorldRecords(ByteReader& bytes, Sums& sums) {
    for (WorldFloatPoints points(bytes); points.Next();) {
        const WorldPoint point = WorldPointOf(points.Lat(), points.Lon());
        sums.places += point.Lat + point.Lon;
        ++sums.points;
    }
}

Sums ReadMap() {
    Sums sums;
    OpenFile(InputFileNumber, MapName(), OpenMode::Input);
    ByteReader bytes;
    const MapFileForm form = MapFormatOf(MapName()).form;
    if (form == MapFileForm::PackedWhole) {
        ReadPackedSegments(bytes, PackedRanksOf(MapName()), sums);
    } else if (form == MapFileForm::WorldFloats) {
        ReadWorldRecords(bytes, sums);
    } else {
        ReadMinuteGridRecords(bytes, sums);
    }
    CloseFile(InputFileNumber);
    return sums;
}

std::int64_t PointsOfMap() {
    static const std::int64_t points = ReadMap().points;
    return points;
}

void CountPoints(benchmark::State& state) {
    const auto points = static_cast<double>(state.iterations() * PointsOfMap());
    state.counters["per_point"] =
        benchmark::Counter(points, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    if (PointsOfMap() == 0) {
        state.SkipWithError("no map file");
    }
}

/// The whole world on a projection, or as much of it as the texts of bounds and grid tell.
void PrepareMap(std::int16_t projNum, const std::vector<std::string>& bounds = {}) {
    ResetCore();
    ConstantDefs();
    ConstantGrid();
    Design.ProjNum = projNum;
    std::copy(bounds.begin(), bounds.end(), Design.GridText.begin());
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

/// The blocks of the file, of which nothing is looked at.
void Bytes(benchmark::State& state) {
    std::vector<std::byte> block(ByteReader::BlockSize);
    for (auto iteration : state) {
        (void)iteration;
        OpenFile(InputFileNumber, MapName(), OpenMode::Input);
        while (ReadFile(InputFileNumber, block) > 0) {
            benchmark::ClobberMemory();
        }
        CloseFile(InputFileNumber);
    }
    CountPoints(state);
}

void Reading(benchmark::State& state) {
    for (auto iteration : state) {
        (void)iteration;
        Sums sums = ReadMap();
        benchmark::DoNotOptimize(sums);
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

/// Everything: reading, clipping, projecting, drawing on a surface that draws nothing. The equirectangular
/// projection is two multiplications: what it takes more than reading is the road of a point itself.
void WholeRoad(benchmark::State& state) {
    NullSurface surface;
    {
        const SilentMachine machine(surface);
        PrepareMap(static_cast<std::int16_t>(state.range(0)));
    }
    Plot(state, surface);
}

/// A map of 30 by 20 degrees.
void WholeRoadOfARegion(benchmark::State& state) {
    NullSurface surface;
    {
        const SilentMachine machine(surface);
        PrepareMap(ProjEquirectangular, {"60    00    00    N", "40    00    00    N", "010    00    00",
                                         "000    00    00    W", "030    00    00    E", "010    00    00"});
    }
    Plot(state, surface);
}

BENCHMARK(Bytes)->Unit(benchmark::kMillisecond);
BENCHMARK(Reading)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadingAndBounds)->Unit(benchmark::kMillisecond);
BENCHMARK(WholeRoadOfARegion)->Unit(benchmark::kMillisecond);
BENCHMARK(WholeRoad)
    ->ArgName("ProjNum")
    ->Arg(ProjRobinson)
    ->Arg(ProjEquirectangular)
    ->Arg(ProjAzimuthalEqualArea)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quelmont

BENCHMARK_MAIN();

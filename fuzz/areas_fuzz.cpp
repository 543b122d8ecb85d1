// The bytes of a map file through FillAreas, on every projection: nothing is thrown, nothing painted outside
// of the map's outline, and the program is left as it was. The first five bytes choose the projection, its
// bounds, the name of the file, the turn of events at which Escape is pressed, and the habits of the file
// (memory_file.h); the rest is the file. Shorter inputs do nothing.

#include "areas/fill_areas.h"
#include "core/constant_defs.h"
#include "core/core_state.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "graticule/calc_graticule.h"
#include "mapfiles/feature_rows.h"
#include "memory_file.h"
#include "output/draw_target.h"
#include "output/output_state.h"
#include "output/scale_screen.h"
#include "projection/projection_table.h"
#include "support/silent_machine.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <span>
#include <vector>

namespace quelmont {
namespace {

constexpr std::size_t HeaderSize = 5;
constexpr std::array Names = {"fuzz.map", "fuzz.pkv", "fuzz.mps", "fuzz.prn"};

void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Every area lies in the box of the map, and on an azimuthal map in its circle.
class OutlineSurface final : public NullSurface {
public:
    bool PolyPolygon(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts) override {
        Check(std::accumulate(counts.begin(), counts.end(), std::size_t{0}, [](std::size_t sum, int count) {
                  Check(count >= 3);
                  return sum + static_cast<std::size_t>(count);
              }) == points.size());
        for (const SurfacePoint& point : points) {
            CheckPlace(point);
        }
        return true;
    }

private:
    static void CheckPlace(const SurfacePoint& point) {
        constexpr double slack = 1.0; // pixels are whole
        const double x = point.x - Design.ScreenOriginX / Design.TwipsPerPixelX;
        const double y = Design.ScreenOriginY / Design.TwipsPerPixelY - point.y;
        const double width = (Design.MapXMax - Design.MapXMin) * Design.ScreenScaleX / Design.TwipsPerPixelX;
        const double height = (Design.MapYMax - Design.MapYMin) * Design.ScreenScaleY / Design.TwipsPerPixelY;
        Check(x >= -slack && x <= width + slack && y >= -slack && y <= height + slack);
        if (IsAzimuthal(Design.ProjNum)) {
            Check(std::hypot(x - width / 2.0, y - height / 2.0) <= width / 2.0 + slack);
        }
    }
};

OutlineSurface Surface;

/// Bounds as the dialogs would accept them; those of an azimuthal map are the last three.
struct Bounds {
    const char *north, *south, *west, *east;
    const char *centralLat, *centralLon, *range;
};

// clang-format off
constexpr std::array SomeBounds = std::to_array<Bounds>({
    {"80    00    00    N", "80    00    00    S", "180    00    00    W", "180    00    00    E", "40    00    00    N", "000    00    00    W", "060    00    00"},
    {"70    00    00    N", "10    00    00    N", "150    00    00    E", "150    00    00    W", "90    00    00    N", "100    00    00    E", "045    00    00"},
    {"60    00    00    N", "30    00    00    S", "030    00    00    W", "030    00    00    W", "00    00    00    N", "180    00    00    E", "070    00    00"},
    {"30    00    00    N", "60    00    00    S", "175    00    00    W", "175    00    00    E", "35    00    00    S", "170    00    00    W", "090    00    00"},
});
// clang-format on
constexpr std::size_t VariantCount = SomeBounds.size() + 1; // the last one is what the dialogs propose

MapDesign PreparedMap(const ProjectionEntry& projection, std::size_t variant) {
    ResetCore();
    ConstantDefs();
    ConstantGrid();
    Design.ProjNum = projection.ProjNum;
    Design.ProjName = projection.ProjName;
    ProposeBounds();
    if (variant < SomeBounds.size() && projection.ProjNum != ProjInterruptedMollweide) {
        const Bounds& bounds = SomeBounds[variant];
        Design.GridText = {bounds.north,      bounds.south,
                           "010    00    00", bounds.west,
                           bounds.east,       "010    00    00",
                           bounds.centralLat, bounds.centralLon,
                           bounds.range,      Design.GridText[GridTextHeight]};
    }
    const bool accepted = AcceptProjection();
    if (!accepted) {
        ProposeBounds();
        Check(AcceptProjection());
    }
    ScaleScreen();
    Design.LobeFirst = true;
    Design.Fill = {Rgb(255, 255, 204), Rgb(153, 204, 255), Rgb(204, 230, 255)};
    return Design;
}

/// Every projection in every variant.
std::vector<MapDesign> PreparedMaps() {
    const SilentMachine machine(Surface);
    std::vector<MapDesign> maps;
    for (const ProjectionEntry& projection : Projections) {
        for (std::size_t variant = 0; variant < VariantCount; ++variant) {
            maps.push_back(PreparedMap(projection, variant));
        }
    }
    return maps;
}

void Run(std::span<const std::uint8_t, HeaderSize> header, std::span<const std::uint8_t> contents) {
    static const std::vector<MapDesign> maps = PreparedMaps();
    SilentMachine machine(Surface);
    Design = maps[(header[0] * VariantCount + header[1] % VariantCount) % maps.size()];
    const double west = Design.LonWest;
    const double left = Design.MapXMin;
    Design.InputFiles = {NewMapFileEntry(Names.at(header[2] % Names.size()))};
    Design.MapFileCount = 1;
    SetMemoryFile(contents, HabitsOf(header[4]));
    int turn = 0;
    machine.onEvents = [&] {
        if (++turn == header[3]) {
            Design.PlotStopReason = StopReason::Escape;
        }
    };
    SelectDevice();
    FillAreas();
    Check(!IsFileOpen(InputFileNumber));
    Check(Surface.objects == 0);
    Check(machine.boxes == 0);
    Check(Design.LonWest == west && Design.MapXMin == left);
    Check(std::isfinite(Design.ProjX) && std::isfinite(Design.ProjY));
    ResetOutput();
}

} // namespace
} // namespace quelmont

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quelmont;
    const std::span<const std::uint8_t> input(data, size);
    if (size >= HeaderSize) {
        Run(input.first<HeaderSize>(), input.subspan(HeaderSize));
    }
    return 0;
}

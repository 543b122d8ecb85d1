#include "map_fuzz.h"

#include "core/constant_defs.h"
#include "core/core_state.h"
#include "core/error_box.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/text_encoding.h"
#include "graticule/calc_graticule.h"
#include "graticule/utm_grid.h"
#include "mapfiles/feature_rows.h"
#include "mapinput/map_plot.h"
#include "memory_file.h"
#include "output/output_state.h"
#include "output/scale_screen.h"
#include "projection/param_select.h"
#include "projection/param_std_parallel.h"
#include "projection/projection_table.h"
#include "projection/utm.h"
#include "support/silent_machine.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <vector>

namespace quelmont {
namespace {

constexpr std::size_t HeaderSize = 5;

void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Every coordinate that arrives fits 16 bits.
class CheckingSurface : public NullSurface {
public:
    void MoveToEx(std::int32_t x, std::int32_t y) override { CheckPlace(x, y); }
    void LineTo(std::int32_t x, std::int32_t y) override { CheckPlace(x, y); }
    void SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) override {
        CheckPlace(x, y);
        Check(color <= ColorMask);
    }

private:
    static void CheckPlace(std::int32_t x, std::int32_t y) {
        using Limits = std::numeric_limits<std::int16_t>;
        Check(x >= Limits::min() && x <= Limits::max() && y >= Limits::min() && y <= Limits::max());
    }
};

CheckingSurface Surface;

/// Bounds as the boundary dialogs would accept them.
struct Bounds {
    const char *north, *south, *latGrid, *west, *east, *lonGrid;
};

// clang-format off
constexpr std::array MapBounds = std::to_array<Bounds>({
    {"80    00    00    N", "80    00    00    S", "040    00    00", "180    00    00    W", "180    00    00    E", "045    00    00"},
    {"70    00    00    N", "10    00    00    N", "010    00    00", "150    00    00    E", "150    00    00    W", "010    00    00"},
    {"60    00    00    N", "30    00    00    S", "010    00    00", "030    00    00    W", "030    00    00    W", "045    00    00"},
    {"30    00    00    N", "60    00    00    S", "010    00    00", "175    00    00    W", "175    00    00    E", "010    00    00"},
});
/// Latitude, longitude and range of azimuthal maps.
constexpr std::array MapCentres = std::to_array<std::array<const char*, 3>>({
    {"40    00    00    N", "000    00    00    W", "060    00    00"},
    {"90    00    00    N", "100    00    00    E", "045    00    00"},
    {"00    00    00    N", "180    00    00    E", "089    00    00"},
    {"35    00    00    S", "170    00    00    W", "080    30    00"},
});
// clang-format on
constexpr std::size_t VariantCount = MapBounds.size();

void PrepareUtm(std::size_t variant) {
    Design.UtmText[UtmTextCentralLon] = variant % 2 == 0 ? "009    00    00    W" : "177    00    00    E";
    Design.SpheroidName = Spheroids[variant].name;
    CalcUtmZone();
    CalcUtmGrid();
}

void PrepareRectangle(std::size_t variant) {
    const Bounds& bounds = MapBounds[variant];
    Design.GridText[GridTextNorth] = bounds.north;
    Design.GridText[GridTextSouth] = bounds.south;
    Design.GridText[GridTextLatSpacing] = bounds.latGrid;
    Design.GridText[GridTextWest] = bounds.west;
    Design.GridText[GridTextEast] = bounds.east;
    Design.GridText[GridTextLonSpacing] = bounds.lonGrid;
    CalcGraticule();
}

void PrepareDisc(std::size_t variant) {
    const bool wholeGlobe = Design.ProjNum >= ProjAzimuthalEquidistant && variant == 0;
    Design.GridText[GridTextCentralLat] = MapCentres[variant][0];
    Design.GridText[GridTextCentralLon] = MapCentres[variant][1];
    Design.GridText[GridTextRange] = wholeGlobe ? "180    00    00" : MapCentres[variant][2];
    CalcGraticule();
}

MapDesign PreparedMap(std::int16_t projNum, std::size_t variant) {
    ResetCore();
    ConstantDefs();
    ConstantGrid();
    Design.ProjNum = projNum;
    if (projNum == ProjUtm) {
        PrepareUtm(variant);
    } else if (IsAzimuthal(projNum)) {
        PrepareDisc(variant);
    } else {
        PrepareRectangle(variant);
    }
    ParamStdParallel();
    ParamSelect();
    ScaleScreen();
    Design.LobeLast = true;
    Design.MapFileCount = 1;
    return Design;
}

/// Every projection in every variant.
std::vector<MapDesign> PreparedMaps() {
    SilentMachine machine(Surface);
    std::vector<MapDesign> maps;
    for (const ProjectionEntry& projection : Projections) {
        for (std::size_t variant = 0; variant < VariantCount; ++variant) {
            maps.push_back(PreparedMap(projection.ProjNum, variant));
            Check(machine.boxes == 0);
        }
    }
    return maps;
}

void ChooseMap(std::span<const std::uint8_t, HeaderSize> header, const char* name) {
    static const std::vector<MapDesign> maps = PreparedMaps();
    Design = maps[(header[0] * VariantCount + header[1] % VariantCount) % maps.size()];
    Design.InputFiles = {NewMapFileEntry(name)};
    InputFileEntry& entry = Design.InputFiles[0];
    entry.MapFileType = static_cast<std::int16_t>(1 + header[2] % 12);
    const std::size_t rows = FeatureRows(name).size();
    if (rows > 1) {
        entry.Features[1 + header[1] / VariantCount % rows].Shown = header[2] % 2 == 0;
    }
}

void PressEscape() {
    CloseFile(InputFileNumber);
    CloseFile(OutputFileNumber);
    Design.PlotStopReason = StopReason::Escape;
}

void Run(std::span<const std::uint8_t, HeaderSize> header, const char* name,
         std::span<const std::uint8_t> contents) {
    SilentMachine machine(Surface);
    ResetDrawBoxes();
    ChooseMap(header, name);
    SetMemoryFile(contents, HabitsOf(header[4]));
    int turn = 0;
    machine.onEvents = [&] {
        if (++turn == header[3]) {
            PressEscape();
        }
    };
    MapPlot();
    Check(!IsFileOpen(InputFileNumber) && !IsFileOpen(OutputFileNumber));
    Check(Surface.objects == 0);
    Check(Design.ProjTestMode == TestNone);
    Check(std::isfinite(Design.ProjX) && std::isfinite(Design.ProjY));
    for (const MapLabel& label : Design.MapLabels) {
        Check(IsUtf8(label.LabelText) && std::isfinite(label.LabelLat) && std::isfinite(label.LabelLon));
    }
    ResetOutput();
}

} // namespace

void FuzzMapFile(std::span<const std::uint8_t> input, std::span<const char* const> names) {
    if (input.size() >= HeaderSize) {
        const auto header = input.first<HeaderSize>();
        Run(header, names[header[2] * names.size() / 256], input.subspan(HeaderSize));
    }
}

} // namespace quelmont

// The filling of land, lakes and sea of the program's own world map, in milliseconds: reading its closed
// lines, joining and nesting them, cutting them by the map's outline, and painting them on a picture of 1280
// x 924 pixels, or on a surface that paints nothing.

#include "areas/fill_areas.h"
#include "core/constant_defs.h"
#include "core/core_state.h"
#include "core/map_design.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "graticule/calc_graticule.h"
#include "mapfiles/feature_rows.h"
#include "output/draw_target.h"
#include "output/scale_screen.h"
#include "projection/projection_table.h"
#include "qtsurface/image_surface.h"
#include "support/silent_machine.h"

#include <benchmark/benchmark.h>

namespace quelmont {
namespace {

constexpr int Width = 1280;
constexpr int Height = 924;

/// The whole world on a projection, with everything filled.
void PrepareMap(std::int16_t projNum) {
    ResetCore();
    ConstantDefs();
    ConstantGrid();
    Design.ProjNum = projNum;
    Design.ProjName = PropertiesOf(projNum).ProjName;
    ProposeBounds();
    AcceptProjection();
    ScaleScreen();
    SelectDevice();
    Design.LobeFirst = true;
    Design.InputFiles = {NewMapFileEntry(QUELMONT_WORLD_MAP)};
    Design.MapFileCount = 1;
    Design.Fill = {Rgb(255, 255, 204), Rgb(153, 204, 255), Rgb(204, 230, 255)};
}

void Fill(benchmark::State& state, DrawSurface& surface) {
    const SilentMachine machine(surface);
    PrepareMap(static_cast<std::int16_t>(state.range(0)));
    state.SetLabel(std::string(Design.ProjName));
    for (auto iteration : state) {
        (void)iteration;
        FillAreas();
    }
    if (machine.boxes > 0) {
        state.SkipWithError("a box was shown");
    }
}

void FillOnPicture(benchmark::State& state) {
    ImageSurface surface(Width, Height);
    Fill(state, surface);
}

void FillOnNothing(benchmark::State& state) {
    NullSurface surface;
    Fill(state, surface);
}

void EveryProjection(benchmark::internal::Benchmark* bench) {
    bench->ArgName("ProjNum")->Unit(benchmark::kMillisecond);
    for (const ProjectionEntry& entry : Projections) {
        bench->Arg(entry.ProjNum);
    }
}

BENCHMARK(FillOnPicture)->Apply(EveryProjection);
BENCHMARK(FillOnNothing)->Apply(EveryProjection);

} // namespace
} // namespace quelmont

BENCHMARK_MAIN();

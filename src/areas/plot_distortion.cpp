#include "areas/plot_distortion.h"

#include "areas/area_frame.h"
#include "areas/distortion_shades.h"
#include "areas/equal_circles.h"
#include "areas/shade_grid.h"
#include "areas/shade_patch.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/area_output.h"
#include "output/fan_out.h"
#include "output/output_state.h"
#include "output/plane_strokes.h"
#include "platform/machine.h"
#include "projection/map_in_hand.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

constexpr const char* Routine = "Distortion";
constexpr ColorValue CircleFill = SolidColor(Rgb(0xFF, 0xE4, 0xC4));
constexpr ColorValue CircleInk =
    SolidColor(Rgb(0xB3, 0x59, 0x00)); ///< files of drawing programs have its number
constexpr double OutlineWidth = 15.0;  ///< twips

/// False when Escape was pressed.
bool LetEventsRun() {
    Machine().pump->DoEvents();
    return Design.PlotStopReason != StopReason::Escape;
}

// ---- Circles.

void PlotCircles() {
    std::vector<PlaneRings> circles;
    {
        const MapInHand map;
        circles = ImagesOfCircles(Design.Distortion);
    }
    if (!LetEventsRun()) {
        return;
    }
    BeginFilePart(MapPart::Distortion, "Equal circles");
    BeginFileFeature(1, "Circles");
    {
        AreaOutput output;
        for (const PlaneRings& circle : circles) {
            output.Fill(CircleFill, circle);
        }
    }
    BeginFileFeature(2, "Outlines");
    std::vector<PlaneStroke> outlines;
    for (PlaneRings& circle : circles) {
        for (PlaneRing& ring : circle) {
            if (!ring.empty()) {
                outlines.push_back({std::move(ring), true, OutlineWidth});
            }
        }
    }
    PlotStrokes(outlines, CircleInk, Routine);
}

// ---- Shades.

/// What a map has of one shade and those above it.
struct ShadeLayer {
    DistortionShade shade;
    PlaneRings rings;
};

/// A patch with its values.
struct ShadedPart {
    std::unique_ptr<ShadePatch> patch;
    std::unique_ptr<ShadeGrid> grid;
};

/// Bounds come and go with the parts: a patch projects while those of its part are in force.
std::vector<ShadeLayer> LayersOfMap(DistortionKind kind) {
    std::vector<ShadedPart> parts;
    double least = std::numeric_limits<double>::infinity();
    double most = -least;
    ForEachPartOfMap([&] {
        ShadedPart part;
        part.patch = PatchOfMap();
        if (part.patch) {
            part.grid = std::make_unique<ShadeGrid>(*part.patch, kind);
            least = std::min(least, part.grid->Least());
            most = std::max(most, part.grid->Most());
        }
        parts.push_back(std::move(part));
    });
    std::vector<ShadeLayer> layers;
    if (!(least <= most)) {
        return layers;
    }
    for (DistortionShade& shade : ShadesBetween(kind, least, most)) {
        layers.push_back({std::move(shade), {}});
    }
    std::size_t number = 0;
    ForEachPartOfMap([&] {
        const ShadedPart& part = parts[number++];
        for (std::size_t layer = 0; part.grid && layer < layers.size(); ++layer) {
            if (layer == 0) {
                part.grid->CutWhole(layers[layer].rings);
            } else {
                part.grid->CutFrom(layers[layer].shade.from, layers[layer].rings);
            }
        }
    });
    return layers;
}

void PlotShades() {
    const DistortionKind kind = Design.Distortion.kind;
    std::vector<ShadeLayer> layers;
    {
        const MapInHand map;
        layers = LayersOfMap(kind);
    }
    if (!LetEventsRun()) {
        return;
    }
    const std::string title = TitleOfShades(kind);
    OutputNow.shadeKey.title = title;
    BeginFilePart(MapPart::Distortion, title);
    AreaOutput output;
    for (std::size_t layer = 0; layer < layers.size(); ++layer) {
        const DistortionShade& shade = layers[layer].shade;
        BeginFileFeature(RoundToInt16(static_cast<double>(layer) + 1.0), shade.text);
        output.Fill(shade.color, layers[layer].rings);
        OutputNow.shadeKey.rows.push_back({shade.color, shade.text});
    }
}

} // namespace

bool HasDistortion() { return Design.Distortion.kind != DistortionKind::None; }

bool HasShades() {
    return Design.Distortion.kind == DistortionKind::Area || Design.Distortion.kind == DistortionKind::Angle;
}

void PlotDistortion() {
    if (!Design.LobeFirst) {
        return;
    }
    OutputNow.shadeKey = {};
    if (HasShades()) {
        PlotShades();
    } else if (HasDistortion()) {
        PlotCircles();
    }
}

} // namespace quelmont

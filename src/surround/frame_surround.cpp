#include "surround/frame_surround.h"

#include "annotation/annotation_state.h"
#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "graticule/map_outline.h"
#include "output/fan_out.h"
#include "output/plane_strokes.h"
#include "output/print_text.h"
#include "output/window_scale.h"
#include "surround/frame_lines.h"
#include "surround/label_measure.h"
#include "surround/label_spots.h"
#include "surround/scale_bar.h"
#include "surround/scale_bar_place.h"
#include "surround/surround_state.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace quelmont {

namespace {

constexpr const char* Routine = "MapFrame";

bool WantsBar() { return Design.Frame.unit != ScaleBarUnit::None; }

/// The room that labels at the frame take outside of it, twips.
AreaPoint ReachOfLabels() {
    AreaPoint reach;
    if (Design.GridLabels.place != GridLabelPlace::Frame) {
        return reach;
    }
    for (const LabelledLine& line : LabelledLines(Design.GridLabels)) {
        const auto measure = line.atFrame && !line.spots.empty() ? MeasureOf(line.text) : std::nullopt;
        if (measure) {
            reach.x = std::max(reach.x, measure->GapBeside() + measure->width);
            reach.y = std::max(reach.y, measure->GapAbove() + measure->ascent + measure->descent);
        }
    }
    return reach;
}

/// The text items of the design; a draw puts labels of map files and of the grid behind them.
std::vector<TextBox> TextsOfDesign() {
    const std::size_t count = AnnotationNow.TextItemsBeforeDraw.value_or(Design.TextItems.size());
    std::vector<TextBox> boxes;
    for (std::size_t i = 0; i < std::min(count, Design.TextItems.size()); ++i) {
        const TextItem& item = Design.TextItems[i];
        boxes.push_back(BoxOfText({static_cast<double>(item.TextX), static_cast<double>(item.TextY)},
                                  TextWidthOf(LookOf(item), item.TextString), item.TextHeight,
                                  item.TextDescent, item.TextAngle));
    }
    return boxes;
}

MapOnArea MapWithSurround(const MapOutline& outline, const AreaFit& fit, AreaPoint labels) {
    MapOnArea map = OutlineOnArea(outline, fit);
    map.reachX = FrameReach() + labels.x;
    map.reachY = FrameReach() + labels.y;
    return map;
}

double ShareBesideTicks(double share) {
    constexpr double smallest = 0.5;
    const AreaFit fit = FitOfShare(1.0);
    const double room = 2.0 * (FrameReach() + fit.pixel);
    const double scale = std::min(Divide(fit.width - room, Design.MapXMax - Design.MapXMin),
                                  Divide(fit.height - room, Design.MapYMax - Design.MapYMin));
    return std::max(std::min(share, Divide(scale, fit.scale)), share * smallest);
}

/// The search for a place for the bar.
class BarSearch {
public:
    /// How far a map of such a share is to be moved up, nothing when there is no place for its bar.
    std::optional<double> RiseAt(double share) const {
        if (HasPlace(FitOfShare(share))) {
            return 0.0;
        }
        const std::optional<double> rise = RiseForPlaceBelow(FitOfShare(share));
        return rise && HasPlace(FitOfShare(share, *rise)) ? rise : std::nullopt;
    }

private:
    bool HasPlace(const AreaFit& fit) const {
        return PlanScaleBar(fit, MapWithSurround(outline, fit, labels), texts, 0.0).has_value();
    }
    /// As far as is needed, and as there is room above.
    std::optional<double> RiseForPlaceBelow(const AreaFit& fit) const {
        constexpr double rounding = 0.1; // twips
        const double upper = fit.AreaOf({Design.MapXMin, Design.MapYMax}).y;
        const double lower = fit.AreaOf({Design.MapXMin, Design.MapYMin}).y;
        const double reach = FrameReach() + labels.y;
        const std::optional<double> height = HeightBelowMap();
        const double missing = height ? lower + reach + *height + rounding - fit.height : 0.0;
        return missing > 0.0 && upper - missing >= reach + fit.pixel
                   ? std::optional(Divide(missing, fit.height))
                   : std::nullopt;
    }

    MapOutline outline = OutlineOfMap();
    AreaPoint labels = ReachOfLabels();
    std::vector<TextBox> texts = TextsOfDesign();
};

double ShareBesideBar(double share) {
    constexpr double smallest = 0.6;
    constexpr double step = 0.99;
    if (!PlaceOfScaleBar(Design.Frame.latitude)) {
        return share;
    }
    const BarSearch search;
    double smaller = share;
    while (smaller >= share * smallest) {
        if (search.RiseAt(smaller)) {
            return smaller;
        }
        smaller *= step;
    }
    return share;
}

// ---- Lines.

/// title: of the strokes in a file with groups.
void PlotPart(const std::vector<PlaneStroke>& strokes, const char* title) {
    BeginFilePart(MapPart::Frame, title);
    PlotStrokes(strokes, SurroundInk(), Routine);
}

/// The frame of the draw; plans its bar. On paper the places are those of the window.
std::vector<PlaneStroke> PlanFrame() {
    const WindowScale scale;
    const MapOutline outline = OutlineOfMap();
    const AreaFit fit = FitOfWindow();
    if (WantsBar()) {
        // The fit was made for it, and differs from the one planned by roundings.
        SurroundNow.bar =
            PlanScaleBar(fit, MapWithSurround(outline, fit, ReachOfLabels()), TextsOfDesign(), fit.pixel);
    }
    return FrameStrokes(outline, fit);
}

void Draw(const std::optional<ScaleBar>& bar) {
    if (bar) {
        for (const TextItem& text : bar->texts) {
            PrintItem(text);
        }
        Design.CurrentText.clear();
    }
}

} // namespace

double ShareBesideFrame(double share) {
    try {
        const double besideTicks = Design.Frame.frame ? ShareBesideTicks(share) : share;
        return WantsBar() ? ShareBesideBar(besideTicks) : besideTicks;
    } catch (const RunTimeError&) {
        return share; // the fit itself tells what is wrong with the map or the window
    }
}

double RiseBesideFrame(double share) {
    try {
        if (WantsBar() && PlaceOfScaleBar(Design.Frame.latitude)) {
            return BarSearch().RiseAt(share).value_or(0.0);
        }
    } catch (const RunTimeError&) {
        return 0.0;
    }
    return 0.0;
}

void PlotFrame() {
    SurroundNow.bar.reset();
    if (Design.Frame.frame || WantsBar()) {
        Guarded(Routine, [] {
            PlotPart(PlanFrame(), "Frame");
            if (SurroundNow.bar) {
                PlotPart(SurroundNow.bar->strokes, "Scale bar");
            }
        });
    }
    if (!Design.PrintingNow) {
        SurroundNow.drawnBar = SurroundNow.bar;
    }
}

std::vector<TextBox> BoxesOfBar() {
    return SurroundNow.bar ? std::vector<TextBox>{SurroundNow.bar->box} : std::vector<TextBox>{};
}

void AddTextsOfBar() {
    if (SurroundNow.bar) {
        Design.TextItems.insert(Design.TextItems.end(), SurroundNow.bar->texts.begin(),
                                SurroundNow.bar->texts.end());
    }
}

void DrawTextsOfBar() { Draw(SurroundNow.bar); }

void DrawTextsOfBarAgain() { Draw(SurroundNow.drawnBar); }

} // namespace quelmont

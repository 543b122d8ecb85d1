#include "surround/frame_lines.h"

#include "core/map_design.h"
#include "surround/label_measure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace quelmont {

namespace {

/// Of the height of digits in the font of the grid's labels.
constexpr double TickShare = 0.6;
/// The frame is a pixel wider than the grid's line, but no wider than so much of that height.
constexpr double WidestShare = 0.5;
/// Between the middles of ticks, in their widths.
constexpr double TickGap = 4.0;
/// Twips in a pixel of a screen of 96 dots per inch, which lines are measured by.
constexpr double PlainPixel = 15.0;

/// Height of digits, twips.
double DigitHeight() {
    const std::optional<LabelMeasure> measure = MeasureOf("0");
    constexpr double twipsPerPoint = 20.0;
    constexpr double usualShare = 0.7;
    return measure ? measure->letters : Design.Fonts[GridLabelFontSlot].FontSize * twipsPerPoint * usualShare;
}

double FrameWidth() {
    return std::clamp(static_cast<double>(Design.GridLineWidth) + PlainPixel, PlainPixel,
                      std::max(PlainPixel, DigitHeight() * WidestShare));
}

double TickWidth() { return std::min(FrameWidth(), PlainPixel); }

double TickLength() { return DigitHeight() * TickShare; }

/// As a share of white, by the weights of ITU-R BT.601.
double Brightness(ColorValue color) {
    const auto part = [color](unsigned shift) { return static_cast<double>(color >> shift & 0xFFU) / 255.0; };
    return 0.299 * part(0) + 0.587 * part(8) + 0.114 * part(16);
}

} // namespace

namespace {

/// The colour chosen for the grid's labels, unless it is less than a share of white brighter or darker than
/// the background.
ColorValue InkAtLeast(double least) {
    const ColorValue color = Design.Fonts[GridLabelFontSlot].FontColour;
    const double paper = Brightness(Design.BackColor);
    if (std::fabs(Brightness(color) - paper) >= least) {
        return color;
    }
    return SolidColor(paper > 0.5 ? Rgb(0, 0, 0) : Rgb(255, 255, 255));
}

} // namespace

ColorValue SurroundInk() { return InkAtLeast(0.3); }

ColorValue GridLabelInk() { return InkAtLeast(0.15); } // pale labels may be what is wanted

double FrameReach() {
    return Design.Frame.frame ? FrameWidth() / 2.0 + TickLength() : Design.GridLineWidth / 2.0;
}

std::vector<SurroundStroke> FrameStrokes(const MapOutline& outline, const AreaFit& fit) {
    std::vector<SurroundStroke> strokes;
    if (!Design.Frame.frame) {
        return strokes;
    }
    for (const auto& ring : outline.rings) {
        strokes.push_back({ring, true, FrameWidth()});
    }
    const MapOnArea map = OutlineOnArea(outline, fit);
    const double length = FrameReach();
    std::optional<AreaPoint> before;
    for (const OutlineMark& mark : outline.marks) {
        const AreaPoint at = fit.AreaOf(mark.at);
        const AreaPoint tip{at.x + mark.outward.x * length, at.y - mark.outward.y * length};
        const AreaPoint beyond{at.x + mark.outward.x * length * 1.5, at.y - mark.outward.y * length * 1.5};
        const bool merges = before && std::hypot(at.x - before->x, at.y - before->y) < TickGap * TickWidth();
        if (!merges && !map.IsInside(tip) && !map.IsInside(beyond)) {
            strokes.push_back({{mark.at, fit.PlaneOf(tip)}, false, TickWidth()});
            before = at;
        }
    }
    return strokes;
}

} // namespace quelmont

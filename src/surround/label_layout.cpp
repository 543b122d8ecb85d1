#include "surround/label_layout.h"

#include "annotation/label_print.h"
#include "core/checked_math.h"
#include "core/rounding.h"
#include "output/print_text.h"
#include "platform/machine.h"
#include "surround/frame_lines.h"
#include "surround/label_measure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

namespace quelmont {

namespace {

/// A map never becomes smaller than this share of its size without labels.
constexpr double SmallestShare = 0.5;
/// The sag of a bent outline behind a label depends on the size of the map, which depends on it.
constexpr int FitRounds = 4;

/// Twips per projection unit, and the middle of the map in both.
struct Fit {
    double scale = 0.0;
    double mapX = 0.0, mapY = 0.0;
    double areaX = 0.0, areaY = 0.0;

    AreaPoint OnArea(double x, double y) const {
        return {areaX + (x - mapX) * scale, areaY - (y - mapY) * scale};
    }
    bool OnMap(AreaPoint p) const {
        return IsOnMap((p.x - areaX) / scale + mapX, (areaY - p.y) / scale + mapY);
    }
};

Fit FitOfWindow() {
    Fit fit{.scale = Design.ScreenScaleX,
            .mapX = (Design.MapXMin + Design.MapXMax) / 2.0,
            .mapY = (Design.MapYMin + Design.MapYMax) / 2.0};
    fit.areaX = Design.ScreenOriginX + (fit.mapX - Design.MapXMin) * fit.scale;
    fit.areaY = Design.ScreenOriginY - (fit.mapY - Design.MapYMin) * fit.scale;
    return fit;
}

bool OnArea(const TextBox& cell) {
    const AreaPoint reach = HalfExtentOf(cell);
    return cell.middle.x - reach.x >= 0.0 && cell.middle.x + reach.x <= Design.ClientWidth &&
           cell.middle.y - reach.y >= 0.0 && cell.middle.y + reach.y <= Design.ClientHeight;
}

/// Middle of a label's letters outside the outline, from the end of its line.
AreaPoint StepFromEnd(const LabelSpot& spot, const LabelMeasure& measure, double clearance, double scale) {
    const double acrossX = std::fabs(spot.alongX);
    const double acrossY = std::fabs(spot.alongY);
    const double halfHeight = measure.letters / 2.0;
    const double reach = acrossX * measure.width / 2.0 + acrossY * halfHeight;
    const double gap = std::hypot(acrossX * measure.GapBeside(), acrossY * measure.GapAbove());
    // Where the outline bends outward it comes nearer beside the end.
    const double side = acrossY * measure.width / 2.0 + acrossX * halfHeight;
    const double sag = scale > 0.0 ? std::max(spot.bend, 0.0) * side * side / (2.0 * scale) : 0.0;
    const double step = clearance + gap + reach + sag;
    return {spot.alongX * step, -spot.alongY * step};
}

/// The angle of a text along a line: whole degrees, leaning back by at most ten.
int ReadingAngle(const LabelSpot& spot) {
    constexpr double HalfTurn = 180.0;
    constexpr int MostBackward = 100;
    int angle = RoundToInt32(std::atan2(spot.alongY, spot.alongX) * HalfTurn / Pi);
    while (angle > MostBackward) {
        angle -= 180;
    }
    while (angle <= MostBackward - 180) {
        angle += 180;
    }
    return angle;
}

/// What most labels on the lines stand on: the shades of a distortion, which are light, lie over the sea.
ColorValue ColorUnderLines() {
    const DistortionKind kind = Design.Distortion.kind;
    return kind == DistortionKind::Area || kind == DistortionKind::Angle
               ? SolidColor(Rgb(255, 255, 255))
               : Design.Fill.sea.value_or(Design.BackColor);
}

class Layout {
public:
    Layout(const std::vector<TextBox>& taken_, double clearance_) : taken(taken_), clearance(clearance_) {}

    void Place(const LabelledLine& line) {
        measure = MeasureOf(line.text);
        if (!measure) {
            return;
        }
        for (const LabelSpot& spot : line.spots) {
            if (line.atFrame) {
                PlaceAtFrame(line, spot);
            } else if (PlaceOnLine(line, spot, 1.0) || PlaceOnLine(line, spot, -1.0)) {
                return;
            }
        }
    }

    std::vector<GridLabel> labels;

private:
    void PlaceAtFrame(const LabelledLine& line, const LabelSpot& spot);
    bool PlaceOnLine(const LabelledLine& line, const LabelSpot& spot, double side);
    bool HasRoom(const TextBox& letters, const TextBox& cell) const;
    bool Touches(const TextBox& letters, bool map) const;
    /// paper: what the label stands on.
    void Keep(const LabelledLine& line, const TextBox& letters, int angle, ColorValue paper);

    /// The cell of the font about the letters.
    TextBox CellOf(const TextBox& letters) const {
        return BoxOfText(measure->AnchorOf(letters), measure->width, measure->ascent, measure->descent,
                         letters.angle);
    }

    const std::vector<TextBox>& taken;
    double clearance;
    Fit fit = FitOfWindow();
    std::optional<LabelMeasure> measure;
};

bool Layout::HasRoom(const TextBox& letters, const TextBox& cell) const {
    if (!OnArea(cell)) {
        return false;
    }
    const TextBox wide = Widened(letters, measure->GapBetween(), 0.0);
    return std::none_of(labels.begin(), labels.end(),
                        [&](const GridLabel& label) { return Overlap(wide, label.letters); }) &&
           std::none_of(taken.begin(), taken.end(), [&](const TextBox& box) { return Overlap(cell, box); });
}

/// Whether some of the letters' border, for map, or of what lies beside the map is under them.
bool Layout::Touches(const TextBox& letters, bool map) const {
    constexpr int Steps = 8;
    const std::array<AreaPoint, 4> corners = CornersOf(letters);
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const AreaPoint a = corners[i];
        const AreaPoint b = corners[(i + 1) % corners.size()];
        for (int step = 0; step < Steps; ++step) {
            const double share = static_cast<double>(step) / Steps;
            if (fit.OnMap({a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share}) == map) {
                return true;
            }
        }
    }
    return false;
}

void Layout::Keep(const LabelledLine& line, const TextBox& letters, int angle, ColorValue paper) {
    TextItem item = measure->ItemOf(line.text, letters, angle);
    item.TextColour = InkOn(paper);
    labels.push_back({.item = std::move(item), .letters = letters});
}

void Layout::PlaceAtFrame(const LabelledLine& line, const LabelSpot& spot) {
    const AreaPoint end = fit.OnArea(spot.x, spot.y);
    const AreaPoint step = StepFromEnd(spot, *measure, clearance, fit.scale);
    const TextBox letters{.middle = {end.x + step.x, end.y + step.y},
                          .halfWidth = measure->width / 2.0,
                          .halfHeight = measure->letters / 2.0};
    if (HasRoom(letters, CellOf(letters)) && !Touches(letters, true)) {
        Keep(line, letters, 0, Design.BackColor);
    }
}

bool Layout::PlaceOnLine(const LabelledLine& line, const LabelSpot& spot, double side) {
    const int angle = ReadingAngle(spot);
    const AreaPoint at = fit.OnArea(spot.x, spot.y);
    const AreaPoint above = AboveText(angle);
    // The line's own left is above a text that runs the same way.
    const bool sameWay =
        std::cos(angle * DegToRad) * spot.alongX + std::sin(angle * DegToRad) * spot.alongY > 0.0;
    const double bend = (sameWay ? spot.bend : -spot.bend) * side;
    const double half = measure->width / 2.0;
    const double sag = std::max(bend, 0.0) * half * half / (2.0 * fit.scale);
    const double step = side * (measure->GapOnLine() + measure->letters / 2.0 + sag);
    const TextBox letters{.middle = {at.x + above.x * step, at.y + above.y * step},
                          .halfWidth = half,
                          .halfHeight = measure->letters / 2.0,
                          .angle = static_cast<double>(angle)};
    if (!HasRoom(letters, CellOf(letters)) || Touches(letters, false)) {
        return false;
    }
    Keep(line, letters, angle, ColorUnderLines());
    return true;
}

/// The largest scale at which a label reaches no further than room from the middle of the area; place is
/// that of its line's end from the middle of the map.
double LargestScale(double place, double step, double half, double room) {
    const double left = room - half - (place < 0.0 ? -step : step);
    return place == 0.0 ? HUGE_VAL : left / std::fabs(place);
}

} // namespace

std::vector<TextBox> TextsOnMap() {
    std::vector<TextBox> boxes;
    const auto add = [&](const TextLook& look, const std::string& text, AreaPoint anchor, double ascent,
                         double descent, double angle) {
        const double width = TextWidthOf(look, text);
        if (width > 0.0) {
            boxes.push_back(BoxOfText(anchor, width, ascent, descent, angle));
        }
    };
    for (const TextItem& item : Design.TextItems) {
        add(LookOf(item), item.TextString, {static_cast<double>(item.TextX), static_cast<double>(item.TextY)},
            item.TextHeight, item.TextDescent, item.TextAngle);
    }
    if (Design.LabelsVisible) {
        for (const MapLabel& label : Design.MapLabels) {
            add(LookOf(label), label.LabelText,
                {static_cast<double>(label.LabelX), static_cast<double>(label.LabelY)}, label.LabelAscent,
                label.LabelDescent, 0.0);
        }
    }
    return boxes;
}

std::vector<GridLabel> PlaceGridLabels(const std::vector<LabelledLine>& lines,
                                       const std::vector<TextBox>& taken, double clearance) {
    std::vector<const LabelledLine*> order;
    order.reserve(lines.size());
    for (const LabelledLine& line : lines) {
        order.push_back(&line);
    }
    std::stable_sort(order.begin(), order.end(), [](const LabelledLine* a, const LabelledLine* b) {
        return a->outerness < b->outerness;
    });
    Layout layout(taken, clearance);
    for (const LabelledLine* line : order) {
        layout.Place(*line);
    }
    return std::move(layout.labels);
}

double ShareBesideLabels(const std::vector<LabelledLine>& lines, double share, double width, double height,
                         double clearance) {
    const double mapWidth = Design.MapXMax - Design.MapXMin;
    const double mapHeight = Design.MapYMax - Design.MapYMin;
    const double whole = std::min(Divide(width, mapWidth), Divide(height, mapHeight));
    const double middleX = (Design.MapXMin + Design.MapXMax) / 2.0;
    const double middleY = (Design.MapYMin + Design.MapYMax) / 2.0;
    double fitting = share * whole;
    for (int round = 0; round < FitRounds; ++round) {
        const double sagScale = fitting;
        for (const LabelledLine& line : lines) {
            const auto measure = line.atFrame ? MeasureOf(line.text) : std::nullopt;
            for (std::size_t i = 0; measure && i < line.spots.size(); ++i) {
                const LabelSpot& spot = line.spots[i];
                const AreaPoint step = StepFromEnd(spot, *measure, clearance, sagScale);
                const double roomX = width / 2.0 - measure->pixel;
                const double roomY = height / 2.0 - measure->pixel;
                const double halfHeight = std::max(measure->letters / 2.0 + measure->descent,
                                                   measure->ascent - measure->letters / 2.0);
                fitting =
                    std::min({fitting, LargestScale(spot.x - middleX, step.x, measure->width / 2.0, roomX),
                              LargestScale(middleY - spot.y, step.y, halfHeight, roomY)});
            }
        }
        if (fitting == sagScale) {
            break;
        }
    }
    return std::max(fitting / whole, share * SmallestShare);
}

} // namespace quelmont

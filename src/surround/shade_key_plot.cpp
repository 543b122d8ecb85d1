#include "surround/shade_key_plot.h"

#include "core/error_box.h"
#include "graticule/map_outline.h"
#include "output/area_output.h"
#include "output/draw_target.h"
#include "output/fan_out.h"
#include "output/output_state.h"
#include "output/print_text.h"
#include "output/window_scale.h"
#include "surround/frame_lines.h"
#include "surround/frame_surround.h"
#include "surround/label_layout.h"
#include "surround/label_measure.h"
#include "surround/surround_state.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>

namespace quelmont {

namespace {

constexpr const char* Routine = "ShadeKey";

// Of the height of letters.
constexpr double EdgeGap = 0.6;   ///< to the edge of the drawing area
constexpr double Padding = 0.8;   ///< within the box
constexpr double RowHeight = 1.7; ///< from one baseline to the next
constexpr double PatchHeight = 1.3;
constexpr double PatchWidth = 2.2;
constexpr double PatchGap = 0.7;   ///< to the text behind it
constexpr double LineWidth = 15.0; ///< about the box and the patches, twips

bool HasKey() {
    const DistortionKind kind = Design.Distortion.kind;
    return (kind == DistortionKind::Area || kind == DistortionKind::Angle) &&
           !OutputNow.shadeKey.rows.empty();
}

TextBox BoxAt(double left, double top, double width, double height) {
    return {.middle = {left + width / 2.0, top + height / 2.0},
            .halfWidth = width / 2.0,
            .halfHeight = height / 2.0};
}

/// The key without its place.
class KeyShape {
public:
    /// False for a font without measures.
    bool Measure() {
        const std::optional<LabelMeasure> title = MeasureOf(key.title);
        if (!title) {
            return false;
        }
        letters = title->letters;
        double widest = title->width;
        for (const ShadeKey::Row& row : key.rows) {
            const std::optional<LabelMeasure> text = MeasureOf(row.text);
            if (!text) {
                return false;
            }
            widest = std::max(widest, (PatchWidth + PatchGap) * letters + text->width);
        }
        width = widest + 2.0 * Padding * letters;
        height = (2.0 * Padding + 1.0 + RowHeight * static_cast<double>(key.rows.size())) * letters;
        return true;
    }

    double Letters() const { return letters; }
    double Width() const { return width; }
    double Height() const { return height; }

    /// The largest value stands on top.
    PlannedKey At(double left, double top) const {
        PlannedKey planned;
        planned.box = BoxAt(left, top, width, height);
        planned.patches.push_back({planned.box, SurroundInk()});
        planned.patches.push_back({Widened(planned.box, -LineWidth, -LineWidth), Design.BackColor});
        const double x = left + Padding * letters;
        double baseline = top + (Padding + 1.0) * letters;
        AddText(planned, key.title, x, baseline);
        std::for_each(key.rows.rbegin(), key.rows.rend(), [&](const ShadeKey::Row& row) {
            baseline += RowHeight * letters;
            const TextBox patch = BoxAt(x, baseline - (1.0 + PatchHeight) / 2.0 * letters,
                                        PatchWidth * letters, PatchHeight * letters);
            planned.patches.push_back({patch, SurroundInk()});
            planned.patches.push_back({Widened(patch, -LineWidth, -LineWidth), row.color});
            AddText(planned, row.text, x + (PatchWidth + PatchGap) * letters, baseline);
        });
        return planned;
    }

private:
    static void AddText(PlannedKey& planned, const std::string& text, double x, double y) {
        if (std::optional<TextItem> item = TextItemAt(text, {x, y}, SurroundInk())) {
            planned.texts.push_back(std::move(*item));
        }
    }

    const ShadeKey& key = OutputNow.shadeKey;
    double letters = 0.0, width = 0.0, height = 0.0;
};

/// The share of a box that lies on the map; boxes that are taken count more than all of it.
double CoveredBy(const TextBox& box, const MapOnArea& map, const std::vector<TextBox>& taken) {
    constexpr int samples = 12;
    int inside = 0;
    for (int i = 0; i < samples; ++i) {
        for (int j = 0; j < samples; ++j) {
            const double along = (2.0 * i + 1.0) / samples - 1.0;
            const double across = (2.0 * j + 1.0) / samples - 1.0;
            inside +=
                map.IsInside({box.middle.x + along * box.halfWidth, box.middle.y + across * box.halfHeight})
                    ? 1
                    : 0;
        }
    }
    const auto overlaps =
        std::count_if(taken.begin(), taken.end(), [&](const TextBox& other) { return Overlap(box, other); });
    return static_cast<double>(inside) / (samples * samples) + static_cast<double>(overlaps);
}

PlaneRing RingOf(const TextBox& box, const AreaFit& fit) {
    PlaneRing ring;
    for (const AreaPoint corner : CornersOf(box)) {
        ring.push_back(fit.PlaneOf(corner));
    }
    return ring;
}

std::optional<PlannedKey> PlanForDraw() {
    const WindowScale scale;
    const AreaFit fit = FitOfWindow();
    std::vector<TextBox> taken = TextsOnMap();
    const std::vector<TextBox> bar = BoxesOfBar();
    taken.insert(taken.end(), bar.begin(), bar.end());
    return PlanShadeKey(fit, OutlineOnArea(OutlineOfMap(), fit), taken);
}

void PlotPatches(const PlannedKey& key) {
    std::vector<std::pair<ColorValue, PlaneRing>> rings;
    {
        const WindowScale scale;
        const AreaFit fit = FitOfWindow();
        for (const PlannedKey::Patch& patch : key.patches) {
            rings.emplace_back(patch.color, RingOf(patch.box, fit));
        }
    }
    BeginFilePart(MapPart::Distortion, "Key");
    AreaOutput output;
    std::int16_t number = 0;
    for (const auto& [color, ring] : rings) {
        BeginFileFeature(++number, "Patch");
        output.Fill(color, {ring});
    }
}

void Draw(const std::optional<PlannedKey>& key) {
    if (key) {
        for (const TextItem& text : key->texts) {
            PrintItem(text);
        }
        Design.CurrentText.clear();
    }
}

} // namespace

std::optional<PlannedKey> PlanShadeKey(const AreaFit& fit, const MapOnArea& map,
                                       const std::vector<TextBox>& taken) {
    KeyShape shape;
    if (!HasKey() || !shape.Measure()) {
        return std::nullopt;
    }
    const double gap = EdgeGap * shape.Letters();
    const double right = fit.width - gap - shape.Width();
    const double bottom = fit.height - gap - shape.Height();
    if (right < gap || bottom < gap) {
        return std::nullopt;
    }
    const std::array<AreaPoint, 4> corners = {{{right, bottom}, {gap, bottom}, {right, gap}, {gap, gap}}};
    const auto covered = [&](AreaPoint corner) {
        return CoveredBy(BoxAt(corner.x, corner.y, shape.Width(), shape.Height()), map, taken);
    };
    const auto* const best = std::min_element(
        corners.begin(), corners.end(), [&](AreaPoint a, AreaPoint b) { return covered(a) < covered(b); });
    return shape.At(best->x, best->y);
}

void PlotShadeKey() {
    SurroundNow.key.reset();
    if (HasKey()) {
        Guarded(Routine, [] {
            SelectDevice();
            SurroundNow.key = PlanForDraw();
            if (SurroundNow.key) {
                PlotPatches(*SurroundNow.key);
            }
        });
    }
    if (!Design.PrintingNow) {
        SurroundNow.drawnKey = SurroundNow.key;
    }
}

std::vector<TextBox> BoxesOfShadeKey() {
    return SurroundNow.key ? std::vector<TextBox>{SurroundNow.key->box} : std::vector<TextBox>{};
}

void AddTextsOfShadeKey() {
    const FileWriter* writer = ArmedWriter();
    if (SurroundNow.key && writer != nullptr && writer->TakesAreas()) {
        Design.TextItems.insert(Design.TextItems.end(), SurroundNow.key->texts.begin(),
                                SurroundNow.key->texts.end());
    }
}

void DrawTextsOfShadeKey() { Draw(SurroundNow.key); }

void DrawTextsOfShadeKeyAgain() { Draw(SurroundNow.drawnKey); }

} // namespace quelmont

#include "annotation/label_print.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/output_state.h"
#include "output/print_text.h"
#include "output/symbol_size.h"
#include "output/window_scale.h"
#include "platform/machine.h"
#include "projection/project_select.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace quelmont {

namespace {

constexpr const char* Routine = "LabelPrint";

/// Events run as often as in the plotting of points.
constexpr std::size_t LabelsPerTurn = 800;

/// Places labels one after the other.
class LabelPlacer {
public:
    /// False when the point has no place on the map.
    bool Place(MapLabel& label);

private:
    void Measure(MapLabel& label);
    void PlaceBesideSymbol(MapLabel& label) const;

    // The labels of a file, which follow each other, have one font.
    std::optional<TextLook> look;
    FontMetrics metrics;     ///< of it, pixels
    std::int32_t width = 0;  ///< of the label, twips
    std::int32_t height = 0; ///< twips
};

bool LabelPlacer::Place(MapLabel& label) {
    Design.ProjLat = label.LabelLat;
    Design.ProjLon = label.LabelLon;
    Design.ProjTestMode = TestNone;
    ProjectSelect();
    if (Design.ProjOffMap) {
        return false;
    }
    Measure(label);
    PlaceBesideSymbol(label);
    return true;
}

void LabelPlacer::Measure(MapLabel& label) {
    if (TextLook current = LookOf(label); !look || *look != current) {
        look = std::move(current);
        const std::optional<FontMetrics> measured = Machine().fonts->Metrics(WindowFont(*look));
        ReportUnless(measured.has_value(), "GetTextMetrics error in LabelPrint");
        metrics = measured.value_or(FontMetrics{});
    }
    const double twipsX = Design.TwipsPerPixelX;
    const double twipsY = Design.TwipsPerPixelY;
    height = RoundToInt32(metrics.height * twipsY);
    label.LabelAscent = RoundToInt16(RoundToInt32(metrics.ascent * twipsY));
    label.LabelDescent = RoundToInt16(RoundToInt32(metrics.descent * twipsY));
    label.LabelCellHeight = RoundToInt16(height);
    label.LabelWidth = RoundToInt16(twipsX * metrics.averageWidth);
    const TextExtent extent =
        Machine().fonts->Extent(WindowFont(*look), label.LabelText).value_or(TextExtent{});
    width = RoundToInt32(extent.width * twipsX);
}

void LabelPlacer::PlaceBesideSymbol(MapLabel& label) const {
    const std::size_t file = static_cast<std::size_t>(label.LabelSymbolIndex) - 1;
    if (file >= Design.InputFiles.size()) {
        throw RunTimeError(ErrorSubscript);
    }
    Design.CurrentSymbolType = Design.InputFiles[file].MapFileType;
    SetSymbolSize(1, label.LabelSymbolIndex);
    const std::int32_t r = OutputNow.SymbolRadius;
    std::int64_t x =
        RoundToInt32(((Design.ProjX - Design.MapXMin) * Design.ScreenScaleX + Design.ScreenOriginX) + r);
    if (Design.CurrentSymbolType == SymbolOpenSquare || Design.CurrentSymbolType == SymbolFilledSquare) {
        // The corners of a square reach farther than a round symbol.
        x = RoundToInt32(static_cast<double>(x) + 2.0 * Design.TwipsPerPixelX);
    }
    std::int64_t y =
        RoundToInt32(Design.ScreenOriginY - (Design.ProjY - Design.MapYMin) * Design.ScreenScaleY);
    if (width + x > Design.ClientWidth) {
        x = std::max<std::int64_t>(x - width - 2 * std::int64_t{r}, 0);
    }
    if (height + y > Design.ClientHeight) {
        y -= height;
    }
    label.LabelX = static_cast<std::int32_t>(x);
    label.LabelY = RoundToInt32(static_cast<double>(y + label.LabelAscent));
}

/// Takes out the labels from one on that have no place on the map, and all behind one that failed.
void PlaceLabels(std::size_t first) {
    std::vector<MapLabel>& labels = Design.MapLabels;
    std::size_t placed = first;
    Guarded(Routine, [&] {
        const WindowScale scale;
        LabelPlacer placer;
        for (std::size_t i = first; i < labels.size(); ++i) {
            if (placer.Place(labels[i])) {
                if (placed != i) {
                    labels[placed] = std::move(labels[i]);
                }
                ++placed;
            }
        }
    });
    labels.resize(placed);
}

void DrawLabel(const MapLabel& label) {
    Design.CurrentLook = LookOf(label);
    Design.CurrentText = label.LabelText;
    Design.CurrentTextAngle = "0";
    Design.CurrentX = label.LabelX;
    Design.CurrentY = label.LabelY;
    PrintRotatedText();
}

} // namespace

TextLook LookOf(const MapLabel& label) {
    return {.FontName = label.LabelFont,
            .FontSize = label.LabelSize,
            .FontColour = label.LabelColour,
            .FontBold = label.LabelBold,
            .FontItalic = label.LabelItalic,
            .FontUnderline = label.LabelUnderline,
            .FontStrikeout = label.LabelStrikeout};
}

void LabelPrint(std::size_t first) {
    if (first >= Design.MapLabels.size()) {
        return;
    }
    PlaceLabels(first);
    // What is on paper cannot be put back: the labels of the lobes come when all lobes are there.
    const bool later = Design.PrintingNow && Design.ProjNum == ProjInterruptedMollweide;
    if (!later) {
        DrawLabels(first);
    }
}

void DrawLabels(std::size_t first, bool eventsRun) {
    if (!Design.LabelsVisible) {
        return;
    }
    Guarded(Routine, [&] {
        for (std::size_t i = first; i < Design.MapLabels.size(); ++i) {
            DrawLabel(Design.MapLabels[i]);
            if (eventsRun && (i - first + 1) % LabelsPerTurn == 0) {
                Machine().window->Refresh();
                Machine().pump->DoEvents();
                if (Design.PlotStopReason == StopReason::Escape) {
                    break;
                }
            }
        }
    });
    Design.CurrentText.clear();
}

} // namespace quelmont

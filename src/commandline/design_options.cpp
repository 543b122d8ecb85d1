#include "commandline/design_options.h"

#include "circles/small_circle.h"
#include "core/rounding.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_checks.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/circles/accept_circles.h"
#include "graticule/grid_types.h"
#include "mapfiles/feature_rows.h"
#include "mapfiles/map_formats.h"
#include "projection/projection_table.h"

#include <algorithm>
#include <cstddef>

namespace quelmont {

namespace {

/// Puts the texts that were given in the place of those that a dialog proposes.
template <std::size_t Size>
void TakeTexts(const std::array<std::optional<std::string>, Size>& given,
               std::array<std::string, Size>& texts) {
    for (std::size_t i = 0; i < Size; ++i) {
        texts[i] = given[i].value_or(texts[i]);
    }
}

bool TakeStandardParallels(const DrawOptions& options) {
    ProposeStandardParallels();
    std::array<std::string, 2> texts = Design.StdParText;
    TakeTexts(options.stdPar, texts);
    if (HasOneStandardParallel()) {
        texts[1] = texts[0];
        texts[1].back() = 'S';
    }
    return AcceptStandardParallels(texts[0], texts[1]);
}

bool TakeLobes(const DrawOptions& options) {
    constexpr std::size_t firstInterruption = 3;
    constexpr std::size_t perHemisphere = 3;
    ProposeLobes();
    for (const std::size_t hemisphere : {0U, 1U}) {
        if (options.lobes[hemisphere]) {
            const std::vector<std::string>& interruptions = *options.lobes[hemisphere];
            Design.LobeText[hemisphere] = std::to_string(interruptions.size());
            std::copy(interruptions.begin(), interruptions.end(),
                      &Design.LobeText[firstInterruption + hemisphere * perHemisphere]);
        }
    }
    return AcceptLobes();
}

template <typename Given>
bool AnyGiven(const Given& texts) {
    return std::any_of(texts.begin(), texts.end(), [](const auto& text) { return text.has_value(); });
}

bool NamesProjectionOrBounds(const DrawOptions& options) {
    return options.projectionGiven || AnyGiven(options.grid) || AnyGiven(options.stdPar) ||
           AnyGiven(options.utm) || AnyGiven(options.lobes) || options.spheroid;
}

bool TakeProjection(const DrawOptions& options) {
    if (options.design && !NamesProjectionOrBounds(options)) {
        return true;
    }
    if (!options.design || options.projectionGiven) {
        Design.ProjNum = options.ProjNum;
        Design.ProjName = FindProjection(options.ProjNum)->ProjName;
    }
    ProposeBounds();
    TakeTexts(options.grid, Design.GridText);
    TakeTexts(options.utm, Design.UtmText);
    Design.SpheroidName = options.spheroid.value_or(Design.SpheroidName);
    if (!AcceptBounds() || (HasStandardParallels() && !TakeStandardParallels(options)) ||
        (Design.ProjNum == ProjInterruptedMollweide && !TakeLobes(options))) {
        return false;
    }
    FinishAcceptance();
    return true;
}

void TakeGrid(const DrawOptions& options) {
    if (options.gridType) {
        StoreGridType(GridTypes[static_cast<std::size_t>(*options.gridType - 1)]);
    }
    Design.GridColor = options.gridColor.value_or(Design.GridColor);
    Design.BackColor = options.background.value_or(Design.BackColor);
    Design.Fill = options.fill;
    if (options.gridWidth) {
        Design.GridLineWidth = static_cast<float>(*options.gridWidth) * Design.TwipsPerPixelY;
    }
}

void TakeStyle(InputFileEntry& entry, const MapFileOptions& options) {
    entry.MapFileType = options.symbol.value_or(entry.MapFileType);
    const std::size_t rows = FeatureRows(entry.MapFileName).size();
    for (std::size_t row = 1; row <= rows; ++row) {
        FeatureStyle& style = entry.Features[row];
        style.Color = options.color.value_or(style.Color);
        style.LineWidth = options.lineWidth ? TwipsOf(*options.lineWidth) : style.LineWidth;
        style.SymbolSize = options.symbolSize ? TwipsOf(*options.symbolSize) : style.SymbolSize;
        if (options.borderWidth && HasBorder(entry.MapFileType)) {
            style.BorderWidth = TwipsOf(*options.borderWidth);
        }
    }
    for (const int row : options.hidden) {
        entry.Features[static_cast<std::size_t>(row)].Shown = false;
    }
    if (MayHaveLabels(entry.MapFileName)) {
        if (entry.LabelFontName.empty() || entry.LabelFontSize <= 0) { // none was chosen
            entry.LabelFontName = DefaultLabelFont;
            entry.LabelFontSize = DefaultLabelSize;
            entry.LabelColor = SolidColor(StandardColors[0]);
        }
        entry.LabelFontName = options.labelFont.value_or(entry.LabelFontName);
        entry.LabelFontSize = RoundToInt16(options.labelSize.value_or(entry.LabelFontSize));
        entry.LabelColor = options.labelColor.value_or(entry.LabelColor);
    }
}

void TakeMaps(const DrawOptions& options) {
    if (options.map.noMap || !options.map.files.empty()) {
        Design.InputFiles.clear();
        for (const MapFileOptions& map : options.map.files) {
            TakeStyle(Design.InputFiles.emplace_back(NewMapFileEntry(map.file)), map);
        }
        Design.MapFileCount = RoundToInt16(static_cast<double>(options.map.files.size()));
        return;
    }
    // The default map, or those of a recalled design.
    for (InputFileEntry& entry : Design.InputFiles) {
        TakeStyle(entry, options.map.defaultMap);
    }
}

} // namespace

bool ApplyCircles(const DrawOptions& options) {
    const auto pixels = [](std::optional<int> width, float& twips) {
        twips = width ? static_cast<float>(*width) * Design.TwipsPerPixelY : twips;
    };
    Design.GcColor = options.circles.greatCircleLine.color.value_or(Design.GcColor);
    Design.ScColor = options.circles.smallCircleLine.color.value_or(Design.ScColor);
    pixels(options.circles.greatCircleLine.width, Design.GcLineWidth);
    pixels(options.circles.smallCircleLine.width, Design.ScLineWidth);
    Design.ScSymbolCount = options.circles.count.value_or(Design.ScSymbolCount);
    const auto take = [](const std::string& table, std::string& name) {
        name = table.empty() ? name : table;
    };
    take(options.circles.greatCircleLine.table, Design.GcFileName);
    take(options.circles.smallCircleLine.table, Design.ScFileName);
    if (options.circles.count && !options.circles.smallCircle && Design.ScDefined) {
        ScCalc(); // those of a recalled design
    }
    return (!options.circles.greatCircle || AcceptGreatCircle(*options.circles.greatCircle)) &&
           (!options.circles.smallCircle || AcceptSmallCircle(*options.circles.smallCircle));
}

bool ApplyOptions(const DrawOptions& options) {
    if (!options.design || options.percentGiven) {
        Design.MapReduce = options.percent / 100.0;
    }
    if (!options.design || options.noLineScaling) {
        Design.LineWidthsScaled = !options.noLineScaling;
    }
    Design.TextScalePercent = RoundToInt16(options.textScale.value_or(Design.TextScalePercent));
    Design.LabelsVisible = Design.LabelsVisible && !options.map.noLabels;
    TakeGrid(options);
    TakeGridLabels(options.gridLabels);
    TakeFrame(options.frame);
    TakeDistortion(options.distortion);
    TakeMaps(options);
    PlaceTexts(options.texts);
    return TakeProjection(options);
}

} // namespace quelmont

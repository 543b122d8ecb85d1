#include "commandline/design_options.h"

#include "core/rounding.h"
#include "dialogs/bounds/boundary_checks.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/bounds/lobe_checks.h"
#include "graticule/calc_graticule.h"
#include "graticule/grid_types.h"
#include "graticule/utm_grid.h"
#include "mapfiles/feature_rows.h"
#include "projection/param_select.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <cstddef>
#include <initializer_list>
#include <utility>

namespace quelmont {

namespace {

/// A field of a dialog and the index of its text.
struct Field {
    const char* control;
    std::size_t index;
};

/// Puts the given texts in and checks each field of a dialog, in the order of its fields.
template <std::size_t Size>
bool TakeFields(const char* dialog, std::initializer_list<Field> fields,
                const std::array<std::optional<std::string>, Size>& given,
                std::array<std::string, Size>& texts) {
    for (const Field& field : fields) {
        std::string& text = texts[field.index];
        text = given[field.index].value_or(text);
        if (IsRefused(CheckBoundaryField(dialog, field.control, text))) {
            return false;
        }
    }
    return true;
}

/// Runs the calculation that accepts the bounds; a refusal leaves its mark in ProjOffMap.
bool Accepted(void (*calculation)()) {
    calculation();
    return !std::exchange(Design.ProjOffMap, false);
}

bool TakeStandardParallels(const DrawOptions& options) {
    ParamStdParallel();
    std::array<std::string, 2> texts = Design.StdParText;
    auto given = options.stdPar;
    if (HasOneStandardParallel()) {
        given[1] = given[0].value_or(texts[0]);
        given[1]->back() = 'S';
    }
    if (!TakeFields("LatLonStdPar", {{"LatNorthStdPar", 0}, {"LatSouthStdPar", 1}}, given, texts) ||
        IsRefused(AcceptLatLonStdPar(texts[0], texts[1]))) {
        return false;
    }
    StoreStandardParallels(texts[0], texts[1]);
    return true;
}

bool TakeLobes(const DrawOptions& options) {
    constexpr std::size_t firstInterruption = 3;
    constexpr std::size_t perHemisphere = 3;
    ProposeLobes();
    for (const std::size_t hemisphere : {0U, 1U}) {
        if (!options.lobes[hemisphere]) {
            continue;
        }
        const std::vector<std::string>& interruptions = *options.lobes[hemisphere];
        Design.LobeText[hemisphere] = std::to_string(interruptions.size());
        for (std::size_t k = 0; k < interruptions.size(); ++k) {
            const std::size_t field = hemisphere * perHemisphere + k;
            Design.LobeText[firstInterruption + field] = interruptions[k];
            if (IsRefused(CheckInterruption(field, interruptions[k]))) {
                return false;
            }
        }
    }
    OrderLobes();
    if (IsRefused(AcceptLatLonInterrupt())) {
        return false;
    }
    LonInterruptOffset();
    return true;
}

bool TakeRectangle(const DrawOptions& options) {
    if (!TakeFields("LatLonBounds",
                    {{"LatN", 0}, {"LatS", 1}, {"LatGr", 2}, {"LonW", 3}, {"LonE", 4}, {"LonGr", 5}},
                    options.grid, Design.GridText) ||
        IsRefused(AcceptLatLonBounds(Design.GridText[0], Design.GridText[1])) || !Accepted(CalcGraticule)) {
        return false;
    }
    if (HasStandardParallels()) {
        return TakeStandardParallels(options);
    }
    return Design.ProjNum != ProjInterruptedMollweide || TakeLobes(options);
}

bool TakeCircle(const DrawOptions& options) {
    const bool perspective = Design.ProjNum == ProjVerticalPerspective;
    const char* const dialog = perspective ? "LatLonBoundsVp" : "LatLonBoundsAz";
    if (!TakeFields(dialog,
                    {{"LatCentral", 6},
                     {"LonCentral", 7},
                     {"LatGr", 2},
                     {"LonGr", 5},
                     perspective ? Field{"VpDistanceKM", 9} : Field{"AzRangeDist", 8}},
                    options.grid, Design.GridText)) {
        return false;
    }
    if ((!perspective && IsRefused(AcceptLatLonBoundsAz(Design.GridText[8]))) || !Accepted(CalcGraticule)) {
        return false;
    }
    ForgetStandardParallels();
    return true;
}

bool TakeUtm(const DrawOptions& options) {
    Design.SpheroidName = options.spheroid.value_or(Design.SpheroidName);
    if (!TakeFields("UtmParameters", {{"UtmLonCentral", 0}, {"UtmLatOrigin", 1}}, options.utm,
                    Design.UtmText)) {
        return false;
    }
    for (std::size_t i = 2; i < Design.UtmText.size(); ++i) {
        Design.UtmText[i] = options.utm[i].value_or(Design.UtmText[i]);
    }
    CalcUtmZone();
    return Accepted(CalcUtmGrid);
}

bool TakeProjection(const DrawOptions& options) {
    Design.ProjNum = options.ProjNum;
    Design.ProjName = FindProjection(options.ProjNum)->ProjName;
    ProposeBounds();
    const bool taken = Design.ProjNum == ProjUtm     ? TakeUtm(options)
                       : IsAzimuthal(Design.ProjNum) ? TakeCircle(options)
                                                     : TakeRectangle(options);
    if (taken) {
        ParamSelect();
        Design.ProjGridSet[static_cast<std::size_t>(Design.ProjNum)] = true;
    }
    return taken;
}

void TakeGrid(const DrawOptions& options) {
    if (options.gridType) {
        StoreGridType(GridTypes[static_cast<std::size_t>(*options.gridType - 1)]);
    }
    Design.GridColor = options.gridColor.value_or(Design.GridColor);
    Design.BackColor = options.background.value_or(Design.BackColor);
    if (options.gridWidth) {
        Design.GridLineWidth = static_cast<float>(*options.gridWidth) * Design.TwipsPerPixelY;
    }
}

std::int16_t Twips(int pixels) { return RoundToInt16(pixels * static_cast<double>(Design.TwipsPerPixelY)); }

void TakeStyle(InputFileEntry& entry, const MapFileOptions& options) {
    entry.MapFileType = options.symbol.value_or(entry.MapFileType);
    const std::size_t rows = FeatureRows(entry.MapFileName).size();
    for (std::size_t row = 1; row <= rows; ++row) {
        FeatureStyle& style = entry.Features[row];
        style.Color = options.color.value_or(style.Color);
        style.LineWidth = options.lineWidth ? Twips(*options.lineWidth) : style.LineWidth;
        style.SymbolSize = options.symbolSize ? Twips(*options.symbolSize) : style.SymbolSize;
        style.BorderWidth = options.borderWidth ? Twips(*options.borderWidth) : style.BorderWidth;
    }
    for (const int row : options.hidden) {
        entry.Features[static_cast<std::size_t>(row)].Shown = false;
    }
}

void TakeMaps(const DrawOptions& options) {
    if (options.noMap || !options.maps.empty()) {
        Design.InputFiles.clear();
        for (const MapFileOptions& map : options.maps) {
            TakeStyle(Design.InputFiles.emplace_back(NewMapFileEntry(map.file)), map);
        }
        Design.MapFileCount = RoundToInt16(static_cast<double>(options.maps.size()));
        return;
    }
    for (InputFileEntry& defaultMap : Design.InputFiles) {
        TakeStyle(defaultMap, options.defaultMap);
    }
}

} // namespace

bool ApplyOptions(const DrawOptions& options) {
    Design.MapReduce = options.percent / 100.0;
    Design.LineWidthsScaled = !options.noLineScaling;
    Design.TextScalePercent = RoundToInt16(options.textScale.value_or(Design.TextScalePercent));
    TakeGrid(options);
    TakeMaps(options);
    return TakeProjection(options);
}

} // namespace quelmont

#include "designfile/older_designs.h"

#include "core/map_design.h"
#include "core/rounding.h"
#include "mapfiles/feature_rows.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quelmont {

namespace {

struct Renaming {
    std::string_view before;
    std::string_view now;
};

// clang-format off
constexpr std::array ProjectionNames = std::to_array<Renaming>({
    {"NORMAL MERCATOR",       "Mercator"},
    {"EQUIRECTANGULAR",       "Equirectangular"},
    {"HAMMER EQUAL-AREA",     "Hammer Equal-Area"},
    {"ROBINSON",              "Robinson"},
    {"EQUIDISTANT CONIC",     "Equidistant Conic"},
    {"CONFORMAL CONIC",       "Conformal Conic"},
    {"ALBERS EQUAL-AREA",     "Albers Equal-Area"},
    {"GNOMONIC",              "Gnomonic Azimuthal"},
    {"STEREOGRAPHIC",         "Stereographic Azimuthal"},
    {"ORTHOGRAPHIC",          "Orthographic Azimuthal"},
    {"VERTICAL PERSPECTIVE",  "Vertical Perspective Azimuthal"},
    {"AZIMUTHAL EQUIDISTANT", "Azimuthal Equidistant"},
    {"AZIMUTHAL EQUAL-AREA",  "Azimuthal Equal-Area"},
});
constexpr std::array FontNames = std::to_array<Renaming>({
    {"COUR", "Courier New"},
    {"HELV", "Arial"},
});
// clang-format on

template <typename Table>
void Rename(std::string& name, const Table& table) {
    const auto* const found =
        std::find_if(table.begin(), table.end(), [&](const Renaming& entry) { return entry.before == name; });
    if (found != table.end()) {
        name = found->now;
    }
}

} // namespace

void RenameOldest() {
    constexpr std::size_t letters = 3;
    Rename(Design.ProjName, ProjectionNames);
    if (Design.BmpFileName.size() > letters) {
        Design.BmpFileName.replace(Design.BmpFileName.size() - letters, letters, "bmp");
    }
    for (std::size_t slot = 0; slot < static_cast<std::size_t>(GridLabelFontSlot); ++slot) {
        Rename(Design.Fonts[slot].FontName, FontNames); // no file has the font of the grid's labels
    }
    for (InputFileEntry& entry : Design.InputFiles) {
        Rename(entry.LabelFontName, FontNames);
    }
    for (TextItem& text : Design.TextItems) {
        Rename(text.TextFont, FontNames);
    }
}

void RemakeMinuteGridStyles() {
    constexpr std::size_t sixth = 6;
    constexpr std::size_t ninth = 9;
    for (InputFileEntry& entry : Design.InputFiles) {
        // No other family has as many features.
        if (FeatureRows(entry.MapFileName).size() == feature_rows::MinuteGrid.size()) {
            const InputFileEntry proposed = NewMapFileEntry(entry.MapFileName);
            entry.Features[ninth] = entry.Features[sixth];
            for (const std::size_t row : {std::size_t{8}, std::size_t{10}}) {
                entry.Features[row] = proposed.Features[row];
            }
        }
    }
}

void DeriveCellHeights() {
    for (TextItem& text : Design.TextItems) {
        text.TextCellHeight = RoundToInt16(text.TextHeight + text.TextDescent);
    }
}

} // namespace quelmont

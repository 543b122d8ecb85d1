#include "mapfiles/feature_rows.h"

#include "core/map_design.h"
#include "core/rounding.h"
#include "mapfiles/map_formats.h"

namespace quelmont {

std::int16_t TwipsOf(double pixels) { return RoundToInt16(pixels * Design.TwipsPerPixelY); }

std::span<const FeatureRow> FeatureRows(std::string_view fileName) { return MapFormatOf(fileName).rows; }

InputFileEntry NewMapFileEntry(std::string_view fileName) {
    InputFileEntry entry;
    entry.MapFileName = fileName;
    entry.MapFileType = SymbolLine;
    std::size_t feature = 1;
    for (const FeatureRow& row : FeatureRows(fileName)) {
        entry.Features[feature] = FeatureStyle{.Shown = true,
                                               .Color = SolidColor(row.color),
                                               .LineWidth = TwipsOf(LinePixels),
                                               .SymbolSize = TwipsOf(SymbolPixels),
                                               .BorderWidth = TwipsOf(BorderPixels)};
        ++feature;
    }
    return entry;
}

} // namespace quelmont

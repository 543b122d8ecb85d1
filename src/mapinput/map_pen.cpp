#include "mapinput/map_pen.h"

#include "core/map_design.h"
#include "mapfiles/feature_rows.h"
#include "output/device_pen.h"
#include "output/fan_out.h"
#include "output/page_scale.h"
#include "output/symbol_size.h"

#include <cstddef>
#include <span>
#include <string>

namespace quelmont {

namespace {

constexpr const char* Routine = "MapPlot";

/// A feature of a file that has several.
void TellFeature(std::int16_t feature, const std::string& fileName) {
    const std::span<const FeatureRow> rows = FeatureRows(fileName);
    const auto row = static_cast<std::size_t>(feature - 1);
    if (rows.size() > 1 && row < rows.size()) {
        BeginFileFeature(feature, rows[row].name);
    }
}

} // namespace

void TakeFeaturePen(std::int16_t Feature, std::int32_t FileIndex, PenSites sites) {
    SetSymbolSize(Feature, FileIndex);
    const InputFileEntry& file = Design.InputFiles[static_cast<std::size_t>(FileIndex - 1)];
    const FeatureStyle& style = file.Features[static_cast<std::size_t>(Feature)];
    if (ArmedWriter() != nullptr) {
        TellFeature(Feature, file.MapFileName);
    }
    Design.PenColor = style.Color;
    const std::int16_t width = HasBorder(Design.CurrentSymbolType) ? style.BorderWidth : style.LineWidth;
    TakePenWidth(width);
    DeleteMapPen(sites.deleteObject);
    MakeLinePen(Design.PenColor, sites.createPen, Routine);
}

void DeleteMapPen(int site) { ReleaseDevicePen(site, Routine); }

} // namespace quelmont

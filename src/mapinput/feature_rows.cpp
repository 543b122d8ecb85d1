#include "mapinput/feature_rows.h"

#include "core/file_names.h"
#include "core/map_design.h"
#include "core/rounding.h"

namespace quelmont {

namespace {

struct FormatRows {
    std::string_view letters;
    std::span<const FeatureRow> rows;
};

// clang-format off
constexpr std::array Formats = std::to_array<FormatRows>({
    {"ALL", feature_rows::MinuteGrid},
    {"CCI", feature_rows::MinuteGrid},
    {"MAP", feature_rows::MinuteGrid},
    {"GRV", feature_rows::LineGraph},
    {"GRF", feature_rows::LineGraph},
    {"PKV", feature_rows::WorldDataBank},
    {"PKD", feature_rows::WorldDataBank},
});
// clang-format on

std::int16_t Twips(double pixels) { return RoundToInt16(pixels * Design.TwipsPerPixelY); }

} // namespace

std::span<const FeatureRow> FeatureRows(std::string_view fileName) {
    const std::string letters = LastThreeLetters(fileName);
    for (const FormatRows& format : Formats) {
        if (format.letters == letters) {
            return format.rows;
        }
    }
    return feature_rows::WholeFile;
}

InputFileEntry NewMapFileEntry(std::string_view fileName) {
    InputFileEntry entry;
    entry.MapFileName = fileName;
    entry.MapFileType = SymbolLine;
    std::size_t feature = 1;
    for (const FeatureRow& row : FeatureRows(fileName)) {
        entry.Features[feature] = FeatureStyle{.Shown = true,
                                               .Color = SolidColor(row.color),
                                               .LineWidth = Twips(LinePixels),
                                               .SymbolSize = Twips(SymbolPixels),
                                               .BorderWidth = Twips(BorderPixels)};
        ++feature;
    }
    return entry;
}

} // namespace quelmont

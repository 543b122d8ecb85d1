#include "mapfiles/feature_rows.h"
#include "mapfiles/map_formats.h"
#include "output/dxf/dxf_color.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST(ColorsInFiles, ProposalForEachRowOfEveryFormatHasANumberInDxf) {
    for (const MapFormat& format : MapFormats()) {
        for (const FeatureRow& row : format.rows) {
            EXPECT_NE(DxfColor(row.color), "") << format.letters << ' ' << row.name;
        }
    }
}

/// Entries of a list hold colours as the palette gives them, with a flag above.
TEST(ColorsInFiles, NewEntryOfEveryFormatHasNumbersInDxf) {
    for (const MapFormat& format : MapFormats()) {
        const InputFileEntry entry = NewMapFileEntry("a." + std::string(format.letters));
        for (std::size_t row = 1; row <= format.rows.size(); ++row) {
            EXPECT_NE(DxfColor(entry.Features.at(row).Color), "") << entry.MapFileName << ' ' << row;
        }
    }
}

} // namespace
} // namespace quelmont

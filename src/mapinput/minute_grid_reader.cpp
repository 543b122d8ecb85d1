#include "mapinput/minute_grid_reader.h"

#include "core/file_names.h"
#include "core/map_design.h"
#include "mapinput/byte_reader.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "mapinput/minute_grid_file.h"
#include "mapinput/shown_features.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>

namespace quelmont {

namespace {

/// The next record, nothing at the end of the file. The end is looked for behind the code of a
/// continuing record alone; whatever else lies beyond it reads as zero.
std::optional<MinuteGridRecord> NextRecord(ByteReader& bytes) {
    if (bytes.Has(MinuteGridRecordSize)) [[likely]] {
        return DecodeMinuteGrid(bytes.Take<MinuteGridRecordSize>());
    }
    std::array<std::byte, MinuteGridRecordSize> rest = {};
    const std::span<const std::byte> ready = bytes.Ahead(rest.size());
    const std::size_t count = std::min(ready.size(), rest.size());
    std::copy_n(ready.begin(), count, rest.begin());
    bytes.Skip(static_cast<std::int64_t>(count));
    const MinuteGridRecord record = DecodeMinuteGrid(rest);
    if (RankOf(record.Code) == 0 && count <= sizeof record.Code) {
        return std::nullopt;
    }
    return record;
}

} // namespace

bool ReadMinuteGrid(MapPoint& point, std::int32_t FileIndex) {
    const InputFileEntry& file = Design.InputFiles[static_cast<std::size_t>(FileIndex - 1)];
    const bool oneStyle = LastThreeLetters(file.MapFileName) == "PNT";
    const ShownFeatures features = oneStyle ? ShownFeatures::AllAsFirst(file, RankFeatures.size())
                                            : ShownFeatures(file, RankFeatures.size());
    ByteReader bytes;
    std::int16_t feature = 0;
    bool shown = false;
    while (const std::optional<MinuteGridRecord> next = NextRecord(bytes)) {
        const MinuteGridRecord& record = *next;
        const int rank = RankOf(record.Code);
        if (rank != 0) {
            feature = FeatureOfRank(rank);
            shown = features.Shows(feature);
        }
        if (!shown) {
            if (!point.CountPoint()) {
                return false;
            }
            continue;
        }
        Design.PointLatSec = record.Lat * SecPerMinute;
        Design.PointLonSec = record.Lon * SecPerMinute;
        point.TestBounds();
        if (rank != 0) {
            TakeFeaturePen(oneStyle ? std::int16_t{1} : feature, FileIndex, SitesMinuteGridLine);
            point.StartNewLine();
        }
        if (!point.PlotStep()) {
            return false;
        }
    }
    DeleteMapPen(SiteMinuteGridEnd);
    return true;
}

} // namespace quelmont

#include "mapinput/packed_reader.h"

#include "core/map_design.h"
#include "mapinput/byte_reader.h"
#include "mapinput/feature_rows.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "mapinput/packed_box.h"
#include "mapinput/packed_file.h"
#include "mapinput/shown_features.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace quelmont {

namespace {

bool PlotFirstPoint(MapPoint& point, const PackedHeader& header) {
    Design.PointLonSec = header.FirstLon;
    Design.PointLatSec = header.FirstLat;
    point.TestBounds();
    point.StartNewLine();
    return point.PlotStep();
}

/// The points behind the first one, as far as the file has them.
bool PlotSteps(MapPoint& point, const PackedHeader& header, ByteReader& bytes) {
    std::int32_t lon = header.FirstLon;
    std::int32_t lat = header.FirstLat;
    const std::size_t size = PackedStepSize * static_cast<std::size_t>(std::max(header.Count - 1, 0));
    const std::span<const std::byte> ready = bytes.Ahead(size);
    const std::size_t there = std::min(ready.size(), size) / PackedStepSize * PackedStepSize;
    for (std::size_t place = 0; place < there; place += PackedStepSize) {
        const PackedStep step = DecodePackedStep(ready.subspan(place).first<PackedStepSize>());
        lon += step.Lon;
        lat += step.Lat;
        Design.PointLatSec = lat;
        Design.PointLonSec = lon;
        point.TestBounds();
        if (!point.PlotStep()) {
            return false;
        }
    }
    bytes.Skip(static_cast<std::int64_t>(size));
    return true;
}

} // namespace

bool ReadPacked(MapPoint& point, std::int32_t FileIndex) {
    const InputFileEntry& file = Design.InputFiles[static_cast<std::size_t>(FileIndex - 1)];
    const PackedRanks ranks = PackedRanksOf(file.MapFileName);
    const ShownFeatures features(file, FeatureRows(file.MapFileName).size());
    static_assert(PackedStepSize * MaxPackedCount <= ByteReader::BlockSize);
    ByteReader bytes;
    while (bytes.Has(1)) {
        const std::span<const std::byte> ready = bytes.Ahead(PackedHeaderSize);
        const std::int16_t feature = FeatureOfPackedRank(std::to_integer<std::uint8_t>(ready[0]), ranks);
        const bool shown = features.Shows(feature);
        if (ready.size() < PackedHeaderSize) {
            break;
        }
        const PackedHeader header = DecodePackedHeader(ready.first<PackedHeaderSize>());
        if (!shown || !BoxMayTouchMap(header)) {
            if (!point.SkipPoints(header.Count)) {
                return false;
            }
            bytes.Skip(PackedSegmentSize(header.Count));
            continue;
        }
        bytes.Skip(PackedHeaderSize);
        TakeFeaturePen(feature, FileIndex, SitesPackedFeature);
        if (!PlotFirstPoint(point, header) || !PlotSteps(point, header, bytes)) {
            return false;
        }
    }
    DeleteMapPen(SitePackedEnd);
    return true;
}

} // namespace quelmont

#include "mapinput/fixed_record_reader.h"

#include "core/file_names.h"
#include "core/map_design.h"
#include "mapinput/byte_reader.h"
#include "mapinput/feature_rows.h"
#include "mapinput/fixed_record_file.h"
#include "mapinput/line_graph_codes.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "mapinput/shown_features.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>

namespace quelmont {

namespace {

/// LineStart of the record: the next point begins a line.
constexpr std::int16_t HeaderRead = 1;

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

bool SkipRecords(MapPoint& point, ByteReader& bytes, std::int32_t count) {
    if (count < 0) {
        throw RunTimeError(ErrorInvalidCall); // it would be read again and again
    }
    if (!point.SkipPoints(count)) {
        return false;
    }
    bytes.Skip(static_cast<std::int64_t>(FixedRecordSize) * count);
    return true;
}

/// The feature whose points are read, from the headers of a .grf file.
class LineGraphFeature {
public:
    explicit LineGraphFeature(std::int32_t index)
        : FileIndex(index), file(Design.InputFiles[static_cast<std::size_t>(index - 1)]),
          features(file, FeatureRows(file.MapFileName).size()) {}

    bool TakeHeader(MapPoint& point, ByteReader& bytes, const LineGraphHeader& header) {
        const std::int16_t named = LineGraphFeatureOfCode(header.Code);
        if (named != 0) {
            feature = named;
        } else if (!SkipRecords(point, bytes, header.Count)) {
            return false;
        }
        if (!features.Shows(feature)) {
            return SkipRecords(point, bytes, header.Count);
        }
        TakeFeaturePen(feature, FileIndex, SitesLineGraphFeature);
        return true;
    }

private:
    std::int32_t FileIndex;
    const InputFileEntry& file;
    ShownFeatures features;
    std::int16_t feature = 0;
};

bool PlotRecord(MapPoint& point, const FixedRecord& record) {
    const FixedRecordPoint place = DecodeFixedRecordPoint(record);
    Design.PointLatSec = place.Lat;
    Design.PointLonSec = place.Lon;
    point.TestBounds();
    if (Design.LineStart == HeaderRead) {
        point.StartNewLine();
        Design.LineStart = 3;
    } else if (Design.StartLine) {
        point.StartNewLine();
    }
    return point.PlotStep();
}

} // namespace

std::optional<FixedRecord> NextFixedRecord(ByteReader& bytes) {
    // One byte more, to know the last record.
    const std::span<const std::byte> ready = bytes.Ahead(FixedRecordSize + 1);
    const std::size_t size = std::min(ready.size(), FixedRecordSize);
    FixedRecord record;
    record.fill(' ');
    std::transform(ready.begin(), ready.begin() + static_cast<std::ptrdiff_t>(size), record.begin(),
                   [](std::byte byte) { return static_cast<char>(byte); });
    const bool last = ready.size() <= FixedRecordSize;
    if (last && std::all_of(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(size), IsLineEnd)) {
        return std::nullopt;
    }
    bytes.Skip(static_cast<std::int64_t>(size));
    return record;
}

bool ReadFixedRecords(MapPoint& point, std::int32_t FileIndex) {
    LineGraphFeature feature(FileIndex);
    const bool lineGraph =
        LastThreeLetters(Design.InputFiles[static_cast<std::size_t>(FileIndex - 1)].MapFileName) == "GRF";
    ByteReader bytes;
    if (!lineGraph) {
        TakeFeaturePen(1, FileIndex, SitesFixedRecord);
    }
    while (const std::optional<FixedRecord> record = NextFixedRecord(bytes)) {
        bool goOn = true;
        if (!IsFixedRecordHeader(*record)) {
            goOn = PlotRecord(point, *record);
        } else {
            Design.LineStart = HeaderRead;
            point.PointsRead += 1;
            goOn = !lineGraph || feature.TakeHeader(point, bytes, DecodeLineGraphHeader(*record));
        }
        if (!goOn) {
            return false;
        }
    }
    DeleteMapPen(SiteFixedRecordEnd);
    return true;
}

} // namespace quelmont

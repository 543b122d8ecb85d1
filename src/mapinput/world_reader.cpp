#include "mapinput/world_reader.h"

#include "core/map_design.h"
#include "core/run_time_error.h"
#include "mapinput/byte_reader.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "mapinput/text_reader.h"
#include "mapinput/world_file.h"
#include "mapinput/world_outside.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace quelmont {

namespace {

/// The points of one file, which are lines until a break.
class WorldLines {
public:
    explicit WorldLines(MapPoint& point_) : point(point_) {}

    void Break() { pendingBreak = true; }
    void TestBounds(const WorldPoint& place) {
        Put(place);
        point.TestBounds();
        if (pendingBreak) {
            pendingBreak = false;
            point.StartNewLine();
            Design.LineStart = 3;
        }
    }
    bool PlotStep() { return point.PlotStep(); }

    /// Takes the records ahead that are seen to lie outside the map.
    void PassOutside(ByteReader& bytes, const WorldOutside& outside) {
        const std::int64_t limit = pendingBreak ? 0 : point.OutsideLimit();
        if (limit == 0) {
            return;
        }
        const std::span<const std::byte> ready = bytes.Ahead(WorldRecordSize);
        const std::size_t size = outside.RunAtFront(ready, limit);
        if (size > 0) {
            const auto last = ready.first(size).last<WorldRecordSize>();
            Put(WorldPointOf(DecodeWorldFloat(last.first<WorldFloatSize>()),
                             DecodeWorldFloat(last.subspan<WorldFloatSize, WorldFloatSize>())));
            point.PassOutside(static_cast<std::int64_t>(size / WorldRecordSize));
            bytes.Skip(static_cast<std::int64_t>(size));
        }
    }

private:
    static void Put(const WorldPoint& place) {
        Design.PointLatSec = place.Lat;
        Design.PointLonSec = place.Lon;
    }

    MapPoint& point;
    bool pendingBreak = true;
};

} // namespace

bool TakeWorldTail(ByteReader& bytes) {
    bool lineEnd = false;
    for (std::size_t taken = 0; taken < MaxFilling; ++taken) {
        const std::byte byte = bytes.Take<1>()[0];
        if (byte == WorldRecordEnd) {
            return lineEnd;
        }
        lineEnd = lineEnd || byte == WorldLineEnd;
    }
    throw RunTimeError(ErrorInputPastEnd);
}

bool ReadWorldText(MapPoint& point, std::int32_t FileIndex) {
    TakeFeaturePen(1, FileIndex, SitesWorldText);
    ByteReader bytes;
    SkipByteOrderMark(bytes);
    WorldLines lines(point);
    while (bytes.Has(1)) {
        const std::optional<WorldPoint> place = DecodeWorldItem(TakeText(bytes, TakeWorldItem));
        if (!place) {
            lines.Break();
            continue;
        }
        lines.TestBounds(*place);
        if (!lines.PlotStep()) {
            return false;
        }
    }
    DeleteMapPen(SiteWorldTextEnd);
    return true;
}

bool ReadWorldBinary(MapPoint& point, std::int32_t FileIndex) {
    TakeFeaturePen(1, FileIndex, SitesWorldBinary);
    ByteReader bytes;
    WorldLines lines(point);
    const WorldOutside outside(Design.LatNorthSec, Design.LatSouthSec, Design.LonWestSec, Design.LonSpanSec);
    for (;;) {
        lines.PassOutside(bytes, outside);
        if (!bytes.Has(WorldFloatSize)) {
            break;
        }
        auto first = bytes.Take<WorldFloatSize>();
        if (IsWorldMarker(first)) {
            lines.Break();
            first = bytes.Take<WorldFloatSize>();
        }
        const float lat = DecodeWorldFloat(first);
        const float lon = DecodeWorldFloat(bytes.Take<WorldFloatSize>());
        lines.TestBounds(WorldPointOf(lat, lon));
        if (TakeWorldTail(bytes)) {
            lines.Break();
        }
        if (!lines.PlotStep()) {
            return false;
        }
    }
    DeleteMapPen(SiteWorldBinaryEnd);
    return true;
}

} // namespace quelmont

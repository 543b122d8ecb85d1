#include "mapinput/world_reader.h"

#include "core/map_design.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/world_records.h"
#include "mapinput/line_choice.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "mapinput/world_outside.h"

namespace quelmont {

namespace {

void Put(const WorldPoint& place) {
    Design.PointLatSec = place.Lat;
    Design.PointLonSec = place.Lon;
}

bool Plot(MapPoint& point, const WorldPoint& place, bool begins) {
    Put(place);
    point.TestBounds();
    if (begins) {
        point.StartNewLine();
        Design.LineStart = LineMoves;
    }
    return point.PlotStep();
}

} // namespace

bool ReadWorldText(MapPoint& point, std::int32_t FileIndex, const MapFormat& /*format*/) {
    TakeFeaturePen(1, FileIndex, SitesWorldText);
    ByteReader bytes;
    for (WorldTextItems items(bytes); items.Next();) {
        if (items.IsPoint() && !Plot(point, WorldPointOf(items.Point()), items.BeginsLine())) {
            return false;
        }
    }
    DeleteMapPen(SiteWorldTextEnd);
    return true;
}

bool ReadWorldBinary(MapPoint& point, std::int32_t FileIndex, const MapFormat& /*format*/) {
    TakeFeaturePen(1, FileIndex, SitesWorldBinary);
    ByteReader bytes;
    WorldFloatPoints points(bytes);
    const WorldOutside outside(Design.LatNorthSec, Design.LatSouthSec, Design.LonWestSec, Design.LonSpanSec);
    const auto isOutside = [outside](float lat, float lon) { return outside.Holds(lat, lon); };
    bool taken = true;
    for (;;) {
        if (const std::int64_t passed = points.PassOver(point.OutsideLimit(), isOutside)) {
            Put(WorldPointOf(points.Lat(), points.Lon()));
            point.PassOutside(passed);
        }
        if (!points.Next()) {
            break;
        }
        if (points.BeginsLine()) {
            taken = TakesLine();
        }
        if (!taken) {
            if (!point.CountPoint()) {
                return false;
            }
            continue;
        }
        if (!Plot(point, WorldPointOf(points.Lat(), points.Lon()), points.BeginsLine())) {
            return false;
        }
    }
    DeleteMapPen(SiteWorldBinaryEnd);
    return true;
}

} // namespace quelmont

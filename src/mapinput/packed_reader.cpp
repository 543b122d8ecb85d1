#include "mapinput/packed_reader.h"

#include "core/map_design.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/map_formats.h"
#include "mapfiles/packed_segments.h"
#include "mapinput/line_choice.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "mapinput/place_box.h"
#include "mapinput/shown_features.h"

#include <cstddef>

namespace quelmont {

bool ReadPacked(MapPoint& point, std::int32_t FileIndex, const MapFormat& format) {
    const InputFileEntry& file = Design.InputFiles[static_cast<std::size_t>(FileIndex - 1)];
    const ShownFeatures features(file, format.rows.size());
    const auto plot = [&](std::int32_t lat, std::int32_t lon, bool begins) {
        Design.PointLatSec = lat;
        Design.PointLonSec = lon;
        point.TestBounds();
        if (begins) {
            point.StartNewLine();
        }
        return point.PlotStep();
    };
    ByteReader bytes;
    for (PackedSegments segments(bytes, PackedRanksOf(file.MapFileName)); segments.Next();) {
        const bool shown = features.Shows(segments.Feature());
        if (!segments.IsWhole()) {
            break;
        }
        if (!shown || !BoxMayTouchMap(segments.Header()) || !TakesLine()) {
            if (!point.SkipPoints(segments.Header().Count)) {
                return false;
            }
            segments.StepOver();
            continue;
        }
        TakeFeaturePen(segments.Feature(), FileIndex, SitesPackedFeature);
        if (!segments.VisitPoints(plot)) {
            return false;
        }
    }
    DeleteMapPen(SitePackedEnd);
    return true;
}

} // namespace quelmont

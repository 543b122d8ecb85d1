#include "mapinput/minute_grid_reader.h"

#include "core/map_design.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/map_formats.h"
#include "mapfiles/minute_grid_records.h"
#include "mapinput/line_choice.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "mapinput/shown_features.h"

#include <cstddef>

namespace quelmont {

bool ReadMinuteGrid(MapPoint& point, std::int32_t FileIndex, const MapFormat& format) {
    const InputFileEntry& file = Design.InputFiles[static_cast<std::size_t>(FileIndex - 1)];
    const bool oneStyle = format.opening == OpeningStyle::AllAsFirst;
    const ShownFeatures features = oneStyle ? ShownFeatures::AllAsFirst(file, RankFeatures.size())
                                            : ShownFeatures(file, format.rows.size());
    ByteReader bytes;
    bool shown = false;
    for (MinuteGridRecords records(bytes); records.Next();) {
        if (records.BeginsLine()) {
            shown = features.Shows(records.Feature()) && TakesLine();
        }
        if (!shown) {
            if (!point.CountPoint()) {
                return false;
            }
            continue;
        }
        Design.PointLatSec = records.LatSec();
        Design.PointLonSec = records.LonSec();
        point.TestBounds();
        if (records.BeginsLine()) {
            TakeFeaturePen(oneStyle ? std::int16_t{1} : records.Feature(), FileIndex, SitesMinuteGridLine);
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

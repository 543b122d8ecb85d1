#include "mapinput/fixed_record_reader.h"

#include "core/map_design.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/fixed_records.h"
#include "mapfiles/line_graph_codes.h"
#include "mapfiles/map_formats.h"
#include "mapinput/map_input_state.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "mapinput/shown_features.h"

#include <cstddef>

namespace quelmont {

namespace {

bool SkipRecords(MapPoint& point, FixedRecords& records, std::int32_t count) {
    if (count < 0) {
        throw RunTimeError(ErrorInvalidCall); // they would be read again and again
    }
    if (!point.SkipPoints(count)) {
        return false;
    }
    records.StepOver(count);
    return true;
}

/// The feature whose points are read, from the headers of a .grf file.
class LineGraphFeature {
public:
    LineGraphFeature(std::int32_t index, std::size_t rows)
        : FileIndex(index), features(Design.InputFiles[static_cast<std::size_t>(index - 1)], rows) {}

    bool TakeHeader(MapPoint& point, FixedRecords& records) {
        const LineGraphHeader header = records.Header();
        const std::int16_t named = LineGraphFeatureOfCode(header.Code);
        if (named != 0) {
            feature = named;
        } else if (!SkipRecords(point, records, header.Count)) {
            return false;
        }
        if (!features.Shows(feature)) {
            return SkipRecords(point, records, header.Count);
        }
        TakeFeaturePen(feature, FileIndex, SitesLineGraphFeature);
        return true;
    }

private:
    std::int32_t FileIndex;
    ShownFeatures features;
    std::int16_t feature = 0;
};

bool PlotRecord(MapPoint& point, const FixedRecordPoint& place) {
    Design.PointLatSec = place.Lat;
    Design.PointLonSec = place.Lon;
    point.TestBounds();
    if (Design.LineStart == LineHeaderRead) {
        point.StartNewLine();
        Design.LineStart = LineMoves;
    } else if (MapInputNow.StartLine) {
        point.StartNewLine();
    }
    return point.PlotStep();
}

} // namespace

bool ReadFixedRecords(MapPoint& point, std::int32_t FileIndex, const MapFormat& format) {
    const bool lineGraph = format.form == MapFileForm::LineGraphText;
    LineGraphFeature feature(FileIndex, format.rows.size());
    ByteReader bytes;
    if (!lineGraph) {
        TakeFeaturePen(1, FileIndex, SitesFixedRecord);
    }
    for (FixedRecords records(bytes); records.Next();) {
        bool goOn = true;
        if (!records.IsHeader()) {
            goOn = PlotRecord(point, records.Point());
        } else {
            Design.LineStart = LineHeaderRead;
            point.PointsRead += 1;
            goOn = !lineGraph || feature.TakeHeader(point, records);
        }
        if (!goOn) {
            return false;
        }
    }
    DeleteMapPen(SiteFixedRecordEnd);
    return true;
}

} // namespace quelmont

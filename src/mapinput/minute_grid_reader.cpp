#include "mapinput/minute_grid_reader.h"

#include "core/coordinates.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/map_formats.h"
#include "mapfiles/minute_grid_file.h"
#include "mapfiles/minute_grid_lines.h"
#include "mapfiles/minute_grid_records.h"
#include "mapinput/kept_lines.h"
#include "mapinput/line_choice.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "mapinput/place_box.h"
#include "mapinput/shown_features.h"

#include <algorithm>
#include <cstddef>
#include <memory>

namespace quelmont {

namespace {

class MinuteGridPlot {
public:
    MinuteGridPlot(MapPoint& point_, std::int32_t fileIndex, const MapFormat& format)
        : point(point_), FileIndex(fileIndex), oneStyle(format.opening == OpeningStyle::AllAsFirst),
          features(oneStyle ? ShownFeatures::AllAsFirst(File(), RankFeatures.size())
                            : ShownFeatures(File(), format.rows.size())) {}

    /// Record by record, from the file. False when Escape was pressed.
    bool PlotRecords() {
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
            } else if (!Plot(records.LatMinutes(), records.LonMinutes(), records.Feature(),
                             records.BeginsLine())) {
                return false;
            }
        }
        return true;
    }

    /// The same lines from memory. False when Escape was pressed.
    bool PlotLines(const MinuteGridLines& all) {
        constexpr std::size_t placesPerSeek = 16384;
        std::size_t next = 0;
        for (const MinuteGridLines::Line& line : all.lines) {
            if (line.first >= next) {
                // What was drawn of the file shows in its position.
                SeekFile(InputFileNumber, static_cast<std::int64_t>(line.first * MinuteGridRecordSize));
                next = line.first + placesPerSeek;
            }
            const bool shown = line.begins && features.Shows(line.feature) && TakesLine();
            if (!(shown ? PlotLine(all, line)
                        : point.CountPoints(static_cast<std::int64_t>(line.end - line.first)))) {
                return false;
            }
        }
        return true;
    }

private:
    const InputFileEntry& File() const { return Design.InputFiles[static_cast<std::size_t>(FileIndex - 1)]; }

    static void Put(std::int16_t lat, std::int16_t lon) {
        Design.PointLatSec = lat * SecPerMinute;
        Design.PointLonSec = lon * SecPerMinute;
    }

    bool Plot(std::int16_t lat, std::int16_t lon, std::int16_t feature, bool begins) {
        Put(lat, lon);
        point.TestBounds();
        if (begins) {
            TakeFeaturePen(oneStyle ? std::int16_t{1} : feature, FileIndex, SitesMinuteGridLine);
            point.StartNewLine();
        }
        return point.PlotStep();
    }

    bool PlotLine(const MinuteGridLines& all, const MinuteGridLines::Line& line) {
        const bool outside = point.MayPassOver() &&
                             !BoxMayTouchMap(PlaceBox{line.south * SecPerMinute, line.north * SecPerMinute,
                                                      line.west * SecPerMinute, line.east * SecPerMinute});
        for (std::size_t i = line.first; i < line.end; ++i) {
            if (outside && i > line.first) {
                const auto left = static_cast<std::int64_t>(line.end - i);
                if (const std::int64_t passed = std::min(left, point.OutsideLimit()); passed > 0) {
                    i += static_cast<std::size_t>(passed);
                    Put(all.places[i - 1].lat, all.places[i - 1].lon);
                    point.PassOutside(passed);
                    if (i == line.end) {
                        break;
                    }
                }
            }
            const MinuteGridLines::Place& place = all.places[i];
            if (!Plot(place.lat, place.lon, line.feature, i == line.first)) {
                return false;
            }
        }
        return true;
    }

    MapPoint& point;
    std::int32_t FileIndex;
    bool oneStyle;
    ShownFeatures features;
};

} // namespace

bool ReadMinuteGrid(MapPoint& point, std::int32_t FileIndex, const MapFormat& format) {
    KeptLines* const kept = KeptMapLines();
    const std::shared_ptr<const MinuteGridLines> lines = kept != nullptr ? kept->OfOpenFile() : nullptr;
    MinuteGridPlot plot(point, FileIndex, format);
    if (!(lines ? plot.PlotLines(*lines) : plot.PlotRecords())) {
        return false;
    }
    DeleteMapPen(SiteMinuteGridEnd);
    return true;
}

} // namespace quelmont

#include "areas/area_lines.h"

#include "areas/line_joiner.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "mapfiles/ascii_points.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/fixed_records.h"
#include "mapfiles/line_graph_codes.h"
#include "mapfiles/map_formats.h"
#include "mapfiles/minute_grid_records.h"
#include "mapfiles/packed_segments.h"
#include "mapfiles/world_records.h"
#include "platform/machine.h"

#include <cmath>
#include <cstddef>

namespace quelmont {

namespace {

/// Reads one file, whose format says where its lines begin.
class AreaReader {
public:
    AreaReader(const InputFileEntry& file_, const MapFormat& format_, LineJoiner& lines_)
        : file(file_), format(format_), lines(lines_) {}

    /// False when Escape was pressed.
    bool Read() {
        switch (format.form) {
        case MapFileForm::MinuteGrid:
            return ReadMinuteGrid();
        case MapFileForm::PackedWhole:
        case MapFileForm::PackedPart:
        case MapFileForm::PackedLineGraph:
            return ReadPacked();
        case MapFileForm::FixedRecords:
        case MapFileForm::LineGraphText:
            return ReadFixedRecords();
        case MapFileForm::WorldText:
            return ReadWorldText();
        case MapFileForm::WorldFloats:
            return ReadWorldFloats();
        case MapFileForm::AsciiDegrees:
        case MapFileForm::AsciiMetres:
            break;
        }
        return ReadAscii();
    }

private:
    /// What the lines of a feature bound, nothing if it is not shown.
    AreaRow RowOf(std::int16_t feature) const {
        const bool known = feature >= 1 && feature <= MaxFeatureRows;
        const bool one = format.opening != OpeningStyle::EachRow;
        if (!known || !file.Features[one ? std::size_t{1} : static_cast<std::size_t>(feature)].Shown) {
            return AreaRow::None;
        }
        return AreaRowOf(format, feature);
    }

    /// Counts places; every so many let events run. False when Escape was pressed.
    bool Count(std::int64_t places) {
        constexpr std::int64_t placesPerTurn = 16384;
        count += places;
        if (count < placesPerTurn) {
            return true;
        }
        count = 0;
        Machine().pump->DoEvents();
        return Design.PlotStopReason != StopReason::Escape;
    }

    void AddDegrees(double lat, double lon) {
        lines.Add(RoundToInt32(lat * SecPerDegree), RoundToInt32(lon * SecPerDegree));
    }

    bool ReadMinuteGrid() {
        for (MinuteGridRecords records(bytes); records.Next();) {
            if (records.BeginsLine()) {
                lines.Begin(RowOf(records.Feature()));
            }
            lines.Add(records.LatSec(), records.LonSec());
            if (!Count(1)) {
                return false;
            }
        }
        return true;
    }

    bool ReadPacked() {
        for (PackedSegments segments(bytes, PackedRanksOf(file.MapFileName)); segments.Next();) {
            if (!segments.IsWhole()) {
                break;
            }
            lines.Begin(RowOf(segments.Feature()));
            if (!Count(segments.Header().Count)) {
                return false;
            }
            if (!lines.IsWanted()) {
                segments.StepOver();
                continue;
            }
            segments.VisitPoints([&](std::int32_t lat, std::int32_t lon, bool /*begins*/) {
                lines.Add(lat, lon);
                return true;
            });
        }
        return true;
    }

    bool ReadFixedRecords() {
        const bool lineGraph = format.form == MapFileForm::LineGraphText;
        AreaRow row = lineGraph ? AreaRow::None : RowOf(1);
        lines.Begin(row);
        for (FixedRecords records(bytes); records.Next();) {
            if (!Count(1)) {
                return false;
            }
            if (!records.IsHeader()) {
                const FixedRecordPoint point = records.Point();
                lines.Add(point.Lat, point.Lon);
                continue;
            }
            if (lineGraph) {
                const LineGraphHeader header = records.Header();
                row = RowOf(LineGraphFeatureOfCode(header.Code));
                if (row == AreaRow::None) {
                    records.StepOver(header.Count);
                }
            }
            lines.Begin(row);
        }
        return true;
    }

    bool ReadWorldText() {
        for (WorldTextItems items(bytes); items.Next();) {
            if (!items.IsPoint()) {
                continue;
            }
            if (items.BeginsLine()) {
                lines.Begin(RowOf(1));
            }
            const WorldPoint point = WorldPointOf(items.Point());
            lines.Add(point.Lat, point.Lon);
            if (!Count(1)) {
                return false;
            }
        }
        return true;
    }

    bool ReadWorldFloats() {
        for (WorldFloatPoints points(bytes); points.Next();) {
            if (points.BeginsLine()) {
                lines.Begin(RowOf(1));
            }
            const WorldPoint point = WorldPointOf(points.Lat(), points.Lon());
            lines.Add(point.Lat, point.Lon);
            if (!Count(1)) {
                return false;
            }
        }
        return true;
    }

    bool ReadAscii() {
        const bool metres = format.form == MapFileForm::AsciiMetres;
        lines.Begin(RowOf(1));
        for (AsciiPoints points(bytes); points.Find();) {
            const AsciiMapPoint point = points.Take();
            if (point.Break != 0) {
                lines.Begin(RowOf(1));
            }
            if (metres) {
                lines.Add(RoundToInt32(point.Third), RoundToInt32(point.Second));
            } else {
                AddDegrees(point.Second, point.Third);
            }
            if (!Count(1)) {
                return false;
            }
        }
        return true;
    }

    const InputFileEntry& file;
    const MapFormat& format;
    LineJoiner& lines;
    ByteReader bytes;
    std::int64_t count = 0;
};

/// File number 1, closed however the reading ends.
class OpenInput {
public:
    explicit OpenInput(const std::string& name) { OpenFile(InputFileNumber, name, OpenMode::Input); }
    ~OpenInput() {
        try {
            CloseFile(InputFileNumber);
        } catch (const RunTimeError&) { // nothing was written
        }
    }
    OpenInput(const OpenInput&) = delete;
    OpenInput& operator=(const OpenInput&) = delete;
};

} // namespace

bool MayHaveAreas(const InputFileEntry& file) {
    const MapFormat& format = MapFormatOf(file.MapFileName);
    const bool firstOnly = format.opening != OpeningStyle::EachRow;
    return file.MapFileType == SymbolLine && (!firstOnly || file.Features[1].Shown) &&
           (format.form != MapFileForm::AsciiMetres || Design.ProjNum == ProjUtm);
}

bool ReadAreaRings(const InputFileEntry& file, const LineDetail& detail, std::vector<Ring>& rings) {
    if (!MayHaveAreas(file)) {
        return true;
    }
    const MapFormat& format = MapFormatOf(file.MapFileName);
    const OpenInput input(file.MapFileName);
    LineJoiner lines(detail, format.form == MapFileForm::AsciiMetres);
    if (!AreaReader(file, format, lines).Read()) {
        return false;
    }
    lines.Finish(rings);
    return true;
}

} // namespace quelmont

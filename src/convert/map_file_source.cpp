#include "convert/map_file_source.h"

#include "core/coordinates.h"
#include "core/degrees.h"
#include "core/file_names.h"
#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "core/text_encoding.h"
#include "mapfiles/ascii_points.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/fixed_records.h"
#include "mapfiles/line_graph_codes.h"
#include "mapfiles/minute_grid_records.h"
#include "mapfiles/packed_segments.h"
#include "mapfiles/world_records.h"

#include <cpl_error.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

constexpr int FeatureIndex = 0;
constexpr int NameIndex = 1;
constexpr int LabelIndex = 2;

/// What a draw skips silently is a failure here.
void CheckWhole(bool whole) {
    if (!whole) {
        throw RunTimeError(ErrorInputPastEnd);
    }
}

OGRFeatureDefn* NewColumns(const MapFormat& format) {
    auto* const columns = new OGRFeatureDefn("map");
    columns->Reference();
    OGRFieldDefn feature(FeatureColumn, OFTInteger);
    OGRFieldDefn title(NameColumn, OFTString);
    OGRFieldDefn label(LabelColumn, OFTString);
    columns->AddFieldDefn(&feature);
    columns->AddFieldDefn(&title);
    if (format.labels) {
        columns->AddFieldDefn(&label);
    }
    return columns;
}

} // namespace

/// Collects the points of a line and hands it on.
class MapFileSource::LineCollector {
public:
    LineCollector(MapFileSource& source_, LineReceiver& receiver_)
        : source(source_), receiver(receiver_), rows(FeatureRows(source_.name)),
          record(source_.columns.get()) {}

    void Begin(std::int16_t nextFeature) {
        End();
        feature = nextFeature;
    }
    void Add(double lon, double lat) { points.push_back({lon, lat}); }
    void AddSeconds(std::int32_t lon, std::int32_t lat) { Add(DegreesOf(lon), DegreesOf(lat)); }
    /// Of the point added last.
    void AddLabel(std::string text) { labels.emplace_back(points.size() - 1, std::move(text)); }

    void End() {
        if (points.empty()) {
            return;
        }
        std::vector<std::pair<LonLat, std::string>> single;
        std::string label;
        for (auto& [index, text] : labels) {
            if (index == 0) {
                label = std::move(text);
            } else {
                single.emplace_back(points[index], std::move(text));
            }
        }
        Hand(points, label);
        points.clear();
        labels.clear();
        for (auto& [point, text] : single) {
            MapLine line{point};
            Hand(line, text);
        }
    }

private:
    void TurnIntoDegrees(MapLine& line) {
        if (!source.zone->ToDegrees(line, source.losses.curvePoints)) {
            throw BadFeature("a point of the line before has no place in the zone");
        }
    }

    void Hand(MapLine& line, const std::string& label) {
        record.SetField(FeatureIndex, feature);
        const bool known = feature >= 1 && static_cast<std::size_t>(feature) <= rows.size();
        if (known) {
            const std::string title(rows[static_cast<std::size_t>(feature - 1)].name);
            record.SetField(NameIndex, title.c_str());
        } else {
            record.UnsetField(NameIndex);
        }
        if (!label.empty()) {
            record.SetField(LabelIndex, label.c_str());
        } else if (record.GetFieldCount() > LabelIndex) {
            record.UnsetField(LabelIndex);
        }
        if (source.filter && source.filter->Evaluate(&record) == 0) {
            return;
        }
        if (!known) {
            ++source.losses.unknownLines;
            return;
        }
        if (source.zone != nullptr) {
            TurnIntoDegrees(line);
        }
        receiver.BeginFeature(record);
        receiver.TakeLine(line);
    }

    MapFileSource& source;
    LineReceiver& receiver;
    std::span<const FeatureRow> rows;
    OGRFeature record;
    std::int16_t feature = 0;
    MapLine points;
    std::vector<std::pair<std::size_t, std::string>> labels; ///< with the index of their point
};

MapFileSource::MapFileSource(std::string name_, const MapFormat& format_,
                             const std::optional<std::string>& where, const UtmZone* zone_)
    : name(std::move(name_)), format(format_),
      zone(format_.form == MapFileForm::AsciiMetres ? zone_ : nullptr), columns(NewColumns(format_)) {
    if (where) {
        filter = std::make_unique<OGRFeatureQuery>();
        if (filter->Compile(columns.get(), where->c_str()) != OGRERR_NONE) {
            throw ConvertError(name + ": --where: " + CPLGetLastErrorMsg());
        }
    }
    try {
        OpenFile(InputFileNumber, name, OpenMode::Input);
        size = FileLength(InputFileNumber);
        CloseFile(InputFileNumber);
    } catch (const RunTimeError& error) {
        CloseFile(InputFileNumber);
        throw ConvertError(name + ": " + error.Description());
    }
}

void MapFileSource::Read(LineReceiver& receiver) {
    losses = {};
    wholeBytes = 0;
    recordAt = 0;
    const auto fail = [&](const std::string& why) {
        CloseFile(InputFileNumber);
        throw ConvertError(name + ": " + why + ", in what begins at byte " + std::to_string(recordAt));
    };
    try {
        OpenFile(InputFileNumber, name, OpenMode::Input);
        ByteReader bytes;
        LineCollector lines(*this, receiver);
        ReadRecords(bytes, lines);
        lines.End();
        CloseFile(InputFileNumber);
    } catch (const RunTimeError& error) {
        fail(error.Description());
    } catch (const BadFeature& bad) {
        fail(bad.what());
    } catch (...) {
        CloseFile(InputFileNumber);
        throw;
    }
}

double MapFileSource::Share() const {
    // The size that the file system reports need not be true.
    return size > 0 ? std::min(static_cast<double>(recordAt) / static_cast<double>(size), 1.0) : -1.0;
}

void MapFileSource::ReadRecords(ByteReader& bytes, LineCollector& lines) {
    switch (format.form) {
    case MapFileForm::MinuteGrid:
        return ReadMinuteGrid(bytes, lines);
    case MapFileForm::PackedWhole:
    case MapFileForm::PackedPart:
    case MapFileForm::PackedLineGraph:
        return ReadPacked(bytes, lines);
    case MapFileForm::FixedRecords:
    case MapFileForm::LineGraphText:
        return ReadFixedRecords(bytes, lines);
    case MapFileForm::WorldText:
        return ReadWorldText(bytes, lines);
    case MapFileForm::WorldFloats:
        return ReadWorldFloats(bytes, lines);
    case MapFileForm::AsciiDegrees:
    case MapFileForm::AsciiMetres:
        return ReadAscii(bytes, lines);
    }
}

/// Goes to the next record, whose place is kept for the message of a failure.
template <typename Records>
bool MapFileSource::Next(Records& records, const ByteReader& bytes) {
    const std::int64_t before = recordAt;
    wholeBytes = bytes.Position();
    recordAt = wholeBytes;
    if (!records.Next()) {
        recordAt = before; // what fails now is the line that ends with it
        return false;
    }
    return true;
}

void MapFileSource::ReadMinuteGrid(ByteReader& bytes, LineCollector& lines) {
    const bool oneRow = format.opening == OpeningStyle::AllAsFirst;
    for (MinuteGridRecords records(bytes); Next(records, bytes);) {
        CheckWhole(records.IsWhole());
        if (records.BeginsLine()) {
            const std::int16_t feature = records.Feature();
            lines.Begin(oneRow && feature != 0 ? std::int16_t{1} : feature);
        }
        lines.AddSeconds(records.LonSec(), records.LatSec());
    }
}

void MapFileSource::ReadPacked(ByteReader& bytes, LineCollector& lines) {
    for (PackedSegments segments(bytes, PackedRanksOf(name)); Next(segments, bytes);) {
        CheckWhole(segments.IsWhole());
        lines.Begin(segments.Feature());
        segments.VisitPoints([&](std::int32_t lat, std::int32_t lon, bool /*begins*/) {
            lines.AddSeconds(lon, lat);
            return true;
        });
        CheckWhole(segments.IsWhole());
    }
}

void MapFileSource::ReadFixedRecords(ByteReader& bytes, LineCollector& lines) {
    const bool lineGraph = format.form == MapFileForm::LineGraphText;
    std::int16_t feature = lineGraph ? std::int16_t{0} : std::int16_t{1};
    lines.Begin(feature);
    for (FixedRecords records(bytes); Next(records, bytes);) {
        CheckWhole(records.IsWhole());
        if (records.IsHeader()) {
            if (lineGraph) {
                feature = LineGraphFeatureOfCode(records.Header().Code);
            }
            lines.Begin(feature);
        } else {
            const FixedRecordPoint point = records.Point();
            lines.AddSeconds(point.Lon, point.Lat);
        }
    }
}

void MapFileSource::ReadWorldText(ByteReader& bytes, LineCollector& lines) {
    for (WorldTextItems items(bytes); Next(items, bytes);) {
        if (items.IsPoint()) {
            if (items.BeginsLine()) {
                lines.Begin(1);
            }
            const WorldDegrees& point = items.Point();
            lines.Add(point.Lon > 180.0 ? point.Lon - 360.0 : point.Lon, point.Lat);
        }
    }
}

void MapFileSource::ReadWorldFloats(ByteReader& bytes, LineCollector& lines) {
    for (WorldFloatPoints points(bytes); Next(points, bytes);) {
        if (points.BeginsLine()) {
            lines.Begin(1);
        }
        const double lon = points.Lon();
        lines.Add(lon > 180.0 ? lon - 360.0 : lon, points.Lat());
    }
}

void MapFileSource::ReadAscii(ByteReader& bytes, LineCollector& lines) {
    lines.Begin(1);
    AsciiPoints points(bytes);
    wholeBytes = bytes.Position();
    while (points.Find()) {
        recordAt = bytes.Position();
        const AsciiMapPoint point = points.Take();
        if (point.Break != 0) {
            lines.Begin(1);
        }
        if (format.form == MapFileForm::AsciiMetres) {
            lines.Add(point.Second, point.Third);
        } else {
            lines.Add(point.Third, point.Second);
        }
        if (!point.Label.empty()) {
            lines.AddLabel(ToUtf8(point.Label));
        }
        wholeBytes = bytes.Position();
        recordAt = wholeBytes;
    }
}

} // namespace quelmont

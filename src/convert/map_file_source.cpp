#include "convert/map_file_source.h"

#include "core/coordinates.h"
#include "core/file_names.h"
#include "core/file_numbers.h"
#include "core/run_time_error.h"
#include "core/text_encoding.h"
#include "mapinput/ascii_map_file.h"
#include "mapinput/byte_reader.h"
#include "mapinput/feature_rows.h"
#include "mapinput/fixed_record_reader.h"
#include "mapinput/minute_grid_file.h"
#include "mapinput/packed_file.h"
#include "mapinput/text_reader.h"
#include "mapinput/world_file.h"
#include "mapinput/world_reader.h"

#include <cpl_error.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

constexpr int FeatureIndex = 0;
constexpr int NameIndex = 1;
constexpr int LabelIndex = 2;

/// Whether what is left is at most the code of a continuing record, by which readers know the end.
bool EndsMinuteGrid(std::span<const std::byte> rest) {
    return rest.size() <= sizeof(std::int16_t) &&
           RankOf(LittleInt16(rest[0], rest.size() > 1 ? rest[1] : std::byte{0})) == 0;
}

/// Whether a record that the file does not hold in full lacks more than blanks and a line end.
bool IsCutShort(const FixedRecord& record, std::int64_t size) {
    constexpr std::int64_t pointSize = 15;
    return size < pointSize && std::any_of(record.begin(), record.end(), [](char c) {
               return c != ' ' && c != '\r' && c != '\n' && c != '\x1A';
           });
}

double DegreesOf(std::int32_t seconds) { return static_cast<double>(seconds) / SecPerDegree; }

OGRFeatureDefn* NewColumns(MapFileForm form) {
    auto* const columns = new OGRFeatureDefn("map");
    columns->Reference();
    OGRFieldDefn feature(FeatureColumn, OFTInteger);
    OGRFieldDefn title(NameColumn, OFTString);
    OGRFieldDefn label(LabelColumn, OFTString);
    columns->AddFieldDefn(&feature);
    columns->AddFieldDefn(&title);
    if (HasLabels(form)) {
        columns->AddFieldDefn(&label);
    }
    return columns;
}

} // namespace

/// Collects the points of a line and hands it on.
class MapFileSource::Lines {
public:
    Lines(MapFileSource& source_, LineReceiver& receiver_)
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
        if (source.zone != nullptr) {
            TurnIntoDegrees();
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
    void TurnIntoDegrees() {
        const std::vector<bool> good = source.zone->ToDegrees(points);
        if (std::find(good.begin(), good.end(), false) != good.end()) {
            throw BadFeature("a point of the line before has no place in the zone");
        }
    }

    void Hand(MapLine& line, const std::string& label) {
        record.SetField(FeatureIndex, feature);
        if (feature >= 1 && static_cast<std::size_t>(feature) <= rows.size()) {
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
        if (!source.filter || source.filter->Evaluate(&record) != 0) {
            receiver.BeginFeature(record);
            receiver.TakeLine(line);
        }
    }

    MapFileSource& source;
    LineReceiver& receiver;
    std::span<const FeatureRow> rows;
    OGRFeature record;
    std::int16_t feature = 0;
    MapLine points;
    std::vector<std::pair<std::size_t, std::string>> labels; ///< with the index of their point
};

MapFileSource::MapFileSource(const std::string& name_, const MapFileKind& kind,
                             const std::optional<std::string>& where, const UtmZone* zone_)
    : name(name_), form(kind.form), zone(kind.form == MapFileForm::AsciiMetres ? zone_ : nullptr),
      columns(NewColumns(kind.form)) {
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
    wholeBytes = 0;
    recordAt = 0;
    const auto fail = [&](const std::string& why) {
        CloseFile(InputFileNumber);
        throw ConvertError(name + ": " + why + ", in what begins at byte " + std::to_string(recordAt));
    };
    try {
        OpenFile(InputFileNumber, name, OpenMode::Input);
        ByteReader bytes;
        Lines lines(*this, receiver);
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
    // The size that was told need not be true.
    return size > 0 ? std::min(static_cast<double>(recordAt) / static_cast<double>(size), 1.0) : -1.0;
}

void MapFileSource::ReadRecords(ByteReader& bytes, Lines& lines) {
    switch (form) {
    case MapFileForm::MinuteGrid:
        return ReadMinuteGrid(bytes, lines);
    case MapFileForm::Packed:
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

void MapFileSource::ReadMinuteGrid(ByteReader& bytes, Lines& lines) {
    const bool oneRow = FeatureRows(name).size() == 1;
    while (bytes.Has(1)) {
        recordAt = bytes.Position();
        const std::span<const std::byte> ready = bytes.Ahead(MinuteGridRecordSize);
        if (EndsMinuteGrid(ready)) {
            break;
        }
        const MinuteGridRecord record = DecodeMinuteGrid(bytes.Take<MinuteGridRecordSize>());
        if (const int rank = RankOf(record.Code); rank != 0) {
            const std::int16_t feature = FeatureOfRank(rank);
            lines.Begin(oneRow && feature != 0 ? std::int16_t{1} : feature);
        }
        lines.AddSeconds(record.Lon * SecPerMinute, record.Lat * SecPerMinute);
        wholeBytes = bytes.Position();
    }
}

void MapFileSource::ReadPacked(ByteReader& bytes, Lines& lines) {
    const PackedRanks ranks = PackedRanksOf(name);
    while (bytes.Has(1)) {
        recordAt = bytes.Position();
        const PackedHeader header = DecodePackedHeader(bytes.Take<PackedHeaderSize>());
        lines.Begin(FeatureOfPackedRank(header.Rank, ranks));
        std::int32_t lon = header.FirstLon;
        std::int32_t lat = header.FirstLat;
        lines.AddSeconds(lon, lat);
        for (std::int32_t i = 1; i < header.Count; ++i) {
            const PackedStep step = DecodePackedStep(bytes.Take<PackedStepSize>());
            lon += step.Lon;
            lat += step.Lat;
            lines.AddSeconds(lon, lat);
        }
        wholeBytes = bytes.Position();
    }
}

void MapFileSource::ReadFixedRecords(ByteReader& bytes, Lines& lines) {
    const bool lineGraph = form == MapFileForm::LineGraphText;
    std::int16_t feature = lineGraph ? std::int16_t{0} : std::int16_t{1};
    lines.Begin(feature);
    for (;;) {
        recordAt = bytes.Position();
        const std::optional<FixedRecord> record = NextFixedRecord(bytes);
        if (!record) {
            return;
        }
        if (IsCutShort(*record, bytes.Position() - recordAt)) {
            throw RunTimeError(ErrorInputPastEnd);
        }
        if (IsFixedRecordHeader(*record)) {
            if (lineGraph) {
                feature = LineGraphFeatureOfCode(DecodeLineGraphHeader(*record).Code);
            }
            lines.Begin(feature);
        } else {
            const FixedRecordPoint point = DecodeFixedRecordPoint(*record);
            lines.AddSeconds(point.Lon, point.Lat);
        }
        wholeBytes = bytes.Position();
    }
}

void MapFileSource::ReadWorldText(ByteReader& bytes, Lines& lines) {
    SkipByteOrderMark(bytes);
    lines.Begin(1);
    while (bytes.Has(1)) {
        recordAt = bytes.Position();
        const std::optional<WorldDegrees> point = DecodeWorldDegrees(TakeText(bytes, TakeWorldItem));
        if (point) {
            lines.Add(point->Lon > 180.0 ? point->Lon - 360.0 : point->Lon, point->Lat);
        } else {
            lines.Begin(1);
        }
        wholeBytes = bytes.Position();
    }
}

void MapFileSource::ReadWorldFloats(ByteReader& bytes, Lines& lines) {
    lines.Begin(1);
    while (bytes.Has(WorldFloatSize)) {
        recordAt = bytes.Position();
        auto first = bytes.Take<WorldFloatSize>();
        if (IsWorldMarker(first)) {
            lines.Begin(1);
            first = bytes.Take<WorldFloatSize>();
        }
        const double lat = DecodeWorldFloat(first);
        const double lon = DecodeWorldFloat(bytes.Take<WorldFloatSize>());
        lines.Add(lon > 180.0 ? lon - 360.0 : lon, lat);
        if (TakeWorldTail(bytes)) {
            lines.Begin(1);
        }
        wholeBytes = bytes.Position();
    }
}

void MapFileSource::ReadAscii(ByteReader& bytes, Lines& lines) {
    SkipByteOrderMark(bytes);
    lines.Begin(1);
    for (;;) {
        recordAt = bytes.Position();
        if (!FindText(bytes)) {
            return;
        }
        recordAt = bytes.Position();
        const AsciiMapPoint point = TakeText(bytes, TakeAsciiMapPoint);
        if (point.Break != 0) {
            lines.Begin(1);
        }
        if (form == MapFileForm::AsciiMetres) {
            lines.Add(point.Second, point.Third);
        } else {
            lines.Add(point.Third, point.Second);
        }
        if (!point.Label.empty()) {
            lines.AddLabel(ToUtf8(point.Label));
        }
        wholeBytes = bytes.Position();
    }
}

} // namespace quelmont

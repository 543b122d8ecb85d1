#include "convert/line_encoder.h"

#include "core/coordinates.h"
#include "core/file_names.h"
#include "core/rounding.h"
#include "mapfiles/ascii_map_file.h"
#include "mapfiles/fixed_record_file.h"
#include "mapfiles/line_graph_codes.h"
#include "mapfiles/minute_grid_file.h"
#include "mapfiles/packed_file.h"
#include "mapfiles/text_reader.h"
#include "mapfiles/world_file.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <string_view>
#include <vector>

namespace quelmont {

namespace {

/// A point in the units of a format.
struct WholePlace {
    std::int32_t Lon = 0, Lat = 0;
    bool operator==(const WholePlace&) const = default;
};

template <typename Unit, typename Round>
std::vector<Unit> WithoutRepeats(const MapLine& line, ConvertTally& tally, Round&& round) {
    std::vector<Unit> places;
    places.reserve(line.size());
    for (const LonLat& point : line) {
        const Unit place = round(point);
        if (places.empty() || place != places.back()) {
            places.push_back(place);
        }
    }
    tally.repeatedPoints += static_cast<std::int64_t>(line.size() - places.size());
    tally.shrunkLines += line.size() > 1 && places.size() == 1 ? 1 : 0;
    return places;
}

std::vector<WholePlace> PlacesOf(const MapLine& line, double unitsPerDegree, ConvertTally& tally) {
    return WithoutRepeats<WholePlace>(line, tally, [&](const LonLat& point) {
        return WholePlace{RoundToInt32(point.Lon * unitsPerDegree), RoundToInt32(point.Lat * unitsPerDegree)};
    });
}

/// Hands on a line in runs of at most so many points; each begins with the last point of the one before.
template <typename Take>
void InRuns(std::span<const WholePlace> places, std::size_t most, ConvertTally& tally, Take&& take) {
    tally.dividedLines += places.size() > most ? 1 : 0;
    while (places.size() > most) {
        take(places.first(most));
        places = places.subspan(most - 1);
    }
    take(places);
}

class MinuteGridEncoder : public LineEncoder {
public:
    explicit MinuteGridEncoder(ConvertTally& tally_) : tally(tally_) {}

    void Encode(const TargetFeature& feature, MapLine& line, ByteSink& bytes) override {
        constexpr double minutesPerDegree = 60.0;
        auto code = static_cast<std::int16_t>(RankOfFeature(feature.Number) * 1000);
        const std::vector<WholePlace> places = PlacesOf(line, minutesPerDegree, tally);
        for (const WholePlace& place : places) {
            bytes.Append(EncodeMinuteGrid(
                {code, static_cast<std::int16_t>(place.Lat), static_cast<std::int16_t>(place.Lon)}));
            code = 0;
        }
        tally.Count(feature.Number, feature.Name, 1, static_cast<std::int64_t>(places.size()));
    }

private:
    ConvertTally& tally;
};

class PackedEncoder : public LineEncoder {
public:
    PackedEncoder(const std::string& mapFile_, ConvertTally& tally_)
        : mapFile(mapFile_), ranks(PackedRanksOf(mapFile_)), tally(tally_) {}

    void Encode(const TargetFeature& feature, MapLine& line, ByteSink& bytes) override {
        const std::uint8_t rank = RankOf(feature);
        const std::vector<WholePlace> places = FilledIn(PlacesOf(line, SecPerDegree, tally));
        InRuns(places, MaxPackedCount, tally, [&](std::span<const WholePlace> run) {
            AppendSegment(rank, run, bytes);
            tally.Count(feature.Number, feature.Name, 1, static_cast<std::int64_t>(run.size()));
        });
    }

private:
    static constexpr std::int32_t MostSeconds = 127; ///< from one point to the next, on either axis

    std::uint8_t RankOf(const TargetFeature& feature) const {
        if (const std::optional<std::uint8_t> rank = PackedRankOf(feature.Number, ranks)) {
            return *rank;
        }
        const std::string title = ParseFileName(mapFile).title;
        throw ConvertError(title + " cannot hold feature " + std::to_string(feature.Number) + ", \"" +
                           feature.Name + "\": the third letter of its name, " + title.substr(2, 1) +
                           ", makes it a part of the world data bank without that feature");
    }

    std::vector<WholePlace> FilledIn(std::vector<WholePlace> places) const {
        const auto steps = [](const WholePlace& from, const WholePlace& to) {
            const std::int32_t most = std::max(std::abs(to.Lon - from.Lon), std::abs(to.Lat - from.Lat));
            return (most + MostSeconds - 1) / MostSeconds;
        };
        const auto tooFar = [&](const WholePlace& from, const WholePlace& to) { return steps(from, to) > 1; };
        if (std::adjacent_find(places.begin(), places.end(), tooFar) == places.end()) {
            return places;
        }
        std::vector<WholePlace> filled{places.front()};
        for (std::size_t i = 1; i < places.size(); ++i) {
            const WholePlace& from = places[i - 1];
            const WholePlace& to = places[i];
            const std::int32_t count = steps(from, to);
            for (std::int32_t step = 1; step <= count; ++step) {
                const auto part = [&](std::int32_t whole) {
                    return RoundToInt32(static_cast<double>(whole) * step / count);
                };
                filled.push_back({from.Lon + part(to.Lon - from.Lon), from.Lat + part(to.Lat - from.Lat)});
            }
        }
        tally.addedPoints += static_cast<std::int64_t>(filled.size() - places.size());
        return filled;
    }

    static void AppendSegment(std::uint8_t rank, std::span<const WholePlace> run, ByteSink& bytes) {
        PackedHeader header;
        header.Rank = rank;
        header.Count = static_cast<std::int32_t>(run.size());
        header.BoxWest = header.BoxEast = header.FirstLon = run.front().Lon;
        header.BoxSouth = header.BoxNorth = header.FirstLat = run.front().Lat;
        for (const WholePlace& place : run) {
            header.BoxWest = std::min(header.BoxWest, place.Lon);
            header.BoxEast = std::max(header.BoxEast, place.Lon);
            header.BoxSouth = std::min(header.BoxSouth, place.Lat);
            header.BoxNorth = std::max(header.BoxNorth, place.Lat);
        }
        bytes.Append(EncodePackedHeader(header));
        for (std::size_t i = 1; i < run.size(); ++i) {
            bytes.Append(EncodePackedStep({static_cast<std::int8_t>(run[i].Lon - run[i - 1].Lon),
                                           static_cast<std::int8_t>(run[i].Lat - run[i - 1].Lat)}));
        }
    }

    std::string mapFile;
    PackedRanks ranks;
    ConvertTally& tally;
};

/// .dat and .grf.
class FixedRecordEncoder : public LineEncoder {
public:
    FixedRecordEncoder(bool lineGraph_, ConvertTally& tally_) : lineGraph(lineGraph_), tally(tally_) {}

    void Encode(const TargetFeature& feature, MapLine& line, ByteSink& bytes) override {
        const std::vector<WholePlace> places = PlacesOf(line, SecPerDegree, tally);
        const std::size_t most = lineGraph ? MostPoints : places.size();
        InRuns(places, most, tally, [&](std::span<const WholePlace> run) {
            bytes.Append(Header(feature.Number, run.size()));
            for (const WholePlace& place : run) {
                bytes.Append(EncodeFixedRecordPoint({place.Lat, place.Lon}));
            }
            tally.Count(feature.Number, feature.Name, 1, static_cast<std::int64_t>(run.size()));
        });
    }

private:
    static constexpr std::size_t MostPoints = 999999; ///< the header has six digits

    FixedRecord Header(std::int16_t feature, std::size_t count) const {
        return lineGraph ? EncodeLineGraphHeader(
                               {LineGraphCodesOf(feature).textFirst, static_cast<std::int32_t>(count)})
                         : EncodeFixedRecordBreak();
    }

    bool lineGraph;
    ConvertTally& tally;
};

constexpr double Millionths = 1e6;

class WorldTextEncoder : public LineEncoder {
public:
    explicit WorldTextEncoder(ConvertTally& tally_) : tally(tally_) {}

    void Begin(bool isEmpty, ByteSink& /*bytes*/) override { begun = !isEmpty; }

    void Encode(const TargetFeature& feature, MapLine& line, ByteSink& bytes) override {
        const std::vector<WholePlace> places = PlacesOf(line, Millionths, tally);
        if (begun) {
            bytes.Append(WorldItemBreak);
        }
        begun = true;
        for (const WholePlace& place : places) {
            bytes.Append(EncodeWorldItem(place.Lat / Millionths, place.Lon / Millionths));
        }
        tally.Count(feature.Number, feature.Name, 1, static_cast<std::int64_t>(places.size()));
    }

private:
    bool begun = false; ///< a line stands before the next one
    ConvertTally& tally;
};

class WorldFloatEncoder : public LineEncoder {
public:
    explicit WorldFloatEncoder(ConvertTally& tally_) : tally(tally_) {}

    void Encode(const TargetFeature& feature, MapLine& line, ByteSink& bytes) override {
        struct FloatPlace {
            float Lon, Lat;
            bool operator==(const FloatPlace&) const = default;
        };
        const auto places = WithoutRepeats<FloatPlace>(line, tally, [](const LonLat& point) {
            return FloatPlace{static_cast<float>(point.Lon), static_cast<float>(point.Lat)};
        });
        bytes.Append(WorldMarker);
        for (const FloatPlace& place : places) {
            bytes.Append(EncodeWorldRecord(place.Lat, place.Lon));
        }
        tally.Count(feature.Number, feature.Name, 1, static_cast<std::int64_t>(places.size()));
    }

private:
    ConvertTally& tally;
};

/// .prn and .utm.
class AsciiEncoder : public LineEncoder {
public:
    AsciiEncoder(const UtmZone* zone_, ConvertTally& tally_) : zone(zone_), tally(tally_) {}

    void Encode(const TargetFeature& feature, MapLine& line, ByteSink& bytes) override {
        std::string label = feature.Label.substr(0, EndOfLabel(feature.Label));
        const bool changed = label.find_first_of("\"\r\n") != std::string::npos;
        tally.changedLabels += changed || label.size() < feature.Label.size() ? 1 : 0;
        if (zone == nullptr) {
            EncodePart(feature, line, label, bytes);
            return;
        }
        const std::vector<bool> good = zone->ToMetres(line);
        MapLine part;
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (good[i]) {
                part.push_back(line[i]);
                continue;
            }
            ++tally.farPoints;
            EncodePart(feature, part, label, bytes);
            part.clear();
        }
        EncodePart(feature, part, label, bytes);
    }

private:
    static constexpr double Centimetres = 1e2;

    /// Where a label is cut, between characters: with the numbers before it, it has to be read in one go.
    static std::size_t EndOfLabel(const std::string& label) {
        constexpr std::size_t most = MaxTextItem / 2;
        std::size_t end = std::min(label.size(), most);
        while (end < label.size() && end > 0 && (static_cast<unsigned char>(label[end]) & 0xC0U) == 0x80U) {
            --end;
        }
        return end;
    }

    /// The label goes to the first point that is written.
    void EncodePart(const TargetFeature& feature, const MapLine& line, std::string& label, ByteSink& bytes) {
        if (line.empty()) {
            return;
        }
        const double units = zone != nullptr ? Centimetres : Millionths;
        const int decimals = zone != nullptr ? 2 : 6;
        const std::vector<WholePlace> places = PlacesOf(line, units, tally);
        AsciiMapPoint point;
        point.Break = 1;
        point.Label = label;
        for (const WholePlace& place : places) {
            point.Second = (zone != nullptr ? place.Lon : place.Lat) / units;
            point.Third = (zone != nullptr ? place.Lat : place.Lon) / units;
            bytes.Append(EncodeAsciiMapPoint(point, decimals));
            point.Break = 0;
            point.Label = {};
        }
        label.clear();
        tally.Count(feature.Number, feature.Name, 1, static_cast<std::int64_t>(places.size()));
    }

    const UtmZone* zone; ///< none for degrees
    ConvertTally& tally;
};

} // namespace

std::unique_ptr<LineEncoder> NewMapFileEncoder(const std::string& mapFile, const MapFormat& format,
                                               const UtmZone* zone, ConvertTally& tally) {
    switch (format.form) {
    case MapFileForm::MinuteGrid:
        return std::make_unique<MinuteGridEncoder>(tally);
    case MapFileForm::PackedWhole:
    case MapFileForm::PackedPart:
    case MapFileForm::PackedLineGraph:
        return std::make_unique<PackedEncoder>(mapFile, tally);
    case MapFileForm::FixedRecords:
    case MapFileForm::LineGraphText:
        return std::make_unique<FixedRecordEncoder>(format.form == MapFileForm::LineGraphText, tally);
    case MapFileForm::WorldText:
        return std::make_unique<WorldTextEncoder>(tally);
    case MapFileForm::WorldFloats:
        return std::make_unique<WorldFloatEncoder>(tally);
    case MapFileForm::AsciiDegrees:
        return std::make_unique<AsciiEncoder>(nullptr, tally);
    case MapFileForm::AsciiMetres:
        break;
    }
    return std::make_unique<AsciiEncoder>(zone, tally);
}

} // namespace quelmont

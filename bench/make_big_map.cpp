// make_big_map OUTPUT [POINTS]
//
// Writes a map file of so many points (14 million if none are named) that is as hard to draw as a
// coastline and always the same: lines of some hundred points that wander over the whole world, the
// 180th meridian included, in ten features. The ending of the name chooses the format: .pkv packed,
// .mps world, anything else minute grid.

#include "core/file_names.h"
#include "mapfiles/minute_grid_file.h"
#include "mapfiles/packed_file.h"
#include "mapfiles/world_file.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace quelmont {
namespace {

constexpr long DefaultPoints = 14'000'000;
constexpr int MaxLat = 89 * 60; // minutes
constexpr int HalfCircle = 180 * 60;

/// The same numbers on every machine (a 64-bit linear congruential generator, Knuth's constants).
class Dice {
public:
    /// 0 to below sides.
    int Throw(int sides) {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>((state >> 33U) % static_cast<std::uint64_t>(sides));
    }

private:
    std::uint64_t state = 20251121;
};

struct Place {
    int lat, lon; ///< minutes
};

/// Writes lines in one format.
class LineWriter {
public:
    explicit LineWriter(std::ostream& stream_) : stream(stream_) {}
    virtual ~LineWriter() = default;
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;
    virtual void Line(int feature, std::span<const Place> line) = 0;

protected:
    void Put(std::span<const std::byte> bytes) {
        for (const std::byte byte : bytes) {
            stream.put(static_cast<char>(byte));
        }
    }

private:
    std::ostream& stream;
};

class MinuteGridWriter : public LineWriter {
public:
    using LineWriter::LineWriter;
    void Line(int feature, std::span<const Place> line) override {
        auto code = static_cast<std::int16_t>(feature * 1000);
        for (const Place& place : line) {
            Put(EncodeMinuteGrid(
                {code, static_cast<std::int16_t>(place.lat), static_cast<std::int16_t>(place.lon)}));
            code = 0;
        }
    }
};

class PackedWriter : public LineWriter {
public:
    using LineWriter::LineWriter;
    /// A segment up to the 180th meridian and another one behind it: differences know no seam.
    void Line(int feature, std::span<const Place> line) override {
        while (!line.empty()) {
            std::size_t count = 1;
            while (count < line.size() && std::abs(line[count].lon - line[count - 1].lon) < HalfCircle) {
                ++count;
            }
            Segment(feature, line.first(count));
            line = line.subspan(count);
        }
    }

private:
    void Segment(int feature, std::span<const Place> line) {
        const auto [south, north] = std::minmax_element(
            line.begin(), line.end(), [](const Place& a, const Place& b) { return a.lat < b.lat; });
        const auto [west, east] = std::minmax_element(
            line.begin(), line.end(), [](const Place& a, const Place& b) { return a.lon < b.lon; });
        PackedHeader header;
        header.Rank = static_cast<std::uint8_t>(feature);
        header.Count = static_cast<std::int32_t>(line.size());
        header.BoxWest = west->lon * 60;
        header.BoxSouth = south->lat * 60;
        header.BoxEast = east->lon * 60;
        header.BoxNorth = north->lat * 60;
        header.FirstLon = line[0].lon * 60;
        header.FirstLat = line[0].lat * 60;
        Put(EncodePackedHeader(header));
        for (std::size_t i = 1; i < line.size(); ++i) {
            Put(EncodePackedStep({static_cast<std::int8_t>((line[i].lon - line[i - 1].lon) * 60),
                                  static_cast<std::int8_t>((line[i].lat - line[i - 1].lat) * 60)}));
        }
    }
};

class WorldWriter : public LineWriter {
public:
    using LineWriter::LineWriter;
    void Line(int /*feature*/, std::span<const Place> line) override {
        Put(WorldMarker);
        for (const Place& place : line) {
            Put(EncodeWorldRecord(static_cast<float>(place.lat) / 60.0F,
                                  static_cast<float>(place.lon) / 60.0F));
        }
    }
};

std::unique_ptr<LineWriter> WriterOf(const std::string& name, std::ostream& stream) {
    const std::string letters = LastThreeLetters(name);
    if (letters == "PKV") {
        return std::make_unique<PackedWriter>(stream);
    }
    if (letters == "MPS") {
        return std::make_unique<WorldWriter>(stream);
    }
    return std::make_unique<MinuteGridWriter>(stream);
}

/// A line that keeps its direction more often than not, up to two minutes a step, and turns back where
/// it would reach a pole.
void Wander(std::vector<Place>& line, Dice& dice, long most) {
    const long count = std::min<long>(most, 50 + dice.Throw(900));
    Place place{dice.Throw(2 * MaxLat) - MaxLat, dice.Throw(2 * HalfCircle) - HalfCircle};
    int stepLat = dice.Throw(5) - 2;
    int stepLon = dice.Throw(5) - 2;
    line.clear();
    for (long i = 0; i < count; ++i) {
        line.push_back(place);
        if (dice.Throw(4) == 0) {
            stepLat = dice.Throw(5) - 2;
            stepLon = dice.Throw(5) - 2;
        }
        if (std::abs(place.lat + stepLat) > MaxLat) {
            stepLat = -stepLat;
        }
        place.lat += stepLat;
        place.lon += stepLon;
        if (place.lon > HalfCircle) {
            place.lon -= 2 * HalfCircle;
        } else if (place.lon < -HalfCircle) {
            place.lon += 2 * HalfCircle;
        }
    }
}

int Main(std::span<char*> arguments) {
    const long points = arguments.size() == 3 ? std::strtol(arguments[2], nullptr, 10) : DefaultPoints;
    if (arguments.size() < 2 || arguments.size() > 3 || points <= 0) {
        std::cerr << "usage: make_big_map OUTPUT [POINTS]\n";
        return 2;
    }
    const std::string name = arguments[1];
    std::ofstream file(name, std::ios::binary);
    const std::unique_ptr<LineWriter> writer = WriterOf(name, file);
    Dice dice;
    std::vector<Place> line;
    for (long left = points; left > 0; left -= static_cast<long>(line.size())) {
        Wander(line, dice, left);
        writer->Line(1 + dice.Throw(10), line);
    }
    file.close();
    if (!file) {
        std::cerr << "make_big_map: cannot write " << name << '\n';
        return 1;
    }
    return 0;
}

} // namespace
} // namespace quelmont

int main(int argc, char** argv) { return quelmont::Main(std::span(argv, static_cast<std::size_t>(argc))); }

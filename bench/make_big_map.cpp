// make_big_map OUTPUT [POINTS]
//
// Writes a minute-grid map file of so many points (14 million if none are named) that is as hard to
// draw as a coastline and always the same: lines of some hundred points that wander over the whole
// world, the 180th meridian included, in all ten ranks.

#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

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

class MapWriter {
public:
    explicit MapWriter(std::ostream& stream_) : stream(stream_) { bytes.reserve(BlockSize + 6); }
    void Point(int rank, int lat, int lon) {
        Number(rank * 1000);
        Number(lat);
        Number(lon);
        if (bytes.size() >= BlockSize) {
            Flush();
        }
    }
    void Flush() {
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        bytes.clear();
    }

private:
    static constexpr std::size_t BlockSize = std::size_t{1} << 20U;
    void Number(int value) {
        bytes.push_back(static_cast<char>(value & 0xFF));
        bytes.push_back(static_cast<char>((value >> 8) & 0xFF));
    }
    std::ostream& stream;
    std::vector<char> bytes;
};

/// A line that keeps its direction more often than not, a few minutes a step, and turns back where
/// it would reach a pole. Returns how many points it took.
long Wander(MapWriter& map, Dice& dice, long most) {
    const long count = std::min<long>(most, 50 + dice.Throw(900));
    int lat = dice.Throw(2 * MaxLat) - MaxLat;
    int lon = dice.Throw(2 * HalfCircle) - HalfCircle;
    int stepLat = dice.Throw(5) - 2;
    int stepLon = dice.Throw(7) - 3;
    int rank = 1 + dice.Throw(10);
    for (long i = 0; i < count; ++i) {
        map.Point(rank, lat, lon);
        rank = 0;
        if (dice.Throw(4) == 0) {
            stepLat = dice.Throw(5) - 2;
            stepLon = dice.Throw(7) - 3;
        }
        if (lat + stepLat > MaxLat || lat + stepLat < -MaxLat) {
            stepLat = -stepLat;
        }
        lat += stepLat;
        lon += stepLon;
        if (lon > HalfCircle) {
            lon -= 2 * HalfCircle;
        } else if (lon < -HalfCircle) {
            lon += 2 * HalfCircle;
        }
    }
    return count;
}

} // namespace

int main(int argc, char** argv) {
    const long points = argc == 3 ? std::strtol(argv[2], nullptr, 10) : DefaultPoints;
    if (argc < 2 || argc > 3 || points <= 0) {
        std::cerr << "usage: make_big_map OUTPUT [POINTS]\n";
        return 2;
    }
    std::ofstream file(argv[1], std::ios::binary);
    MapWriter map(file);
    Dice dice;
    for (long left = points; left > 0;) {
        left -= Wander(map, dice, left);
    }
    map.Flush();
    file.close();
    if (!file) {
        std::cerr << "make_big_map: cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}

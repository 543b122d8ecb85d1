#include "data/map_bytes.h"

#include "support/temporary_folder.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quelmont {

namespace {

constexpr double Degree = 3.14159265358979323846 / 180.0;

std::string Read(const char* name) { return ReadWholeFile(std::string(QUELMONT_DATA) + "/" + name); }

int Signed(const std::string& bytes, std::size_t at) { return static_cast<signed char>(bytes.at(at)); }
int Unsigned(const std::string& bytes, std::size_t at) { return static_cast<unsigned char>(bytes.at(at)); }

/// Two bytes, the low one first.
int Word(const std::string& bytes, std::size_t at) {
    return Signed(bytes, at + 1) * 256 + Unsigned(bytes, at);
}

MapBytes ReadWorldMap() {
    const std::string bytes = Read("Qmnt4.map");
    MapBytes map{60, {}, bytes.size(), bytes.size() % 6 == 0};
    for (std::size_t at = 0; at + 6 <= bytes.size(); at += 6) {
        const int code = Word(bytes, at);
        if (code != 0 || map.Lines.empty()) {
            map.Lines.push_back({code / 1000, {}, {}, {}});
        }
        map.Lines.back().Places.push_back({Word(bytes, at + 4), Word(bytes, at + 2)});
    }
    return map;
}

/// Degrees of a longitude are the first byte twice and the second.
int LongCoordinate(const std::string& bytes, std::size_t at) {
    return (Signed(bytes, at) * 2 + Signed(bytes, at + 1)) * 3600 + Signed(bytes, at + 2) * 60 +
           Signed(bytes, at + 3);
}

int ShortCoordinate(const std::string& bytes, std::size_t at) {
    return Signed(bytes, at) * 3600 + Signed(bytes, at + 1) * 60 + Signed(bytes, at + 2);
}

MapBytes ReadDetailMap() {
    constexpr std::size_t header = 24;
    const std::string bytes = Read("detail.pkv");
    MapBytes map{3600, {}, bytes.size(), true};
    std::size_t at = 0;
    while (at + header <= bytes.size()) {
        MapBytesLine line{Unsigned(bytes, at), {}, {}, {}};
        const int count = Unsigned(bytes, at + 1) * 100 + Unsigned(bytes, at + 2);
        line.BoxSouthWest = {LongCoordinate(bytes, at + 3), ShortCoordinate(bytes, at + 7)};
        line.BoxNorthEast = {LongCoordinate(bytes, at + 10), ShortCoordinate(bytes, at + 14)};
        MapPlace place{LongCoordinate(bytes, at + 17), ShortCoordinate(bytes, at + 21)};
        line.Places.push_back(place);
        at += header;
        for (int i = 1; i < count && at + 2 <= bytes.size(); ++i, at += 2) {
            place = {place.Lon + Signed(bytes, at), place.Lat + Signed(bytes, at + 1)};
            line.Places.push_back(place);
        }
        map.EndsWithLine = static_cast<int>(line.Places.size()) == count;
        map.Lines.push_back(std::move(line));
    }
    map.EndsWithLine = map.EndsWithLine && at == bytes.size();
    return map;
}

} // namespace

const MapBytes& WorldMapBytes() {
    static const MapBytes map = ReadWorldMap();
    return map;
}

const MapBytes& DetailMapBytes() {
    static const MapBytes map = ReadDetailMap();
    return map;
}

MapPlace OnGlobe(const MapBytes& map, MapPlace place) {
    const int half = 180 * map.UnitsPerDegree;
    return place.Lon == -half ? MapPlace{half, place.Lat} : place;
}

double MinutesOfArc(const MapBytes& map, MapPlace from, MapPlace to) {
    const double unit = Degree / map.UnitsPerDegree;
    const double lat = std::sin((to.Lat - from.Lat) * unit / 2.0);
    const double lon = std::sin((to.Lon - from.Lon) * unit / 2.0);
    const double square = lat * lat + std::cos(from.Lat * unit) * std::cos(to.Lat * unit) * lon * lon;
    return 2.0 * std::asin(std::sqrt(square)) / Degree * 60.0;
}

double MinutesFromLine(const MapBytes& map, const MapBytesLine& line, double lonMinutes, double latMinutes) {
    const double minutes = 60.0 / map.UnitsPerDegree;
    const double cosine = std::cos(latMinutes / 60.0 * Degree);
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < line.Places.size(); ++i) {
        const MapPlace& from = line.Places[i - 1];
        const MapPlace& to = line.Places[i];
        const double x = (from.Lon * minutes - lonMinutes) * cosine;
        const double y = from.Lat * minutes - latMinutes;
        const double alongX = (to.Lon - from.Lon) * minutes * cosine;
        const double alongY = (to.Lat - from.Lat) * minutes;
        const double square = alongX * alongX + alongY * alongY;
        const double share = square > 0.0 ? std::clamp(-(x * alongX + y * alongY) / square, 0.0, 1.0) : 0.0;
        least = std::min(least, std::hypot(x + share * alongX, y + share * alongY));
    }
    return least;
}

} // namespace quelmont

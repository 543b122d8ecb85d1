#include "convert/projected_line.h"

#include "convert/line_steps.h"
#include "convert/point_transform.h"
#include "convert/segment_distance.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

bool LiesAtPole(const LonLat& place) {
    constexpr double hair = 1e-9; // degrees
    return std::fabs(place.Lat) >= 90.0 - hair;
}

/// A point in both systems.
struct Station {
    LonLat point; ///< projected
    LonLat place; ///< degrees
};

/// The places of two stations as the ends of a segment the shorter way round. A pole has the longitude
/// from which it is reached.
std::pair<LonLat, LonLat> Chord(const Station& from, const Station& to) {
    LonLat a = from.place;
    LonLat b = to.place;
    if (LiesAtPole(a)) {
        a.Lon = b.Lon;
    } else if (LiesAtPole(b)) {
        b.Lon = a.Lon;
    }
    b.Lon = a.Lon + LongitudeStep(a.Lon, b.Lon);
    return {a, b};
}

/// Puts points into the segments of a projected line where they are curved in degrees.
class CurveFiller {
public:
    CurveFiller(OGRCoordinateTransformation& toDegrees_, std::size_t points)
        : toDegrees(toDegrees_), depth(DepthFor(points)) {}

    /// Appends to way what has to stand between two stations.
    void Fill(const Station& from, const Station& to, MapLine& way) const { Fill(from, to, way, depth); }

private:
    static constexpr std::size_t Tried = 3; ///< points at which a segment is tried, and divided

    /// How often the parts of a segment are divided again in a line of so many points.
    static int DepthFor(std::size_t points) {
        constexpr std::size_t most = 4'000'000;
        constexpr int deepest = 6;
        int divisions = 1;
        std::size_t after = points * (Tried + 1);
        while (divisions < deepest && after * (Tried + 1) <= most) {
            after *= Tried + 1;
            ++divisions;
        }
        return divisions;
    }

    void Fill(const Station& from, const Station& to, MapLine& way, int divisions) const {
        const auto [a, b] = Chord(from, to);
        if (divisions == 0 || IsShort(a, b)) {
            return;
        }
        MapLine points;
        for (std::size_t i = 1; i <= Tried; ++i) {
            const double share = static_cast<double>(i) / (Tried + 1);
            points.push_back({std::lerp(from.point.Lon, to.point.Lon, share),
                              std::lerp(from.point.Lat, to.point.Lat, share)});
        }
        MapLine places = points;
        const std::vector<bool> good = TransformPoints(toDegrees, places);
        if (std::find(good.begin(), good.end(), false) != good.end() || IsStraight(a, b, places)) {
            return;
        }
        Station last = from;
        for (std::size_t i = 0; i < Tried; ++i) {
            const Station next{points[i], places[i]};
            Fill(last, next, way, divisions - 1);
            way.push_back(next.place);
            last = next;
        }
        Fill(last, to, way, divisions - 1);
    }

    /// So short that no projection in use curves it by a tenth of a second.
    static bool IsShort(const LonLat& a, const LonLat& b) {
        constexpr double degrees = 0.01;
        return std::fabs(b.Lon - a.Lon) < degrees && std::fabs(b.Lat - a.Lat) < degrees;
    }

    static bool IsStraight(const LonLat& a, const LonLat& b, const MapLine& places) {
        constexpr double tolerance = 0.1 / 3600.0; // degrees
        const SegmentDistance distance(a, b);
        return std::all_of(places.begin(), places.end(), [&](const LonLat& place) {
            // A whole parallel is the only chord that reaches beyond half a circle.
            double nearest = distance.Square(place);
            for (const double turn : {-360.0, 360.0}) {
                nearest = std::min(nearest, distance.Square({place.Lon + turn, place.Lat}));
            }
            return nearest <= tolerance * tolerance;
        });
    }

    OGRCoordinateTransformation& toDegrees;
    int depth;
};

/// Where a line passes a pole, it runs along it from the longitude on which it comes to that on which it
/// goes.
void OpenPoles(MapLine& line) {
    if (std::none_of(line.begin(), line.end(), LiesAtPole)) {
        return;
    }
    MapLine opened;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool comes = i > 0 && !LiesAtPole(line[i - 1]);
        const bool goes = i + 1 < line.size() && !LiesAtPole(line[i + 1]);
        if (!LiesAtPole(line[i]) || (!comes && !goes)) {
            opened.push_back(line[i]);
            continue;
        }
        if (comes) {
            opened.push_back({line[i - 1].Lon, line[i].Lat});
        }
        if (goes && !(comes && line[i - 1].Lon == line[i + 1].Lon)) {
            opened.push_back({line[i + 1].Lon, line[i].Lat});
        }
    }
    line = std::move(opened);
}

} // namespace

std::optional<LonLat> TurnProjectedLine(OGRCoordinateTransformation& toDegrees, MapLine& line,
                                        std::int64_t& added) {
    const MapLine points = line;
    const std::vector<bool> good = TransformPoints(toDegrees, line);
    const auto bad = std::find(good.begin(), good.end(), false);
    if (bad != good.end()) {
        return points[static_cast<std::size_t>(bad - good.begin())];
    }
    const CurveFiller filler(toDegrees, points.size());
    MapLine way;
    way.reserve(line.size());
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (i > 0) {
            filler.Fill({points[i - 1], line[i - 1]}, {points[i], line[i]}, way);
        }
        way.push_back(line[i]);
    }
    OpenPoles(way);
    added += static_cast<std::int64_t>(way.size()) - static_cast<std::int64_t>(points.size());
    line = std::move(way);
    return std::nullopt;
}

} // namespace quelmont

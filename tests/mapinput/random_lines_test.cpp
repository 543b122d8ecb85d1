#include "map_fixture.h"

#include "mapinput/map_point.h"
#include "output/output_state.h"
#include "projection/project_select.h"
#include "projection/utm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace quelmont {
namespace {

constexpr int LinesPerMap = 400;
constexpr int PointsPerLine = 30;

/// Lines whose segments are shorter than 20 degrees of longitude and reach all places of the globe,
/// the poles and both sides of the 180th meridian included. Always the same ones.
class RandomLines {
public:
    explicit RandomLines(double longestStep_) : longestStep(longestStep_) {}

    std::vector<TruePlace> Next() {
        std::vector<TruePlace> line = {{Seconds(90.0), Seconds(180.0)}};
        while (line.size() < PointsPerLine) {
            const TruePlace last = line.back();
            const std::int32_t lat = std::clamp(last.lat + Seconds(longestStep / 2), -MaxLat, MaxLat);
            const std::int32_t side = last.lon > 0 ? SecPerHalfCircle : -SecPerHalfCircle;
            // Now and then a line goes to the 180th meridian and from one of its names to the other.
            if (std::abs(side - last.lon) < Step() && Throw(3) == 0) {
                line.push_back({lat, side});
                line.push_back({lat, -side});
                continue;
            }
            std::int32_t lon = last.lon + Seconds(longestStep);
            if (lon > SecPerHalfCircle) {
                lon -= SecPerCircle;
            } else if (lon < -SecPerHalfCircle) {
                lon += SecPerCircle;
            }
            line.push_back({lat, lon});
        }
        return line;
    }

private:
    static constexpr std::int32_t MaxLat = 90 * SecPerDegree;
    std::int32_t Step() const { return static_cast<std::int32_t>(longestStep * SecPerDegree) - 1; }
    std::int32_t Throw(std::int32_t sides) {
        return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(sides));
    }
    /// Evenly between -degrees and degrees, both excluded.
    std::int32_t Seconds(double degrees) {
        const auto most = static_cast<std::int32_t>(degrees * SecPerDegree) - 1;
        return Throw(2 * most + 1) - most;
    }

    double longestStep;
    std::mt19937 random{4711};
};

struct Bounds {
    double north, south, west, east;
};
std::ostream& operator<<(std::ostream& stream, const Bounds& b) {
    return stream << b.south << ".." << b.north << " by " << b.west << ".." << b.east;
}

/// Pixels of the surface per projection unit.
double PixelsPerUnit() { return Design.ScreenScaleX / OutputNow.DevicePixelX; }

double PixelLength(const PlottedStroke& stroke) {
    return std::hypot(stroke.to.x - stroke.from.x, stroke.to.y - stroke.from.y) * PixelsPerUnit();
}

/// The most pixels that a degree of latitude or longitude takes anywhere on a map bounded by
/// parallels and meridians.
double MostPixelsPerDegree() {
    const auto place = [](double lat, double lon) {
        Design.ProjLat = lat;
        Design.ProjLon = lon;
        ProjectSelect();
        return std::pair(Design.ProjX, Design.ProjY);
    };
    double most = 0.0;
    for (double lat = Design.LatSouth; lat <= Design.LatNorth; lat += 0.5) {
        for (double lon = Design.LonZero; lon <= Design.LonSpan; lon += 5.0) {
            constexpr double step = 0.01;
            const double back = lat >= Design.LatNorth ? -step : step;
            const auto [x, y] = place(lat, lon);
            const auto [xLat, yLat] = place(lat + back, lon);
            const auto [xLon, yLon] = place(lat, lon + step);
            most = std::max(
                {most, std::hypot(xLat - x, yLat - y) / step, std::hypot(xLon - x, yLon - y) / step});
        }
    }
    return most * PixelsPerUnit();
}

// ---- What ought to be drawn of a segment on a map bounded by parallels and meridians.

class RectangleOracle {
public:
    /// Length in seconds of what lies inside of the straight way between two places, the short way
    /// round. Nothing is drawn between two places outside.
    static double VisibleLength(TruePlace from, TruePlace to) {
        if (!Inside(from) && !Inside(to)) {
            return 0.0;
        }
        const double dLat = to.lat - from.lat;
        const double dLon = std::remainder(static_cast<double>(to.lon) - from.lon, SecPerCircle);
        std::vector<double> cuts = {0.0, 1.0};
        const auto cut = [&](double at, double start, double step) {
            if (step != 0.0) {
                cuts.push_back(std::clamp((at - start) / step, 0.0, 1.0));
            }
        };
        const double start = static_cast<double>(from.lon) - Design.LonWestSec;
        cut(Design.LatNorthSec, from.lat, dLat);
        cut(Design.LatSouthSec, from.lat, dLat);
        for (int turn = -2; turn <= 2; ++turn) {
            cut(turn * static_cast<double>(SecPerCircle), start, dLon);
            cut(turn * static_cast<double>(SecPerCircle) + Design.LonSpanSec, start, dLon);
        }
        std::sort(cuts.begin(), cuts.end());
        double visible = 0.0;
        for (std::size_t i = 1; i < cuts.size(); ++i) {
            const double middle = (cuts[i - 1] + cuts[i]) / 2.0;
            const double lon = start + middle * dLon;
            const double relative = lon - std::floor(lon / SecPerCircle) * SecPerCircle;
            const double lat = from.lat + middle * dLat;
            if (lat >= Design.LatSouthSec && lat <= Design.LatNorthSec && relative <= Design.LonSpanSec) {
                visible += cuts[i] - cuts[i - 1];
            }
        }
        return visible * std::hypot(dLat, dLon);
    }

private:
    static bool Inside(TruePlace place) {
        std::int32_t lon = place.lon - Design.LonWestSec;
        if (lon < 0) {
            lon += SecPerCircle;
        }
        return place.lat <= Design.LatNorthSec && place.lat >= Design.LatSouthSec && lon <= Design.LonSpanSec;
    }
};

struct RectangleCase {
    std::int16_t projNum;
    std::vector<Bounds> maps;
};

class RandomLinesTest : public MapTest {
protected:
    void ExpectInsideRectangle() {
        for (const PlottedPoint& point : recorder.points) {
            ASSERT_GE(std::lround(LatSeconds(point)), Design.LatSouthSec);
            ASSERT_LE(std::lround(LatSeconds(point)), Design.LatNorthSec);
            ASSERT_GE(std::lround(LonSeconds(point)), Design.LonZeroSec);
            ASSERT_LE(std::lround(LonSeconds(point)), Design.LonSpanSec);
        }
    }
    /// Each stroke of the surface is one of those recorded, in pixels.
    void ExpectSurfaceFollows(double longest) {
        for (const RecordedSegment& segment : surface.Segments()) {
            ASSERT_LE(std::hypot(segment.to.x - segment.from.x, segment.to.y - segment.from.y),
                      longest + 2.0);
        }
    }
    void ExpectClippedToRectangle(const std::vector<TruePlace>& line, double pixelsPerDegree) {
        recorder.points.clear();
        surface.Forget();
        Draw(line);
        ExpectInsideRectangle();
        double expected = 0.0;
        for (std::size_t i = 1; i < line.size(); ++i) {
            expected += RectangleOracle::VisibleLength(line[i - 1], line[i]);
        }
        double drawn = 0.0;
        for (const PlottedStroke& stroke : recorder.Strokes()) {
            const double dLat = stroke.to.lat - stroke.from.lat;
            const double dLon = stroke.to.lon - stroke.from.lon;
            ASSERT_LT(std::fabs(dLon), 20.0) << stroke.from << " to " << stroke.to;
            ASSERT_LT(std::fabs(dLat), 10.0);
            drawn += std::hypot(dLat, dLon) * SecPerDegree;
            // Along both coordinates at once a degree can take the pixels of two.
            ASSERT_LE(PixelLength(stroke),
                      (std::fabs(dLat) + std::fabs(dLon)) * pixelsPerDegree * 1.05 + 1e-6);
        }
        // Each cut is rounded to the second.
        ASSERT_NEAR(drawn, expected, 3.0 * static_cast<double>(line.size()));
        ExpectSurfaceFollows(30.0 * pixelsPerDegree);
    }
};

TEST_F(RandomLinesTest, RectanglesShowWhatLiesInsideAndNoStrokeAcrossTheMap) {
    const std::vector<Bounds> world = {
        {90, -90, -180, 180}, {90, -90, -30, -30}, {60, -60, 180, 180}, {60, -30, 90, 90}};
    const std::vector<Bounds> regions = {{70, 10, 150, -150},
                                         {60, -60, -180, 20},
                                         {90, -90, 10, -20},
                                         {45, -60, 100, -60},
                                         {30, 20, 170, -170}};
    std::vector<Bounds> all = world;
    all.insert(all.end(), regions.begin(), regions.end());
    // Two cylinders cannot show the poles, and the cones do not show a whole world.
    const std::vector<Bounds> temperate = {{80, -80, -180, 180},
                                           {60, -60, 170, 170},
                                           {70, 10, 150, -150},
                                           {60, -60, -180, 20},
                                           {45, -60, 100, -60}};
    const std::vector<Bounds> cones = {{75, 15, -180, 180},
                                       {75, 15, 100, 100},
                                       {70, 10, 150, -150},
                                       {-10, -60, 100, -60},
                                       {75, 15, -180, 20}};
    const RectangleCase cases[] = {
        {ProjMercator, temperate},
        {ProjEquirectangular, all},
        {ProjCylindricalEqualArea, temperate},
        {ProjHammer, all},
        {ProjMollweide, all},
        {ProjRobinson, all},
        {ProjEquidistantConic, cones},
        {ProjConformalConic, cones},
        {ProjAlbers, cones},
    };
    for (const RectangleCase& projection : cases) {
        for (const Bounds& map : projection.maps) {
            SCOPED_TRACE(testing::Message() << "projection " << projection.projNum << ", " << map);
            Rectangle(projection.projNum, map.north, map.south, map.west, map.east);
            const double pixelsPerDegree = MostPixelsPerDegree();
            RandomLines lines(20.0);
            for (int i = 0; i < LinesPerMap; ++i) {
                ExpectClippedToRectangle(lines.Next(), pixelsPerDegree);
                if (HasFatalFailure()) {
                    return;
                }
            }
            EXPECT_TRUE(machine.boxes.asked.empty()) << machine.boxes.asked.front();
        }
    }
}

TEST_F(RandomLinesTest, LobesAreClippedAtTheirBoundaries) {
    for (const auto& [west, east] :
         {std::pair{-180.0, -40.0}, std::pair{-40.0, 180.0}, std::pair{100.0, -100.0}}) {
        SCOPED_TRACE(testing::Message() << west << " to " << east);
        Lobe(west, east);
        const double pixelsPerDegree = MostPixelsPerDegree();
        RandomLines lines(20.0);
        for (int i = 0; i < LinesPerMap; ++i) {
            ExpectClippedToRectangle(lines.Next(), pixelsPerDegree);
            if (HasFatalFailure()) {
                return;
            }
        }
    }
}

// ---- UTM.

/// A line of short segments in the zone, from 20 S to 70 N and up to ten degrees beside its meridian.
std::vector<TruePlace> LineInZone(std::mt19937& random) {
    const auto throwing = [&](std::int32_t most) {
        return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(2 * most + 1)) - most;
    };
    std::vector<TruePlace> line;
    std::int32_t lat = 25 * SecPerDegree + throwing(40 * SecPerDegree);
    std::int32_t beside = throwing(8 * SecPerDegree);
    for (int i = 0; i < PointsPerLine; ++i) {
        double lon = static_cast<double>(Design.LonCentralSec) + beside;
        lon = lon > SecPerHalfCircle    ? lon - SecPerCircle
              : lon < -SecPerHalfCircle ? lon + SecPerCircle
                                        : lon;
        line.push_back({lat, static_cast<std::int32_t>(lon)});
        lat = std::clamp(lat + throwing(2 * SecPerDegree), -20 * SecPerDegree, 70 * SecPerDegree);
        beside = std::clamp(beside + throwing(2 * SecPerDegree), -10 * SecPerDegree, 10 * SecPerDegree);
    }
    return line;
}

struct Metres {
    double north, east;
};

Metres MetresOf(TruePlace place) {
    Design.ProjLat = static_cast<double>(place.lat) / SecPerDegree;
    Design.ProjLon = static_cast<double>(place.lon) / SecPerDegree;
    UtmForward();
    return {std::nearbyint(Design.ProjLat), std::nearbyint(Design.ProjLon)};
}

/// Length inside the bounds in metres, nothing between two places outside.
double VisibleMetres(Metres from, Metres to) {
    const auto inside = [](Metres at) {
        return at.north >= Design.LatSouthSec && at.north <= Design.LatNorthSec &&
               at.east >= Design.LonZeroSec && at.east <= Design.LonSpanSec;
    };
    if (!inside(from) && !inside(to)) {
        return 0.0;
    }
    double first = 0.0;
    double last = 1.0;
    const auto within = [&](double start, double step, double low, double high) {
        if (step != 0.0) {
            const double a = (low - start) / step;
            const double b = (high - start) / step;
            first = std::max(first, std::min(a, b));
            last = std::min(last, std::max(a, b));
        }
    };
    within(from.north, to.north - from.north, Design.LatSouthSec, Design.LatNorthSec);
    within(from.east, to.east - from.east, Design.LonZeroSec, Design.LonSpanSec);
    return std::max(0.0, last - first) * std::hypot(to.north - from.north, to.east - from.east);
}

TEST_F(RandomLinesTest, ZonesShowWhatLiesInsideTheirMetres) {
    for (const char* central : {"009    00    00    W", "177    00    00    E", "177    00    00    W"}) {
        SCOPED_TRACE(central);
        Design.UtmText[UtmTextCentralLon] = central;
        Zone(6'200'000, -1'000'000, 0, 1'000'000);
        std::mt19937 random(99);
        for (int i = 0; i < LinesPerMap; ++i) {
            const std::vector<TruePlace> line = LineInZone(random);
            recorder.points.clear();
            Draw(line);
            for (const PlottedPoint& point : recorder.points) {
                ASSERT_GE(point.lat, Design.LatSouthSec);
                ASSERT_LE(point.lat, Design.LatNorthSec);
                ASSERT_GE(point.lon, Design.LonZeroSec);
                ASSERT_LE(point.lon, Design.LonSpanSec);
            }
            double expected = 0.0;
            for (std::size_t k = 1; k < line.size(); ++k) {
                expected += VisibleMetres(MetresOf(line[k - 1]), MetresOf(line[k]));
            }
            double drawn = 0.0;
            for (const PlottedStroke& stroke : recorder.Strokes()) {
                const double length =
                    std::hypot(stroke.to.lat - stroke.from.lat, stroke.to.lon - stroke.from.lon);
                ASSERT_LT(length, 400'000.0) << "two degrees each way";
                drawn += length;
            }
            ASSERT_NEAR(drawn, expected, 2.0 * PointsPerLine);
        }
        EXPECT_TRUE(machine.boxes.asked.empty()) << machine.boxes.asked.front();
    }
}

// ---- Azimuthal maps.

constexpr double Radian = M_PI / 180.0;

struct Disc {
    std::int16_t projNum;
    double lat, lon, range;
    bool toHorizon; ///< the range is the horizon: a cut, rounded to the second, may lie behind it
};
std::ostream& operator<<(std::ostream& stream, const Disc& disc) {
    return stream << "projection " << disc.projNum << " about " << disc.lat << ", " << disc.lon << " to "
                  << disc.range << " degrees";
}

/// Distance of a place in relative degrees from the centre, seconds.
double FromCentre(double lat, double lon) {
    const double p = std::sin((lat - Design.LatCentral) * Radian / 2.0);
    const double q = std::sin((lon - Design.LonCentral) * Radian / 2.0);
    const double h = p * p + std::cos(lat * Radian) * std::cos(Design.LatCentral * Radian) * q * q;
    return 2.0 * std::asin(std::sqrt(std::min(1.0, h))) / Radian * SecPerDegree;
}

/// Distance on the map at c radians from the centre. Snyder 1987, the chapters on azimuthals.
double Rho(std::int16_t projNum, double c) {
    switch (projNum) {
    case ProjGnomonic:
        return std::tan(c);
    case ProjStereographic:
        return 2.0 * std::tan(c / 2.0);
    case ProjOrthographic:
        return std::sin(c);
    case ProjVerticalPerspective:
        return (Design.VpP - 1.0) * std::sin(c) / (Design.VpP - std::cos(c));
    case ProjAzimuthalEquidistant:
        return c;
    default:
        return 2.0 * std::sin(c / 2.0);
    }
}

/// The greatest scale, in any direction, up to a distance of so many degrees.
double GreatestScale(std::int16_t projNum, double degrees) {
    double most = 1.0;
    constexpr double step = 1e-4;
    for (double c = 0.5; c <= degrees; c += 0.5) {
        const double radians = c * Radian;
        const double radial = (Rho(projNum, radians) - Rho(projNum, radians - step)) / step;
        most = std::max({most, std::fabs(radial), Rho(projNum, radians) / std::sin(radians)});
    }
    return most;
}

class RandomLinesOnDiscs : public RandomLinesTest {
protected:
    static double Relative(std::int32_t lon) {
        const std::int32_t relative = lon - Design.LonWestSec;
        return static_cast<double>(relative < 0 ? relative + SecPerCircle : relative) / SecPerDegree;
    }
    static bool Inside(TruePlace place) {
        return FromCentre(static_cast<double>(place.lat) / SecPerDegree, Relative(place.lon)) <=
               Design.RangeSec;
    }
    /// Draws one segment. Returns whether it ought to leave a stroke.
    bool DrawSegment(const Disc& disc, TruePlace from, TruePlace to) {
        recorder.points.clear();
        surface.Forget();
        Draw({from, to});
        const double lonStep = Relative(to.lon) - Relative(from.lon);
        const double dLon = std::min(std::fabs(lonStep), 360.0 - std::fabs(lonStep));
        const double degrees = std::hypot((to.lat - from.lat) / 3600.0, dLon);
        // Westward over the seam opposite the centre, the cut is looked for on the segment's mirror
        // image, which need not meet the circle.
        const bool mirrored = lonStep > 180.0;
        const double factor = mirrored ? 3.0 : 1.0;
        const double reach = disc.range <= 90.0 ? disc.range : disc.range + degrees / 2.0 * factor;
        const double longest =
            degrees * Radian * factor * GreatestScale(disc.projNum, std::min(reach, 175.0));
        for (const PlottedPoint& point : recorder.points) {
            const double distance = FromCentre(point.lat, point.lon);
            EXPECT_LE(distance, Design.RangeSec + 1.0);
            const bool given = IsPlace(point, from) || IsPlace(point, to);
            EXPECT_TRUE(given || mirrored || std::fabs(distance - Design.RangeSec) < 1.0)
                << point << " is neither an end nor on the circle";
        }
        for (const PlottedStroke& stroke : recorder.Strokes()) {
            EXPECT_LE(PixelLength(stroke), longest * PixelsPerUnit() * 1.01 + 0.1)
                << stroke.from << " to " << stroke.to;
        }
        for (const RecordedSegment& segment : surface.Segments()) {
            EXPECT_LE(std::hypot(segment.to.x - segment.from.x, segment.to.y - segment.from.y),
                      longest * PixelsPerUnit() * 1.01 + 2.0);
        }
        return Inside(from) || Inside(to);
    }
    static bool IsPlace(const PlottedPoint& point, TruePlace place) {
        return point.lat == static_cast<double>(place.lat) / SecPerDegree && point.lon == Relative(place.lon);
    }
};

TEST_F(RandomLinesOnDiscs, SegmentsMeetTheCircleAndNoneRunsAcrossTheMap) {
    const Disc discs[] = {
        {ProjGnomonic, 40, 0, 60, false},
        {ProjGnomonic, -90, 30, 45, false},
        {ProjStereographic, 40, -100, 120, false},
        {ProjStereographic, 90, 0, 60, false},
        {ProjStereographic, -20, 175, 100, false},
        {ProjOrthographic, 40, 0, 60, false},
        {ProjOrthographic, 0, 180, 90, true},
        {ProjOrthographic, 65, -170, 90, true},
        {ProjVerticalPerspective, 10, 20, 40, true},
        {ProjAzimuthalEquidistant, 40, 0, 150, false},
        {ProjAzimuthalEquidistant, 90, 45, 170, false},
        {ProjAzimuthalEqualArea, 0, -160, 89, false},
        {ProjAzimuthalEqualArea, -35, 100, 150, false},
    };
    for (Disc disc : discs) {
        SCOPED_TRACE(testing::Message() << disc);
        Circle(disc.projNum, disc.lat, disc.lon, disc.range);
        disc.range =
            static_cast<double>(Design.RangeSec) / SecPerDegree; // a perspective's follows from its height
        RandomLines lines(20.0);
        int strokes = 0;
        int expected = 0;
        for (int i = 0; i < LinesPerMap / 4 && !HasFailure(); ++i) {
            const std::vector<TruePlace> line = lines.Next();
            for (std::size_t k = 1; k < line.size() && !HasFailure(); ++k) {
                expected += DrawSegment(disc, line[k - 1], line[k]) ? 1 : 0;
                strokes += static_cast<int>(recorder.Strokes().size());
            }
        }
        EXPECT_GT(expected, 100);
        if (!disc.toHorizon) {
            EXPECT_EQ(strokes, expected);
        }
        EXPECT_TRUE(machine.boxes.asked.empty()) << machine.boxes.asked.front();
    }
}

} // namespace
} // namespace quelmont

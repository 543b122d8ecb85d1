#include "graticule/grid_check.h"

#include "core/map_design.h"
#include "graticule/grid_density.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"
#include "projection/projection_table.h"
#include "projection/reference_projection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <string>
#include <vector>

/// The graticule of a few thousand designs, vertex by vertex: each lies where PROJ has it, on its
/// parallel or meridian, inside the map; lines cover what they should and nothing else; no chord
/// leaves its curve.

namespace quelmont {
namespace {

constexpr double Degree = std::numbers::pi / 180.0;

/// Degrees within which a cut meets its circle: latitudes come from an arc sine and longitudes from
/// an arc tangent, which lose half of the digits where a line only touches the circle. 1e-5 degrees
/// are a metre. The range of a perspective is rounded to the second. Of a centre next to a pole the cosine
/// stands below everything: there it is a hundred metres.
double OnCircle() {
    return 90.0 - std::fabs(Design.LatCentral) < 0.1   ? 1e-3
           : Design.ProjNum == ProjVerticalPerspective ? 1.5e-4
                                                       : 1e-5;
}

std::string DefinitionOfDesign() {
    const double std1 = Design.StdParNorth;
    const double std2 = Design.StdParSouth;
    const double lat0 = Design.LatCentral;
    switch (Design.ProjNum) {
    case ProjMercator:
        return Definition("merc");
    case ProjEquirectangular:
        return Definition("eqc", {{"lat_ts", std1}});
    case ProjCylindricalEqualArea:
        return Definition("cea", {{"lat_ts", std1}});
    case ProjHammer:
        return Definition("hammer");
    case ProjMollweide:
    case ProjInterruptedMollweide:
        return Definition("moll");
    case ProjRobinson:
        return Definition("robin");
    case ProjEquidistantConic:
        return Definition("eqdc", {{"lat_1", std1}, {"lat_2", std2}, {"lat_0", lat0}});
    case ProjConformalConic:
        return Definition("lcc", {{"lat_1", std1}, {"lat_2", std2}, {"lat_0", lat0}});
    case ProjAlbers:
        return Definition("aea", {{"lat_1", std1}, {"lat_2", std2}, {"lat_0", lat0}});
    case ProjGnomonic:
        return Definition("gnom", {{"lat_0", lat0}});
    case ProjStereographic:
        return Definition("stere", {{"lat_0", lat0}});
    case ProjOrthographic:
        return Definition("ortho", {{"lat_0", lat0}});
    case ProjVerticalPerspective:
        return Definition("nsper", {{"lat_0", lat0}, {"h", Design.VpDistanceKm / 6371.0}});
    case ProjAzimuthalEquidistant:
        return Definition("aeqd", {{"lat_0", lat0}});
    default:
        return Definition("laea", {{"lat_0", lat0}});
    }
}

/// What one map's lines are held against.
class GridCheck {
public:
    explicit GridCheck(const LineRecorder& recorder_)
        : recorder(recorder_), azimuthal(IsAzimuthal(Design.ProjNum)), reference(DefinitionOfDesign()),
          range(Design.RangeSec / 3600.0), size(Design.MapXMax - Design.MapXMin) {
        // x of the cylinders counts from the western boundary.
        if (Design.ProjNum == ProjMercator || Design.ProjNum == ProjEquirectangular ||
            Design.ProjNum == ProjCylindricalEqualArea) {
            const double factor =
                Design.ProjNum == ProjMercator ? 1.0 : std::cos(Design.StdParNorth * Degree);
            shift = -Design.LonCentral * Degree * factor;
        }
        shift -= Design.LobeOffsetX;
    }

    void CheckAll() {
        for (const auto& line : recorder.lines) {
            if (IsCircle(line)) {
                continue;
            }
            CheckLine(line);
            if (testing::Test::HasFailure()) {
                return;
            }
        }
        for (const WrittenPoint& dot : DotsOfGrid()) {
            CheckVertex(dot);
            EXPECT_TRUE(OnParallel(dot) || OnMeridian(dot)) << dot.lat << ", " << dot.lon;
        }
        if (Design.GridTypeCode == 3) {
            CheckCoverage();
        }
    }

    double WorstChord() const { return worstChord; }
    std::size_t Circles() const { return circles; }

private:
    /// The boundary circle is laid on the map without latitude and longitude: what stood in the cell
    /// before stays there.
    bool IsCircle(const std::vector<WrittenPoint>& line) {
        const bool circle = azimuthal && line.size() == 121 &&
                            std::all_of(line.begin(), line.end(), [&](const WrittenPoint& at) {
                                return at.lat == line[0].lat && at.lon == line[0].lon &&
                                       std::fabs(std::hypot(at.x, at.y) - Design.MapXMax) < 1e-12;
                            });
        circles += circle ? 1 : 0;
        return circle;
    }

    std::vector<WrittenPoint> DotsOfGrid() const {
        const bool withCircle = azimuthal && Design.GridTypeCode == 4 && recorder.dots.size() >= 121;
        return {recorder.dots.begin() + (withCircle ? 121 : 0), recorder.dots.end()};
    }

    double Distance(double lat, double lon) const {
        return DistanceDegrees({Design.LatCentral, 0.0}, {lat, lon - Design.LonCentral});
    }
    /// Degrees from the antipode of the map's centre, exact where 180 less the distance is not.
    double FromAntipode(double lat, double lon) const {
        return DistanceDegrees({-Design.LatCentral, 180.0}, {lat, lon - Design.LonCentral});
    }

    static double OffMultiple(double value, double from, double step) {
        const double multiple = (value - from) / step;
        return std::fabs(multiple - std::round(multiple)) * step;
    }
    static bool OnParallel(const WrittenPoint& at) {
        return OffMultiple(at.lat, Design.LatSouth, Design.LatGrid) < 1e-9;
    }
    static bool OnMeridian(const WrittenPoint& at) {
        return OffMultiple(at.lon, Design.LonZero, Design.LonGrid) < 1e-9;
    }

    void CheckVertex(const WrittenPoint& at) {
        if (Design.ProjNum == ProjUtm) {
            EXPECT_EQ(at.x, at.lon);
            EXPECT_EQ(at.y, at.lat);
            return;
        }
        if (azimuthal) {
            EXPECT_LE(Distance(at.lat, at.lon), range + OnCircle()) << at.lat << ", " << at.lon;
        } else {
            EXPECT_TRUE(at.lat >= Design.LatSouth && at.lat <= Design.LatNorth && at.lon >= Design.LonZero &&
                        at.lon <= Design.LonSpan)
                << at.lat << ", " << at.lon;
        }
        CheckPlace(at);
    }

    /// A latitude past the pole is one on the other side.
    static WrittenPoint OnTheGlobe(WrittenPoint at) {
        if (at.lat > 90.0) {
            at.lat = 180.0 - at.lat;
            at.lon = at.lon >= 180.0 ? at.lon - 180.0 : at.lon + 180.0;
        }
        return at;
    }

    void CheckPlace(const WrittenPoint& written) const {
        const WrittenPoint at = OnTheGlobe(written);
        const double x = at.x + shift;
        const double dLon = at.lon - Design.LonCentral;
        const double fromAntipode = FromAntipode(at.lat, at.lon) * Degree;
        if (azimuthal && fromAntipode < 0.5 * Degree) {
            // The scale there has 1 + cosC below it, half the square of that angle, which is off by
            // 3e-16: the inverse would say nothing.
            const double rim = Design.ProjNum == ProjAzimuthalEquidistant ? std::numbers::pi : 2.0;
            const double tolerance = 1e-13 + 2e-15 / (fromAntipode * fromAntipode);
            EXPECT_NEAR(std::hypot(x, at.y), rim, tolerance * rim + fromAntipode) << at.lat << ", " << at.lon;
            return;
        }
        auto found = reference.Inverse(x, at.y);
        if (!found) {
            // On the outline itself, where a rounding decides; seen from a kilometre high the horizon
            // is a difference of 1e-4, off by 1e-12 of it.
            found = reference.Inverse(x * (1.0 - 1e-11), at.y * (1.0 - 1e-11));
        }
        // PROJ 9.1 gives longitude 0 back for some points at right angles to the central meridian.
        const bool rightAngle = azimuthal && std::fabs(dLon) == 90.0;
        if (!found || rightAngle) {
            const auto expected = reference.Forward(at.lat, dLon);
            if (!expected) {
                EXPECT_NEAR(std::hypot(x, at.y), Design.MapXMax, 1e-9) << at.lat << ", " << at.lon;
                return; // a horizon, behind which PROJ sees it
            }
            const double tolerance = Design.ProjNum == ProjAzimuthalEquidistant ? 2e-8
                                     : Design.ProjNum == ProjRobinson           ? 0.008
                                                                                : 1e-11;
            EXPECT_NEAR(x, expected->x, tolerance) << at.lat << ", " << at.lon;
            EXPECT_NEAR(at.y, expected->y, tolerance) << at.lat << ", " << at.lon;
            return;
        }
        EXPECT_LE(DistanceDegrees(*found, {at.lat, dLon}), InverseTolerance(at.lat))
            << at.lat << ", " << at.lon;
    }

    /// Degrees. At a pole the latitude, at the rim of the orthographic the distance is an arc sine of
    /// 1, whose last digit is worth 1e-8 radians, at the rim of a low perspective more; the equidistant takes
    /// what is within 1e-8 radians of a right angle for one. The Robinson by PROJ follows the table,
    /// ours a polynomial.
    static double InverseTolerance(double lat) {
        switch (Design.ProjNum) {
        case ProjRobinson:
            return 0.6;
        case ProjOrthographic:
            return 3e-6;
        case ProjVerticalPerspective:
            return 5e-4;
        default:
            return std::fabs(lat) > 89.9 ? 3e-6 : 1e-6;
        }
    }

    void CheckLine(const std::vector<WrittenPoint>& line) {
        const bool parallel = std::all_of(line.begin(), line.end(),
                                          [&](const WrittenPoint& at) { return at.lat == line[0].lat; });
        const bool meridian = std::all_of(line.begin(), line.end(),
                                          [&](const WrittenPoint& at) { return at.lon == line[0].lon; });
        SCOPED_TRACE(testing::Message()
                     << (parallel ? "parallel " : "meridian ") << (parallel ? line[0].lat : line[0].lon));
        ASSERT_TRUE(parallel || meridian);
        if (parallel && !meridian) {
            EXPECT_TRUE(OnParallel(line[0]));
        } else {
            EXPECT_TRUE(OnMeridian(line[0]) || (parallel && OnParallel(line[0])));
        }
        for (const WrittenPoint& at : line) {
            CheckVertex(at);
        }
        for (std::size_t i = 1; i < line.size(); ++i) {
            CheckChord(line[i - 1], line[i]);
        }
        CheckEnd(line.front(), line);
        CheckEnd(line.back(), line);
        Cover(line, parallel && !meridian);
    }

    /// The middle of the curve between two vertices must not lie off the chord between them.
    void CheckChord(const WrittenPoint& a, const WrittenPoint& b) {
        if (Design.ProjNum == ProjUtm || Design.ProjNum == ProjRobinson) {
            return;
        }
        const auto middle =
            reference.Forward((a.lat + b.lat) / 2.0, (a.lon + b.lon) / 2.0 - Design.LonCentral);
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        if (!middle || length == 0.0) {
            return;
        }
        const double mx = middle->x - shift - a.x;
        const double my = middle->y - a.y;
        const double along = std::clamp((mx * (b.x - a.x) + my * (b.y - a.y)) / (length * length), 0.0, 1.0);
        const double off = std::hypot(mx - along * (b.x - a.x), my - along * (b.y - a.y)) / size;
        worstChord = std::max(worstChord, off);
        EXPECT_LE(off, LargestSagitta())
            << "of the map's width, from " << a.lat << ", " << a.lon << " to " << b.lat << ", " << b.lon;
    }

    void CheckEnd(const WrittenPoint& end, const std::vector<WrittenPoint>& line) const {
        if (!azimuthal) {
            const bool onBound = end.lat == Design.LatNorth || end.lat == Design.LatSouth ||
                                 end.lon == Design.LonZero || end.lon == Design.LonSpan;
            EXPECT_TRUE(onBound) << end.lat << ", " << end.lon;
            return;
        }
        const double distance = Distance(end.lat, end.lon);
        // A pole; the straight meridian of a map about the south pole runs 6e-5 degrees past it.
        const bool pole = std::fabs(std::cos(end.lat * Degree)) < 1e-6 * 2.0;
        const bool seam = end.lon == 0.0 || end.lon == 360.0; // where a whole parallel closes
        const bool antipode = range == 180.0 && FromAntipode(end.lat, end.lon) < 0.001;
        EXPECT_TRUE(std::fabs(distance - range) < OnCircle() + LastStep(line) || pole || seam || antipode)
            << "ends at " << end.lat << ", " << end.lon << ", " << distance << " degrees from the centre";
    }

    /// The horizon of a perspective is rounded to the second, so that a line's end may lie behind it
    /// and be passed over: then the line ends one step before.
    static double LastStep(const std::vector<WrittenPoint>& line) {
        if (Design.ProjNum != ProjVerticalPerspective) {
            return 0.0;
        }
        double longest = std::min(Design.LatGrid, Design.LonGrid);
        for (std::size_t i = 1; i < line.size(); ++i) {
            longest = std::max(
                longest, DistanceDegrees({line[i - 1].lat, line[i - 1].lon}, {line[i].lat, line[i].lon}));
        }
        return longest;
    }

    // ---- What the lines cover.

    struct Interval {
        double from, to;
    };

    /// Parallels by latitude, meridians by longitude, both in thousandths of a second.
    static std::int64_t Key(double degrees) { return std::llround(degrees * 3.6e6); }

    void Cover(const std::vector<WrittenPoint>& line, bool parallel) {
        for (std::size_t i = 1; i < line.size(); ++i) {
            const WrittenPoint& a = line[i - 1];
            const WrittenPoint& b = line[i];
            if (parallel) {
                parallels[Key(a.lat)].push_back({std::min(a.lon, b.lon), std::max(a.lon, b.lon)});
            } else {
                const auto lat = [&](double value) {
                    return azimuthal && value > 180.0 ? 180.0 - value : value;
                };
                meridians[MeridianKey(a.lon)].push_back(
                    {std::min(lat(a.lat), lat(b.lat)), std::max(lat(a.lat), lat(b.lat))});
            }
        }
    }

    std::int64_t MeridianKey(double lon) const { return azimuthal && lon == 360.0 ? 0 : Key(lon); }

    static bool Covered(const std::map<std::int64_t, std::vector<Interval>>& lines, std::int64_t key,
                        double at) {
        const auto found = lines.find(key);
        return found != lines.end() &&
               std::any_of(found->second.begin(), found->second.end(), [&](const Interval& piece) {
                   return piece.from <= at + 1e-9 && at <= piece.to + 1e-9;
               });
    }

    /// Points along every line that the design calls for, some degrees apart and off the vertices.
    void CheckCoverage() const {
        constexpr int Samples = 48;
        const int latLines = Design.LatGridCount;
        const int lonLines = Design.LonGridCount;
        for (int i = 0; i <= latLines; ++i) {
            const double lat = i == latLines ? Design.LatNorth : Design.LatSouth + Design.LatGrid * i;
            const bool pole = azimuthal && std::fabs(lat) == 90.0;
            for (int k = 0; k < Samples && !pole; ++k) {
                const double lon = Design.LonZero + (Design.LonSpan - Design.LonZero) * (k + 0.37) / Samples;
                CheckCovered(parallels, Key(lat), lon, lat, lon);
            }
        }
        for (int i = 0; i <= lonLines; ++i) {
            const double lon = Design.LonZero + Design.LonGrid * i;
            for (int k = 0; k < Samples; ++k) {
                const double lat =
                    Design.LatSouth + (Design.LatNorth - Design.LatSouth) * (k + 0.37) / Samples;
                CheckCovered(meridians, MeridianKey(lon), lat, lat, lon);
            }
        }
    }

    void CheckCovered(const std::map<std::int64_t, std::vector<Interval>>& lines, std::int64_t key, double at,
                      double lat, double lon) const {
        if (!azimuthal) {
            EXPECT_TRUE(Covered(lines, key, at)) << lat << ", " << lon;
            return;
        }
        const double distance = Distance(lat, lon);
        if (std::fabs(distance - range) < 2.0 * OnCircle() + LastStep({})) {
            return;
        }
        // On a hemisphere about the equator the meridians at right angles are the circle.
        const bool rim =
            range == 90.0 && Design.LatCentral == 0.0 && std::fabs(lon - Design.LonCentral) == 90.0;
        if (!rim && Covered(lines, key, at) != (distance < range)) {
            EXPECT_TRUE(distance < range && ShortPiece(lat, lon, &lines == &parallels))
                << lat << ", " << lon << ", " << distance << " degrees away, is "
                << (distance < range ? "not drawn" : "drawn");
        }
    }

    /// A piece of a line less than half a step long is a dot: its steps are rounded to none.
    bool ShortPiece(double lat, double lon, bool parallel) const {
        const double half =
            (parallel ? Design.LonGrid / LonPointsPerMark() : Design.LatGrid / LatPointsPerMark()) / 2.0;
        const auto ends = [&](double step) {
            for (int k = 1; k <= 20000; ++k) { // a hole may be two seconds wide
                const double there = step * k / 20000.0;
                const double atLat = lat + (parallel ? 0.0 : there);
                const double atLon = lon + (parallel ? there : 0.0);
                if (std::fabs(atLat) > 90.0 || Distance(atLat, atLon) > range) {
                    return true;
                }
            }
            return false;
        };
        return ends(half) && ends(-half);
    }

    /// Chords of coarse grids leave their curves by at most a hundredth of the map's width; seen from
    /// a kilometre high, where the whole map is but a twentieth of the grid's spacing, by two.
    static double LargestSagitta() { return Design.ProjNum == ProjVerticalPerspective ? 0.02 : 0.01; }

    const LineRecorder& recorder;
    bool azimuthal;
    ReferenceProjection reference;
    double range;
    double size;
    double shift = 0.0;
    double worstChord = 0.0;
    std::size_t circles = 0;
    std::map<std::int64_t, std::vector<Interval>> parallels, meridians;
};

} // namespace

double CheckGrid(const LineRecorder& recorder) {
    GridCheck check(recorder);
    check.CheckAll();
    return check.WorstChord();
}

} // namespace quelmont

#include "core/map_design.h"
#include "graticule/grid_density.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_pass.h"
#include "graticule/grid_texts.h"
#include "graticule/lobes.h"
#include "projection/projection_table.h"
#include "projection/reference_projection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <map>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

/// The graticule of a few thousand designs, vertex by vertex: each lies where PROJ has it, on its
/// parallel or meridian, inside the map; lines cover what they should and nothing else; no chord
/// leaves its curve.

namespace quelmont {
namespace {

using testing::IsEmpty;

using Codes = std::initializer_list<std::int16_t>;

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

class GridSweep : public GridTest {
protected:
    /// Plots a prepared design and checks it. False when something failed.
    bool Check() {
        PlotRecorded();
        GridCheck check(recorder);
        check.CheckAll();
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
        worstChord = std::max(worstChord, check.WorstChord());
        ++maps;
        return !HasFailure();
    }

    /// Seconds of arc.
    bool CheckDisc(std::int16_t projNum, std::int16_t code, std::int32_t centre, std::int32_t range,
                   std::int32_t latGrid, std::int32_t lonGrid) {
        SCOPED_TRACE(testing::Message() << "ProjNum " << projNum << ", grid type " << code << ", centre "
                                        << LatitudeText(centre) << ", range " << ArcText(range) << ", grid "
                                        << ArcText(latGrid) << " by " << ArcText(lonGrid));
        StartDesign(projNum);
        Design.GridTypeCode = code;
        Design.GridText[GridTextLatSpacing] = ArcText(latGrid);
        Design.GridText[GridTextLonSpacing] = ArcText(lonGrid);
        Design.GridText[GridTextCentralLat] = LatitudeText(centre);
        Design.GridText[GridTextRange] = ArcText(range);
        PrepareDesign();
        return Check();
    }

    bool CheckPerspective(std::int16_t code, std::int32_t centre, int height, std::int32_t latGrid,
                          std::int32_t lonGrid) {
        SCOPED_TRACE(testing::Message()
                     << "height " << height << ", grid type " << code << ", centre " << LatitudeText(centre));
        StartDesign(ProjVerticalPerspective);
        Design.GridTypeCode = code;
        Design.GridText[GridTextLatSpacing] = ArcText(latGrid);
        Design.GridText[GridTextLonSpacing] = ArcText(lonGrid);
        Design.GridText[GridTextCentralLat] = LatitudeText(centre);
        Design.GridText[GridTextHeight] = std::to_string(height);
        PrepareDesign();
        return Check();
    }

    int maps = 0;
    double worstChord = 0.0;
};

constexpr std::int32_t D = 3600;

/// Poles, whole degrees and odd seconds.
const std::vector<std::int32_t> Centres = {
    0,       1 * D,   -1 * D,     5 * D,       -5 * D,     10 * D,  -17 * D, 23 * D, -30 * D,
    36 * D,  40 * D,  -45 * D,    54 * D,      60 * D,     -60 * D, 75 * D,  80 * D, -85 * D,
    86 * D,  -86 * D, 89 * D,     -89 * D,     90 * D,     -90 * D, 1,       -1800,  135018,
    -121932, 185318,  90 * D - 1, 60 - 90 * D, 45 * D + 7, -323100};

/// Less than half a degree from a pole and less than one from the whole globe the quadratic for the
/// cut has no digits left: its coefficients reach 1e10, and the hole is a second wide.
bool BeyondDoubles(std::int32_t centre, std::int32_t range) {
    return 90 * D - std::abs(centre) < 1800 && centre % (90 * D) != 0 && range > 179 * D && range < 180 * D;
}

struct Spacing {
    std::int32_t lat, lon;
};
constexpr std::array<Spacing, 6> Spacings = {
    {{30 * D, 45 * D}, {10 * D, 10 * D}, {15 * D, 20 * D}, {9 * D, 9 * D}, {90 * D, 90 * D}, {4 * D, 5 * D}}};

const std::vector<std::int32_t> WideRanges = {
    5 * D,   30 * D,  60 * D,  89 * D,  90 * D,  91 * D, 100 * D, 120 * D, 150 * D,     170 * D,
    171 * D, 175 * D, 178 * D, 179 * D, 180 * D, 36061,  400001,  647999,  180 * D - 60};

TEST_F(GridSweep, WholeGlobeProjectionsOfEveryCentreAndRange) {
    std::size_t turn = 0;
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (const std::int32_t centre : Centres) {
            for (const std::int32_t range : WideRanges) {
                if (BeyondDoubles(centre, range)) {
                    continue;
                }
                const Spacing& spacing = Spacings[turn++ % Spacings.size()];
                ASSERT_TRUE(CheckDisc(projNum, 3, centre, range, spacing.lat, spacing.lon));
            }
        }
    }
    EXPECT_GT(maps, 1000);
}

TEST_F(GridSweep, HalfGlobeProjectionsOfEveryCentreAndRange) {
    std::size_t turn = 0;
    for (const std::int16_t projNum : {ProjGnomonic, ProjStereographic, ProjOrthographic}) {
        for (const std::int32_t centre : Centres) {
            for (const std::int32_t range : {36061, 10 * D, 45 * D, 60 * D, 75 * D, 89 * D, 90 * D}) {
                if (projNum == ProjGnomonic && range == 90 * D) {
                    continue;
                }
                const Spacing& spacing = Spacings[turn++ % Spacings.size()];
                ASSERT_TRUE(CheckDisc(projNum, 3, centre, range, spacing.lat, spacing.lon));
            }
        }
    }
    EXPECT_GT(maps, 600);
}

TEST_F(GridSweep, PerspectivesOfEveryCentreAndHeight) {
    std::size_t turn = 0;
    for (const std::int32_t centre : Centres) {
        for (const int height : {1, 100, 400, 6371, 35840, 384400}) {
            const Spacing& spacing = Spacings[turn++ % Spacings.size()];
            ASSERT_TRUE(CheckPerspective(3, centre, height, spacing.lat, spacing.lon));
        }
    }
}

TEST_F(GridSweep, BoundariesAndDotsOfDiscs) {
    for (const std::int16_t code : Codes{1, 2, 4, 5}) {
        for (const std::int32_t centre : {0, 40 * D, -33 * D, 86 * D, -89 * D, 90 * D, -90 * D, 185318}) {
            for (const std::int16_t projNum : Codes{26, 27, 28, 30, 31}) {
                for (const std::int32_t range :
                     {45 * D, 60 * D, 90 * D, 120 * D, 171 * D, 178 * D, 180 * D}) {
                    if (range > (projNum >= 30 ? 180 : projNum == 26 ? 89 : 90) * D) {
                        continue;
                    }
                    ASSERT_TRUE(CheckDisc(projNum, code, centre, range, 15 * D, 20 * D));
                    const bool circle = code == 1 || code == 2;
                    EXPECT_EQ(recorder.lines.size(), circle ? 1U : 0U);
                    EXPECT_EQ(recorder.dots.empty(), code == 2 || code == 5);
                }
            }
            ASSERT_TRUE(CheckPerspective(code, centre, 6371, 15 * D, 20 * D));
        }
    }
}

// ---- Named maps.

/// Every meridian but the two through the centre is walked in pieces that end at a pole.
class MeridiansByAzimuth : public GridSweep {
protected:
    void ExpectMeridiansEndAt(std::initializer_list<double> poles) {
        int found = 0;
        for (const auto& line : recorder.lines) {
            const bool meridian =
                line.size() > 2 && line.front().lon == line.back().lon && line.front().lat != line.back().lat;
            const double d = meridian ? std::fabs(line[0].lon - 180.0) : 0.0;
            if (meridian && d != 0.0 && d != 180.0) {
                ++found;
                EXPECT_TRUE(std::any_of(poles.begin(), poles.end(), [&](double pole) {
                    return line.front().lat == pole || line.back().lat == pole;
                })) << line[0].lon;
                // One way only: latitudes rise or fall all along.
                const double sign = line.back().lat > line.front().lat ? 1.0 : -1.0;
                for (std::size_t i = 1; i < line.size(); ++i) {
                    EXPECT_GE(sign * (line[i].lat - line[i - 1].lat), 0.0) << line[0].lon;
                }
            }
        }
        EXPECT_GE(found, 10);
    }
};

TEST_F(MeridiansByAzimuth, PieceToTheSouthPoleEndsThere) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        ASSERT_TRUE(CheckDisc(projNum, 3, -89 * D, 175 * D, 10 * D, 10 * D));
        ExpectMeridiansEndAt({-90.0});
    }
}

TEST_F(MeridiansByAzimuth, PieceToTheNorthPoleEndsThere) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        ASSERT_TRUE(CheckDisc(projNum, 3, 89 * D, 175 * D, 10 * D, 10 * D));
        ExpectMeridiansEndAt({90.0});
    }
}

TEST_F(MeridiansByAzimuth, MapAboutTheEquatorHasPiecesToBothPoles) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (const std::int32_t spacing : {1 * D, 3 * D, 9 * D, 10 * D}) {
            ASSERT_TRUE(CheckDisc(projNum, 3, 0, 171 * D, spacing, spacing));
        }
        ASSERT_TRUE(CheckDisc(projNum, 3, 0, 171 * D, 10 * D, 10 * D));
        // The meridians 10 degrees from the edge pass the hole of 9; the edge itself is cut in two.
        int pieces = 0;
        for (const auto& line : recorder.lines) {
            pieces +=
                line.front().lon == 0.0 && line.back().lon == 0.0 && line.front().lat != line.back().lat;
        }
        EXPECT_EQ(pieces, 2);
    }
}

/// Both poles lie inside the circle, and the meridians opposite the centre pass the hole between
/// them: they have two pieces.
TEST_F(MeridiansByAzimuth, HoleBesideAPoleCutsMeridiansInTwo) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (const int sign : {1, -1}) {
            ASSERT_TRUE(CheckDisc(projNum, 3, sign * 86 * D, 178 * D, 10 * D, 10 * D));
            ExpectMeridiansEndAt({90.0, -90.0});
            int pieces = 0;
            for (const auto& line : recorder.lines) {
                pieces += line.front().lon == 10.0 && line.back().lon == 10.0 && line.size() > 2;
            }
            EXPECT_EQ(pieces, 2);
        }
    }
}

/// Rounding puts the cosine of the antipode to either side of -1. A parallel of each centre's own
/// antipode must not jump across the map.
TEST_F(GridSweep, AntipodeOfEveryWholeDegreeBreaksItsLines) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (int centre = -90; centre <= 90; ++centre) {
            // A spacing that makes the antipode's latitude a parallel.
            const int spacing = centre % 10 == 0 ? 10 : centre % 6 == 0 ? 6 : centre % 5 == 0 ? 5 : 0;
            if (spacing != 0) {
                ASSERT_TRUE(CheckDisc(projNum, 3, centre * D, 180 * D, spacing * D, 30 * D));
            }
        }
        for (const int centre : {1, -7, 13, 23, -41, 67, 83, -89}) {
            ASSERT_TRUE(CheckDisc(projNum, 3, centre * D, 180 * D, 1 * D, 90 * D));
        }
    }
}

/// A circle that only touches a pole meets the meridians at right angles there and nowhere else.
TEST_F(GridSweep, CircleThroughAPole) {
    for (const std::int16_t projNum : Codes{26, 27, 28, 30, 31}) {
        for (int centre = 5; centre <= 85; ++centre) {
            for (const int sign : {1, -1}) {
                ASSERT_TRUE(CheckDisc(projNum, 3, sign * centre * D, (90 - centre) * D, 15 * D, 15 * D));
            }
        }
    }
}

// ---- Maps between parallels and meridians.

/// Seconds of arc.
struct Bounds {
    std::int32_t north, south, west, east, lat, lon;
};

constexpr std::array<Bounds, 10> Rectangles = {{
    {80 * D, -80 * D, -180 * D, 180 * D, 20 * D, 30 * D},
    {60 * D, 10 * D, 170 * D, -120 * D, 10 * D, 5 * D},
    {-20 * D, -50 * D, 20 * D, 20 * D, 15 * D, 90 * D},
    {70 * D, 0, -10 * D, 60 * D, 7 * D, 7 * D},
    {0, -45 * D, -75 * D, -30 * D, 45 * D, 45 * D},
    {50 * D, 40 * D, 5 * D, 20 * D, 1 * D, 1 * D},
    {37 * D + 1800, 36 * D, -123 * D, -121 * D, 900, 1200},
    {10 * D + 5, 10 * D, 0, 7, 5, 7},
    {85 * D, 25 * D, 0, 0, 12 * D, 24 * D},
    {89 * D, 30 * D, -179 * D, 179 * D, 59 * D, 2 * D},
}};

TEST_F(GridSweep, MapsBetweenParallelsAndMeridians) {
    for (const std::int16_t projNum : Codes{1, 2, 6, 7, 8, 12, 16, 40, 41, 42}) {
        for (const Bounds& bounds : Rectangles) {
            for (const std::int16_t code : Codes{1, 2, 3, 4, 5}) {
                SCOPED_TRACE(testing::Message()
                             << "ProjNum " << projNum << ", grid type " << code << ", "
                             << LatitudeText(bounds.north) << " to " << LatitudeText(bounds.south) << ", "
                             << LongitudeText(bounds.west) << " to " << LongitudeText(bounds.east));
                StartDesign(projNum);
                Design.GridTypeCode = code;
                Design.GridText = {LatitudeText(bounds.north), LatitudeText(bounds.south),
                                   ArcText(bounds.lat),        LongitudeText(bounds.west),
                                   LongitudeText(bounds.east), ArcText(bounds.lon)};
                PrepareDesign();
                ASSERT_FALSE(Design.ProjOffMap);
                ASSERT_TRUE(Check());
                const bool lines = code <= 3;
                EXPECT_EQ(recorder.lines.empty(), !lines);
                EXPECT_EQ(recorder.dots.empty(), code != 1 && code != 4);
                const int dotted = code == 1 || code == 4 ? Design.LatGridCount + Design.LonGridCount + 2 : 0;
                EXPECT_EQ(recorder.breaks, static_cast<int>(recorder.lines.size()) + dotted);
            }
        }
    }
}

TEST_F(GridSweep, WholeWorldsWithTheirPoles) {
    for (const std::int16_t projNum : Codes{2, 6, 8, 12, 16, 40, 41, 42}) {
        for (const Spacing& spacing : Spacings) {
            SCOPED_TRACE(testing::Message() << "ProjNum " << projNum << ", grid " << ArcText(spacing.lat));
            if (180 * D % spacing.lat != 0) {
                continue;
            }
            StartDesign(projNum);
            Design.GridText[GridTextLatSpacing] = ArcText(spacing.lat);
            Design.GridText[GridTextLonSpacing] = ArcText(spacing.lon);
            PrepareDesign();
            ASSERT_TRUE(Check());
        }
    }
}

TEST_F(GridSweep, LobesOfTheInterruptedMollweide) {
    StartDesign(ProjInterruptedMollweide);
    Design.GridText[GridTextLatSpacing] = "010    00    00";
    Design.GridText[GridTextWest] = "020    00    00    E";
    Design.GridText[GridTextEast] = "020    00    00    E";
    Design.GridText[GridTextLonSpacing] = "010    00    00";
    Design.LobeText = {"2", "2"};
    const std::array<int, 8> boundaries = {20, -100, 0, 20, 20, 140, -70, 20};
    for (std::size_t i = 0; i < boundaries.size(); ++i) {
        Design.LobeLonText[i] = LongitudeText(boundaries[i] * D);
        Design.LobeLonDeg[i] = boundaries[i];
    }
    PrepareDesign();
    LonInterruptOffset();
    for (const std::int16_t lobe : Codes{1, 2, 3, 5, 6, 7}) {
        SCOPED_TRACE(testing::Message() << "lobe " << lobe);
        CalcGraticuleInterrupt(lobe);
        Design.LobeOffsetX = Design.LobeCentral[static_cast<std::size_t>(lobe)];
        ASSERT_TRUE(Check());
        EXPECT_EQ(recorder.lines.size(), 10U + static_cast<std::size_t>(Design.LonGridCount) + 1U);
    }
}

TEST_F(GridSweep, MetresOfUtm) {
    for (const std::int16_t code : Codes{1, 2, 3, 4, 5}) {
        Start(ProjUtm, code);
        ASSERT_TRUE(Check());
        const std::array<std::size_t, 5> lines = {4, 4, 13, 0, 0};
        EXPECT_EQ(recorder.lines.size(), lines.at(static_cast<std::size_t>(code - 1)));
    }
}

// ---- Slow: every centre and range. QUELMONT_EXHAUSTIVE=1 runs it.

TEST_F(GridSweep, ExhaustiveDiscs) {
    if (std::getenv("QUELMONT_EXHAUSTIVE") == nullptr) {
        GTEST_SKIP() << "set QUELMONT_EXHAUSTIVE to run it";
    }
    std::size_t turn = 0;
    for (const std::int16_t projNum : Codes{26, 27, 28, 30, 31}) {
        const std::int32_t widest = (projNum >= 30 ? 180 : projNum == 26 ? 89 : 90) * D;
        for (std::int32_t centre = -90 * D; centre <= 90 * D; centre += 1800) {
            for (std::int32_t range = D; range <= widest; range += D) {
                const Spacing& spacing = Spacings[turn++ % 5];
                ASSERT_TRUE(CheckDisc(projNum, 3, centre, range, spacing.lat, spacing.lon));
            }
        }
    }
}

} // namespace
} // namespace quelmont

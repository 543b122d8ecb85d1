#include "core/map_design.h"
#include "projection/map_fields.h"
#include "projection/param_select.h"
#include "projection/projection_table.h"
#include "projection/reference_projection.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <ostream>
#include <vector>

/// Every projection on the unit sphere, over dense grids of points and of designs, beside PROJ. The
/// transverse Mercator on its spheroids has a test of its own, and so has the Robinson, which is
/// defined by a table.

namespace quelmont {
namespace {

using testing::IsEmpty;

/// Degrees; a rectangle by its bounds and standard parallels, or a disc by its centre.
struct MapOfSweep {
    double north = 90.0, south = -90.0, span = 360.0;
    double std1 = 0.0, std2 = 0.0;
    double centre = 0.0;
    double height = 0.0; ///< of a view point, kilometres
};

struct ForwardCase {
    const char* name;
    std::int16_t projNum;
    std::vector<MapOfSweep> maps;
    std::string (*definition)(const MapOfSweep& map);
    /// Beyond what a formula needs at an ordinary point, see Tolerance.
    double (*extra)(const MapOfSweep& map, const PlanePoint& expected);
    /// Furthest distance from the centre that is compared, degrees; discs only.
    double furthest = 180.0;
};

void PrintTo(const ForwardCase& forward, std::ostream* stream) { *stream << forward.name; }

constexpr double Degree = std::numbers::pi / 180.0;

double NoExtra(const MapOfSweep&, const PlanePoint&) { return 0.0; }

/// How far the map moves for one radian of latitude or longitude, the larger of the two.
double Stretch(const ReferenceProjection& reference, const GlobePoint& point, const PlanePoint& place) {
    constexpr double Step = 1e-4;
    const auto moved = [&](double dLat, double dLon) {
        auto there = reference.Forward(point.lat + dLat, point.lon + dLon);
        if (!there) {
            there = reference.Forward(point.lat - dLat, point.lon - dLon);
        }
        return there ? std::hypot(there->x - place.x, there->y - place.y) / (Step * Degree) : 0.0;
    };
    return std::max(moved(point.lat > 0.0 ? -Step : Step, 0.0), moved(0.0, point.lon > 0.0 ? -Step : Step));
}

/// Our angles carry a Pi of fifteen digits, which is 1e-15 of itself too small, so that half a
/// circle is off by 3.3e-15 radians: a place is off by that times the stretch of the map there.
/// The constants of the map are off by as much, in proportion. The rest is for the roundings of a
/// dozen operations, 1.1e-16 each, in both programs.
double Tolerance(double stretch, const PlanePoint& place) {
    return 8e-15 * (1.0 + stretch + std::fabs(place.x) + std::fabs(place.y));
}

// ---- Maps between parallels and meridians.

std::vector<MapOfSweep> Cylinders(double pole) {
    return {{pole, -pole, 360.0},
            {pole, -pole, 360.0, 45.0},
            {60.0, 10.0, 75.5, 35.0},
            {-10.0, -50.0, 20.0, 30.0},
            {20.25, 20.0, 0.5, 89.0}};
}

std::vector<MapOfSweep> Ovals(double pole) {
    return {{pole, -pole, 360.0}, {75.0, 0.0, 100.0}, {-20.0, -20.5, 0.25}, {pole, 89.0, 359.0}};
}

/// The proposals for six maps, and odd parallels: as far apart as can be, close together, nearly
/// symmetric about the equator, one beyond the map.
std::vector<MapOfSweep> Cones() {
    return {{89.5, -89.5, 360.0, 60.0, 0.0},    {80.0, 10.0, 130.0, 68.3, 21.6},
            {-5.0, -75.0, 200.0, -16.6, -63.3}, {50.0, 25.0, 60.0, 45.0, 29.5},
            {55.0, 45.0, 20.0, 50.1, 50.0},     {89.0, -60.0, 360.0, 89.0, -10.0},
            {60.0, -60.0, 180.0, 30.0, -29.0},  {85.0, 60.0, 360.0, 20.0, 80.0},
            {-30.0, -60.0, 90.0, 10.0, -80.0}};
}

std::string Cone(const char* name, const MapOfSweep& map) {
    return Definition(name,
                      {{"lat_1", map.std1}, {"lat_2", map.std2}, {"lat_0", (map.north + map.south) / 2.0}});
}

/// The cosine of the latitude of true scale is off by 1e-15 of the angle, 1.6e-15 times the tangent
/// in proportion.
double TrueScaleExtra(const MapOfSweep& map, const PlanePoint& expected) {
    return 2e-15 * std::tan(map.std1 * Degree) * (1.0 + std::hypot(expected.x, expected.y));
}

/// The same for the steeper parallel; and of parallels close together or nearly symmetric the cone
/// constant is a small difference of two cosines or sines, which puts the apex far away, so that y
/// is a small difference of radii.
double ConeExtra(const MapOfSweep& map, const PlanePoint& expected) {
    const double cos1 = std::cos(map.std1 * Degree);
    const double cos2 = std::cos(map.std2 * Degree);
    const double size = 1.0 + std::hypot(expected.x, expected.y);
    return 4e-15 / std::max(1e-3, std::fabs(cos1 - cos2)) + 2e-15 / std::min(cos1, cos2) * size;
}

/// The target pi sin(phi) of the auxiliary angle inherits the error of Pi, 3.3e-15, and the slope of
/// 2 theta + sin(2 theta) is 4 cos^2(theta). PROJ ends its iteration at a change of 1e-7, with an
/// error of 1e-14 tan(theta) at most, which is less, except next to the poles, where it converges
/// slowly: they are left out here.
double MollweideExtra(const MapOfSweep&, const PlanePoint& expected) {
    const double cosSquared = 1.0 - expected.y * expected.y / 2.0;
    return 4e-15 / std::max(1e-9, cosSquared);
}

// ---- Discs.

std::vector<MapOfSweep> Discs(std::initializer_list<double> heights = {0.0}) {
    std::vector<MapOfSweep> maps;
    for (const double height : heights) {
        for (const double centre :
             {90.0, -90.0, 89.0, 60.0, 40.0, 37.783333, 1.0, 0.0, -0.5, -33.25, -86.0}) {
            MapOfSweep map;
            map.centre = centre;
            map.height = height;
            maps.push_back(map);
        }
    }
    return maps;
}

/// The equidistant radius is an arc cosine over a sine, and the scale of the equal-area projection
/// has 1 + cos(c) below its root: 4e-16 of the cosine become 1/s + c/s^2 times as much, where s is
/// the sine of the distance from the centre.
double RadiusExtra(double s, double c) { return s < 1e-6 ? 1e-9 : 8e-16 * (1.0 / s + c / (s * s)); }

double EquidistantExtra(const MapOfSweep&, const PlanePoint& expected) {
    const double c = std::hypot(expected.x, expected.y);
    return c == 0.0 ? 0.0 : RadiusExtra(std::sin(c), c);
}

double EqualAreaExtra(const MapOfSweep&, const PlanePoint& expected) {
    const double c = 2.0 * std::asin(std::min(1.0, std::hypot(expected.x, expected.y) / 2.0));
    return c == 0.0 ? 0.0 : RadiusExtra(std::sin(c), c);
}

std::vector<ForwardCase> Cases() {
    using Map = const MapOfSweep&;
    const auto merc = [](Map) { return Definition("merc"); };
    const auto eqc = [](Map map) { return Definition("eqc", {{"lat_ts", map.std1}}); };
    const auto cea = [](Map map) { return Definition("cea", {{"lat_ts", map.std1}}); };
    const auto hammer = [](Map) { return Definition("hammer"); };
    const auto moll = [](Map) { return Definition("moll"); };
    const auto eqdc = [](Map map) { return Cone("eqdc", map); };
    const auto lcc = [](Map map) { return Cone("lcc", map); };
    const auto aea = [](Map map) { return Cone("aea", map); };
    const auto gnom = [](Map map) { return Definition("gnom", {{"lat_0", map.centre}}); };
    const auto stere = [](Map map) { return Definition("stere", {{"lat_0", map.centre}}); };
    const auto ortho = [](Map map) { return Definition("ortho", {{"lat_0", map.centre}}); };
    const auto nsper = [](Map map) {
        return Definition("nsper", {{"lat_0", map.centre}, {"h", map.height / 6371.0}});
    };
    const auto aeqd = [](Map map) { return Definition("aeqd", {{"lat_0", map.centre}}); };
    const auto laea = [](Map map) { return Definition("laea", {{"lat_0", map.centre}}); };
    return {
        {"Mercator", ProjMercator, Cylinders(89.5), merc, NoExtra},
        {"Equirectangular", ProjEquirectangular, Cylinders(90.0), eqc, TrueScaleExtra},
        {"CylindricalEqualArea", ProjCylindricalEqualArea, Cylinders(90.0), cea, TrueScaleExtra},
        {"Hammer", ProjHammer, Ovals(90.0), hammer, NoExtra},
        {"Mollweide", ProjMollweide, Ovals(89.9), moll, MollweideExtra},
        {"InterruptedMollweide", ProjInterruptedMollweide, Ovals(89.9), moll, MollweideExtra},
        {"EquidistantConic", ProjEquidistantConic, Cones(), eqdc, ConeExtra},
        {"ConformalConic", ProjConformalConic, Cones(), lcc, ConeExtra},
        {"Albers", ProjAlbers, Cones(), aea, ConeExtra},
        {"Gnomonic", ProjGnomonic, Discs(), gnom, NoExtra, 85.0},
        {"Stereographic", ProjStereographic, Discs(), stere, NoExtra, 150.0},
        {"Orthographic", ProjOrthographic, Discs(), ortho, NoExtra, 90.0},
        {"VerticalPerspective", ProjVerticalPerspective, Discs({1.0, 400.0, 35840.0, 1e7}), nsper, NoExtra},
        {"AzimuthalEquidistant", ProjAzimuthalEquidistant, Discs(), aeqd, EquidistantExtra, 179.5},
        {"AzimuthalEqualArea", ProjAzimuthalEqualArea, Discs(), laea, EqualAreaExtra, 179.5}};
}

class ForwardAgainstProj : public testing::TestWithParam<ForwardCase> {
protected:
    void Prepare(const MapOfSweep& map) const {
        const std::int16_t projNum = GetParam().projNum;
        if (IsAzimuthal(projNum)) {
            SetDisc(projNum, map.centre, 60.0);
            Design.VpDistanceKm = map.height;
        } else {
            SetRectangle(projNum, map.north, map.south, map.span);
            Design.StdParNorth = map.std1;
            Design.StdParSouth = map.std2;
        }
        ParamSelect();
        // x of the cylinders is counted from the western boundary.
        fromWest =
            projNum == ProjMercator || projNum == ProjEquirectangular || projNum == ProjCylindricalEqualArea;
    }

    /// The furthest distance from the centre at which a point has a place, degrees.
    double Horizon() const {
        switch (GetParam().projNum) {
        case ProjGnomonic:
        case ProjOrthographic:
            return 90.0;
        case ProjVerticalPerspective:
            return std::acos(1.0 / Design.VpP) / Degree;
        default:
            return 180.0;
        }
    }

    /// One point of the relative frame. Returns how far beyond its tolerance it lies, at most 1 if it
    /// does not; 0 when it was not compared.
    double Compare(const ReferenceProjection& reference, const MapOfSweep& map, double lat, double lon) {
        ProjectAt(lat, lon);
        const GlobePoint point{lat, lon - Design.LonCentral};
        if (IsAzimuthal(GetParam().projNum)) {
            const double distance = DistanceDegrees({map.centre, 0.0}, point);
            // At the horizon itself rounding decides.
            if (std::fabs(distance - Horizon()) > 1e-5) {
                EXPECT_EQ(Design.ProjOffMap, distance > Horizon()) << distance << " degrees away";
            }
            if (Design.ProjOffMap || distance > std::min(Horizon() - 1e-5, GetParam().furthest)) {
                return 0.0;
            }
        }
        EXPECT_FALSE(Design.ProjOffMap);
        auto expected = reference.Forward(point.lat, point.lon);
        if (!expected) {
            ADD_FAILURE() << "no place by PROJ";
            return 0.0;
        }
        const double tolerance =
            Tolerance(Stretch(reference, point, *expected), *expected) + GetParam().extra(map, *expected);
        if (fromWest) {
            expected->x -= reference.Forward(0.0, -Design.LonCentral)->x;
        }
        ++compared;
        const double error =
            std::max(std::fabs(Design.ProjX - expected->x), std::fabs(Design.ProjY - expected->y));
        return error / tolerance;
    }

    void SweepMap(const MapOfSweep& map) {
        Prepare(map);
        const ReferenceProjection reference(GetParam().definition(map));
        constexpr int Steps = 72;
        for (int i = 0; i <= Steps; ++i) {
            for (int j = 0; j <= Steps; ++j) {
                const double lat = Design.LatSouth + (Design.LatNorth - Design.LatSouth) * i / Steps;
                const double lon = Design.LonSpan * j / Steps;
                SCOPED_TRACE(testing::Message() << "latitude " << lat << ", relative longitude " << lon);
                const double excess = Compare(reference, map, lat, lon);
                ASSERT_LE(excess, 1.0) << "error, in tolerances";
                worst = std::max(worst, excess);
            }
        }
    }

    FreshProgram program;
    bool mutable fromWest = false;
    int compared = 0;
    double worst = 0.0;
};

TEST_P(ForwardAgainstProj, AgreesOverDenseGrids) {
    for (const MapOfSweep& map : GetParam().maps) {
        SCOPED_TRACE(GetParam().definition(map));
        ASSERT_NO_FATAL_FAILURE(SweepMap(map));
    }
    EXPECT_THAT(program.machine.boxes.asked, IsEmpty());
    EXPECT_GT(compared, 5000);
    RecordProperty("worst_of_tolerance", std::to_string(worst));
}

INSTANTIATE_TEST_SUITE_P(Projections, ForwardAgainstProj, testing::ValuesIn(Cases()),
                         [](const auto& forward) { return std::string(forward.param.name); });

} // namespace
} // namespace quelmont

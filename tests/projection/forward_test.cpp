#include "core/map_design.h"
#include "projection/map_fields.h"
#include "projection/map_sweep.h"
#include "projection/projection_table.h"
#include "projection/reference_projection.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <ostream>
#include <utility>
#include <vector>

/// Every projection on the unit sphere, over dense grids of points and of designs, beside PROJ. The
/// transverse Mercator on its spheroids has a test of its own, and so has the Robinson, which is
/// defined by a table.

namespace quelmont {
namespace {

using testing::IsEmpty;

struct ForwardCase {
    SweptProjection swept;
    /// Beyond what a formula needs at an ordinary point, see Tolerance.
    double (*extra)(const MapOfSweep& map, const ReferencePlace& expected);
    /// Furthest distance from the centre that is compared, degrees; discs only.
    double furthest = 180.0;
};

void PrintTo(const ForwardCase& forward, std::ostream* stream) { PrintTo(forward.swept, stream); }

constexpr double Degree = std::numbers::pi / 180.0;

double NoExtra(const MapOfSweep&, const ReferencePlace&) { return 0.0; }

/// How far the map moves for one radian of latitude or longitude, the larger of the two.
double Stretch(const ReferenceProjection& reference, const GlobePoint& point, const ReferencePlace& place) {
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
double Tolerance(double stretch, const ReferencePlace& place) {
    return 8e-15 * (1.0 + stretch + std::fabs(place.x) + std::fabs(place.y));
}

/// The cosine of the latitude of true scale is off by 1e-15 of the angle, 1.6e-15 times the tangent
/// in proportion.
double TrueScaleExtra(const MapOfSweep& map, const ReferencePlace& expected) {
    return 2e-15 * std::tan(map.std1 * Degree) * (1.0 + std::hypot(expected.x, expected.y));
}

/// The same for the steeper parallel; and of parallels close together or nearly symmetric the cone
/// constant is a small difference of two cosines or sines, which puts the apex far away, so that y
/// is a small difference of radii.
double ConeExtra(const MapOfSweep& map, const ReferencePlace& expected) {
    const double cos1 = std::cos(map.std1 * Degree);
    const double cos2 = std::cos(map.std2 * Degree);
    const double size = 1.0 + std::hypot(expected.x, expected.y);
    return 4e-15 / std::max(1e-3, std::fabs(cos1 - cos2)) + 2e-15 / std::min(cos1, cos2) * size;
}

/// The target pi sin(phi) of the auxiliary angle inherits the error of Pi, 3.3e-15, and the slope of
/// 2 theta + sin(2 theta) is 4 cos^2(theta). PROJ ends its iteration at a change of 1e-7, with an
/// error of 1e-14 tan(theta) at most, which is less, except next to the poles, where it converges
/// slowly: they are left out here.
double MollweideExtra(const MapOfSweep&, const ReferencePlace& expected) {
    const double cosSquared = 1.0 - expected.y * expected.y / 2.0;
    return 4e-15 / std::max(1e-9, cosSquared);
}

// ---- Discs.

/// The equidistant radius is an arc cosine over a sine, and the scale of the equal-area projection
/// has 1 + cos(c) below its root: 4e-16 of the cosine become 1/s + c/s^2 times as much, where s is
/// the sine of the distance from the centre.
double RadiusExtra(double s, double c) { return s < 1e-6 ? 1e-9 : 8e-16 * (1.0 / s + c / (s * s)); }

double EquidistantExtra(const MapOfSweep&, const ReferencePlace& expected) {
    const double c = std::hypot(expected.x, expected.y);
    return c == 0.0 ? 0.0 : RadiusExtra(std::sin(c), c);
}

double EqualAreaExtra(const MapOfSweep&, const ReferencePlace& expected) {
    const double c = 2.0 * std::asin(std::min(1.0, std::hypot(expected.x, expected.y) / 2.0));
    return c == 0.0 ? 0.0 : RadiusExtra(std::sin(c), c);
}

std::vector<ForwardCase> Cases() {
    const auto byNumber = [](SweptProjection swept) -> ForwardCase {
        switch (swept.projNum) {
        case ProjEquirectangular:
        case ProjCylindricalEqualArea:
            return {std::move(swept), TrueScaleExtra};
        case ProjMollweide:
        case ProjInterruptedMollweide:
            return {std::move(swept), MollweideExtra};
        case ProjEquidistantConic:
        case ProjConformalConic:
        case ProjAlbers:
            return {std::move(swept), ConeExtra};
        case ProjGnomonic:
            return {std::move(swept), NoExtra, 85.0};
        case ProjStereographic:
            return {std::move(swept), NoExtra, 150.0};
        case ProjOrthographic:
            return {std::move(swept), NoExtra, 90.0};
        case ProjAzimuthalEquidistant:
            return {std::move(swept), EquidistantExtra, 179.5};
        case ProjAzimuthalEqualArea:
            return {std::move(swept), EqualAreaExtra, 179.5};
        default:
            return {std::move(swept), NoExtra};
        }
    };
    std::vector<ForwardCase> cases;
    for (SweptProjection& swept : SweptProjections()) {
        cases.push_back(byNumber(std::move(swept)));
    }
    return cases;
}

class ForwardAgainstProj : public testing::TestWithParam<ForwardCase> {
protected:
    /// The furthest distance from the centre at which a point has a place, degrees.
    double Horizon() const {
        switch (GetParam().swept.projNum) {
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
        if (IsAzimuthal(GetParam().swept.projNum)) {
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
        if (CountsFromWest(GetParam().swept.projNum)) {
            expected->x -= reference.Forward(0.0, -Design.LonCentral)->x;
        }
        ++compared;
        const double error =
            std::max(std::fabs(Design.ProjX - expected->x), std::fabs(Design.ProjY - expected->y));
        return error / tolerance;
    }

    void SweepMap(const MapOfSweep& map) {
        SetSweptMap(GetParam().swept.projNum, map);
        const ReferenceProjection reference(GetParam().swept.definition(map));
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
    int compared = 0;
    double worst = 0.0;
};

TEST_P(ForwardAgainstProj, AgreesOverDenseGrids) {
    for (const MapOfSweep& map : GetParam().swept.maps) {
        SCOPED_TRACE(GetParam().swept.definition(map));
        ASSERT_NO_FATAL_FAILURE(SweepMap(map));
    }
    EXPECT_THAT(program.machine.boxes.asked, IsEmpty());
    EXPECT_GT(compared, 5000);
    RecordProperty("worst_of_tolerance", std::to_string(worst));
}

INSTANTIATE_TEST_SUITE_P(Projections, ForwardAgainstProj, testing::ValuesIn(Cases()),
                         [](const auto& forward) { return std::string(forward.param.swept.name); });

} // namespace
} // namespace quelmont

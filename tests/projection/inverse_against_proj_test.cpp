#include "core/map_design.h"
#include "projection/map_sweep.h"
#include "projection/reference_projection.h"
#include "projection/round_trip.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

/// The inverses beside PROJ's, over grids of the plane.

namespace quelmont {
namespace {

constexpr double Degree = std::numbers::pi / 180.0;

class InverseAgainstProj : public testing::TestWithParam<SweptProjection> {
protected:
    void Compare(const ReferenceProjection& reference, double x, double y) {
        const auto found = InverseSelect(x, y);
        const double shift =
            CountsFromWest(GetParam().projNum) ? reference.Forward(0.0, -Design.LonCentral)->x : 0.0;
        const auto expected = reference.Inverse(x + shift, y);
        // PROJ winds longitudes beyond half a turn round the globe: then its forward does not come back.
        const auto back = expected ? reference.Forward(expected->lat, expected->lon) : std::nullopt;
        const bool has = back && Apart(*back, {x + shift, y}) < 1e-7;
        if (!found || !has) {
            EXPECT_EQ(found.has_value(), has) << x << ", " << y;
            return;
        }
        if (LeastScale(*found) <= 0.01) {
            return;
        }
        ++compared;
        // PROJ takes the arc sine of a sine near 1 at the poles, which keeps half of the digits.
        const double polar = 2e-14 / std::max(2e-8, std::cos(expected->lat * Degree));
        EXPECT_LE(DistanceDegrees({found->lat, found->lon - Design.LonCentral}, *expected), 1e-9 + polar)
            << x << ", " << y << ": " << found->lat << ", " << found->lon;
    }

    FreshProgram program;
    int compared = 0;
};

/// A box a fifth larger than the map in each direction.
TEST_P(InverseAgainstProj, AgreesOverDenseGridsOfThePlane) {
    constexpr int steps = 40;
    for (const MapOfSweep& map : GetParam().maps) {
        SCOPED_TRACE(GetParam().definition(map));
        SetSweptMap(GetParam().projNum, map);
        const ReferenceProjection reference(GetParam().definition(map));
        const double width = Design.MapXMax - Design.MapXMin;
        const double height = Design.MapYMax - Design.MapYMin;
        for (int i = 0; i <= steps; ++i) {
            for (int j = 0; j <= steps; ++j) {
                Compare(reference, Design.MapXMin + width * (1.4 * i / steps - 0.2003),
                        Design.MapYMin + height * (1.4 * j / steps - 0.2001));
            }
        }
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(compared, 3000);
}

INSTANTIATE_TEST_SUITE_P(Projections, InverseAgainstProj, testing::ValuesIn(SweptProjections()),
                         [](const auto& swept) { return std::string(swept.param.name); });

} // namespace
} // namespace quelmont

#include "core/map_design.h"
#include "projection/map_fields.h"
#include "projection/param_select.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quelmont {
namespace {

using Cylinder = FreshProgramTest;

TEST_F(Cylinder, MercatorPutsTheEquatorAtZero) {
    SetRectangle(ProjMercator, 80.0, -80.0, 360.0);
    ProjectAt(0.0, 180.0);
    EXPECT_NEAR(Design.ProjY, 0.0, 2e-15); // half of what Pi is short by
    EXPECT_DOUBLE_EQ(Design.ProjX, Pi);
}

TEST_F(Cylinder, XCountsFromTheWesternBoundary) {
    for (const std::int16_t projNum : {ProjMercator, ProjEquirectangular, ProjCylindricalEqualArea}) {
        SetRectangle(projNum, 50.0, 10.0, 40.0);
        Design.CosStdPar = 0.5;
        const double factor = projNum == ProjMercator ? 1.0 : 0.5;
        ProjectAt(20.0, 0.0);
        EXPECT_EQ(Design.ProjX, 0.0);
        ProjectAt(20.0, 36.0);
        EXPECT_DOUBLE_EQ(Design.ProjX, Pi / 5.0 * factor);
    }
}

TEST_F(Cylinder, WesternBoundaryNeedNotBeZero) {
    for (const std::int16_t projNum : {ProjMercator, ProjEquirectangular, ProjCylindricalEqualArea}) {
        SetRectangle(projNum, 50.0, 10.0, 40.0);
        Design.CosStdPar = 1.0;
        Design.LonZero = 9.0;
        ProjectAt(20.0, 45.0);
        EXPECT_DOUBLE_EQ(Design.ProjX, Pi / 5.0);
    }
}

TEST_F(Cylinder, EqualAreaReachesTheInverseCosineAtThePoles) {
    SetRectangle(ProjCylindricalEqualArea, 90.0, -90.0, 360.0);
    Design.StdParNorth = 60.0;
    ParamSelect();
    ProjectAt(90.0, 0.0);
    EXPECT_NEAR(Design.ProjY, 2.0, 1e-14);
    ProjectAt(-90.0, 0.0);
    EXPECT_NEAR(Design.ProjY, -2.0, 1e-14);
}

/// ln tan(3 pi/8) = ln(1 + sqrt 2).
TEST_F(Cylinder, MercatorAtFortyFiveDegrees) {
    SetRectangle(ProjMercator, 80.0, -80.0, 360.0);
    ProjectAt(45.0, 0.0);
    EXPECT_NEAR(Design.ProjY, std::log(1.0 + std::sqrt(2.0)), 5e-15);
    ProjectAt(-45.0, 0.0);
    EXPECT_NEAR(Design.ProjY, -std::log(1.0 + std::sqrt(2.0)), 5e-15);
}

} // namespace
} // namespace quelmont

#include "core/map_design.h"
#include "projection/map_fields.h"
#include "projection/param_select.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace quelmont {
namespace {

using testing::IsEmpty;

class Conic : public FreshProgramTest {
protected:
    static void Cone(std::int16_t projNum, double north, double south, double p1, double p2) {
        SetRectangle(projNum, north, south, 360.0);
        Design.StdParNorth = p1;
        Design.StdParSouth = p2;
        ParamSelect();
    }
};

TEST_F(Conic, MiddleOfTheMapIsTheOrigin) {
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjConformalConic, ProjAlbers}) {
        Cone(projNum, 60.0, 20.0, 53.0, 27.0);
        ProjectAt(Design.LatCentral, Design.LonCentral);
        EXPECT_EQ(Design.ProjX, 0.0) << projNum;
        EXPECT_NEAR(Design.ProjY, 0.0, 1e-15) << projNum;
    }
}

TEST_F(Conic, ConformalApexIsThePoleOfItsOwnHemisphere) {
    Cone(ProjConformalConic, 80.0, 10.0, 60.0, 20.0);
    ASSERT_GT(Design.ConeConstant, 0.0);
    for (const double lon : {0.0, 100.0, 360.0}) {
        ProjectAt(90.0, lon);
        EXPECT_FALSE(Design.ProjOffMap);
        EXPECT_EQ(Design.ProjX, 0.0);
        EXPECT_EQ(Design.ProjY, Design.ConicRho0);
    }
    Cone(ProjConformalConic, -10.0, -80.0, -20.0, -60.0);
    ASSERT_LT(Design.ConeConstant, 0.0);
    ProjectAt(-90.0, 100.0);
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.ProjX, 0.0);
    EXPECT_EQ(Design.ProjY, Design.ConicRho0);
}

TEST_F(Conic, ConformalPoleAtInfinityIsOffTheMap) {
    for (const bool northern : {true, false}) {
        northern ? Cone(ProjConformalConic, 80.0, 10.0, 60.0, 20.0)
                 : Cone(ProjConformalConic, -10.0, -80.0, -20.0, -60.0);
        Design.ProjX = 5.0;
        Design.ProjY = 6.0;
        ProjectAt(northern ? -90.0 : 90.0, 100.0);
        EXPECT_TRUE(Design.ProjOffMap);
        EXPECT_EQ(Design.ProjX, 5.0);
        EXPECT_EQ(Design.ProjY, 6.0);
        ProjectAt(northern ? 45.0 : -45.0, 100.0);
        EXPECT_FALSE(Design.ProjOffMap) << "the next point is on the map again";
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Conic, BothPolesAreOffACylinder) {
    Cone(ProjConformalConic, 80.0, 10.0, 60.0, 20.0);
    Design.ConeConstant = 0.0;
    for (const double lat : {90.0, -90.0}) {
        ProjectAt(lat, 100.0);
        EXPECT_TRUE(Design.ProjOffMap) << lat;
    }
}

TEST_F(Conic, OnlyTheConformalLosesAPole) {
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjAlbers}) {
        Cone(projNum, 80.0, 10.0, 60.0, 20.0);
        for (const double lat : {90.0, -90.0}) {
            ProjectAt(lat, 100.0);
            EXPECT_FALSE(Design.ProjOffMap) << projNum << ", " << lat;
        }
    }
}

/// Half a turn on the map is 180/n degrees from the central meridian: both sides meet the line
/// through the apex, beyond it.
TEST_F(Conic, SidesOfTheCutMeetTheLineThroughTheApex) {
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjConformalConic, ProjAlbers}) {
        Cone(projNum, 80.0, 60.0, 75.0, 65.0);
        const double half = 180.0 / Design.ConeConstant;
        ProjectAt(70.0, Design.LonCentral);
        const double nearSide = Design.ProjY - Design.ConicRho0;
        for (const double side : {1.0, -1.0}) {
            ProjectAt(70.0, Design.LonCentral + side * half);
            EXPECT_NEAR(Design.ProjX, 0.0, 1e-14) << projNum;
            EXPECT_NEAR(Design.ProjY - Design.ConicRho0, -nearSide, 1e-14) << projNum;
        }
    }
}

/// Both standard parallels keep their length: the circumference of a parallel at cos(phi) is
/// 2 pi n rho.
TEST_F(Conic, StandardParallelsAreTrueToScale) {
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjConformalConic, ProjAlbers}) {
        for (const double sign : {1.0, -1.0}) {
            sign > 0.0 ? Cone(projNum, 70.0, 10.0, 60.0, 20.0) : Cone(projNum, -10.0, -70.0, -20.0, -60.0);
            for (const double lat : {60.0, 20.0}) {
                ProjectAt(sign * lat, Design.LonCentral);
                const double rho = Design.ConicRho0 - Design.ProjY;
                EXPECT_NEAR(rho * Design.ConeConstant, std::cos(lat * DegToRad), 1e-14) << projNum;
            }
        }
    }
}

} // namespace
} // namespace quelmont

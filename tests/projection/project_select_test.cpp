#include "projection/project_select.h"

#include "core/map_design.h"
#include "projection/map_fields.h"
#include "projection/param_select.h"
#include "projection/projection_table.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace quelmont {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

AskedBox Failure(const char* description) { return {"Error in ProjectSelect", description}; }

using ProjectSelectTest = FreshProgramTest;

TEST_F(ProjectSelectTest, UnknownNumberLeavesTheCoordinates) {
    for (const int projNum : {0, 3, 5, 9, 18, 25, 32, 39, 43, -1, 32767}) {
        Design.ProjNum = static_cast<std::int16_t>(projNum);
        Design.ProjX = 0.25;
        Design.ProjY = -0.5;
        Design.ProjOffMap = true;
        ProjectAt(10.0, 20.0);
        EXPECT_EQ(Design.ProjX, 0.25) << projNum;
        EXPECT_EQ(Design.ProjY, -0.5) << projNum;
        EXPECT_FALSE(Design.ProjOffMap) << "it is cleared on entry";
    }
}

TEST_F(ProjectSelectTest, EveryProjectionClearsTheFlagForAPointOnTheMap) {
    for (const ProjectionEntry& entry : Projections) {
        SetDisc(entry.ProjNum, 40.0, 60.0);
        Design.VpDistanceKm = 35840.0;
        Design.StdParNorth = 45.0;
        ParamSelect();
        Design.ProjOffMap = true;
        ProjectAt(45.0, 185.0);
        EXPECT_FALSE(Design.ProjOffMap) << entry.ProjName;
    }
}

TEST_F(ProjectSelectTest, InputsAreNotChanged) {
    for (const ProjectionEntry& entry : Projections) {
        SetDisc(entry.ProjNum, 40.0, 60.0);
        Design.StdParNorth = 45.0;
        ParamSelect();
        ProjectAt(45.0, 185.0);
        EXPECT_EQ(Design.ProjLat, 45.0) << entry.ProjName;
        EXPECT_EQ(Design.ProjLon, 185.0) << entry.ProjName;
    }
}

/// Each constant that a formula reads, so that the sweep below can poison it.
const std::array<double MapDesign::*, 14> Constants = {
    &MapDesign::LonZero,      &MapDesign::LonCentral,    &MapDesign::CosStdPar, &MapDesign::LobeOffsetX,
    &MapDesign::ConeConstant, &MapDesign::ConicG,        &MapDesign::ConicF,    &MapDesign::ConicC,
    &MapDesign::ConicRho0,    &MapDesign::CosLatCentral, &MapDesign::VpP,       &MapDesign::SinLatCentral,
    &MapDesign::ProjLat,      &MapDesign::ProjLon};

TEST_F(ProjectSelectTest, NoPoisonReachesTheCoordinates) {
    const std::array poisons = {0.0,   -0.0,   1.0,   -1.0,     1e-308,    5e-324,
                                1e308, -1e308, 180.0, Infinity, -Infinity, NotANumber};
    for (const ProjectionEntry& entry : Projections) {
        if (entry.ProjNum == ProjUtm) {
            continue; // it copies
        }
        SetDisc(entry.ProjNum, 40.0, 60.0);
        Design.VpDistanceKm = 35840.0;
        Design.StdParNorth = 45.0;
        Design.StdParSouth = 20.0;
        ParamSelect();
        const MapDesign sound = Design;
        for (double MapDesign::*constant : Constants) {
            for (const double poison : poisons) {
                for (const double lat : {-90.0, -45.0, 0.0, 45.0, 90.0, 90.0 - 1e-14}) {
                    Design = sound;
                    Design.ProjLat = lat;
                    Design.ProjLon = 200.0;
                    Design.*constant = poison;
                    ProjectSelect();
                    ASSERT_TRUE(std::isfinite(Design.ProjX) && std::isfinite(Design.ProjY))
                        << entry.ProjName << ", latitude " << lat << ", " << poison;
                }
            }
        }
    }
    for (const AskedBox& box : machine.boxes.asked) {
        EXPECT_THAT(box, testing::AnyOf(Failure("Error: Division by zero"), Failure("Error: Overflow"),
                                        Failure("Error: Invalid procedure call or argument")));
    }
}

// ---- What a failure says, and what it leaves.

TEST_F(ProjectSelectTest, MercatorHasNoLogarithmAtTheSouthPole) {
    SetRectangle(ProjMercator, 80.0, -80.0, 360.0);
    Design.ProjY = 7.0;
    ProjectAt(-90.0, 180.0);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(Failure("Error: Invalid procedure call or argument")));
    EXPECT_DOUBLE_EQ(Design.ProjX, Pi) << "the statement before it has run";
    EXPECT_EQ(Design.ProjY, 7.0);
    EXPECT_FALSE(Design.ProjOffMap);
}

TEST_F(ProjectSelectTest, OneCoordinateThatOverflowsLeavesTheOther) {
    SetRectangle(ProjMollweide, 90.0, -90.0, 360.0);
    Design.LobeOffsetX = Infinity;
    Design.ProjX = 3.0;
    ProjectAt(90.0, 10.0);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(Failure("Error: Overflow")));
    EXPECT_EQ(Design.ProjX, 3.0);
    EXPECT_DOUBLE_EQ(Design.ProjY, std::sqrt(2.0));
}

TEST_F(ProjectSelectTest, CylindricalEqualAreaDividesByTheCosineOfTrueScale) {
    SetRectangle(ProjCylindricalEqualArea, 90.0, -90.0, 360.0);
    Design.CosStdPar = 0.0;
    Design.ProjY = 2.0;
    ProjectAt(30.0, 90.0);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(Failure("Error: Division by zero")));
    EXPECT_EQ(Design.ProjX, 0.0);
    EXPECT_EQ(Design.ProjY, 2.0);
}

TEST_F(ProjectSelectTest, ConeOfConstantZeroDividesByIt) {
    SetRectangle(ProjAlbers, 80.0, 10.0, 90.0);
    Design.ConeConstant = 0.0;
    Design.ConicC = 1.0;
    Design.ProjX = 2.0;
    Design.ProjY = 3.0;
    ProjectAt(45.0, 90.0);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(Failure("Error: Division by zero")));
    EXPECT_EQ(Design.ProjX, 2.0) << "without a radius there is neither coordinate";
    EXPECT_EQ(Design.ProjY, 3.0);
}

TEST_F(ProjectSelectTest, AlbersHasNoRootBeyondItsPole) {
    SetRectangle(ProjAlbers, 80.0, 10.0, 90.0);
    Design.ConeConstant = 0.5;
    Design.ConicC = 0.5; // the root of 0.5 - sin 45
    ProjectAt(45.0, 90.0);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(Failure("Error: Invalid procedure call or argument")));
}

TEST_F(ProjectSelectTest, HammerHasNoPlaceBehindItself) {
    SetRectangle(ProjHammer, 90.0, -90.0, 360.0);
    Design.LonCentral = -180.0 - 1e-9; // half the difference is more than half a circle off
    ProjectAt(0.0, 180.0);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(Failure("Error: Division by zero")));
}

TEST_F(ProjectSelectTest, MollweideDividesByZeroAHairFromThePole) {
    SetRectangle(ProjMollweide, 90.0, -36.0, 360.0);
    Design.ProjX = 2.0;
    Design.ProjY = 3.0;
    ProjectAt(std::nextafter(90.0, 0.0), 90.0);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(Failure("Error: Division by zero")));
    EXPECT_EQ(Design.ProjX, 2.0);
    EXPECT_EQ(Design.ProjY, 3.0);
}

} // namespace
} // namespace quelmont

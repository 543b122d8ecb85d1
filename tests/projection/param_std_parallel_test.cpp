#include "core/map_design.h"
#include "projection/map_fields.h"
#include "projection/param_std_parallel.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StandardParallels : public FreshProgramTest {
protected:
    static void Propose(std::int16_t projNum, double north, double south) {
        SetRectangle(projNum, north, south, 360.0);
        ParamStdParallel();
    }
};

struct TrueLatitude {
    double north, south, proposed;
};

TEST_F(StandardParallels, OneLatitudeOfTrueScale) {
    // clang-format off
    constexpr std::array<TrueLatitude, 11> rows = {{
        { 90.0, -90.0, 45.0},  // holds the equator: half the further bound
        { 50.0,  10.0, 30.0},  // the middle
        {-10.0, -50.0, 30.0},  // positive in the south too
        { 40.0,   0.0, 20.0},  // the equator as the southern bound counts to the north
        {  0.0, -40.0, 20.0},
        { 30.0, -60.0, 30.0},
        { 60.0, -30.0, 30.0},
        { 20.0, -20.0, 10.0},
        { 90.0,  89.0, 89.5},
        {  1.0,  -2.0,  1.0},
        { -0.5,  -1.5,  1.0},
    }};
    // clang-format on
    for (const std::int16_t projNum : {ProjEquirectangular, ProjCylindricalEqualArea}) {
        for (const TrueLatitude& row : rows) {
            Propose(projNum, row.north, row.south);
            EXPECT_EQ(Design.StdParNorth, row.proposed) << row.north << " to " << row.south;
            EXPECT_EQ(Design.StdParSouth, -row.proposed) << row.north << " to " << row.south;
        }
    }
}

/// Upside down: no rule applies, and the southern parallel mirrors what there was.
TEST_F(StandardParallels, NoRuleLeavesTheLatitudeOfTrueScale) {
    Design.StdParNorth = 33.0;
    Propose(ProjEquirectangular, -10.0, 20.0);
    EXPECT_EQ(Design.StdParNorth, 33.0);
    EXPECT_EQ(Design.StdParSouth, -33.0);
}

TEST_F(StandardParallels, OtherProjectionsHaveTwoASixthInside) {
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjConformalConic, ProjAlbers, ProjMercator}) {
        Propose(projNum, 80.0, 20.0);
        EXPECT_EQ(Design.StdParNorth, 70.0);
        EXPECT_EQ(Design.StdParSouth, 30.0);
        Propose(projNum, -15.0, -75.0);
        EXPECT_EQ(Design.StdParNorth, -25.0);
        EXPECT_EQ(Design.StdParSouth, -65.0);
        Propose(projNum, 90.0, -60.0);
        EXPECT_EQ(Design.StdParNorth, 65.0);
        EXPECT_EQ(Design.StdParSouth, -35.0);
    }
}

TEST_F(StandardParallels, SymmetricMapKeepsTheEquatorInstead) {
    Propose(ProjEquidistantConic, 90.0, -90.0);
    EXPECT_EQ(Design.StdParNorth, 60.0);
    EXPECT_EQ(Design.StdParSouth, 0.0);
    Propose(ProjAlbers, 30.0, -30.0);
    EXPECT_EQ(Design.StdParNorth, 20.0);
    EXPECT_EQ(Design.StdParSouth, 0.0);
}

TEST_F(StandardParallels, TextsFollowTheNumbers) {
    Propose(ProjEquirectangular, 91.0 / 3600.0, -91.0 / 3600.0);
    EXPECT_EQ(Design.StdParNorthText, "00    00    46    N") << "45.5 seconds, ties to even";
    EXPECT_EQ(Design.StdParSouthText, "00    00    46    S");
    EXPECT_THAT(Design.StdParText, ElementsAre(Design.StdParNorthText, Design.StdParSouthText));
    Propose(ProjAlbers, 90.0, -90.0);
    EXPECT_THAT(Design.StdParText, ElementsAre("60    00    00    N", "00    00    00    N"));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

} // namespace
} // namespace quelmont

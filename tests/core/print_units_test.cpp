#include "core/print_units.h"

#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <array>

namespace quelmont {
namespace {

using PrintUnits = FreshProgramTest;

std::array<float*, 8> Lengths() {
    return {&Design.PrintLeft,  &Design.PrintTop,    &Design.PrintWidth, &Design.PrintHeight,
            &Design.ReportLeft, &Design.ReportRight, &Design.ReportTop,  &Design.ReportBottom};
}

TEST_F(PrintUnits, ChangeTakesAllEightLengthsAlong) {
    Design.PrintUnitTwips = InchTwips;
    float length = 1.0F;
    for (float* const field : Lengths()) {
        *field = length++;
    }
    ChangePrintUnit(CentimetreTwips);
    EXPECT_EQ(Design.PrintUnitTwips, 567);
    length = 1.0F;
    for (const float* const field : Lengths()) {
        EXPECT_FLOAT_EQ(*field, length++ * 1440.0F / 567.0F);
    }
}

TEST_F(PrintUnits, ThereAndBackLeavesTheLengths) {
    Design.PrintUnitTwips = InchTwips;
    Design.PrintTop = 0.1647F;
    ChangePrintUnit(CentimetreTwips);
    EXPECT_NEAR(Design.PrintTop, 0.4183, 0.0001);
    ChangePrintUnit(InchTwips);
    EXPECT_FLOAT_EQ(Design.PrintTop, 0.1647F);
}

TEST_F(PrintUnits, SameUnitChangesNothing) {
    Design.PrintUnitTwips = CentimetreTwips;
    Design.PrintWidth = 16.51F;
    ChangePrintUnit(CentimetreTwips);
    EXPECT_EQ(Design.PrintWidth, 16.51F);
}

} // namespace
} // namespace quelmont

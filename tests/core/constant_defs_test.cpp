#include "core/constant_defs.h"

#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

class Defaults : public FreshProgramTest {
protected:
    Defaults() {
        machine.screen.twipsPerPixelX = 7.5F;
        machine.screen.twipsPerPixelY = 10.0F;
        ConstantDefs();
    }
};

TEST_F(Defaults, ProjectionIsTheEquirectangular) {
    EXPECT_EQ(Design.ProjNum, 2);
    EXPECT_EQ(Design.ProjName, "Equirectangular");
    EXPECT_THAT(Design.StdParText, ElementsAre("00    00    00    N", "00    00    00    N"));
    for (const bool accepted : Design.ProjGridSet) {
        EXPECT_FALSE(accepted);
    }
}

TEST_F(Defaults, HorizonOfEachAzimuthalProjection) {
    // Gnomonic, stereographic, orthographic, vertical perspective (not yet known), equidistant,
    // equal-area.
    EXPECT_THAT(Design.HorizonCos, ElementsAre(0.0, -1.0, -1e-08, 0.0, -1.0, -1.0));
}

TEST_F(Defaults, ZoneIsThatOfIrelandAndBritain) {
    EXPECT_EQ(Design.SpheroidName, "Clarke 1866");
    EXPECT_THAT(Design.UtmText,
                ElementsAre("009    00    00    W", "00    00    00    N", "0500000", "00000000", "0.9996",
                            "06200000", "05600000", "00100000", "0300000", "0800000", "0100000"));
}

TEST_F(Defaults, ScreenIsMeasured) {
    EXPECT_EQ(Design.TwipsPerPixelX, 7.5F);
    EXPECT_EQ(Design.TwipsPerPixelY, 10.0F);
    EXPECT_EQ(Design.ScreenPixelsX, 1280);
    EXPECT_EQ(Design.ScreenPixelsY, 1024);
    EXPECT_EQ(Design.FullScreenX, 1280);
    EXPECT_EQ(Design.FullScreenY, 924);
}

TEST_F(Defaults, VersionComesFromTheProgram) { EXPECT_EQ(Design.VersionText, "3.00"); }

TEST_F(Defaults, ColoursCarryTheFlagOfAStoredColour) {
    EXPECT_EQ(Design.BackColorIndex, 15);
    EXPECT_EQ(Design.BackColor, 0x02FFFFFFU) << "white";
    EXPECT_EQ(Design.GridColorIndex, 0);
    EXPECT_EQ(Design.GridColor, 0x02000000U) << "black";
    EXPECT_EQ(Design.GcColorIndex, 9);
    EXPECT_EQ(Design.GcColor, 0x02FF0000U) << "light blue";
    EXPECT_EQ(Design.ScColorIndex, 9);
    EXPECT_EQ(Design.ScColor, 0x02FF0000U);
}

TEST_F(Defaults, WidthsFollowThePixelOfTheScreen) {
    EXPECT_EQ(Design.GridLineWidth, 10.0F);
    EXPECT_EQ(Design.GcLineWidth, 30.0F);
    EXPECT_EQ(Design.ScLineWidth, 30.0F);
    EXPECT_EQ(Design.TextStep, 100.0F);
}

TEST_F(Defaults, GridIsDrawnAsLines) {
    EXPECT_EQ(Design.GridTypeCode, 3);
    EXPECT_EQ(Design.GridTypeText, " All grid points connected by lines");
    EXPECT_EQ(Design.GridOutputCount, 1);
}

TEST_F(Defaults, CirclesHaveTheirPoints) {
    EXPECT_THAT(Design.GcText, ElementsAre("37    47    00    N", "122    26    00    W",
                                           "29    20    00    N", "047    59    00    E"));
    EXPECT_EQ(Design.GcStartLat, 37.7833);
    EXPECT_EQ(Design.GcStartLon, -122.4333);
    EXPECT_EQ(Design.GcEndLat, 29.3333);
    EXPECT_EQ(Design.GcEndLon, 47.9833);
    EXPECT_THAT(Design.ScText, ElementsAre("37    47    00    N", "122    26    00    W", "015    00    00"));
    EXPECT_EQ(Design.ScRadiusDeg, 15.0);
    EXPECT_EQ(Design.ScSymbolCount, 3);
}

TEST_F(Defaults, ExtentAndFitAreThoseOfAUnitSquare) {
    EXPECT_EQ(Design.MapXMin, 0.0);
    EXPECT_EQ(Design.MapXMax, 1.0);
    EXPECT_EQ(Design.MapYMin, 0.0);
    EXPECT_EQ(Design.MapYMax, 1.0);
    EXPECT_EQ(Design.XAxisLength, 1.0);
    EXPECT_EQ(Design.MapReduce, 1.0);
    EXPECT_EQ(Design.LogicalMarginX, 320);
    EXPECT_EQ(Design.LogicalMarginY, 320);
}

TEST_F(Defaults, OutputHasItsLimits) {
    EXPECT_TRUE(Design.LineWidthsScaled);
    EXPECT_EQ(Design.TextScalePercent, 100);
    EXPECT_EQ(Design.MaxChainPoints, 1999);
    EXPECT_EQ(Design.MapFeatureMax, 72);
    EXPECT_EQ(Design.MapFileCount, 1);
    EXPECT_THAT(Design.FontSizeList, ElementsAre(8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 60,
                                                 72, 84, 96, 108, 120, 132, 144));
}

TEST_F(Defaults, PageIsMeasuredInInches) {
    EXPECT_EQ(Design.PrintUnitTwips, 1440);
    EXPECT_EQ(Design.PrintLeft, 1.0);
    EXPECT_EQ(Design.PrintTop, 1.0);
    EXPECT_EQ(Design.PrintWidth, 6.5);
    EXPECT_TRUE(Design.CenterHorizontal);
    EXPECT_TRUE(Design.CenterVertical);
    EXPECT_EQ(Design.ReportLeft, 1.0);
    EXPECT_EQ(Design.ReportRight, 1.0);
    EXPECT_EQ(Design.ReportTop, 1.0);
    EXPECT_EQ(Design.ReportBottom, 1.0);
    EXPECT_EQ(Design.PrinterOrientation, 1) << "portrait";
}

TEST_F(Defaults, EachFontSlotIsArialOfTenPointsInBlack) {
    EXPECT_EQ(Design.FontSlot, 3) << "the slot of texts";
    EXPECT_EQ(Design.Fonts.size(), 5U) << "reports, CGM, labels, texts, grid labels";
    for (const TextLook& look : Design.Fonts) {
        EXPECT_EQ(look.FontName, "Arial");
        EXPECT_EQ(look.FontSize, 10);
        EXPECT_EQ(look.FontColour, 33554432U) << "black, with the flag of a stored colour";
        EXPECT_FALSE(look.FontBold || look.FontItalic || look.FontUnderline || look.FontStrikeout);
    }
}

TEST_F(Defaults, NoTextIsInHand) {
    EXPECT_EQ(Design.CurrentText, "");
    EXPECT_FALSE(Design.TextPending || Design.TextIsEdit || Design.TextToMetafile);
    EXPECT_FALSE(Design.GcDefined || Design.ScDefined);
}

TEST(AngleConstants, AreThoseOfFifteenDigits) {
    EXPECT_EQ(Pi, 3.14159265358979);
    EXPECT_NE(Pi, 3.141592653589793);
    EXPECT_EQ(QuarterPi, Pi / 4.0);
    EXPECT_EQ(DegToRad, Pi / 180.0);
    EXPECT_EQ(HalfDegToRad, Pi / 360.0);
    EXPECT_EQ(SecPerCircle, 360 * 3600);
    EXPECT_EQ(SecPer340, 340 * 3600);
    EXPECT_EQ(SecPerHalfCircle, 180 * 3600);
}

} // namespace
} // namespace quelmont

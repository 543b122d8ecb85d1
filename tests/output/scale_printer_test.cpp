#include "output/print/scale_printer.h"

#include "core/print_units.h"
#include "output/output_state.h"
#include "output/print/page_layout.h"
#include "output/print/printer_params.h"
#include "output/scale_screen.h"
#include "output_fixture.h"
#include "support/run_time_errors.h"
#include "support/scripted_printer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

/// A window of 19200 by 12000 twips, and a map of 4 by 2 projection units.
class PrinterScale : public OutputTest {
protected:
    PrinterScale() {
        machine.window.scaleWidth = 19200.0;
        machine.window.scaleHeight = 12000.0;
        Design.PrintUnitTwips = InchTwips;
        Design.PrintWidth = 6.5F;
        Design.MapXMin = -2.0;
        Design.MapXMax = 2.0;
        Design.MapYMin = -1.0;
        Design.MapYMax = 1.0;
        Design.MapReduce = 1.0;
    }
};

TEST_F(PrinterScale, GivesThePageTheProportionsOfTheWindow) {
    ASSERT_TRUE(ScalePrinter());
    // 6.5 inches of 1440 twips; 12000 / 19200 of that.
    EXPECT_EQ(Design.ClientWidth, 9360);
    EXPECT_EQ(Design.ClientHeight, 5850);
}

TEST_F(PrinterScale, FitsAWideMapToTheWidth) {
    Design.MapReduce = 0.5;
    ASSERT_TRUE(ScalePrinter());
    // 2 / 4 is less than 5850 / 9360. The map takes 4680 of 9360 twips, and half of that in height.
    EXPECT_DOUBLE_EQ(Design.ScreenScaleX, 1170.0);
    EXPECT_DOUBLE_EQ(Design.ScreenScaleY, 1170.0);
    EXPECT_DOUBLE_EQ(Design.ScreenOriginX, 2340.0);
    EXPECT_DOUBLE_EQ(Design.ScreenOriginY, 5850.0 - (5850.0 - 2340.0) / 2.0);
}

TEST_F(PrinterScale, FitsAHighMapToTheHeight) {
    Design.MapYMin = -2.0; // as high as wide
    Design.MapReduce = 0.8;
    ASSERT_TRUE(ScalePrinter());
    EXPECT_DOUBLE_EQ(Design.ScreenScaleX, 5850.0 * 0.8 / 3.0);
    EXPECT_DOUBLE_EQ(Design.ScreenScaleY, 1560.0);
    // The map is 4 units of 1560 twips wide: 6240 of 9360.
    EXPECT_DOUBLE_EQ(Design.ScreenOriginX, 1560.0);
    EXPECT_DOUBLE_EQ(Design.ScreenOriginY, 5265.0);
}

TEST_F(PrinterScale, MeasuresCentimetresToo) {
    Design.PrintUnitTwips = CentimetreTwips;
    Design.PrintWidth = 16.5F;
    ASSERT_TRUE(ScalePrinter());
    // 9355.5 goes to the even neighbour, 5847.5 too.
    EXPECT_EQ(Design.ClientWidth, 9356);
    EXPECT_EQ(Design.ClientHeight, 5848);
}

TEST_F(PrinterScale, IsTakenBackByTheNextScaleScreen) {
    Design.FullScreenX = 1280;
    Design.FullScreenY = 924;
    ScaleScreen();
    const double scale = Design.ScreenScaleX;
    const std::int32_t logicalWidth = Design.LogicalWidth;
    ASSERT_TRUE(ScalePrinter());
    EXPECT_NE(Design.ScreenScaleX, scale);
    EXPECT_EQ(Design.LogicalWidth, logicalWidth) << "files have nothing to do with paper";
    ScaleScreen();
    EXPECT_EQ(Design.ScreenScaleX, scale);
    EXPECT_EQ(Design.ClientWidth, 19185);
}

TEST_F(PrinterScale, FailsForAMapWithoutAWidth) {
    Design.PrintWidth = 0.0F;
    EXPECT_FALSE(ScalePrinter());
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Error in ScalePrinter", "Error: Division by zero"}));
}

TEST_F(PrinterScale, BoxOfTheMapIsCountedFromThePrintableArea) {
    ScriptedPrinter printer;
    printer.dotsPerInch = 600;
    printer.stripMillimetres = 6.0; // 142 dots
    Design.PrintLeft = 1.0F;
    Design.PrintTop = 2.0F;
    Design.PrintWidth = 6.4F;
    ASSERT_TRUE(GetPrinterParams(printer));
    ASSERT_TRUE(ScalePrinter());
    const MapOnPage box = BoxOfMapOnPage();
    EXPECT_EQ(box.left, 600 - 142);
    EXPECT_EQ(box.top, 1200 - 142);
    EXPECT_EQ(box.right, 600 + 3840 - 142);
    // 9216 twips of width make 5760 of height, 2400 dots.
    EXPECT_EQ(box.bottom, 1200 + 2400 - 142);
}

TEST_F(PrinterScale, BoxOfTheMapFitsSixteenBits) {
    ScriptedPrinter printer;
    printer.dotsPerInch = 1200;
    ASSERT_TRUE(GetPrinterParams(printer));
    ASSERT_TRUE(ScalePrinter());
    Design.PrintLeft = 21.5F; // with the width 28 inches, 33600 dots
    EXPECT_EQ(ErrorOf([] { BoxOfMapOnPage(); }), ErrorOverflow);
}

// ---- The size of the map and its margins.

/// A4 upright at 300 dots with strips of 6 mm: 2480 by 3508 dots, 71 at each side.
class PageLayout : public PrinterScale {
protected:
    PageLayout() {
        printer.stripMillimetres = 6.0;
        Take();
        Design.PrintLeft = 1.0F;
        Design.PrintTop = 1.0F;
        Design.CenterHorizontal = true;
        Design.CenterVertical = true;
    }
    void Take() const { GetPrinterParams(printer); }

    ScriptedPrinter printer;
};

TEST_F(PageLayout, HeightFollowsTheWidthAndTheWidthTheHeight) {
    SetPrintWidth(6.4F);
    EXPECT_FLOAT_EQ(Design.PrintHeight, 4.0F);
    SetPrintHeight(5.0F);
    EXPECT_FLOAT_EQ(Design.PrintWidth, 8.0F);
}

TEST_F(PageLayout, MapAsWideAsThePaperLeavesIt) {
    ASSERT_TRUE(FitPrintToPaper());
    EXPECT_FLOAT_EQ(Design.PrintWidth, 2480.0F / 300.0F - 2.0F);
    EXPECT_FLOAT_EQ(Design.PrintHeight, (2480.0F / 300.0F - 2.0F) * 0.625F);
}

TEST_F(PageLayout, MapIsNotHigherThanThePaperLeavesIt) {
    Design.PrinterOrientation = Landscape;
    Take();
    ASSERT_TRUE(FitPrintToPaper());
    // Across 3508 dots it would be 9.69 inches wide and 6.06 high; there are 6.27.
    EXPECT_FLOAT_EQ(Design.PrintWidth, 3508.0F / 300.0F - 2.0F);
    Design.PrintTop = 2.0F;
    ASSERT_TRUE(FitPrintToPaper());
    EXPECT_FLOAT_EQ(Design.PrintHeight, 2480.0F / 300.0F - 4.0F);
    EXPECT_FLOAT_EQ(Design.PrintWidth, (2480.0F / 300.0F - 4.0F) * 1.6F);
}

TEST_F(PageLayout, MarginsThatLeaveNoRoomLeaveTheMapAsItIs) {
    Design.PrintLeft = 5.0F;
    EXPECT_FALSE(FitPrintToPaper());
    EXPECT_EQ(Design.PrintWidth, 6.5F);
    Design.PrintLeft = 1.0F;
    Design.PrintTop = 6.0F;
    EXPECT_FALSE(FitPrintToPaper());
    printer.sheet = {1.0 / 25.4, 1.0 / 25.4};
    Take();
    EXPECT_FALSE(FitPrintToPaper());
    EXPECT_EQ(Design.PrintWidth, 6.5F);
}

TEST_F(PageLayout, CenteredMapHasEqualMargins) {
    SetPrintWidth(6.0F); // 3.75 high
    CalcPrnLeft();
    CalcPrnTop();
    EXPECT_FLOAT_EQ(Design.PrintLeft, (2480.0F / 300.0F - 6.0F) / 2.0F);
    EXPECT_FLOAT_EQ(Design.PrintTop, (3508.0F / 300.0F - 3.75F) / 2.0F);
    EXPECT_TRUE(CanCenterHorizontally());
    EXPECT_TRUE(CanCenterVertically());
}

TEST_F(PageLayout, CenteredMapKeepsOffTheStrip) {
    // 2338 dots can be printed on.
    SetPrintWidth(2338.0F / 300.0F);
    EXPECT_TRUE(CanCenterHorizontally());
    SetPrintWidth(2339.0F / 300.0F);
    EXPECT_FALSE(CanCenterHorizontally());
    CalcPrnLeft();
    EXPECT_EQ(Design.PrintLeft, OutputNow.page.PrinterOffsetX);
    SetPrintHeight(3366.0F / 300.0F);
    EXPECT_TRUE(CanCenterVertically());
    SetPrintHeight(3367.0F / 300.0F);
    EXPECT_FALSE(CanCenterVertically());
    CalcPrnTop();
    EXPECT_EQ(Design.PrintTop, OutputNow.page.PrinterOffsetY);
}

TEST_F(PageLayout, MapThatCannotReachTheOtherSideIsNotCentered) {
    OutputNow.page.PrinterRightEdge = 7.0F; // a wide strip at the right alone
    SetPrintWidth(6.0F);
    EXPECT_FALSE(CanCenterHorizontally()); // it would end at 7.13
    OutputNow.page.PrinterRightEdge = 7.14F;
    EXPECT_TRUE(CanCenterHorizontally());
}

TEST_F(PageLayout, MarginThatIsNotCenteredStaysAsLongAsTheMapFits) {
    Design.CenterHorizontal = false;
    Design.CenterVertical = false;
    SetPrintWidth(6.0F);
    Design.PrintLeft = 2.0F; // ends at 8, the printable area at 2409 / 300
    Design.PrintTop = 7.0F;  // ends at 10.75, the area at 3437 / 300
    CalcPrnLeft();
    CalcPrnTop();
    EXPECT_EQ(Design.PrintLeft, 2.0F);
    EXPECT_EQ(Design.PrintTop, 7.0F);
    Design.PrintLeft = 2.5F;
    Design.PrintTop = 8.0F;
    CalcPrnLeft();
    CalcPrnTop();
    EXPECT_FLOAT_EQ(Design.PrintLeft, (2480.0F - 71.0F) / 300.0F - 6.0F);
    EXPECT_FLOAT_EQ(Design.PrintTop, (3508.0F - 71.0F) / 300.0F - 3.75F);
}

} // namespace
} // namespace quelmont

#include "output/page_scale.h"

#include "output/output_state.h"
#include "output/print_to_screen.h"
#include "output_fixture.h"
#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

/// A page three inches wide, from a window of 2880 twips: one and a half times as large. The printer has
/// 576 pixels to the inch, 2.5 twips each, and cannot reach a quarter of an inch at the left, half an inch
/// at the top.
class Page : public OutputTest {
protected:
    Page() {
        machine.window.scaleWidth = 2880.0;
        Design.PrintUnitTwips = 1440;
        Design.PrintWidth = 3.0F;
        Design.PrintLeft = 1.25F;
        Design.PrintTop = 2.0F;
        OutputNow.page.PrinterOffsetX = 0.25F;
        OutputNow.page.PrinterOffsetY = 0.5F;
        OutputNow.PrinterTwipsPerPixelY = 2.5F;
        OutputNow.DevicePixelX = 2.5F;
        OutputNow.DevicePixelY = 2.5F;
        Design.LineWidthsScaled = true;
        Design.PenWidth = 2;
        Design.PrintingNow = true;
    }
};

TEST_F(Page, ScaleIsThePagesWidthInWindowWidths) {
    EXPECT_EQ(PageScale(), 1.5);
    Design.PrintingNow = false;
    EXPECT_EQ(PageScale(), 1.0);
}

TEST_F(Page, LinesKeepTheirShareOfTheMap) {
    // Two pixels of 15 twips, one and a half times as wide: 45 twips, 18 printer pixels.
    EXPECT_EQ(DevicePenWidth(), 18);
}

TEST_F(Page, LinesCountDevicePixelsWithoutScalingAndOnTheScreen) {
    Design.LineWidthsScaled = false;
    EXPECT_EQ(DevicePenWidth(), 2);
    Design.LineWidthsScaled = true;
    Design.PrintingNow = false;
    EXPECT_EQ(DevicePenWidth(), 2);
}

TEST_F(Page, DotsKeepTheirShareOfTheMapButAreNeverLessThanOnePixel) {
    // Two pixels of 15 twips, one and a half times as wide, on pixels of 2.5 twips.
    EXPECT_EQ(DeviceDotPixels(2.0), 18);
    EXPECT_EQ(DeviceDotPixels(0.01), 1);
    Design.LineWidthsScaled = false;
    EXPECT_EQ(DeviceDotPixels(2.0), 1);
    Design.PrintingNow = false;
    EXPECT_EQ(DeviceDotPixels(2.0), 2);
    EXPECT_EQ(DeviceDotPixels(0.4), 1);
}

TEST_F(Page, MapLiesAtItsMarginsLessWhatThePrinterCannotReach) {
    // One inch is 576 pixels, one and a half are 864.
    EXPECT_EQ(PageX(10), 586);
    EXPECT_EQ(PageY(20), 884);
    Design.PrintingNow = false;
    EXPECT_EQ(PageX(10), 10);
    EXPECT_EQ(PageY(20), 20);
}

TEST_F(Page, PointsArePrintedThere) {
    At(10, 20);
    Design.PointStatus = PointBeginsLine;
    PrintToScreen();
    EXPECT_EQ(Drawn(), "MoveToEx(586, 884)\nLineTo(586, 884)\n");
}

TEST_F(Page, SixteenBitsHoldThePlaceOnTheMapAndNotTheOneOnThePage) {
    At(32767, 0);
    PrintToScreen();
    EXPECT_EQ(Drawn(), "LineTo(33343, 864)\n");
    At(32768, 0);
    PrintToScreen();
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in PrintToScreen", "Error: Overflow"}));
}

TEST_F(Page, WindowWithoutAWidthIsADivisionByZero) {
    machine.window.scaleWidth = 0.0;
    EXPECT_EQ(ErrorOf([] { PageScale(); }), ErrorDivisionByZero);
}

} // namespace
} // namespace quelmont

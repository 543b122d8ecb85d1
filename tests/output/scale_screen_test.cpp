#include "output/scale_screen.h"

#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

/// The scripted window: 1280 x 924 pixels of 15 twips, on a screen of the same size.
class ScaleScreenTest : public FreshProgramTest {
protected:
    ScaleScreenTest() {
        Design.TwipsPerPixelX = 15.0F;
        Design.TwipsPerPixelY = 15.0F;
        Design.FullScreenX = 1280;
        Design.FullScreenY = 924;
        Design.MapReduce = 1.0;
    }
    static void Map(double width, double height) {
        Design.MapXMin = 0.0;
        Design.MapXMax = width;
        Design.MapYMin = 0.0;
        Design.MapYMax = height;
    }
};

TEST_F(ScaleScreenTest, MaximisedWindowMeasures32000LogicalUnits) {
    Map(6.0, 3.0);
    EXPECT_TRUE(ScaleScreen());
    // 19200 x 13860 twips, less one pixel.
    EXPECT_EQ(Design.ClientWidth, 19185);
    EXPECT_EQ(Design.ClientHeight, 13845);
    // The height takes the shape of the window: 13845 / 19185 * 32000 = 23093.04.
    EXPECT_EQ(Design.LogicalWidth, 32000);
    EXPECT_EQ(Design.LogicalHeight, 23093);
}

TEST_F(ScaleScreenTest, TallWindowNarrowsTheLogicalPage) {
    machine.window.scaleWidth = 9600.0;
    Map(6.0, 3.0);
    EXPECT_TRUE(ScaleScreen());
    EXPECT_EQ(Design.ClientWidth, 9585);
    // 16000 x 23100 is wider than the window: 23100 * 9585 / 13845 = 15992.31.
    EXPECT_EQ(Design.LogicalWidth, 15992);
    EXPECT_EQ(Design.LogicalHeight, 23100);
}

TEST_F(ScaleScreenTest, WindowLargerThanTheScreenMeasuresNoMore) {
    machine.window.scaleWidth = 2.5 * 19200.0;
    machine.window.scaleHeight = 13860.0;
    Map(6.0, 3.0);
    EXPECT_TRUE(ScaleScreen());
    EXPECT_EQ(Design.LogicalWidth, 32000);
    // 32000 * 13845 / 47985 = 9232.89.
    EXPECT_EQ(Design.LogicalHeight, 9233);
    machine.window.scaleWidth = 19200.0;
    machine.window.scaleHeight = 3.0 * 13860.0;
    EXPECT_TRUE(ScaleScreen());
    EXPECT_EQ(Design.LogicalHeight, 23100);
    // 23100 * 19185 / 41565 = 10662.16.
    EXPECT_EQ(Design.LogicalWidth, 10662);
}

TEST_F(ScaleScreenTest, FlatMapTakesTheWholeWidth) {
    Map(6.0, 3.0);
    EXPECT_TRUE(ScaleScreen());
    EXPECT_DOUBLE_EQ(Design.ScreenOriginX, 0.0);
    EXPECT_DOUBLE_EQ(Design.ScreenScaleX, 19185.0 / 6.0);
    EXPECT_DOUBLE_EQ(Design.ScreenScaleY, 19185.0 / 6.0);
    // 13845 - (13845 - 19185 / 2) / 2.
    EXPECT_DOUBLE_EQ(Design.ScreenOriginY, 11718.75);
    EXPECT_DOUBLE_EQ(Design.LogicalScale, 32000.0 / 6.0);
    EXPECT_EQ(Design.LogicalOriginX, 0);
    // (23093 - 16000) / 2 = 3546.5, and ties go to the even neighbour.
    EXPECT_EQ(Design.LogicalOriginY, 3546);
}

TEST_F(ScaleScreenTest, HalfSizedSquareMapIsCentredOnAWideWindow) {
    Map(2.0, 2.0);
    Design.MapReduce = 0.5;
    EXPECT_TRUE(ScaleScreen());
    EXPECT_DOUBLE_EQ(Design.ScreenScaleX, 13845.0 * 0.5 / 2.0);
    EXPECT_DOUBLE_EQ(Design.ScreenScaleY, 13845.0 * 0.5 / 2.0);
    // The lowest point of the map.
    EXPECT_DOUBLE_EQ(Design.ScreenOriginY, 0.75 * 13845.0);
    // (19185 - 13845 / 2) / 2.
    EXPECT_DOUBLE_EQ(Design.ScreenOriginX, 6131.25);
    EXPECT_DOUBLE_EQ(Design.LogicalScale, 23093.0 * 0.5 / 2.0);
    // (32000 - 11546.5) / 2 = 10226.75 and 23093 / 4 = 5773.25.
    EXPECT_EQ(Design.LogicalOriginX, 10227);
    EXPECT_EQ(Design.LogicalOriginY, 5773);
}

TEST_F(ScaleScreenTest, HalfSizedFlatMapHasMarginsOnAllSides) {
    Map(6.0, 3.0);
    Design.MapReduce = 0.5;
    EXPECT_TRUE(ScaleScreen());
    EXPECT_DOUBLE_EQ(Design.ScreenOriginX, 19185.0 / 4.0);
    EXPECT_DOUBLE_EQ(Design.ScreenScaleX, 19185.0 * 0.5 / 6.0);
    // 13845 - (13845 - 19185 * 0.5 * 0.5) / 2.
    EXPECT_DOUBLE_EQ(Design.ScreenOriginY, 9320.625);
    EXPECT_EQ(Design.LogicalOriginX, 8000);
    // (23093 - 0.5 * 0.5 * 32000) / 2 = 7546.5, to the even neighbour.
    EXPECT_EQ(Design.LogicalOriginY, 7546);
}

TEST_F(ScaleScreenTest, MapWithoutWidthShowsABox) {
    Map(0.0, 3.0);
    EXPECT_FALSE(ScaleScreen());
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in ScaleScreen", "Error: Division by zero"}));
}

TEST_F(ScaleScreenTest, WindowOfOnePixelShowsABox) {
    machine.window.scaleWidth = 15.0;
    Map(6.0, 3.0);
    EXPECT_FALSE(ScaleScreen());
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in ScaleScreen", "Error: Division by zero"}));
}

} // namespace
} // namespace quelmont

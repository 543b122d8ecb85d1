#include "output/print_to_screen.h"

#include "core/error_box.h"
#include "output/output_state.h"
#include "output_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

class PrintToScreenTest : public OutputTest {
protected:
    void Print(double x, double y, std::int16_t status = 0) {
        At(x, y);
        Design.PointStatus = status;
        PrintToScreen();
    }
};

TEST_F(PrintToScreenTest, FitTurnsProjectionUnitsIntoPixels) {
    Design.MapXMin = -2.0;
    Design.MapYMin = -1.0;
    Design.ScreenScaleX = 3000.0;
    Design.ScreenScaleY = 1500.0;
    Design.ScreenOriginX = 150.0;
    Design.ScreenOriginY = 9000.0;
    Design.ProjX = 0.5;
    Design.ProjY = 1.0;
    Design.PointStatus = PointBeginsLine;
    PrintToScreen();
    // (2.5 * 3000 + 150) / 15 and (9000 - 2 * 1500) / 15: y grows downward.
    EXPECT_EQ(Drawn(), "MoveToEx(510, 400)\nLineTo(510, 400)\n");
}

TEST_F(PrintToScreenTest, PointOfALineIsALineTo) {
    Print(10, 20);
    EXPECT_EQ(Drawn(), "LineTo(10, 20)\n");
}

TEST_F(PrintToScreenTest, FirstPointOfALineIsAMoveToo) {
    Print(10, 20, 1);
    EXPECT_EQ(Drawn(), "MoveToEx(10, 20)\nLineTo(10, 20)\n");
    EXPECT_TRUE(surface.Segments().empty()) << "a line of one point shows nothing";
}

TEST_F(PrintToScreenTest, LineStart3IsAMoveOnce) {
    Design.LineStart = LineMoves;
    Print(10, 20);
    Print(11, 20);
    EXPECT_EQ(Drawn(), "MoveToEx(10, 20)\nLineTo(10, 20)\nLineTo(11, 20)\n");
    EXPECT_EQ(Design.LineStart, LineContinues);
}

TEST_F(PrintToScreenTest, OtherStatesOfALineGoOn) {
    Design.LineStart = LineBegins;
    Print(10, 20, 4);
    EXPECT_EQ(Drawn(), "LineTo(10, 20)\n");
    EXPECT_EQ(Design.LineStart, LineBegins) << "only a move empties it";
}

TEST_F(PrintToScreenTest, TiesGoToTheEvenPixel) {
    Print(10.5, 11.5, 1);
    EXPECT_EQ(Drawn(), "MoveToEx(10, 12)\nLineTo(10, 12)\n");
}

TEST_F(PrintToScreenTest, DotIsOnePixelWhateverTheRadius) {
    Design.CurrentSymbolType = SymbolDot;
    OutputNow.SymbolRadius = 900;
    Design.PenColor = SolidColor(0x123456);
    Print(10, 20, 1);
    EXPECT_EQ(Drawn(), "SetPixel(10, 20, 1193046)\n"); // 0x123456 without the flag
}

TEST_F(PrintToScreenTest, SymbolLeavesTheLineStateAlone) {
    Design.CurrentSymbolType = SymbolOpenSquare;
    OutputNow.SymbolRadius = 15;
    Design.LineStart = LineMoves;
    Print(10, 20);
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 1);
    EXPECT_EQ(surface.Count(SurfaceOp::MoveToEx), 0);
    EXPECT_EQ(Design.LineStart, LineMoves);
}

TEST_F(PrintToScreenTest, LastPixelsOfSixteenBitsAreDrawn) {
    Print(32767, -32768, 1);
    EXPECT_EQ(Drawn(), "MoveToEx(32767, -32768)\nLineTo(32767, -32768)\n");
    EXPECT_TRUE(machine.boxes.asked.empty());
}

TEST_F(PrintToScreenTest, PointBeyondSixteenBitsIsLostAndTheNextIsDrawn) {
    Print(32768, 0, 1);
    EXPECT_EQ(Drawn(), "");
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in PrintToScreen", "Error: Overflow"}));
    Print(5, 5);
    EXPECT_EQ(Drawn(), "LineTo(5, 5)\n");
}

TEST_F(PrintToScreenTest, SymbolBeyondSixteenBitsIsLost) {
    Design.CurrentSymbolType = SymbolFilledTriangle;
    OutputNow.SymbolRadius = 15 * 40'000;
    Print(5, 5);
    EXPECT_EQ(Drawn(), "");
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in PrintToScreen", "Error: Overflow"}));
}

TEST_F(PrintToScreenTest, LostPointsOfOneDrawShowOneBox) {
    BeginDrawBoxes();
    for (int i = 0; i < 5; ++i) {
        Print(0, 40'000);
    }
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in PrintToScreen", "Error: Overflow"}));
    EndDrawBoxes();
    EXPECT_EQ(machine.boxes.asked.size(), 1U) << "how many more there were";
}

TEST_F(PrintToScreenTest, DotIsASquareOfItsSizeAboutItsPlace) {
    Design.CurrentSymbolType = SymbolDot;
    Design.PenColor = 0x0000FF;
    At(10, 20);
    Design.DotPixels = 2;
    PrintToScreen();
    EXPECT_EQ(Drawn(), "SetPixel(10, 20, 255)\nSetPixel(11, 20, 255)\nSetPixel(10, 21, 255)\n"
                       "SetPixel(11, 21, 255)\n");
    surface.Forget();
    Design.DotPixels = 3;
    PrintToScreen();
    EXPECT_EQ(surface.Count(SurfaceOp::SetPixel), 9);
    EXPECT_THAT(surface.Text(), testing::StartsWith("SetPixel(9, 19, 255)\n"));
}

} // namespace
} // namespace quelmont

#include "platform/fine_lines.h"

#include "output/area_output.h"
#include "output/device_pen.h"
#include "output/page_scale.h"
#include "output/print_to_screen.h"
#include "output_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A surface with fine lines, which it writes down.
class FineSurface final : public RecordingSurface, public FineLines {
public:
    FineLines* Smooth(bool on) override { return on ? this : nullptr; }
    SurfaceHandle CreateFinePen(double width, std::uint32_t color) override {
        fine += "CreateFinePen(" + std::to_string(width) + ", " + std::to_string(color) + ")\n";
        return fails ? 0 : CreatePen(PenStyleSolid, 1, color);
    }
    void MoveToFine(std::int32_t x, std::int32_t y) override { Write("MoveToFine", x, y); }
    void LineToFine(std::int32_t x, std::int32_t y) override { Write("LineToFine", x, y); }
    bool PolyPolygonFine(std::span<const SurfacePoint> points,
                         std::span<const std::int32_t> counts) override {
        fine += "PolyPolygonFine of " + std::to_string(counts.size()) + "\n";
        for (const SurfacePoint point : points) {
            Write("", point.x, point.y);
        }
        return !fails;
    }

    std::string fine;
    bool fails = false;

private:
    void Write(const char* name, std::int32_t x, std::int32_t y) {
        fine += std::string(name) + "(" + std::to_string(x) + ", " + std::to_string(y) + ")\n";
    }
};

class FineWindow final : public ScriptedWindow {
public:
    DrawSurface& Surface() override { return picture; }
    FineSurface picture;
};

class FineLinesTest : public OutputTest {
protected:
    FineLinesTest() {
        Machine().window = &window;
        Design.SmoothLines = true;
        SelectDevice();
    }
    void Print(double x, double y, std::int16_t status = 0) {
        At(x, y);
        Design.PointStatus = status;
        PrintToScreen();
    }

    FineWindow window;
};

TEST_F(FineLinesTest, AreTakenWhileTheDesignHasSmoothLines) {
    EXPECT_EQ(OutputNow.fineLines, &window.picture);
    Design.SmoothLines = false;
    SelectDevice();
    EXPECT_EQ(OutputNow.fineLines, nullptr);
    Print(10, 20, PointBeginsLine);
    EXPECT_EQ(window.picture.Text(), "MoveToEx(10, 20)\nLineTo(10, 20)\n");
}

TEST_F(FineLinesTest, AreNotThereOnAPage) {
    OutputNow.PrinterSurface = &surface;
    Design.PrintingNow = true;
    SelectDevice();
    EXPECT_EQ(OutputNow.fineLines, nullptr);
    Design.PrintingNow = false;
}

TEST_F(FineLinesTest, TakePointsInSixtyFourthsOfAPixel) {
    Print(10.25, 20.5, PointBeginsLine);
    Print(11.0, 20.53125); // 1314 sixty-fourths
    Design.LineStart = LineMoves;
    Print(-3.5, 7.0);
    EXPECT_EQ(window.picture.fine, "MoveToFine(656, 1312)\nLineToFine(704, 1314)\nMoveToFine(-224, 448)\n");
    EXPECT_EQ(window.picture.Text(), "");
    EXPECT_EQ(Design.LineStart, LineContinues);
}

TEST_F(FineLinesTest, TakeAreasInSixtyFourthsOfAPixel) {
    const auto place = [](double x, double y) {
        At(x, y);
        return PlanePoint{Design.ProjX, Design.ProjY};
    };
    const PlaneRings triangle = {{place(10.25, 20.5), place(40.0, 20.5), place(40.0, 30.03125)}};
    AreaOutput().Fill(SolidColor(Rgb(1, 2, 3)), triangle);
    EXPECT_EQ(window.picture.fine, "PolyPolygonFine of 1\n(656, 1312)\n(2560, 1312)\n(2560, 1922)\n");
    EXPECT_EQ(window.picture.Text().find("PolyPolygon"), std::string::npos);
    window.picture.fine.clear();
    Design.SmoothLines = false;
    SelectDevice();
    AreaOutput().Fill(SolidColor(Rgb(1, 2, 3)), triangle);
    EXPECT_EQ(window.picture.fine, "");
    EXPECT_NE(window.picture.Text().find("PolyPolygon"), std::string::npos);
}

TEST_F(FineLinesTest, LoseThePointsThatPlainLinesLose) {
    Print(10.0, 20.0, PointBeginsLine);
    Print(32767.6, 20.0);
    EXPECT_EQ(window.picture.fine, "MoveToFine(640, 1280)\n");
    ASSERT_EQ(machine.boxes.asked.size(), 1U);
    EXPECT_EQ(machine.boxes.asked[0].title, "Error in PrintToScreen");
}

TEST_F(FineLinesTest, LeaveSymbolsOnWholePixels) {
    Design.CurrentSymbolType = SymbolDot;
    Print(10.4, 20.4);
    EXPECT_EQ(window.picture.fine, "");
    EXPECT_EQ(window.picture.Text(), "SetPixel(10, 20, 0)\n");
}

TEST_F(FineLinesTest, HavePensOfAPartOfAPixel) {
    Design.TwipsPerPixelY = 10.0F; // a screen of ratio 1.5
    TakePenWidth(15.0);
    EXPECT_EQ(Design.PenWidth, 2);
    MakeLinePen(SolidColor(0x0000FF), 1, "MapPlot");
    EXPECT_EQ(window.picture.fine, "CreateFinePen(1.500000, 255)\n");
    ReleaseDevicePen(1, "MapPlot");
    EXPECT_EQ(window.picture.LiveObjects(), 0);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(FineLinesTest, PlainOnesHavePensOfWholePixels) {
    Design.SmoothLines = false;
    SelectDevice();
    Design.TwipsPerPixelY = 10.0F;
    TakePenWidth(45.0);
    MakeLinePen(0, 1, "MapPlot");
    EXPECT_EQ(window.picture.CurrentPen(), (RecordedPen{PenStyleSolid, 4, 0})) << "4.5, to the even one";
    ReleaseDevicePen(1, "MapPlot");
}

TEST_F(FineLinesTest, PenThatCannotBeMadeNamesItsSite) {
    window.picture.fails = true;
    TakePenWidth(15.0);
    MakeLinePen(0, 5, "MapPlot");
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "CreatePen(5) error in MapPlot"}));
}

} // namespace
} // namespace quelmont

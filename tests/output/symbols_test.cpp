#include "output/symbols.h"

#include "core/error_box.h"
#include "core/run_time_error.h"
#include "output/output_state.h"
#include "output/print_to_screen.h"
#include "output_fixture.h"
#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t Orange = 0x0080FF;

/// Symbols of a radius of 45 twips about pixel (100, 80): 3 pixels wide and, pixels being 15 by 7.5
/// twips, 6 high. left 97, right 103, top 74, bottom 86; base 80 + 0.577 * 45 / 7.5 = 83.46, apex
/// 80 - 1.155 * 45 / 7.5 = 73.07.
class Symbols : public OutputTest {
protected:
    std::string Draw(SymbolType type) {
        surface.Forget();
        plot.type = type;
        DrawSymbol(surface, plot, 100, 80);
        return Drawn();
    }
    /// What stands around a shape that is not filled. Brush 2 is the surface's own.
    static std::string Open(const std::string& shape) {
        return "GetStockObject(5, 3)\nSelectObject(3)\nSetPolyFillMode(1, 1)\n" + shape +
               "\nSetPolyFillMode(1, 1)\nSelectObject(2)\n";
    }
    /// The same of a filled one, whose brush is handle 4, 0x0080FF = 33023.
    static std::string Filled(const std::string& shape, const std::string& brush = "4") {
        return "CreateSolidBrush(33023, " + brush + ")\nSelectObject(" + brush +
               ")\nSetPolyFillMode(1, 1)\n" + shape +
               "\nSetPolyFillMode(1, 1)\nSelectObject(2)\nDeleteObject(" + brush + ")\n";
    }
    void ExpectBox(const std::string& text) {
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Windows API Error", text}));
    }

    SymbolPlot plot{.color = SolidColor(Orange), .radius = 45.0, .pixelX = 15.0, .pixelY = 7.5};
};

TEST_F(Symbols, PlusIsOneStrokeThroughTheCentre) {
    EXPECT_EQ(Draw(SymbolPlus), Open("Polyline(97, 80, 103, 80, 100, 80, 100, 74, 100, 86, 100, 80)"));
}

TEST_F(Symbols, CrossIsOneStrokeThroughTheCentre) {
    EXPECT_EQ(Draw(SymbolCross), Open("Polyline(97, 86, 103, 74, 100, 80, 97, 74, 103, 86, 100, 80)"));
}

TEST_F(Symbols, SquareIsARectangle) {
    EXPECT_EQ(Draw(SymbolOpenSquare), Open("Rectangle(97, 74, 103, 86)"));
    EXPECT_EQ(Draw(SymbolFilledSquare), Filled("Rectangle(97, 74, 103, 86)"));
}

TEST_F(Symbols, DiamondStandsOnItsCorner) {
    EXPECT_EQ(Draw(SymbolOpenDiamond), Open("Polygon(97, 80, 100, 86, 103, 80, 100, 74)"));
    EXPECT_EQ(Draw(SymbolFilledDiamond), Filled("Polygon(97, 80, 100, 86, 103, 80, 100, 74)"));
}

TEST_F(Symbols, TriangleHasItsApexAbove) {
    EXPECT_EQ(Draw(SymbolOpenTriangle), Open("Polygon(97, 83, 100, 73, 103, 83)"));
    EXPECT_EQ(Draw(SymbolFilledTriangle), Filled("Polygon(97, 83, 100, 73, 103, 83)"));
}

TEST_F(Symbols, CircleIsAnEllipseInTheBox) {
    EXPECT_EQ(Draw(SymbolOpenCircle), Open("Ellipse(97, 74, 103, 86)"));
    EXPECT_EQ(Draw(SymbolFilledCircle), Filled("Ellipse(97, 74, 103, 86)"));
}

TEST_F(Symbols, UnknownTypeHasNoShape) {
    EXPECT_EQ(Draw(SymbolText), "GetStockObject(5, 3)\nSelectObject(3)\nSetPolyFillMode(1, 1)\n"
                                "SetPolyFillMode(1, 1)\nSelectObject(2)\n");
}

TEST_F(Symbols, RadiusZeroIsAPoint) {
    plot.radius = 0.0;
    EXPECT_EQ(Draw(SymbolOpenDiamond), Open("Polygon(100, 80, 100, 80, 100, 80, 100, 80)"));
}

TEST_F(Symbols, HalfPixelsRoundToTheEvenNeighbour) {
    // 37.5 twips are 2.5 pixels: 97.5 and 102.5.
    plot.pixelX = 18.0;
    plot.pixelY = 15.0;
    EXPECT_EQ(Draw(SymbolOpenSquare), Open("Rectangle(98, 77, 102, 83)"));
}

TEST_F(Symbols, KeepTheirShareOfTheMapOnPaper) {
    // Twice as large. Printer pixels of 2.5 by 5 twips: left 100 - 90 / 2.5 = 64, top 80 - 90 / 5 = 62,
    // base 80 + 0.577 * 90 / 5 = 90.39, apex 80 - 1.155 * 90 / 5 = 59.21.
    plot.scale = 2.0;
    plot.pixelX = 2.5;
    plot.pixelY = 5.0;
    EXPECT_EQ(Draw(SymbolPlus), Open("Polyline(64, 80, 136, 80, 100, 80, 100, 62, 100, 98, 100, 80)"));
    EXPECT_EQ(Draw(SymbolCross), Open("Polyline(64, 98, 136, 62, 100, 80, 64, 62, 136, 98, 100, 80)"));
    EXPECT_EQ(Draw(SymbolOpenSquare), Open("Rectangle(64, 62, 136, 98)"));
    EXPECT_EQ(Draw(SymbolFilledSquare), Filled("Rectangle(64, 62, 136, 98)", "4"));
    EXPECT_EQ(Draw(SymbolOpenDiamond), Open("Polygon(64, 80, 100, 98, 136, 80, 100, 62)"));
    EXPECT_EQ(Draw(SymbolFilledDiamond), Filled("Polygon(64, 80, 100, 98, 136, 80, 100, 62)", "5"));
    EXPECT_EQ(Draw(SymbolOpenTriangle), Open("Polygon(64, 90, 100, 59, 136, 90)"));
    EXPECT_EQ(Draw(SymbolFilledTriangle), Filled("Polygon(64, 90, 100, 59, 136, 90)", "6"));
    EXPECT_EQ(Draw(SymbolOpenCircle), Open("Ellipse(64, 62, 136, 98)"));
    EXPECT_EQ(Draw(SymbolFilledCircle), Filled("Ellipse(64, 62, 136, 98)", "7"));
}

TEST_F(Symbols, OnPaperAreThoseOfTheMapThere) {
    // 6.5 inches of 1440 twips from a window of 4680 twips.
    machine.window.scaleWidth = 4680.0;
    Design.PrintUnitTwips = 1440;
    Design.PrintWidth = 6.5F;
    OutputNow.DevicePixelX = 2.5F;
    OutputNow.DevicePixelY = 5.0F;
    Design.PrintingNow = true;
    Design.CurrentSymbolType = SymbolOpenSquare;
    OutputNow.SymbolRadius = 45;
    At(100, 80);
    PrintToScreen();
    EXPECT_EQ(Drawn(), Open("Rectangle(64, 62, 136, 98)"));
}

TEST_F(Symbols, EachFailingShapeHasItsOwnMessage) {
    const std::pair<SymbolType, std::string> expected[] = {
        {SymbolPlus, "Polyline(1) error in PrintToScreen"},
        {SymbolCross, "Polyline(2) error in PrintToScreen"},
        {SymbolOpenSquare, "Rectangle(1) error in PrintToScreen"},
        {SymbolFilledSquare, "Rectangle(1) error in PrintToScreen"},
        {SymbolOpenDiamond, "Polygon(2) error in PrintToScreen"},
        {SymbolFilledDiamond, "Polygon(2) error in PrintToScreen"},
        {SymbolOpenTriangle, "Polygon(3) error in PrintToScreen"},
        {SymbolFilledTriangle, "Polygon(3) error in PrintToScreen"},
        {SymbolOpenCircle, "Ellipse(1) error in PrintToScreen"},
        {SymbolFilledCircle, "Ellipse(1) error in PrintToScreen"},
    };
    for (const SurfaceOp op :
         {SurfaceOp::Polyline, SurfaceOp::Polygon, SurfaceOp::Rectangle, SurfaceOp::Ellipse}) {
        surface.FailAt(op, 0);
    }
    for (const auto& [type, text] : expected) {
        Draw(type);
        ExpectBox(text);
        EXPECT_EQ(surface.LiveObjects(), 0);
        EXPECT_EQ(surface.CurrentBrushHandle(), 2U) << "the surface's own brush is back";
    }
}

TEST_F(Symbols, WithoutABrushTheShapeIsDrawnAllTheSame) {
    surface.FailAt(SurfaceOp::CreateSolidBrush, 1);
    EXPECT_EQ(Draw(SymbolFilledSquare), "CreateSolidBrush(33023) failed\nSetPolyFillMode(1, 1)\n"
                                        "Rectangle(97, 74, 103, 86)\nSetPolyFillMode(1, 1)\n");
    ExpectBox("CreateSolidBrush(1) error in PrintToScreen");
}

TEST_F(Symbols, FillModeThatCannotBeSetIsNotPutBack) {
    surface.FailAt(SurfaceOp::SetPolyFillMode, 1);
    Draw(SymbolOpenSquare);
    EXPECT_EQ(surface.Count(SurfaceOp::SetPolyFillMode), 1);
    ExpectBox("SetPolyFillMode(1) error in PrintToScreen");
}

TEST_F(Symbols, FillModeThatCannotBePutBackIsReported) {
    surface.FailAt(SurfaceOp::SetPolyFillMode, 2);
    Draw(SymbolOpenSquare);
    ExpectBox("SetPolyFillMode(2) error in PrintToScreen");
}

TEST_F(Symbols, BrushThatCannotBeDeletedIsReported) {
    surface.FailAt(SurfaceOp::DeleteObject, 1);
    Draw(SymbolFilledCircle);
    ExpectBox("DeleteObject(1) error in PrintToScreen");
}

TEST_F(Symbols, FillModeOfTheSurfaceComesBack) {
    surface.SetPolyFillMode(FillWinding);
    Draw(SymbolOpenSquare);
    EXPECT_EQ(surface.PolyFillMode(), FillWinding);
}

TEST_F(Symbols, TriangleTooFarOutOverflows) {
    plot.type = SymbolOpenTriangle;
    plot.radius = 400'000.0;
    EXPECT_EQ(ErrorOf([&] { DrawSymbol(surface, plot, 100, 80); }), ErrorOverflow);
    EXPECT_EQ(Drawn(), "") << "nothing was selected that would have to be given back";
}

TEST_F(Symbols, SymbolsThatFailAlikeInOneDrawShowOneBox) {
    surface.FailAt(SurfaceOp::Rectangle, 0);
    BeginDrawBoxes();
    Draw(SymbolOpenSquare);
    Draw(SymbolOpenSquare);
    Draw(SymbolOpenSquare);
    ExpectBox("Rectangle(1) error in PrintToScreen");
    EndDrawBoxes();
    EXPECT_EQ(machine.boxes.asked.size(), 1U);
    EXPECT_NE(machine.boxes.asked.at(0).text.find(" 2 more times"), std::string::npos);
}

} // namespace
} // namespace quelmont

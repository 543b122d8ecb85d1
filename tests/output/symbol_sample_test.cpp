#include "output/symbol_sample.h"

#include "core/map_design.h"
#include "output/output_state.h"
#include "output_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

/// Samples in a place of 40 by 20 pixels: radius 0.36 * 20 = 7.2 pixels, 7 when rounded, about
/// (20, 10).
class SymbolSamples : public OutputTest {
protected:
    void Draw(std::int16_t type) {
        surface.Forget();
        DrawSymbolSample(surface,
                         {.type = type, .width = 40, .height = 20, .penWidth = 2, .color = 0x0080FF});
    }
    std::vector<std::int64_t> Only(SurfaceOp op) {
        const std::vector<SurfaceCall> calls = surface.CallsOf(op);
        EXPECT_EQ(calls.size(), 1U);
        return calls.empty() ? std::vector<std::int64_t>{} : calls[0].numbers;
    }
};

TEST_F(SymbolSamples, LineIsOneStrokeFromLeftToRight) {
    Draw(SymbolLine);
    // (2, 15), (14, 6), (24, 14), (38, 4)
    EXPECT_THAT(Only(SurfaceOp::MoveToEx), ElementsAre(2, 15));
    const std::vector<RecordedSegment>& strokes = surface.Segments();
    ASSERT_EQ(strokes.size(), 3U);
    EXPECT_EQ(strokes[0].from, (SurfacePoint{2, 15}));
    EXPECT_EQ(strokes[0].to, (SurfacePoint{14, 6}));
    EXPECT_EQ(strokes[1].to, (SurfacePoint{24, 14}));
    EXPECT_EQ(strokes[2].to, (SurfacePoint{38, 4}));
    EXPECT_EQ(strokes[0].pen, (RecordedPen{PenStyleSolid, 2, 0x0080FF}));
}

TEST_F(SymbolSamples, DotsAreSinglePixelsAlongTheCourse) {
    Draw(SymbolDot);
    // Steps of 0.15 * 20 = 3 pixels at most: 15, 12.81 and 17.2 pixels have 5, 5 and 6 of them.
    const std::vector<SurfaceCall> dots = surface.CallsOf(SurfaceOp::SetPixel);
    ASSERT_EQ(dots.size(), 17U);
    EXPECT_THAT(dots.front().numbers, ElementsAre(2, 15, 0x0080FF));
    EXPECT_THAT(dots[5].numbers, ElementsAre(14, 6, 0x0080FF));
    EXPECT_THAT(dots.back().numbers, ElementsAre(38, 4, 0x0080FF));
    EXPECT_EQ(surface.Count(SurfaceOp::LineTo), 0);
}

TEST_F(SymbolSamples, OtherSymbolsStandInTheMiddle) {
    Draw(SymbolOpenSquare);
    EXPECT_THAT(Only(SurfaceOp::Rectangle), ElementsAre(13, 3, 27, 17));
    Draw(SymbolFilledCircle);
    EXPECT_THAT(Only(SurfaceOp::Ellipse), ElementsAre(13, 3, 27, 17));
    EXPECT_EQ(surface.Count(SurfaceOp::CreateSolidBrush), 1);
    Draw(SymbolPlus);
    EXPECT_THAT(Only(SurfaceOp::Polyline), ElementsAre(13, 10, 27, 10, 20, 10, 20, 3, 20, 17, 20, 10));
    Draw(SymbolOpenTriangle); // base 10 + 0.577 * 7 = 14.04, apex 10 - 1.155 * 7 = 1.9
    EXPECT_THAT(Only(SurfaceOp::Polygon), ElementsAre(13, 14, 20, 2, 27, 14));
}

TEST_F(SymbolSamples, KnowNothingOfTheDesignAndLeaveTheSurfaceAsItWas) {
    RecordingSurface other;
    Design.Surface = &other;
    Design.CurrentSymbolType = SymbolCross;
    OutputNow.SymbolRadius = 99;
    Design.PenColor = 5;
    Design.ScreenScaleX = 3.0;
    Design.ProjX = 7.0;
    Design.LineStart = LineMoves;
    const int objects = surface.LiveObjects();
    const SurfaceHandle pen = surface.CurrentPenHandle();
    for (std::int16_t type = SymbolLine; type <= SymbolTypes; ++type) {
        Draw(type);
    }
    EXPECT_EQ(Design.Surface, &other);
    EXPECT_EQ(Design.CurrentSymbolType, SymbolCross);
    EXPECT_EQ(OutputNow.SymbolRadius, 99);
    EXPECT_EQ(Design.PenColor, 5U);
    EXPECT_EQ(Design.ScreenScaleX, 3.0);
    EXPECT_EQ(OutputNow.DevicePixelX, 15.0F);
    EXPECT_EQ(Design.ProjX, 7.0);
    EXPECT_EQ(Design.LineStart, LineMoves);
    EXPECT_EQ(surface.LiveObjects(), objects);
    EXPECT_EQ(surface.CurrentPenHandle(), pen);
    EXPECT_TRUE(other.Calls().empty());
}

} // namespace
} // namespace quelmont

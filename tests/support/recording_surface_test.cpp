#include "support/recording_surface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <sstream>

namespace quelmont {
namespace {

using testing::ElementsAre;

TEST(RecordingSurface, RemembersOperationsInOrder) {
    RecordingSurface surface;
    surface.MoveToEx(1, 2);
    surface.LineTo(30, -4);
    surface.SetPixel(5, 6, 0xFF00FF);
    EXPECT_EQ(surface.Text(), "MoveToEx(1, 2)\nLineTo(30, -4)\nSetPixel(5, 6, 16711935)\n");
}

TEST(RecordingSurface, GivesSegmentsWithTheirPens) {
    RecordingSurface surface;
    const SurfaceHandle red = surface.CreatePen(PenStyleSolid, 3, 0x0000FF);
    surface.MoveToEx(0, 0);
    surface.LineTo(10, 0);
    surface.SelectObject(red);
    const std::array<SurfacePoint, 3> points = {{{5, 5}, {6, 6}, {7, 5}}};
    EXPECT_TRUE(surface.Polyline(points));
    surface.LineTo(10, 9);
    const RecordedPen black{PenStyleSolid, 1, 0};
    const RecordedPen wide{PenStyleSolid, 3, 0x0000FF};
    EXPECT_THAT(surface.Segments(),
                ElementsAre(RecordedSegment{{0, 0}, {10, 0}, black}, RecordedSegment{{5, 5}, {6, 6}, wide},
                            RecordedSegment{{6, 6}, {7, 5}, wide}, RecordedSegment{{10, 0}, {10, 9}, wide}));
}

TEST(RecordingSurface, LineOfLengthZeroIsNoSegment) {
    RecordingSurface surface;
    surface.MoveToEx(4, 4);
    surface.LineTo(4, 4);
    EXPECT_TRUE(surface.Segments().empty());
    EXPECT_EQ(surface.Count(SurfaceOp::LineTo), 1);
}

TEST(RecordingSurface, OnlyTheNamedCallFails) {
    RecordingSurface surface;
    surface.FailAt(SurfaceOp::Polygon, 2);
    EXPECT_TRUE(surface.Polygon({}));
    EXPECT_TRUE(surface.Rectangle(0, 0, 1, 1));
    EXPECT_FALSE(surface.Polygon({}));
    EXPECT_TRUE(surface.Polygon({}));
    EXPECT_THAT(surface.CallsOf(SurfaceOp::Polygon), ElementsAre(SurfaceCall{SurfaceOp::Polygon, {}, false},
                                                                 SurfaceCall{SurfaceOp::Polygon, {}, true},
                                                                 SurfaceCall{SurfaceOp::Polygon, {}, false}));
}

TEST(RecordingSurface, NumberZeroFailsEveryCall) {
    RecordingSurface surface;
    surface.FailAt(SurfaceOp::CreatePen, 0);
    EXPECT_EQ(surface.CreatePen(PenStyleSolid, 1, 0), 0U);
    EXPECT_EQ(surface.CreatePen(PenStyleSolid, 1, 0), 0U);
    EXPECT_EQ(surface.LiveObjects(), 0);
}

TEST(RecordingSurface, CountsObjectsThatWereNotDeleted) {
    RecordingSurface surface;
    const SurfaceHandle pen = surface.CreatePen(PenStyleSolid, 1, 0);
    const SurfaceHandle brush = surface.CreateSolidBrush(0xFFFFFF);
    EXPECT_EQ(surface.LiveObjects(), 2);
    const SurfaceHandle oldPen = surface.SelectObject(pen);
    EXPECT_FALSE(surface.DeleteObject(pen)) << "a current pen cannot be deleted";
    EXPECT_EQ(surface.SelectObject(oldPen), pen);
    EXPECT_TRUE(surface.DeleteObject(pen));
    EXPECT_FALSE(surface.DeleteObject(pen)) << "nor one that is gone";
    EXPECT_TRUE(surface.DeleteObject(brush));
    EXPECT_EQ(surface.LiveObjects(), 0);
}

TEST(RecordingSurface, NullBrushIsNoLiveObject) {
    RecordingSurface surface;
    const SurfaceHandle none = surface.GetStockObject(StockNullBrush);
    EXPECT_NE(none, 0U);
    EXPECT_NE(surface.SelectObject(none), 0U);
    EXPECT_EQ(surface.CurrentBrushHandle(), none);
    EXPECT_EQ(surface.LiveObjects(), 0);
    EXPECT_EQ(surface.GetStockObject(99), 0U);
    EXPECT_EQ(surface.SelectObject(12345), 0U);
}

TEST(RecordingSurface, PrintsAFailedCallAsFailed) {
    std::ostringstream text;
    text << SurfaceCall{SurfaceOp::Polyline, {0, 0, 5, 5}, true};
    EXPECT_EQ(text.str(), "Polyline(0, 0, 5, 5) failed");
}

TEST(RecordingSurface, FillModeAnswersTheModeBefore) {
    RecordingSurface surface;
    EXPECT_EQ(surface.SetPolyFillMode(FillWinding), FillAlternate);
    EXPECT_EQ(surface.SetPolyFillMode(FillAlternate), FillWinding);
}

TEST(RecordingSurface, TextsAreKeptWithTheirFontAndColour) {
    RecordingSurface surface;
    const SurfaceHandle font =
        surface.CreateFontIndirectA({.height = -13, .escapement = 450, .faceName = "Arial"});
    const SurfaceHandle before = surface.SelectObject(font);
    EXPECT_NE(before, 0U);
    EXPECT_EQ(surface.SetTextColor(0x804020), 0U);
    EXPECT_TRUE(surface.SetTextAlign(AlignBaseline));
    EXPECT_TRUE(surface.TextOutA(7, -9, "Nuuk"));
    EXPECT_EQ(surface.SetTextColor(0), 0x804020U);
    EXPECT_EQ(surface.SelectObject(before), font);
    EXPECT_EQ(surface.LiveObjects(), 1);
    EXPECT_TRUE(surface.DeleteObject(font));
    EXPECT_EQ(surface.LiveObjects(), 0);
    ASSERT_EQ(surface.Texts().size(), 1U);
    const RecordedText& text = surface.Texts()[0];
    EXPECT_EQ(text.anchor, (SurfacePoint{7, -9}));
    EXPECT_EQ(text.text, "Nuuk");
    EXPECT_EQ(text.font.face, "Arial");
    EXPECT_EQ(text.font.font.height, -13);
    EXPECT_EQ(text.font.font.escapement, 450);
    EXPECT_EQ(text.color, 0x804020U);
    EXPECT_EQ(text.align, AlignBaseline);
}

TEST(RecordingSurface, CurrentFontIsNotDeleted) {
    RecordingSurface surface;
    const SurfaceHandle font = surface.CreateFontIndirectA({});
    const SurfaceHandle before = surface.SelectObject(font);
    EXPECT_FALSE(surface.DeleteObject(font));
    surface.SelectObject(before);
    EXPECT_FALSE(surface.DeleteObject(before));
}

TEST(RecordingSurface, TextThatFailsIsNoText) {
    RecordingSurface surface;
    surface.FailAt(SurfaceOp::TextOutA, 1);
    EXPECT_FALSE(surface.TextOutA(1, 2, "a"));
    EXPECT_TRUE(surface.Texts().empty());
    EXPECT_EQ(surface.Text(), "TextOutA(1, 2, 'a') failed\n");
}

} // namespace
} // namespace quelmont

#include "core/run_time_error.h"
#include "qtsurface/picture.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST(Handles, SurfaceBeginsWithABlackPenAndAWhiteBrush) {
    ImageSurface surface(4, 4);
    surface.Clear(Blue);
    EXPECT_TRUE(surface.Rectangle(0, 0, 4, 4));
    EXPECT_EQ(surface.Image().pixel(0, 0), 0xFF000000);
    EXPECT_EQ(surface.Image().pixel(1, 1), 0xFFFFFFFF);
}

TEST(Handles, SelectingGivesBackTheOneBeforeOfTheSameKind) {
    ImageSurface surface(1, 1);
    const SurfaceHandle pen = surface.CreatePen(PenStyleSolid, 1, Red);
    const SurfaceHandle brush = surface.CreateSolidBrush(Blue);
    ASSERT_NE(pen, 0U);
    ASSERT_NE(brush, 0U);
    ASSERT_NE(pen, brush);
    const SurfaceHandle firstPen = surface.SelectObject(pen);
    const SurfaceHandle firstBrush = surface.SelectObject(brush);
    EXPECT_NE(firstPen, 0U);
    EXPECT_NE(firstBrush, 0U);
    EXPECT_EQ(surface.SelectObject(firstPen), pen);
    EXPECT_EQ(surface.SelectObject(surface.GetStockObject(StockNullBrush)), brush);
}

TEST(Handles, UnknownOnesAreRefused) {
    Sheet sheet(2, 1);
    EXPECT_EQ(sheet.surface.SelectObject(0), 0U);
    EXPECT_EQ(sheet.surface.SelectObject(12345), 0U);
    EXPECT_FALSE(sheet.surface.DeleteObject(0));
    EXPECT_FALSE(sheet.surface.DeleteObject(12345));
    EXPECT_EQ(sheet.surface.GetStockObject(4), 0U);
    sheet.Line({0, 0}, {2, 0});
    EXPECT_EQ(sheet.Rows()[0], "##"); // the pen is still the red one
}

TEST(Handles, CurrentOnesAreNotDeleted) {
    ImageSurface surface(1, 1);
    const SurfaceHandle pen = surface.CreatePen(PenStyleSolid, 3, Red);
    const SurfaceHandle before = surface.SelectObject(pen);
    EXPECT_FALSE(surface.DeleteObject(pen));
    surface.SelectObject(before);
    EXPECT_TRUE(surface.DeleteObject(pen));
    EXPECT_FALSE(surface.DeleteObject(pen));
    EXPECT_EQ(surface.SelectObject(pen), 0U);
}

TEST(Handles, StockObjectsSurviveTheirDeletion) {
    ImageSurface surface(1, 1);
    const SurfaceHandle nothing = surface.GetStockObject(StockNullBrush);
    EXPECT_TRUE(surface.DeleteObject(nothing));
    EXPECT_NE(surface.SelectObject(nothing), 0U);
    EXPECT_FALSE(surface.DeleteObject(nothing)); // current now
}

TEST(Handles, PenOfNoKnownStyleOrOfNoWidthThatASurfaceHasFails) {
    ImageSurface surface(1, 1);
    EXPECT_EQ(surface.CreatePen(1, 1, Red), 0U);
    EXPECT_EQ(surface.CreatePen(PenStyleSolid, 32768, Red), 0U);
    EXPECT_NE(surface.CreatePen(PenStyleSolid, 32767, Red), 0U);
}

TEST(Handles, PenBelowOnePixelHasOne) {
    Sheet sheet(3, 3, -7);
    sheet.Line({0, 1}, {3, 1});
    EXPECT_EQ(sheet.RedPixels().size(), 3U);
}

TEST(Handles, ColoursOfPensIgnoreTheHighestByte) {
    Sheet sheet(2, 1);
    sheet.surface.SelectObject(sheet.surface.CreatePen(PenStyleSolid, 1, 0x02000000U | Blue));
    sheet.Line({0, 0}, {2, 0});
    EXPECT_EQ(sheet.Rows()[0], "oo");
}

TEST(Picture, KeepsItsPensAndPositionWhenItsSizeChanges) {
    Sheet sheet(2, 2);
    sheet.surface.MoveToEx(0, 4);
    sheet.surface.Resize(5, 5, White);
    EXPECT_EQ(sheet.surface.Width(), 5);
    EXPECT_EQ(sheet.surface.Height(), 5);
    sheet.surface.LineTo(5, 4);
    EXPECT_EQ(sheet.Rows()[3], ".....");
    EXPECT_EQ(sheet.Rows()[4], "#####");
}

TEST(Picture, OfImpossibleSizeIsRefused) {
    EXPECT_THROW(ImageSurface(-1, 5), RunTimeError);
    EXPECT_THROW(ImageSurface(5, 32768), RunTimeError);
    ImageSurface surface(3, 2);
    EXPECT_THROW(surface.Resize(3, -1, White), RunTimeError);
    EXPECT_EQ(surface.Width(), 3);
    EXPECT_EQ(surface.Image().width(), 3);
}

TEST(Picture, CopyDoesNotChangeAnyMore) {
    Sheet sheet(2, 1);
    const QImage copy = sheet.surface.Image().copy();
    sheet.surface.Clear(Blue);
    EXPECT_EQ(copy.pixel(0, 0), 0xFFFFFFFF);
    EXPECT_EQ(sheet.Rows()[0], "oo");
}

TEST(Handles, FontIsSelectedAndFreedAsAPenIs) {
    ImageSurface surface(1, 1);
    const SurfaceHandle font = surface.CreateFontIndirectA({.height = -13, .faceName = "Arial"});
    ASSERT_NE(font, 0U);
    const SurfaceHandle before = surface.SelectObject(font);
    ASSERT_NE(before, 0U);
    EXPECT_FALSE(surface.DeleteObject(font));
    EXPECT_EQ(surface.SelectObject(before), font);
    EXPECT_TRUE(surface.DeleteObject(font));
    EXPECT_EQ(surface.SelectObject(font), 0U);
    EXPECT_NE(surface.SelectObject(before), 0U);
}

TEST(Handles, FontOfAnImpossibleHeightIsNone) {
    ImageSurface surface(1, 1);
    EXPECT_EQ(surface.CreateFontIndirectA({.height = -32768}), 0U);
    EXPECT_NE(surface.CreateFontIndirectA({.height = -32767}), 0U);
}

TEST(Handles, ColourAndAlignmentOfTextAnswerTheOnesBefore) {
    ImageSurface surface(1, 1);
    EXPECT_EQ(surface.SetTextColor(Red), 0U);
    EXPECT_EQ(surface.SetTextColor(Blue), Red);
    EXPECT_TRUE(surface.SetTextAlign(AlignBaseline));
    EXPECT_TRUE(surface.SetTextAlign(AlignTop));
    EXPECT_FALSE(surface.SetTextAlign(6));
}

} // namespace
} // namespace quelmont

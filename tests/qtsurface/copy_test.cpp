#include "qtsurface/picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;

TEST(PictureCopy, TakesTheBoxFromTheOtherPictureAtTheSamePlaces) {
    Sheet from(6, 4);
    from.surface.Clear(Red);
    Sheet sheet(6, 4);
    sheet.surface.Copy(from.surface.Image(), QRect(1, 2, 3, 1), Blue);
    EXPECT_THAT(sheet.Rows(), ElementsAre("......", "......", ".###..", "......"));
}

TEST(PictureCopy, HasTheColourWhereTheOtherPictureEnds) {
    Sheet from(3, 2);
    from.surface.Clear(Red);
    Sheet sheet(6, 4);
    sheet.surface.Copy(from.surface.Image(), QRect(0, 0, 6, 4), Blue);
    EXPECT_THAT(sheet.Rows(), ElementsAre("###ooo", "###ooo", "oooooo", "oooooo"));
}

TEST(PictureCopy, LeavesOutWhatLiesOutside) {
    Sheet from(9, 9);
    from.surface.Clear(Red);
    Sheet sheet(4, 3);
    sheet.surface.Copy(from.surface.Image(), QRect(-5, -5, 7, 6), Blue);
    EXPECT_THAT(sheet.Rows(), ElementsAre("##..", "....", "...."));
    sheet.surface.Copy(from.surface.Image(), QRect(20, 20, 7, 6), Blue);
    sheet.surface.Copy(from.surface.Image(), QRect(3, 1, 1'000'000, 1'000'000), Blue);
    EXPECT_THAT(sheet.Rows(), ElementsAre("##..", "...#", "...#"));
}

TEST(PictureCopy, OfNothingIsTheColour) {
    Sheet sheet(2, 2);
    sheet.surface.Copy(QImage(), QRect(0, 0, 1, 2), Blue);
    EXPECT_THAT(sheet.Rows(), ElementsAre("o.", "o."));
}

TEST(PictureCopy, IsPaintedOverByWhatComesNext) {
    Sheet sheet(3, 1);
    sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(Blue));
    sheet.surface.SelectObject(sheet.surface.CreatePen(PenStyleNull, 1, 0));
    sheet.surface.Rectangle(0, 0, 3, 1);
    Sheet from(3, 1);
    sheet.surface.Copy(from.surface.Image(), QRect(0, 0, 3, 1), Red);
    EXPECT_THAT(sheet.Rows(), ElementsAre("..."));
    sheet.surface.Rectangle(0, 0, 3, 1);
    EXPECT_THAT(sheet.Rows(), ElementsAre("ooo")) << "no span counts as painted already";
}

} // namespace
} // namespace quelmont

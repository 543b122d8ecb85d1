#include "surround/text_box.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST(TextBoxes, ThatTouchDoNotOverlap) {
    const TextBox box{.middle = {100.0, 100.0}, .halfWidth = 50.0, .halfHeight = 10.0};
    TextBox other = box;
    other.middle = {200.0, 100.0};
    EXPECT_FALSE(Overlap(box, other));
    other.middle = {199.0, 100.0};
    EXPECT_TRUE(Overlap(box, other));
    other.middle = {100.0, 120.0};
    EXPECT_FALSE(Overlap(box, other));
    other.middle = {100.0, 119.0};
    EXPECT_TRUE(Overlap(box, other));
}

TEST(TextBoxes, ThatAreTurnedPassEachOther) {
    // Their upright rectangles overlap, they do not: two texts at 45 degrees, 30 apart.
    const TextBox box{.middle = {0.0, 0.0}, .halfWidth = 50.0, .halfHeight = 10.0, .angle = 45.0};
    TextBox other = box;
    other.middle = {21.3, 21.3};
    EXPECT_FALSE(Overlap(box, other)) << "30.1 apart across the text";
    other.middle = {14.0, 14.0};
    EXPECT_TRUE(Overlap(box, other)) << "19.8 apart across the text";
    other = {.middle = {60.0, 0.0}, .halfWidth = 10.0, .halfHeight = 10.0};
    EXPECT_FALSE(Overlap(box, other)) << "beside the middle of a text that goes up to the right";
    other.middle = {35.0, -35.0};
    EXPECT_TRUE(Overlap(box, other)) << "at its upper end";
    EXPECT_TRUE(Overlap(other, box));
}

TEST(TextBoxes, HaveTheirAnchorWhereTheBaselineBegins) {
    const TextBox flat = BoxOfText({100.0, 200.0}, 80.0, 30.0, 10.0, 0.0);
    EXPECT_EQ(flat.middle.x, 140.0);
    EXPECT_EQ(flat.middle.y, 190.0) << "from 170 to 210";
    EXPECT_EQ(flat.halfWidth, 40.0);
    EXPECT_EQ(flat.halfHeight, 20.0);
    // A quarter turn: the text runs upward, its ascent lies to the left.
    const TextBox upward = BoxOfText({100.0, 200.0}, 80.0, 30.0, 10.0, 90.0);
    EXPECT_EQ(upward.middle.x, 90.0);
    EXPECT_EQ(upward.middle.y, 160.0);
    EXPECT_EQ(HalfExtentOf(upward).x, 20.0);
    EXPECT_EQ(HalfExtentOf(upward).y, 40.0);
}

} // namespace
} // namespace quelmont

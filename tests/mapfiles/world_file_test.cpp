#include "mapfiles/world_file.h"

#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;

std::vector<std::string_view> Items(std::string_view text) {
    std::vector<std::string_view> items;
    while (!text.empty()) {
        items.push_back(TakeWorldItem(text));
    }
    return items;
}

std::optional<WorldPoint> DecodeWorldItem(std::string_view item) {
    const std::optional<WorldDegrees> degrees = DecodeWorldDegrees(item);
    return degrees ? std::optional(WorldPointOf(*degrees)) : std::nullopt;
}

TEST(WorldFile, ItemsEndAtCommasAndAnyLineEnd) {
    EXPECT_THAT(Items("1 2,3 4\n5 6\r\n7 8\r9 10"), ElementsAre("1 2", "3 4", "5 6", "7 8", "9 10"));
}

TEST(WorldFile, BlanksBeforeAnItemArePassedOver) {
    EXPECT_THAT(Items("  1 2 , \t3 4 \n"), ElementsAre("1 2 ", "3 4 "));
}

TEST(WorldFile, EmptyItemsCount) {
    EXPECT_THAT(Items("1 2\n\n3 4,,\r\n"), ElementsAre("1 2", "", "3 4", "", ""));
    EXPECT_THAT(Items("\r\n\r\n"), ElementsAre("", ""));
    EXPECT_THAT(Items("   "), ElementsAre(""));
}

TEST(WorldFile, ItemOfAPointIsLatitudeAndLongitude) {
    EXPECT_EQ(DecodeWorldItem("10.5 20.25"), (WorldPoint{37'800, 72'900}));
    EXPECT_EQ(DecodeWorldItem("-0.5   -100 and more"), (WorldPoint{-1800, -360'000}));
    EXPECT_EQ(DecodeWorldItem("12.34567 0"), (WorldPoint{44'444, 0})) << "44444.412 seconds";
}

TEST(WorldFile, ColumnsBehindTheLongitudeAreOfNoConcern) {
    EXPECT_EQ(DecodeWorldItem("45.5 10.25 300"), (WorldPoint{163'800, 36'900}));
    EXPECT_EQ(DecodeWorldItem("45.5\t10.25\t300"), (WorldPoint{163'800, 36'900}));
    EXPECT_EQ(DecodeWorldItem("45.5  10 300"), (WorldPoint{163'800, 36'000}));
}

TEST(WorldFile, OtherItemsEndTheLine) {
    for (const std::string_view item : {"", " ", "segment 12", "+1 2", ".5 2", "> 1 2", "\t"}) {
        EXPECT_EQ(DecodeWorldItem(item), std::nullopt) << item;
    }
}

TEST(WorldFile, ItemWithoutABlankIsALongitudeOnTheEquator) {
    EXPECT_EQ(DecodeWorldItem("33.5"), (WorldPoint{0, 120'600}));
    EXPECT_EQ(DecodeWorldItem("-1"), (WorldPoint{0, -3600}));
}

TEST(WorldFile, LongitudeOfAnItemAbove180HasACircleTakenOff) {
    EXPECT_EQ(DecodeWorldItem("0 180"), (WorldPoint{0, 648'000}));
    EXPECT_EQ(DecodeWorldItem("0 181"), (WorldPoint{0, -179 * 3600}));
    EXPECT_EQ(DecodeWorldItem("0 180.0001"), (WorldPoint{0, 648'000})) << "less than half a second above";
    EXPECT_EQ(DecodeWorldItem("0 -181"), (WorldPoint{0, -181 * 3600})) << "nothing is added below";
}

TEST(WorldFile, NumberOfAnItemThatIsTooLargeIsAnError) {
    EXPECT_EQ(ErrorOf([] { DecodeWorldItem("600000 0"); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { DecodeWorldItem("0 1E300"); }), ErrorOverflow);
}

TEST(WorldFile, ItemIsEncodedToAMillionth) {
    EXPECT_EQ(EncodeWorldItem(-0.5, 179.123456), "-0.500000 179.123456\r\n");
    EXPECT_EQ(EncodeWorldItem(90, -180), "90.000000 -180.000000\r\n");
    EXPECT_EQ(DecodeWorldItem(WorldItemBreak.substr(0, 0)), std::nullopt);
    EXPECT_EQ(ErrorOf([] { EncodeWorldItem(std::numeric_limits<double>::infinity(), 0); }), ErrorOverflow);
}

// ---- The binary form.

TEST(WorldFile, FloatsHaveTheirLowByteFirst) {
    // 1.5 is 0x3FC00000.
    constexpr std::array bytes = {std::byte{0}, std::byte{0}, std::byte{0xC0}, std::byte{0x3F}};
    EXPECT_EQ(DecodeWorldFloat(bytes), 1.5F);
}

TEST(WorldFile, MarkerIsReportedByItsBits) {
    EXPECT_TRUE(IsWorldMarker(WorldMarker));
    EXPECT_EQ(DecodeWorldFloat(WorldMarker), 99.0F);
    auto next = WorldMarker;
    next[0] = std::byte{1}; // the next float above 99
    EXPECT_FALSE(IsWorldMarker(next));
}

TEST(WorldFile, PointIsRoundedToSeconds) {
    EXPECT_EQ(WorldPointOf(10.5F, -20.25F), (WorldPoint{37'800, -72'900}));
    EXPECT_EQ(WorldPointOf(-90.0F, 0.0F), (WorldPoint{-324'000, 0}));
}

TEST(WorldFile, LongitudeAbove180HasACircleTakenOff) {
    EXPECT_EQ(WorldPointOf(0.0F, 180.0F).Lon, 648'000) << "180 itself stays";
    // The next float above 180 is 180.0000153; less 360 it is 0.055 seconds short of 180 west.
    EXPECT_EQ(WorldPointOf(0.0F, 180.0000153F).Lon, -648'000);
    EXPECT_EQ(WorldPointOf(0.0F, 359.0F).Lon, -3600);
}

TEST(WorldFile, WhatIsNoPlaceIsAnError) {
    EXPECT_EQ(ErrorOf([] { WorldPointOf(std::numeric_limits<float>::quiet_NaN(), 0.0F); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { WorldPointOf(0.0F, std::numeric_limits<float>::infinity()); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { WorldPointOf(-1e30F, 0.0F); }), ErrorOverflow);
}

TEST(WorldFile, RecordIsTwoFloatsAndALineFeed) {
    // 1.5 is 0x3FC00000, -2 is 0xC0000000.
    constexpr std::array expected = {std::byte{0},    std::byte{0},    std::byte{0xC0},
                                     std::byte{0x3F}, std::byte{0},    std::byte{0},
                                     std::byte{0x00}, std::byte{0xC0}, std::byte{10}};
    EXPECT_EQ(EncodeWorldRecord(1.5F, -2.0F), expected);
}

} // namespace
} // namespace quelmont

#include "core/angle_text.h"

#include "support/fresh_program.h"
#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Text(double value, std::string_view kind, std::int16_t gap = 4) {
    std::string text;
    DegMinSec(value, text, kind, gap);
    return text;
}

class DegMinSecText : public FreshProgramTest {};

TEST_F(DegMinSecText, StandsInItsColumns) {
    EXPECT_EQ(Text(37.7833, "LAT"), "37    47    00    N") << "46.998 minutes: 59.88 seconds, rounded to 60";
    EXPECT_EQ(Text(-122.4333, "LON"), "122    26    00    W");
    EXPECT_EQ(Text(15.0, "ARC"), "015    00    00");
}

TEST_F(DegMinSecText, SixtySecondsAndSixtyMinutesCarry) {
    EXPECT_EQ(Text(59.99999, "LAT"), "60    00    00    N");
    EXPECT_EQ(Text(-179.99999, "LON"), "180    00    00    W");
    EXPECT_EQ(Text(359.99999, "ARC"), "360    00    00");
}

TEST_F(DegMinSecText, NegativeValueIsSouthOrWest) {
    EXPECT_EQ(Text(-0.5, "LON"), "000    30    00    W");
    EXPECT_EQ(Text(-0.5, "LAT"), "00    30    00    S");
    EXPECT_EQ(Text(-0.00001, "LAT"), "00    00    00    S") << "even when nothing is left of it";
}

TEST_F(DegMinSecText, ZeroIsNorthOrEast) {
    EXPECT_EQ(Text(0.0, "LAT"), "00    00    00    N");
    EXPECT_EQ(Text(0.0, "LON"), "000    00    00    E");
    EXPECT_EQ(Text(-0.0, "LON"), "000    00    00    E");
}

TEST_F(DegMinSecText, ArcHasNoSign) { EXPECT_EQ(Text(-15.5, "ARC"), "015    30    00"); }

TEST_F(DegMinSecText, GapIsTheNumberOfBlanks) {
    EXPECT_EQ(Text(40.0, "LAT", 1), "40 00 00 N");
    EXPECT_EQ(Text(40.0, "LON", 1), "040 00 00 E");
    EXPECT_EQ(Text(40.0, "ARC", 1), "040 00 00");
    EXPECT_EQ(Text(40.0, "LAT", 0), "400000N");
}

TEST_F(DegMinSecText, SecondsAreRounded) {
    // 1 degree and 100.4, then 100.6 seconds: 1 minute 40.4 and 40.6 seconds.
    EXPECT_EQ(Text(1.0 + 100.4 / 3600.0, "LAT"), "01    01    40    N");
    EXPECT_EQ(Text(1.0 + 100.6 / 3600.0, "LAT"), "01    01    41    N");
}

TEST_F(DegMinSecText, FailureShowsItsBoxAndLeavesTheText) {
    std::string text = "as it was";
    DegMinSec(1e12, text, "LAT", 4);
    EXPECT_EQ(text, "as it was");
    DegMinSec(1.0, text, "LAT", -1);
    EXPECT_EQ(text, "as it was");
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in DegMinSec", "Error: Overflow", BoxButtons::Ok,
                                     BoxIcon::Exclamation, BoxAnswer::Ok},
                            AskedBox{"Error in DegMinSec", "Error: Invalid procedure call or argument",
                                     BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok}));
}

TEST_F(DegMinSecText, IsReadBackToTheSecond) {
    for (std::int32_t seconds = -648000; seconds <= 648000; seconds += 4567) {
        EXPECT_EQ(LongitudeSeconds(Text(seconds / 3600.0, "LON")), seconds);
    }
    for (std::int32_t seconds = -324000; seconds <= 324000; seconds += 3331) {
        EXPECT_EQ(LatitudeSeconds(Text(seconds / 3600.0, "LAT")), seconds);
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST(AngleSeconds, AreReadFromTheColumns) {
    EXPECT_EQ(LatitudeSeconds("37    47    05    N"), 37 * 3600 + 47 * 60 + 5);
    EXPECT_EQ(LatitudeSeconds("37    47    05    S"), -(37 * 3600 + 47 * 60 + 5));
    EXPECT_EQ(LongitudeSeconds("122    26    07    W"), -(122 * 3600 + 26 * 60 + 7));
    EXPECT_EQ(LongitudeSeconds("122    26    07    E"), 122 * 3600 + 26 * 60 + 7);
    EXPECT_EQ(ArcSeconds("030    00    01"), 108001);
}

TEST(AngleSeconds, OnlyTheVeryLetterMakesThemNegative) {
    EXPECT_EQ(LatitudeSeconds("10    00    00    s"), 36000);
    EXPECT_EQ(LatitudeSeconds("10    00    00   S "), 36000) << "the letter stands a column too early";
    EXPECT_EQ(LongitudeSeconds("010    00    00    w"), 36000);
    EXPECT_EQ(LongitudeSeconds("010    00    00    S"), 36000);
}

TEST(AngleSeconds, GroupWithoutDigitsIsZero) {
    EXPECT_EQ(LatitudeSeconds("10          05    N"), 36005);
    EXPECT_EQ(LatitudeSeconds(""), 0);
    EXPECT_EQ(ArcSeconds("   "), 0);
    EXPECT_EQ(LongitudeSeconds("180"), 648000);
}

TEST(AngleSeconds, SignInTheDegreesIsNoDigit) { EXPECT_EQ(LongitudeSeconds("-12    00    00    E"), -43200); }

TEST(AngleText, CompactFormHasSingleBlanks) {
    EXPECT_EQ(CompactLatitude("37    47    00    N"), "37 47 00 N");
    EXPECT_EQ(CompactLongitude("122    26    00    W"), "122 26 00 W");
    EXPECT_EQ(CompactArc("030    00    00"), "030 00 00");
}

TEST(AngleText, CompactFormTakesTheLastCharacterWhereverItStands) {
    EXPECT_EQ(CompactLatitude("37    47    00    N  S"), "37 47 00 S");
    EXPECT_EQ(CompactLatitude(""), "   ");
}

TEST(AngleText, ColumnsCountFromOne) {
    EXPECT_EQ(Columns("abcdef", 1, 2), "ab");
    EXPECT_EQ(Columns("abcdef", 6, 6), "f");
    EXPECT_EQ(Columns("abcdef", 5, 9), "ef");
    EXPECT_EQ(Columns("abcdef", 7, 8), "");
    EXPECT_EQ(Columns("abcdef", 9, 10), "");
}

} // namespace
} // namespace quelmont

#include "platform/masked_text.h"
#include "support/field_masks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

namespace quelmont {
namespace {

MaskedText With(std::string_view mask, std::string_view text) {
    MaskedText masked(mask);
    masked.SetText(text);
    return masked;
}

/// Types characters from the beginning of a field that holds a text.
std::string Typed(std::string_view mask, std::string_view text, std::string_view typed) {
    MaskedText masked = With(mask, text);
    std::size_t cursor = 0;
    for (const char c : typed) {
        EXPECT_TRUE(masked.Type(cursor, c)) << c;
    }
    return masked.Text();
}

TEST(MaskedText, BeginsWithZerosAndABlankLetter) {
    EXPECT_EQ(MaskedText(LatitudeMask).Text(), "00    00    00     ");
    EXPECT_EQ(MaskedText(MillionMask).Text(), "0,000,000");
}

TEST(MaskedText, TextInItsOwnColumnsIsTakenAsItStands) {
    EXPECT_EQ(With(LongitudeMask, "122    26    00    W").Text(), "122    26    00    W");
    EXPECT_EQ(With(LatitudeMask, "37    47    00    x").Text(), "37    47    00    x");
}

TEST(MaskedText, WhatLiesBeyondTheMaskIsDropped) {
    EXPECT_EQ(With(ArcMask, "081    15    30    E").Text(), "081    15    30");
}

TEST(MaskedText, AngleInShorterGroupsIsSpreadOverTheColumns) {
    EXPECT_EQ(With(LongitudeMask, "9 5 0 w").Text(), "009    05    00    W");
    EXPECT_EQ(With(LongitudeMask, "009°30'15\"E").Text(), "009    30    15    E");
}

TEST(MaskedText, NumberIsAlignedAtItsEnd) {
    EXPECT_EQ(With(MillionMask, "0500000").Text(), "0,500,000");
    EXPECT_EQ(With(MillionMask, "1500").Text(), "0,001,500");
    EXPECT_EQ(With(MillionMask, "6,200,000").Text(), "6,200,000");
}

TEST(MaskedText, FractionIsAlignedAtItsPoint) {
    EXPECT_EQ(With(ScaleMask, "0.9996").Text(), "0.9996");
    EXPECT_EQ(With(ScaleMask, "1").Text(), "1.0000");
    EXPECT_EQ(With(ScaleMask, "0.96").Text(), "0.9600");
}

TEST(MaskedText, BareDigitsLeaveOutAllElse) {
    EXPECT_EQ(With(LongitudeMask, "122    26    07    W").BareDigits(), "1222607");
    EXPECT_EQ(With(MillionMask, "0500000").BareDigits(), "0500000");
}

TEST(MaskedText, DigitsAreTypedOver) {
    EXPECT_EQ(Typed(LongitudeMask, "122    26    00    W", "0"), "022    26    00    W");
}

TEST(MaskedText, CursorPassesOverTheBlanks) {
    EXPECT_EQ(Typed(LongitudeMask, "000    00    00    W", "1222607E"), "122    26    07    E");
    EXPECT_EQ(Typed(MillionMask, "0000000", "1234567"), "1,234,567");
}

TEST(MaskedText, HemisphereBecomesACapital) {
    EXPECT_EQ(Typed(LatitudeMask, "37    47    00    N", "374700s"), "37    47    00    S");
}

TEST(MaskedText, LetterFindsItsPlaceFromAnywhere) {
    EXPECT_EQ(Typed(LatitudeMask, "37    47    00    N", "s"), "37    47    00    S");
}

TEST(MaskedText, BlankGoesToTheNextGroup) {
    EXPECT_EQ(Typed(LatitudeMask, "37    47    00    N", "5 1"), "57    17    00    N");
    EXPECT_EQ(Typed(ScaleMask, "0.9996", "1.0"), "1.0996") << "the cursor was there already";
    EXPECT_EQ(Typed(LongitudeMask, "000    00    00    W", "122 26 07 E"), "122    26    07    E");
}

TEST(MaskedText, RefusesWhatHasNoPlace) {
    MaskedText masked = With(ArcMask, "030    00    00");
    std::size_t cursor = 0;
    EXPECT_FALSE(masked.Type(cursor, 'N')) << "no letter in an arc";
    EXPECT_FALSE(masked.Type(cursor, '-'));
    cursor = masked.Text().size();
    EXPECT_FALSE(masked.Type(cursor, '1')) << "beyond the end";
    MaskedText latitude = With(LatitudeMask, "37    47    00    N");
    cursor = 18;
    EXPECT_FALSE(latitude.Type(cursor, '1')) << "a digit for the letter";
    EXPECT_EQ(latitude.Text(), "37    47    00    N");
    EXPECT_EQ(masked.Text(), "030    00    00");
}

TEST(MaskedText, ErasedDigitsBecomeZeroAndTheLetterStays) {
    MaskedText masked = With(LatitudeMask, "37    47    59    S");
    masked.Erase(6, 8);
    EXPECT_EQ(masked.Text(), "37    00    59    S");
    masked.Erase(0, 100);
    EXPECT_EQ(masked.Text(), "00    00    00    S");
}

TEST(MaskedText, PlacesAreFoundBothWays) {
    const MaskedText masked(LatitudeMask);
    EXPECT_EQ(masked.PlaceFrom(2), 6U);
    EXPECT_EQ(masked.PlaceFrom(19), 19U) << "none";
    EXPECT_EQ(masked.PlaceBefore(6), 1U);
    EXPECT_EQ(masked.PlaceBefore(0), 0U) << "none";
}

TEST(MaskedText, LetterFindsItsPlaceFromBehindItToo) {
    MaskedText masked = With(LatitudeMask, "37    47    00    N");
    std::size_t cursor = masked.Text().size();
    EXPECT_TRUE(masked.Type(cursor, 's'));
    EXPECT_EQ(masked.Text(), "37    47    00    S");
}

} // namespace
} // namespace quelmont

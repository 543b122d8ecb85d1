#include "core/typed_value.h"

#include "core/text_encoding.h"
#include "support/field_masks.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace quelmont {
namespace {

constexpr std::string_view Refused = "refused";

struct Typed {
    std::string_view mask;
    std::string_view before;
    std::string_view characters;
    std::string_view after;
};

std::string Over(const Typed& typed, bool left) {
    MaskedText base(typed.mask);
    base.SetText(typed.before);
    std::string keys;
    for (const char32_t character : Characters(typed.characters)) {
        const char key = KeyOf(base, character);
        if (key == 0) {
            return std::string(Refused);
        }
        keys += key;
    }
    const auto view = TypeOver(base, keys, left);
    return view ? view->text : std::string(Refused);
}

void ExpectEach(const std::vector<Typed>& table, bool left) {
    for (const Typed& typed : table) {
        EXPECT_EQ(Over(typed, left), typed.after)
            << "\"" << typed.characters << "\" over \"" << typed.before << "\"";
    }
}

constexpr std::string_view W180 = "180    30    00    W";
constexpr std::string_view N20 = "20    30    00    N";

TEST(TypedValue, LetterSetsItsGroupToTheRightAndEmptiesTheOthers) {
    ExpectEach(
        {
            {LongitudeMask, W180, "70 w", "070    00    00    W"},
            {LongitudeMask, W180, "70w", "070    00    00    W"},
            {LongitudeMask, W180, "7e", "007    00    00    E"},
            {LatitudeMask, N20, "5 n", "05    00    00    N"},
            {LatitudeMask, N20, "5 12 s", "05    12    00    S"},
            {LatitudeMask, N20, "40N", "40    00    00    N"},
        },
        false);
}

TEST(TypedValue, EachSeparatorEndsItsGroup) {
    for (const char* const mark :
         {" ", "\t", "'", "\"", ":", "\u00B0", "\u00BA", "\u2032", "\u2033", "\u2019", "\u00A0", ".", ","}) {
        const std::string typed = std::string("7") + mark;
        ExpectEach({{LongitudeMask, "180    20    10    W", typed, "007    20    10    W"}}, false);
    }
}

TEST(TypedValue, GroupsThatWereNotTypedStayWithoutALetter) {
    ExpectEach(
        {
            {ArcMask, "030    15    10", "15", "015    15    10"},
            {ArcMask, "030    15    10", "15 2", "015    02    10"},
            {LongitudeMask, "122    26    07    W", "9", "009    26    07    W"},
        },
        true);
}

TEST(TypedValue, DigitsLieOverTheFirstColumnsUntilTheGroupIsEnded) {
    ExpectEach(
        {
            {ArcMask, "030    00    00", "1", "130    00    00"},
            {ArcMask, "030    00    00", "15", "150    00    00"},
            {ArcMask, "030    00    00", "15 4", "015    40    00"},
            {LongitudeMask, W180, "70", "700    30    00    W"},
        },
        false);
    ExpectEach({{ArcMask, "030    00    00", "15", "015    00    00"}}, true);
}

TEST(TypedValue, FullGroupNeedsNoSeparator) {
    ExpectEach(
        {
            {LatitudeMask, N20, "374705s", "37    47    05    S"},
            {LongitudeMask, W180, "1222607E", "122    26    07    E"},
            {LongitudeMask, W180, "122 2607E", "122    26    07    E"},
            {LongitudeMask, W180, "122 26 07 E", "122    26    07    E"},
            {LongitudeMask, W180, "122    26    00    E", "122    26    00    E"},
            {ArcMask, "030    00    00", "0223000", "022    30    00"},
            {ArcMask, "030    00    00", "02230001", Refused},
            {LatitudeMask, N20, "3747055", Refused},
        },
        false);
}

TEST(TypedValue, UsualWritingsOfAnAngle) {
    ExpectEach(
        {
            {LongitudeMask, W180, "122:26:00W", "122    26    00    W"},
            {LongitudeMask, W180, "122\u00B0 26\u2032 07\u2033 E", "122    26    07    E"},
            {LongitudeMask, W180, "122\u00B026'07\"E", "122    26    07    E"},
            {LatitudeMask, N20, "N 37\u00B0 47\u2032", "37    47    00    N"},
            {LatitudeMask, N20, "S37:47", "37    47    00    S"},
            {LatitudeMask, N20, "37. 47. 5. S", "37    47    05    S"},
            {LongitudeMask, W180, "9 5 0 e", "009    05    00    E"},
            {ArcMask, "030    00    00", "22:30", "022    30    00"},
        },
        true);
}

TEST(TypedValue, OnePointBeginsAFractionOfItsGroup) {
    ExpectEach(
        {
            {LongitudeMask, W180, "12.5 W", "012    30    00    W"},
            {LongitudeMask, W180, "12.5", "012    30    00    W"},
            {LongitudeMask, W180, "12,5 e", "012    30    00    E"},
            {LongitudeMask, W180, "122.5", "122    30    00    W"},
            {ArcMask, "030    10    10", "22.5", "022    30    00"},
            {ArcMask, "030    10    10", ".25", "000    15    00"},
            {LatitudeMask, N20, "37 46.5", "37    46    30    N"},
            {LatitudeMask, N20, "37 46 30.4", "37    46    30    N"},
            // 0.7833 degrees are 2819.88 seconds.
            {LatitudeMask, N20, "37.7833", "37    47    00    N"},
            // 4.5 and 13.5 seconds: ties go to the even neighbour.
            {LatitudeMask, N20, "0.00125", "00    00    04    N"},
            {LatitudeMask, N20, "0.00375", "00    00    14    N"},
            {LatitudeMask, N20, "59.99999", "60    00    00    N"},
            {LatitudeMask, N20, "12 59.999", "13    00    00    N"},
            {LatitudeMask, N20, "12 59 59.6", "13    00    00    N"},
            {LatitudeMask, N20, "12 30 15.5", "12    30    16    N"},
            {LatitudeMask, N20, "12 30 16.5", "12    30    16    N"},
            {LatitudeMask, N20, "12 30 75.6", "12    30    76    N"},
            {LatitudeMask, N20, "12 75.5", "12    75    30    N"},
            {LatitudeMask, N20, "99.99999", Refused},
            {LatitudeMask, N20, "1.1234567890123456", Refused},
        },
        true);
}

TEST(TypedValue, SeveralPointsAreSeparators) {
    ExpectEach(
        {
            {LongitudeMask, W180, "122.26.07 E", "122    26    07    E"},
            {LatitudeMask, N20, "37.47.", "37    47    00    N"},
            {LatitudeMask, N20, "1.234567.", Refused},
        },
        true);
}

TEST(TypedValue, SignStandsForALetter) {
    ExpectEach(
        {
            {LatitudeMask, N20, "-37.5", "37    30    00    S"},
            {LatitudeMask, "20    30    00    S", "+37", "37    00    00    N"},
            {LongitudeMask, "180    30    00    E", "-7:30", "007    30    00    W"},
            {LongitudeMask, W180, "+7", "007    00    00    E"},
            {LongitudeMask, "180    30    00    E", "\u22127", "007    00    00    W"},
            {LatitudeMask, N20, "-37 S", Refused},
            {LatitudeMask, N20, "37-", Refused},
            {ArcMask, "030    00    00", "-5", Refused},
        },
        true);
}

TEST(TypedValue, LetterAloneChangesNothingElse) {
    ExpectEach(
        {
            {LatitudeMask, N20, "s", "20    30    00    S"},
            {LatitudeMask, N20, "w", "20    30    00    W"},
        },
        true);
}

TEST(TypedValue, WhatIsNoAngleIsRefused) {
    ExpectEach(
        {
            {LongitudeMask, W180, "12 N S", Refused},
            {LongitudeMask, W180, "W 12 W", Refused},
            {LongitudeMask, W180, "12 W 5", Refused},
            {LongitudeMask, W180, "1 2 3 4", Refused},
            {LongitudeMask, W180, "12.5 3", Refused},
            {LongitudeMask, W180, "12/5", Refused},
            {LongitudeMask, W180, "\u0663\u0664", Refused}, // digits of another script
            {ArcMask, "030    00    00", "15 N", Refused},
        },
        false);
}

TEST(TypedValue, WholeNumberIsOneGroup) {
    ExpectEach(
        {
            {MillionMask, "0300000", "500000", "0,500,000"},
            {MillionMask, "0300000", "500,000", "0,500,000"},
            {MillionMask, "0300000", "5", "0,000,005"},
            {MillionMask, "0300000", "0500000", "0,500,000"},
            {TenMillionMask, "06200000", "6,200,000", "06,200,000"},
            {TenMillionMask, "06200000", "6 200 000", "06,200,000"},
            {TenMillionMask, "06200000", "6'200'000", "06,200,000"},
            {TenMillionMask, "06200000", "6.200.000", "06,200,000"},
            {TenMillionMask, "06200000", "4649776.22", "04,649,776"},
            {TenMillionMask, "06200000", "4649775.5", "04,649,776"},
            {TenMillionMask, "06200000", "4649776.5", "04,649,776"},
            {MillionMask, "0300000", "9999999.6", Refused},
            {MillionMask, "0300000", "12345678", Refused},
            {MillionMask, "0300000", "5 N", Refused},
            {MillionMask, "0300000", "-5", Refused},
        },
        true);
}

TEST(TypedValue, WholeNumberMovesToTheRightAtItsFirstSeparator) {
    ExpectEach(
        {
            {TenMillionMask, "06200000", "7", "76,200,000"},
            {TenMillionMask, "06200000", "7,", "00,000,007"},
            {TenMillionMask, "06200000", "7,1", "00,000,071"},
            {TenMillionMask, "06200000", "07123456", "07,123,456"},
        },
        false);
}

TEST(TypedValue, DecimalNumberKeepsItsPoint) {
    ExpectEach(
        {
            {ScaleMask, "0.9996", "1", "1.0000"},
            {ScaleMask, "0.9996", "0.9", "0.9000"},
            {ScaleMask, "0.9996", "0,98", "0.9800"},
            {ScaleMask, "0.9996", ".9999", "0.9999"},
            {ScaleMask, "0.9996", "09998", "0.9998"},
            {ScaleMask, "0.9996", "0.99987", Refused},
            {ScaleMask, "0.9996", "0.9.9", Refused},
            {ScaleMask, "0.9996", "1e5", Refused},
        },
        true);
    ExpectEach({{ScaleMask, "0.9996", "1.0", "1.0996"}, {ScaleMask, "0.9996", "1", "1.9996"}}, false);
}

TEST(TypedValue, NothingTypedChangesNothing) {
    ExpectEach({{LongitudeMask, W180, "", W180},
                {MillionMask, "0300000", "", "0,300,000"},
                {ScaleMask, "0.9996", "", "0.9996"}},
               true);
}

TEST(TypedValue, CursorStandsWhereTheNextKeyGoes) {
    const auto cursor = [](std::string_view mask, std::string_view keys) {
        return TypeOver(MaskedText(mask), keys, false)->cursor;
    };
    EXPECT_EQ(cursor(LongitudeMask, ""), 0U);
    EXPECT_EQ(cursor(LongitudeMask, "7"), 1U);
    EXPECT_EQ(cursor(LongitudeMask, "70 "), 7U);
    EXPECT_EQ(cursor(LongitudeMask, "122"), 7U) << "the group is full";
    EXPECT_EQ(cursor(LongitudeMask, "-"), 0U);
    EXPECT_EQ(cursor(LongitudeMask, "12."), 7U);
    EXPECT_EQ(cursor(LongitudeMask, "12.5"), 19U) << "behind the seconds";
    EXPECT_EQ(cursor(LongitudeMask, "70 W"), 20U);
    EXPECT_EQ(cursor(ArcMask, "0301500"), 15U) << "the end";
    EXPECT_EQ(cursor(MillionMask, "5"), 2U);
    EXPECT_EQ(cursor(MillionMask, "5 "), 9U);
    EXPECT_EQ(cursor(ScaleMask, "0"), 2U);
}

} // namespace
} // namespace quelmont

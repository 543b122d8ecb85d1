#include "core/typed_value.h"

#include "core/text_encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace quelmont {
namespace {

constexpr std::string_view Latitude = "%%    %%    %%    ?";
constexpr std::string_view Longitude = "%%%    %%    %%    ?";
constexpr std::string_view Arc = "%%%    %%    %%";
constexpr std::string_view Million = "%,%%%,%%%";
constexpr std::string_view TenMillion = "%%,%%%,%%%";
constexpr std::string_view Scale = "%.%%%%";

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
            {Longitude, W180, "70 w", "070    00    00    W"},
            {Longitude, W180, "70w", "070    00    00    W"},
            {Longitude, W180, "7e", "007    00    00    E"},
            {Latitude, N20, "5 n", "05    00    00    N"},
            {Latitude, N20, "5 12 s", "05    12    00    S"},
            {Latitude, N20, "40N", "40    00    00    N"},
        },
        false);
}

TEST(TypedValue, EachSeparatorEndsItsGroup) {
    for (const char* const mark :
         {" ", "\t", "'", "\"", ":", "\u00B0", "\u00BA", "\u2032", "\u2033", "\u2019", "\u00A0", ".", ","}) {
        const std::string typed = std::string("7") + mark;
        ExpectEach({{Longitude, "180    20    10    W", typed, "007    20    10    W"}}, false);
    }
}

TEST(TypedValue, GroupsThatWereNotTypedStayWithoutALetter) {
    ExpectEach(
        {
            {Arc, "030    15    10", "15", "015    15    10"},
            {Arc, "030    15    10", "15 2", "015    02    10"},
            {Longitude, "122    26    07    W", "9", "009    26    07    W"},
        },
        true);
}

TEST(TypedValue, DigitsLieOverTheFirstColumnsUntilTheGroupIsEnded) {
    ExpectEach(
        {
            {Arc, "030    00    00", "1", "130    00    00"},
            {Arc, "030    00    00", "15", "150    00    00"},
            {Arc, "030    00    00", "15 4", "015    40    00"},
            {Longitude, W180, "70", "700    30    00    W"},
        },
        false);
    ExpectEach({{Arc, "030    00    00", "15", "015    00    00"}}, true);
}

TEST(TypedValue, FullGroupNeedsNoSeparator) {
    ExpectEach(
        {
            {Latitude, N20, "374705s", "37    47    05    S"},
            {Longitude, W180, "1222607E", "122    26    07    E"},
            {Longitude, W180, "122 2607E", "122    26    07    E"},
            {Longitude, W180, "122 26 07 E", "122    26    07    E"},
            {Longitude, W180, "122    26    00    E", "122    26    00    E"},
            {Arc, "030    00    00", "0223000", "022    30    00"},
            {Arc, "030    00    00", "02230001", Refused},
            {Latitude, N20, "3747055", Refused},
        },
        false);
}

TEST(TypedValue, UsualWritingsOfAnAngle) {
    ExpectEach(
        {
            {Longitude, W180, "122:26:00W", "122    26    00    W"},
            {Longitude, W180, "122\u00B0 26\u2032 07\u2033 E", "122    26    07    E"},
            {Longitude, W180, "122\u00B026'07\"E", "122    26    07    E"},
            {Latitude, N20, "N 37\u00B0 47\u2032", "37    47    00    N"},
            {Latitude, N20, "S37:47", "37    47    00    S"},
            {Latitude, N20, "37. 47. 5. S", "37    47    05    S"},
            {Longitude, W180, "9 5 0 e", "009    05    00    E"},
            {Arc, "030    00    00", "22:30", "022    30    00"},
        },
        true);
}

TEST(TypedValue, OnePointBeginsAFractionOfItsGroup) {
    ExpectEach(
        {
            {Longitude, W180, "12.5 W", "012    30    00    W"},
            {Longitude, W180, "12.5", "012    30    00    W"},
            {Longitude, W180, "12,5 e", "012    30    00    E"},
            {Longitude, W180, "122.5", "122    30    00    W"},
            {Arc, "030    10    10", "22.5", "022    30    00"},
            {Arc, "030    10    10", ".25", "000    15    00"},
            {Latitude, N20, "37 46.5", "37    46    30    N"},
            {Latitude, N20, "37 46 30.4", "37    46    30    N"},
            // 0.7833 degrees are 2819.88 seconds.
            {Latitude, N20, "37.7833", "37    47    00    N"},
            // 4.5 and 13.5 seconds: ties go to the even neighbour.
            {Latitude, N20, "0.00125", "00    00    04    N"},
            {Latitude, N20, "0.00375", "00    00    14    N"},
            {Latitude, N20, "59.99999", "60    00    00    N"},
            {Latitude, N20, "12 59.999", "13    00    00    N"},
            {Latitude, N20, "12 59 59.6", "13    00    00    N"},
            {Latitude, N20, "12 30 15.5", "12    30    16    N"},
            {Latitude, N20, "12 30 16.5", "12    30    16    N"},
            {Latitude, N20, "12 30 75.6", "12    30    76    N"},
            {Latitude, N20, "12 75.5", "12    75    30    N"},
            {Latitude, N20, "99.99999", Refused},
            {Latitude, N20, "1.1234567890123456", Refused},
        },
        true);
}

TEST(TypedValue, SeveralPointsAreSeparators) {
    ExpectEach(
        {
            {Longitude, W180, "122.26.07 E", "122    26    07    E"},
            {Latitude, N20, "37.47.", "37    47    00    N"},
            {Latitude, N20, "1.234567.", Refused},
        },
        true);
}

TEST(TypedValue, SignStandsForALetter) {
    ExpectEach(
        {
            {Latitude, N20, "-37.5", "37    30    00    S"},
            {Latitude, "20    30    00    S", "+37", "37    00    00    N"},
            {Longitude, "180    30    00    E", "-7:30", "007    30    00    W"},
            {Longitude, W180, "+7", "007    00    00    E"},
            {Longitude, "180    30    00    E", "\u22127", "007    00    00    W"},
            {Latitude, N20, "-37 S", Refused},
            {Latitude, N20, "37-", Refused},
            {Arc, "030    00    00", "-5", Refused},
        },
        true);
}

TEST(TypedValue, LetterAloneChangesNothingElse) {
    ExpectEach(
        {
            {Latitude, N20, "s", "20    30    00    S"},
            {Latitude, N20, "w", "20    30    00    W"},
        },
        true);
}

TEST(TypedValue, WhatIsNoAngleIsRefused) {
    ExpectEach(
        {
            {Longitude, W180, "12 N S", Refused},
            {Longitude, W180, "W 12 W", Refused},
            {Longitude, W180, "12 W 5", Refused},
            {Longitude, W180, "1 2 3 4", Refused},
            {Longitude, W180, "12.5 3", Refused},
            {Longitude, W180, "12/5", Refused},
            {Longitude, W180, "\u0663\u0664", Refused}, // digits of another script
            {Arc, "030    00    00", "15 N", Refused},
        },
        false);
}

TEST(TypedValue, WholeNumberIsOneGroup) {
    ExpectEach(
        {
            {Million, "0300000", "500000", "0,500,000"},
            {Million, "0300000", "500,000", "0,500,000"},
            {Million, "0300000", "5", "0,000,005"},
            {Million, "0300000", "0500000", "0,500,000"},
            {TenMillion, "06200000", "6,200,000", "06,200,000"},
            {TenMillion, "06200000", "6 200 000", "06,200,000"},
            {TenMillion, "06200000", "6'200'000", "06,200,000"},
            {TenMillion, "06200000", "6.200.000", "06,200,000"},
            {TenMillion, "06200000", "4649776.22", "04,649,776"},
            {TenMillion, "06200000", "4649775.5", "04,649,776"},
            {TenMillion, "06200000", "4649776.5", "04,649,776"},
            {Million, "0300000", "9999999.6", Refused},
            {Million, "0300000", "12345678", Refused},
            {Million, "0300000", "5 N", Refused},
            {Million, "0300000", "-5", Refused},
        },
        true);
}

TEST(TypedValue, WholeNumberMovesToTheRightAtItsFirstSeparator) {
    ExpectEach(
        {
            {TenMillion, "06200000", "7", "76,200,000"},
            {TenMillion, "06200000", "7,", "00,000,007"},
            {TenMillion, "06200000", "7,1", "00,000,071"},
            {TenMillion, "06200000", "07123456", "07,123,456"},
        },
        false);
}

TEST(TypedValue, DecimalNumberKeepsItsPoint) {
    ExpectEach(
        {
            {Scale, "0.9996", "1", "1.0000"},
            {Scale, "0.9996", "0.9", "0.9000"},
            {Scale, "0.9996", "0,98", "0.9800"},
            {Scale, "0.9996", ".9999", "0.9999"},
            {Scale, "0.9996", "09998", "0.9998"},
            {Scale, "0.9996", "0.99987", Refused},
            {Scale, "0.9996", "0.9.9", Refused},
            {Scale, "0.9996", "1e5", Refused},
        },
        true);
    ExpectEach({{Scale, "0.9996", "1.0", "1.0996"}, {Scale, "0.9996", "1", "1.9996"}}, false);
}

TEST(TypedValue, NothingTypedChangesNothing) {
    ExpectEach(
        {{Longitude, W180, "", W180}, {Million, "0300000", "", "0,300,000"}, {Scale, "0.9996", "", "0.9996"}},
        true);
}

TEST(TypedValue, CursorStandsWhereTheNextKeyGoes) {
    const auto cursor = [](std::string_view mask, std::string_view keys) {
        return TypeOver(MaskedText(mask), keys, false)->cursor;
    };
    EXPECT_EQ(cursor(Longitude, ""), 0U);
    EXPECT_EQ(cursor(Longitude, "7"), 1U);
    EXPECT_EQ(cursor(Longitude, "70 "), 7U);
    EXPECT_EQ(cursor(Longitude, "122"), 7U) << "the group is full";
    EXPECT_EQ(cursor(Longitude, "-"), 0U);
    EXPECT_EQ(cursor(Longitude, "12."), 7U);
    EXPECT_EQ(cursor(Longitude, "12.5"), 19U) << "behind the seconds";
    EXPECT_EQ(cursor(Longitude, "70 W"), 20U);
    EXPECT_EQ(cursor(Arc, "0301500"), 15U) << "the end";
    EXPECT_EQ(cursor(Million, "5"), 2U);
    EXPECT_EQ(cursor(Million, "5 "), 9U);
    EXPECT_EQ(cursor(Scale, "0"), 2U);
}

} // namespace
} // namespace quelmont

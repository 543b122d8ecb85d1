#include "mapfiles/fixed_record_file.h"

#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace quelmont {
namespace {

FixedRecord Record(std::string_view text) {
    EXPECT_EQ(text.size(), FixedRecordSize) << text;
    FixedRecord record = {};
    std::copy_n(text.begin(), std::min(text.size(), record.size()), record.begin());
    return record;
}

FixedRecordPoint PointOf(std::string_view text) { return DecodeFixedRecordPoint(Record(text)); }

TEST(FixedRecordFile, LetterAtPosition7TellsAPoint) {
    EXPECT_FALSE(IsFixedRecordHeader(Record("402613N1000512W   \r\n")));
    EXPECT_FALSE(IsFixedRecordHeader(Record("402613s1000512W   \r\n")));
    EXPECT_FALSE(IsFixedRecordHeader(Record("402613:1000512W   \r\n")));
    EXPECT_TRUE(IsFixedRecordHeader(Record("40261391000512W   \r\n")));
    EXPECT_TRUE(IsFixedRecordHeader(Record("402613 1000512W   \r\n"))) << "a blank hemisphere";
    FixedRecord umlaut = Record("402613N1000512W   \r\n");
    umlaut[6] = static_cast<char>(0xC4);
    EXPECT_FALSE(IsFixedRecordHeader(umlaut));
}

TEST(FixedRecordFile, PointIsDegreesMinutesSeconds) {
    // 40 26 13: 144000 + 1560 + 13; 100 5 12: 360000 + 300 + 12.
    EXPECT_EQ(PointOf("402613N1000512W   \r\n"), (FixedRecordPoint{145'573, -360'312}));
    EXPECT_EQ(PointOf("402613S1000512E   \r\n"), (FixedRecordPoint{-145'573, 360'312}));
}

TEST(FixedRecordFile, OtherHemispheresArePositive) {
    EXPECT_EQ(PointOf("010000s0010000w   \r\n"), (FixedRecordPoint{3600, 3600}));
}

TEST(FixedRecordFile, NumbersAreReadAsFarAsTheyGo) {
    EXPECT_EQ(PointOf(" 1 2 3N  4 5 6E   \r\n"), (FixedRecordPoint{3723, 4 * 3600 + 306}));
    EXPECT_EQ(PointOf("      N       E   \r\n"), (FixedRecordPoint{0, 0}));
    EXPECT_EQ(PointOf("1x2-3-N ab 5.5E   \r\n"), (FixedRecordPoint{3723, 300}))
        << "300.5 seconds go to the even number";
}

TEST(FixedRecordFile, NumberEndsAtABlankBehindItsDigits) {
    EXPECT_EQ(PointOf("1 0000N1 20000E   \r\n"), (FixedRecordPoint{3600, 3600}));
    EXPECT_EQ(PointOf("010000N 1\t0000E   \r\n"), (FixedRecordPoint{3600, 3600}));
    EXPECT_EQ(DecodeLineGraphHeader(Record("       1 1 2   x  3 ")), (LineGraphHeader{301, 1}));
}

TEST(FixedRecordFile, NumberThatIsTooLargeIsAnError) {
    EXPECT_EQ(ErrorOf([] { PointOf("000000N9E90000E   \r\n"); }), ErrorOverflow);
}

TEST(FixedRecordFile, PointIsEncodedWithItsLineEnd) {
    EXPECT_EQ(EncodeFixedRecordPoint({145'573, -360'312}), Record("402613N1000512W   \r\n"));
    EXPECT_EQ(EncodeFixedRecordPoint({-1, 648'000}), Record("000001S1800000E   \r\n"));
    EXPECT_EQ(ErrorOf([] { EncodeFixedRecordPoint({360'000, 0}); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { EncodeFixedRecordPoint({0, -3'600'000}); }), ErrorOverflow);
}

TEST(FixedRecordFile, BreakIsAHeader) {
    EXPECT_EQ(EncodeFixedRecordBreak(), Record("                  \r\n"));
    EXPECT_TRUE(IsFixedRecordHeader(EncodeFixedRecordBreak()));
}

TEST(FixedRecordFile, HeaderHasCodesAndCount) {
    const FixedRecord record = Record("       01000123   30");
    EXPECT_EQ(DecodeLineGraphHeader(record), (LineGraphHeader{3001, 123}));
    EXPECT_EQ(EncodeLineGraphHeader({3001, 123}), record);
    EXPECT_TRUE(IsFixedRecordHeader(record));
    EXPECT_EQ(DecodeLineGraphHeader(Record("1234567 9    12xxx 7")), (LineGraphHeader{709, 12}));
}

TEST(FixedRecordFile, LineEndAtPosition19IsNoMajorCode) {
    EXPECT_EQ(DecodeLineGraphHeader(Record("       01000123   \r\n")), (LineGraphHeader{1, 123}));
    EXPECT_EQ(DecodeLineGraphHeader(Record("       01000123   \n\n")), (LineGraphHeader{1, 123}));
}

TEST(FixedRecordFile, CountMayBeNonsense) {
    EXPECT_EQ(DecodeLineGraphHeader(Record("       01-00009   30")).Count, -9);
    EXPECT_EQ(DecodeLineGraphHeader(Record("       01more     30")).Count, 0);
    EXPECT_EQ(ErrorOf([] { DecodeLineGraphHeader(Record("       01   9E9   30")); }), ErrorOverflow)
        << "nine thousand million";
}

TEST(FixedRecordFile, HeaderThatDoesNotFitIsRefused) {
    EXPECT_EQ(EncodeLineGraphHeader({9999, 999'999}), Record("       99999999   99"));
    EXPECT_EQ(ErrorOf([] { EncodeLineGraphHeader({10'000, 1}); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { EncodeLineGraphHeader({-1, 1}); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { EncodeLineGraphHeader({3001, 1'000'000}); }), ErrorOverflow);
    EXPECT_EQ(ErrorOf([] { EncodeLineGraphHeader({3001, -1}); }), ErrorOverflow);
}

} // namespace
} // namespace quelmont

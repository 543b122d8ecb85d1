#include "mapfiles/packed_file.h"

#include "mapfiles/feature_rows.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <set>

namespace quelmont {
namespace {

template <typename... Numbers>
constexpr auto Bytes(Numbers... numbers) {
    return std::array{static_cast<std::byte>(numbers)...};
}

// Rank 2, 1 * 100 + 3 points. West 179 59 58 W: degrees -89 * 2 - 1; south 33 30 1 S; east 45 0 9 E:
// degrees 22 * 2 + 1; north 0 0 1 N; first point 100 30 15 W, 12 0 1 S.
constexpr auto HeaderBytes =
    Bytes(2, 1, 3, -89, -1, -59, -58, -33, -30, -1, 22, 1, 0, 9, 0, 0, 1, -50, 0, -30, -15, -12, 0, -1);
constexpr PackedHeader Header = {2, 103, -647998, -120601, 162009, 1, -361815, -43201};

TEST(PackedFile, HeaderIsDecodedFieldByField) { EXPECT_EQ(DecodePackedHeader(HeaderBytes), Header); }

TEST(PackedFile, HeaderIsEncodedFieldByField) { EXPECT_EQ(EncodePackedHeader(Header), HeaderBytes); }

TEST(PackedFile, RankAndCountsHaveNoSign) {
    auto bytes = HeaderBytes;
    bytes[0] = std::byte{255};
    bytes[1] = std::byte{200};
    bytes[2] = std::byte{250};
    EXPECT_EQ(DecodePackedHeader(bytes).Rank, 255);
    EXPECT_EQ(DecodePackedHeader(bytes).Count, 20'250) << "a low byte above 99 simply adds";
}

TEST(PackedFile, LongCoordinateHoldsTheHalfCircle) {
    EXPECT_EQ(EncodeLongCoordinate(648'000), Bytes(90, 0, 0, 0));
    EXPECT_EQ(EncodeLongCoordinate(-648'000), Bytes(-90, 0, 0, 0));
    EXPECT_EQ(DecodeLongCoordinate(Bytes(90, 0, 0, 0)), 648'000);
    EXPECT_EQ(DecodeLongCoordinate(Bytes(-128, -128, -128, -128)), -384 * 3600 - 128 * 61);
}

TEST(PackedFile, CoordinateBelowADegreeKeepsItsSign) {
    EXPECT_EQ(EncodeShortCoordinate(-61), Bytes(0, -1, -1));
    EXPECT_EQ(DecodeShortCoordinate(Bytes(0, -1, -1)), -61);
}

TEST(PackedFile, WhatDoesNotFitIsRefused) {
    EXPECT_EQ(ErrorOf([] { EncodeShortCoordinate(128 * 3600); }), ErrorOverflow);
    EXPECT_EQ(EncodeShortCoordinate(128 * 3600 - 1), Bytes(127, 59, 59));
    EXPECT_EQ(ErrorOf([] { EncodeLongCoordinate(-256 * 3600); }), ErrorOverflow);
    EXPECT_EQ(EncodeLongCoordinate(1 - 256 * 3600), Bytes(-127, -1, -59, -59));
    for (const std::int32_t count : {-1, MaxPackedCount + 1}) {
        PackedHeader header;
        header.Count = count;
        EXPECT_EQ(ErrorOf([&] { EncodePackedHeader(header); }), ErrorOverflow) << count;
    }
}

TEST(PackedFile, CountIsWrittenInHundredsAsFarAsTheyGo) {
    const auto counts = [](std::int32_t count) {
        PackedHeader header;
        header.Count = count;
        const auto bytes = EncodePackedHeader(header);
        return std::array{bytes[1], bytes[2]};
    };
    EXPECT_EQ(counts(99), Bytes(0, 99));
    EXPECT_EQ(counts(100), Bytes(1, 0));
    EXPECT_EQ(counts(25'599), Bytes(255, 99));
    EXPECT_EQ(counts(25'600), Bytes(255, 100));
    EXPECT_EQ(counts(MaxPackedCount), Bytes(255, 255));
}

TEST(PackedFile, StepIsLongitudeThenLatitude) {
    EXPECT_EQ(DecodePackedStep(Bytes(127, -128)), (PackedStep{127, -128}));
    EXPECT_EQ(EncodePackedStep({-1, 2}), Bytes(-1, 2));
}

TEST(PackedFile, NextSegmentFollowsTheSteps) {
    EXPECT_EQ(PackedSegmentSize(1), 24);
    EXPECT_EQ(PackedSegmentSize(103), 24 + 204);
    EXPECT_EQ(PackedSegmentSize(0), 22) << "the formula has no exception";
}

// ---- Ranks.

TEST(PackedFile, RanksOfAPartAreReportedByTheThirdLetterOfTheTitle) {
    EXPECT_EQ(PackedRanksOf("C:\\maps\\eucoast.pkd"), PackedRanks::Coast);
    EXPECT_EQ(PackedRanksOf("/c/xx/EUR.PKD"), PackedRanks::River);
    EXPECT_EQ(PackedRanksOf("eup.pkd"), PackedRanks::Political);
    EXPECT_EQ(PackedRanksOf("eux.pkd"), PackedRanks::Whole);
    EXPECT_EQ(PackedRanksOf("ab.pkd"), PackedRanks::Whole);
    EXPECT_EQ(PackedRanksOf("c/eux.pkd"), PackedRanks::Whole) << "a folder has no say";
    EXPECT_EQ(PackedRanksOf("euc.pkv"), PackedRanks::Whole);
    EXPECT_EQ(PackedRanksOf("euc.grv"), PackedRanks::LineGraph);
}

TEST(PackedFile, GapsOfTheRanksAreClosed) {
    struct Step {
        int rank, row;
    };
    // The first and last rank of each stretch, by the arithmetic 14-18 less 1, 21-31 less 3, 33-34 less
    // 4, 36-41 less 5.
    for (const Step& step :
         {Step{0, 0}, Step{13, 13}, Step{14, 13}, Step{18, 17}, Step{19, 19}, Step{20, 20}, Step{21, 18},
          Step{31, 28}, Step{32, 32}, Step{33, 29}, Step{34, 30}, Step{35, 35}, Step{36, 31}, Step{41, 36},
          Step{42, 42}, Step{72, 72}, Step{73, 73}, Step{255, 255}}) {
        EXPECT_EQ(FeatureOfPackedRank(static_cast<std::uint8_t>(step.rank), PackedRanks::Whole), step.row)
            << step.rank;
    }
}

TEST(PackedFile, PartsCountTheirRanksFromTheirOwnFirst) {
    EXPECT_EQ(FeatureOfPackedRank(1, PackedRanks::Coast), 9);
    EXPECT_EQ(FeatureOfPackedRank(6, PackedRanks::Coast), 13) << "14 less 1";
    EXPECT_EQ(FeatureOfPackedRank(15, PackedRanks::Coast), 20) << "23 less 3";
    EXPECT_EQ(FeatureOfPackedRank(1, PackedRanks::River), 21) << "24 less 3";
    EXPECT_EQ(FeatureOfPackedRank(12, PackedRanks::River), 35) << "the gap at 35 stays";
    EXPECT_EQ(FeatureOfPackedRank(1, PackedRanks::Political), 32) << "37 less 5";
    EXPECT_EQ(FeatureOfPackedRank(5, PackedRanks::Political), 36);
    EXPECT_EQ(FeatureOfPackedRank(255, PackedRanks::Political), 291);
}

TEST(PackedFile, RowIsWrittenByTheRankOutsideTheGaps) {
    EXPECT_EQ(PackedRankOf(1, PackedRanks::Whole), 1);
    EXPECT_EQ(PackedRankOf(13, PackedRanks::Whole), 14);
    EXPECT_EQ(PackedRankOf(19, PackedRanks::Whole), 22);
    EXPECT_EQ(PackedRankOf(32, PackedRanks::Whole), 37);
    EXPECT_EQ(PackedRankOf(35, PackedRanks::Whole), 40);
    EXPECT_EQ(PackedRankOf(36, PackedRanks::Whole), 41);
    EXPECT_EQ(PackedRankOf(13, PackedRanks::Coast), 6);
    EXPECT_EQ(PackedRankOf(35, PackedRanks::Political), 4);
    EXPECT_EQ(PackedRankOf(21, PackedRanks::Coast), 16);
}

TEST(PackedFile, EveryRowIsReadBackFromTheRankItIsWrittenBy) {
    for (std::int16_t row = 1; row <= 36; ++row) {
        const auto rank = PackedRankOf(row, PackedRanks::Whole);
        ASSERT_TRUE(rank) << row;
        EXPECT_EQ(FeatureOfPackedRank(*rank, PackedRanks::Whole), row);
    }
}

TEST(PackedFile, RowThatAFileCannotHoldHasNoRank) {
    EXPECT_EQ(PackedRankOf(0, PackedRanks::Whole), std::nullopt);
    EXPECT_EQ(PackedRankOf(8, PackedRanks::Coast), std::nullopt);
    EXPECT_EQ(PackedRankOf(31, PackedRanks::Political), std::nullopt);
    EXPECT_EQ(PackedRankOf(0, PackedRanks::LineGraph), std::nullopt);
    EXPECT_EQ(PackedRankOf(73, PackedRanks::LineGraph), std::nullopt);
}

// ---- Codes of line graphs.

TEST(LineGraphCodes, BytesAndCodesStandForTheSameRows) {
    const auto name = [](std::int16_t feature) {
        return FeatureRows("a.grv")[static_cast<std::size_t>(feature - 1)].name;
    };
    EXPECT_EQ(name(FeatureOfPackedRank(2, PackedRanks::LineGraph)), "River, double line, shoreline");
    EXPECT_EQ(name(LineGraphFeatureOfCode(3001)), "River, double line, shoreline");
    EXPECT_EQ(name(LineGraphFeatureOfByte[131]), "Interstate, proposed");
    EXPECT_EQ(name(LineGraphFeatureOfCode(5010)), "Interstate, proposed");
    EXPECT_EQ(name(LineGraphFeatureOfByte[136]), "Other hwy, limited access");
    EXPECT_EQ(name(LineGraphFeatureOfByte[137]), "Other hwy, non-limited access");
    EXPECT_EQ(name(LineGraphFeatureOfCode(6045)), "National park           >=20 km");
    EXPECT_EQ(name(LineGraphFeatureOfByte[221]), "National park closure line");
    EXPECT_EQ(name(LineGraphFeatureOfCode(7020)), "Alaska pipeline");
    EXPECT_EQ(name(LineGraphFeatureOfByte[226]), "Alaska pipeline");
}

TEST(LineGraphCodes, WhatStandsInNoRowIsFeature0) {
    for (const int byte : {0, 1, 126, 129, 156, 224, 225, 227, 255}) {
        EXPECT_EQ(LineGraphFeatureOfByte[static_cast<std::size_t>(byte)], 0) << byte;
    }
    for (const int code : {-1, 0, 3000, 3031, 4999, 5005, 5008, 6046, 6050, 7021, 3001'000}) {
        EXPECT_EQ(LineGraphFeatureOfCode(code), 0) << code;
    }
}

TEST(LineGraphCodes, EveryFeatureIsReadBackFromWhatItIsWrittenBy) {
    for (std::int16_t feature = 1; feature <= 72; ++feature) {
        const auto rank = PackedRankOf(feature, PackedRanks::LineGraph);
        ASSERT_TRUE(rank) << feature;
        EXPECT_EQ(FeatureOfPackedRank(*rank, PackedRanks::LineGraph), feature);
        EXPECT_EQ(LineGraphFeatureOfCode(LineGraphCodesOf(feature).textFirst), feature);
    }
    EXPECT_EQ(ErrorOf([] { LineGraphCodesOf(0); }), ErrorSubscript);
}

} // namespace
} // namespace quelmont

#include "mapfiles/minute_grid_file.h"

#include "mapfiles/feature_rows.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <set>

namespace quelmont {
namespace {

TEST(MinuteGridFile, RecordIsThreeSignedNumbersLowByteFirst) {
    // 5000, -2 and 10800.
    constexpr std::array<std::byte, 6> bytes{std::byte{0x88}, std::byte{0x13}, std::byte{0xFE},
                                             std::byte{0xFF}, std::byte{0x30}, std::byte{0x2A}};
    EXPECT_EQ(DecodeMinuteGrid(bytes), (MinuteGridRecord{5000, -2, 10800}));
}

TEST(MinuteGridFile, RecordIsEncodedLowByteFirst) {
    constexpr std::array<std::byte, 6> bytes{std::byte{0x88}, std::byte{0x13}, std::byte{0xFE},
                                             std::byte{0xFF}, std::byte{0x30}, std::byte{0x2A}};
    EXPECT_EQ(EncodeMinuteGrid({5000, -2, 10800}), bytes);
}

TEST(MinuteGridFile, EveryFeatureIsReadBackFromItsRank) {
    for (std::int16_t feature = 1; feature <= 10; ++feature) {
        EXPECT_EQ(FeatureOfRank(RankOfFeature(feature)), feature);
    }
    EXPECT_EQ(ErrorOf([] { RankOfFeature(0); }), ErrorSubscript);
    EXPECT_EQ(ErrorOf([] { RankOfFeature(11); }), ErrorSubscript);
}

TEST(MinuteGridFile, RankIsTheThousandsCutTowardZero) {
    EXPECT_EQ(RankOf(999), 0);
    EXPECT_EQ(RankOf(1000), 1);
    EXPECT_EQ(RankOf(10999), 10);
    EXPECT_EQ(RankOf(-999), 0);
    EXPECT_EQ(RankOf(-1000), -1);
    EXPECT_EQ(RankOf(32767), 32);
    EXPECT_EQ(RankOf(-32768), -32);
}

TEST(MinuteGridFile, EachRankStandsForTheRowOfItsName) {
    const std::string_view names[] = {
        "Coastlines", "Countries", "Canada",    "United States", "Islands",
        "Lakes",      "Rivers",    "Australia", "Mexico",        "Other Provinces/States"};
    std::set<std::int16_t> features;
    for (int rank = 1; rank <= 10; ++rank) {
        const std::int16_t feature = FeatureOfRank(rank);
        features.insert(feature);
        EXPECT_EQ(FeatureRows("a.map")[static_cast<std::size_t>(feature - 1)].name, names[rank - 1]);
    }
    EXPECT_EQ(features.size(), 10U);
}

TEST(MinuteGridFile, OtherRanksOfTheSpanStandForFeature0) {
    for (int rank = -32; rank <= 32; ++rank) {
        if (rank < 1 || rank > 10) {
            EXPECT_EQ(FeatureOfRank(rank), 0) << rank;
        }
    }
}

TEST(MinuteGridFile, RankBeyondTheSpanIsASubscriptError) {
    EXPECT_EQ(ErrorOf([] { FeatureOfRank(33); }), ErrorSubscript);
    EXPECT_EQ(ErrorOf([] { FeatureOfRank(-33); }), ErrorSubscript);
}

} // namespace
} // namespace quelmont

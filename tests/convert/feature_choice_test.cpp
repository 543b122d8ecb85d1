#include "convert/feature_choice.h"

#include "convert_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

TEST(RowName, IsReadInAnyCaseAndWithAnyBlanks) {
    EXPECT_EQ(RowOfName("rivers", "a.map"), 4);
    EXPECT_EQ(RowOfName("  Other   provinces/STATES ", "a.map"), 10);
    EXPECT_EQ(RowOfName("River, perennial, <30 km", "a.grv"), 3);
    EXPECT_EQ(RowOfName("all features", "a.dat"), 1);
    EXPECT_EQ(RowOfName("River", "a.map"), std::nullopt);
    EXPECT_EQ(RowOfName("", "a.map"), std::nullopt);
}

class FeatureChoosing : public ConvertTest {
protected:
    /// The ranks of the points of a .pkv file, whose segments are headers alone then.
    std::vector<int> Ranks(const std::string& name) const {
        const std::string bytes = Get(name);
        EXPECT_EQ(bytes.size() % 24, 0U);
        std::vector<int> ranks;
        for (std::size_t i = 0; i < bytes.size(); i += 24) {
            ranks.push_back(static_cast<unsigned char>(bytes[i]));
        }
        return ranks;
    }
    void PutPoints(const std::vector<std::string>& properties) const {
        std::string features;
        for (const std::string& each : properties) {
            features += (features.empty() ? "" : ",") + PointFeature(each, "[1,1]");
        }
        Put("in.geojson", Collection(features));
    }
};

TEST_F(FeatureChoosing, RankIsTheOneOutsideTheGaps) {
    // Rows and ranks of the world data bank: up to 13 alike, then one more, then three, four and five more.
    const std::vector<std::pair<int, int>> rows = {{1, 1},   {12, 12}, {13, 14}, {17, 18}, {18, 21},
                                                   {28, 31}, {29, 33}, {30, 34}, {31, 36}, {36, 41}};
    PutPoints({""});
    for (const auto& [row, rank] : rows) {
        Convert({"in.geojson", "out.pkv", "--feature", std::to_string(row)});
        EXPECT_THAT(Ranks("out.pkv"), ElementsAre(rank)) << row;
    }
}

TEST_F(FeatureChoosing, RankCountsFromThePartThatTheNameTells) {
    PutPoints({""});
    // Coasts begin at rank 9 of the whole, rivers at 24, political borders at 37, each counted from 1 in
    // its part. Row 9 is rank 9, row 21 is rank 24, row 32 is rank 37.
    Convert({"in.geojson", "wbC.pkd", "--feature", "Coastlines, Islands, Lakes"});
    EXPECT_THAT(Ranks("wbC.pkd"), ElementsAre(1));
    Convert({"in.geojson", "wbr.pkd", "--feature", "Rivers"});
    EXPECT_THAT(Ranks("wbr.pkd"), ElementsAre(1));
    Convert({"in.geojson", "wbP_1.pkd", "--feature", "U.S. States"});
    EXPECT_THAT(Ranks("wbP_1.pkd"), ElementsAre(1));
    Convert({"in.geojson", "wbx.pkd", "--feature", "Rivers"});
    EXPECT_THAT(Ranks("wbx.pkd"), ElementsAre(24));
}

TEST_F(FeatureChoosing, RowThatThePartCannotHoldIsRefused) {
    PutPoints({""});
    EXPECT_EQ(
        Refusal({"in.geojson", "wbR.pkd", "--feature", "9"}),
        "wbR.pkd cannot hold feature 9, \"Coastlines, Islands, Lakes\": the third letter of its name, R, "
        "makes it a part of the world data bank without that feature");
    EXPECT_THAT(Refusal({"in.geojson", "wbC.pkd", "--feature", "1"}),
                StartsWith("wbC.pkd cannot hold feature 1"));
    EXPECT_THAT(Refusal({"in.geojson", "wbP.pkd", "--feature", "30"}),
                StartsWith("wbP.pkd cannot hold feature 30"));
}

TEST_F(FeatureChoosing, ColumnTellsNumbersOrNames) {
    PutPoints({R"("k":1,"t":"rivers")", R"("k":36,"t":"9")"});
    Convert({"in.geojson", "out.pkv", "--feature", "@k"});
    EXPECT_THAT(Ranks("out.pkv"), ElementsAre(1, 41));
    Convert({"in.geojson", "out.pkv", "--feature", "@T"});
    EXPECT_THAT(Ranks("out.pkv"), ElementsAre(24, 9));
}

TEST_F(FeatureChoosing, WholeRealsAreNumbers) {
    PutPoints({R"("k":2.0)", R"("k":3.0)", R"("k":2.5)"});
    EXPECT_THAT(
        Refusal({"in.geojson", "out.pkv", "--feature", "@k"}),
        StartsWith(
            "in.geojson: feature 2: the column k tells \"2.5\"; the features of out.pkv are\n  1  Inter"));
}

TEST_F(FeatureChoosing, EmptyColumnIsRefused) {
    PutPoints({R"("k":1)", R"("k":null)"});
    EXPECT_EQ(Refusal({"in.geojson", "out.pkv", "--feature", "@k"}),
              "in.geojson: feature 1: the column k is empty and tells no row");
}

TEST_F(FeatureChoosing, UnknownRowsAreReportedWithThoseThereAre) {
    PutPoints({""});
    EXPECT_EQ(Refusal({"in.geojson", "out.map", "--feature", "Canals"}),
              "--feature: there is no \"Canals\"; the features of out.map are\n"
              "  1  Coastlines\n  2  Islands\n  3  Lakes\n  4  Rivers\n  5  Countries\n  6  Australia\n  7  "
              "Canada\n"
              "  8  Mexico\n  9  United States\n  10  Other Provinces/States");
    EXPECT_THAT(Refusal({"in.geojson", "out.map", "--feature", "0"}),
                StartsWith("--feature: there is no \"0\"; "));
    EXPECT_THAT(Refusal({"in.geojson", "out.map", "--feature", "11"}),
                StartsWith("--feature: there is no \"11\"; "));
    EXPECT_THAT(Refusal({"in.geojson", "out.dat", "--feature", "2"}), HasSubstr("are\n  1  All features"));
}

TEST_F(FeatureChoosing, UnknownColumnsAreReportedWithThoseThereAre) {
    PutPoints({R"("a":1,"b":2)"});
    EXPECT_EQ(Refusal({"in.geojson", "out.map", "--feature", "@kind"}),
              "--feature: there is no column \"kind\"; there are a, b");
    EXPECT_EQ(Refusal({"in.geojson", "out.prn", "--label", "name"}),
              "--label: there is no column \"name\"; there are a, b");
}

TEST_F(FeatureChoosing, WithoutAnyItIsTheFirstRowAndReported) {
    PutPoints({R"("name":"Rhine")"});
    const Outcome outcome = Run({"in.geojson", "out.pkv"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(Ranks("out.pkv"), ElementsAre(1));
    EXPECT_EQ(outcome.errors, "quelmont-convert: everything without a row of its own became feature 1, "
                              "\"International Boundaries\"; --feature chooses another\n");
    Convert({"in.geojson", "out.dat"}); // one row is no choice
}

TEST_F(FeatureChoosing, DataOfAMapFileTellItByTheNameOfTheRow) {
    PutPoints({R"("feature":4,"name":"Rivers")"});
    Convert({"in.geojson", "out.pkv"});
    EXPECT_THAT(Ranks("out.pkv"), ElementsAre(24));
    PutPoints({R"("feature":5,"name":"Countries")"});
    EXPECT_EQ(Refusal({"in.geojson", "new.pkv"}),
              "in.geojson: feature 0: \"Countries\" is no feature of new.pkv; --feature chooses one");
}

TEST_F(FeatureChoosing, MapFileTellsItByTheNameOfTheRow) {
    Put("in.map", Bytes("58 1B 00 00 00 00")); // rank 7, Rivers
    Convert({"in.map", "out.pkv"});
    EXPECT_THAT(Ranks("out.pkv"), ElementsAre(24));
    Put("in.map", Bytes("D0 07 00 00 00 00")); // rank 2, Countries
    EXPECT_EQ(Refusal({"in.map", "new.pkv"}),
              "in.map: \"Countries\" is no feature of new.pkv; --feature chooses "
              "one, in what begins at byte 0");
    Convert({"in.map", "out.pkv", "--feature", "@feature"});
    EXPECT_THAT(Ranks("out.pkv"), ElementsAre(5));
}

TEST_F(FeatureChoosing, FileOfOneRowBecomesTheFirstRowAndIsReported) {
    Put("in.prn", "1,2,3\r\n");
    const Outcome outcome = Run({"in.prn", "out.map"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.errors, HasSubstr("became feature 1, \"Coastlines\""));
}

TEST_F(FeatureChoosing, LinesOfNoKnownFeatureAreLeftOutAndReported) {
    // Rank 11 stands for nothing.
    Put("in.map", Bytes("F8 2A 00 00 00 00 58 1B 00 00 00 00"));
    const Outcome outcome = Run({"in.map", "out.pkv"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(Ranks("out.pkv"), ElementsAre(24));
    EXPECT_EQ(outcome.errors, "quelmont-convert: 1 line of no known feature left out\n");
}

} // namespace
} // namespace quelmont

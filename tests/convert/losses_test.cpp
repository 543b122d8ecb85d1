// What a conversion loses or changes, and tells.

#include "convert_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class Losses : public ConvertTest {
protected:
    /// Rank 1 is Coastlines, 7 Rivers: 03E8, 1B58; 11, which means nothing: 2AF8.
    Losses() {
        Put("two.map", Bytes("E8 03 3C 00 3C 00 00 00 78 00 78 00 58 1B 00 00 00 00 58 1B 01 00 01 00"));
        Put("odd.map", Bytes("F8 2A 3C 00 3C 00 00 00 78 00 78 00 58 1B 00 00 00 00"));
    }
};

TEST_F(Losses, FeaturesThatBecomeOneAreReported) {
    const std::string note = "2 features became one, \"All features\": \"Coastlines\", \"Rivers\"";
    ConvertWith({note}, {"two.map", "out.dat"});
    Convert({"two.map", "two.gpkg"});
    ConvertWith({note}, {"two.gpkg", "out.dat"});
    ConvertWith({"2 features became one, \"Lakes\": \"Coastlines\", \"Rivers\""},
                {"two.map", "out.all", "--feature", "Lakes"});
}

TEST_F(Losses, FeaturesThatStayApartAreNotReported) {
    Convert({"two.map", "out.all"});
    Convert({"two.map", "out.dat", "--where", "name = 'Rivers'"});
}

TEST_F(Losses, FiveOfManyFeaturesThatBecomeOneAreNamed) {
    std::string map;
    for (const char* rank : {"E8 03", "D0 07", "B8 0B", "A0 0F", "88 13", "70 17", "58 1B"}) {
        map += Bytes(rank) + Bytes("00 00 00 00");
    }
    Put("seven.map", map);
    ConvertWith({"7 features became one, \"All features\": \"Canada\", \"Coastlines\", \"Countries\", "
                 "\"Islands\", \"Lakes\" and 2 more"},
                {"seven.map", "out.prn"});
}

TEST_F(Losses, ColumnsOfOtherDataAreNoFeaturesOfAMap) {
    Put("in.geojson", Collection(PointFeature(R"("feature":1,"name":"Rhine","pop":3)", "[1,1]") + "," +
                                 PointFeature(R"("feature":2,"name":"Main","pop":4)", "[2,2]")));
    Convert({"in.geojson", "out.dat"});
}

TEST_F(Losses, LinesOfNoKnownFeatureAreLeftOutEverywhere) {
    const std::string note = "1 line of no known feature left out";
    for (const char* name : {"out.geojson", "out.gpkg", "out.shp"}) {
        ConvertWith({note}, {"odd.map", name});
        EXPECT_THAT(Features(name), ElementsAre("4|Rivers|POINT (0 0)")) << name;
    }
    ConvertWith({note}, {"odd.map", "out.all"});
    EXPECT_EQ(Pairs(Get("out.all")), "58 1B 00 00 00 00");
    ConvertWith({note}, {"odd.map", "out.pkv", "--feature", "Reefs"});
    EXPECT_THAT(Get("out.pkv"), SizeIs(24)) << "one point, although all lines were to be reefs";
    ConvertWith({note}, {"odd.map", "out.dat"});
    EXPECT_THAT(Get("out.dat"), SizeIs(40)) << "a header and a point";
}

TEST_F(Losses, RowsBeyondTheTableAreNoKnownFeatures) {
    // Rank 60 of a packed file is row 60, which its table does not have.
    Put("in.pkv", Bytes("3C 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 05 00 00 00 32 00 00"));
    ConvertWith(
        {"1 line of no known feature left out", "there was nothing to write, and what was written is empty"},
        {"in.pkv", "out.geojson"});
}

TEST_F(Losses, EachPointOfAMultiPointHasTheLabel) {
    Put("in.geojson", Collection(Feature(R"("n":"Scilly")", R"("type":"MultiPoint","coordinates":)"
                                                            R"([[1,1],[2,2],[3,3]])")));
    Convert({"in.geojson", "out.prn", "--label", "n"});
    EXPECT_EQ(Get("out.prn"), "1,1.000000,1.000000,\"Scilly\"\r\n1,2.000000,2.000000,\"Scilly\"\r\n"
                              "1,3.000000,3.000000,\"Scilly\"\r\n");
}

TEST_F(Losses, LineInTwoPiecesHasItsLabelOnce) {
    Put("in.geojson", Collection(LineFeature(R"("n":"Equator")", "[179,0],[-179,0]")));
    Convert({"in.geojson", "out.prn", "--label", "n"});
    EXPECT_EQ(Get("out.prn"), "1,0.000000,179.000000,\"Equator\"\r\n0,0.000000,180.000000\r\n"
                              "1,0.000000,-180.000000\r\n0,0.000000,-179.000000\r\n");
}

TEST_F(Losses, LabelOfAMultiPointIsLostOnce) {
    Put("in.geojson",
        Collection(Feature(R"("n":"Scilly")", R"("type":"MultiPoint","coordinates":[[1,1],[2,2]])")));
    ConvertWith({"1 label left out: .dat has none"}, {"in.geojson", "out.dat", "--label", "n"});
}

/// Every ending of map files but the packed ones.
class LongSteps : public ConvertTest, public testing::WithParamInterface<const char*> {};

TEST_P(LongSteps, HavePointsInBetweenAndAreReported) {
    Put("in.geojson", Collection(LineFeature("", "[0,10],[50,25],[70,25]")));
    const std::string name = std::string("out") + GetParam();
    ConvertWith({"2 points put in between: steps are no longer than 20 degrees of longitude"},
                {"in.geojson", name, "--feature", "1", "--utm", "9,Clarke 1866,0"});
    if (name != "out.utm") {
        // 50 degrees in three parts, as no two of 25 will do; 20 degrees are no more than 20.
        Run({name, "back.geojson"});
        ASSERT_THAT(Features("back.geojson"), SizeIs(1));
        EXPECT_THAT(Features("back.geojson")[0], HasSubstr("LINESTRING (0 10,16.66666"));
        EXPECT_THAT(Features("back.geojson")[0], HasSubstr(" 15,33.33333"));
        EXPECT_THAT(Features("back.geojson")[0], HasSubstr(" 20,50 25,70 25)"));
    }
}

INSTANTIATE_TEST_SUITE_P(Each, LongSteps,
                         testing::Values(".map", ".all", ".cci", ".pnt", ".grf", ".dat", ".mps", ".mp1",
                                         ".prn", ".utm"),
                         [](const auto& ending) { return std::string(ending.param).substr(1); });

TEST_F(Losses, WholeParallelHasPointsInBetween) {
    Put("in.geojson", Collection(LineFeature("", "[-180,-80],[180,-80]")));
    ConvertWith({"17 points put in between: steps are no longer than 20 degrees of longitude"},
                {"in.geojson", "out.mp1"});
    EXPECT_THAT(Get("out.mp1"), testing::StartsWith("-80.000000 -180.000000\r\n-80.000000 -160.000000\r\n"));
}

TEST_F(Losses, PackedStepsAreReportedOnce) {
    Put("in.geojson", Collection(LineFeature("", "[0,0],[30,0]")));
    // 108000 seconds in steps of 127: 851 steps.
    ConvertWith({"850 points put in between: steps of .pkv are no longer than 127 seconds"},
                {"in.geojson", "out.pkv", "--feature", "1"});
}

TEST_F(Losses, PointsInBetweenAreNotSimplifiedAway) {
    Put("in.geojson", Collection(LineFeature("", "[0,0],[10,0],[60,0]")));
    ConvertWith({"2 points put in between: steps are no longer than 20 degrees of longitude"},
                {"in.geojson", "out.prn", "--simplify", "60"});
    EXPECT_EQ(Get("out.prn"), "1,0.000000,0.000000\r\n0,0.000000,20.000000\r\n0,0.000000,40.000000\r\n"
                              "0,0.000000,60.000000\r\n");
}

} // namespace
} // namespace quelmont

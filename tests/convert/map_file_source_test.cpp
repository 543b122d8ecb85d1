// Map files put together by hand, turned into GeoJSON and read back by GDAL.

#include "convert_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class MapFiles : public ConvertTest {
protected:
    std::vector<std::string> Read(const std::string& name, std::string_view contents,
                                  std::vector<std::string> options = {}) const {
        Put(name, contents);
        options.insert(options.begin(), {name, "out.geojson"});
        Convert(options);
        return Features("out.geojson");
    }
};

TEST_F(MapFiles, MinuteGridHasItsRows) {
    EXPECT_THAT(Read("in.map", Bytes("58 1B B8 0B 58 02 00 00 C7 0B 76 02 E8 03 27 F7 4A E3")),
                ElementsAre("4|Rivers|LINESTRING (10 50,10.5 50.25)", "1|Coastlines|POINT (-122.5 -37.75)"));
}

TEST_F(MapFiles, PointFileHasOneRow) {
    EXPECT_THAT(Read("in.pnt", Bytes("58 1B 3C 00 3C 00 00 00 78 00 78 00")),
                ElementsAre("1|All features|LINESTRING (1 1,2 2)"));
}

TEST_F(MapFiles, CodeOfAContinuingRecordEndsTheMinuteGrid) {
    EXPECT_THAT(Read("in.map", Bytes("58 1B 3C 00 3C 00 00 00")), ElementsAre("4|Rivers|POINT (1 1)"));
    EXPECT_THAT(Read("in.map", Bytes("58 1B 3C 00 3C 00 1A")), ElementsAre("4|Rivers|POINT (1 1)"));
}

TEST_F(MapFiles, PackedSegmentsAreSummedUp) {
    // From 10 E 50 N, 36 seconds east and 72 north, then 127 west and 128 south.
    EXPECT_THAT(
        Read("in.pkv", Bytes("18 00 03 05 00 00 00 32 00 00 05 00 00 24 32 01 0C 05 00 00 00 32 00 00 "
                             "24 48 81 80")),
        ElementsAre("21|Rivers|LINESTRING (10 50,10.01 50.02,9.974722222 49.984444444)"));
}

TEST_F(MapFiles, PackedNameTellsThePart) {
    const std::string point =
        Bytes("01 00 01 05 00 00 00 32 00 00 05 00 00 00 32 00 00 05 00 00 00 32 00 00");
    EXPECT_THAT(Read("wbR.pkd", point), ElementsAre("21|Rivers|POINT (10 50)"));
    EXPECT_THAT(Read("wbc.PKD", point), ElementsAre("9|Coastlines, Islands, Lakes|POINT (10 50)"));
    EXPECT_THAT(Read("wbR.pkv", point), ElementsAre("1|International Boundaries|POINT (10 50)"));
}

TEST_F(MapFiles, LowByteOfACountMayPassNinetyNine) {
    // 0 * 100 + 103 points: 102 steps of a second north.
    std::string steps;
    for (int i = 0; i < 102; ++i) {
        steps += Bytes("00 01");
    }
    const auto lines = Read(
        "in.grv", Bytes("7A 00 67 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00") + steps);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_THAT(lines[0], StartsWith("37|Interstate highway|LINESTRING (0 0,0 0.000277778,"));
    EXPECT_THAT(lines[0], testing::EndsWith(",0 0.028333333)")); // 102 / 3600
}

TEST_F(MapFiles, FixedRecordsAreDegreesMinutesSeconds) {
    EXPECT_THAT(Read("in.dat", "                  \r\n500036N0103000E   \r\n893000S1600001W   \r\n"
                               "header            \r\n000000N0000000E"),
                ElementsAre("1|All features|LINESTRING (10.5 50.01,-160.000277778 -89.5)",
                            "1|All features|POINT (0 0)"));
}

TEST_F(MapFiles, LineEndsAfterTheLastFixedRecordAreNoRecord) {
    EXPECT_THAT(Read("in.dat", "                  \r\n500036N0103000E   \r\n\r\n"),
                ElementsAre("1|All features|POINT (10.5 50.01)"));
}

TEST_F(MapFiles, LineGraphTextHasTheFeatureOfItsCode) {
    EXPECT_THAT(Read("in.grf", "       04000002   50"
                               "500000N0100000E   \r\n510000N0110000E   \r\n"
                               "       20000001   70"
                               "520000N0120000E   \r\n"),
                // 5004 is the last code of the divided highways; 7020 the Alaska pipeline.
                ElementsAre("39|Divided highway, limited access|LINESTRING (10 50,11 51)",
                            "72|Alaska pipeline|POINT (12 52)"));
}

TEST_F(MapFiles, WorldFloatsKeepTheirPrecision) {
    // 50.0001220703125 = 42480020 is a float; 185 = 43390000 is -175.
    EXPECT_THAT(
        Read("in.mps", Bytes("00 00 C6 42 20 00 48 42 00 00 20 41 0A 00 00 48 42 00 00 20 C1 01 0A "
                             "00 00 48 42 00 00 39 43 0A")),
        ElementsAre("1|All features|LINESTRING (10 50.00012207,-10 50)", "1|All features|POINT (-175 50)"));
}

TEST_F(MapFiles, WorldTextItemsEndAtCommasAndLineEnds) {
    EXPECT_THAT(
        Read("in.mp1", "50.5 10.25,-51 -10\rnew\n1 190"),
        ElementsAre("1|All features|LINESTRING (10.25 50.5,-10 -51)", "1|All features|POINT (-170 1)"));
}

TEST_F(MapFiles, AsciiMapHasLabelsOfBothEncodings) {
    EXPECT_THAT(Read("in.prn", "1,50.94,6.95,\"K\xF6ln\"\r\n1 48.14 11.58 \"M\xC3\xBCnchen\"\n1,1,2\n"),
                ElementsAre("1|All features|Köln|POINT (6.95 50.94)",
                            "1|All features|München|POINT (11.58 48.14)", "1|All features||POINT (2 1)"));
}

TEST_F(MapFiles, LabelInsideALineIsAPointOfItsOwn) {
    EXPECT_THAT(Read("in.prn", "1,0,0,\"from\"\r\n0,1,1,\"by\"\r\n0,2,2,\"to\"\r\n"),
                ElementsAre("1|All features|from|LINESTRING (0 0,1 1,2 2)", "1|All features|by|POINT (1 1)",
                            "1|All features|to|POINT (2 2)"));
}

TEST_F(MapFiles, MetresBecomeDegreesOfTheZone) {
    EXPECT_THAT(
        Read("in.utm", "1,500000,0\r\n1,571666.4475,5539109.8153,\"A\"\r\n", {"--utm", "9,WGS84 1984,0"}),
        ElementsAre("1|All features||POINT (9 0)", "1|All features|A|POINT (10 50)"));
}

TEST_F(MapFiles, LinesAreCutAt180) {
    EXPECT_THAT(
        Read("in.map", Bytes("E8 03 00 00 F4 29 00 00 00 00 0C D6")), // 179 and -179 degrees
        ElementsAre("1|Coastlines|LINESTRING (179 0,180 0)", "1|Coastlines|LINESTRING (-180 0,-179 0)"));
}

TEST_F(MapFiles, WhereChoosesByTheirColumns) {
    EXPECT_THAT(Read("in.map", Bytes("58 1B 3C 00 3C 00 E8 03 3C 00 3C 00"), {"--where", "name = 'Rivers'"}),
                ElementsAre("4|Rivers|POINT (1 1)"));
    EXPECT_THAT(Read("in.map", Bytes("58 1B 3C 00 3C 00 E8 03 3C 00 3C 00"), {"--where", "feature < 4"}),
                ElementsAre("1|Coastlines|POINT (1 1)"));
}

TEST_F(MapFiles, ShapefileOfPointsHasPoints) {
    Put("in.prn", "1,1,2,\"A\"\r\n1,3,4,\"Ä\"\r\n");
    Convert({"in.prn", "out.shp"});
    EXPECT_THAT(Features("out.shp"),
                ElementsAre("1|All features|A|POINT (2 1)", "1|All features|Ä|POINT (4 3)"));
    EXPECT_THAT(Names(), ElementsAre("in.prn", "out.cpg", "out.dbf", "out.prj", "out.shp", "out.shx"));
}

TEST_F(MapFiles, ShapefileOfLinesHasPointsAsLinesWithoutLength) {
    Put("in.map", Bytes("58 1B 3C 00 3C 00 E8 03 3C 00 3C 00 00 00 78 00 78 00"));
    Convert({"in.map", "out.shp"});
    EXPECT_THAT(Features("out.shp"),
                ElementsAre("4|Rivers|LINESTRING (1 1,1 1)", "1|Coastlines|LINESTRING (1 1,2 2)"));
    const Outcome back = Run({"out.shp", "back.map"});
    EXPECT_EQ(Get("back.map"), Get("in.map"));
    EXPECT_THAT(back.errors, HasSubstr("1 repeated point left out"));
}

TEST_F(MapFiles, EarlierShapefileLosesItsIndexes) {
    Put("out.qix", "of another one");
    Put("in.map", Bytes("58 1B 3C 00 3C 00"));
    Convert({"in.map", "out.shp"});
    EXPECT_FALSE(Has("out.qix"));
}

TEST_F(MapFiles, LettersOfAnEndingStayAsTheyWereAskedFor) {
    Put("IN.MAP", Bytes("58 1B 3C 00 3C 00"));
    for (const char* name : {"A.SHP", "B.GPKG", "C.GeoJSON", "D.Json"}) {
        Convert({"IN.MAP", name});
        EXPECT_TRUE(Has(name)) << name;
        EXPECT_THAT(Features(name), ElementsAre("4|Rivers|POINT (1 1)")) << name;
    }
}

TEST_F(MapFiles, GeoPackageLayerIsNamedInUtf8WhereItsFileIsNot) {
    Put("in.map", Bytes("58 1B 3C 00 3C 00"));
    Convert({"in.map", "caf\xE9.gpkg"});
    Convert({"caf\xE9.gpkg", "out.prn", "--layer", "caf\u00E9"});
    EXPECT_EQ(Get("out.prn"), "1,1.000000,1.000000\r\n");
}

TEST_F(MapFiles, GeoPackageLayerIsNamedAsTheFile) {
    Put("in.map", Bytes("58 1B 3C 00 3C 00"));
    Convert({"in.map", "streams.gpkg"});
    Convert({"streams.gpkg", "out.prn", "--layer", "streams"});
    EXPECT_EQ(Get("out.prn"), "1,1.000000,1.000000\r\n");
}

TEST_F(MapFiles, EarlierFileIsReplaced) {
    Put("in.map", Bytes("58 1B 3C 00 3C 00"));
    for (const char* name : {"out.shp", "out.gpkg", "out.geojson"}) {
        Put(name, "something else");
        Convert({"in.map", name});
        EXPECT_THAT(Features(name), ElementsAre("4|Rivers|POINT (1 1)")) << name;
    }
}

} // namespace
} // namespace quelmont

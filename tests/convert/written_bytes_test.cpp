// The bytes of tiny maps in every format, put together by hand.

#include "convert_fixture.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::HasSubstr;

class WrittenBytes : public ConvertTest {
protected:
    /// A line of two points and the options, as bytes of a file of this name.
    std::string Written(const std::string& output, const std::string& points,
                        std::vector<std::string> options = {}) const {
        Put("in.geojson", Collection(LineFeature("", points)));
        options.insert(options.begin(), {"in.geojson", output});
        Convert(options);
        return Get(output);
    }
};

TEST_F(WrittenBytes, MinuteGridHasRankAndMinutes) {
    // Rivers, row 4, have rank 7: 7000 = 1B58. 50 degrees are 3000 minutes, 0BB8; 50.25 are 0BC7; 10
    // degrees 0258, 10.5 0276.
    EXPECT_EQ(Pairs(Written("out.map", "[10,50],[10.5,50.25]", {"--feature", "4"})),
              "58 1B B8 0B 58 02 00 00 C7 0B 76 02");
}

TEST_F(WrittenBytes, MinuteGridSouthAndWestAreNegative) {
    // Coastlines have rank 1: 03E8. -37.75 degrees are -2265 minutes, F727; -122.5 are -7350, E34A; -120 are
    // -7200, E3E0.
    EXPECT_EQ(Pairs(Written("out.all", "[-122.5,-37.75],[-120,0]", {"--feature", "1"})),
              "E8 03 27 F7 4A E3 00 00 00 00 E0 E3");
}

TEST_F(WrittenBytes, PointFileHasTheFirstRank) {
    EXPECT_EQ(Pairs(Written("out.pnt", "[1,1],[2,2]")), "E8 03 3C 00 3C 00 00 00 78 00 78 00");
}

TEST_F(WrittenBytes, PackedFileHasBoxFirstPointAndSteps) {
    // From 10 E 50 N 36 seconds east and 72 north. 10 degrees of longitude are 2 * 5 + 0; 50.02 degrees
    // are 50 degrees 1 minute 12 seconds.
    EXPECT_EQ(Pairs(Written("out.pkv", "[10,50],[10.01,50.02]", {"--feature", "9"})),
              "09 00 02 05 00 00 00 32 00 00 05 00 00 24 32 01 0C 05 00 00 00 32 00 00 24 48");
}

TEST_F(WrittenBytes, PackedFileSouthAndWestHaveNegativeBytes) {
    // 179.5 W is -179 degrees (2 * -89 - 1) and -30 minutes; 33 S 27 seconds.
    EXPECT_EQ(Pairs(Written("out.pkv", "[-179.5,-33.0075],[-179.5,-33]", {"--feature", "9"})),
              "09 00 02 A7 FF E2 00 DF 00 E5 A7 FF E2 00 DF 00 00 A7 FF E2 00 DF 00 E5 00 1B");
}

TEST_F(WrittenBytes, LineGraphBytesAreTheFirstOfTheirFeature) {
    // Interstate highways, row 37, are byte 122.
    EXPECT_EQ(Pairs(Written("out.grv", "[0,0],[0,0.01]", {"--feature", "37"})),
              "7A 00 02 00 00 00 00 00 00 00 00 00 00 00 00 00 24 00 00 00 00 00 00 00 00 24");
}

TEST_F(WrittenBytes, LineGraphTextHasCodeAndCount) {
    // Code 5001: minor 01 at 8-9, major 50 at 19-20, the count at 10-15.
    EXPECT_EQ(Written("out.grf", "[10,50],[-9.51,-50.0125]", {"--feature", "37"}), "       01000002   50"
                                                                                   "500000N0100000E   \r\n"
                                                                                   "500045S0093036W   \r\n");
}

TEST_F(WrittenBytes, FixedRecordsBeginWithABlankHeader) {
    EXPECT_EQ(Written("out.dat", "[161,50],[179.9997222,-89.5]"), "                  \r\n"
                                                                  "500000N1610000E   \r\n"
                                                                  "893000S1795959E   \r\n");
}

TEST_F(WrittenBytes, WorldFloatsBeginWithTheMarker) {
    // 99 = 42C60000, 50 = 42480000, 10 = 41200000, 50.5 = 424A0000, 10.25 = 41240000.
    EXPECT_EQ(Pairs(Written("out.mps", "[10,50],[10.25,50.5]")),
              "00 00 C6 42 00 00 48 42 00 00 20 41 0A 00 00 4A 42 00 00 24 41 0A");
}

TEST_F(WrittenBytes, WorldTextHasAnEmptyItemBetweenLines) {
    Put("in.geojson",
        Collection(LineFeature("", "[10,50],[10.25,-50.5]") + "," + PointFeature("", "[-1,2]")));
    Convert({"in.geojson", "out.mp1"});
    EXPECT_EQ(Get("out.mp1"), "50.000000 10.000000\r\n"
                              "-50.500000 10.250000\r\n"
                              "\r\n"
                              "2.000000 -1.000000\r\n");
}

TEST_F(WrittenBytes, AsciiMapBeginsALineWithOne) {
    EXPECT_EQ(Written("out.prn", "[9,50],[-10.25,-50.5]"), "1,50.000000,9.000000\r\n"
                                                           "0,-50.500000,-10.250000\r\n");
}

TEST_F(WrittenBytes, AsciiMapHasItsLabelInQuotes) {
    Put("in.geojson", Collection(PointFeature(R"("town":"Köln")", "[6.95,50.94]") + "," +
                                 PointFeature(R"("town":null)", "[7,51]")));
    Convert({"in.geojson", "out.prn", "--label", "town"});
    EXPECT_EQ(Get("out.prn"), "1,50.940000,6.950000,\"Köln\"\r\n1,51.000000,7.000000\r\n");
}

TEST_F(WrittenBytes, MetresAreEastingAndNorthingOfTheZone) {
    // proj +proj=tmerc +lon_0=9 +k=0.9996 +x_0=500000 +a=6378137 +rf=298.257223563 gives for 10 E 50 N
    // 571666.4475 5539109.8153.
    EXPECT_EQ(Written("out.utm", "[9,0],[10,50]", {"--utm", "9,wgs84 1984"}),
              "1,500000.00,0.00\r\n0,571666.45,5539109.82\r\n");
}

TEST_F(WrittenBytes, ZoneHasTheSpheroidThatTheProgramProposes) {
    // The same with +a=6378206.4 +rf=294.9786982: 571668.7955 5538890.9067.
    EXPECT_EQ(Written("out.utm", "[9,0],[10,50]", {"--utm", "9E"}),
              "1,500000.00,0.00\r\n0,571668.80,5538890.91\r\n");
}

TEST_F(WrittenBytes, SouthOfTheEquatorHasNegativeNorthingsInAZoneWithoutAFalseOne) {
    // -9 E 20 S in the zone of 9 E on WGS84: -1407101.1272 -2316374.3102.
    EXPECT_EQ(Written("out.utm", "[9,0],[-9,-20]", {"--utm", "9,WGS84 1984,0"}),
              "1,500000.00,0.00\r\n0,-1407101.13,-2316374.31\r\n");
}

TEST_F(WrittenBytes, EachPointBeginsItsOwnLine) {
    Put("in.geojson", Collection(Feature("", R"("type":"MultiPoint","coordinates":[[1,1],[2,2]])")));
    Convert({"in.geojson", "out.map", "--feature", "Islands"});
    // Islands have rank 5: 1388.
    EXPECT_EQ(Pairs(Get("out.map")), "88 13 3C 00 3C 00 88 13 78 00 78 00");
}

TEST_F(WrittenBytes, LongStepsOfPackedFilesHavePointsInBetween) {
    Put("in.geojson", Collection(LineFeature("", "[0,0],[0.1,0.01]")));
    const Outcome outcome = Run({"in.geojson", "out.pkv", "--feature", "9"});
    EXPECT_EQ(outcome.code, 0);
    // 360 seconds east and 36 north in three steps of 120 and 12.
    EXPECT_EQ(Pairs(Get("out.pkv")).substr(0, 8), "09 00 04");
    EXPECT_EQ(Pairs(Get("out.pkv").substr(24)), "78 0C 78 0C 78 0C");
    EXPECT_EQ(outcome.errors,
              "quelmont-convert: 2 points put in between: steps of .pkv are no longer than 127 seconds\n");
}

TEST_F(WrittenBytes, StepOf127SecondsIsTheLongest) {
    // 127 seconds are 0.0352777... degrees, 128 are 0.0355555...
    EXPECT_EQ(
        Pairs(Written("out.pkv", "[0,0],[-0.03527777778,0.03527777778]", {"--feature", "9"}).substr(24)),
        "81 7F");
    Put("in.geojson", Collection(LineFeature("", "[0,0],[0,-0.03555555556]")));
    EXPECT_EQ(Run({"in.geojson", "out.pkv", "--feature", "9"}).code, 0);
    EXPECT_EQ(Pairs(Get("out.pkv").substr(24)), "00 C0 00 C0");
}

TEST_F(WrittenBytes, RepeatedPointsAreLeftOutAndReported) {
    // All within half a minute of 0, 0, then a minute north.
    Put("in.geojson", Collection(LineFeature("", "[0,0],[0.001,0.001],[0.008,0],[0,0.016666667]")));
    const Outcome outcome = Run({"in.geojson", "out.map", "--feature", "1"});
    EXPECT_EQ(Pairs(Get("out.map")), "E8 03 00 00 00 00 00 00 01 00 00 00");
    EXPECT_EQ(outcome.errors, "quelmont-convert: 2 repeated points left out: .map cannot tell them from the "
                              "point before\n");
}

TEST_F(WrittenBytes, LineThatShrinksToAPointStaysOne) {
    Put("in.geojson", Collection(LineFeature("", "[0,0],[0.001,0.001],[0,0]")));
    const Outcome outcome = Run({"in.geojson", "out.map", "--feature", "1"});
    EXPECT_EQ(Pairs(Get("out.map")), "E8 03 00 00 00 00");
    EXPECT_THAT(outcome.errors, HasSubstr("1 line became a single point by that\n"));
}

/// Points a second apart, to and fro between the equator and its first second.
std::string ManyPoints(int count) {
    std::string points;
    for (int i = 0; i < count; ++i) {
        points += (i == 0 ? "[0," : ",[0,") + std::string(i % 2 == 0 ? "0" : "0.000277778") + "]";
    }
    return points;
}

TEST_F(WrittenBytes, PackedSegmentIsDividedWhereItsCountEnds) {
    // A count is 255 * 100 + 255 at most. The second segment begins with the last point of the first:
    // of 25757 points it has 3, numbers 25755 to 25757.
    Put("in.geojson", Collection(LineFeature("", ManyPoints(25757))));
    const Outcome outcome = Run({"in.geojson", "out.pkv", "--feature", "9"});
    EXPECT_EQ(outcome.errors, "quelmont-convert: 1 line divided: .pkv counts no more points in one\n");
    const std::string bytes = Get("out.pkv");
    const std::size_t first = 24 + 2 * 25754;
    ASSERT_EQ(bytes.size(), first + 24 + 2 * 2);
    EXPECT_EQ(Pairs(bytes.substr(0, 3)), "09 FF FF");
    EXPECT_EQ(Pairs(bytes.substr(first, 3)), "09 00 03");
    // The 25755th point is on the equator, as the first one.
    EXPECT_EQ(Pairs(bytes.substr(first + 17)), "00 00 00 00 00 00 00 00 01 00 FF");
}

TEST_F(WrittenBytes, FullPackedSegmentIsNotDivided) {
    Written("out.pkv", ManyPoints(25755), {"--feature", "9"});
    EXPECT_EQ(Get("out.pkv").size(), 24U + 2U * 25754U);
}

TEST_F(WrittenBytes, QuotesAndLineEndsInLabelsAreChangedAndReported) {
    Put("in.geojson", Collection(PointFeature(R"("n":"the \"Rock\"\nof")", "[1,2]")));
    const Outcome outcome = Run({"in.geojson", "out.prn", "--label", "n"});
    EXPECT_EQ(Get("out.prn"), "1,2.000000,1.000000,\"the 'Rock' of\"\r\n");
    EXPECT_EQ(outcome.errors,
              "quelmont-convert: 1 label changed: no double quotes, line ends or endless texts in .prn\n");
}

TEST_F(WrittenBytes, EndlessLabelIsCutBetweenItsLetters) {
    // An odd number of bytes before letters of two; 32768 is even.
    std::string label = "x";
    for (int i = 0; i < 20000; ++i) {
        label += "ö";
    }
    Put("in.geojson", Collection(PointFeature("\"n\":\"" + label + "\"", "[1,2]")));
    const Outcome outcome = Run({"in.geojson", "out.prn", "--label", "n"});
    EXPECT_EQ(Get("out.prn"), "1,2.000000,1.000000,\"" + label.substr(0, 32767) + "\"\r\n");
    EXPECT_THAT(outcome.errors, HasSubstr("1 label changed"));
    EXPECT_EQ(Run({"out.prn", "out.mp1"}).errors, "quelmont-convert: 1 label left out: .mp1 has none\n");
}

TEST_F(WrittenBytes, LabelsThatTheFormatHasNoPlaceForAreReported) {
    Put("in.geojson",
        Collection(PointFeature(R"("n":"A")", "[1,2]") + "," + PointFeature(R"("n":"")", "[1,2]")));
    const Outcome outcome = Run({"in.geojson", "out.dat", "--label", "n"});
    EXPECT_EQ(outcome.errors, "quelmont-convert: 1 label left out: .dat has none\n");
}

TEST_F(WrittenBytes, LabelOfAFeatureStandsOnce) {
    Put("in.geojson", Collection(Feature(R"("n":"twins")", R"("type":"MultiLineString","coordinates":)"
                                                           R"([[[1,1],[2,2]],[[3,3],[4,4]]])")));
    Convert({"in.geojson", "out.prn", "--label", "n"});
    EXPECT_EQ(Get("out.prn"), "1,1.000000,1.000000,\"twins\"\r\n0,2.000000,2.000000\r\n"
                              "1,3.000000,3.000000\r\n0,4.000000,4.000000\r\n");
}

TEST_F(WrittenBytes, PointsFarFromTheZoneAreLeftOutAndReported) {
    // A quarter of the equator off the central meridian a transverse Mercator map has no end.
    Put("in.geojson", Collection(LineFeature("", "[80,1],[99,0],[80,2],[80,3]")));
    ConvertWith({"1 point left out: too far from the zone"}, {"in.geojson", "out.utm", "--utm", "9"});
    const std::string metres = Get("out.utm");
    EXPECT_THAT(metres, testing::StartsWith("1,"));
    EXPECT_THAT(metres,
                testing::ContainsRegex("^1,[0-9.]+,[0-9.]+\r\n1,[0-9.]+,[0-9.]+\r\n0,[0-9.]+,[0-9.]+\r\n$"));
}

} // namespace
} // namespace quelmont

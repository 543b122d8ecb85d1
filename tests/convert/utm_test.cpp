// .utm files north and south of the equator.

#include "convert_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

const std::string AllSouth = "the false northing is 10000000 metres, as all lies south of the equator; the "
                             "map needs the same, and --utm \"9,WGS84 1984,0\" leaves it out";
const std::string OnBothSides = "northings south of the equator are negative, and no map can show them; "
                                "--utm \"9,WGS84 1984,10000000\" adds a false northing";
const std::string FromTheEquator = "the northings of in.utm are counted from the equator; --utm \"9,WGS84 "
                                   "1984,10000000\" is for a zone of the south";

class SouthernZones : public ConvertTest {
protected:
    SouthernZones() {
        // proj +proj=tmerc +lon_0=9 +k=0.9996 +x_0=500000 +a=6378137 +rf=298.257223563 gives for
        // 10 E 50 N 571666.4475 5539109.8153; 50 S is the same below the equator.
        Put("south.geojson", Collection(LineFeature("", "[9,0],[10,-50]")));
        Put("north.geojson", Collection(LineFeature("", "[9,0],[10,50]")));
        Put("both.geojson", Collection(LineFeature("", "[9,10],[10,-50]")));
    }
};

TEST_F(SouthernZones, HaveAFalseNorthingWhenAllLiesInTheSouth) {
    ConvertWith({AllSouth}, {"south.geojson", "out.utm", "--utm", "9,WGS84 1984"});
    EXPECT_EQ(Get("out.utm"), "1,500000.00,10000000.00\r\n0,571666.45,4460890.18\r\n");
}

TEST_F(SouthernZones, HaveTheFalseNorthingThatIsAskedFor) {
    Convert({"south.geojson", "out.utm", "--utm", "9,WGS84 1984,0"});
    EXPECT_EQ(Get("out.utm"), "1,500000.00,0.00\r\n0,571666.45,-5539109.82\r\n");
    Convert({"south.geojson", "out.utm", "--utm", "9,WGS84 1984,6000000"});
    EXPECT_EQ(Get("out.utm"), "1,500000.00,6000000.00\r\n0,571666.45,460890.18\r\n");
    Convert({"north.geojson", "out.utm", "--utm", "9,WGS84 1984,10000000"});
    EXPECT_EQ(Get("out.utm"), "1,500000.00,10000000.00\r\n0,571666.45,15539109.82\r\n");
}

TEST_F(SouthernZones, AreReportedWhereDataLieOnBothSides) {
    ConvertWith({OnBothSides}, {"both.geojson", "out.utm", "--utm", "9,WGS84 1984"});
    EXPECT_THAT(Get("out.utm"), HasSubstr("\r\n0,571666.45,-5539109.82\r\n"));
}

TEST_F(SouthernZones, AreReportedByWhatIsWrittenAndNotByWhatIsRead) {
    Put("in.geojson", Collection(PointFeature("", "[10,-50]") + "," + PointFeature("", "[10,60]")));
    ConvertWith({AllSouth}, {"in.geojson", "out.utm", "--utm", "9,WGS84 1984", "--bounds", "0,-60,20,0"});
    EXPECT_EQ(Get("out.utm"), "1,571666.45,4460890.18\r\n");
}

TEST_F(SouthernZones, NeedNoNoteInTheNorth) {
    Convert({"north.geojson", "out.utm", "--utm", "9,WGS84 1984"});
    EXPECT_EQ(Get("out.utm"), "1,500000.00,0.00\r\n0,571666.45,5539109.82\r\n");
}

TEST_F(SouthernZones, AreReadWithTheirFalseNorthing) {
    Put("in.utm", "1,500000,10000000\r\n1,571666.4475,4460890.1847,\"A\"\r\n");
    Convert({"in.utm", "out.prn", "--utm", "9,WGS84 1984,10000000"});
    EXPECT_EQ(Get("out.prn"), "1,0.000000,9.000000\r\n1,-50.000000,10.000000,\"A\"\r\n");
}

TEST_F(SouthernZones, AreReadFromTheEquatorWithoutOneAndReported) {
    Put("in.utm", "1,571666.4475,5539109.8153\r\n1,571666.4475,-5539109.8153\r\n");
    ConvertWith({FromTheEquator}, {"in.utm", "out.prn", "--utm", "9,WGS84 1984"});
    EXPECT_EQ(Get("out.prn"), "1,50.000000,10.000000\r\n1,-50.000000,10.000000\r\n");
}

TEST_F(SouthernZones, ComeBackAsTheyWere) {
    const std::vector<std::string> zone = {"--utm", "9,WGS84 1984,10000000"};
    Convert({"south.geojson", "out.utm", zone[0], zone[1]});
    Run({"out.utm", "back.geojson", zone[0], zone[1]});
    Convert({"back.geojson", "again.utm", zone[0], zone[1], "--simplify", "1"});
    ASSERT_THAT(Features("back.geojson"), SizeIs(1));
    EXPECT_THAT(Features("back.geojson")[0], testing::StartsWith("1|All features|LINESTRING (9 0,"));
    EXPECT_THAT(Get("again.utm"), testing::StartsWith("1,500000.00,10000000.00\r\n"));
    EXPECT_THAT(Get("again.utm"), testing::EndsWith("\r\n0,571666.45,4460890.18\r\n"));
}

TEST_F(SouthernZones, LinesThatAreStraightInMetresStaySo) {
    // 400 km along a northing: 50 N on the central meridian, farther south at the ends.
    Put("in.utm", "1,300000,5538630\r\n0,700000,5538630,\"end\"\r\n");
    const Outcome outcome = Run({"in.utm", "out.prn", "--utm", "9,WGS84 1984,0"});
    EXPECT_THAT(outcome.errors,
                HasSubstr(" points put in between: what is straight in the source's projection is not so"));
    Convert({"out.prn", "back.utm", "--utm", "9,WGS84 1984,0"});
    std::istringstream lines(Get("back.utm"));
    int points = 0;
    for (std::string line; std::getline(lines, line); ++points) {
        EXPECT_THAT(line, testing::AnyOf(HasSubstr(",5538630.0"), HasSubstr(",5538629.9"))) << line;
    }
    EXPECT_GT(points, 20);
    EXPECT_THAT(Get("back.utm"), HasSubstr("\r\n1,699999.98,5538630.01,\"end\"\r\n"))
        << "the label's own point";
}

} // namespace
} // namespace quelmont

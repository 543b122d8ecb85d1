#include "reports/great_circle_report.h"

#include "circles/great_circle.h"
#include "core/map_design.h"
#include "reports/report_fixture.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class GreatCircleReportTest : public ReportTest {
protected:
    static std::vector<ReportRow> Route(double lat, double lon, double endLat, double endLon) {
        Design.VersionText = "3.00";
        Design.GcStartLat = lat;
        Design.GcStartLon = lon;
        Design.GcEndLat = endLat;
        Design.GcEndLon = endLon;
        Design.GcDefined = true;
        GcCalc();
        return RowsOf(GreatCircleReport(), "");
    }
};

TEST_F(GreatCircleReportTest, ListsThePointsWithCourseAndDistance) {
    // A degree and a half along the equator: 60 and 90 nautical miles.
    EXPECT_THAT(
        Route(0.0, 10.0, 0.0, 11.5),
        ElementsAre(ReportRow{"Quelmont Version 3.00 Great Circle Report"},
                    ReportRow{"Starting latitude:", "00 00 00 N"},
                    ReportRow{"Starting longitude:", "010 00 00 E"},
                    ReportRow{"Starting course:", "090 Degrees"},
                    ReportRow{"Starting distance:", "00,000 NM", "00,000 SM", "00,000 KM"}, ReportRow{},
                    ReportRow{"Ending latitude:", "00 00 00 N"},
                    ReportRow{"Ending longitude:", "011 30 00 E"}, ReportRow{"Ending course:", "090 Degrees"},
                    ReportRow{"Ending distance:", "00,090 NM", "00,104 SM", "00,167 KM"},
                    ReportRow{"#", "Latitude", "Longitude", "Course", "Distance"},
                    ReportRow{"", "", "", "Degrees", "NM", "SM", "KM"},
                    ReportRow{"001", "00 00 00 N", "010 00 00 E", "090.0", "00,000", "00,000", "00,000"},
                    ReportRow{"002", "00 00 00 N", "011 00 00 E", "090.0", "00,060", "00,069", "00,111"},
                    ReportRow{"003", "00 00 00 N", "011 30 00 E", "090.0", "00,090", "00,104", "00,167"}));
}

TEST_F(GreatCircleReportTest, RouteOfOneStepHasTwoRows) {
    EXPECT_THAT(Route(10.0, 20.0, 11.0, 20.0), SizeIs(12 + 2));
}

TEST_F(GreatCircleReportTest, RowsGoTheWayThatIsTravelled) {
    // The table itself runs eastward.
    const std::vector<ReportRow> rows = Route(10.0, 22.0, 12.0, 20.0);
    EXPECT_EQ(rows[1][1], "10 00 00 N");
    EXPECT_EQ(rows[2][1], "022 00 00 E");
    EXPECT_EQ(rows[6][1], "12 00 00 N");
    EXPECT_EQ(rows[12][0], "001");
    EXPECT_EQ(rows[12][2], "022 00 00 E");
    EXPECT_EQ(rows[12][4], "00,000");
    EXPECT_EQ(rows.back()[2], "020 00 00 E");
}

TEST_F(GreatCircleReportTest, TableWithoutRowsGivesATitle) {
    Design.GcTable = {};
    EXPECT_THAT(RowsOf(GreatCircleReport(), ""), SizeIs(1));
}

} // namespace
} // namespace quelmont

// Sources in reference systems of their own, written as .prn.

#include "convert_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <sstream>

namespace quelmont {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

struct Point {
    double lon = 0.0, lat = 0.0;
};

class ReferenceSystems : public ConvertTest {
protected:
    Outcome RunWith(const std::string& epsg, const std::string& points) const {
        Put("in.geojson", R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":"EPSG:)" +
                              epsg + R"("}},"features":[)" + LineFeature("", points) + "]}");
        return Run({"in.geojson", "out.prn"});
    }

    /// Of a line whose coordinates are in a system of the EPSG.
    std::string Prn(const std::string& epsg, const std::string& points) const {
        const Outcome outcome = RunWith(epsg, points);
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.errors, "");
        return Get("out.prn");
    }

    /// The points of out.prn.
    std::vector<Point> Points() const {
        std::vector<Point> points;
        std::istringstream lines(Get("out.prn"));
        for (std::string line; std::getline(lines, line);) {
            Point point;
            int begins = 0;
            EXPECT_EQ(std::sscanf(line.c_str(), "%d,%lf,%lf", &begins, &point.lat, &point.lon), 3) << line;
            points.push_back(point);
        }
        return points;
    }

    /// The most that the line of out.prn, as a map draws it, lies off the line in the source: a function
    /// gives the distance in metres of a place in the projected system from that.
    double MostOff(const std::string& epsg, const std::function<double(double, double)>& off) const {
        OGRSpatialReference wgs84;
        OGRSpatialReference system;
        wgs84.importFromEPSG(4326);
        system.importFromEPSG(std::stoi(epsg));
        wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        system.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        const std::unique_ptr<OGRCoordinateTransformation> there(
            OGRCreateCoordinateTransformation(&wgs84, &system));
        const std::vector<Point> points = Points();
        double most = 0.0;
        for (std::size_t i = 1; i < points.size(); ++i) {
            const double step = points[i].lon - points[i - 1].lon;
            if (std::fabs(step) > 180.0) {
                continue; // from one side of the 180th meridian to the other
            }
            for (const double share : {0.0, 0.25, 0.5, 0.75, 1.0}) {
                double x = points[i - 1].lon + share * step;
                double y = points[i - 1].lat + share * (points[i].lat - points[i - 1].lat);
                EXPECT_TRUE(there->Transform(1, &x, &y));
                most = std::max(most, std::fabs(off(x, y)));
            }
        }
        return most;
    }
};

constexpr const char* Told =
    " points put in between: what is straight in the source's projection is not so in degrees\n";

// The figures are those of cs2cs -f %.6f EPSG:4326 +to EPSG:...

TEST_F(ReferenceSystems, WebMercatorBecomesDegrees) {
    EXPECT_EQ(Prn("3857", "[1113194.907933,6446275.841017],[1113194.907933,0]"),
              "1,50.000000,10.000000\r\n0,0.000000,10.000000\r\n");
}

TEST_F(ReferenceSystems, UtmZoneBecomesDegrees) {
    // cs2cs -f %.9f EPSG:32632 +to EPSG:4326 of the second: 49.973438821 11.676012468.
    RunWith("32632", "[571666.447503,5539109.815299],[691875.632,5539109.816]");
    EXPECT_THAT(Get("out.prn"), StartsWith("1,50.000000,10.000000\r\n"));
    EXPECT_THAT(Get("out.prn"), EndsWith("\r\n0,49.973439,11.676012\r\n"));
}

TEST_F(ReferenceSystems, LatitudeFirstIsLongitudeFirstAllTheSame) {
    // The order of the axes of EPSG:4326 itself is latitude, longitude.
    EXPECT_EQ(Prn("4326", "[10,50],[20,60]"), "1,50.000000,10.000000\r\n0,60.000000,20.000000\r\n");
}

TEST_F(ReferenceSystems, AnotherDatumIsBroughtToWgs84) {
    // echo "50 10" | cs2cs -f %.6f EPSG:4314 +to EPSG:4326: 49.998857 9.998811, a hundred metres off.
    EXPECT_THAT(Prn("4314", "[10,50],[10,50.5]"), StartsWith("1,49.998857,9.998811\r\n"));
}

TEST_F(ReferenceSystems, NoneIsTakenForDegreesAndReported) {
    Put("in.csv", "WKT,n\n\"LINESTRING (10 50,20 60)\",1\n");
    ConvertWith({"the coordinates are taken for longitude and latitude, as there is no reference system"},
                {"in.csv", "out.prn"});
    EXPECT_EQ(Get("out.prn"), "1,50.000000,10.000000\r\n0,60.000000,20.000000\r\n");
}

TEST_F(ReferenceSystems, SquareAroundThePoleStaysASquareAndIsReported) {
    const Outcome outcome = RunWith("3413", "[-1e6,-1e6],[1e6,-1e6],[1e6,1e6],[-1e6,1e6],[-1e6,-1e6]");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.errors, HasSubstr(Told));
    // A tenth of a second of arc is three metres, a millionth of a degree a tenth of a metre.
    EXPECT_LT(MostOff("3413", [](double x, double y) { return std::max(std::fabs(x), std::fabs(y)) - 1e6; }),
              4.0);
    EXPECT_LT(Points().size(), 5000U);
}

TEST_F(ReferenceSystems, SlantingLineOfMercatorIsBentOnBothSidesOfTheEquator) {
    // Its middle lies on the chord between its ends, its quarters do not.
    const Outcome outcome = RunWith("3857", "[0,-8e6],[6e6,8e6]");
    EXPECT_THAT(outcome.errors, HasSubstr(Told));
    EXPECT_GT(Points().size(), 30U);
    // Metres of Mercator at 58 degrees are half as long.
    EXPECT_LT(MostOff("3857", [](double x, double y) { return (x - (y + 8e6) * 0.375) * 0.936; }), 8.0);
}

TEST_F(ReferenceSystems, ParallelsAndMeridiansOfMercatorNeedNoPoints) {
    Prn("3857", "[0,1e6],[2e6,1e6],[2e6,7e6]");
    EXPECT_EQ(Points().size(), 3U);
}

TEST_F(ReferenceSystems, LongWayRoundTheEarthStaysOne) {
    // From 135 W to 135 E by 0: more than half a circle.
    RunWith("3857", "[-15028131.257092,0],[15028131.257092,0]");
    for (const Point& point : Points()) {
        EXPECT_LE(std::fabs(point.lon), 135.000001);
    }
    EXPECT_THAT(Get("out.prn"), HasSubstr(",0.000000\r\n"));
}

TEST_F(ReferenceSystems, LineThroughThePoleHasItsTwoMeridiansThere) {
    // The x axis of EPSG:3413 is 45 E, beyond the pole 135 W.
    RunWith("3413", "[-1e6,0],[1e6,0]");
    EXPECT_THAT(Get("out.prn"), HasSubstr("\r\n0,90.000000,-135.000000\r\n"));
    EXPECT_THAT(Get("out.prn"), HasSubstr("\r\n0,90.000000,45.000000\r\n"));
    for (const Point& point : Points()) {
        EXPECT_TRUE(point.lat == 90.0 || std::fabs(point.lon - 45.0) < 1e-6 ||
                    std::fabs(point.lon + 135.0) < 1e-6)
            << point.lon << ' ' << point.lat;
    }
}

TEST_F(ReferenceSystems, ManyLongSegmentsDoNotGrowWithoutEnd) {
    std::string points = "[-2e7,-1e7]";
    for (int i = 0; i < 20000; ++i) {
        points += i % 2 == 0 ? ",[2e7,1e7]" : ",[-2e7,-1e7]";
    }
    RunWith("3857", points);
    EXPECT_LT(Points().size(), 5'000'000U);
}

} // namespace
} // namespace quelmont

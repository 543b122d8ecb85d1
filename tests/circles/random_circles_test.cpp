// Circles between and about random places, against the geodesics of PROJ on a sphere whose degree is
// sixty minutes long.

#include "circles/great_circle.h"
#include "circles/small_circle.h"

#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <geodesic.h>

#include <cmath>
#include <numbers>
#include <random>

namespace quelmont {
namespace {

constexpr double Degree = std::numbers::pi / 180.0;

/// Three millionths of the radius to the east and to the north, in minutes.
constexpr double LargestOff = 3e-6 / Degree * 60.0 * 1.5;

double LonDifference(double a, double b) { return std::remainder(a - b, 360.0); }

class RandomCircles : public FreshProgramTest {
protected:
    RandomCircles() { geod_init(&sphere, 60.0 / Degree, 0.0); }

    struct Way {
        double distance; ///< minutes
        double course;   ///< degrees, 0 to 360
    };
    Way Inverse(double lat1, double lon1, double lat2, double lon2) const {
        Way way{};
        double end = 0.0;
        geod_inverse(&sphere, lat1, lon1, lat2, lon2, &way.distance, &way.course, &end);
        way.course = way.course < 0.0 ? way.course + 360.0 : way.course;
        return way;
    }

    double Uniform(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(random);
    }
    bool Rarely() { return std::uniform_int_distribution<int>(0, 9)(random) == 0; }

    /// Whole seconds, as a person types them; often at the places where something special happens.
    double Latitude() {
        if (Rarely()) {
            return std::array{-90.0, -89.0 - 3599.0 / 3600.0, 0.0, 0.0, 90.0}[random() % 5];
        }
        return std::round(std::asin(Uniform(-1.0, 1.0)) / Degree * 3600.0) / 3600.0;
    }
    double Longitude() {
        if (Rarely()) {
            return std::array{-180.0, -179.0, 0.0, 179.0, 180.0}[random() % 5];
        }
        return std::round(Uniform(-180.0, 180.0) * 3600.0) / 3600.0;
    }

    geod_geodesic sphere{};
    std::mt19937 random{1966};
};

TEST_F(RandomCircles, GreatCircleRowsLieOnTheGeodesic) {
    for (int trial = 0; trial < 5000; ++trial) {
        Design.GcStartLat = Latitude();
        Design.GcStartLon = Longitude();
        Design.GcEndLat = Rarely() ? -Design.GcStartLat : Rarely() ? Design.GcStartLat : Latitude();
        Design.GcEndLon = Rarely()   ? Design.GcStartLon
                          : Rarely() ? Design.GcStartLon - std::copysign(180.0, Design.GcStartLon)
                                     : Longitude();
        SCOPED_TRACE(testing::Message() << Design.GcStartLat << ' ' << Design.GcStartLon << " to "
                                        << Design.GcEndLat << ' ' << Design.GcEndLon);
        GcCalc();
        ASSERT_TRUE(machine.boxes.asked.empty());
        const GreatCircleTable& table = Design.GcTable;
        ASSERT_FALSE(table.Rows.empty());
        const GreatCirclePoint& start = table.Row(table.GcFirst);
        const GreatCirclePoint& end = table.Row(table.GcLast);
        EXPECT_NEAR(start.GcLat, Design.GcStartLat, 1.1e-5) << "1e-5 on the equator";
        EXPECT_NEAR(end.GcLat, Design.GcEndLat, 1.1e-5);
        if (std::fabs(Design.GcStartLat) < 90.0 && std::fabs(Design.GcEndLat) < 90.0) {
            EXPECT_NEAR(LonDifference(start.GcLon, Design.GcStartLon), 0.0, 1e-12);
            EXPECT_NEAR(LonDifference(end.GcLon, Design.GcEndLon), 0.0, 1e-12);
        }
        const Way whole = Inverse(start.GcLat, start.GcLon, end.GcLat, end.GcLon);
        // Next to the antipode haversines lose their digits.
        const double tolerance = whole.distance > 10799.9 ? 1e-4 : 1e-6;
        EXPECT_NEAR(end.GcDist, whole.distance, tolerance);
        double before = 0.0;
        for (std::int32_t i = table.GcFirst;; i += table.GcStep) {
            SCOPED_TRACE(i);
            const GreatCirclePoint& row = table.Row(static_cast<std::int16_t>(i));
            const Way come = Inverse(start.GcLat, start.GcLon, row.GcLat, row.GcLon);
            const Way left = Inverse(row.GcLat, row.GcLon, end.GcLat, end.GcLon);
            EXPECT_NEAR(row.GcDist, come.distance, tolerance);
            EXPECT_NEAR(come.distance + left.distance, whole.distance, tolerance)
                << "a detour lies beside the circle";
            EXPECT_GE(row.GcDist - before, -1e-9) << "distances grow";
            EXPECT_LE(row.GcDist - before, 240.0 + 1e-9);
            before = row.GcDist;
            // At the end, at a pole and half a globe away every course is right or none.
            const double sure = std::min(left.distance, 10800.0 - left.distance);
            if (sure > 0.01 && std::fabs(row.GcLat) < 89.9) {
                EXPECT_NEAR(LonDifference(row.GcAzimuth, left.course), 0.0, 1e-6);
            }
            if (i == table.GcLast) {
                break;
            }
        }
        ASSERT_FALSE(HasFailure());
    }
}

TEST_F(RandomCircles, GreatCircleArrivesOnItsCourse) {
    for (int trial = 0; trial < 2000; ++trial) {
        Design.GcStartLat = Latitude();
        Design.GcStartLon = Longitude();
        Design.GcEndLat = Latitude();
        Design.GcEndLon = Longitude();
        GcCalc();
        const GreatCirclePoint& start = Design.GcTable.Row(Design.GcTable.GcFirst);
        const GreatCirclePoint& end = Design.GcTable.Row(Design.GcTable.GcLast);
        const Way back = Inverse(end.GcLat, end.GcLon, start.GcLat, start.GcLon);
        if (back.distance > 0.01 && back.distance < 10799.99 && std::fabs(end.GcLat) < 89.9) {
            ASSERT_NEAR(LonDifference(end.GcAzimuth, back.course + 180.0), 0.0, 1e-6)
                << Design.GcStartLat << ' ' << Design.GcStartLon << " to " << Design.GcEndLat << ' '
                << Design.GcEndLon;
        }
    }
}

TEST_F(RandomCircles, SmallCirclePointsLieAtTheirRadius) {
    for (int trial = 0; trial < 2000; ++trial) {
        Design.ScCenterLat = Latitude();
        Design.ScCenterLon = Longitude();
        Design.ScRadiusDeg = Rarely() ? 90.0 - std::fabs(Design.ScCenterLat)
                                      : std::round(Uniform(0.0, 180.0) * 3600.0) / 3600.0;
        Design.ScSymbolCount = static_cast<std::int16_t>(1 + random() % 3);
        SCOPED_TRACE(testing::Message() << Design.ScCenterLat << ' ' << Design.ScCenterLon << ", "
                                        << Design.ScRadiusDeg << " in " << Design.ScSymbolCount);
        ScCalc();
        ASSERT_TRUE(machine.boxes.asked.empty());
        std::size_t point = 0;
        for (std::size_t ring = 0; ring < Design.ScTable.ScRingEnd.size(); ++ring) {
            const double radius =
                60.0 * Design.ScRadiusDeg * static_cast<double>(ring + 1) / Design.ScSymbolCount;
            std::size_t onCircle = 0;
            std::size_t beside = 0; // where the tangent of the longitude has too small a denominator
            double lonBefore = Design.ScTable.Points[point].ScLon;
            for (; point < static_cast<std::size_t>(Design.ScTable.ScRingEnd[ring]); ++point) {
                const SmallCirclePoint& place = Design.ScTable.Points[point];
                const double distance =
                    Inverse(Design.ScCenterLat, Design.ScCenterLon, place.ScLat, place.ScLon).distance;
                const double off = std::fabs(distance - radius);
                onCircle += off < 6e-5 ? 1U : 0U;
                beside += off >= 6e-5 && off <= LargestOff ? 1U : 0U;
                ASSERT_NEAR(distance, radius, 90.0) << "even of the points between";
                ASSERT_LE(std::fabs(LonDifference(place.ScLon, lonBefore)), 20.0 + 1e-9)
                    << "or the 180th meridian lies between";
                lonBefore = place.ScLon;
            }
            ASSERT_GE(onCircle + beside, 361U);
            if (radius > 0.1) {
                ASSERT_LE(beside, 20U);
            }
        }
        ASSERT_EQ(point, Design.ScTable.Points.size());
    }
}

} // namespace
} // namespace quelmont

#include "core/map_design.h"
#include "projection/map_sweep.h"
#include "projection/projection_table.h"
#include "projection/round_trip.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

/// Every projection in degrees there and back. UTM has a test of its own.

namespace quelmont {
namespace {

std::vector<std::int16_t> InDegreesOfArc() {
    std::vector<std::int16_t> numbers;
    for (const ProjectionEntry& entry : Projections) {
        if (entry.family != ProjectionFamily::MetricGrid) {
            numbers.push_back(entry.ProjNum);
        }
    }
    return numbers;
}

class Inverse : public testing::TestWithParam<std::int16_t> {
protected:
    Inverse() : random(static_cast<std::mt19937::result_type>(1000 + GetParam())) {}

    double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); }

    /// Bounds, middle and in between.
    double Chosen(double low, double high) {
        switch (std::uniform_int_distribution<int>(0, 9)(random)) {
        case 0:
            return low;
        case 1:
            return high;
        case 2:
            return (low + high) / 2.0;
        default:
            return Real(low, high);
        }
    }

    void PlacesComeBack(int count) {
        for (int i = 0; i < count; ++i) {
            const RelativePlace place{Chosen(Design.LatSouth, Design.LatNorth), Chosen(0.0, Design.LonSpan)};
            ASSERT_TRUE(ComesBack(place, trips));
        }
    }

    /// Points of a box half again as large as the map.
    void PlaneComesBack(int count) {
        const double width = Design.MapXMax - Design.MapXMin;
        const double height = Design.MapYMax - Design.MapYMin;
        for (int i = 0; i < count; ++i) {
            const ReferencePlace place{Real(Design.MapXMin - width / 4.0, Design.MapXMax + width / 4.0),
                                       Real(Design.MapYMin - height / 4.0, Design.MapYMax + height / 4.0)};
            ASSERT_TRUE(ComesBack(place, trips));
        }
    }

    FreshProgram program;
    std::mt19937 random;
    RoundTrips trips;
};

std::vector<MapOfSweep> FixedMaps(std::int16_t projNum) {
    for (const SweptProjection& swept : SweptProjections()) {
        if (swept.projNum == projNum) {
            return swept.maps;
        }
    }
    return {{90.0, -90.0, 360.0}, {75.0, 0.0, 100.0}, {-20.0, -20.5, 0.25}};
}

TEST_P(Inverse, ComesBackOverDenseGrids) {
    constexpr int steps = 48;
    for (const MapOfSweep& map : FixedMaps(GetParam())) {
        SetSweptMap(GetParam(), map);
        for (int i = 0; i <= steps; ++i) {
            for (int j = 0; j <= steps; ++j) {
                const double lat = Design.LatSouth + (Design.LatNorth - Design.LatSouth) * i / steps;
                ASSERT_TRUE(ComesBack(RelativePlace{lat, Design.LonSpan * j / steps}, trips));
            }
        }
    }
    EXPECT_GT(trips.places, trips.points / 2);
    // The grain is an excuse for few.
    EXPECT_GT(trips.plain, trips.points * 95 / 100);
    RecordProperty("points", trips.points);
    RecordProperty("within_1e-12", trips.plain);
    RecordProperty("places", trips.places);
}

TEST_P(Inverse, ComesBackOnRandomMaps) {
    for (int i = 0; i < 150; ++i) {
        const MapOfSweep map = RandomMap(GetParam(), random);
        SCOPED_TRACE(testing::Message()
                     << map.north << " to " << map.south << ", " << map.span << " wide, " << map.std1
                     << " and " << map.std2 << ", about " << map.centre << ", " << map.height << " high");
        SetSweptMap(GetParam(), map);
        ASSERT_NO_FATAL_FAILURE(PlacesComeBack(40));
        ASSERT_NO_FATAL_FAILURE(PlaneComesBack(40));
    }
    EXPECT_GT(trips.plain, trips.points * 95 / 100);
    EXPECT_GT(trips.places, 1000);
}

/// The last seconds before the poles and before the edges of the frame.
TEST_P(Inverse, ComesBackNextToPolesAndEdges) {
    for (const MapOfSweep& map : FixedMaps(GetParam())) {
        SetSweptMap(GetParam(), map);
        for (const double near : {0.0, 1.0 / 3600.0, 1e-3, 0.1}) {
            for (const double lat : {Design.LatNorth - near, Design.LatSouth + near, near, -near}) {
                for (const double lon : {near, Design.LonSpan - near, Design.LonCentral + near}) {
                    ASSERT_TRUE(ComesBack(RelativePlace{lat, lon}, trips));
                }
            }
        }
    }
}

TEST_P(Inverse, LeavesTheDesignAsItWas) {
    SetSweptMap(GetParam(), FixedMaps(GetParam()).front());
    Design.ProjLat = 1.5;
    Design.ProjLon = 2.5;
    Design.ProjX = 3.5;
    Design.ProjY = 4.5;
    Design.ProjOffMap = true;
    Design.ProjTestMode = TestResume;
    Design.PointStatus = PointOutOfRange;
    int found = 0;
    for (double x = -4.0; x <= 4.0; x += 0.25) {
        for (double y = -4.0; y <= 4.0; y += 0.25) {
            found += InverseSelect(x, y) ? 1 : 0;
        }
    }
    EXPECT_GT(found, 0);
    EXPECT_EQ(Design.ProjLat, 1.5);
    EXPECT_EQ(Design.ProjLon, 2.5);
    EXPECT_EQ(Design.ProjX, 3.5);
    EXPECT_EQ(Design.ProjY, 4.5);
    EXPECT_TRUE(Design.ProjOffMap);
    EXPECT_EQ(Design.ProjTestMode, TestResume);
    EXPECT_EQ(Design.PointStatus, PointOutOfRange);
    EXPECT_TRUE(program.machine.boxes.asked.empty());
}

INSTANTIATE_TEST_SUITE_P(Projections, Inverse, testing::ValuesIn(InDegreesOfArc()), [](const auto& number) {
    std::string name(PropertiesOf(number.param).ProjName);
    name.erase(std::remove_if(name.begin(), name.end(), [](char c) { return c == ' ' || c == '-'; }),
               name.end());
    return name;
});

} // namespace
} // namespace quelmont

#include "mapinput/place_box.h"

#include "mapfiles/packed_file.h"
#include "packed_segments.h"
#include "projection/projection_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace quelmont {
namespace {

PackedHeader Box(double west, double south, double east, double north) {
    PackedHeader header;
    header.BoxWest = Degrees(0, west).lon;
    header.BoxSouth = Degrees(south, 0).lat;
    header.BoxEast = Degrees(0, east).lon;
    header.BoxNorth = Degrees(north, 0).lat;
    return header;
}

using PackedBox = MapTest;

TEST_F(PackedBox, MayTouchOnlyTheLatitudesOfTheMap) {
    Rectangle(ProjEquirectangular, 60, 40, -10, 30);
    EXPECT_TRUE(BoxMayTouchMap(Box(0, 50, 1, 51)));
    EXPECT_TRUE(BoxMayTouchMap(Box(0, 60, 1, 61))) << "an edge is inside";
    EXPECT_TRUE(BoxMayTouchMap(Box(0, 39, 1, 40)));
    EXPECT_FALSE(BoxMayTouchMap(Box(0, 60.001, 1, 61)));
    EXPECT_FALSE(BoxMayTouchMap(Box(0, 39, 1, 39.999)));
}

TEST_F(PackedBox, MayTouchOnlyTheLongitudesOfTheMap) {
    Rectangle(ProjEquirectangular, 60, 40, -10, 30);
    EXPECT_TRUE(BoxMayTouchMap(Box(-20, 50, -10, 51)));
    EXPECT_TRUE(BoxMayTouchMap(Box(30, 50, 40, 51)));
    EXPECT_FALSE(BoxMayTouchMap(Box(-20, 50, -10.001, 51)));
    EXPECT_FALSE(BoxMayTouchMap(Box(30.001, 50, 40, 51)));
    EXPECT_TRUE(BoxMayTouchMap(Box(-20, 50, 40, 51))) << "both edges inside the box";
}

TEST_F(PackedBox, BoxAllRoundTheWorldIsKeptOnEveryMap) {
    Rectangle(ProjEquirectangular, 60, 40, -10, 30);
    EXPECT_TRUE(BoxMayTouchMap(Box(-180, 50, 180, 51)));
    EXPECT_TRUE(BoxMayTouchMap(Box(-190, 50, 190, 51)));
}

TEST_F(PackedBox, BoxAcross180IsAnArcToo) {
    Rectangle(ProjEquirectangular, 60, 40, 170, -160);
    EXPECT_TRUE(BoxMayTouchMap(Box(179, 50, -179, 51)));
    EXPECT_TRUE(BoxMayTouchMap(Box(179, 50, 181, 51)));
    EXPECT_TRUE(BoxMayTouchMap(Box(-181, 50, -179, 51)));
    EXPECT_TRUE(BoxMayTouchMap(Box(160, 50, 171, 51)));
    EXPECT_FALSE(BoxMayTouchMap(Box(160, 50, 169, 51)));
    EXPECT_FALSE(BoxMayTouchMap(Box(-159, 50, -150, 51)));
    Rectangle(ProjEquirectangular, 60, 40, -10, 30);
    EXPECT_FALSE(BoxMayTouchMap(Box(179, 50, -179, 51)));
    EXPECT_TRUE(BoxMayTouchMap(Box(179, 50, -9, 51))) << "the long way from 179 E to 9 W";
}

TEST_F(PackedBox, MapsBoundedByACircleKeepEveryBox) {
    Circle(ProjOrthographic, 40, -100, 30);
    EXPECT_TRUE(BoxMayTouchMap(Box(80, -41, 81, -40)));
}

TEST_F(PackedBox, ZoneDropsWhatIsFarAway) {
    Zone(6'200'000, 5'600'000, 300'000, 800'000); // 50.5 N to 55.9 N, about 12 W to 4 W
    EXPECT_TRUE(BoxMayTouchMap(Box(-10, 53, -9, 54)));
    EXPECT_TRUE(BoxMayTouchMap(Box(-20, 40, 0, 70))) << "the map inside the box";
    EXPECT_FALSE(BoxMayTouchMap(Box(-10, 57, -9, 58)));
    EXPECT_FALSE(BoxMayTouchMap(Box(-10, 48, -9, 49)));
    EXPECT_FALSE(BoxMayTouchMap(Box(-1, 53, 0, 54)));
    EXPECT_FALSE(BoxMayTouchMap(Box(-17, 53, -16, 54)));
    EXPECT_FALSE(BoxMayTouchMap(Box(-75, 40, -70, 45)));
}

TEST_F(PackedBox, ZoneKeepsWhatItsBoundsCannotDecide) {
    Zone(6'200'000, 5'600'000, 300'000, 800'000);
    EXPECT_TRUE(BoxMayTouchMap(Box(0, 80, 10, 90))) << "a pole";
    EXPECT_TRUE(BoxMayTouchMap(Box(170, 0, 172, 1))) << "the meridian opposite of 9 W";
    EXPECT_TRUE(BoxMayTouchMap(Box(10, 1, 5, 2))) << "west of itself";
}

TEST_F(PackedBox, HostileBoxesAreDecidedSomehow) {
    std::mt19937 random(7);
    std::array<std::byte, PackedHeaderSize> bytes;
    int kept = 0;
    for (int round = 0; round < 20'000; ++round) {
        if (round % 1000 == 0) {
            round % 2000 == 0 ? Zone(6'200'000, 5'600'000, 300'000, 800'000)
                              : Rectangle(ProjEquirectangular, 60, 40, -180 + round % 170, 30);
        }
        for (std::byte& byte : bytes) {
            byte = static_cast<std::byte>(random() & 0xFFU);
        }
        kept += BoxMayTouchMap(DecodePackedHeader(bytes)) ? 1 : 0;
    }
    EXPECT_GT(kept, 0);
    EXPECT_LT(kept, 20'000);
}

// ---- A map drawn with the test of boxes is the one drawn without it.

/// Random segments with the boxes that are around them. Some lie anywhere, most near a place.
class RandomSegments {
public:
    explicit RandomSegments(TruePlace near_) : near(near_) {}

    std::vector<TruePlace> Next() {
        // A third is near, a third within some degrees, a third anywhere.
        const std::int32_t reach = std::array{3600, 20 * 3600, 648'000}[static_cast<std::size_t>(Throw(3))];
        TruePlace place{std::clamp(near.lat + Around(reach / 2), -324'000, 324'000),
                        Wrapped(near.lon + Around(reach))};
        const int count = 1 + Throw(120);
        const std::int32_t step = std::array{5, 60, 127}[static_cast<std::size_t>(Throw(3))];
        std::vector<TruePlace> line;
        std::int32_t lat = Around(step);
        std::int32_t lon = Around(step);
        for (int i = 0; i < count; ++i) {
            line.push_back(place);
            if (Throw(8) == 0) {
                lat = Around(step);
                lon = Around(step);
            }
            if (std::abs(place.lat + lat) > 324'000) {
                lat = -lat;
            }
            place.lat += lat;
            place.lon += lon; // on beyond 180, as the sums of a segment do
        }
        return line;
    }

    /// The box of a line, sometimes with an edge beyond 180 called by its other name.
    SecondsBox BoxOf(const std::vector<TruePlace>& line) {
        SecondsBox box = BoxAround(line);
        if (Throw(2) == 0) {
            box.west = Wrapped(box.west);
            box.east = Wrapped(box.east);
        }
        return box;
    }

private:
    static std::int32_t Wrapped(std::int32_t lon) {
        return lon > 648'000 ? lon - 1'296'000 : lon < -648'000 ? lon + 1'296'000 : lon;
    }
    std::int32_t Throw(std::int32_t sides) {
        return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(sides));
    }
    std::int32_t Around(std::int32_t most) { return Throw(2 * most + 1) - most; }

    TruePlace near;
    std::mt19937 random{815};
};

class BoxesOfRandomSegments : public ReaderTest {
protected:
    /// Draws segments near a place, with their boxes and with boxes that keep all of them.
    void Compare(TruePlace near, const char* map) {
        constexpr int Segments = 3000;
        // The point stays in the middle of the map or goes to its corners: edges are what matters.
        RandomSegments random(near);
        std::string boxed;
        std::string unboxed;
        int dropped = 0;
        for (int i = 0; i < Segments; ++i) {
            const std::vector<TruePlace> line = random.Next();
            const std::string segment = Segment(1, line, random.BoxOf(line));
            dropped += BoxMayTouchMap(
                           DecodePackedHeader(std::as_bytes(std::span(segment)).first<PackedHeaderSize>()))
                           ? 0
                           : 1;
            boxed += segment;
            unboxed += Segment(1, line, WholeEarth);
        }
        Plot("a.pkv", unboxed);
        const std::vector<PlottedPoint> expected = recorder.points;
        const std::int64_t read = Counted().PointsRead;
        EXPECT_EQ(machine.pump.calls, read / 800) << "nothing was stepped over";
        Plot("a.pkv", boxed);
        EXPECT_EQ(recorder.points, expected) << map;
        EXPECT_EQ(Counted().PointsRead, read) << map;
        EXPECT_GT(expected.size(), 100U) << map;
        if (!IsAzimuthal(Design.ProjNum)) {
            EXPECT_GT(dropped, Segments / 10) << map << ": the test of boxes is of use";
        }
        ExpectCleanEnd();
        machine.pump.calls = 0;
    }

private:
    static constexpr SecondsBox WholeEarth = {-648'000, -324'000, 648'000, 324'000};
};

TEST_F(BoxesOfRandomSegments, MapsBoundedByParallelsAndMeridians) {
    struct Bounds {
        double north, south, west, east;
    };
    for (const Bounds& bounds :
         {Bounds{60, 40, 0, 30}, Bounds{10, -10, 170, -160}, Bounds{80, 50, -180, -150},
          Bounds{-40, -60, 150, 180}, Bounds{30, -30, 20, -20}, Bounds{1, 0, 5, 6}}) {
        for (const std::int16_t projNum : {ProjEquirectangular, ProjMercator, ProjRobinson}) {
            for (const double lon : {bounds.west, bounds.east}) {
                Rectangle(projNum, bounds.north, bounds.south, bounds.west, bounds.east);
                Compare(Degrees(bounds.north, lon), "a rectangle");
                Compare(Degrees(bounds.south, lon), "a rectangle");
            }
        }
    }
}

TEST_F(BoxesOfRandomSegments, LobesOfAnInterruptedMap) {
    for (const double east : {-40.0, 100.0}) {
        Lobe(-180, east);
        Compare(Degrees(20, east), "a lobe");
        Compare(Degrees(0, -180), "a lobe");
    }
}

TEST_F(BoxesOfRandomSegments, UtmZones) {
    struct Case {
        const char* centre;
        std::int32_t north, south, west, east;
        TruePlace near;
    };
    // Corners of the maps, in degrees by the inverse series, rounded: only nearness matters.
    for (const Case& zone :
         {Case{"009    00    00    W", 6'200'000, 5'600'000, 300'000, 800'000, Degrees(55.9, -4.2)},
          Case{"009    00    00    W", 6'200'000, 5'600'000, 300'000, 800'000, Degrees(50.5, -11.8)},
          Case{"009    00    00    W", 9'300'000, 8'000'000, 100'000, 900'000, Degrees(80, -9)},
          Case{"177    00    00    E", 600'000, -600'000, 200'000, 900'000, Degrees(0, 180)},
          Case{"177    00    00    W", 600'000, -600'000, 100'000, 800'000, Degrees(5, -180)},
          Case{"009    00    00    W", 5'000'000, 1'000'000, -2'000'000, 3'000'000, Degrees(20, 15)}}) {
        Design.UtmText[UtmTextCentralLon] = zone.centre;
        Zone(zone.north, zone.south, zone.west, zone.east);
        Compare(zone.near, zone.centre);
    }
}

TEST_F(BoxesOfRandomSegments, MapsBoundedByACircle) {
    Circle(ProjStereographic, 40, 175, 30);
    Compare(Degrees(40, 175), "a circle");
}

} // namespace
} // namespace quelmont

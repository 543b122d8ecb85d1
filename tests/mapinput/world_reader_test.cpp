#include "mapinput/world_reader.h"

#include "core/run_time_error.h"
#include "map_fixture.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/text_reader.h"
#include "mapfiles/world_file.h"
#include "mapinput/map_plot.h"
#include "mapinput/world_outside.h"
#include "output/device_pen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// ---- .mp1

class WorldTextReader : public ReaderTest {
protected:
    void Plot(const std::string& contents) { ReaderTest::Plot("a.mp1", contents); }
};

TEST_F(WorldTextReader, ItemsAreLatitudeAndLongitude) {
    Plot("10.5 20.25\r\n-10 -20\r\n");
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{10.5, 20.25}, std::pair{-10.0, -20.0}));
    EXPECT_EQ(Moves(), 1U) << "the first point of a file begins a line";
    EXPECT_EQ(Counted().PointsRead, 2);
    ExpectCleanEnd();
}

TEST_F(WorldTextReader, OtherItemsEndTheLine) {
    Plot("1 1\n1 2\n\n2 1\n2 2\nland\n3 1\n3 2,,4 1,4 2\n");
    ASSERT_THAT(recorder.points, SizeIs(8));
    EXPECT_EQ(Moves(), 4U);
    EXPECT_EQ(Counted().PointsRead, 8) << "separators are no points";
}

TEST_F(WorldTextReader, ItemWithoutABlankLiesOnTheEquator) {
    Plot("33\n");
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{0.0, 33.0}));
}

TEST_F(WorldTextReader, LongitudeAbove180IsWest) {
    Plot("0 190\n0 180\n");
    EXPECT_THAT(PlottedPlaces(),
                ElementsAre(std::pair{0.0, -170.0}, testing::_, testing::_, std::pair{0.0, 180.0}))
        << "with the edge of the map between them";
}

TEST_F(WorldTextReader, MarkOfUtf8IsPassedOver) {
    Plot("\xEF\xBB\xBF"
         "1 1\n1 2\n");
    EXPECT_THAT(recorder.points, SizeIs(2));
}

TEST_F(WorldTextReader, ItemsReachAcrossBlocks) {
    std::string contents;
    std::size_t points = 0;
    while (contents.size() < 3 * ByteReader::BlockSize) {
        contents += "12.5 20\r\n";
        ++points;
    }
    Plot(contents);
    EXPECT_EQ(Counted().PointsRead, static_cast<std::int64_t>(points));
    EXPECT_EQ(Moves(), 1U);
}

TEST_F(WorldTextReader, LongestItemIsRead) {
    Plot("1 1\n1 2\n" + std::string(MaxTextItem - 1, 'x') + "\n2 1\n");
    EXPECT_THAT(recorder.points, SizeIs(3));
    EXPECT_EQ(Moves(), 2U);
    ExpectCleanEnd();
}

TEST_F(WorldTextReader, EndlessItemIsAnError) {
    Plot("1 1\n1 2\n" + std::string(MaxTextItem + 1, 'x') + "\n2 1\n");
    EXPECT_THAT(recorder.points, SizeIs(2));
    ExpectError("Input past end of file");
}

TEST_F(WorldTextReader, LongLastItemWithoutALineEndIsRead) {
    Plot("1 1\n1 2\n" + std::string(MaxTextItem, 'x'));
    EXPECT_THAT(recorder.points, SizeIs(2));
    ExpectCleanEnd();
}

TEST_F(WorldTextReader, NumberWithoutAPlaceIsAnError) {
    Plot("1 1\n1E9 1\n1 2\n");
    EXPECT_THAT(recorder.points, SizeIs(1));
    ExpectError("Overflow");
}

TEST_F(WorldTextReader, FirstPointOutsideLeavesItsMoveToTheNextOne) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    Plot("20 0\n");
    EXPECT_EQ(Design.LineStart, LineMoves);
    Plot("20 0\n5 0\n");
    ASSERT_THAT(recorder.points, SizeIs(2));
    EXPECT_TRUE(recorder.points[0].move);
    EXPECT_EQ(recorder.points[0].lat, 10.0) << "where the line enters";
}

TEST_F(WorldTextReader, EscapeIsHonouredAtA800thPoint) {
    std::string contents;
    for (int i = 0; i < 1000; ++i) {
        contents += std::to_string(i % 60) + " " + std::to_string(i % 70) + "\n";
    }
    machine.pump.At(1, [] { PressEscape(); });
    Plot(contents);
    EXPECT_THAT(recorder.points, SizeIs(799));
    ExpectCleanEnd();
}

TEST_F(WorldTextReader, EachPlaceOfAPenHasItsNumber) {
    surface.FailAt(SurfaceOp::CreatePen, 1);
    Plot("1 1\n");
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "CreatePen(3) error in MapPlot");
    surface.FailAt(SurfaceOp::DeleteObject, 0);
    Plot("1 1\n");
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "DeleteObject(7) error in MapPlot");
}

TEST_F(WorldTextReader, FileThatFailsInTheMiddleShowsABox) {
    files.FailReadingAfter(5, ErrorDeviceIo);
    Plot("1 1\n1 2\n");
    ExpectError("Device I/O error");
}

// ---- .mps

class WorldBinaryReader : public ReaderTest {
protected:
    void Plot(const std::string& contents) { ReaderTest::Plot("a.mps", contents); }
    static std::string Point(float lat, float lon) { return Text(EncodeWorldRecord(lat, lon)); }
    static std::string First(float lat, float lon) { return Text(WorldMarker) + Point(lat, lon); }
};

TEST_F(WorldBinaryReader, MarkerBeginsALine) {
    Plot(First(10.5F, 20.25F) + Point(-10, -20) + First(1, 1) + Point(1, 2));
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{10.5, 20.25}, std::pair{-10.0, -20.0},
                                             std::pair{1.0, 1.0}, std::pair{1.0, 2.0}));
    EXPECT_EQ(Moves(), 2U);
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_EQ(Counted().PointsRead, 4);
    ExpectCleanEnd();
}

TEST_F(WorldBinaryReader, FirstPointNeedsNoMarker) {
    Plot(Point(1, 1) + Point(1, 2));
    EXPECT_EQ(Moves(), 1U);
    EXPECT_TRUE(recorder.points.at(0).move);
}

TEST_F(WorldBinaryReader, LatitudeNextToTheMarkerIsNone) {
    // Latitudes of 99 and a little more are off the earth; a marker would have taken the longitude for
    // the latitude.
    Plot(Point(1, 1) + Point(std::nextafter(99.0F, 100.0F), 2) + Point(1, 3));
    EXPECT_EQ(Counted().PointsRead, 3);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(WorldBinaryReader, ByteOf1BeforeTheEndLetsTheNextPointBeginALine) {
    std::string marked = Point(1, 2);
    marked.insert(8, "abc\x01z");
    std::string plain = Point(1, 3);
    plain.insert(8, "abc");
    Plot(Point(1, 1) + marked + plain + Point(1, 4));
    ASSERT_THAT(recorder.points, SizeIs(4));
    EXPECT_FALSE(recorder.points[1].move);
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_FALSE(recorder.points[3].move);
}

TEST_F(WorldBinaryReader, LongitudeOf180Stays) {
    Plot(Point(0, 180) + First(0, 190));
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{0.0, 180.0}, std::pair{0.0, -170.0}));
}

TEST_F(WorldBinaryReader, FileThatEndsWithinARecordIsAnError) {
    const std::string whole = First(1, 1) + Point(1, 2);
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        Plot(whole.substr(0, size));
        const std::size_t ofRecord = size < 13 ? size : size - 13;
        EXPECT_THAT(recorder.points, SizeIs(size < 13 ? 0 : size < 22 ? 1 : 2)) << size;
        // Fewer bytes than a latitude are the end of the file.
        if (ofRecord >= 4 && size < whole.size()) {
            ExpectError("Input past end of file");
        } else {
            ExpectCleanEnd();
        }
    }
}

TEST_F(WorldBinaryReader, LastRecordWithoutALineFeedIsNotDrawn) {
    Plot(Point(1, 1) + Point(1, 2).substr(0, 8) + "no end");
    EXPECT_THAT(recorder.points, SizeIs(1));
    ExpectError("Input past end of file");
}

TEST_F(WorldBinaryReader, EndlessTailIsAnError) {
    std::string marked = Point(1, 1);
    marked.insert(8, std::string(MaxFilling, 'x'));
    Plot(marked + Point(1, 2));
    ExpectError("Input past end of file");
}

TEST_F(WorldBinaryReader, LongTailsReachAcrossBlocks) {
    std::string marked = Point(1, 1);
    marked.insert(8, std::string(2 * ByteReader::BlockSize, 'x') + "\x01" + std::string(100, 'y'));
    Plot(marked + Point(1, 2));
    ASSERT_THAT(recorder.points, SizeIs(2));
    EXPECT_TRUE(recorder.points[1].move);
    ExpectCleanEnd();
}

TEST_F(WorldBinaryReader, WhatIsNoPlaceIsAnError) {
    for (const float nonsense :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
          -std::numeric_limits<float>::infinity(), 1e30F, -1e30F}) {
        Plot(Point(1, 1) + Point(nonsense, 1) + Point(1, 3));
        EXPECT_THAT(recorder.points, SizeIs(1));
        ExpectError("Overflow");
        Plot(Point(1, 1) + Point(1, nonsense) + Point(1, 3));
        EXPECT_THAT(recorder.points, SizeIs(1));
        ExpectError("Overflow");
    }
}

TEST_F(WorldBinaryReader, EachPlaceOfAPenHasItsNumber) {
    surface.FailAt(SurfaceOp::CreatePen, 1);
    Plot(Point(1, 1));
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "CreatePen(6) error in MapPlot");
    surface.FailAt(SurfaceOp::DeleteObject, 0);
    Plot(Point(1, 1));
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "DeleteObject(12) error in MapPlot");
}

TEST_F(WorldBinaryReader, EscapeIsHonouredAtA800thPoint) {
    std::string contents;
    for (int i = 0; i < 2000; ++i) {
        contents += Point(static_cast<float>(i % 60), static_cast<float>(i % 70));
    }
    machine.pump.At(2, [] { PressEscape(); });
    Plot(contents);
    EXPECT_THAT(recorder.points, SizeIs(1599));
    ExpectCleanEnd();
}

TEST_F(WorldBinaryReader, FileThatFailsInTheMiddleShowsABox) {
    files.FailReadingAfter(20, ErrorDeviceIo);
    Plot(Point(1, 1) + Point(1, 2) + Point(1, 3));
    ExpectError("Device I/O error");
}

// ---- Points outside, which are passed over in runs.

TEST_F(WorldBinaryReader, PointsOutsideCountAndLetEventsRun) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    std::string contents;
    for (int i = 0; i < 2400; ++i) {
        contents += Point(50.0F, static_cast<float>(i % 70));
    }
    Plot(contents);
    EXPECT_EQ(Counted().PointsRead, 2400);
    EXPECT_EQ(machine.pump.calls, 3);
    EXPECT_EQ(machine.window.refreshes, 3);
    machine.pump.calls = 0;
    machine.pump.At(2, [] { PressEscape(); });
    Plot(contents);
    EXPECT_EQ(Counted().PointsRead, 1600);
    ExpectCleanEnd();
}

TEST_F(WorldBinaryReader, LineEntersFromTheLastPointOutside) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    Plot(Point(50, 0) + Point(40, 0) + Point(30, 0) + Point(12, 4) + Point(8, 0));
    ASSERT_THAT(recorder.points, SizeIs(2));
    EXPECT_EQ(recorder.points[0].lat, 10.0);
    EXPECT_NEAR(recorder.points[0].lon, 12.0, 1.0 / 3600) << "half-way between 4 and 0 E, from 10 W";
}

TEST_F(WorldBinaryReader, NonsenseAmongPointsOutsideIsAnErrorToo) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    Plot(Point(50, 0) + Point(50, 1) + Point(50, std::numeric_limits<float>::quiet_NaN()) + Point(50, 2));
    EXPECT_EQ(Counted().PointsRead, 2);
    ExpectError("Overflow");
    Plot(Point(50, 0) + Point(50, 1) + Point(1e30F, 0) + Point(50, 2));
    EXPECT_EQ(Counted().PointsRead, 2);
    ExpectError("Overflow");
}

/// Points anywhere, many of them near the bounds of a map, in lines that wander.
TEST_F(WorldBinaryReader, SamePointsAreDrawnAsOfTheTextForm) {
    // The text form passes nothing over. Eighths of a minute are exact in both forms.
    struct Bounds {
        double north, south, west, east;
    };
    std::mt19937 random(99);
    const auto thrown = [&](int sides) { return static_cast<int>(random() % static_cast<unsigned>(sides)); };
    for (const Bounds& bounds : {Bounds{60, 40, 0, 30}, Bounds{10, -10, 170, -160},
                                 Bounds{80, 50, -180, -150}, Bounds{-40, -60, 150, 180},
                                 Bounds{30, -30, 20, -20}, Bounds{1, 0, 5, 6}, Bounds{90, -90, -180, 180}}) {
        std::string binary;
        std::string text;
        for (int line = 0; line < 200; ++line) {
            const double scale = line % 2 == 0 ? 1.0 / 64 : 1.0;
            double lat = line % 4 < 2 ? bounds.north : bounds.south;
            double lon = line % 8 < 4 ? bounds.west : bounds.east;
            for (int i = 0; i < 60; ++i) {
                lat = std::clamp(lat + scale * (thrown(33) - 16) / 8.0, -90.0, 90.0);
                lon += scale * (thrown(65) - 32) / 8.0;
                lon = lon > 180 ? lon - 360 : lon < -180 ? lon + 360 : lon;
                const double written = thrown(2) == 0 && lon < 0 && lon > -180 ? lon + 360 : lon;
                binary += i == 0 ? First(static_cast<float>(lat), static_cast<float>(written))
                                 : Point(static_cast<float>(lat), static_cast<float>(written));
                text += std::string(i == 0 ? WorldItemBreak : "") + EncodeWorldItem(lat, written);
            }
        }
        Rectangle(ProjEquirectangular, bounds.north, bounds.south, bounds.west, bounds.east);
        ReaderTest::Plot("a.mp1", text);
        const std::vector<PlottedPoint> expected = recorder.points;
        Plot(binary);
        EXPECT_EQ(recorder.points, expected) << bounds.north << ", " << bounds.west;
        EXPECT_GT(expected.size(), 500U);
        EXPECT_EQ(Counted().PointsRead, 12'000);
    }
}

TEST(WorldOutside, HoldsOnlyWhatIsCertainlyOutside) {
    // 10 N to 20 N, 170 E to 160 W.
    const WorldOutside outside(72'000, 36'000, 612'000, 108'000);
    EXPECT_TRUE(outside.Holds(9.9F, 180.0F));
    EXPECT_TRUE(outside.Holds(20.1F, 180.0F));
    EXPECT_TRUE(outside.Holds(15.0F, 169.9F));
    EXPECT_TRUE(outside.Holds(15.0F, -159.9F));
    EXPECT_TRUE(outside.Holds(15.0F, 200.1F)) << "above 180 a circle is taken off";
    EXPECT_FALSE(outside.Holds(15.0F, 199.9F));
    EXPECT_FALSE(outside.Holds(15.0F, 180.0F));
    EXPECT_FALSE(outside.Holds(15.0F, -180.0F));
    EXPECT_FALSE(outside.Holds(15.0F, 169.9999F)) << "too near to tell";
    EXPECT_FALSE(outside.Holds(20.0001F, 180.0F));
    EXPECT_FALSE(outside.Holds(99.0F, 0.0F)) << "the marker";
    EXPECT_FALSE(outside.Holds(0.0F, 1e30F));
    EXPECT_FALSE(outside.Holds(0.0F, std::numeric_limits<float>::quiet_NaN()));
    EXPECT_FALSE(outside.Holds(std::numeric_limits<float>::quiet_NaN(), 0.0F));
}

} // namespace
} // namespace quelmont

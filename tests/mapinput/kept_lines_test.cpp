#include "mapinput/kept_lines.h"

#include "core/file_numbers.h"
#include "map_fixture.h"
#include "mapinput/map_plot.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

/// Map files of which the lines are kept.
class LinesKept : public ReaderTest {
protected:
    LinesKept() { KeptMapLines() = &lines; }
    ~LinesKept() override { KeptMapLines() = nullptr; }

    /// A file that has its length, and was changed last at some second of its clock.
    void Put(const std::string& contents, std::int64_t second) {
        files.Put("a.map", contents);
        FileStamp stamp;
        stamp.bytes = static_cast<std::int64_t>(contents.size());
        stamp.written = second;
        files.Stamp("a.map", stamp);
    }
    /// Bytes read by a plot of the list.
    std::int64_t BytesOfPlot() {
        const std::int64_t before = files.bytesRead;
        PlotList();
        return files.bytesRead - before;
    }

    const std::string two = Line(1, {{0, 0}, {0, 60}});
    const std::string three = Line(1, {{0, 0}, {0, 60}, {60, 60}});
    KeptLines lines;
};

TEST_F(LinesKept, FileIsReadOnce) {
    AddFile("a.map", "");
    Put(three, 1);
    EXPECT_EQ(BytesOfPlot(), 18);
    const auto first = recorder.points;
    ASSERT_THAT(first, SizeIs(3));
    EXPECT_EQ(BytesOfPlot(), 0);
    EXPECT_EQ(recorder.points, first);
    ExpectCleanEnd();
}

TEST_F(LinesKept, FileThatWasChangedIsReadAgain) {
    AddFile("a.map", "");
    Put(two, 1);
    PlotList();
    Put(three, 1);
    PlotList();
    EXPECT_THAT(recorder.points, SizeIs(3)) << "it has another length";
    Put(Line(1, {{0, 0}, {0, 60}, {60, 120}}), 2);
    PlotList();
    ASSERT_THAT(recorder.points, SizeIs(3));
    EXPECT_EQ(recorder.points[2].lon, 182.0) << "it was written at another time";
}

TEST_F(LinesKept, FileWithoutAStampIsReadEachTime) {
    AddFile("a.map", three);
    EXPECT_EQ(BytesOfPlot(), 18);
    EXPECT_EQ(BytesOfPlot(), 18);
}

TEST_F(LinesKept, FileOfAnotherLengthThanItsStampIsReadEachTime) {
    AddFile("a.map", "");
    Put(three, 1);
    files.Put("a.map", two); // cut short after its opening
    PlotList();
    EXPECT_THAT(recorder.points, SizeIs(2));
    EXPECT_GT(BytesOfPlot(), 0);
    Put(three + "x", 1);
    PlotList();
    EXPECT_GT(BytesOfPlot(), 0) << "a record that is not whole";
    EXPECT_THAT(recorder.points, SizeIs(3));
}

TEST_F(LinesKept, FileThatCannotBeReadIsDrawnAsFarAsItIsAndReported) {
    AddFile("a.map", "");
    Put(three, 1);
    files.FailReadingAfter(12, ErrorDeviceIo);
    PlotList();
    ExpectError("Device I/O error");
    files.FailReadingAfter(1000, ErrorDeviceIo);
    PlotList();
    EXPECT_THAT(recorder.points, SizeIs(3));
    EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
}

TEST_F(LinesKept, LongFileIsReadRecordByRecord) {
    AddFile("a.map", "");
    Put(three, 1);
    FileStamp stamp;
    stamp.bytes = std::int64_t{17} * 1000 * 1000;
    files.Stamp("a.map", stamp);
    EXPECT_EQ(BytesOfPlot(), 18);
}

// ---- They are drawn as the file is.

/// A file of lines of all ranks all over the globe and beyond its edges, some of them without a first record.
std::string RandomLines(unsigned seed) {
    std::mt19937 random{seed};
    const auto within = [&](int reach) {
        return static_cast<int>(random() % (2U * static_cast<unsigned>(reach) + 1U)) - reach;
    };
    std::string contents;
    for (int line = 0; line < 400; ++line) {
        int lat = within(5600);
        int lon = within(11500);
        contents += Record(line == 0 ? 0 : static_cast<int>(random() % 12) * 1000, lat, lon);
        const auto count = random() % 30;
        for (unsigned i = 0; i < count; ++i) {
            lat += within(300);
            lon += within(random() % 10 == 0 ? 11000 : 300);
            contents += Record(0, std::clamp(lat, -5600, 5600), std::clamp(lon, -32000, 32000));
        }
    }
    return contents;
}

TEST_F(LinesKept, PictureIsTheSameAsFromTheFileOnEveryKindOfMap) {
    const std::string contents = RandomLines(7);
    const auto plotted = [&] {
        recorder.breaksBehind.clear();
        PlotList();
        return std::tuple(recorder.points, recorder.breaksBehind, surface.Segments().size(),
                          Counted().PointsRead, Counted().PointsPlotted);
    };
    AddFile("a.map", "").Features[6].Shown = false;
    AddFile("b.map", Line(1, {{0, 0}, {0, 600}})); // which begins where the first ends
    files.Put("a.map", contents);
    const auto same = [&](const char* map) {
        SCOPED_TRACE(map);
        Design.Statistics = {};
        files.Stamp("a.map", std::nullopt);
        const auto fromFile = plotted();
        EXPECT_FALSE(std::get<0>(fromFile).empty());
        for (int round = 0; round < 2; ++round) {
            Design.Statistics = {};
            Put(contents, 1);
            const auto kept = plotted();
            EXPECT_TRUE(std::get<0>(kept) == std::get<0>(fromFile)) << "the points";
            EXPECT_EQ(std::get<1>(kept), std::get<1>(fromFile));
            EXPECT_EQ(std::get<2>(kept), std::get<2>(fromFile));
            EXPECT_EQ(std::get<3>(kept), std::get<3>(fromFile));
            EXPECT_EQ(std::get<4>(kept), std::get<4>(fromFile));
        }
    };
    WholeWorld(ProjRobinson);
    same("the world");
    Rectangle(ProjMercator, 60.0, 30.0, -20.0, 40.0);
    same("a region");
    Rectangle(ProjEquirectangular, 60.0, -70.0, 150.0, -120.0);
    same("a region across the 180th meridian");
    Lobe(20.0, 100.0);
    same("a lobe");
    Circle(ProjOrthographic, 40.0, 10.0, 90.0);
    same("half of the globe");
    Zone(5000000, 4000000, 200000, 800000);
    same("a zone");
}

TEST_F(LinesKept, EscapeStopsThemWhereItStopsTheFile) {
    Rectangle(ProjMercator, 60.0, 30.0, -20.0, 40.0);
    const std::string contents = RandomLines(8);
    AddFile("a.map", "").Features[7].Shown = false;
    const auto pointsUntil = [&](int turn) {
        machine.pump.At(machine.pump.calls + turn, [] { PressEscape(); });
        PlotList();
        Design.PlotStopReason = StopReason::None;
        return std::pair(Counted().PointsRead, recorder.points.size());
    };
    Put(contents, 1);
    PlotList();
    for (int turn = 1; turn < 8; ++turn) {
        Design.Statistics = {};
        const auto kept = pointsUntil(turn);
        Design.Statistics = {};
        KeptMapLines() = nullptr;
        EXPECT_EQ(kept, pointsUntil(turn)) << turn;
        KeptMapLines() = &lines;
        EXPECT_EQ(kept.first, 800 * turn);
    }
}

} // namespace
} // namespace quelmont

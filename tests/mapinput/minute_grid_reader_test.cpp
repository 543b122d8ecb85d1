#include "mapinput/minute_grid_reader.h"

#include "core/file_numbers.h"
#include "map_fixture.h"
#include "mapfiles/minute_grid_file.h"
#include "mapinput/map_plot.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MinuteGridReader : public ReaderTest {
protected:
    void Plot(const std::string& contents) { ReaderTest::Plot("a.map", contents); }
};

TEST_F(MinuteGridReader, MinutesBecomeDegrees) {
    Plot(Line(1, {{60, 120}, {-90, -30}, {5400, 10800}}));
    EXPECT_THAT(PlottedPlaces(),
                ElementsAre(std::pair{1.0, 2.0}, std::pair{-1.5, -0.5}, std::pair{90.0, 180.0}));
    EXPECT_EQ(Moves(), 1U);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(MinuteGridReader, RankStartsALineAndZeroContinuesIt) {
    Plot(Line(1, {{0, 0}, {0, 60}}) + Line(2, {{60, 0}, {60, 60}}));
    ASSERT_EQ(recorder.points.size(), 4U);
    EXPECT_TRUE(recorder.points[0].move);
    EXPECT_FALSE(recorder.points[1].move);
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_FALSE(recorder.points[3].move);
}

TEST_F(MinuteGridReader, RestOfTheCodeMeansNothing) {
    Plot(Record(1999, 0, 0) + Record(999, 0, 60) + Record(-999, 0, 120));
    EXPECT_EQ(recorder.points.size(), 3U);
    EXPECT_EQ(Moves(), 1U);
}

TEST_F(MinuteGridReader, EachLineHasThePenOfItsFeature) {
    InputFileEntry& entry = AddFile("a.map", Line(1, {{0, 0}, {600, 600}}) + Line(2, {{0, 0}, {600, 600}}) +
                                                 Line(5, {{0, 0}, {600, 600}}));
    entry.Features[5].LineWidth = 45;
    MapPlot();
    ASSERT_EQ(surface.Segments().size(), 3U);
    EXPECT_EQ(surface.Segments()[0].pen, (RecordedPen{PenStyleSolid, 1, Rgb(0, 128, 0)}));
    EXPECT_EQ(surface.Segments()[1].pen, (RecordedPen{PenStyleSolid, 3, Rgb(255, 0, 0)}));
    EXPECT_EQ(surface.Segments()[2].pen, (RecordedPen{PenStyleSolid, 1, Rgb(0, 128, 0)})) << "islands";
    EXPECT_EQ(surface.LiveObjects(), 0);
}

TEST_F(MinuteGridReader, HiddenFeatureIsReadAndNotPlotted) {
    InputFileEntry& entry = AddFile("a.map", Line(1, {{0, 0}, {0, 60}}) + Line(2, {{60, 0}, {60, 60}}));
    entry.Features[1].Shown = false;
    MapPlot();
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{1.0, 0.0}, std::pair{1.0, 1.0}));
    EXPECT_EQ(Counted().PointsRead, 4);
    EXPECT_EQ(Counted().PointsPlotted, 2);
}

TEST_F(MinuteGridReader, NoLineJoinsAcrossAHiddenStretch) {
    InputFileEntry& entry = AddFile("a.map", Line(1, {{0, 0}, {0, 60}}) + Line(2, {{60, 0}, {60, 60}}) +
                                                 Line(1, {{120, 0}, {120, 60}}));
    entry.Features[5].Shown = false;
    MapPlot();
    ASSERT_EQ(recorder.points.size(), 4U);
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_EQ(Moves(), 2U);
}

TEST_F(MinuteGridReader, RanksWithoutAFeatureAreNeverShown) {
    std::string contents;
    for (int rank = -32; rank <= 32; ++rank) {
        if (rank < 0 || rank > 10) {
            contents += Line(rank, {{0, 0}, {0, 60}});
        }
    }
    InputFileEntry& entry = AddFile("a.map", contents);
    for (FeatureStyle& style : entry.Features) {
        style.Shown = true; // row 0 too, which no dialog can do
    }
    MapPlot();
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_EQ(Counted().PointsRead, 2 * (32 + 22));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(MinuteGridReader, FileThatBeginsWithoutARankHasNoFeatureYet) {
    Plot(Record(0, 0, 0) + Record(0, 0, 60) + Line(1, {{60, 0}, {60, 60}}));
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{1.0, 0.0}, std::pair{1.0, 1.0}));
}

TEST_F(MinuteGridReader, EveryFormatOfTheFamilyIsRead) {
    for (const char* name : {"a.map", "b.all", "c.CCI", "D.MAP"}) {
        AddFile(name, Line(1, {{0, 0}, {0, 60}}));
    }
    MapPlot();
    EXPECT_EQ(recorder.points.size(), 8U);
}

// ---- .pnt files have one style.

TEST_F(MinuteGridReader, PointFileShowsAllRanksInTheStyleOfItsFirstRow) {
    InputFileEntry& entry = AddFile("a.PNT", Line(2, {{0, 0}, {600, 600}}) + Line(10, {{0, 0}, {600, 600}}));
    entry.Features[1].Color = SolidColor(0x445566);
    entry.Features[1].LineWidth = 30;
    entry.Features[10].Color = SolidColor(0x777777);
    ASSERT_FALSE(entry.Features[2].Shown);
    MapPlot();
    ASSERT_EQ(surface.Segments().size(), 2U);
    EXPECT_EQ(surface.Segments()[0].pen, (RecordedPen{PenStyleSolid, 2, 0x445566}));
    EXPECT_EQ(surface.Segments()[1].pen, (RecordedPen{PenStyleSolid, 2, 0x445566}));
}

TEST_F(MinuteGridReader, PointFileLeavesTheStoredEntryAsItIs) {
    AddFile("a.pnt", Line(2, {{0, 0}, {600, 600}}));
    MapPlot();
    for (std::size_t feature = 2; feature <= 10; ++feature) {
        EXPECT_FALSE(Design.InputFiles[0].Features[feature].Shown);
    }
}

TEST_F(MinuteGridReader, PointFileWithItsRowOffDrawsNothing) {
    AddFile("a.pnt", Line(1, {{0, 0}, {600, 600}}) + Line(2, {{0, 0}, {600, 600}})).Features[1].Shown = false;
    AddFile("b.map", Line(1, {{0, 0}, {0, 60}}));
    MapPlot();
    EXPECT_EQ(recorder.points.size(), 2U) << "and the next file is read";
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_EQ(Counted().PointsRead, 4);
}

TEST_F(MinuteGridReader, SymbolsTakeTheSizesOfTheRow) {
    InputFileEntry& entry = AddFile("a.pnt", Line(3, {{0, 0}}));
    entry.MapFileType = SymbolFilledSquare;
    entry.Features[1].SymbolSize = 60;
    entry.Features[3].SymbolSize = 900;
    MapPlot();
    EXPECT_EQ(surface.Count(SurfaceOp::Rectangle), 1);
    const std::vector<std::int64_t> box = surface.CallsOf(SurfaceOp::Rectangle).at(0).numbers;
    EXPECT_EQ(box[2] - box[0], 8) << "twice 60 twips";
}

// ---- The end of a file.

TEST_F(MinuteGridReader, FileWhoseLastRecordHasARankEndsNormally) {
    Plot(Line(1, {{0, 0}, {0, 60}}) + Line(2, {{60, 0}}));
    EXPECT_EQ(recorder.points.size(), 3U);
    EXPECT_EQ(Counted().PointsRead, 3);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_FALSE(IsFileOpen(InputFileNumber));
    EXPECT_EQ(surface.LiveObjects(), 0);
}

TEST_F(MinuteGridReader, EmptyFileDrawsNothing) {
    Plot("");
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(MinuteGridReader, ContinuingRecordWithNothingBehindItsCodeEndsTheFile) {
    const std::string first = Line(1, {{0, 0}});
    for (std::size_t size = 1; size <= 2; ++size) {
        recorder.points.clear();
        Plot(first + Record(0, 60, 60).substr(0, size));
        EXPECT_EQ(recorder.points.size(), 1U) << size;
        EXPECT_THAT(machine.boxes.asked, IsEmpty()) << size;
    }
}

TEST_F(MinuteGridReader, WhatLiesBeyondTheEndReadsAsZero) {
    // A latitude of one degree is whole, the longitude of one degree is not there.
    Plot(Line(1, {{0, 60}}) + Record(0, 60, 60).substr(0, 4));
    ASSERT_EQ(recorder.points.size(), 2U);
    EXPECT_EQ(recorder.points[1].lat, 1.0);
    EXPECT_EQ(recorder.points[1].lon, 180.0) << "Greenwich on a map that begins at 180 west";
}

TEST_F(MinuteGridReader, RankAtTheVeryEndBeginsALineOfZeros) {
    Plot(Line(1, {{0, 0}, {0, 60}}) + Record(3000, 60, 60).substr(0, 2));
    EXPECT_EQ(recorder.points.size(), 3U);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(MinuteGridReader, OneByteIsNoRecord) {
    Plot("x");
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(MinuteGridReader, FileThatFailsInTheMiddleShowsABox) {
    files.FailReadingAfter(18, ErrorDeviceIo);
    Plot(Line(1, {{0, 0}, {0, 60}, {0, 120}, {0, 180}, {0, 240}}));
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in MapPlot", "Error: Device I/O error\na.map"}));
    EXPECT_FALSE(IsFileOpen(InputFileNumber));
    EXPECT_EQ(surface.LiveObjects(), 0);
}

// ---- Hostile bytes.

TEST_F(MinuteGridReader, RandomBytesDrawNothingOutsideTheMap) {
    std::mt19937 random(20250101);
    for (const std::int16_t projNum :
         {ProjMercator, ProjRobinson, ProjConformalConic, ProjGnomonic, ProjAzimuthalEquidistant, ProjUtm}) {
        if (projNum == ProjUtm) {
            Zone(6'200'000, 5'600'000, 300'000, 800'000);
        } else if (IsAzimuthal(projNum)) {
            Circle(projNum, 40, -100, 60);
        } else {
            Rectangle(projNum, 70, -40, 150, 30);
        }
        std::string bytes(60'001, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random() & 0xFFU);
        }
        recorder.points.clear();
        surface.Forget();
        Plot(bytes);
        EXPECT_THAT(machine.boxes.asked, IsEmpty()) << projNum;
        EXPECT_FALSE(IsFileOpen(InputFileNumber));
        EXPECT_EQ(Counted().PointsRead % 10'000, 0);
        for (const RecordedSegment& segment : surface.Segments()) {
            for (const SurfacePoint& end : {segment.from, segment.to}) {
                ASSERT_GE(end.x, -1) << projNum;
                ASSERT_LE(end.x, 1280) << projNum;
                ASSERT_GE(end.y, -1) << projNum;
                ASSERT_LE(end.y, 924) << projNum;
            }
        }
    }
}

TEST_F(MinuteGridReader, ExtremeNumbersHaveNoPlace) {
    std::string contents;
    for (const int lat : {-32768, -5401, 5401, 32767}) {
        for (const int lon : {-32768, -10801, 32767}) {
            contents += Line(1, {{lat, lon}, {lon, lat}});
        }
    }
    Plot(contents);
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

} // namespace
} // namespace quelmont

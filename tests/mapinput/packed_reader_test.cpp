#include "mapinput/packed_reader.h"

#include "core/file_numbers.h"
#include "mapfiles/packed_file.h"
#include "mapinput/map_plot.h"
#include "output/device_pen.h"
#include "packed_segments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class PackedReader : public ReaderTest {
protected:
    /// Two points a minute of arc apart, in so many degrees of latitude.
    static std::string Short(int rank, int lat) { return Segment(rank, Eastward(Degrees(lat, 0), 60, 2)); }
    /// The latitudes of the lines that were drawn.
    std::vector<double> Parallels() const {
        std::vector<double> parallels;
        for (const PlottedPoint& point : recorder.points) {
            if (point.move) {
                parallels.push_back(point.lat);
            }
        }
        return parallels;
    }
};

TEST_F(PackedReader, DifferencesAreAddedUp) {
    Plot("a.pkv", Segment(1, {{3600, 7200}, {3600 - 120, 7200 + 60}, {3600 - 240, 7200 - 60}}));
    ASSERT_THAT(recorder.points, SizeIs(3));
    EXPECT_EQ(LatSeconds(recorder.points[1]), 3480.0);
    EXPECT_EQ(LonSeconds(recorder.points[1]), 7260.0 + 648'000.0);
    EXPECT_EQ(LatSeconds(recorder.points[2]), 3360.0);
    EXPECT_EQ(LonSeconds(recorder.points[2]), 7140.0 + 648'000.0);
    EXPECT_EQ(Moves(), 1U);
    EXPECT_EQ(Counted().PointsRead, 3);
    ExpectCleanEnd();
}

TEST_F(PackedReader, SumBeginsAtTheTrueFirstPoint) {
    // The map begins at 10 east: the first point is shifted, the sum is not.
    Rectangle(ProjEquirectangular, 10, -10, 10, 40);
    Plot("a.pkv", Segment(1, Eastward(Degrees(0, 20), 100, 3)));
    ASSERT_THAT(recorder.points, SizeIs(3));
    EXPECT_EQ(LonSeconds(recorder.points[2]), 36'000.0 + 200.0);
}

TEST_F(PackedReader, LowByteOfTheCountMayPassAHundred) {
    std::string contents = Segment(1, Eastward(Degrees(0, 0), 60, 150));
    contents[1] = 0;
    contents[2] = static_cast<char>(150);
    Plot("a.pkv", contents + Short(1, 5));
    EXPECT_THAT(recorder.points, SizeIs(152));
}

TEST_F(PackedReader, CountOfOneHasNoDifferences) {
    Plot("a.pkv", Segment(1, {Degrees(3, 3)}) + Short(1, 5));
    EXPECT_THAT(Parallels(), ElementsAre(3.0, 5.0));
    EXPECT_THAT(recorder.points, SizeIs(3));
}

TEST_F(PackedReader, CountOfNoneStillHasAFirstPoint) {
    std::string none = Segment(1, {Degrees(3, 3)});
    none[2] = 0;
    Plot("a.pkv", none + Short(1, 5));
    EXPECT_THAT(Parallels(), ElementsAre(3.0, 5.0));
}

TEST_F(PackedReader, CountOfNoneIsSteppedOverByTheFormula) {
    std::string none = Segment(2, {Degrees(3, 3)});
    none[2] = 0;
    // The next segment is looked for two bytes before the end of the header.
    AddFile("a.pkv", none.substr(0, 22) + Short(1, 5)).Features[2].Shown = false;
    PlotList();
    EXPECT_THAT(Parallels(), ElementsAre(5.0));
    EXPECT_EQ(Counted().PointsRead, 2);
}

TEST_F(PackedReader, EmptyFileDrawsNothing) {
    Plot("a.pkv", "");
    EXPECT_THAT(recorder.points, IsEmpty());
    ExpectCleanEnd();
}

// ---- Features.

TEST_F(PackedReader, EachSegmentHasThePenOfItsFeature) {
    const std::vector<TruePlace> line = {{0, 0}, {120, 120}, {240, 240}, {360, 360}, {480, 480}, {600, 600}};
    InputFileEntry& entry = AddFile("a.pkv", Segment(1, line) + Segment(21, line) + Segment(37, line));
    entry.Features[18].LineWidth = 45;
    PlotList();
    std::vector<RecordedPen> pens;
    for (const RecordedSegment& segment : surface.Segments()) {
        if (pens.empty() || !(pens.back() == segment.pen)) {
            pens.push_back(segment.pen);
        }
    }
    EXPECT_THAT(pens, ElementsAre(RecordedPen{PenStyleSolid, 1, Rgb(255, 0, 0)},
                                  RecordedPen{PenStyleSolid, 3, Rgb(0, 128, 0)},
                                  RecordedPen{PenStyleSolid, 1, Rgb(255, 0, 255)}));
    ExpectCleanEnd();
}

TEST_F(PackedReader, PartOfTheDataBankIsReportedByTheThirdLetter) {
    // Rank 1 is a coast, a river or a state; rank 12 of a river's file falls into a gap, on row 35.
    struct Part {
        const char* name;
        int rank;
        std::size_t row;
    };
    for (const Part& part : {Part{"euc.pkd", 1, 9}, Part{"eur.pkd", 1, 21}, Part{"EUP.PKD", 1, 32},
                             Part{"eux.pkd", 1, 1}, Part{"euc.pkv", 1, 1}, Part{"eur.pkd", 12, 35}}) {
        Design.InputFiles.clear();
        InputFileEntry& entry = AddFile(part.name, Short(part.rank, 1));
        for (FeatureStyle& style : entry.Features) {
            style.Shown = false;
        }
        PlotList();
        EXPECT_THAT(recorder.points, IsEmpty()) << part.name;
        Design.InputFiles[0].Features[part.row].Shown = true;
        PlotList();
        EXPECT_THAT(recorder.points, SizeIs(2)) << part.name;
    }
}

TEST_F(PackedReader, BytesOfALineGraphAreItsFeatures) {
    // Byte 136 is row 40, 137 row 41.
    AddFile("a.grv", Short(136, 1) + Short(137, 2) + Short(226, 3)).Features[41].Shown = false;
    PlotList();
    EXPECT_THAT(Parallels(), ElementsAre(1.0, 3.0));
}

TEST_F(PackedReader, UnknownByteIsNeverShown) {
    InputFileEntry& entry = AddFile("a.grv", Short(1, 1) + Short(129, 2) + Short(255, 3));
    for (FeatureStyle& style : entry.Features) {
        style.Shown = true; // row 0 too, which no dialog can do
    }
    PlotList();
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_EQ(Counted().PointsRead, 6);
    ExpectCleanEnd();
}

TEST_F(PackedReader, RowBeyondTheFormatsOwnIsNeverShown) {
    InputFileEntry& entry = AddFile("a.pkv", Short(42, 1) + Short(72, 2) + Short(0, 3) + Short(1, 4));
    for (FeatureStyle& style : entry.Features) {
        style.Shown = true;
    }
    PlotList();
    EXPECT_THAT(Parallels(), ElementsAre(4.0));
    ExpectCleanEnd();
}

TEST_F(PackedReader, RowThatNoFormatHasIsASubscriptError) {
    Plot("a.pkv", Short(1, 1) + Short(73, 2) + Short(1, 3));
    EXPECT_THAT(Parallels(), ElementsAre(1.0));
    ExpectError("Subscript out of range");
    // 36 + 37 for a file of boundaries, even if nothing follows the rank.
    Plot("eup.pkd", Short(37, 2).substr(0, 1));
    ExpectError("Subscript out of range");
}

// ---- Segments that are stepped over.

TEST_F(PackedReader, HiddenSegmentCountsItsPoints) {
    AddFile("a.pkv", Segment(2, Eastward(Degrees(1, 0), 60, 300)) + Short(1, 2)).Features[2].Shown = false;
    PlotList();
    EXPECT_THAT(Parallels(), ElementsAre(2.0));
    EXPECT_EQ(Counted().PointsRead, 302);
    EXPECT_EQ(Counted().PointsPlotted, 2);
    ExpectCleanEnd();
}

TEST_F(PackedReader, EventsRunAtEachSegmentThatIsSteppedOver) {
    AddFile("a.pkv", Short(2, 1) + Short(2, 2) + Short(1, 3) + Short(2, 4)).Features[2].Shown = false;
    PlotList();
    EXPECT_EQ(machine.pump.calls, 3);
    EXPECT_EQ(machine.window.refreshes, 0) << "nothing new is there to be shown";
}

TEST_F(PackedReader, SegmentBeyondTheMapIsSteppedOver) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    const std::string beyond =
        Segment(1, Eastward(Degrees(11, 0), 60, 40)) + Segment(1, Eastward(Degrees(-11, 0), 60, 40)) +
        Segment(1, Eastward(Degrees(0, 11), 60, 40)) + Segment(1, Eastward(Degrees(0, -12), 60, 40));
    Plot("a.pkv", beyond + Short(1, 2));
    EXPECT_THAT(Parallels(), ElementsAre(2.0));
    EXPECT_EQ(Counted().PointsRead, 162);
    EXPECT_EQ(machine.pump.calls, 4);
}

TEST_F(PackedReader, BoxDecidesWhateverThePointsAre) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    const std::vector<TruePlace> inside = Eastward(Degrees(0, 0), 60, 2);
    const SecondsBox beyond = BoxAround(Eastward(Degrees(50, 50), 60, 2));
    Plot("a.pkv", Segment(1, inside, beyond));
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_EQ(Counted().PointsRead, 2);
}

TEST_F(PackedReader, BoxAcrossTheWesternEdgeIsKept) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    Plot("a.pkv", Segment(1, Eastward(Degrees(0, -10.1), 120, 10)));
    EXPECT_EQ(LonSeconds(recorder.points.at(0)), 0.0) << "cut at the edge";
    EXPECT_EQ(machine.pump.calls, 0);
}

// ---- Ends and failures.

TEST_F(PackedReader, FileThatEndsWithinASegmentEndsInSilence) {
    const std::string contents = Short(1, 1) + Segment(1, Eastward(Degrees(2, 0), 60, 5));
    for (std::size_t size = 0; size <= contents.size(); ++size) {
        Plot("a.pkv", contents.substr(0, size));
        // 24 bytes have a first point, each further two bytes one more.
        const auto points = [](std::size_t bytes) { return bytes < 24 ? 0 : (bytes - 24) / 2 + 1; };
        EXPECT_EQ(recorder.points.size(), size <= 26 ? points(size) : 2 + points(size - 26)) << size;
        ExpectCleanEnd();
    }
}

TEST_F(PackedReader, HiddenSegmentThatIsCutOffCountsAsWhole) {
    AddFile("a.pkv", Segment(2, Eastward(Degrees(1, 0), 60, 300)).substr(0, 30)).Features[2].Shown = false;
    PlotList();
    EXPECT_EQ(Counted().PointsRead, 300);
    ExpectCleanEnd();
}

TEST_F(PackedReader, FileThatFailsInTheMiddleShowsABox) {
    files.FailReadingAfter(30, ErrorDeviceIo);
    Plot("a.pkv", Segment(1, Eastward(Degrees(1, 0), 60, 300)));
    ExpectError("Device I/O error");
}

TEST_F(PackedReader, FileThatCannotBeSoughtShowsABox) {
    std::string contents;
    for (int i = 0; i < 8; ++i) {
        contents += Segment(2, Eastward(Degrees(1, 0), 0, MaxPackedCount));
    }
    files.FailSeeking(ErrorDeviceIo);
    AddFile("a.pkv", contents).Features[2].Shown = false;
    PlotList();
    ExpectError("Device I/O error");
}

TEST_F(PackedReader, PointBeyondTheNumbersIsNoPlace) {
    // All bytes -128, and differences that go on from there.
    std::string contents = Segment(1, Eastward(Degrees(0, 0), 0, MaxPackedCount));
    for (std::size_t i = 17; i < contents.size(); ++i) {
        contents[i] = static_cast<char>(0x80);
    }
    Plot("a.pkv", contents);
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_EQ(Counted().PointsRead, MaxPackedCount);
    ExpectCleanEnd();
}

TEST_F(PackedReader, EachPlaceOfAPenHasItsNumber) {
    AddFile("a.pkv", Short(1, 1) + Short(2, 2));
    surface.FailAt(SurfaceOp::CreatePen, 1);
    PlotList();
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "CreatePen(2) error in MapPlot");
    surface.FailAt(SurfaceOp::DeleteObject, 0);
    PlotList();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "DeleteObject(5) error in MapPlot"},
                            AskedBox{"Windows API Error", "DeleteObject(4) error in MapPlot"}));
}

// ---- Escape.

TEST_F(PackedReader, EscapeIsHonouredAtTheNextSegmentThatIsSteppedOver) {
    AddFile("a.pkv", Short(2, 1) + Short(2, 2) + Short(1, 3)).Features[2].Shown = false;
    AddFile("b.pkv", Short(1, 4));
    machine.pump.At(2, [] { PressEscape(); });
    PlotList();
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_EQ(Counted().PointsRead, 4);
    EXPECT_EQ(Design.PlotStopReason, StopReason::Escape);
    ExpectCleanEnd();
}

TEST_F(PackedReader, EscapeIsHonouredInALongSegment) {
    machine.pump.At(2, [] { PressEscape(); });
    Plot("a.pkv", Segment(1, Eastward(Degrees(1, 0), 60, 2000)));
    EXPECT_THAT(recorder.points, SizeIs(1599)) << "the point whose count was full is not plotted any more";
    ExpectCleanEnd();
}

// ---- UTM.

TEST_F(PackedReader, SegmentOnUtmIsPlottedInMetres) {
    Zone(6'200'000, 5'600'000, 300'000, 800'000);
    // 9 W is the central meridian: the false easting of 500 km.
    Plot("a.pkv",
         Segment(1, Eastward(Degrees(53, -9), 60, 2)) + Segment(1, Eastward(Degrees(53, 20), 60, 2)));
    ASSERT_THAT(recorder.points, SizeIs(2));
    EXPECT_EQ(recorder.points[0].lon, 500'000.0);
    EXPECT_GT(recorder.points[1].lon, 500'000.0);
    EXPECT_EQ(Counted().PointsRead, 4);
    EXPECT_EQ(machine.pump.calls, 1) << "the other one is stepped over";
}

TEST_F(PackedReader, LineJustInsideTheNorthernBoundOfAUtmMapIsDrawn) {
    // A sphere of the polar radius has 53.99 N at 5990 km; PROJ has it at 5982 km.
    Zone(5'984'000, 5'600'000, 300'000, 800'000);
    Plot("a.pkv", Segment(1, Eastward(Degrees(53.99, -9), 60, 3)));
    EXPECT_THAT(recorder.points, SizeIs(3));
}

} // namespace
} // namespace quelmont

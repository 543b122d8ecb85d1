#include "mapinput/fixed_record_reader.h"

#include "core/run_time_error.h"
#include "map_fixture.h"
#include "mapfiles/fixed_record_file.h"
#include "mapinput/map_plot.h"
#include "output/device_pen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string AsText(const FixedRecord& record) { return {record.data(), record.size()}; }
std::string Point(double lat, double lon) {
    const TruePlace place = Degrees(lat, lon);
    return AsText(EncodeFixedRecordPoint({place.lat, place.lon}));
}
const std::string Break = AsText(EncodeFixedRecordBreak());
std::string Header(int code, int count) { return AsText(EncodeLineGraphHeader({code, count})); }
/// Two points on a parallel behind their header.
std::string Feature(int code, double lat) { return Header(code, 2) + Point(lat, 0) + Point(lat, 1); }

// ---- .dat

class DataBankReader : public ReaderTest {
protected:
    void Plot(const std::string& contents) { ReaderTest::Plot("a.dat", contents); }
};

TEST_F(DataBankReader, HeaderStartsALine) {
    Plot(Break + Point(1, 0) + Point(1, 1) + Break + Point(2, 0) + Point(2, -1));
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{1.0, 0.0}, std::pair{1.0, 1.0}, std::pair{2.0, 0.0},
                                             std::pair{2.0, -1.0}));
    EXPECT_EQ(Moves(), 2U);
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_EQ(Counted().PointsRead, 6) << "headers count";
    EXPECT_EQ(Counted().PointsPlotted, 4);
    ExpectCleanEnd();
}

TEST_F(DataBankReader, BlankHemisphereIsAHeader) {
    std::string blank = Point(5, 5);
    blank[6] = ' ';
    Plot(Break + Point(1, 0) + blank + Point(2, 0));
    EXPECT_THAT(recorder.points, SizeIs(2));
    EXPECT_EQ(Moves(), 2U);
}

TEST_F(DataBankReader, FirstPointWithoutAHeaderGoesOnFromTheFileBefore) {
    // The file before ends north of the map, above the point; the line comes in across the edge.
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    AddFile("a.dat", Break + Point(5, 5) + Point(12, 5));
    AddFile("b.dat", Point(8, 5) + Point(7, 5));
    PlotList();
    ASSERT_THAT(recorder.points, SizeIs(5));
    EXPECT_EQ(recorder.points[1].lat, 10.0) << "leaving";
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_EQ(recorder.points[2].lat, 10.0) << "entering";
    EXPECT_EQ(recorder.points[3].lat, 8.0);
    EXPECT_FALSE(recorder.points[4].move);
    ExpectCleanEnd();
}

TEST_F(DataBankReader, FirstPointWithoutAHeaderBeginsALineBehindAPointOfTheMap) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    AddFile("a.dat", Break + Point(5, 5) + Point(6, 5));
    AddFile("b.dat", Point(8, 5) + Point(7, 5));
    PlotList();
    ASSERT_THAT(recorder.points, SizeIs(4));
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_FALSE(recorder.points[3].move);
    ExpectCleanEnd();
}

TEST_F(DataBankReader, HeaderAtTheEndOfADrawIsForgotten) {
    Plot(Break + Point(5, 5) + Break);
    Plot("");
    EXPECT_EQ(Design.LineStart, LineContinues);
}

TEST_F(DataBankReader, LineThatBeginsOutsideLeavesItsMoveToTheNextPoint) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    Plot(Break + Point(20, 0));
    EXPECT_EQ(Design.LineStart, LineMoves) << "and not still at the header";
}

TEST_F(DataBankReader, WholeFileHasThePenOfItsOneRow) {
    InputFileEntry& entry =
        AddFile("a.dat", Break + Point(0, 0) + Point(20, 20) + Break + Point(0, 0) + Point(-20, 20));
    entry.Features[1].Color = SolidColor(0x123456);
    entry.Features[1].LineWidth = 30;
    PlotList();
    ASSERT_THAT(surface.Segments(), SizeIs(2));
    EXPECT_EQ(surface.Segments()[1].pen, (RecordedPen{PenStyleSolid, 2, 0x123456}));
    EXPECT_EQ(surface.Count(SurfaceOp::CreatePen), 1);
}

TEST_F(DataBankReader, CodesMeanNothing) {
    Plot(Header(3001, 2) + Point(1, 0) + Point(1, 1) + Point(1, 2));
    EXPECT_THAT(recorder.points, SizeIs(3));
}

TEST_F(DataBankReader, RecordsAreTwentyBytesWhateverStandsInThem) {
    // With a line feed alone the second record begins a byte late: "N" stands at position 6.
    std::string shorter = Point(1, 0);
    shorter.erase(18, 1);
    Plot(Break + shorter + Point(1, 1) + "\n");
    EXPECT_THAT(recorder.points, SizeIs(1));
    EXPECT_EQ(Counted().PointsRead, 3);
    ExpectCleanEnd();
}

TEST_F(DataBankReader, ShortLastPieceIsFilledWithBlanks) {
    Plot(Break + Point(1, 0) + Point(1, 1).substr(0, 15));
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{1.0, 0.0}, std::pair{1.0, 1.0}));
    // Cut within the longitude: what is there is degrees 00 and a blank.
    Plot(Break + Point(1, 0) + Point(2, 1).substr(0, 9));
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{1.0, 0.0}, std::pair{2.0, 0.0}));
    // Cut before the hemisphere it is a header.
    Plot(Break + Point(1, 0) + Point(2, 1).substr(0, 6));
    EXPECT_THAT(recorder.points, SizeIs(1));
    EXPECT_EQ(Counted().PointsRead, 3);
    ExpectCleanEnd();
}

TEST_F(DataBankReader, LineEndsAtTheEndAreNoRecord) {
    for (const std::string end :
         {"", "\r\n", "\n", "\r\n\r\n\r\n", "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"}) {
        Plot(Break + Point(1, 0) + end);
        EXPECT_EQ(Counted().PointsRead, 2) << end.size();
    }
    Plot(Break + Point(1, 0) + "\r\n\x1A");
    EXPECT_EQ(Counted().PointsRead, 3) << "a blank record, which is a header";
    ExpectCleanEnd();
}

TEST_F(DataBankReader, NumberWithoutAPlaceIsAnError) {
    std::string huge = Point(1, 1);
    huge.replace(7, 3, "9E9");
    Plot(Break + Point(1, 0) + huge + Point(2, 0));
    EXPECT_THAT(recorder.points, SizeIs(1));
    ExpectError("Overflow");
}

TEST_F(DataBankReader, EachPlaceOfAPenHasItsNumber) {
    surface.FailAt(SurfaceOp::CreatePen, 1);
    Plot(Break);
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "CreatePen(4) error in MapPlot");
    surface.FailAt(SurfaceOp::DeleteObject, 0);
    Plot(Break);
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "DeleteObject(10) error in MapPlot");
}

TEST_F(DataBankReader, EscapeIsHonouredAtA800thPoint) {
    std::string contents = Break;
    for (int i = 0; i < 2000; ++i) {
        contents += Point(i % 50, i % 70);
    }
    machine.pump.At(1, [] { PressEscape(); });
    Plot(contents);
    EXPECT_THAT(recorder.points, SizeIs(798)) << "the header is the first of the 800";
    ExpectCleanEnd();
}

TEST_F(DataBankReader, FileThatFailsInTheMiddleShowsABox) {
    files.FailReadingAfter(30, ErrorDeviceIo);
    Plot(Break + Point(1, 0) + Point(1, 1));
    ExpectError("Device I/O error");
}

// ---- .grf

class LineGraphReader : public ReaderTest {
protected:
    void Plot(const std::string& contents) { ReaderTest::Plot("a.grf", contents); }
    /// Adds the file with some features off.
    void Add(const std::string& contents, const std::vector<std::size_t>& hidden) {
        InputFileEntry& entry = AddFile("a.grf", contents);
        for (const std::size_t feature : hidden) {
            entry.Features[feature].Shown = false;
        }
    }
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

TEST_F(LineGraphReader, HeaderNamesTheFeature) {
    Add(Feature(3001, 1) + Feature(5001, 2) + Feature(7020, 3), {37});
    PlotList();
    EXPECT_THAT(Parallels(), ElementsAre(1.0, 3.0));
    EXPECT_EQ(Counted().PointsRead, 9);
    EXPECT_EQ(Counted().PointsPlotted, 4);
    ExpectCleanEnd();
}

TEST_F(LineGraphReader, EachFeatureHasItsPen) {
    InputFileEntry& entry = AddFile("a.grf", Feature(3001, 1) + Feature(5001, 2));
    entry.Features[37].LineWidth = 45;
    PlotList();
    ASSERT_THAT(surface.Segments(), SizeIs(2));
    EXPECT_EQ(surface.Segments()[0].pen, (RecordedPen{PenStyleSolid, 1, Rgb(0, 0, 255)}));
    EXPECT_EQ(surface.Segments()[1].pen, (RecordedPen{PenStyleSolid, 3, Rgb(1, 0, 0)}));
}

TEST_F(LineGraphReader, HiddenPointsAreSteppedOverByTheirCount) {
    // The count is one less than the points behind it: the third one is drawn, in no pen of its own.
    Add(Header(5001, 2) + Point(1, 0) + Point(2, 0) + Point(3, 0) + Feature(3001, 4), {37});
    PlotList();
    EXPECT_THAT(Parallels(), ElementsAre(3.0, 4.0));
    EXPECT_EQ(Counted().PointsRead, 7);
}

TEST_F(LineGraphReader, EventsRunAtEachFeatureThatIsSteppedOver) {
    Add(Feature(5001, 1) + Feature(3001, 2) + Feature(5001, 3), {37});
    PlotList();
    EXPECT_EQ(machine.pump.calls, 2);
}

TEST_F(LineGraphReader, UnknownCodeIsSteppedOverAndTheFeatureBeforeGoesOn) {
    Plot(Feature(3001, 1) + Feature(4999, 2) + Feature(3001, 3));
    EXPECT_THAT(Parallels(), ElementsAre(1.0, 3.0));
    EXPECT_EQ(Counted().PointsRead, 9);
    ExpectCleanEnd();
}

TEST_F(LineGraphReader, UnknownCodeBehindAHiddenFeatureIsSteppedOverTwice) {
    // Twice two records: the points of the unknown code, then a header and a point behind them.
    Add(Feature(5001, 1) + Feature(4999, 2) + Feature(3001, 3) + Feature(3001, 4), {37});
    PlotList();
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{3.0, 1.0}, std::pair{4.0, 0.0}, std::pair{4.0, 1.0}));
    EXPECT_EQ(Counted().PointsRead, 12);
    EXPECT_EQ(machine.pump.calls, 3);
}

TEST_F(LineGraphReader, UnknownCodeAtTheFrontHasNoFeatureBeforeIt) {
    Plot(Header(4999, 1) + Point(1, 0) + Point(2, 0) + Feature(3001, 3));
    EXPECT_THAT(Parallels(), ElementsAre(3.0));
}

TEST_F(LineGraphReader, LineEndInTheHeaderMakesItsCodeUnknown) {
    std::string header = Header(3001, 2);
    header.replace(18, 2, "\r\n");
    Plot(Feature(3001, 1) + header + Point(2, 0) + Point(2, 1) + Feature(3001, 3));
    EXPECT_THAT(Parallels(), ElementsAre(1.0, 3.0));
}

TEST_F(LineGraphReader, RecordsOfUnequalLengthBreakTheStep) {
    // The points of the hidden feature have a line feed alone: the step ends two bytes too far.
    std::string shorter = Point(1, 0);
    shorter.erase(18, 1);
    Add(Header(5001, 2) + shorter + shorter + Feature(3001, 3), {37});
    PlotList();
    EXPECT_THAT(recorder.points, IsEmpty());
}

TEST_F(LineGraphReader, StepBeyondTheFileEndsIt) {
    Add(Header(5001, 999'999) + Point(1, 0) + Feature(3001, 3), {37});
    PlotList();
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_EQ(Counted().PointsRead, 1'000'000);
    ExpectCleanEnd();
}

TEST_F(LineGraphReader, NegativeCountIsAnError) {
    std::string header = Header(5001, 0);
    header.replace(9, 6, "    -1");
    Add(Feature(3001, 1) + header + Feature(3001, 2), {37});
    PlotList();
    EXPECT_THAT(Parallels(), ElementsAre(1.0));
    ExpectError("Invalid procedure call or argument");
}

TEST_F(LineGraphReader, CountThatIsTooLargeIsAnError) {
    std::string header = Header(5001, 0);
    header.replace(9, 6, " 9E999");
    Plot(header);
    ExpectError("Overflow");
}

TEST_F(LineGraphReader, EscapeIsHonouredAtTheNextFeatureThatIsSteppedOver) {
    Add(Feature(5001, 1) + Feature(5001, 2) + Feature(3001, 3), {37});
    machine.pump.At(2, [] { PressEscape(); });
    PlotList();
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_EQ(Counted().PointsRead, 6);
    ExpectCleanEnd();
}

TEST_F(LineGraphReader, EscapeIsHonouredBetweenTheTwoStepsOfAnUnknownCode) {
    Add(Feature(5001, 1) + Feature(4999, 2) + Feature(3001, 3), {37});
    machine.pump.At(2, [] { PressEscape(); });
    PlotList();
    EXPECT_EQ(Counted().PointsRead, 6);
    ExpectCleanEnd();
}

TEST_F(LineGraphReader, EachPlaceOfAPenHasItsNumber) {
    AddFile("a.grf", Feature(3001, 1) + Feature(5001, 2));
    surface.FailAt(SurfaceOp::CreatePen, 1);
    PlotList();
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "CreatePen(5) error in MapPlot");
    surface.FailAt(SurfaceOp::DeleteObject, 0);
    PlotList();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "DeleteObject(9) error in MapPlot"},
                            AskedBox{"Windows API Error", "DeleteObject(10) error in MapPlot"}));
}

} // namespace
} // namespace quelmont

#include "mapinput/ascii_map_reader.h"

#include "core/run_time_error.h"
#include "map_fixture.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/text_reader.h"
#include "mapinput/map_input_state.h"
#include "mapinput/map_plot.h"
#include "output/device_pen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Every file is read as a small one, and as a large one whose numbers a second thread reads ahead.
class AsciiMapReader : public ReaderTest, public testing::WithParamInterface<bool> {
protected:
    AsciiMapReader() { MapInputNow.AheadFrom = GetParam() ? 0 : std::numeric_limits<std::int64_t>::max(); }
    void Plot(const std::string& contents) { ReaderTest::Plot("a.prn", contents); }
    static std::vector<std::string> Labels() {
        std::vector<std::string> labels;
        for (const MapLabel& label : Design.MapLabels) {
            labels.push_back(label.LabelText);
        }
        return labels;
    }
};

TEST_P(AsciiMapReader, LinesAreBreakLatitudeLongitude) {
    Plot("1,10.5,20.25\r\n0,-10,-20\r\n-5,1,1\r\n0,1,2\r\n");
    EXPECT_THAT(PlottedPlaces(), ElementsAre(std::pair{10.5, 20.25}, std::pair{-10.0, -20.0},
                                             std::pair{1.0, 1.0}, std::pair{1.0, 2.0}));
    EXPECT_EQ(Moves(), 2U);
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_EQ(Counted().PointsRead, 4);
    ExpectCleanEnd();
}

TEST_P(AsciiMapReader, AnyOtherEndingIsReadToo) {
    for (const char* name : {"a.prn", "b.txt", "c", "d.csv"}) {
        AddFile(name, "1 1 1\n0 1 2\n");
    }
    PlotList();
    EXPECT_THAT(recorder.points, SizeIs(8));
}

TEST_P(AsciiMapReader, BlankLinesAnywhereMeanNothing) {
    Plot("\r\n\r\n1,1,1\r\n\r\n   \r\n0,1,2\r\n\r\n \t\r\n");
    EXPECT_THAT(recorder.points, SizeIs(2));
    ExpectCleanEnd();
}

TEST_P(AsciiMapReader, EndMarkOfDosEndsTheFile) {
    Plot("1,1,1\r\n0,1,2\r\n\x1A");
    EXPECT_THAT(recorder.points, SizeIs(2));
    ExpectCleanEnd();
}

TEST_P(AsciiMapReader, MarkOfUtf8IsPassedOver) {
    Plot("\xEF\xBB\xBF"
         "1,1,1\n0,1,2\n");
    EXPECT_THAT(recorder.points, SizeIs(2));
    EXPECT_TRUE(recorder.points.at(0).move) << "the first number is a 1";
}

TEST_P(AsciiMapReader, FirstPointThatBeginsNoLineGoesOnFromTheFileBefore) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    AddFile("a.prn", "1,5,5\n0,12,5\n");
    AddFile("b.prn", "0,8,5\n");
    PlotList();
    ASSERT_THAT(recorder.points, SizeIs(4));
    EXPECT_EQ(recorder.points[2].lat, 10.0) << "entering";
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_EQ(recorder.points[3].lat, 8.0);
}

TEST_P(AsciiMapReader, FirstPointThatBeginsNoLineBeginsOneBehindAPointOfTheMap) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    AddFile("a.prn", "1,5,5\n0,6,5\n");
    AddFile("empty.prn", "");
    AddFile("b.prn", "0,8,5\n0,9,5\n");
    PlotList();
    ASSERT_THAT(recorder.points, SizeIs(4));
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_EQ(recorder.points[2].lat, 8.0);
    EXPECT_FALSE(recorder.points[3].move);
    ExpectCleanEnd();
}

TEST_P(AsciiMapReader, FirstPointOfADrawBeginsALineWhateverTheDrawBeforeLeft) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    Plot("1,5,5\n0,12,5\n");
    Plot("0,8,5\n0,7,5\n");
    ASSERT_THAT(recorder.points, SizeIs(2));
    EXPECT_TRUE(recorder.points[0].move);
    EXPECT_EQ(recorder.points[0].lat, 8.0) << "and not the edge";
    EXPECT_FALSE(recorder.points[1].move);
}

TEST_P(AsciiMapReader, OnePointThatBeginsNoLineIsAMapOfOnePoint) {
    // The point of the draw before, and what a program starts with, lie on the same parallel.
    Plot("0,0,20\n");
    Plot("0,0,20\n");
    ASSERT_THAT(recorder.points, SizeIs(1));
    EXPECT_TRUE(recorder.points[0].move);
    ExpectCleanEnd();
}

TEST_P(AsciiMapReader, FirstPointOutsideThatBeginsNoLineIsEnteredFrom) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    Plot("0,12,5\n0,8,5\n");
    ASSERT_THAT(recorder.points, SizeIs(2));
    EXPECT_EQ(recorder.points[0].lat, 10.0);
    EXPECT_TRUE(recorder.points[0].move);
    EXPECT_EQ(recorder.points[1].lat, 8.0);
}

TEST_P(AsciiMapReader, PointsReachAcrossBlocks) {
    std::string contents;
    std::size_t points = 0;
    while (contents.size() < 3 * ByteReader::BlockSize) {
        contents += "0,12.5,20, \"Oslo\" \r\n\r\n";
        ++points;
    }
    Plot(contents);
    EXPECT_EQ(Counted().PointsRead, static_cast<std::int64_t>(points));
    EXPECT_EQ(Labels().size(), points);
}

TEST_P(AsciiMapReader, ManyBlankLinesArePassedOver) {
    Plot("1,1,1\n" + std::string(3 * MaxTextItem, '\n') + "0,1,2\n" + std::string(3 * MaxTextItem, ' '));
    EXPECT_THAT(recorder.points, SizeIs(2));
    ExpectCleanEnd();
}

TEST_P(AsciiMapReader, EndlessBlanksInOneLineAreAnError) {
    Plot("1,1,1\n" + std::string(MaxFilling / 2, ' ') + "\n" + std::string(MaxFilling / 2, ' ') +
         "\n0,1,2\n");
    ExpectCleanEnd();
    Plot("1,1,1\n" + std::string(MaxFilling + 1, ' ') + "\n0,1,2\n");
    ExpectError("Input past end of file");
}

TEST_P(AsciiMapReader, PointThatIsCutOffIsAnError) {
    Plot("1,1,1\n0,1\n");
    EXPECT_THAT(recorder.points, SizeIs(1));
    ExpectError("Input past end of file");
}

TEST_P(AsciiMapReader, NumberWithoutAPlaceIsAnError) {
    Plot("1,1,1\n0,1E9,1\n");
    ExpectError("Overflow");
    Plot("1E99,1,1\n");
    ExpectError("Overflow");
}

TEST_P(AsciiMapReader, FileOnUtmIsInDegreesAllTheSame) {
    Zone(6'200'000, 5'600'000, 300'000, 800'000);
    Plot("1,53,-9\n");
    ASSERT_THAT(recorder.points, SizeIs(1));
    EXPECT_EQ(recorder.points[0].lon, 500'000.0) << "on the central meridian";
    EXPECT_TRUE(Design.UtmPointPath);
}

TEST_P(AsciiMapReader, EscapeIsHonouredAtA800thPoint) {
    std::string contents;
    for (int i = 0; i < 1000; ++i) {
        contents += "1," + std::to_string(i % 60) + "," + std::to_string(i % 70) + ",\"x\"\n";
    }
    machine.pump.At(1, [] { PressEscape(); });
    Plot(contents);
    EXPECT_EQ(Counted().PointsRead, 800);
    EXPECT_EQ(Counted().PointsPlotted, 799);
    ExpectCleanEnd();
}

TEST_P(AsciiMapReader, EachPlaceOfAPenHasItsNumber) {
    surface.FailAt(SurfaceOp::CreatePen, 1);
    Plot("1,1,1\n");
    EXPECT_EQ(machine.boxes.Taken().at(0).text, "CreatePen(7) error in MapPlot");
    surface.FailAt(SurfaceOp::DeleteObject, 0);
    Plot("1,1,1\n");
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "DeleteObject(14) error in MapPlot"}));
}

TEST_P(AsciiMapReader, FileThatFailsInTheMiddleShowsABox) {
    files.FailReadingAfter(5, ErrorDeviceIo);
    Plot("1,1,1\n0,1,2\n");
    ExpectError("Device I/O error");
}

// ---- .utm

TEST_P(AsciiMapReader, UtmFileIsEastingAndNorthing) {
    Zone(6'200'000, 5'600'000, 300'000, 800'000);
    ReaderTest::Plot("a.UTM", "1 500000 5700000\n0 500001.5 5700002.5\n0 900000 5700000\n");
    ASSERT_THAT(recorder.points, SizeIs(3));
    EXPECT_EQ(recorder.points[0].lat, 5'700'000.0);
    EXPECT_EQ(recorder.points[0].lon, 500'000.0);
    EXPECT_EQ(recorder.points[1].lat, 5'700'002.0) << "whole metres, a half to the even one";
    EXPECT_EQ(recorder.points[1].lon, 500'002.0);
    EXPECT_EQ(recorder.points[2].lon, 800'000.0) << "cut at the edge";
    EXPECT_FALSE(Design.UtmPointPath);
    ExpectCleanEnd();
}

TEST_P(AsciiMapReader, FileBehindAUtmFileIsInDegreesAgain) {
    Zone(6'200'000, 5'600'000, 300'000, 800'000);
    AddFile("a.utm", "1 500000 5700000\n");
    AddFile("b.prn", "1,53,-9\n");
    PlotList();
    ASSERT_THAT(recorder.points, SizeIs(2));
    EXPECT_EQ(recorder.points[1].lon, 500'000.0);
}

TEST_P(AsciiMapReader, LabelOfAUtmFileStandsInMetres) {
    Zone(6'200'000, 5'600'000, 300'000, 800'000);
    ReaderTest::Plot("a.utm", "1 400000.4 5700000.4 \"Here\"\n1 900000 5700000 \"Off\"\n");
    ASSERT_THAT(Labels(), ElementsAre("Here"));
    EXPECT_EQ(Design.MapLabels[0].LabelLat, 5'700'000.0);
    EXPECT_EQ(Design.MapLabels[0].LabelLon, 400'000.0);
}

// ---- Labels.

TEST_P(AsciiMapReader, LabelsAreCollectedInOrder) {
    AddFile("a.prn", "1,59.9,10.75,\"Oslo\"\n1,60.4,5.3\n1,63.4,10.4,\"Trondheim\"\n");
    AddFile("b.prn", "1 48.9 2.35 \"Paris\"\n");
    PlotList();
    EXPECT_THAT(Labels(), ElementsAre("Oslo", "Trondheim", "Paris"));
    EXPECT_EQ(Design.MapLabels[1].LabelSymbolIndex, 1);
    EXPECT_EQ(Design.MapLabels[2].LabelSymbolIndex, 2);
    EXPECT_TRUE(Design.LabelsVisible);
}

TEST_P(AsciiMapReader, LabelStandsWhereItsPointWasProjected) {
    Rectangle(ProjEquirectangular, 70, 50, -10, 30);
    Plot("1,59.90001,10.75,\"Oslo\"\n");
    ASSERT_THAT(Design.MapLabels, SizeIs(1));
    EXPECT_EQ(Design.MapLabels[0].LabelLat, 215'640.0 / 3600.0) << "whole seconds";
    EXPECT_EQ(Design.MapLabels[0].LabelLon, 20.75) << "from the western boundary";
}

TEST_P(AsciiMapReader, LabelHasTheFontOfItsFile) {
    InputFileEntry& entry = AddFile("a.prn", "1,1,1,\"x\"\n");
    entry.LabelFontName = "Times";
    entry.LabelFontSize = 14;
    entry.LabelColor = Rgb(1, 2, 3);
    entry.LabelBold = true;
    entry.LabelUnderline = true;
    PlotList();
    const MapLabel& label = Design.MapLabels.at(0);
    EXPECT_EQ(label.LabelFont, "Times");
    EXPECT_EQ(label.LabelSize, 14);
    EXPECT_EQ(label.LabelColour, Rgb(1, 2, 3));
    EXPECT_TRUE(label.LabelBold);
    EXPECT_FALSE(label.LabelItalic);
    EXPECT_TRUE(label.LabelUnderline);
    EXPECT_FALSE(label.LabelStrikeout);
    entry.LabelItalic = true;
    entry.LabelStrikeout = true;
    PlotList();
    EXPECT_TRUE(Design.MapLabels.at(0).LabelItalic);
    EXPECT_TRUE(Design.MapLabels.at(0).LabelStrikeout);
}

TEST_P(AsciiMapReader, LabelWithoutAChosenFontIsArialOfTenPointsInBlack) {
    InputFileEntry& entry = AddFile("a.prn", "1,1,1,\"x\"\n");
    EXPECT_EQ(entry.LabelFontName, "");
    EXPECT_EQ(entry.LabelFontSize, 0);
    EXPECT_EQ(entry.LabelColor, 0U);
    PlotList();
    EXPECT_EQ(Design.MapLabels.at(0).LabelFont, "Arial");
    EXPECT_EQ(Design.MapLabels.at(0).LabelSize, 10);
    EXPECT_EQ(Design.MapLabels.at(0).LabelColour, 33554432U) << "black, with the flag of a stored colour";
}

TEST_P(AsciiMapReader, LabelOutsideTheMapIsDropped) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    Plot("1,20,0,\"North\"\n1,0,20,\"East\"\n1,0,0,\"Here\"\n0,20,0,\"Gone\"\n");
    EXPECT_THAT(Labels(), ElementsAre("Here"));
    Circle(ProjOrthographic, 40, -100, 30);
    Plot("1,40,80,\"Beyond\"\n1,40,-100,\"Centre\"\n1,40,-50,\"Off\"\n");
    EXPECT_THAT(Labels(), ElementsAre("Centre"));
}

TEST_P(AsciiMapReader, EmptyLabelIsNone) {
    Plot("1,1,1,\"\"\n1,1,1,Oslo\n");
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_P(AsciiMapReader, LabelsAreWindows1252UnlessTheyAreUtf8) {
    Plot("1,1,1,\"K\xF6ln\"\n1,1,1,\"K\xC3\xB6ln\"\n");
    EXPECT_THAT(Labels(), ElementsAre("K\xC3\xB6ln", "K\xC3\xB6ln"));
}

TEST_P(AsciiMapReader, LabelWithoutAClosingQuoteIsAnError) {
    Plot("1,1,1,\"Oslo\"\n1,1,1,\"Bergen\n1,1,1,\"Paris\"\n");
    EXPECT_THAT(Labels(), IsEmpty()) << "a plot that fails places none";
    EXPECT_THAT(recorder.points, SizeIs(1)) << "its point is not drawn either";
    ExpectError("Invalid procedure call or argument");
}

TEST_P(AsciiMapReader, LabelsOfTheDrawBeforeAreForgotten) {
    Plot("1,1,1,\"Oslo\"\n");
    Plot("1,1,1,\"Paris\"\n");
    EXPECT_THAT(Labels(), ElementsAre("Paris"));
    Design.InputFiles.clear();
    Design.MapFileCount = 0;
    PlotList();
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_P(AsciiMapReader, LabelOfALineThatLeavesIsThatOfItsPointOutside) {
    Rectangle(ProjEquirectangular, 10, -10, -10, 10);
    Plot("1,5,5,\"In\"\n0,15,5,\"Out\"\n0,5,5,\"Back\"\n");
    EXPECT_THAT(Labels(), ElementsAre("In", "Back"));
    EXPECT_EQ(Design.MapLabels[1].LabelLat, 5.0) << "not where the line came in";
}

INSTANTIATE_TEST_SUITE_P(Files, AsciiMapReader, testing::Bool(),
                         [](const auto& ahead) { return std::string(ahead.param ? "ReadAhead" : "Small"); });

} // namespace
} // namespace quelmont

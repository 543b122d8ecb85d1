#include "mapinput/map_plot.h"

#include "core/error_box.h"
#include "core/file_numbers.h"
#include "map_fixture.h"
#include "mapfiles/byte_reader.h"
#include "output/device_pen.h"
#include "output/export_file.h"
#include "output/output_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* DrawCaption = "Quelmont: click on Stop or press Esc to stop plotting";
const std::vector<Minutes> Stretch = {{0, 0}, {0, 60}};

class MapPlotTest : public MapTest {
protected:
    MapPlotTest() { machine.window.caption = DrawCaption; }

    /// A file of so many points, all of them inside.
    static std::string Points(int count) {
        std::string contents;
        for (int i = 0; i < count; ++i) {
            contents += Record(i == 0 ? 1000 : 0, i % 60, i % 100);
        }
        return contents;
    }
    void ExpectClosed() {
        EXPECT_FALSE(IsFileOpen(InputFileNumber));
        EXPECT_FALSE(IsFileOpen(OutputFileNumber));
        EXPECT_EQ(surface.LiveObjects(), 0);
        EXPECT_EQ(Design.OutputFileName, "");
    }
    void ExpectBox(const std::string& title, const std::string& text) {
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{title, text}));
    }
    const std::vector<DrawStatistics::MapFile>& Counted() { return Design.Statistics.MapFiles; }
};

TEST_F(MapPlotTest, EmptyListDrawsNothing) {
    MapPlot();
    EXPECT_EQ(surface.Text(), "KeepPicture()\n") << "the map is whole";
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    ExpectClosed();
}

TEST_F(MapPlotTest, FilesAreDrawnInTheOrderOfTheList) {
    AddFile("first.map", Line(1, {{0, 0}, {0, 60}}));
    AddFile("second.map", Line(1, {{600, 0}, {600, 60}}));
    MapPlot();
    ASSERT_EQ(recorder.points.size(), 4U);
    EXPECT_EQ(recorder.points[0].lat, 0.0);
    EXPECT_EQ(recorder.points[2].lat, 10.0);
    ExpectClosed();
}

TEST_F(MapPlotTest, ListIsReadUpToItsCount) {
    AddFile("first.map", Line(1, Stretch));
    AddFile("second.map", Line(1, Stretch));
    Design.MapFileCount = 1;
    MapPlot();
    EXPECT_EQ(recorder.points.size(), 2U);
}

TEST_F(MapPlotTest, CountBeyondTheListIsASubscriptError) {
    AddFile("first.map", Line(1, Stretch));
    Design.MapFileCount = 2;
    MapPlot();
    EXPECT_EQ(recorder.points.size(), 2U);
    ExpectBox("Error in MapPlot", "Error: Subscript out of range");
}

TEST_F(MapPlotTest, CaptionNamesTheFileWithoutItsFolder) {
    AddFile("C:\\maps\\world.map", Line(1, Stretch));
    AddFile("/usr/share/rivers.all", Line(1, Stretch));
    MapPlot();
    EXPECT_THAT(machine.window.captions, ElementsAre(std::string(DrawCaption) + " world.map",
                                                     std::string(DrawCaption) + " rivers.all"));
}

TEST_F(MapPlotTest, SurfaceIsTakenAnewForEachFile) {
    Design.Surface = nullptr;
    OutputNow.DevicePixelX = 0.0F;
    AddFile("a.map", Line(1, Stretch));
    MapPlot();
    EXPECT_EQ(Design.Surface, &surface);
    EXPECT_EQ(OutputNow.DevicePixelX, 15.0F);
    EXPECT_EQ(OutputNow.DevicePixelY, 15.0F);
}

TEST_F(MapPlotTest, SymbolTypeIsThatOfTheFile) {
    AddFile("a.map", Line(1, Stretch)).MapFileType = SymbolDot;
    AddFile("b.map", Line(1, Stretch));
    MapPlot();
    EXPECT_EQ(surface.Count(SurfaceOp::SetPixel), 2);
    EXPECT_EQ(surface.Segments().size(), 1U);
}

TEST_F(MapPlotTest, ExtensionIsTheLastThreeLettersOnly) {
    AddFile("heatmap", Line(1, Stretch)); // ends in "map", without a dot
    MapPlot();
    EXPECT_EQ(recorder.points.size(), 2U);
}

// ---- Files that are passed over.

TEST_F(MapPlotTest, UtmFileOnAnotherProjectionIsPassedOverInSilence) {
    AddFile("a.utm", "1 500000 5700000\r\n");
    AddFile("b.map", Line(1, Stretch));
    MapPlot();
    EXPECT_EQ(recorder.points.size(), 2U);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_EQ(files.opens, 1);
}

TEST_F(MapPlotTest, FileOfOneStyleIsPassedOverWhenItIsOff) {
    for (const char* name : {"a.dat", "b.mps", "c.mp1", "d.prn", "e.xyz"}) {
        AddFile(name, "").Features[1].Shown = false;
    }
    AddFile("f.map", Line(1, Stretch));
    MapPlot();
    EXPECT_EQ(recorder.points.size(), 2U);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(MapPlotTest, FileThatIsPassedOverNeedNotExist) {
    AddFile("a.map", Line(1, Stretch));
    Design.InputFiles[0].MapFileName = "missing.utm";
    MapPlot();
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

// ---- Failures.

TEST_F(MapPlotTest, MissingFileStopsTheList) {
    AddFile("first.map", Line(1, Stretch));
    AddFile("second.map", Line(1, Stretch));
    AddFile("third.map", "").MapFileName = "C:\\maps\\missing.map";
    AddFile("fourth.map", Line(1, Stretch));
    MapPlot();
    EXPECT_EQ(recorder.points.size(), 4U);
    ExpectBox(
        "File not found error in MapPlot",
        "C:\\maps\\missing.map\n\nThe above file, listed in the Open Digital Map File item\nof the File "
        "menu, was not found.");
    ExpectClosed();
    EXPECT_THAT(Counted(), testing::SizeIs(3));
}

TEST_F(MapPlotTest, MissingFolderOfABinaryFileIsAMissingFile) {
    AddFile("a.map", "");
    files.FailOpening(ErrorPathNotFound);
    Design.OutputWmf = false;
    MapPlot();
    EXPECT_EQ(machine.boxes.asked.at(0).title, "File not found error in MapPlot");
}

TEST_F(MapPlotTest, MissingFileIsReportedOnceInADraw) {
    AddFile("a.map", "").MapFileName = "missing.map";
    BeginDrawBoxes();
    MapPlot();
    MapPlot();
    EXPECT_EQ(machine.boxes.Taken().size(), 1U);
    ResetDrawBoxes();
}

TEST_F(MapPlotTest, FileThatCannotBeOpenedShowsTheReason) {
    AddFile("a.map", "");
    files.FailOpening(ErrorPermissionDenied);
    Design.OutputWmf = false;
    MapPlot();
    ExpectBox("Error in MapPlot", "Error: Permission denied\na.map");
    ExpectClosed();
}

TEST_F(MapPlotTest, FailureInAFileNamesTheFile) {
    AddFile("C:\\maps\\first.map", Line(1, Stretch));
    AddFile("C:\\maps\\second.prn", "1,2,3,\"no end\n");
    MapPlot();
    ExpectBox("Error in MapPlot", "Error: Invalid procedure call or argument\nC:\\maps\\second.prn");
    ExpectClosed();
}

TEST_F(MapPlotTest, FileThatCannotBeClosedShowsTheReason) {
    AddFile("a.map", Line(1, Stretch));
    AddFile("b.map", Line(1, Stretch));
    files.FailClosing(ErrorDiskFull);
    MapPlot();
    EXPECT_EQ(recorder.points.size(), 2U);
    ASSERT_FALSE(machine.boxes.asked.empty());
    EXPECT_EQ(machine.boxes.Taken().at(0), (AskedBox{"Error in MapPlot", "Error: Disk full"}));
    ExpectClosed();
}

TEST_F(MapPlotTest, PenThatCannotBeMadeDoesNotStopTheMap) {
    AddFile("a.map", Line(1, Stretch) + Line(2, Stretch));
    surface.FailAt(SurfaceOp::CreatePen, 1);
    MapPlot();
    ExpectBox("Windows API Error", "CreatePen(1) error in MapPlot");
    EXPECT_EQ(recorder.points.size(), 4U);
    ExpectClosed();
}

TEST_F(MapPlotTest, EachPlaceOfDeletingAPenHasItsNumber) {
    AddFile("a.map", Line(1, Stretch) + Line(2, Stretch));
    surface.FailAt(SurfaceOp::DeleteObject, 0);
    MapPlot();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "DeleteObject(3) error in MapPlot"},
                            AskedBox{"Windows API Error", "DeleteObject(2) error in MapPlot"}));
    Design.InputFiles.clear();
    AddFile("b.map", Points(50'000));
    files.FailReadingAfter(static_cast<std::int64_t>(ByteReader::BlockSize), ErrorDeviceIo);
    MapPlot();
    EXPECT_EQ(machine.boxes.asked.back().text, "DeleteObject(15) error in MapPlot");
}

TEST_F(MapPlotTest, PenIsDeletedAtTheEndOfAStoppedMap) {
    AddFile("a.map", Points(900));
    machine.pump.At(1, [] { PressEscape(); });
    surface.FailAt(SurfaceOp::DeleteObject, 0);
    MapPlot();
    ExpectBox("Windows API Error", "DeleteObject(1) error in MapPlot");
}

// ---- Events and Escape.

TEST_F(MapPlotTest, EventsRunAfterEach800thPoint) {
    AddFile("a.map", Points(2399));
    MapPlot();
    EXPECT_EQ(machine.pump.calls, 2);
    EXPECT_EQ(machine.window.refreshes, 2);
}

TEST_F(MapPlotTest, PictureIsShownJustBeforeEventsRun) {
    AddFile("a.map", Points(800));
    int refreshes = -1;
    machine.pump.At(1, [&] { refreshes = machine.window.refreshes; });
    MapPlot();
    EXPECT_EQ(refreshes, 1);
}

TEST_F(MapPlotTest, CounterStartsAgainWithEachFile) {
    AddFile("a.map", Points(799));
    AddFile("b.map", Points(799));
    MapPlot();
    EXPECT_EQ(machine.pump.calls, 0);
}

TEST_F(MapPlotTest, HiddenPointsCountToo) {
    AddFile("a.map", Points(1600)).Features[1].Shown = false;
    MapPlot();
    EXPECT_EQ(machine.pump.calls, 2);
}

TEST_F(MapPlotTest, EscapeAtAnyTurnLeavesNothingOpen) {
    AddFile("a.map", Points(4000)).Features[1].Shown = false;
    AddFile("b.map", Points(4000));
    AddFile("c.map", Points(1000));
    for (int turn = 1; turn <= 11; ++turn) {
        machine.pump.calls = 0;
        recorder.points.clear();
        Design.PlotStopReason = StopReason::None;
        StartRecording();
        machine.pump.At(turn, [] { PressEscape(); });
        MapPlot();
        EXPECT_EQ(machine.pump.calls, turn);
        // The point whose count was full is not plotted any more.
        const int plotted = turn <= 5 ? 0 : turn <= 10 ? (turn - 5) * 800 - 1 : 4000 + 799;
        EXPECT_EQ(static_cast<int>(recorder.points.size()), plotted) << turn;
        EXPECT_EQ(Design.PlotStopReason, StopReason::Escape) << "for the draw cycle";
        EXPECT_THAT(machine.boxes.asked, IsEmpty());
        ExpectClosed();
        machine.pump = {};
    }
}

TEST_F(MapPlotTest, OtherReasonsDoNotStopTheMap) {
    AddFile("a.map", Points(900));
    machine.pump.At(1, [] { Design.PlotStopReason = StopReason::GridDiskError; });
    MapPlot();
    EXPECT_EQ(recorder.points.size(), 900U);
}

// ---- Statistics.

TEST_F(MapPlotTest, StatisticsTellPointsAndSecondsOfEachFile) {
    machine.clock.seconds = 100.0;
    machine.clock.secondsPerReading = 1.5;
    AddFile("a.map", Line(1, Stretch));
    AddFile("b.map", Line(12, Stretch) + Line(1, {{0, 0}, {0, 60}, {0, 120}}));
    MapPlot();
    ASSERT_EQ(Counted().size(), 2U);
    EXPECT_EQ(Counted()[0].Name, "a.map");
    EXPECT_EQ(Counted()[0].PointsRead, 2);
    EXPECT_EQ(Counted()[0].PointsPlotted, 2);
    EXPECT_EQ(Counted()[0].Seconds, 1.5);
    EXPECT_EQ(Counted()[1].PointsRead, 5);
    EXPECT_EQ(Counted()[1].PointsPlotted, 3);
}

TEST_F(MapPlotTest, StatisticsOfPassesAreAddedUp) {
    machine.clock.seconds = 86'399.0; // a second before midnight
    machine.clock.secondsPerReading = 2.0;
    AddFile("a.map", Line(1, Stretch));
    MapPlot();
    MapPlot();
    ASSERT_EQ(Counted().size(), 1U);
    EXPECT_EQ(Counted()[0].PointsRead, 4);
    EXPECT_EQ(Counted()[0].Seconds, 4.0);
}

TEST_F(MapPlotTest, StatisticsOfAFileThatFailedAreKept) {
    AddFile("a.map", Line(1, {{0, 0}, {0, 60}, {0, 120}}));
    files.FailReadingAfter(0, ErrorDeviceIo);
    MapPlot();
    ASSERT_EQ(Counted().size(), 1U);
    EXPECT_EQ(Counted()[0].PointsRead, 0);
}

// ---- Exports.

TEST_F(MapPlotTest, ExportIsOpenedForEachFileAndClosed) {
    AddFile("a.map", Line(1, Stretch));
    AddFile("b.map", Line(1, Stretch));
    Writers().dxf = &recorder;
    Design.OutputWmf = false;
    Design.OutputDxf = true;
    Design.DxfFileName = "recorded.dxf";
    BeginExport(Design.DxfFileName);
    CloseExport();
    files.opens = 0;
    files.closes = 0;
    MapPlot();
    EXPECT_EQ(files.opens, 4);
    EXPECT_EQ(files.closes, 4);
    EXPECT_EQ(recorder.points.size(), 4U);
    DropExports();
}

TEST_F(MapPlotTest, OpenLineOfAChainWriterEndsWithTheFile) {
    AddFile("a.map", Line(1, Stretch));
    AddFile("b.map", Line(1, {{0, 0}, {0, 60}, {0, 120}}));
    MapPlot();
    EXPECT_THAT(recorder.breaksBehind, ElementsAre(2U, 5U));
    EXPECT_EQ(Design.PointCount, 0);
}

TEST_F(MapPlotTest, LineBreaksBeforeTheNextLineOfAFile) {
    AddFile("a.map", Line(1, Stretch) + Line(1, Stretch));
    MapPlot();
    EXPECT_THAT(recorder.breaksBehind, ElementsAre(2U, 4U));
}

TEST_F(MapPlotTest, WithoutAnOutputFileOnlyTheSurfaceIsDrawnOn) {
    Design.OutputWmf = false;
    Design.OutputFileName.clear();
    AddFile("a.map", Line(1, Stretch));
    MapPlot();
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_EQ(surface.Segments().size(), 1U);
}

TEST_F(MapPlotTest, OutputFileStaysOpenBetweenTheLobes) {
    Lobe(-180, -40);
    AddFile("a.map", Line(1, Stretch));
    Design.LobeLast = false;
    MapPlot();
    EXPECT_EQ(Design.OutputFileName, "recorded.wmf");
    Design.LobeLast = true;
    MapPlot();
    EXPECT_EQ(Design.OutputFileName, "");
}

TEST_F(MapPlotTest, LobeIsPlottedAtItsOffset) {
    Lobe(-180, -40);
    Design.LobeLast = false;
    AddFile("a.map", Line(1, {{600, -6000}, {700, -6000}}));
    MapPlot();
    Design.LobeOffsetX = 0.75;
    MapPlot();
    ASSERT_EQ(recorder.points.size(), 4U);
    EXPECT_NEAR(recorder.points[2].x - recorder.points[0].x, 0.75, 1e-12);
    EXPECT_EQ(recorder.points[2].y, recorder.points[0].y);
}

} // namespace
} // namespace quelmont

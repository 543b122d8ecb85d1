#include "cgm_fixture.h"
#include "core/run_time_error.h"
#include "support/failing_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What fails costs itself, or the file, and never the file before.
class CgmFailures : public CgmTest {
protected:
    CgmFailures() { WriteWholeFile(target, "earlier"); }

    /// Only the file of an earlier draw is there, and one box was shown.
    void ExpectLost(const AskedBox& box) {
        EXPECT_THAT(machine.boxes.asked, ElementsAre(box));
        DropExports(); // as every draw ends
        EXPECT_EQ(ReadWholeFile(target), "earlier");
        EXPECT_THAT(Files(), ElementsAre("map"));
    }
};

TEST_F(CgmFailures, HeaderStopsTheDraw) {
    Design.CgmFileName = folder / "none/map";
    Begin();
    EXPECT_EQ(Design.PlotStopReason, StopReason::GridDiskError);
    ExpectLost({"Error in CgmHeader", "Error: Path not found"});
}

TEST_F(CgmFailures, ExtentBeyondSixteenBitsStopsTheDraw) {
    Design.LogicalWidth = 32500; // 32820 with the margin
    Begin();
    EXPECT_EQ(Design.PlotStopReason, StopReason::GridDiskError);
    ExpectLost({"Error in CgmHeader", "Error: Overflow"});
}

TEST_F(CgmFailures, FullDiskInTheHeaderStopsTheDraw) {
    FailingFiles disk;
    disk.FailWritingAfter(100, ErrorDiskFull);
    Begin();
    EXPECT_EQ(Design.PlotStopReason, StopReason::GridDiskError);
    ExpectLost({"Error in CgmHeader", "Error: Disk full"});
}

TEST_F(CgmFailures, FullDiskInLinesIsReportedOnce) {
    FailingFiles disk;
    disk.FailWritingAfter(1000, ErrorDiskFull);
    Begin();
    Stretch(SymbolLine);
    for (int line = 0; line < 20; ++line) {
        LongLine(1999); // 8 kB: the buffer is written out after the eighth
    }
    CloseExport();
    FinishFile();
    ExpectLost({"Error in CgmPoly", "Error: Disk full"});
}

TEST_F(CgmFailures, FullDiskInSymbolsIsReportedOnce) {
    FailingFiles disk;
    disk.FailWritingAfter(1000, ErrorDiskFull);
    Begin();
    Stretch(SymbolFilledCircle);
    for (int x = 0; x < 5000; ++x) {
        Point(x, 7); // 28 bytes
    }
    PrintLineBrkDisk();
    CloseExport();
    FinishFile();
    ExpectLost({"Error in CgmShort", "Error: Disk full"});
}

TEST_F(CgmFailures, FullDiskAtTheEnd) {
    FailingFiles disk;
    Begin();
    disk.FailWritingAfter(3, ErrorDiskFull); // of the four bytes that end a file
    FinishFile();
    ExpectLost({"Error in CgmEnd", "Error: Disk full"});
}

TEST_F(CgmFailures, FileThatCannotBeClosedAtTheEnd) {
    FailingFiles disk;
    Begin();
    disk.FailClosing(ErrorDeviceIo);
    FinishFile();
    ExpectLost({"Error in CgmEnd", "Error: Device I/O error"});
}

TEST_F(CgmFailures, FileThatCannotBeOpenedAtTheEnd) {
    FailingFiles disk;
    Begin();
    disk.FailOpening(ErrorPermissionDenied);
    FinishFile();
    ExpectLost({"Error in CgmEnd", "Error: Permission denied"});
}

/// An element that cannot be written costs the whole file.
class CgmLosses : public CgmTest {};

TEST_F(CgmLosses, TextTooFarOut) {
    Design.TextItems = {TextOfMap("far", 0), TextOfMap("near", 0)};
    Design.TextItems[0].TextX = 17000; // 34000 units
    Begin();
    ExpectGivenUp({{"Error in CgmWrite", "Error: Overflow"}});
}

TEST_F(CgmLosses, TextTooHigh) {
    Design.TextItems = {TextOfMap("high", 0)};
    Design.TextItems[0].TextHeight = 17000;
    Begin();
    ExpectGivenUp({{"Error in CgmWrite", "Error: Overflow"}});
}

TEST_F(CgmLosses, LineTooWide) {
    Begin();
    Stretch(SymbolLine);
    Design.PenWidth = 16384; // 32768 units
    Line({{3, 3}, {4, 4}});
    CloseExport();
    const AskedBox box{"Error in CgmPoly", "Error: Overflow"}; // of each of its points
    ExpectGivenUp({box, box});
}

TEST_F(CgmLosses, SymbolOfStrokesThatAreTooWide) {
    Begin();
    Design.PenWidth = 16384;
    Symbol(SymbolPlus, 100, 1, 1000, 2000);
    ExpectGivenUp({{"Error in CgmWrite", "Error: Overflow"}});
}

TEST_F(CgmFailures, WidestLineIsWritten) {
    Begin();
    Stretch(SymbolLine);
    Design.PenWidth = 16383; // 32766 units
    Line({{1, 1}, {2, 2}});
    CloseExport();
    EXPECT_THAT(EndWithElements(),
                ElementsAre("LINE COLOUR 128 0 0", "LINE WIDTH 32766", "POLYLINE 1 1 2 2"));
}

TEST_F(CgmFailures, LostElementKeepsTheEarlierFile) {
    Begin();
    Symbol(SymbolOpenSquare, 30000, 1, 20000, 5);
    FinishFile();
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(CgmFailures, NextExportKnowsNothingOfTheLoss) {
    Begin();
    Symbol(SymbolOpenSquare, 30000, 1, 20000, 5);
    FinishFile();
    Design.OutputCgm = true;
    Begin();
    EXPECT_THAT(EndWithElements(), IsEmpty());
}

} // namespace
} // namespace quelmont

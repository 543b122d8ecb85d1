#include "output/wmf/wmf_writer.h"

#include "core/run_time_error.h"
#include "export_fixture.h"
#include "output/output_state.h"
#include "support/failing_file.h"
#include "support/run_time_errors.h"
#include "support/wmf_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using namespace std::string_literals;

class Wmf : public ExportTest {
protected:
    Wmf() {
        Writers().wmf = &writer;
        Design.WmfFileName = target;
        Begin();
    }

    void Begin() {
        Design.OutputWmf = true;
        ResetLineState();
        PrintFileHeader();
    }
    std::string End() {
        FinishFile();
        return ReadWholeFile(target);
    }
    /// The records behind the four that every map begins with.
    std::vector<std::string> EndWithRecords() {
        std::vector<std::string> records = ReadWmf(End()).Texts();
        records.erase(records.begin(), records.begin() + 4);
        return records;
    }

    WmfWriter writer;
};

TEST_F(Wmf, EmptyMapByItsBytes) {
    FinishFile();
    const std::string bytes = ReadWholeFile(target);
    // 32320 is 7E40, 23420 is 5B7C; 5711 ^ 7E40 = 2951, ^ 5B7C = 722D, ^ 1770 = 655D
    EXPECT_EQ(bytes.substr(0, 22), "\xD7\xCD\xC6\x9A\x00\x00"
                                   "\xC0\xFE\xC0\xFE\x40\x7E\x7C\x5B"
                                   "\x70\x17\x00\x00\x00\x00\x5D\x65"s);
    EXPECT_EQ(bytes.substr(22),
              "\x01\x00\x09\x00\x00\x03\x1E\x00\x00\x00\x00\x00\x05\x00\x00\x00\x00\x00" // 30 words
              "\x04\x00\x00\x00\x03\x01\x08\x00"
              "\x05\x00\x00\x00\x0B\x02\x7C\x5B\xC0\xFE"
              "\x05\x00\x00\x00\x0C\x02\x44\xA3\x80\x7F" // -23740 = A344, 32640 = 7F80
              "\x04\x00\x00\x00\x02\x01\x01\x00"
              "\x03\x00\x00\x00\x00\x00"s);
}

TEST_F(Wmf, RecordingBeginsWithItsWindow) {
    const WmfFile file = ReadWmf(End());
    EXPECT_THAT(file.placeable, ElementsAre(0, -320, -320, 32320, 23420, 6000, 0, 0));
    EXPECT_THAT(file.Texts(), ElementsAre("SetMapMode 8", "SetWindowOrg 23420 -320",
                                          "SetWindowExt -23740 32640", "SetBkMode 1"));
    EXPECT_FALSE(Design.OutputWmf);
    EXPECT_TRUE(OutputNow.LineBreakPending);
}

TEST_F(Wmf, ArmingAndHeaderSetPenSymbolAndName) {
    EXPECT_EQ(Design.PenWidth, 1);
    EXPECT_EQ(Design.SymbolRadiusFile, 2);
    EXPECT_EQ(Design.OutputFileName, target);
}

TEST_F(Wmf, LinesHaveAPenEachAndTheDevicesOwnIsMadeOnce) {
    Stretch(SymbolLine);
    Design.PenColor = 0x02123456; // the palette flag does not reach the file
    Design.PenWidth = 3;
    Line({{1, 2}, {300, -400}});
    Line({{5, 6}, {7, 8}, {9, 10}});
    EXPECT_THAT(EndWithRecords(),
                ElementsAre("CreatePen 0 6 0 13398 18", "SelectObject 0", "Polyline 2 1 2 300 -400",
                            "CreatePen 0 0 0 0 0", "SelectObject 1", "DeleteObject 0",
                            "CreatePen 0 6 0 13398 18", "SelectObject 0", "Polyline 3 5 6 7 8 9 10",
                            "SelectObject 1", "DeleteObject 0"));
}

TEST_F(Wmf, PenIsTheLastPointsAndWidthsAreThePensWithoutScaling) {
    Design.LineWidthsScaled = false;
    Stretch(SymbolLine);
    Point(1, 1);
    Design.PenColor = 0x0000FF;
    Design.PenWidth = 4;
    Point(2, 2);
    PrintLineBrkDisk();
    EXPECT_EQ(EndWithRecords().at(0), "CreatePen 0 4 0 255 0");
}

TEST_F(Wmf, LineOfOnePointIsTwoEqualPoints) {
    Stretch(SymbolLine);
    Line({{5, 6}});
    EXPECT_EQ(EndWithRecords().at(2), "Polyline 2 5 6 5 6");
}

TEST_F(Wmf, BreaksWithoutAPointRecordNothing) {
    Stretch(SymbolLine);
    PrintLineBrkDisk();
    Line({{1, 1}, {2, 2}});
    PrintLineBrkDisk();
    EXPECT_EQ(EndWithRecords().size(), 6U);
}

TEST_F(Wmf, LongLinesAreChainsThatShareAVertex) {
    struct Case {
        int points;
        std::vector<int> chains; ///< points of each
    };
    for (const Case& test : {Case{1, {2}}, Case{2, {2}}, Case{1998, {1998}}, Case{1999, {1999}},
                             Case{2000, {1999, 2}}, Case{3000, {1999, 1002}}, Case{3997, {1999, 1999}},
                             Case{3998, {1999, 1999, 2}}, Case{3999, {1999, 1999, 3}}}) {
        Begin();
        Stretch(SymbolLine);
        LongLine(test.points);
        std::vector<int> chains;
        int next = 0;
        for (const WmfRecord& record : ReadWmf(End()).records) {
            if (record.name == "Polyline") {
                chains.push_back(record.numbers[0]);
                next -= next > 0 ? 1 : 0; // the seam
                for (std::size_t i = 1; i < record.numbers.size(); i += 2) {
                    ASSERT_EQ(record.numbers[i], test.points == 1 ? 0 : next) << test.points;
                    ++next;
                }
            }
        }
        EXPECT_EQ(chains, test.chains) << test.points;
    }
}

TEST_F(Wmf, FullChainDoesNotReachIntoTheNextLine) {
    Stretch(SymbolLine);
    LongLine(1999);
    Line({{10000, 1}, {10001, 1}});
    const std::vector<std::string> records = EndWithRecords();
    ASSERT_EQ(records.size(), 11U);
    EXPECT_EQ(records[8], "Polyline 2 10000 1 10001 1");
}

TEST_F(Wmf, LargestRecordIsTheLongestChain) {
    Stretch(SymbolLine);
    LongLine(1999);
    const std::string bytes = End();
    // Three words of head, the count, two words a point: 4002 = 0FA2.
    EXPECT_EQ(bytes.substr(22 + 12, 4), "\xA2\x0F\x00\x00"s);
    ReadWmf(bytes);
}

TEST_F(Wmf, PointThatOverflowsCostsTheFile) {
    Stretch(SymbolLine);
    Line({{1, 1}, {40000, 1}, {2, 2}});
    ExpectGivenUp({{"Error in WmfWrite", "Error: Overflow"}});
}

/// Records of a symbol of half size 101 and an outline of 7 units at 1000, 2000, in a file of its own.
class WmfSymbol : public Wmf {
protected:
    std::vector<std::string> RecordsOf(std::int16_t type) {
        Begin();
        Design.PenColor = 0x030201; // 0201 and 03
        Symbol(type, 101, 7, 1000, 2000);
        return EndWithRecords();
    }
    /// With a brush of its own, behind which the device's white one takes the slot of the deleted pen.
    static std::vector<std::string> Filled(const std::string& shape) {
        return {"CreatePen 0 7 0 513 3", "SelectObject 0",         "CreateBrush 0 513 3 0",
                "SelectObject 1",        "SetPolyFillMode 1",      shape,
                "CreatePen 0 0 0 0 0",   "SelectObject 2",         "DeleteObject 0",
                "SetPolyFillMode 1",     "CreateBrush 0 -1 255 0", "SelectObject 0",
                "DeleteObject 1"};
    }
    /// With the null brush, which stays.
    static std::vector<std::string> Open(const std::string& shape) {
        return {"CreatePen 0 7 0 513 3", "SelectObject 0",         "CreateBrush 1 0 0 0",
                "SelectObject 1",        "SetPolyFillMode 1",      shape,
                "CreatePen 0 0 0 0 0",   "SelectObject 2",         "DeleteObject 0",
                "SetPolyFillMode 1",     "CreateBrush 0 -1 255 0", "SelectObject 0"};
    }
};

TEST_F(WmfSymbol, PlusAndCrossEndWithTheirLastArm) {
    EXPECT_EQ(RecordsOf(SymbolPlus), Open("Polyline 5 899 2000 1101 2000 1000 2000 1000 1899 1000 2101"));
    EXPECT_EQ(RecordsOf(SymbolCross), Open("Polyline 5 899 1899 1101 2101 1000 2000 1101 1899 899 2101"));
}

TEST_F(WmfSymbol, DotsAndSquaresAreRectangles) {
    // In the file: bottom, right, top, left.
    const std::string square = "Rectangle 2101 1101 1899 899";
    EXPECT_EQ(RecordsOf(SymbolDot), Filled(square));
    EXPECT_EQ(RecordsOf(SymbolOpenSquare), Open(square));
    EXPECT_EQ(RecordsOf(SymbolFilledSquare), Filled(square));
}

TEST_F(WmfSymbol, Diamonds) {
    const std::string diamond = "Polygon 4 899 2000 1000 2101 1101 2000 1000 1899";
    EXPECT_EQ(RecordsOf(SymbolOpenDiamond), Open(diamond));
    EXPECT_EQ(RecordsOf(SymbolFilledDiamond), Filled(diamond));
}

TEST_F(WmfSymbol, Triangles) {
    // 58.277 below the centre, 116.655 above it
    const std::string triangle = "Polygon 3 899 1942 1101 1942 1000 2117";
    EXPECT_EQ(RecordsOf(SymbolOpenTriangle), Open(triangle));
    EXPECT_EQ(RecordsOf(SymbolFilledTriangle), Filled(triangle));
}

TEST_F(WmfSymbol, Circles) {
    EXPECT_EQ(RecordsOf(SymbolOpenCircle), Open("Ellipse 2101 1101 1899 899"));
    EXPECT_EQ(RecordsOf(SymbolFilledCircle), Filled("Ellipse 2101 1101 1899 899"));
}

TEST_F(WmfSymbol, TypesWithoutAShapeStillHaveTheirObjects) {
    std::vector<std::string> records = Open("shape");
    records.erase(records.begin() + 5);
    EXPECT_EQ(RecordsOf(13), records);
}

TEST_F(WmfSymbol, LinesAndSymbolsTogetherNeedFourSlots) {
    Stretch(SymbolLine);
    Line({{1, 1}, {2, 2}});
    Symbol(SymbolFilledCircle, 5, 1, 10, 10);
    Symbol(SymbolOpenCircle, 5, 1, 20, 20);
    Symbol(SymbolFilledCircle, 5, 1, 30, 30);
    const WmfFile file = ReadWmf(End());
    // The device's pen and brush, the null brush; a symbol's pen, and a filled one's brush.
    EXPECT_EQ(file.peakSlots, 5U);
}

TEST_F(WmfSymbol, SymbolThatOverflowsCostsTheFile) {
    Symbol(SymbolOpenSquare, 101, 1, 5, -32700);
    ExpectGivenUp({{"Error in WmfWrite", "Error: Overflow"}});
}

TEST_F(WmfSymbol, TriangleWhoseApexOverflowsCostsTheFile) {
    // The upper edge is at 32760, the apex at 32560 + 231 = 32791.
    Symbol(SymbolOpenTriangle, 200, 7, 5, 32560);
    ExpectGivenUp({{"Windows API Error", "Polygon(3) error in WmfWrite"}});
}

TEST_F(Wmf, ChecksumLeavesOutTheLeftAndTheUpperEdge) {
    Design.LogicalMarginX = 100;
    Design.LogicalMarginY = 60;
    const std::string bytes = End();
    // 5711 ^ (32100 = 7D64) ^ (23160 = 5A78) ^ 1770: 5711 ^ 7D64 = 2A75, ^ 5A78 = 700D, ^ 1770 = 677D
    EXPECT_EQ(bytes.substr(20, 2), "\x7D\x67"s);
    EXPECT_THROW(ReadWmf(bytes), std::runtime_error);
}

TEST_F(Wmf, WidthBeyondSixteenBitsCostsTheFile) {
    Stretch(SymbolLine);
    Design.PenWidth = 20000; // 40000 units
    Line({{1, 1}, {2, 2}});
    ExpectGivenUp({{"Windows API Error", "CreatePen(1) error in PrintLineBrkDisk"}});
}

TEST_F(Wmf, WindowBeyondSixteenBitsCostsTheFile) {
    Design.LogicalMarginX = 400;
    Design.LogicalMarginY = 40000;
    Begin();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "SetWindowOrgEx error in mnuInput_Click"},
                            AskedBox{"Windows API Error", "SetWindowExtEx error in mnuInput_Click"}));
    FinishFile();
    DropExports(); // as every draw ends
    EXPECT_THAT(Files(), IsEmpty());
}

TEST(WmfFlag, WithoutARecordingIsAFileThatIsNotFound) {
    WmfWriter writer;
    EXPECT_EQ(ErrorOf([&] { writer.OpenStretch(1); }), ErrorFileNotFound);
}

TEST_F(Wmf, FlagAfterTheEndOfTheRecordingWritesNothing) {
    FinishFile();
    std::filesystem::remove(target);
    Design.OutputWmf = true;
    Design.CurrentSymbolType = SymbolLine;
    Point(1, 1);
    Design.CurrentSymbolType = SymbolPlus;
    Point(1, 1);
    PrintLineBrkDisk();
    FinishFile();
    const AskedBox symbol{"Error in WmfWrite", "Error: File not found"};
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(symbol, AskedBox{"Error in SaveMetafileToDisk", "Error: File not found"}));
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(Wmf, FolderThatDoesNotExistIsReportedAtTheEnd) {
    Design.WmfFileName = folder / "none/map";
    FinishFile();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in SaveMetafileToDisk", "Error: Path not found"}));
}

TEST_F(Wmf, FullDiskIsReportedAndTheEarlierFileStays) {
    WriteWholeFile(target, "earlier");
    FailingFiles disk;
    disk.FailWritingAfter(100, ErrorDiskFull);
    Stretch(SymbolLine);
    for (int line = 0; line < 100; ++line) {
        LongLine(1999);
    }
    FinishFile();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "hwrite error in SaveMetafileToDisk"}));
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(Wmf, HeaderThatCannotBeWrittenAtTheEndIsReported) {
    WriteWholeFile(target, "earlier");
    FailingFiles disk;
    Stretch(SymbolLine);
    while (disk.opens == 0) {
        LongLine(1999); // until a block goes to the file, and nothing waits
    }
    disk.FailWritingAfter(39, ErrorDiskFull); // the end record has 6 bytes, the headers 40
    FinishFile();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "lwrite error in SaveMetafileToDisk"}));
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(Wmf, EndedDrawLeavesNothing) {
    Stretch(SymbolLine);
    for (int line = 0; line < 100; ++line) {
        LongLine(1999);
    }
    DropExports();
    EXPECT_THAT(Files(), IsEmpty());
}

} // namespace
} // namespace quelmont

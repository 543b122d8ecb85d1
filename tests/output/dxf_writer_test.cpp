#include "output/dxf/dxf_writer.h"

#include "core/run_time_error.h"
#include "export_fixture.h"
#include "output/output_state.h"
#include "support/dxf_file.h"
#include "support/failing_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <unistd.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Dxf : public ExportTest {
protected:
    Dxf() {
        Writers().dxf = &writer;
        Design.OutputDxf = true;
        Design.DxfFileName = target;
        Design.GridColor = 0x0000FF; // red, number 1
        ResetLineState();
    }

    static void Begin() { PrintFileHeader(); }
    std::string End() {
        FinishFile();
        return ReadWholeFile(target);
    }
    std::vector<std::string> EndWithEntities() { return DxfEntities(End()); }

    static std::string Vertex(int x, int y) {
        return "VERTEX 8=0 10=" + std::to_string(x) + " 20=" + std::to_string(y);
    }

    DxfWriter writer;
};

TEST_F(Dxf, EmptyMapByItsLines) {
    Begin();
    EXPECT_EQ(End(), "  0\r\nSECTION\r\n  2\r\nHEADER\r\n"
                     "999\r\nMap by QUELMONT, 14 Alder Row, Ostwick, ST  00000, USA.\r\n"
                     "999\r\nE-mail: quelmont@example.org\r\n"
                     "999\r\nQUELMONT version 3.00 DXF file\r\n"
                     "  9\r\n$EXTMIN\r\n 10\r\n-320\r\n 20\r\n-320\r\n"
                     "  9\r\n$EXTMAX\r\n 10\r\n32320\r\n 20\r\n23420\r\n"
                     "  9\r\n$LIMMIN\r\n 10\r\n-320\r\n 20\r\n-320\r\n"
                     "  9\r\n$LIMMAX\r\n 10\r\n32320\r\n 20\r\n23420\r\n"
                     "  0\r\nENDSEC\r\n  0\r\nSECTION\r\n  2\r\nTABLES\r\n"
                     "  0\r\nTABLE\r\n  2\r\nLTYPE\r\n 70\r\n1\r\n"
                     "  0\r\nLTYPE\r\n  2\r\nCONTINUOUS\r\n 70\r\n64\r\n  3\r\nSolid line\r\n"
                     " 72\r\n65\r\n 73\r\n0\r\n 40\r\n0\r\n  0\r\nENDTAB\r\n"
                     "  0\r\nTABLE\r\n  2\r\nLAYER\r\n 70\r\n1\r\n"
                     "  0\r\nLAYER\r\n  2\r\n0\r\n 70\r\n0\r\n 62\r\n8\r\n  6\r\nCONTINUOUS\r\n"
                     "  0\r\nENDTAB\r\n"
                     "  0\r\nTABLE\r\n  2\r\nSTYLE\r\n 70\r\n1\r\n"
                     "  0\r\nSTYLE\r\n  2\r\nSTANDARD\r\n 70\r\n0\r\n 40\r\n0\r\n 41\r\n1\r\n 50\r\n0\r\n"
                     " 71\r\n0\r\n 42\r\n1\r\n  3\r\nTXT\r\n  4\r\n\r\n  0\r\nENDTAB\r\n  0\r\nENDSEC\r\n"
                     "  0\r\nSECTION\r\n  2\r\nBLOCKS\r\n  0\r\nENDSEC\r\n"
                     "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n"
                     "  0\r\nENDSEC\r\n  0\r\nEOF\r\n");
    EXPECT_FALSE(Design.OutputDxf);
    EXPECT_TRUE(OutputNow.LineBreakPending);
}

TEST_F(Dxf, HeaderTakesTheColourOfTheGridAndSymbolsOfTwoUnits) {
    Begin();
    EXPECT_EQ(Design.PenColor, Design.GridColor);
    EXPECT_EQ(Design.SymbolRadiusFile, 2);
    EXPECT_EQ(Design.OutputFileName, target);
}

TEST_F(Dxf, LineByItsLines) {
    Begin();
    const std::string header = ReadWholeFile(target + "." + std::to_string(getpid()) + ".tmp");
    Stretch(SymbolLine);
    Design.PenWidth = 3;
    Line({{1, 2}, {-300, 400}});
    CloseExport();
    EXPECT_EQ(End().substr(header.size()),
              "  0\r\nPOLYLINE\r\n  8\r\n0\r\n 62\r\n1\r\n 40\r\n6\r\n 41\r\n6\r\n 66\r\n1\r\n"
              "  0\r\nVERTEX\r\n  8\r\n0\r\n 10\r\n1\r\n 20\r\n2\r\n"
              "  0\r\nVERTEX\r\n  8\r\n0\r\n 10\r\n-300\r\n 20\r\n400\r\n"
              "  0\r\nSEQEND\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n");
}

TEST_F(Dxf, WidthHasItsDigitsAndNoMore) {
    Begin();
    Design.ClientWidth = 15000; // 32000 / 15000 = 2.1333...
    Stretch(SymbolLine);
    Line({{1, 1}, {2, 2}});
    Design.ClientWidth = 64000; // a half
    Line({{1, 1}, {2, 2}});
    Design.LineWidthsScaled = false;
    Design.PenWidth = 5;
    Line({{1, 1}, {2, 2}});
    CloseExport();
    const std::vector<std::string> entities = EndWithEntities();
    EXPECT_EQ(entities.at(0), "POLYLINE 8=0 62=1 40=2.13333333333333 41=2.13333333333333 66=1");
    EXPECT_EQ(entities.at(4), "POLYLINE 8=0 62=1 40=0.5 41=0.5 66=1");
    EXPECT_EQ(entities.at(8), "POLYLINE 8=0 62=1 40=5 41=5 66=1");
}

TEST_F(Dxf, ColourWithoutANumberIsAnEmptyLine) {
    Begin();
    Stretch(SymbolLine);
    Design.PenColor = 0x123456;
    Line({{1, 1}, {2, 2}});
    CloseExport();
    const std::string bytes = End();
    EXPECT_NE(bytes.find("POLYLINE\r\n  8\r\n0\r\n 62\r\n\r\n 40\r\n2\r\n"), std::string::npos);
}

TEST_F(Dxf, LineOfOnePointEndsWhereItBegins) {
    Begin();
    Stretch(SymbolLine);
    Line({{5, 6}});
    CloseExport();
    EXPECT_THAT(EndWithEntities(),
                ElementsAre("POLYLINE 8=0 62=1 40=2 41=2 66=1", Vertex(5, 6), Vertex(5, 6), "SEQEND"));
}

TEST_F(Dxf, LineOfOnePointEndsThereAlthoughTheNextPointIsElsewhere) {
    Begin();
    Stretch(SymbolLine);
    Point(5, 6);
    Design.ProjX = 1e9; // projected, found off the map, and the line is broken before it
    PrintLineBrkDisk();
    CloseExport();
    EXPECT_EQ(EndWithEntities().at(2), Vertex(5, 6));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Dxf, BreaksWithoutAPointWriteNothing) {
    Begin();
    PrintLineBrkDisk(); // of the grid, which sets no mark
    Stretch(SymbolLine);
    PrintLineBrkDisk();
    Line({{1, 1}, {2, 2}});
    PrintLineBrkDisk();
    PrintLineBrkDisk();
    CloseExport();
    Stretch(SymbolLine);
    PrintLineBrkDisk();
    CloseExport();
    EXPECT_EQ(EndWithEntities().size(), 4U);
}

TEST_F(Dxf, LongLinesAreChainsThatShareAVertex) {
    struct Case {
        int points;
        std::vector<int> chains; ///< vertices of each
    };
    for (const Case& test :
         {Case{1, {2}}, Case{2, {2}}, Case{1998, {1998}}, Case{1999, {1999}}, Case{2000, {1999, 2}},
          Case{3997, {1999, 1999}}, Case{3998, {1999, 1999, 2}}, Case{3999, {1999, 1999, 3}}}) {
        Design.OutputDxf = true;
        Begin();
        Stretch(SymbolLine);
        LongLine(test.points);
        CloseExport();
        std::vector<int> chains;
        int next = 0;
        std::string before = "SEQEND";
        for (const std::string& entity : EndWithEntities()) {
            if (entity == "SEQEND") {
                ASSERT_NE(before, "SEQEND") << test.points;
            } else if (entity.front() == 'P') {
                ASSERT_EQ(before, "SEQEND") << test.points;
                chains.push_back(0);
                next -= next > 0 ? 1 : 0; // the seam
            } else {
                ++chains.back();
                ASSERT_EQ(entity, Vertex(test.points == 1 ? 0 : next, 7));
                ++next;
            }
            before = entity;
        }
        EXPECT_EQ(before, "SEQEND");
        EXPECT_EQ(chains, test.chains) << test.points;
    }
}

TEST_F(Dxf, FullChainDoesNotReachIntoTheNextLine) {
    Begin();
    Stretch(SymbolLine);
    LongLine(1999);
    Line({{10000, 1}, {10001, 1}});
    CloseExport();
    const std::vector<std::string> entities = EndWithEntities();
    ASSERT_EQ(entities.size(), 2001U + 4U);
    EXPECT_EQ(entities[2000], "SEQEND");
    EXPECT_EQ(entities[2002], Vertex(10000, 1));
}

TEST_F(Dxf, PointThatOverflowsCostsTheFile) {
    Begin();
    Stretch(SymbolLine);
    Line({{1, 1}, {1, 40000}, {2, 2}});
    CloseExport();
    ExpectGivenUp({{"Error in DxfWrite", "Error: Overflow"}});
}

/// Entities of a symbol of half size 101 at 1000, 2000.
class DxfSymbol : public Dxf {
protected:
    std::vector<std::string> EntitiesOf(std::int16_t type, std::int16_t border = 7) {
        Design.OutputDxf = true;
        Begin();
        Symbol(type, 101, border, 1000, 2000);
        return EndWithEntities();
    }
    static std::string Solid(const std::string& corners) { return "SOLID 8=0 62=1 " + corners; }
    const std::string open = "POLYLINE 8=0 62=1 40=7 41=7 66=1";
    const std::string closed = "POLYLINE 8=0 62=1 40=7 41=7 66=1 70=1";
};

TEST_F(DxfSymbol, DotsAndFilledSquaresAreSolids) {
    const std::string square = "10=899 20=1899 11=1101 21=1899 12=899 22=2101 13=1101 23=2101";
    EXPECT_THAT(EntitiesOf(SymbolDot), ElementsAre(Solid(square)));
    EXPECT_THAT(EntitiesOf(SymbolFilledSquare), ElementsAre(Solid(square)));
}

TEST_F(DxfSymbol, PlusAndCrossAreTwoStrokes) {
    EXPECT_THAT(EntitiesOf(SymbolPlus), ElementsAre(open, Vertex(899, 2000), Vertex(1101, 2000), "SEQEND",
                                                    open, Vertex(1000, 1899), Vertex(1000, 2101), "SEQEND"));
    EXPECT_THAT(EntitiesOf(SymbolCross), ElementsAre(open, Vertex(899, 1899), Vertex(1101, 2101), "SEQEND",
                                                     open, Vertex(1101, 1899), Vertex(899, 2101), "SEQEND"));
}

TEST_F(DxfSymbol, OpenSquareAndDiamondAreRings) {
    EXPECT_THAT(EntitiesOf(SymbolOpenSquare), ElementsAre(closed, Vertex(899, 1899), Vertex(899, 2101),
                                                          Vertex(1101, 2101), Vertex(1101, 1899), "SEQEND"));
    EXPECT_THAT(EntitiesOf(SymbolOpenDiamond), ElementsAre(closed, Vertex(899, 2000), Vertex(1000, 2101),
                                                           Vertex(1101, 2000), Vertex(1000, 1899), "SEQEND"));
}

TEST_F(DxfSymbol, FilledDiamondIsAZ) {
    EXPECT_THAT(EntitiesOf(SymbolFilledDiamond),
                ElementsAre(Solid("10=899 20=2000 11=1000 21=1899 12=1000 22=2101 13=1101 23=2000")));
}

TEST_F(DxfSymbol, TrianglesAreNotRounded) {
    // 0.577 * 101 = 58.277 below the centre, 1.155 * 101 = 116.655 above it
    EXPECT_THAT(EntitiesOf(SymbolOpenTriangle),
                ElementsAre(closed, "VERTEX 8=0 10=899 20=1941.723", "VERTEX 8=0 10=1101 20=1941.723",
                            "VERTEX 8=0 10=1000 20=2116.655", "SEQEND"));
    EXPECT_THAT(
        EntitiesOf(SymbolFilledTriangle),
        ElementsAre(Solid("10=899 20=1941.723 11=1101 21=1941.723 12=1000 22=2116.655 13=1000 23=2116.655")));
}

TEST_F(DxfSymbol, OpenCircleDependsOnItsWidth) {
    EXPECT_THAT(EntitiesOf(SymbolOpenCircle, 1), ElementsAre("CIRCLE 8=0 62=1 10=1000 20=2000 40=101"));
    EXPECT_THAT(EntitiesOf(SymbolOpenCircle, 7),
                ElementsAre(closed, Vertex(899, 2000) + " 42=1", Vertex(1101, 2000) + " 42=1", "SEQEND"));
    EXPECT_THAT(EntitiesOf(SymbolOpenCircle, 0), IsEmpty());
}

TEST_F(DxfSymbol, FilledCircleIsARingAsWideAsItsRadius) {
    // Half of 101 is 50, truncated.
    EXPECT_THAT(EntitiesOf(SymbolFilledCircle),
                ElementsAre("POLYLINE 8=0 62=1 40=101 41=101 66=1 70=1", Vertex(950, 2000) + " 42=1",
                            Vertex(1050, 2000) + " 42=1", "SEQEND"));
}

TEST_F(DxfSymbol, SmallestFilledCirclesAreACircleAndNothing) {
    // A ring of width 1 is a circle, one of width 0 is none.
    Begin();
    Symbol(SymbolFilledCircle, 1, 1, 1000, 2000);
    Symbol(SymbolFilledCircle, 0, 1, 1000, 2000);
    EXPECT_THAT(EndWithEntities(), ElementsAre("CIRCLE 8=0 62=1 10=1000 20=2000 40=1"));
}

TEST_F(DxfSymbol, TypesWithoutASymbolWriteNothing) {
    EXPECT_THAT(EntitiesOf(13), IsEmpty());
    EXPECT_THAT(EntitiesOf(0), IsEmpty());
}

TEST_F(DxfSymbol, SymbolThatOverflowsCostsTheFile) {
    Begin();
    Symbol(SymbolFilledSquare, 101, 1, 32700, 5);
    ExpectGivenUp({{"Error in DxfWrite", "Error: Overflow"}});
}

TEST_F(DxfSymbol, SymbolsBetweenLinesNeedNoSequenceEnd) {
    Begin();
    Stretch(SymbolLine);
    Line({{1, 1}, {2, 2}});
    CloseExport();
    Symbol(SymbolDot, 2, 1, 5, 5);
    Stretch(SymbolLine);
    Line({{3, 3}, {4, 4}});
    CloseExport();
    const std::vector<std::string> entities = EndWithEntities();
    ASSERT_EQ(entities.size(), 9U);
    EXPECT_EQ(entities[4].substr(0, 5), "SOLID");
    EXPECT_EQ(entities[5].substr(0, 8), "POLYLINE");
}

class DxfTexts : public Dxf {
protected:
    /// Its colour has the number 174.
    static TextItem Item(const std::string& text) { return TextOfMap(text, 0x800000); }
    std::vector<std::string> Written() {
        Begin();
        return EndWithEntities();
    }
};

TEST_F(DxfTexts, TextByItsGroups) {
    Design.TextItems = {Item("Nuuk"), Item("")};
    Design.TextItems[0].TextAngle = 45;
    EXPECT_THAT(Written(), ElementsAre("TEXT 8=0 62=174 10=8000 20=20790 40=200 1=Nuuk 50=45 7=STANDARD",
                                       "TEXT 8=0 62=174 10=8000 20=20790 40=200 1= 50=0 7=STANDARD"));
}

TEST_F(DxfTexts, HeightIsScaledAndNotRounded) {
    Design.TextItems = {Item("a")};
    Design.TextItems[0].TextHeight = 101;
    Design.TextScalePercent = 33;
    // 0.33 * 2 * 101
    EXPECT_EQ(Written().at(0), "TEXT 8=0 62=174 10=8000 20=20790 40=66.66 1=a 50=0 7=STANDARD");
}

TEST_F(DxfTexts, CharactersOutsideOfAsciiAreNumbers) {
    Design.TextItems = {Item("\u00C5b\u0416\U0001F30D")}; // Å, b, a Cyrillic letter, a globe
    EXPECT_EQ(Written().at(0),
              "TEXT 8=0 62=174 10=8000 20=20790 40=200 1=\\U+00C5b\\U+0416? 50=0 7=STANDARD");
}

TEST_F(DxfTexts, ControlCharactersAreBlanks) {
    Design.TextItems = {Item("a\r\nb\tc\x7F")}; // a line end would be read as the group's
    Begin();
    const std::string bytes = End();
    EXPECT_NE(bytes.find("\r\n  1\r\na  b c \r\n 50\r\n0\r\n  7\r\nSTANDARD\r\n"), std::string::npos);
    EXPECT_EQ(DxfEntities(bytes).size(), 1U);
}

TEST_F(DxfTexts, TextThatOverflowsCostsTheFile) {
    Design.TextItems = {Item("far"), Item("near")};
    Design.TextItems[0].TextX = 17000; // 34000 units
    Begin();
    ExpectGivenUp({{"Error in DxfWrite", "Error: Overflow"}});
}

TEST_F(Dxf, HeaderThatFailsStopsTheDraw) {
    Design.DxfFileName = folder.Path();
    Begin();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in DxfHeader", "Error: Path/File access error"}));
    EXPECT_EQ(Design.PlotStopReason, StopReason::GridDiskError);
}

/// What fails at the end of a line or of the file costs the file, and never the one before.
class DxfFailures : public Dxf {
protected:
    DxfFailures() {
        WriteWholeFile(target, "earlier");
        Begin();
    }
    void ExpectLost(const AskedBox& box) {
        EXPECT_THAT(machine.boxes.asked, ElementsAre(box));
        DropExports(); // as every draw ends
        EXPECT_EQ(ReadWholeFile(target), "earlier");
        EXPECT_THAT(Files(), ElementsAre("map"));
    }

    FailingFiles disk;
};

TEST_F(DxfFailures, FullDiskAtTheEndOfALine) {
    disk.FailWritingAfter(2000, ErrorDiskFull);
    Stretch(SymbolLine);
    // Bytes go out by 65536: 55 begin a line, a vertex has 35 and its digits, the sequence end 13 more.
    for (int i = 0; i < 1767; ++i) {
        Point(1, 1);
    }
    Point(10000, 10000);
    Point(10000, 10000); // 55 + 1767 * 37 + 2 * 45 = 65524
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    PrintLineBrkDisk();
    CloseExport();
    FinishFile();
    ExpectLost({"Error in DxfPolylineTerminate", "Error: Disk full"});
}

TEST_F(DxfFailures, FullDiskAtTheEnd) {
    disk.FailWritingAfter(10, ErrorDiskFull);
    FinishFile();
    ExpectLost({"Error in DxfEnd", "Error: Disk full"});
}

TEST_F(DxfFailures, FileThatCannotBeClosedAtTheEnd) {
    disk.FailClosing(ErrorDeviceIo);
    FinishFile();
    ExpectLost({"Error in DxfEnd", "Error: Device I/O error"});
}

TEST_F(DxfFailures, FileThatCannotBeOpenedAtTheEnd) {
    disk.FailOpening(ErrorPermissionDenied);
    FinishFile();
    ExpectLost({"Error in DxfEnd", "Error: Permission denied"});
}

TEST_F(Dxf, FullDiskIsReportedOnceAndTheEarlierFileStays) {
    WriteWholeFile(target, "earlier");
    FailingFiles disk;
    disk.FailWritingAfter(2000, ErrorDiskFull);
    Begin();
    Stretch(SymbolLine);
    for (int line = 0; line < 3; ++line) {
        LongLine(1999); // 90 kB
    }
    CloseExport();
    FinishFile();
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in DxfWrite", "Error: Disk full"}));
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

} // namespace
} // namespace quelmont

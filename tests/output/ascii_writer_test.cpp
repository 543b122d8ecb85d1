#include "output/ascii/ascii_writer.h"

#include "core/run_time_error.h"
#include "export_fixture.h"
#include "support/failing_file.h"
#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Ascii : public ExportTest {
protected:
    Ascii() {
        Writers().ascii = &writer;
        Design.OutputAscii = true;
        Design.AsciiFileName = {target};
        Design.AsciiScale = 1.0; // projection units are lengths of the x axis
        ResetLineState();
    }

    std::string Written(const Points& points) {
        Stretch(SymbolLine);
        Line(points);
        CloseExport();
        FinishFile();
        return ReadWholeFile(target);
    }

    AsciiWriter writer;
};

TEST_F(Ascii, LineOfOnePointAndItsBreak) {
    EXPECT_EQ(Written({{0.5, 0.25}}), "0.5000000  00.2500000\r\n5.0000000  05.0000000\r\n");
}

TEST_F(Ascii, PointsCountFromTheLowerLeftCorner) {
    Design.MapXMin = -2.0;
    Design.MapYMin = 10.0;
    Design.AsciiScale = 0.25;
    EXPECT_EQ(Written({{-1.0, 11.0}, {2.0, 20.0}}), "0.2500000  00.2500000\r\n1.0000000  02.5000000\r\n"
                                                    "5.0000000  05.0000000\r\n");
}

TEST_F(Ascii, LargeValuesGrowAndNegativeOnesHaveASign) {
    EXPECT_EQ(Written({{12.5, 9.9999999}, {-0.5, 123.0}, {-12.25, -3.0}}),
              "12.5000000  09.9999999\r\n-0.5000000  123.0000000\r\n-12.2500000  -03.0000000\r\n"
              "5.0000000  05.0000000\r\n");
}

TEST_F(Ascii, SevenDigitsRoundTiesAwayFromZero) {
    // 2 to the power of -8 has eight digits: 0.00390625.
    EXPECT_EQ(Written({{0.00390625, -0.00390625}, {0.12345674, 0.12345676}, {0.99999996, 9.99999996}}),
              "0.0039063  -00.0039063\r\n0.1234567  00.1234568\r\n1.0000000  10.0000000\r\n"
              "5.0000000  05.0000000\r\n");
}

TEST_F(Ascii, ValuesAreTakenToFifteenDigitsBeforeTheyAreRounded) {
    // Written with 17 digits they are 0.34999995000000001 and 1.0000000499999999: fifteen digits are ties.
    EXPECT_EQ(Written({{0.34999995, 1.00000005}}), "0.3500000  01.0000001\r\n5.0000000  05.0000000\r\n");
}

TEST_F(Ascii, NegativeValueThatRoundsToZeroKeepsItsSign) {
    EXPECT_EQ(Written({{-1e-12, 0.0}}), "-0.0000000  00.0000000\r\n5.0000000  05.0000000\r\n");
}

TEST_F(Ascii, EachLineHasItsBreakAndSymbolsAreLinesOfText) {
    Stretch(SymbolLine);
    Line({{0, 0}, {1, 1}});
    Line({{0.5, 0.5}});
    Design.CurrentSymbolType = SymbolFilledCircle;
    Point(0.25, 0.75);
    CloseExport();
    FinishFile();
    EXPECT_EQ(ReadWholeFile(target),
              "0.0000000  00.0000000\r\n1.0000000  01.0000000\r\n5.0000000  05.0000000\r\n"
              "0.5000000  00.5000000\r\n5.0000000  05.0000000\r\n"
              "0.2500000  00.7500000\r\n");
}

TEST_F(Ascii, LongLinesAreNotCut) {
    Stretch(SymbolLine);
    LongLine(4000);
    CloseExport();
    FinishFile();
    const std::string text = ReadWholeFile(target);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4001);
}

TEST_F(Ascii, PointsAreCountedUntilTheBreak) {
    Stretch(SymbolLine);
    Point(0, 0);
    Point(0, 0);
    EXPECT_EQ(Design.PointCount, 2);
    PrintLineBrkDisk();
    EXPECT_EQ(Design.PointCount, 0);
    CloseExport();
}

/// A map of a grid and a coast, each a file of its own.
class AsciiFiles : public Ascii {
protected:
    AsciiFiles() { Design.AsciiFileName = {folder / "grid", folder / "coast"}; }

    static void Write() {
        OpenExport(1);
        Line({{0, 0}});
        CloseExport();
        OpenExport(2);
        Line({{1, 1}});
        CloseExport();
    }
    /// FinishFile as the loop over the map files calls it.
    static int ErrorOfFinishing() { return ErrorOf(FinishFile); }

    const std::string gridText = "0.0000000  00.0000000\r\n5.0000000  05.0000000\r\n";
    const std::string coastText = "1.0000000  01.0000000\r\n5.0000000  05.0000000\r\n";
};

TEST_F(AsciiFiles, TakeTheirPlacesTogetherAtTheEnd) {
    WriteWholeFile(folder / "grid", "earlier");
    Write();
    EXPECT_EQ(ReadWholeFile(folder / "grid"), "earlier");
    FinishFile();
    EXPECT_EQ(ReadWholeFile(folder / "grid"), gridText);
    EXPECT_EQ(ReadWholeFile(folder / "coast"), coastText);
    EXPECT_THAT(Files(), UnorderedElementsAre("grid", "coast"));
    EXPECT_TRUE(Design.OutputAscii) << "to the end of the draw";
}

TEST_F(AsciiFiles, LaterPassGoesOnWhereTheEarlierOneEnded) {
    Write();
    Write();
    FinishFile();
    EXPECT_EQ(ReadWholeFile(folder / "grid"), gridText + gridText);
    EXPECT_EQ(ReadWholeFile(folder / "coast"), coastText + coastText);
}

TEST_F(AsciiFiles, NoneTakesItsPlaceWhenOneCannot) {
    WriteWholeFile(folder / "grid", "earlier");
    Write();
    std::filesystem::create_directory(folder / "coast");
    EXPECT_EQ(ErrorOfFinishing(), ErrorPathFileAccess);
    EXPECT_EQ(ReadWholeFile(folder / "grid"), "earlier");
    EXPECT_THAT(Files(), UnorderedElementsAre("grid", "coast"));
}

TEST_F(AsciiFiles, NoneIsLeftOfADrawThatIsStopped) {
    Write();
    DropExports();
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(AsciiFiles, FullDiskInOneKeepsThemAllAway) {
    WriteWholeFile(folder / "coast", "earlier");
    FailingFiles disk;
    Write();
    disk.FailWritingAfter(10, ErrorDiskFull);
    OpenExport(1);
    Line({{0, 0}});
    EXPECT_EQ(ErrorOf(CloseExport), ErrorDiskFull);
    FinishFile();
    EXPECT_EQ(ReadWholeFile(folder / "coast"), "earlier");
    EXPECT_THAT(Files(), ElementsAre("coast"));
}

TEST_F(AsciiFiles, LostPointGivesThemAllUp) {
    Write();
    Design.AsciiScale = 0.0;
    PrintLineBrkDisk();
    FinishFile();
    EXPECT_THAT(
        machine.boxes.asked,
        ElementsAre(AskedBox{"Error in PrintLineBrkDisk", "Error: Division by zero"},
                    AskedBox{"Map Not Saved", (folder / "grid") +
                                                  "\n\nThe above file, and the others of this map, were "
                                                  "not written, because a part of the map could not "
                                                  "be."}));
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(AsciiFiles, SlotWithoutANameIsASubscriptError) {
    EXPECT_EQ(ErrorOf([] { OpenExport(3); }), ErrorSubscript);
    EXPECT_EQ(ErrorOf([] { OpenExport(0); }), ErrorSubscript);
}

TEST_F(Ascii, BreakWithoutAScaleIsADivisionByZero) {
    Design.AsciiScale = 0.0;
    PrintLineBrkDisk();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in PrintLineBrkDisk", "Error: Division by zero"}));
}

TEST_F(Ascii, FullDiskIsReportedOnceAndTheEarlierFileStays) {
    WriteWholeFile(target, "earlier");
    {
        FailingFiles disk;
        disk.FailWritingAfter(1000, ErrorDiskFull);
        Stretch(SymbolLine);
        for (int line = 0; line < 3; ++line) {
            LongLine(1999); // 47 kB
        }
        CloseExport();
        FinishFile();
    }
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in ScaleXY", "Error: Disk full"}));
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

} // namespace
} // namespace quelmont

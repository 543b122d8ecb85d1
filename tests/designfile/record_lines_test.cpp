#include "designfile/record_lines.h"

#include "designfile/record_forms.h"
#include "support/fresh_program.h"
#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::ElementsAre;

const Record& RecordOf(int number) {
    const auto records = DesignRecords();
    return *std::find_if(records.begin(), records.end(),
                         [&](const Record& record) { return record.number == number; });
}

/// A design with a map file, a text item and a text output.
class RecordLines : public FreshProgramTest {
protected:
    RecordLines() {
        Design.InputFiles.resize(1);
        Design.TextItems.resize(1);
        Design.AsciiFileName.resize(1);
    }

    void Read(int number, std::string_view lines) {
        LineReader reader(lines);
        ReadRecord(reader, RecordOf(number), file, 0);
    }
    std::string Written(int number) {
        std::string lines;
        WriteRecord(lines, RecordOf(number), file, 0);
        return lines;
    }
    int ErrorOfReading(int number, std::string_view lines) {
        return ErrorOf([&] { Read(number, lines); });
    }

    DesignFile file{Design};
};

TEST_F(RecordLines, TableHasEveryRecordOnceInItsOrder) {
    int number = 2;
    for (const Record& record : DesignRecords()) {
        EXPECT_EQ(record.number, number);
        EXPECT_EQ(record.repeat, number >= 54                   ? Repeat::PerTextItem
                                 : number >= 21 && number <= 23 ? Repeat::PerMapFile
                                                                : Repeat::Once);
        ++number;
    }
    EXPECT_EQ(number, 61);
}

TEST_F(RecordLines, ExampleIsReadAndWrittenAgain) {
    int compared = 0;
    for (const auto& [number, example] : RecordExamples()) {
        if (number == 1) {
            continue; // the line of the version
        }
        const std::size_t lines =
            RecordOf(number).kind == LineKind::Text ? RecordOf(number).fields(file, 0).size() : 1;
        std::string text;
        for (std::size_t i = 0; i < lines; ++i) {
            // Counts of interruptions and spacings stand among the texts.
            text += (number == 28 ? "2" : number == 26 ? "030    00    00" : example) + "\r\n";
        }
        if (number == 39) {
            Design.GridText[GridTextRange] = "180    00    00";
            Design.GridText[GridTextHeight] = "00035840";
        }
        Read(number, text);
        EXPECT_EQ(Written(number), text) << "record " << number;
        ++compared;
    }
    EXPECT_EQ(compared, 58);
}

TEST_F(RecordLines, ColoursAndIndicesAlternate) {
    Read(14, " 50331647  15  33554432  0 ");
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(255, 255, 255)));
    EXPECT_EQ(Design.BackColorIndex, 15);
    EXPECT_EQ(Design.GridColor, SolidColor(Rgb(0, 0, 0)));
    EXPECT_EQ(Design.GridColorIndex, 0);
}

TEST_F(RecordLines, WindowAndItsAreaStandBesideTheDesign) {
    Read(8, " 1280  1024 ");
    Read(9, " 15      7.5");
    Read(10, " 2 ");
    Read(11, " 19200      14370     -60      30");
    Read(12, " 19200      13860");
    EXPECT_EQ(file.window.ScreenPixelsX, 1280);
    EXPECT_EQ(file.window.ScreenPixelsY, 1024);
    EXPECT_EQ(file.window.TwipsPerPixelX, 15.0F);
    EXPECT_EQ(file.window.TwipsPerPixelY, 7.5F);
    EXPECT_EQ(file.window.WindowState, 2);
    EXPECT_EQ(file.window.Width, 19200.0F);
    EXPECT_EQ(file.window.Height, 14370.0F);
    EXPECT_EQ(file.window.Left, -60.0F);
    EXPECT_EQ(file.window.Top, 30.0F);
    EXPECT_EQ(file.window.AreaWidth, 19200.0F);
    EXPECT_EQ(file.window.AreaHeight, 13860.0F);
}

TEST_F(RecordLines, PageBeginsWithItsTop) {
    Read(16, " 1      2      6.5      4.692187     -1      0");
    EXPECT_EQ(Design.PrintTop, 1.0F);
    EXPECT_EQ(Design.PrintLeft, 2.0F);
    EXPECT_EQ(Design.PrintWidth, 6.5F);
    EXPECT_EQ(Design.PrintHeight, 4.692187F);
    EXPECT_TRUE(Design.CenterHorizontal);
    EXPECT_FALSE(Design.CenterVertical);
    Read(17, " 1      2      3      4      567      2");
    EXPECT_EQ(Design.ReportLeft, 1.0F);
    EXPECT_EQ(Design.ReportRight, 2.0F);
    EXPECT_EQ(Design.ReportTop, 3.0F);
    EXPECT_EQ(Design.ReportBottom, 4.0F);
    EXPECT_EQ(Design.PrintUnitTwips, 567);
    EXPECT_EQ(Design.PrinterOrientation, 2);
}

TEST_F(RecordLines, FontOfReportsMayHaveACommaInItsName) {
    Read(18, "Serif, the old one, 33554432 , 12 ,-1 , 0 ,-1 , 0 ");
    const TextLook& font = Design.Fonts[ReportFontSlot];
    EXPECT_EQ(font.FontName, "Serif, the old one");
    EXPECT_EQ(font.FontColour, SolidColor(0));
    EXPECT_EQ(font.FontSize, 12);
    EXPECT_TRUE(font.FontBold);
    EXPECT_FALSE(font.FontItalic);
    EXPECT_TRUE(font.FontUnderline);
    EXPECT_FALSE(font.FontStrikeout);
}

TEST_F(RecordLines, ConstantsOfConesStandInTheirOrder) {
    Read(19, " 1      2      3      4      5");
    EXPECT_EQ(Design.ConeConstant, 1.0);
    EXPECT_EQ(Design.ConicC, 2.0);
    EXPECT_EQ(Design.ConicF, 3.0);
    EXPECT_EQ(Design.ConicG, 4.0);
    EXPECT_EQ(Design.ConicRho0, 5.0);
}

TEST_F(RecordLines, StylesAreTheRowsOneToSeventyTwo) {
    std::string expected;
    for (int row = 1; row < 72; ++row) {
        expected += "-1 , 33554432 , " + std::to_string(row) + " , 1 , 2 ,";
    }
    expected += "-1 , 33554432 , 72  1  2 \r\n";
    Read(22, expected);
    EXPECT_EQ(Written(22), expected);
    const auto& rows = Design.InputFiles[0].Features;
    EXPECT_FALSE(rows[0].Shown);
    EXPECT_TRUE(rows[72].Shown);
    EXPECT_EQ(rows[9].LineWidth, 9);
    EXPECT_EQ(rows[72].LineWidth, 72);
    EXPECT_EQ(rows[72].SymbolSize, 1);
    EXPECT_EQ(rows[72].BorderWidth, 2);
    EXPECT_EQ(std::count(expected.begin(), expected.end(), ','), 71 * 5 + 2);
}

TEST_F(RecordLines, StylesMustBeThreeHundredAndSixty) {
    std::string line;
    for (int i = 0; i < 359; ++i) {
        line += " 0 ,";
    }
    EXPECT_EQ(ErrorOfReading(22, line), ErrorInputPastEnd);
    EXPECT_EQ(ErrorOfReading(22, line + " 0 "), 0);
}

TEST_F(RecordLines, LabelFontHasItsSizeBeforeItsColour) {
    Read(23, "Old, Face, 10 , 33554687 , 0 ,-1 , 0 ,-1 ");
    const InputFileEntry& entry = Design.InputFiles[0];
    EXPECT_EQ(entry.LabelFontName, "Old, Face");
    EXPECT_EQ(entry.LabelFontSize, 10);
    EXPECT_EQ(entry.LabelColor, SolidColor(Rgb(255, 0, 0)));
    EXPECT_FALSE(entry.LabelBold);
    EXPECT_TRUE(entry.LabelItalic);
    EXPECT_FALSE(entry.LabelUnderline);
    EXPECT_TRUE(entry.LabelStrikeout);
}

TEST_F(RecordLines, FileNamesHaveAnEmptyFieldInTheirMiddle) {
    Read(25, "b, c ,d,unknown,w,n,g,s,surplus");
    EXPECT_THAT((std::vector{Design.BmpFileName, Design.CgmFileName, Design.DxfFileName, Design.WmfFileName,
                             Design.CnfFileName, Design.GcFileName, Design.ScFileName}),
                ElementsAre("b", "c", "d", "w", "n", "g", "s"));
    EXPECT_EQ(Written(25), "b,c,d,,w,n,g,s\r\n");
}

TEST_F(RecordLines, CommaInAFileNameSplitsTheListOfNames) {
    Design.BmpFileName = "north, south.bmp";
    Design.CgmFileName = "map.cgm";
    Read(25, Written(25));
    EXPECT_EQ(Design.BmpFileName, "north");
    EXPECT_EQ(Design.CgmFileName, "south.bmp");
    EXPECT_EQ(Design.DxfFileName, "map.cgm");
}

TEST_F(RecordLines, CentresOfLobesBeginWithTheFirst) {
    Read(29, " 1      2      3      4      5      6      7      8      9");
    EXPECT_EQ(Design.LobeCentral[0], 0.0);
    EXPECT_EQ(Design.LobeCentral[1], 1.0);
    EXPECT_EQ(Design.LobeCentral[9], 9.0);
}

TEST_F(RecordLines, BoundsStandInTheirOrder) {
    Read(33, " 45     -30      0.5");
    Read(34, " 90     -80      10      17");
    Read(35, " 360      0      45      8");
    Read(37, " 5     -6      180");
    Read(38, " 170     -170");
    Read(40, " 1  2  3 ");
    Read(41, " 4  5  6 ");
    Read(42, " 7  8 ");
    Read(43, " 648000      1.5");
    Read(44, " 4      1      3      2");
    Read(45, " 1      2      3      4");
    EXPECT_EQ(Design.StdParNorth, 45.0);
    EXPECT_EQ(Design.StdParSouth, -30.0);
    EXPECT_EQ(Design.CosStdPar, 0.5);
    EXPECT_EQ(Design.LatNorth, 90.0);
    EXPECT_EQ(Design.LatSouth, -80.0);
    EXPECT_EQ(Design.LatGrid, 10.0);
    EXPECT_EQ(Design.LatGridCount, 17);
    EXPECT_EQ(Design.LonSpan, 360.0);
    EXPECT_EQ(Design.LonZero, 0.0);
    EXPECT_EQ(Design.LonGrid, 45.0);
    EXPECT_EQ(Design.LonGridCount, 8);
    EXPECT_EQ(Design.LatCentral, 5.0);
    EXPECT_EQ(Design.LonMiddle, -6.0);
    EXPECT_EQ(Design.LonCentral, 180.0);
    EXPECT_EQ(Design.LonEast, 170.0);
    EXPECT_EQ(Design.LonWest, -170.0);
    EXPECT_EQ(Design.LatNorthSec, 1);
    EXPECT_EQ(Design.LatSouthSec, 2);
    EXPECT_EQ(Design.LatGridSec, 3);
    EXPECT_EQ(Design.LonSpanSec, 4);
    EXPECT_EQ(Design.LonZeroSec, 5);
    EXPECT_EQ(Design.LonGridSec, 6);
    EXPECT_EQ(Design.LonEastSec, 7);
    EXPECT_EQ(Design.LonWestSec, 8);
    EXPECT_EQ(Design.RangeSec, 648000);
    EXPECT_EQ(Design.VpP, 1.5);
    EXPECT_EQ(Design.MapXMax, 4.0);
    EXPECT_EQ(Design.MapXMin, 1.0);
    EXPECT_EQ(Design.MapYMax, 3.0);
    EXPECT_EQ(Design.MapYMin, 2.0);
    EXPECT_EQ(Design.ScreenOriginX, 1.0);
    EXPECT_EQ(Design.ScreenScaleX, 2.0);
    EXPECT_EQ(Design.ScreenOriginY, 3.0);
    EXPECT_EQ(Design.ScreenScaleY, 4.0);
}

TEST_F(RecordLines, TextsOfBoundsStandInTheirOrder) {
    Read(31, "n,s");
    Read(32, "sn,ss");
    Read(36, "clat,clon");
    Read(39, "latgr,longr,range,height");
    EXPECT_EQ(Design.LatNorthText, "n");
    EXPECT_EQ(Design.LatSouthText, "s");
    EXPECT_EQ(Design.StdParNorthText, "sn");
    EXPECT_EQ(Design.StdParSouthText, "ss");
    EXPECT_EQ(Design.LatCentralText, "clat");
    EXPECT_EQ(Design.LonCentralText, "clon");
    EXPECT_EQ(Design.LatGridText, "latgr");
    EXPECT_EQ(Design.LonGridText, "longr");
    EXPECT_EQ(Design.GridText[GridTextRange], "") << "is in another record";
    Design.GridText[GridTextRange] = "180    00    00";
    Design.GridText[GridTextHeight] = "00035840";
    EXPECT_EQ(Written(39), "latgr,longr,180 00 00,00035840\r\n");
}

TEST_F(RecordLines, ConstantsOfZonesStandInTheirOrder) {
    Read(47, " 1      2      3      4      5      6      7      8      9      10      11      12");
    EXPECT_EQ(Design.SpheroidA, 1.0);
    EXPECT_EQ(Design.UtmK0, 2.0);
    EXPECT_EQ(Design.SpheroidE2, 3.0);
    EXPECT_EQ(Design.SpheroidEp2, 4.0);
    EXPECT_EQ(Design.UtmM0, 5.0);
    EXPECT_EQ(Design.UtmMeridianC0, 6.0);
    EXPECT_EQ(Design.UtmMeridianC1, 7.0);
    EXPECT_EQ(Design.UtmMeridianC2, 8.0);
    EXPECT_EQ(Design.UtmMeridianC3, 9.0);
    EXPECT_EQ(Design.UtmFalseEasting, 10.0);
    EXPECT_EQ(Design.UtmFalseNorthing, 11.0);
    EXPECT_EQ(Design.SpheroidF, 12.0);
}

TEST_F(RecordLines, CirclesStandInTheirOrder) {
    Read(50, " 37.7833     -122.4333      29.3333      47.9833     -1      50266112      9      45");
    Read(52, " 10     -20      15      0      50266111      8      30      3");
    EXPECT_EQ(Design.GcStartLat, 37.7833);
    EXPECT_EQ(Design.GcStartLon, -122.4333);
    EXPECT_EQ(Design.GcEndLat, 29.3333);
    EXPECT_EQ(Design.GcEndLon, 47.9833);
    EXPECT_TRUE(Design.GcDefined);
    EXPECT_EQ(Design.GcColor, SolidColor(Rgb(0, 0, 255)));
    EXPECT_EQ(Design.GcColorIndex, 9);
    EXPECT_EQ(Design.GcLineWidth, 45.0F);
    EXPECT_EQ(Design.ScCenterLat, 10.0);
    EXPECT_EQ(Design.ScCenterLon, -20.0);
    EXPECT_EQ(Design.ScRadiusDeg, 15.0);
    EXPECT_FALSE(Design.ScDefined);
    EXPECT_EQ(Design.ScColor, 50266111U);
    EXPECT_EQ(Design.ScColorIndex, 8);
    EXPECT_EQ(Design.ScLineWidth, 30.0F);
    EXPECT_EQ(Design.ScSymbolCount, 3);
}

TEST_F(RecordLines, TextItemStandsInSevenRecords) {
    Read(54, "\"Oslo, the \"old\" town\"");
    Read(55, " 45  33554432  10 ");
    Read(56, "Arial");
    Read(57, "-1  0 -1  0 ");
    Read(58, " 105  180 ");
    Read(59, " 1200  45 -30 ");
    Read(60, " 225 ");
    const TextItem& text = Design.TextItems[0];
    EXPECT_EQ(text.TextString, "Oslo, the \"old\" town");
    EXPECT_EQ(text.TextAngle, 45);
    EXPECT_EQ(text.TextColour, 33554432U);
    EXPECT_EQ(text.TextSize, 10);
    EXPECT_EQ(text.TextFont, "Arial");
    EXPECT_TRUE(text.TextBold);
    EXPECT_FALSE(text.TextItalic);
    EXPECT_TRUE(text.TextUnderline);
    EXPECT_FALSE(text.TextStrikeout);
    EXPECT_EQ(text.TextWidth, 105);
    EXPECT_EQ(text.TextHeight, 180);
    EXPECT_EQ(text.TextX, 1200);
    EXPECT_EQ(text.TextDescent, 45);
    EXPECT_EQ(text.TextY, -30);
    EXPECT_EQ(text.TextCellHeight, 225);
}

TEST_F(RecordLines, TextCountStandsInTheSecondPrintZone) {
    Design.TextScalePercent = 100;
    file.TextCount = 1;
    EXPECT_EQ(Written(53), " 100           1 \r\n");
    Design.TextScalePercent = 1000;
    file.TextCount = 123456;
    EXPECT_EQ(Written(53), " 1000          123456 \r\n");
}

TEST_F(RecordLines, WidthsAreRoundedToWholeTwips) {
    Design.GridLineWidth = 13.0909F;
    EXPECT_EQ(Written(6), " 13 \r\n");
    Read(6, " 26 ");
    EXPECT_EQ(Design.GridLineWidth, 26.0F);
}

TEST_F(RecordLines, ValueThatDoesNotFitItsTypeIsAnOverflow) {
    EXPECT_EQ(ErrorOfReading(3, " 32768 "), ErrorOverflow);
    EXPECT_EQ(ErrorOfReading(40, " 1  2147483648  3 "), ErrorOverflow);
    EXPECT_EQ(ErrorOfReading(9, " 1E39      15"), ErrorOverflow);
    EXPECT_EQ(ErrorOfReading(13, " 1E309"), ErrorOverflow);
}

TEST_F(RecordLines, ValueThatCannotBeDrawnIsRefused) {
    const std::vector<std::pair<int, std::string>> refused = {
        {3, " 3 "},
        {3, "-1 "},
        {5, " 0 "},
        {5, " 6 "},
        {6, "-1 "},
        {9, " 0      15"},
        {12, " 19200      0"},
        {13, " 0"},
        {13, " 1.01"},
        {14, " 0  256  0  0 "},
        {14, " 67108864  0  0  0 "},
        {17, " 1      1      1      1      1000      1"},
        {17, " 1      1      1      1      1440      3"},
        {20, " 3  1 "},
        {20, " 1 -1 "},
        {21, "a.map, 13 "},
        {21, "a.map, 0 "},
        {43, " 648001      0"},
        {50, " 91      0      0      0      0      0      0      0"},
        {50, " 0      181      0      0      0      0      0      0"},
        {52, " 0      0      181      0      0      0      0      3"},
        {52, " 0      0      15      0      0      0      0      81"},
        {52, " 0      0      15      0      0      0      0      0"},
        {53, " 0            0 "},
        {53, " 1001         0 "},
        {53, " 100         -1 "},
        {55, " 360  0  10 "},
    };
    for (const auto& [number, line] : refused) {
        EXPECT_EQ(ErrorOfReading(number, line), ErrorInvalidCall) << "record " << number << ": " << line;
    }
}

TEST_F(RecordLines, SpacingOfZeroAndFourInterruptionsAreRefused) {
    const std::string grid = "90    00    00    N\n90    00    00    S\n";
    EXPECT_EQ(ErrorOfReading(26, grid + "000    00    00\n3\n4\n030    00    00\n6\n7\n8\n9\n"),
              ErrorInvalidCall);
    EXPECT_EQ(ErrorOfReading(26, grid + "030    00    00\n3\n4\n000    00    00\n6\n7\n8\n9\n"),
              ErrorInvalidCall);
    EXPECT_EQ(ErrorOfReading(28, "4\n2\n2\n3\n4\n5\n6\n7\n8\n9\n"), ErrorInvalidCall);
    EXPECT_EQ(ErrorOfReading(28, "0\n-1\n2\n3\n4\n5\n6\n7\n8\n9\n"), ErrorInvalidCall);
    EXPECT_EQ(ErrorOfReading(28, "\n3\n2\n3\n4\n5\n6\n7\n8\n9\n"), 0) << "no count is none";
}

TEST_F(RecordLines, RecordWithAFaultChangesNothing) {
    Read(14, " 50331647  15  33554432  0 ");
    EXPECT_EQ(ErrorOfReading(14, " 33554687  12  33554432  text "), ErrorTypeMismatch);
    EXPECT_EQ(ErrorOfReading(14, " 33554687  12  33554432 "), ErrorInputPastEnd);
    EXPECT_EQ(ErrorOfReading(14, " 33554687  12  33554432  256 "), ErrorInvalidCall);
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(255, 255, 255)));
    EXPECT_EQ(Design.BackColorIndex, 15);
}

TEST_F(RecordLines, TextThatFitsNoLineIsNeitherWrittenNorRead) {
    Design.TextItems[0].TextString = "two\nlines";
    EXPECT_EQ(ErrorOf([&] { Written(54); }), ErrorInvalidCall);
    EXPECT_EQ(ErrorOfReading(54, std::string_view("\"a\0b\"", 5)), ErrorInvalidCall);
    EXPECT_EQ(Design.TextItems[0].TextString, "two\nlines");
}

TEST_F(RecordLines, TextThatIsNoUtf8IsWrittenAsWindows1252IsRead) {
    Design.AsciiFileName[0] = "T\xF8nsberg.txt";
    EXPECT_EQ(Written(24), "T\xC3\xB8nsberg.txt\r\n");
}

TEST_F(RecordLines, OlderFilesHaveTheirRecordsInAnotherOrder) {
    std::vector<int> numbers;
    for (const Record& record : OlderDesignRecords(203)) {
        numbers.push_back(record.number);
    }
    EXPECT_THAT(std::vector(numbers.begin(), numbers.begin() + 11),
                ElementsAre(2, 3, 4, 5, 9, 12, 8, 13, 14, 15, 16));
    EXPECT_EQ(numbers.back(), 59);
    EXPECT_EQ(std::count(numbers.begin(), numbers.end(), 51), 0);
    EXPECT_EQ(std::count(numbers.begin(), numbers.end(), 52), 0);
    EXPECT_EQ(OlderDesignRecords(204).back().number, 60);
}

} // namespace
} // namespace quelmont

#include "output/cgm/cgm_writer.h"

#include "cgm_fixture.h"
#include "output/output_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using namespace std::string_literals;

class Cgm : public CgmTest {
protected:
    /// The file of one line, and its polylines.
    std::vector<CgmElement> PolylinesOfLongLine(int points) {
        Begin();
        Stretch(SymbolLine);
        LongLine(points);
        CloseExport();
        std::vector<CgmElement> lines;
        for (const CgmElement& element : ReadCgm(End())) {
            if (element.name == "POLYLINE") {
                lines.push_back(element);
            }
        }
        return lines;
    }
};

TEST_F(Cgm, HeaderTellsTheProgramAndTheExtent) {
    Begin();
    const std::string bytes = End();
    std::vector<std::string> texts;
    for (const CgmElement& element : ReadCgm(bytes)) {
        texts.push_back(element.Text());
    }
    EXPECT_THAT(texts,
                ElementsAre("BEGIN METAFILE 'Map by QUELMONT, 14 Alder Row, Ostwick, ST  00000, USA'",
                            "METAFILE VERSION 1", "METAFILE DESCRIPTION 'QUELMONT version 3.00 CGM metafile'",
                            "VDC TYPE 0", "INTEGER PRECISION 16", "REAL PRECISION 1 16 16",
                            "INDEX PRECISION 16", "COLOUR PRECISION 16",
                            "COLOUR VALUE EXTENT 0 0 0 255 255 255", "METAFILE ELEMENT LIST 1 -1 1",
                            "FONT LIST 'Arial'", "BEGIN PICTURE 'PICTURE 1 OF 1'", "SCALING MODE 0 0 0",
                            "COLOUR SELECTION MODE 1", "LINE WIDTH SPECIFICATION MODE 0",
                            "EDGE WIDTH SPECIFICATION MODE 0", "VDC EXTENT -320 -320 32320 23420",
                            "BACKGROUND COLOUR 255 255 255", "BEGIN PICTURE BODY", "INTERIOR STYLE 1",
                            "EDGE TYPE 1", "EDGE WIDTH 1", "EDGE VISIBILITY 1", "LINE TYPE 1", "LINE WIDTH 1",
                            "END PICTURE", "END METAFILE"));
}

TEST_F(Cgm, HeaderByItsBytes) {
    Design.VersionText = "1";
    Design.Fonts[ReportFontSlot].FontName = "0";
    Design.Fonts[CgmFontSlot].FontName = "One";
    Design.BackColor = 0x02123456; // the palette flag, then blue, green, red
    Begin();
    const std::string expected =
        // 54 characters and their length byte, padded to an even count
        "\x00\x3F\x00\x37\x36"
        "Map by QUELMONT, 14 Alder Row, Ostwick, ST  00000, USA\0"
        "\x10\x22\x00\x01"
        "\x10\x5F\x00\x20\x1F"
        "QUELMONT version 1 CGM metafile"
        "\x10\x62\x00\x00"
        "\x10\x82\x00\x10"
        "\x10\xA6\x00\x01\x00\x10\x00\x10"
        "\x10\xC2\x00\x10"
        "\x10\xE2\x00\x10"
        "\x11\x4C\x00\x00\x00\x00\x00\x00\x00\xFF\x00\xFF\x00\xFF"
        "\x11\x66\x00\x01\xFF\xFF\x00\x01"
        "\x11\xBF\x00\x04\x03One"
        "\x00\x7F\x00\x0F\x0EPICTURE 1 OF 1\0"
        "\x20\x26\x00\x00\x00\x00\x00\x00"
        "\x20\x42\x00\x01"
        "\x20\x62\x00\x00"
        "\x20\xA2\x00\x00"
        "\x20\xC8\xFE\xC0\xFE\xC0\x7E\x40\x5B\x7C" // -320 is 65536 - 320 = FEC0; 32320 = 7E40, 23420 = 5B7C
        "\x20\xE6\x00\x56\x00\x34\x00\x12"
        "\x00\x80"
        "\x52\xC2\x00\x01"
        "\x53\x62\x00\x01"
        "\x53\x82\x00\x01"
        "\x53\xC2\x00\x01"
        "\x50\x42\x00\x01"
        "\x50\x62\x00\x01"
        "\x00\xA0\x00\x40"s;
    EXPECT_EQ(End(), expected);
}

TEST_F(Cgm, HeaderTakesTheColourOfTheGridAndSymbolsOfTwoUnits) {
    Begin();
    EXPECT_EQ(Design.PenColor, Design.GridColor);
    EXPECT_EQ(Design.SymbolRadiusFile, 2);
    EXPECT_EQ(Design.OutputFileName, target);
}

TEST_F(Cgm, LineHasItsColourItsWidthAndAPatchedLength) {
    Begin();
    const std::string header = ReadWholeFile(target + "." + std::to_string(getpid()) + ".tmp");
    Stretch(SymbolLine);
    Design.PenColor = 0x112233;
    Design.PenWidth = 3;
    Line({{1, 2}, {300, 400}, {32000, 23100}});
    CloseExport();
    const std::string bytes = End();
    // 3 pixels of 1 twip are 6 units of half a twip; three vertices are 12 bytes.
    EXPECT_EQ(bytes.substr(header.size()), "\x50\x86\x00\x33\x00\x22\x00\x11"
                                           "\x50\x62\x00\x06"
                                           "\x40\x3F\x00\x0C"
                                           "\x00\x01\x00\x02"
                                           "\x01\x2C\x01\x90"
                                           "\x7D\x00\x5A\x3C"
                                           "\x00\xA0\x00\x40"s);
}

TEST_F(Cgm, WidthsAreThePensWithoutScaling) {
    Design.LineWidthsScaled = false;
    Begin();
    Stretch(SymbolLine);
    Design.PenWidth = 3;
    Line({{1, 2}, {3, 4}});
    CloseExport();
    EXPECT_THAT(EndWithElements(), ElementsAre("LINE COLOUR 128 0 0", "LINE WIDTH 3", "POLYLINE 1 2 3 4"));
}

TEST_F(Cgm, EachLineIsAPolylineOfItsOwnAcrossStretches) {
    Begin();
    Stretch(SymbolLine);
    Line({{1, 1}, {2, 2}});
    Line({{3, 3}, {4, 4}});
    CloseExport();
    Stretch(SymbolLine);
    Design.PenColor = 0x0000FF;
    Line({{5, 5}, {6, 6}});
    CloseExport();
    EXPECT_THAT(EndWithElements(), ElementsAre("LINE COLOUR 128 0 0", "LINE WIDTH 2", "POLYLINE 1 1 2 2",
                                               "LINE COLOUR 128 0 0", "LINE WIDTH 2", "POLYLINE 3 3 4 4",
                                               "LINE COLOUR 255 0 0", "LINE WIDTH 2", "POLYLINE 5 5 6 6"));
}

TEST_F(Cgm, LineOfOnePointIsAPolylineOfOneVertex) {
    Begin();
    Stretch(SymbolLine);
    Line({{5, 6}});
    CloseExport();
    EXPECT_THAT(EndWithElements(), ElementsAre("LINE COLOUR 128 0 0", "LINE WIDTH 2", "POLYLINE 5 6"));
}

TEST_F(Cgm, BreaksWithoutAPointWriteNothing) {
    Begin();
    Stretch(SymbolLine);
    PrintLineBrkDisk();
    Line({{1, 1}, {2, 2}});
    PrintLineBrkDisk();
    CloseExport();
    EXPECT_EQ(EndWithElements().size(), 3U);
}

TEST_F(Cgm, LongLinesAreChainsThatShareAVertex) {
    struct Case {
        int points;
        std::vector<std::int64_t> lengths; ///< bytes: four a vertex
    };
    for (const Case& test :
         {Case{1, {4}}, Case{2, {8}}, Case{1998, {7992}}, Case{1999, {7996}}, Case{2000, {7996, 8}},
          Case{3997, {7996, 7996}}, Case{3998, {7996, 7996, 8}}, Case{3999, {7996, 7996, 12}}}) {
        Design.OutputCgm = true;
        const std::vector<CgmElement> lines = PolylinesOfLongLine(test.points);
        std::vector<std::int64_t> lengths;
        std::int32_t next = 0;
        for (const CgmElement& line : lines) {
            EXPECT_TRUE(line.longForm);
            lengths.push_back(line.length);
            for (std::size_t i = 0; i < line.numbers.size(); i += 2) {
                if (i == 0 && next > 0) {
                    --next; // the seam
                }
                ASSERT_EQ(line.numbers[i], next++) << test.points;
            }
        }
        EXPECT_EQ(lengths, test.lengths) << test.points;
        EXPECT_EQ(next, test.points);
    }
}

TEST_F(Cgm, FullChainDoesNotReachIntoTheNextLine) {
    Begin();
    Stretch(SymbolLine);
    LongLine(1999);
    Line({{10000, 1}, {10001, 1}});
    CloseExport();
    const std::vector<std::string> elements = EndWithElements();
    ASSERT_EQ(elements.size(), 6U);
    EXPECT_EQ(elements.back(), "POLYLINE 10000 1 10001 1");
}

TEST_F(Cgm, LinesAreClampedToTheDrawing) {
    Begin();
    Stretch(SymbolLine);
    Line({{-5, 23101}, {32001, -1}, {32000, 23100}});
    CloseExport();
    EXPECT_EQ(EndWithElements().back(), "POLYLINE 0 23100 32000 0 32000 23100");
}

TEST_F(Cgm, CoordinatesRoundTiesToEven) {
    Begin();
    Stretch(SymbolLine);
    Line({{0.5, 1.5}, {2.5, 2.51}});
    CloseExport();
    EXPECT_EQ(EndWithElements().back(), "POLYLINE 0 2 2 3");
}

TEST_F(Cgm, PointThatOverflowsCostsTheFile) {
    Begin();
    Stretch(SymbolLine);
    Line({{1, 1}, {40000, 1}, {2, 2}});
    CloseExport();
    ExpectGivenUp({{"Error in CgmVertices", "Error: Overflow"}});
}

/// Elements of a symbol of half size 100 and an outline of 7 units at 1000, 2000.
class CgmSymbol : public Cgm {
protected:
    std::vector<std::string> ElementsOf(std::int16_t type) {
        Design.OutputCgm = true;
        Begin();
        Design.PenColor = 0x030201;
        Design.PenWidth = 4;
        Symbol(type, 100, 7, 1000, 2000);
        return EndWithElements();
    }

    static std::vector<std::string> Filled(const std::string& shape) {
        return {"INTERIOR STYLE 1", "EDGE COLOUR 1 2 3", "FILL COLOUR 1 2 3", "EDGE WIDTH 1", shape};
    }
    static std::vector<std::string> Open(const std::string& shape) {
        return {"INTERIOR STYLE 0", "EDGE COLOUR 1 2 3", "FILL COLOUR 1 2 3", "EDGE WIDTH 7", shape};
    }
    /// Four pixels are eight units wide.
    static std::vector<std::string> Strokes(const std::string& first, const std::string& second) {
        return {"LINE COLOUR 1 2 3", "LINE WIDTH 8", first, second};
    }
};

TEST_F(CgmSymbol, SquaresAndDots) {
    const std::string square = "POLYGON 900 1900 900 2100 1100 2100 1100 1900";
    EXPECT_EQ(ElementsOf(SymbolDot), Filled(square));
    EXPECT_EQ(ElementsOf(SymbolOpenSquare), Open(square));
    EXPECT_EQ(ElementsOf(SymbolFilledSquare), Filled(square));
}

TEST_F(CgmSymbol, PlusAndCross) {
    EXPECT_EQ(ElementsOf(SymbolPlus), Strokes("POLYLINE 900 2000 1100 2000", "POLYLINE 1000 1900 1000 2100"));
    EXPECT_EQ(ElementsOf(SymbolCross), Strokes("POLYLINE 900 1900 1100 2100", "POLYLINE 1100 1900 900 2100"));
}

TEST_F(CgmSymbol, Diamonds) {
    const std::string diamond = "POLYGON 900 2000 1000 2100 1100 2000 1000 1900";
    EXPECT_EQ(ElementsOf(SymbolOpenDiamond), Open(diamond));
    EXPECT_EQ(ElementsOf(SymbolFilledDiamond), Filled(diamond));
}

TEST_F(CgmSymbol, Triangles) {
    // The base lies 57.7 below the centre. The apex lies 115.5 above it, and 1.155 in single precision is
    // a little below: 2115.499997 rounds down, where 2115.5 would go to the even 2116.
    const std::string triangle = "POLYGON 900 1942 1100 1942 1000 2115";
    EXPECT_EQ(ElementsOf(SymbolOpenTriangle), Open(triangle));
    EXPECT_EQ(ElementsOf(SymbolFilledTriangle), Filled(triangle));
}

TEST_F(CgmSymbol, Circles) {
    EXPECT_EQ(ElementsOf(SymbolOpenCircle), Open("CIRCLE 1000 2000 100"));
    EXPECT_EQ(ElementsOf(SymbolFilledCircle), Filled("CIRCLE 1000 2000 100"));
}

TEST_F(CgmSymbol, BytesOfAPolygonAndOfStrokes) {
    Begin();
    const std::string header = ReadWholeFile(target + "." + std::to_string(getpid()) + ".tmp");
    Design.PenColor = 0;
    Symbol(SymbolFilledTriangle, 10, 0, 256, 512);
    Symbol(SymbolPlus, 1, 0, 16, 32);
    EXPECT_EQ(End().substr(header.size()),
              "\x52\xC2\x00\x01"
              "\x53\xA6\x00\x00\x00\x00\x00\x00"
              "\x52\xE6\x00\x00\x00\x00\x00\x00"
              "\x53\x82\x00\x01"
              "\x40\xEC\x00\xF6\x01\xFA\x01\x0A\x01\xFA\x01\x00\x02\x0C" // y 506, 524
              "\x50\x86\x00\x00\x00\x00\x00\x00"
              "\x50\x62\x00\x02"
              "\x40\x28\x00\x0F\x00\x20\x00\x11\x00\x20"
              "\x40\x28\x00\x10\x00\x1F\x00\x10\x00\x21"
              "\x00\xA0\x00\x40"s);
}

TEST_F(CgmSymbol, SymbolsAtTheEdgeAreFlattened) {
    Begin();
    Symbol(SymbolOpenSquare, 100, 1, 0, 23100);
    Symbol(SymbolOpenDiamond, 100, 1, 31950, 50);
    Symbol(SymbolOpenCircle, 100, 1, 32100, -5);
    const std::vector<std::string> elements = EndWithElements();
    ASSERT_EQ(elements.size(), 15U);
    EXPECT_EQ(elements[4], "POLYGON 0 23000 0 23100 100 23100 100 23000");
    EXPECT_EQ(elements[9], "POLYGON 31850 50 31950 150 32000 50 31950 0");
    EXPECT_EQ(elements[14], "CIRCLE 32000 0 100");
}

TEST_F(CgmSymbol, SeveralSymbolsShareTheInterior) {
    Begin();
    Stretch(SymbolOpenCircle);
    Point(1, 1);
    Point(2, 2);
    PrintLineBrkDisk();
    CloseExport();
    const std::vector<std::string> elements = EndWithElements();
    EXPECT_EQ(std::count(elements.begin(), elements.end(), "INTERIOR STYLE 0"), 1);
    EXPECT_EQ(elements.size(), 9U);
}

TEST_F(CgmSymbol, DotsOfTheGridAreFilledWhateverCameBefore) {
    // The grid begins no stretch of map data; in a lobe it follows the map files of the lobe before.
    const auto dotsOfTheGrid = [] {
        OpenExport(1);
        Design.CurrentSymbolType = SymbolDot;
        Point(1, 1); // four elements each
        Point(2, 2);
        PrintLineBrkDisk();
        CloseExport();
    };
    Begin();
    dotsOfTheGrid(); // the header has told that shapes are filled
    Symbol(SymbolOpenCircle, 100, 7, 1000, 2000);
    dotsOfTheGrid();
    dotsOfTheGrid();
    Symbol(SymbolFilledCircle, 100, 7, 1000, 2000);
    dotsOfTheGrid();
    const std::vector<std::string> elements = EndWithElements();
    std::vector<std::pair<std::size_t, std::string>> interiors;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (elements[i].starts_with("INTERIOR")) {
            interiors.emplace_back(i, elements[i]);
        }
    }
    EXPECT_THAT(interiors, ElementsAre(testing::Pair(8, "INTERIOR STYLE 0"), // of the open circle
                                       testing::Pair(13, "INTERIOR STYLE 1"),
                                       testing::Pair(13 + 1 + 8 + 8, "INTERIOR STYLE 1"))); // of the filled
    EXPECT_EQ(elements.size(), 30U + 5U + 8U);
}

TEST_F(CgmSymbol, TypesWithoutASymbolWriteNothing) {
    Begin();
    Symbol(13, 100, 1, 5, 5);
    Symbol(0, 100, 1, 5, 5);
    EXPECT_THAT(EndWithElements(), IsEmpty());
}

TEST_F(CgmSymbol, SymbolThatOverflowsCostsTheFile) {
    Begin();
    Symbol(SymbolOpenSquare, 30000, 1, 20000, 5);
    ExpectGivenUp({{"Error in CgmVertices", "Error: Overflow"}});
}

TEST_F(Cgm, ColourOfCirclesComesBeforeTheirLines) {
    Begin();
    OpenExport(1);
    writer.StartCircles(0x02FF8001);
    CloseExport();
    EXPECT_THAT(EndWithElements(), ElementsAre("LINE COLOUR 1 128 255"));
}

class CgmTexts : public Cgm {
protected:
    static TextItem Item(const std::string& text) { return TextOfMap(text, 0x0000FF); }
    std::vector<std::string> Written() {
        Begin();
        return EndWithElements();
    }
};

TEST_F(CgmTexts, TextWithAllItsAttributes) {
    Design.TextItems = {Item("Nuuk")};
    EXPECT_THAT(Written(), ElementsAre("TEXT COLOUR 255 0 0", "TEXT PRECISION 2", "CHARACTER HEIGHT 200",
                                       "CHARACTER EXPANSION FACTOR 1 0", "CHARACTER SPACING 0 0",
                                       "CHARACTER ORIENTATION 0 10000 10000 0", "TEXT ALIGNMENT 1 4 0 0 0 0",
                                       "TEXT 8000 20790 1 'Nuuk'"));
}

TEST_F(CgmTexts, ScaleIsAShareOfTheHeight) {
    Design.TextItems = {Item("a")};
    Design.TextScalePercent = 75;
    EXPECT_EQ(Written().at(2), "CHARACTER HEIGHT 150");
}

TEST_F(CgmTexts, AngleTurnsBothVectors) {
    Design.TextItems = {Item("a"), Item("b"), Item("c")};
    Design.TextItems[0].TextAngle = 90;
    Design.TextItems[1].TextAngle = 30;
    Design.TextItems[2].TextAngle = 180;
    const std::vector<std::string> elements = Written();
    EXPECT_EQ(elements.at(5), "CHARACTER ORIENTATION -10000 0 0 10000");
    // up at 120 degrees: -0.5, 0.8660; base at 30
    EXPECT_EQ(elements.at(13), "CHARACTER ORIENTATION -5000 8660 8660 5000");
    EXPECT_EQ(elements.at(21), "CHARACTER ORIENTATION 0 -10000 -10000 0");
}

TEST_F(CgmTexts, BytesOfTextsOfOddAndEvenLength) {
    Design.TextItems = {Item("abc"), Item("ab")};
    Begin();
    const std::string bytes = End();
    // Six bytes of parameters, the length byte and three characters are even; with two of them a zero
    // byte follows that the length does not count.
    EXPECT_NE(bytes.find("\x40\x9F\x00\x0A\x1F\x40\x51\x36\x00\x01\x03"
                         "abc"
                         "\x51\xC6"s),
              std::string::npos);
    EXPECT_NE(bytes.find("\x40\x9F\x00\x09\x1F\x40\x51\x36\x00\x01\x02"
                         "ab\x00"
                         "\x00\xA0"s),
              std::string::npos);
    ReadCgm(bytes);
}

TEST_F(CgmTexts, EmptyTextIsAStringOfLengthZero) {
    Design.TextItems = {Item("")};
    Begin();
    const std::string bytes = End();
    EXPECT_NE(bytes.find("\x40\x9F\x00\x07\x1F\x40\x51\x36\x00\x01\x00\x00"s), std::string::npos);
    EXPECT_EQ(CgmBody(bytes).back(), "TEXT 8000 20790 1");
}

TEST_F(CgmTexts, TextsAreWindows1252) {
    Design.TextItems = {Item("\u00C5\u20AC\u0416")}; // Å, the euro sign, a Cyrillic letter
    EXPECT_EQ(Written().back(), "TEXT 8000 20790 1 '\xC5\x80?'");
}

TEST_F(CgmTexts, LongestTextIs248Characters) {
    Design.TextItems = {Item(std::string(248, 'a'))};
    EXPECT_EQ(Written().back(), "TEXT 8000 20790 1 '" + std::string(248, 'a') + "'");
}

TEST_F(CgmTexts, LongerTextCostsTheFile) {
    Design.TextItems = {Item("a"), Item(std::string(249, 'b'))};
    Begin();
    ExpectGivenUp({{"Error in CgmString", "Error: Overflow"}});
}

TEST_F(Cgm, LongestStringElsewhereIs254Characters) {
    Design.Fonts[CgmFontSlot].FontName = std::string(254, 'f');
    Begin();
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_EQ(ReadCgm(End()).at(10).text, std::string(254, 'f'));
}

TEST_F(Cgm, FinishedFileLeavesAFreshWriter) {
    Begin();
    End();
    EXPECT_FALSE(Design.OutputCgm);
    EXPECT_TRUE(OutputNow.LineBreakPending);
    Design.OutputCgm = true;
    Begin();
    Stretch(SymbolLine);
    Line({{1, 1}, {2, 2}});
    CloseExport();
    EXPECT_EQ(EndWithElements().back(), "POLYLINE 1 1 2 2");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

} // namespace
} // namespace quelmont

#include "output/svg/svg_writer.h"

#include "export_fixture.h"
#include "output/output_state.h"
#include "support/failing_file.h"
#include "support/svg_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Two units are a pixel; the upper edge of the map, 23100, is that of the picture.
class Svg : public ExportTest {
protected:
    Svg() {
        Writers().svg = &writer;
        Design.SvgFileName = target;
        Design.MapTitle = "Title";
        Design.MapDescription = "What it shows.";
        Begin();
    }

    void Begin() {
        Design.OutputSvg = true;
        ResetLineState();
        PrintFileHeader();
        BeginFilePart(MapPart::Grid, "Grid");
    }
    std::string End() {
        FinishFile();
        return ReadWholeFile(target);
    }
    /// What stands between the background and the end.
    std::string EndWithContents() {
        const std::string bytes = End();
        const std::string before = "fill=\"#FFFFFF\"/>\n";
        const std::size_t begin = bytes.find(before) + before.size();
        return bytes.substr(begin, bytes.rfind("</svg>\n") - begin);
    }
    std::vector<std::string> EndWithPaths() {
        std::vector<std::string> paths;
        for (const SvgElement& path : SvgElements(End(), "path")) {
            paths.push_back(path.At("d"));
        }
        return paths;
    }

    /// One symbol of a radius in twips, which are pixels here.
    static void Shape(std::int16_t type, std::int32_t radius, std::int32_t border, double x, double y) {
        OutputNow.SymbolRadius = radius;
        Design.PenWidth = border;
        Design.PenColor = 0x0000FF;
        Design.CurrentSymbolType = type;
        OpenExport(1);
        Point(x, y);
        CloseExport();
    }
    std::string ShapeAsWritten(std::int16_t type) {
        Begin();
        Shape(type, 10, 3, 200, 23100 - 400); // pixel 100, 200
        const std::string contents = EndWithContents();
        const std::size_t begin = contents.find("</title>\n") + 9;
        return contents.substr(begin, contents.find('\n', begin) - begin);
    }

    SvgWriter writer;
};

TEST_F(Svg, EmptyMapByItsLines) {
    EXPECT_EQ(End(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                     "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"1066.73\" "
                     "height=\"770.07\" viewBox=\"0 0 16001 11551\" stroke-linecap=\"round\" "
                     "stroke-linejoin=\"round\">\n"
                     "<title>Title</title>\n"
                     "<desc>What it shows.</desc>\n"
                     "<!-- Quelmont 3.00 -->\n"
                     "<rect id=\"background\" width=\"16001\" height=\"11551\" fill=\"#FFFFFF\"/>\n"
                     "</svg>\n");
    EXPECT_FALSE(Design.OutputSvg);
    EXPECT_TRUE(OutputNow.LineBreakPending);
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(Svg, HeaderSetsTheName) { EXPECT_EQ(Design.OutputFileName, target); }

TEST_F(Svg, TitlesOfAnyBytesAreText) {
    Design.MapTitle = "<script>\x01 \"&\" \xF8";
    Design.MapDescription = "a\0b\xEF\xBF\xBF";
    Begin();
    const std::vector<SvgElement> elements = ReadSvg(End());
    EXPECT_EQ(elements.at(1).text, "<script>  \"&\" ø");
    EXPECT_EQ(elements.at(2).text, "a");
}

TEST_F(Svg, LinesGoThroughTheMiddlesOfPixelsInHundredths) {
    Stretch(SymbolLine);
    Design.PenColor = 0x02FF8001; // the palette flag does not reach the file
    Design.PenWidth = 3;
    Line({{0, 23100}, {1, 23099}, {300, 22700.5}});
    CloseExport();
    EXPECT_EQ(EndWithContents(), "<g id=\"grid-1\" fill=\"none\" stroke=\"#0180FF\" stroke-width=\"3\">\n"
                                 "<title>Grid</title>\n"
                                 "<path d=\"M0.5,0.5 1,1 150.5,200.25\"/>\n"
                                 "</g>\n");
}

TEST_F(Svg, PenOfNoWidthIsOnePixelWide) {
    Stretch(SymbolLine);
    Design.PenWidth = 0;
    Line({{0, 0}, {2, 2}});
    CloseExport();
    EXPECT_EQ(SvgElements(End(), "path").at(0).At("stroke-width"), "1");
}

TEST_F(Svg, LineOfOnePointIsTwoEqualPoints) {
    Stretch(SymbolLine);
    Line({{10, 23100}});
    CloseExport();
    EXPECT_THAT(EndWithPaths(), ElementsAre("M5.5,0.5 5.5,0.5"));
}

TEST_F(Svg, BreaksWithoutAPointWriteNothing) {
    Stretch(SymbolLine);
    PrintLineBrkDisk();
    Line({{0, 0}, {2, 2}});
    PrintLineBrkDisk();
    CloseExport();
    EXPECT_EQ(EndWithPaths().size(), 1U);
}

TEST_F(Svg, LongLinesArePathsThatShareAVertex) {
    struct Case {
        int points;
        std::vector<std::size_t> chains; ///< points of each
    };
    for (const Case& test : {Case{1, {2}}, Case{2, {2}}, Case{1998, {1998}}, Case{1999, {1999}},
                             Case{2000, {1999, 2}}, Case{3000, {1999, 1002}}, Case{3997, {1999, 1999}},
                             Case{3998, {1999, 1999, 2}}, Case{3999, {1999, 1999, 3}}}) {
        Begin();
        Stretch(SymbolLine);
        LongLine(test.points);
        CloseExport();
        std::vector<std::size_t> chains;
        double next = 0.5;
        for (const SvgElement& path : SvgElements(End(), "path")) {
            const std::vector<double> numbers = path.Numbers("d");
            chains.push_back(numbers.size() / 2);
            next -= next > 0.5 ? 0.5 : 0.0; // the seam
            for (std::size_t i = 0; i < numbers.size(); i += 2) {
                ASSERT_EQ(numbers[i], test.points == 1 ? 0.5 : next) << test.points;
                next += 0.5;
            }
        }
        EXPECT_EQ(chains, test.chains) << test.points;
    }
}

TEST_F(Svg, FullPathDoesNotReachIntoTheNextLine) {
    Stretch(SymbolLine);
    LongLine(1999);
    Line({{4, 23100}, {6, 23100}});
    CloseExport();
    EXPECT_EQ(EndWithPaths().at(1), "M2.5,0.5 3.5,0.5");
}

TEST_F(Svg, GroupsFollowThePartsOfTheMapAndTheFeaturesOfItsFiles) {
    Stretch(SymbolLine);
    Line({{0, 0}, {2, 2}});
    CloseExport();
    Stretch(SymbolLine);
    BeginFilePart(MapPart::MapFile, "a & b.map");
    BeginFileFeature(4, "Rivers");
    Line({{0, 0}, {2, 2}});
    BeginFileFeature(4, "Rivers"); // the same goes on
    Line({{0, 0}, {2, 2}});
    BeginFileFeature(3, "Lakes");
    Line({{0, 0}, {2, 2}});
    BeginFileFeature(4, "Rivers");
    Line({{0, 0}, {2, 2}});
    CloseExport();
    Stretch(SymbolLine);
    BeginFilePart(MapPart::MapFile, "c.prn");
    Line({{0, 0}, {2, 2}});
    CloseExport();
    Stretch(SymbolLine);
    BeginFilePart(MapPart::GreatCircle, "Great circle");
    StartCircles(0x0000FF);
    Line({{0, 0}, {2, 2}});
    CloseExport();
    std::vector<std::string> places;
    for (const SvgElement& element : ReadSvg(End())) {
        if (element.name == "path" || element.name == "title") {
            places.push_back(element.group + " " + element.text);
        }
    }
    EXPECT_THAT(places,
                ElementsAre(" Title", "grid-1 Grid", "grid-1 ", "map-file-1 a & b.map",
                            "map-file-1/feature-1 Rivers", "map-file-1/feature-1 ", "map-file-1/feature-1 ",
                            "map-file-1/feature-2 Lakes", "map-file-1/feature-2 ",
                            "map-file-1/feature-3 Rivers", "map-file-1/feature-3 ", "map-file-2 c.prn",
                            "map-file-2 ", "great-circle-1 Great circle", "great-circle-1 "));
}

TEST_F(Svg, PartThatNothingIsDrawnOfHasNoGroup) {
    BeginFilePart(MapPart::MapFile, "elsewhere.map");
    BeginFileFeature(1, "Coastlines");
    EXPECT_THAT(SvgElements(End(), "g"), IsEmpty());
}

TEST_F(Svg, LineThatAnotherFeatureEndsBelongsToItsLastPoint) {
    Stretch(SymbolLine);
    BeginFilePart(MapPart::MapFile, "a.map");
    BeginFileFeature(1, "Coastlines");
    Design.PenColor = 0x000001;
    Point(0, 0);
    Point(2, 2);
    BeginFileFeature(2, "Islands");
    Design.PenColor = 0x000002;
    PrintLineBrkDisk();
    CloseExport();
    const SvgElement path = SvgElements(End(), "path").at(0);
    EXPECT_EQ(path.group, "map-file-1/feature-1");
    EXPECT_EQ(path.At("stroke"), "#010000");
}

TEST_F(Svg, SymbolsHaveTheirShapes) {
    EXPECT_EQ(ShapeAsWritten(SymbolPlus), "<path d=\"M90.5,200.5 110.5,200.5M100.5,190.5 100.5,210.5\"/>");
    EXPECT_EQ(ShapeAsWritten(SymbolCross), "<path d=\"M90.5,190.5 110.5,210.5M90.5,210.5 110.5,190.5\"/>");
    for (const std::int16_t square : {SymbolOpenSquare, SymbolFilledSquare}) {
        EXPECT_EQ(ShapeAsWritten(square), "<rect x=\"90.5\" y=\"190.5\" width=\"20\" height=\"20\"/>");
    }
    for (const std::int16_t diamond : {SymbolOpenDiamond, SymbolFilledDiamond}) {
        EXPECT_EQ(ShapeAsWritten(diamond), "<path d=\"M90.5,200.5 100.5,190.5 110.5,200.5 100.5,210.5z\"/>");
    }
    // The base lies 0.577 radii below, the apex 1.155 above the place.
    for (const std::int16_t triangle : {SymbolOpenTriangle, SymbolFilledTriangle}) {
        EXPECT_EQ(ShapeAsWritten(triangle), "<path d=\"M90.5,206.27 110.5,206.27 100.5,188.95z\"/>");
    }
    for (const std::int16_t circle : {SymbolOpenCircle, SymbolFilledCircle}) {
        EXPECT_EQ(ShapeAsWritten(circle), "<circle cx=\"100.5\" cy=\"200.5\" r=\"10\"/>");
    }
}

TEST_F(Svg, DotIsAsLargeAsOnTheScreen) {
    EXPECT_EQ(ShapeAsWritten(SymbolDot), "<rect x=\"100\" y=\"200\" width=\"1\" height=\"1\"/>");
    Design.DotPixels = 3;
    EXPECT_EQ(ShapeAsWritten(SymbolDot), "<rect x=\"99\" y=\"199\" width=\"3\" height=\"3\"/>");
}

TEST_F(Svg, OpenShapesHaveAnOutlineFilledOnesBothAndDotsNone) {
    Shape(SymbolOpenCircle, 10, 3, 200, 200);
    Shape(SymbolFilledCircle, 10, 3, 200, 200);
    Shape(SymbolDot, 10, 3, 200, 200);
    std::vector<std::string> inks;
    for (const SvgElement& group : SvgElements(End(), "g")) {
        inks.push_back(group.At("fill") + " " + group.At("stroke") + " " + group.At("stroke-width"));
    }
    EXPECT_THAT(inks, ElementsAre("none #FF0000 3", "#FF0000 #FF0000 3", "#FF0000  "));
}

TEST_F(Svg, PlaceBeyondThePictureGivesTheFileUp) {
    Stretch(SymbolLine);
    Line({{0, 0}, {70000, 0}}); // 35000 pixels
    CloseExport();
    ExpectGivenUp({{"Error in SvgWrite", "Error: Overflow"}});
}

// ---- Texts

TEST_F(Svg, TextStandsOnItsBaselineInItsFont) {
    Design.TextItems = {TextOfMap("  K\xC3\xB8ge <1>", 0x804020)};
    // 12 points are 240 twips, which are pixels here.
    EXPECT_EQ(EndWithContents(),
              "<g id=\"texts-1\">\n<title>Texts</title>\n"
              "<text xml:space=\"preserve\" x=\"4000\" y=\"1155\" font-family=\"'Arial', sans-serif\" "
              "font-size=\"240\" fill=\"#204080\">  K\xC3\xB8ge &lt;1&gt;</text>\n</g>\n");
}

TEST_F(Svg, TextHasItsStyleAndItsAngle) {
    TextItem item = TextOfMap("a", 0);
    item.TextFont = "O'Neill \"x\" Serif";
    item.TextBold = item.TextItalic = item.TextUnderline = item.TextStrikeout = true;
    item.TextAngle = 350;
    Design.TextItems = {item, TextOfMap("b", 0), TextOfMap("c", 0)};
    Design.TextItems[1].TextUnderline = true;
    Design.TextItems[2].TextStrikeout = true;
    const std::vector<SvgElement> texts = SvgElements(End(), "text");
    EXPECT_EQ(texts.at(0).At("font-family"), R"('O\'Neill "x" Serif', serif)");
    EXPECT_EQ(texts[0].At("font-weight"), "bold");
    EXPECT_EQ(texts[0].At("font-style"), "italic");
    EXPECT_EQ(texts[0].At("text-decoration"), "underline line-through");
    EXPECT_EQ(texts[0].At("transform"), "rotate(-350 4000 1155)");
    EXPECT_EQ(texts.at(1).At("text-decoration"), "underline");
    EXPECT_EQ(texts.at(2).At("text-decoration"), "line-through");
    EXPECT_EQ(texts[2].At("transform"), "");
}

TEST_F(Svg, TextsLieOverTheLabels) {
    TextItem label = TextOfMap("label", 0);
    label.TextFromLabel = true;
    Design.TextItems = {TextOfMap("text", 0), label, TextOfMap("", 0)};
    const std::vector<SvgElement> texts = SvgElements(End(), "text");
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].group + " " + texts[0].text, "labels-1 label");
    EXPECT_EQ(texts[1].group + " " + texts[1].text, "texts-1 text");
}

TEST_F(Svg, TextThatCannotBeWrittenGivesTheFileUp) {
    Design.TextItems = {TextOfMap("a", 0)};
    Design.TextItems[0].TextX = 2'000'000'000;
    ExpectGivenUp({{"Error in SvgText", "Error: Overflow"}});
}

// ---- Failures

TEST_F(Svg, FullDiskIsReportedOnceAndTheEarlierFileStays) {
    DropExports();
    WriteWholeFile(target, "earlier");
    Begin();
    FailingFiles disk;
    disk.FailWritingAfter(100, ErrorDiskFull);
    Stretch(SymbolLine);
    for (int line = 0; line < 100; ++line) {
        LongLine(1999);
    }
    CloseExport();
    FinishFile();
    ASSERT_EQ(machine.boxes.asked.size(), 1U);
    EXPECT_EQ(machine.boxes.asked[0].text, "Error: Disk full");
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(Svg, FolderThatIsNotThereStopsTheDraw) {
    DropExports();
    Design.SvgFileName = folder / "nowhere/map.svg";
    Begin();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in PrintFileHeader", "Error: Path not found"}));
    EXPECT_EQ(Design.PlotStopReason, StopReason::GridDiskError);
}

TEST_F(Svg, EndedDrawLeavesNothing) {
    Stretch(SymbolLine);
    LongLine(5000);
    DropExports();
    EXPECT_THAT(Files(), IsEmpty());
}

} // namespace
} // namespace quelmont

#include "exports/whole_draw.h"
#include "mainwindow/main_window_state.h"
#include "projection/projection_table.h"
#include "support/cgm_file.h"
#include "support/dxf_file.h"
#include "support/wmf_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Text files of a draw, one behind the other in the order in which they are drawn.
DrawnMap MapOfTexts(const std::vector<std::string>& texts) {
    DrawnMap map;
    for (const std::string& text : texts) {
        const DrawnMap part = MapOfText(text);
        map.lines.insert(map.lines.end(), part.lines.begin(), part.lines.end());
    }
    return map;
}

class ExportOfEachProjection : public WholeDraw, public testing::WithParamInterface<ProjectionEntry> {
protected:
    const Arguments projection{"--projection", std::to_string(GetParam().ProjNum)};
};

TEST_P(ExportOfEachProjection, HasTheLinesOfThePictureInEveryFormat) {
    EXPECT_GT(ExpectSameInEachFormat(projection).lines.size(), 50U);
    EXPECT_THAT(Files(), UnorderedElementsAre("map.cgm", "map.dxf", "map.svg", "map.wmf"));
}

TEST_P(ExportOfEachProjection, HasTheLinesOfThePictureAsText) {
    Draw(projection, "png");
    const std::vector<SurfaceCall> picture = machine.window.surface.Calls();
    const DrawnMap screen = Screen();
    Draw(projection, "txt");
    ExpectPicture(picture);
    if (GetParam().ProjNum == ProjInterruptedMollweide) {
        // The window has the lobes one after the other, the files the grid of all and the coasts of all.
        const auto count = [](const DrawnMap& map) {
            std::size_t points = 0;
            for (const DrawnLine& line : map.lines) {
                // Of two equal points a device may have one.
                points += line.points.size() > 2 ? line.points.size() : 0;
            }
            return points;
        };
        const DrawnMap texts = MapOfTexts({File("map-grid.txt"), File("map-Qmnt4.map.txt")});
        EXPECT_EQ(texts.lines.size(), screen.lines.size());
        EXPECT_EQ(count(texts), count(screen));
    } else {
        EXPECT_EQ(Difference(MapOfTexts({File("map-grid.txt"), File("map-Qmnt4.map.txt")}), screen), "")
            << "txt";
    }
}

INSTANTIATE_TEST_SUITE_P(All, ExportOfEachProjection, testing::ValuesIn(Projections),
                         [](const auto& test) { return "Number" + std::to_string(test.param.ProjNum); });

class ExportOfEachGrid : public WholeDraw, public testing::WithParamInterface<int> {};

TEST_P(ExportOfEachGrid, HasTheLinesAndDotsOfThePicture) {
    for (const std::int16_t projNum :
         {ProjRobinson, ProjGnomonic, ProjAzimuthalEqualArea, ProjInterruptedMollweide, ProjUtm}) {
        const Arguments arguments{"--projection", std::to_string(projNum), "--grid-type",
                                  std::to_string(GetParam()), "--no-map"};
        const std::string what = "projection " + std::to_string(projNum) + ", ";
        const DrawnMap screen = ExpectSameInEachFormat(arguments, what);
        EXPECT_EQ(screen.lines.empty(), GetParam() >= 4) << what;
        EXPECT_EQ(screen.dots.empty(), GetParam() != 1 && GetParam() != 4) << what;
    }
}

TEST_P(ExportOfEachGrid, HasItsTextFiles) {
    const Arguments arguments{"--no-map", "--grid-type", std::to_string(GetParam())};
    if (GetParam() == 5) {
        // The map has nothing that a text file could hold.
        EXPECT_THAT(Armed(arguments, folder / "map.txt"), testing::HasSubstr("no grid"));
        return;
    }
    Draw(arguments, "txt");
    const DrawnMap screen = Screen();
    switch (GetParam()) {
    case 1:
        EXPECT_THAT(Files(), UnorderedElementsAre("map-grid-points.txt", "map-grid-lines.txt"));
        EXPECT_EQ(Difference({MapOfText(File("map-grid-lines.txt")).lines, {}, {}}, {screen.lines, {}, {}}),
                  "");
        break;
    default:
        EXPECT_THAT(Files(), ElementsAre("map-grid.txt"));
    }
    if (GetParam() == 1 || GetParam() == 4) {
        std::vector<SurfacePoint> dots;
        for (const DrawnLine& line :
             MapOfText(File(GetParam() == 1 ? "map-grid-points.txt" : "map-grid.txt")).lines) {
            dots.insert(dots.end(), line.points.begin(), line.points.end());
        }
        EXPECT_EQ(Difference(dots, screen.dots), "");
    }
}

INSTANTIATE_TEST_SUITE_P(All, ExportOfEachGrid, testing::Range(1, 6),
                         [](const auto& test) { return "Type" + std::to_string(test.param); });

TEST_F(WholeDraw, MapWithNeitherGridNorFilesIsAWholeFileAllTheSame) {
    for (const char* ending : {"cgm", "dxf", "wmf", "svg"}) {
        Draw({"--grid-type", "5", "--no-map"}, ending);
    }
    EXPECT_THAT(MapOfCgm(File("map.cgm")).lines, IsEmpty());
    EXPECT_THAT(MapOfDxf(File("map.dxf")).lines, IsEmpty());
    EXPECT_THAT(MapOfWmf(File("map.wmf")).lines, IsEmpty());
    EXPECT_THAT(MapOfSvg(File("map.svg")).lines, IsEmpty());
}

TEST_F(WholeDraw, MapFilesWithoutAGrid) {
    const Arguments arguments{"--grid-type", "5"};
    const DrawnMap screen = ExpectSameInEachFormat(arguments);
    Draw(arguments, "txt");
    EXPECT_EQ(Difference(MapOfText(File("map-Qmnt4.map.txt")), screen), "");
    EXPECT_THAT(Files(),
                UnorderedElementsAre("map.cgm", "map.dxf", "map.svg", "map.wmf", "map-Qmnt4.map.txt"));
}

TEST_F(WholeDraw, NothingCrossesAMapThatIsCutInTheMiddleOfTheOcean) {
    // Around 150 W: what passes the edge goes on at the other side. No stretch of a coast is longer than a
    // tenth of the map.
    Draw({"--projection", "robinson", "--west", "30E", "--east", "30E", "--grid-type", "5"}, "dxf");
    for (const DrawnLine& line : MapOfDxf(File("map.dxf")).lines) {
        for (std::size_t i = 1; i < line.points.size(); ++i) {
            ASSERT_LT(std::abs(line.points[i].x - line.points[i - 1].x), 3200);
        }
    }
}

TEST_F(WholeDraw, GridPointsOfALaterLobeAreDotsWhateverWasDrawnBefore) {
    Draw({"--projection", "42", "--grid-type", "4", "--map", QUELMONT_PROGRAMS "/Qmnt4.map", "--symbol", "12",
          "--symbol-size", "300", "--hide", "2,3,4,5,6,7,8,9,10"},
         "cgm");
    int dots = 0;
    int circles = 0;
    for (const CgmElement& element : ReadCgm(File("map.cgm"))) {
        circles += element.name == "CIRCLE" ? 1 : 0;
        if (element.name == "POLYGON") {
            ++dots;
            // Two units each way; less at the edge of the drawing.
            ASSERT_LE(element.numbers[4] - element.numbers[0], 4);
            ASSERT_GE(element.numbers[4] - element.numbers[0], 2);
        }
    }
    EXPECT_GT(dots, 50);
    EXPECT_GT(circles, 1000);
}

TEST_F(WholeDraw, EscapeLeavesNothingAndKeepsTheEarlierFile) {
    for (const char* ending : {"cgm", "dxf", "wmf", "svg", "txt"}) {
        for (const int nth : {1, 20, 200}) {
            const std::string earlier =
                ending == std::string("txt") ? "map-Qmnt4.map.txt" : "map." + std::string(ending);
            WriteWholeFile(folder / earlier, "earlier");
            Prepare({}, folder / ("map." + std::string(ending)));
            machine.pump.At(machine.pump.calls + nth, EscapeKey);
            MapDraw();
            EXPECT_EQ(File(earlier), "earlier") << ending << " " << nth;
            EXPECT_FALSE(IsFileOpen(OutputFileNumber));
            EXPECT_FALSE(Design.OutputCgm || Design.OutputDxf || Design.OutputWmf || Design.OutputSvg ||
                         Design.OutputAscii);
            std::filesystem::remove(folder / earlier);
            // A text file of the grid is whole before the map file begins.
            std::filesystem::remove(folder / "map-grid.txt");
            EXPECT_THAT(Files(), IsEmpty()) << ending << " " << nth;
        }
    }
    EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
}

TEST_F(WholeDraw, MapFileThatFailsLeavesNoExport) {
    for (const char* ending : {"cgm", "dxf", "wmf", "svg", "txt"}) {
        Prepare({}, folder / ("map." + std::string(ending)));
        Design.InputFiles[0].MapFileName = folder / "missing.map";
        MapDraw();
        // A text file of the grid is whole before the map file begins.
        std::filesystem::remove(folder / "map-grid.txt");
        EXPECT_THAT(Files(), IsEmpty()) << ending;
        const std::vector<AskedBox> boxes = machine.boxes.Taken();
        ASSERT_EQ(boxes.size(), 1U) << ending;
        EXPECT_EQ(boxes[0].title, "File not found error in MapPlot");
        EXPECT_EQ(Design.OutputFileName, "");
    }
}

TEST_F(WholeDraw, MapFileThatIsGoneInALaterLobeLeavesNoExport) {
    for (const char* ending : {"cgm", "dxf", "wmf", "svg", "txt"}) {
        std::filesystem::copy_file(QUELMONT_PROGRAMS "/Qmnt4.map", folder / "gone.map");
        Prepare({"--projection", "42", "--map", folder / "gone.map"},
                folder / ("map." + std::string(ending)));
        // Beeps end the passes.
        machine.clock.onBeep = [&] { std::filesystem::remove(folder / "gone.map"); };
        MapDraw();
        machine.clock.onBeep = nullptr;
        EXPECT_FALSE(std::filesystem::exists(folder / "gone.map"));
        std::filesystem::remove(folder / "map-grid.txt");
        EXPECT_THAT(Files(), IsEmpty()) << ending;
        EXPECT_FALSE(machine.boxes.Taken().empty());
        EXPECT_FALSE(Design.OutputCgm || Design.OutputDxf || Design.OutputWmf || Design.OutputSvg ||
                     Design.OutputAscii);
    }
}

TEST_F(WholeDraw, FolderThatDoesNotExistIsReportedOnceAndEndsTheDraw) {
    struct Case {
        const char* ending;
        const char* title;
    };
    for (const Case& test : {Case{"cgm", "Error in CgmHeader"}, Case{"dxf", "Error in DxfHeader"},
                             Case{"wmf", "Error in SaveMetafileToDisk"},
                             Case{"svg", "Error in PrintFileHeader"}, Case{"txt", "Error in PlotGrid"}}) {
        Prepare({}, folder / ("none/map." + std::string(test.ending)));
        MapDraw();
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{test.title, "Error: Path not found"}));
        EXPECT_FALSE(MainWindowNow.MapDrawing);
    }
}

TEST_F(WholeDraw, TextsOfTheDesignEndTheFile) {
    TextItem item;
    item.TextString = "Sea";
    item.TextFont = "Arial";
    item.TextSize = 500;
    item.TextX = 16000;
    item.TextY = 11550;
    item.TextHeight = 500;
    const auto draw = [&](const std::string& ending) {
        Prepare({"--no-map"}, folder / ("map." + ending));
        Design.TextItems = {item};
        MapDraw();
        return File("map." + ending);
    };
    const std::vector<std::string> cgm = CgmBody(draw("cgm"));
    EXPECT_EQ(cgm.back().substr(0, 5), "TEXT ");
    EXPECT_EQ(cgm.back().substr(cgm.back().size() - 7), "1 'Sea'");
    const std::vector<std::string> dxf = DxfEntities(draw("dxf"));
    EXPECT_EQ(dxf.back().substr(0, 5), "TEXT ");
    EXPECT_THAT(dxf.back(), testing::HasSubstr(" 1=Sea "));
    const std::vector<std::string> wmf = ReadWmf(draw("wmf")).Texts();
    const auto text = std::find_if(wmf.begin(), wmf.end(),
                                   [](const std::string& record) { return record.starts_with("TextOut "); });
    ASSERT_NE(text, wmf.end());
    EXPECT_EQ(text->substr(text->size() - 6), " 'Sea'");
    EXPECT_EQ(std::count_if(text, wmf.end(),
                            [](const std::string& record) { return record.starts_with("Polyline"); }),
              0);
}

} // namespace
} // namespace quelmont

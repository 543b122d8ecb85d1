#include "commandline/design_options.h"
#include "commandline/draw_options.h"
#include "commandline/export_output.h"
#include "core/core_state.h"
#include "core/error_box.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "exports/drawn_lines.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/start_up.h"
#include "output/device_pen.h"
#include "output/dxf/dxf_color.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "projection/projection_table.h"
#include "support/cgm_file.h"
#include "support/fresh_program.h"
#include "support/temporary_folder.h"

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

const FreshRoom FreshOutput([] {
    ResetDevicePen();
    DropExports();
    Writers() = {};
});

using Arguments = std::vector<std::string>;

/// Whole draws in a window whose pixels are as fine as logical units, so that what the window was asked to
/// draw is a measure for what a file holds.
class WholeDraw : public FreshProgramTest {
protected:
    WholeDraw() {
        machine.screen.twipsPerPixelX = 1.0F;
        machine.screen.twipsPerPixelY = 1.0F;
        machine.screen.fullScreenX = 32000;
        machine.screen.fullScreenY = 23100;
        machine.window.scaleWidth = 32000.0;
        machine.window.scaleHeight = 23100.0;
        machine.places.programFolder = QUELMONT_PROGRAMS "/";
    }

    /// Everything before the draw, as quelmont-draw does it.
    void Prepare(Arguments arguments, const std::string& output) {
        ResetCore();
        ResetDrawBoxes();
        machine.window.surface.Forget();
        arguments.push_back(output);
        const auto options = ReadDrawOptions(arguments, "3.00");
        ASSERT_TRUE(std::holds_alternative<DrawOptions>(options));
        StartUp();
        ASSERT_TRUE(ApplyOptions(std::get<DrawOptions>(options)));
        ASSERT_EQ(ArmExport(output), "");
    }

    /// Draws to a file of that ending; what the window was asked to draw is in Screen().
    void Draw(const Arguments& arguments, const std::string& ending) {
        Prepare(arguments, folder / ("map." + ending));
        MapDraw();
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
        EXPECT_FALSE(IsFileOpen(InputFileNumber));
        EXPECT_FALSE(IsFileOpen(OutputFileNumber));
        EXPECT_FALSE(Design.OutputCgm || Design.OutputDxf || Design.OutputWmf || Design.OutputAscii);
    }
    /// The same stretches with the same pens. (Printing what differs would take longer than the draws.)
    void ExpectPicture(const std::vector<RecordedSegment>& picture) {
        EXPECT_TRUE(machine.window.surface.Segments() == picture) << "an export changes the picture";
    }
    DrawnMap Screen() { return MapOfSurface(machine.window.surface); }
    std::string File(const std::string& name) const { return ReadWholeFile(folder / name); }

    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    TemporaryFolder folder;
};

/// Within what the roundings of pixels, logical units and their origins can make. A lone point is two equal
/// ones in some of the files and may come near one that moved less than that.
constexpr int Tolerance = 3;

bool Near(SurfacePoint a, SurfacePoint b) {
    return std::abs(a.x - b.x) <= Tolerance && std::abs(a.y - b.y) <= Tolerance;
}

std::string Text(SurfacePoint point) { return std::to_string(point.x) + " " + std::to_string(point.y); }

void ExpectSamePoints(const std::vector<SurfacePoint>& file, const std::vector<SurfacePoint>& screen,
                      const std::string& what) {
    ASSERT_EQ(file.size(), screen.size()) << what;
    for (std::size_t i = 0; i < file.size(); ++i) {
        ASSERT_TRUE(Near(file[i], screen[i]))
            << what << ", point " << i << ": " << Text(file[i]) << " and " << Text(screen[i]);
    }
}

/// Two points that round to one on the other device.
void TakeAsOne(std::vector<SurfacePoint>& line, const std::vector<SurfacePoint>& other) {
    if (line.size() == 2 && other.size() == 1 && Near(line[0], line[1])) {
        line.pop_back();
    }
}

void ExpectSameMap(const DrawnMap& file, const DrawnMap& screen, const std::string& what) {
    ASSERT_EQ(file.lines.size(), screen.lines.size()) << what;
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
        const std::string line = what + ", line " + std::to_string(i);
        std::vector<SurfacePoint> written = file.lines[i].points;
        std::vector<SurfacePoint> drawn = screen.lines[i].points;
        TakeAsOne(written, drawn);
        TakeAsOne(drawn, written);
        ASSERT_NO_FATAL_FAILURE(ExpectSamePoints(written, drawn, line));
    }
    ExpectSamePoints(file.dots, screen.dots, what + ", dots");
}

void ExpectSameColors(const DrawnMap& file, const DrawnMap& screen) {
    ASSERT_EQ(file.lines.size(), screen.lines.size());
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
        if (!screen.lines[i].color.empty()) {
            ASSERT_EQ(file.lines[i].color, screen.lines[i].color) << "line " << i;
        }
    }
}

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
    Draw(projection, "png");
    const std::vector<RecordedSegment> picture = machine.window.surface.Segments();
    const DrawnMap screen = Screen();
    ASSERT_GT(screen.lines.size(), 50U);

    Draw(projection, "cgm");
    ExpectPicture(picture);
    const DrawnMap cgm = MapOfCgm(File("map.cgm"));
    ExpectSameMap(cgm, screen, "cgm");
    ExpectSameColors(cgm, screen);

    Draw(projection, "dxf");
    ExpectPicture(picture);
    ExpectSameMap(MapOfDxf(File("map.dxf")), screen, "dxf");

    Draw(projection, "wmf");
    ExpectPicture(picture);
    const DrawnMap wmf = MapOfWmf(File("map.wmf"));
    ExpectSameMap(wmf, screen, "wmf");
    ExpectSameColors(wmf, screen);

    EXPECT_THAT(Files(), UnorderedElementsAre("map.cgm", "map.dxf", "map.wmf"));
}

TEST_P(ExportOfEachProjection, HasTheLinesOfThePictureAsText) {
    Draw(projection, "png");
    const std::vector<RecordedSegment> picture = machine.window.surface.Segments();
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
        ExpectSameMap(MapOfTexts({File("map-grid.txt"), File("map-Qmnt4.map.txt")}), screen, "txt");
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
        Draw(arguments, "cgm");
        const DrawnMap screen = Screen();
        EXPECT_EQ(screen.lines.empty(), GetParam() >= 4) << what;
        EXPECT_EQ(screen.dots.empty(), GetParam() != 1 && GetParam() != 4) << what;
        ExpectSameMap(MapOfCgm(File("map.cgm")), screen, what + "cgm");
        Draw(arguments, "dxf");
        ExpectSameMap(MapOfDxf(File("map.dxf")), screen, what + "dxf");
        Draw(arguments, "wmf");
        ExpectSameMap(MapOfWmf(File("map.wmf")), screen, what + "wmf");
    }
}

TEST_P(ExportOfEachGrid, HasItsTextFiles) {
    Draw({"--no-map", "--grid-type", std::to_string(GetParam())}, "txt");
    const DrawnMap screen = Screen();
    switch (GetParam()) {
    case 1:
        EXPECT_THAT(Files(), UnorderedElementsAre("map-grid-points.txt", "map-grid-lines.txt"));
        ExpectSameMap({MapOfText(File("map-grid-lines.txt")).lines, {}}, {screen.lines, {}}, "lines");
        break;
    case 5:
        EXPECT_THAT(Files(), IsEmpty());
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
        ExpectSamePoints(dots, screen.dots, "dots");
    }
}

INSTANTIATE_TEST_SUITE_P(All, ExportOfEachGrid, testing::Range(1, 6),
                         [](const auto& test) { return "Type" + std::to_string(test.param); });

TEST_F(WholeDraw, MapWithNeitherGridNorFilesIsAWholeFileAllTheSame) {
    for (const char* ending : {"cgm", "dxf", "wmf"}) {
        Draw({"--grid-type", "5", "--no-map"}, ending);
    }
    EXPECT_THAT(MapOfCgm(File("map.cgm")).lines, IsEmpty());
    EXPECT_THAT(MapOfDxf(File("map.dxf")).lines, IsEmpty());
    EXPECT_THAT(MapOfWmf(File("map.wmf")).lines, IsEmpty());
}

TEST_F(WholeDraw, MapFilesWithoutAGrid) {
    Draw({"--grid-type", "5"}, "cgm");
    ExpectSameMap(MapOfCgm(File("map.cgm")), Screen(), "cgm");
    Draw({"--grid-type", "5"}, "txt");
    EXPECT_THAT(Files(), UnorderedElementsAre("map.cgm", "map-Qmnt4.map.txt"));
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
    for (const char* ending : {"cgm", "dxf", "wmf", "txt"}) {
        for (const int nth : {1, 20, 200}) {
            const std::string earlier =
                ending == std::string("txt") ? "map-Qmnt4.map.txt" : "map." + std::string(ending);
            WriteWholeFile(folder / earlier, "earlier");
            Prepare({}, folder / ("map." + std::string(ending)));
            machine.pump.At(machine.pump.calls + nth, EscapeKey);
            MapDraw();
            EXPECT_EQ(File(earlier), "earlier") << ending << " " << nth;
            EXPECT_FALSE(IsFileOpen(OutputFileNumber));
            EXPECT_FALSE(Design.OutputCgm || Design.OutputDxf || Design.OutputWmf || Design.OutputAscii);
            std::filesystem::remove(folder / earlier);
            // A text file of the grid is whole before the map file begins.
            std::filesystem::remove(folder / "map-grid.txt");
            EXPECT_THAT(Files(), IsEmpty()) << ending << " " << nth;
        }
    }
    EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
}

TEST_F(WholeDraw, MapFileThatFailsLeavesNoExport) {
    for (const char* ending : {"cgm", "dxf", "wmf"}) {
        Prepare({}, folder / ("map." + std::string(ending)));
        Design.InputFiles[0].MapFileName = folder / "missing.map";
        MapDraw();
        EXPECT_THAT(Files(), IsEmpty()) << ending;
        const std::vector<AskedBox> boxes = machine.boxes.Taken();
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0].title, "File not found error in MapPlot");
    }
}

TEST_F(WholeDraw, FolderThatDoesNotExistIsToldOnceAndEndsTheDraw) {
    struct Case {
        const char* ending;
        const char* title;
    };
    for (const Case& test : {Case{"cgm", "Error in CgmHeader"}, Case{"dxf", "Error in DxfHeader"},
                             Case{"wmf", "Error in SaveMetafileToDisk"}, Case{"txt", "Error in PlotGrid"}}) {
        Prepare({}, folder / ("none/map." + std::string(test.ending)));
        MapDraw();
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{test.title, "Error: Path not found"}));
        EXPECT_FALSE(Design.MapDrawing);
    }
}

TEST_F(WholeDraw, TextsOfTheDesignEndTheFile) {
    Prepare({"--no-map"}, folder / "map.cgm");
    TextItem item;
    item.TextString = "Sea";
    item.TextX = 16000;
    item.TextY = 11550;
    item.TextHeight = 500;
    Design.TextItems = {item};
    MapDraw();
    const std::vector<std::string> elements = CgmBody(File("map.cgm"));
    EXPECT_EQ(elements.back().substr(0, 5), "TEXT ");
    EXPECT_EQ(elements.back().substr(elements.back().size() - 7), "1 'Sea'");
}

} // namespace
} // namespace quelmont

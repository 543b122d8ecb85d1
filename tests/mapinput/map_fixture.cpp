#include "map_fixture.h"

#include "core/angle_text.h"
#include "core/constant_defs.h"
#include "core/file_numbers.h"
#include "graticule/calc_graticule.h"
#include "graticule/lobes.h"
#include "graticule/utm_grid.h"
#include "mapfiles/feature_rows.h"
#include "mapinput/map_plot.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/scale_screen.h"
#include "projection/param_select.h"
#include "projection/param_std_parallel.h"
#include "projection/utm.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace quelmont {

namespace {

std::string Angle(double degrees, std::string_view kind) {
    std::string text;
    DegMinSec(degrees, text, kind, 4);
    return text;
}

} // namespace

TruePlace Degrees(double lat, double lon) {
    return {static_cast<std::int32_t>(std::lround(lat * SecPerDegree)),
            static_cast<std::int32_t>(std::lround(lon * SecPerDegree))};
}

std::ostream& operator<<(std::ostream& stream, const PlottedPoint& point) {
    return stream << (point.move ? "move to " : "draw to ") << point.lat << ", " << point.lon;
}

void LineRecorder::OpenStretch(std::size_t /*slot*/) {
    if (ArmedExport() == Export::Dxf) {
        ResumeExport(Design.DxfFileName);
    }
}

void LineRecorder::Point() {
    points.push_back({Design.PointStatus == PointBeginsLine || Design.LineStart == LineMoves, Design.ProjLat,
                      Design.ProjLon, Design.ProjX, Design.ProjY});
    ++Design.PointCount;
}

std::vector<PlottedStroke> LineRecorder::Strokes() const {
    std::vector<PlottedStroke> strokes;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (!points[i].move) {
            strokes.push_back({points[i - 1], points[i]});
        }
    }
    return strokes;
}

std::string Record(int code, int lat, int lon) {
    std::string bytes;
    for (const int number : {code, lat, lon}) {
        bytes += static_cast<char>(number & 0xFF);
        bytes += static_cast<char>((number >> 8) & 0xFF);
    }
    return bytes;
}

std::string Line(int rank, const std::vector<Minutes>& places) {
    std::string bytes;
    int code = rank * 1000;
    for (const Minutes& place : places) {
        bytes += Record(code, place.lat, place.lon);
        code = 0;
    }
    return bytes;
}

MapTest::MapTest() {
    Writers().wmf = &recorder;
    ConstantDefs();
    ConstantGrid();
    Design.MapFileCount = 0;
    Design.LobeFirst = true;
    Design.LobeLast = true;
    WholeWorld(ProjEquirectangular);
}

MapTest::~MapTest() = default;

void MapTest::Finish(std::int16_t projNum) {
    ParamStdParallel();
    ParamSelect();
    ScaleScreen();
    SelectDevice();
    Design.CurrentSymbolType = SymbolLine;
    StartRecording();
    ASSERT_EQ(Design.ProjNum, projNum);
    ASSERT_TRUE(machine.boxes.asked.empty()) << machine.boxes.asked.front();
}

void MapTest::StartRecording() {
    Design.OutputWmf = true;
    Design.WmfFileName = "recorded.wmf";
    Design.OutputFileName = Design.WmfFileName;
}

void MapTest::Rectangle(std::int16_t projNum, double north, double south, double west, double east) {
    Design.ProjNum = projNum;
    Design.GridText[GridTextNorth] = Angle(north, "LAT");
    Design.GridText[GridTextSouth] = Angle(south, "LAT");
    Design.GridText[GridTextLatSpacing] = Angle((north - south) / 3.0, "ARC");
    Design.GridText[GridTextWest] = Angle(west, "LON");
    Design.GridText[GridTextEast] = Angle(east, "LON");
    Design.GridText[GridTextLonSpacing] =
        Angle((east > west ? east - west : east - west + 360.0) / 3.0, "ARC");
    CalcGraticule();
    Finish(projNum);
}

void MapTest::Circle(std::int16_t projNum, double centreLat, double centreLon, double range) {
    Design.ProjNum = projNum;
    ConstantGrid();
    Design.GridText[GridTextCentralLat] = Angle(centreLat, "LAT");
    Design.GridText[GridTextCentralLon] = Angle(centreLon, "LON");
    Design.GridText[GridTextRange] = Angle(range, "ARC");
    CalcGraticule();
    Finish(projNum);
}

void MapTest::Zone(std::int32_t north, std::int32_t south, std::int32_t west, std::int32_t east) {
    Design.ProjNum = ProjUtm;
    Design.UtmText[UtmTextNorth] = std::to_string(north);
    Design.UtmText[UtmTextSouth] = std::to_string(south);
    Design.UtmText[UtmTextNorthingSpacing] = std::to_string(north - south);
    Design.UtmText[UtmTextWest] = std::to_string(west);
    Design.UtmText[UtmTextEast] = std::to_string(east);
    Design.UtmText[UtmTextEastingSpacing] = std::to_string(east - west);
    CalcUtmZone();
    CalcUtmGrid();
    Finish(ProjUtm);
}

void MapTest::Lobe(double west, double east) {
    WholeWorld(ProjInterruptedMollweide);
    Design.LobeText[LobeTextCountNorth] = "0";
    Design.LobeText[LobeTextCountSouth] = "0";
    Design.LobeLonText[0] = Angle(west, "LON");
    Design.LobeLonText[1] = Angle(east, "LON");
    CalcGraticuleInterrupt(1);
    ASSERT_TRUE(machine.boxes.asked.empty()) << machine.boxes.asked.front();
}

void MapTest::Draw(const std::vector<TruePlace>& line) {
    road.BeginFile();
    GoOn(line);
}

void MapTest::GoOn(const std::vector<TruePlace>& line) {
    bool first = true;
    for (const TruePlace& place : line) {
        Design.PointLatSec = place.lat;
        Design.PointLonSec = place.lon;
        road.TestBounds();
        if (first) {
            road.StartNewLine();
        }
        first = false;
        ASSERT_TRUE(road.PlotStep());
    }
}

InputFileEntry& MapTest::AddFile(const std::string& name, std::string_view contents) {
    files.Put(name, contents);
    Design.InputFiles.push_back(NewMapFileEntry(name));
    Design.MapFileCount = static_cast<std::int16_t>(Design.InputFiles.size());
    return Design.InputFiles.back();
}

void MapTest::PressEscape() {
    CloseFile(InputFileNumber);
    CloseFile(OutputFileNumber);
    Design.OutputWmf = false;
    Design.OutputFileName.clear();
    Design.PlotStopReason = StopReason::Escape;
}

void ReaderTest::Plot(const std::string& name, const std::string& contents) {
    Design.InputFiles.clear();
    AddFile(name, contents);
    PlotList();
}

void ReaderTest::PlotList() {
    recorder.points.clear();
    surface.Forget();
    Design.Statistics = {};
    StartRecording();
    MapPlot();
}

std::vector<std::pair<double, double>> ReaderTest::PlottedPlaces() const {
    std::vector<std::pair<double, double>> places;
    for (const PlottedPoint& point : recorder.points) {
        places.emplace_back(point.lat, point.lon - 180.0);
    }
    return places;
}

std::size_t ReaderTest::Moves() const {
    return static_cast<std::size_t>(std::count_if(recorder.points.begin(), recorder.points.end(),
                                                  [](const PlottedPoint& point) { return point.move; }));
}

void ReaderTest::ExpectCleanEnd() {
    EXPECT_EQ(machine.boxes.asked.size(), 0U)
        << (machine.boxes.asked.empty() ? "" : machine.boxes.asked.front().text);
    EXPECT_FALSE(IsFileOpen(InputFileNumber));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    EXPECT_EQ(surface.LiveObjects(), 0);
    machine.boxes.asked.clear();
}

void ReaderTest::ExpectError(const std::string& description) {
    const std::vector<AskedBox> boxes = machine.boxes.Taken();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0], (AskedBox{"Error in MapPlot",
                                  "Error: " + description + "\n" + Design.InputFiles.back().MapFileName}));
    ExpectCleanEnd();
}

double LatSeconds(const PlottedPoint& point) { return point.lat * SecPerDegree; }
double LonSeconds(const PlottedPoint& point) { return point.lon * SecPerDegree; }

} // namespace quelmont

#include "mainwindow/started_program.h"

#include "core/file_numbers.h"
#include "graticule/calc_graticule.h"
#include "graticule/lobes.h"
#include "graticule/utm_grid.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/start_up.h"
#include "projection/param_select.h"
#include "projection/param_std_parallel.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <array>
#include <cstdlib>

namespace quelmont {

namespace {

/// A record of a minute-grid file: code, latitude and longitude in minutes, low bytes first.
std::string MinuteGridRecord(int code, int lat, int lon) {
    std::string bytes;
    for (const int number : {code, lat, lon}) {
        bytes += static_cast<char>(number & 0xFF);
        bytes += static_cast<char>((number >> 8) & 0xFF);
    }
    return bytes;
}

std::string LongitudeText(int degrees) {
    return std::to_string(1000 + std::abs(degrees)).substr(1) + "    00    00    " +
           (degrees < 0 ? "W" : "E");
}

/// Two interruptions in each hemisphere of a map from 20 E all round the world.
void AcceptLobes() {
    const std::array<int, 8> boundaries = {20, 100, -100, 20, 20, 140, -70, 20};
    Design.LobeText = {"2", "2", LongitudeText(20)};
    Design.LobeText[LobeTextNorth] = LongitudeText(100);
    Design.LobeText[LobeTextNorth + 1] = LongitudeText(-100);
    Design.LobeText[LobeTextSouth] = LongitudeText(140);
    Design.LobeText[LobeTextSouth + 1] = LongitudeText(-70);
    for (std::size_t i = 0; i < boundaries.size(); ++i) {
        Design.LobeLonText[i] = LongitudeText(boundaries[i]);
        Design.LobeLonDeg[i] = boundaries[i];
    }
    LonInterruptOffset();
}

/// What the projection's dialog puts in place of the defaults.
void ProposeBounds(std::int16_t projNum) {
    ConstantGrid();
    switch (projNum) {
    case ProjMercator:
        Design.GridText[GridTextNorth] = "80    00    00    N";
        Design.GridText[GridTextSouth] = "80    00    00    S";
        Design.GridText[GridTextLatSpacing] = "020    00    00";
        break;
    case ProjConformalConic:
        Design.GridText[GridTextSouth] = "60    00    00    S";
        break;
    case ProjGnomonic:
        Design.GridText[GridTextRange] = "060    00    00";
        break;
    case ProjStereographic:
    case ProjOrthographic:
        Design.GridText[GridTextRange] = "090    00    00";
        break;
    case ProjInterruptedMollweide:
        Design.GridText[GridTextLatSpacing] = "010    00    00";
        Design.GridText[GridTextWest] = "020    00    00    E";
        Design.GridText[GridTextEast] = "020    00    00    E";
        Design.GridText[GridTextLonSpacing] = "010    00    00";
        break;
    default:
        break;
    }
}

} // namespace

StartedProgram::StartedProgram() {
    PutMap(8);
    StartUp();
    objectsBefore = surface.LiveObjects();
}

void StartedProgram::PutMap(int records) {
    std::string bytes;
    for (int i = 0; i < records; ++i) {
        // A zigzag about the equator in steps of ten degrees, begun anew at the western edge.
        const int step = i % 36;
        bytes +=
            MinuteGridRecord(step == 0 ? 1000 : 0, (step % 2 == 0 ? 20 : -20) * 60, (step * 10 - 175) * 60);
    }
    files.Put("/program/Qmnt4.map", bytes);
}

void StartedProgram::ExpectIdle(const std::string& caption) {
    for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
        EXPECT_EQ(window.MenuEnabled(Menu::mnuBar, entry.index), entry.text != "&Stop") << entry.text;
    }
    EXPECT_EQ(window.Caption(), caption);
    EXPECT_EQ(window.pointer, MousePointer::Normal);
    EXPECT_FALSE(window.autoRedraw);
    EXPECT_FALSE(MainWindowNow.MapDrawing);
    EXPECT_EQ(Design.PlotStopReason, StopReason::None);
    EXPECT_EQ(Design.LobeOffsetX, 0.0);
    EXPECT_EQ(Design.PenWidth, 1);
    EXPECT_FALSE(Design.OutputAscii || Design.OutputCgm || Design.OutputDxf || Design.OutputWmf ||
                 Design.OutputSvg);
    EXPECT_FALSE(IsFileOpen(InputFileNumber));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    EXPECT_EQ(surface.LiveObjects(), objectsBefore);
}

void AcceptProjection(std::int16_t projNum) {
    Design.ProjNum = projNum;
    Design.ProjName = FindProjection(projNum)->ProjName;
    ProposeBounds(projNum);
    if (projNum == ProjUtm) {
        CalcUtmZone();
        CalcUtmGrid();
    } else {
        CalcGraticule();
    }
    ParamStdParallel();
    if (projNum == ProjInterruptedMollweide) {
        AcceptLobes();
    }
    ParamSelect();
}

std::vector<std::string> Told(const std::vector<AskedBox>& boxes) {
    std::vector<std::string> told;
    for (const AskedBox& box : boxes) {
        told.push_back(box.title + ": " + box.text);
    }
    return told;
}

} // namespace quelmont

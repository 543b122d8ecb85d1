#include "mainwindow/started_program.h"

#include "core/file_numbers.h"
#include "graticule/calc_graticule.h"
#include "graticule/utm_grid.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/start_up.h"
#include "mapinput/map_fixture.h"
#include "projection/param_select.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

namespace quelmont {

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
        bytes += Record(step == 0 ? 1000 : 0, (step % 2 == 0 ? 20 : -20) * 60, (step * 10 - 175) * 60);
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
    EXPECT_FALSE(Design.MapDrawing);
    EXPECT_EQ(Design.PlotStopReason, "");
    EXPECT_EQ(Design.LobeOffsetX, 0.0);
    EXPECT_EQ(Design.PenWidth, 1);
    EXPECT_FALSE(Design.OutputAscii || Design.OutputCgm || Design.OutputDxf || Design.OutputWmf);
    EXPECT_FALSE(IsFileOpen(InputFileNumber));
    EXPECT_FALSE(IsFileOpen(OutputFileNumber));
    EXPECT_EQ(surface.LiveObjects(), objectsBefore);
}

void AcceptProjection(std::int16_t projNum) {
    Design.ProjNum = projNum;
    Design.ProjName = FindProjection(projNum)->ProjName;
    ConstantGrid();
    if (projNum == ProjMercator) {
        Design.GridText[0] = "80    00    00    N";
        Design.GridText[1] = "80    00    00    S";
        Design.GridText[2] = "020    00    00";
    } else if (projNum == ProjInterruptedMollweide) {
        Design.GridText[5] = "010    00    00";
    }
    if (projNum == ProjUtm) {
        CalcUtmZone();
        CalcUtmGrid();
    } else {
        CalcGraticule();
    }
    ParamStdParallel();
    if (projNum == ProjInterruptedMollweide) {
        Design.LobeText = {"2",
                           "2",
                           "180    00    00    W",
                           "100    00    00    W",
                           "040    00    00    E",
                           "000    00    00    E",
                           "070    00    00    W",
                           "020    00    00    E",
                           "000    00    00    E"};
        const std::vector<int> boundaries = {-180, -100, 40, 180, -180, -70, 20, 180};
        for (std::size_t i = 0; i < boundaries.size(); ++i) {
            const int degrees = boundaries[i];
            const std::string digits = std::to_string(1000 + std::abs(degrees)).substr(1);
            Design.LobeLonText[i] = digits + "    00    00    " + (degrees < 0 ? "W" : "E");
            Design.LobeLonDeg[i] = degrees;
            Design.LobeLonSec[i] = degrees * SecPerDegree;
        }
        LonInterruptOffset();
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

#include "graticule/grid_fixture.h"

#include "core/map_design.h"
#include "graticule/calc_graticule.h"
#include "graticule/grid_texts.h"
#include "graticule/plot_grid.h"
#include "graticule/utm_grid.h"
#include "output/ascii/ascii_writer.h"
#include "output/scale_screen.h"
#include "projection/param_select.h"
#include "projection/param_std_parallel.h"
#include "projection/utm.h"

namespace quelmont {

void LineRecorder::OpenStretch(std::size_t slot) {
    if (ArmedExport() == Export::Ascii) {
        AsciiWriter().OpenStretch(slot);
    }
}

void LineRecorder::Point() {
    const WrittenPoint point{Design.ProjX, Design.ProjY, Design.ProjLat, Design.ProjLon};
    if (Design.CurrentSymbolType == SymbolDot) {
        dots.push_back(point);
        return;
    }
    if (!open || Design.PointStatus == PointBeginsLine) {
        lines.emplace_back();
        open = true;
    }
    lines.back().push_back(point);
}

void LineRecorder::LineBreak() {
    ++breaks;
    open = false;
}

void LineRecorder::Forget() {
    headers = 0;
    breaks = 0;
    lines.clear();
    dots.clear();
    open = false;
}

void PrepareDesign() {
    if (Design.ProjNum == ProjUtm) {
        CalcUtmZone();
        CalcUtmGrid();
    } else {
        CalcGraticule();
        ParamStdParallel();
    }
    ParamSelect();
    ScaleScreen();
    Design.LobeFirst = true;
    Design.LobeLast = true;
}

GridTest::GridTest() = default;
GridTest::~GridTest() = default;

void GridTest::Start(std::int16_t projNum, std::int16_t gridTypeCode) {
    StartDesign(projNum);
    Design.GridTypeCode = gridTypeCode;
    if (projNum == ProjMercator) {
        Design.GridText[GridTextNorth] = "80    00    00    N";
        Design.GridText[GridTextSouth] = "80    00    00    S";
        Design.GridText[GridTextLatSpacing] = "020    00    00";
    } else if (projNum == ProjConformalConic) {
        Design.GridText[GridTextSouth] = "60    00    00    S";
    } else if (projNum == ProjGnomonic) {
        Design.GridText[GridTextRange] = "060    00    00";
    } else if (projNum == ProjStereographic || projNum == ProjOrthographic) {
        Design.GridText[GridTextRange] = "090    00    00";
    }
    PrepareDesign();
}

void GridTest::PlotRecorded() {
    recorder.Forget();
    surface.Forget();
    Design.OutputWmf = true;
    PlotGrid();
    Design.OutputWmf = false;
}

} // namespace quelmont

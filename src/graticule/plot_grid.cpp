#include "graticule/plot_grid.h"

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "graticule/grid_clip.h"
#include "graticule/grid_density.h"
#include "graticule/grid_lines.h"
#include "graticule/grid_pass.h"
#include "output/device_pen.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "output/page_scale.h"
#include "output/print/scale_printer.h"
#include "platform/machine.h"
#include "projection/projection_table.h"

#include <cmath>
#include <cstddef>
#include <vector>

namespace quelmont {

namespace {

constexpr const char* Routine = "PlotGrid";
/// Sites of the pens in the routine, as its messages name them.
constexpr int SiteBackground = 1;
constexpr int SiteGrid = 2;
constexpr int SiteRelease = 3;
constexpr int SiteError = 4;

/// A rectangle of the background colour over the whole drawing area and its margins; on paper a little larger
/// than the box of the map, to which the page is clipped.
void PaintBackground() {
    DrawSurface& surface = *Design.Surface;
    const SurfaceHandle brush = surface.CreateSolidBrush(ColorBits(Design.BackColor));
    ReportUnless(brush != 0, "CreateSolidBrush(1) error in PlotGrid");
    const SurfaceHandle before = brush == 0 ? 0 : surface.SelectObject(brush);
    MakeDevicePen(PenStyleNull, 1, Design.BackColor, SiteBackground, Routine);
    if (Design.LobeFirst && Design.PrintingNow) {
        const MapOnPage map = BoxOfMapOnPage();
        ReportUnless(surface.Rectangle(map.left - 1, map.top - 1, map.right + 3, map.bottom + 3),
                     "Rectangle(2) error in PlotGrid");
    } else if (Design.LobeFirst) {
        ReportUnless(surface.Rectangle(-Design.LogicalMarginX, -Design.LogicalMarginY,
                                       Design.LogicalWidth + Design.LogicalMarginX,
                                       Design.LogicalHeight + Design.LogicalMarginY),
                     "Rectangle(1) error in PlotGrid");
    }
    if (before != 0) {
        surface.SelectObject(before);
    }
    ReportUnless(brush == 0 || surface.DeleteObject(brush), "DeleteObject(0) error in PlotGrid");
}

void MakeGridPen() {
    ReleaseDevicePen(SiteBackground, Routine);
    Design.PenColor = Design.GridColor;
    TakePenWidth(Design.GridLineWidth);
    MakeLinePen(Design.PenColor, SiteGrid, Routine);
}

/// The circle is laid straight on the map frame, every third degree. False when it is all that the
/// pass draws.
bool BoundaryCircle(const GridPass& pass) {
    const bool outerParallelServes = std::fabs(Design.LatCentral) == 90.0 &&
                                     Remainder(Design.RangeSec, Design.LatGridSec) == 0 &&
                                     Design.ProjNum != ProjVerticalPerspective && Design.GridTypeCode == 3 &&
                                     Design.RangeSec < SecPerHalfCircle;
    const bool lines = Design.CurrentSymbolType == SymbolLine;
    if (outerParallelServes || (!lines && Design.GridTypeCode != 4)) {
        return true;
    }
    Design.LineStart = LineMoves;
    for (int angle = 0; angle <= 360; angle += 3) {
        Design.ProjX = Design.MapXMax * std::cos(angle * DegToRad);
        Design.ProjY = Design.MapXMax * std::sin(angle * DegToRad);
        PlotProjected(pass);
    }
    if (pass.DiskOut) {
        PrintLineBrkDisk();
    }
    return !lines || (Design.GridTypeCode != 1 && Design.GridTypeCode != 2);
}

/// One run of the plotting routine; slot counts the grid's names in AsciiFileName from 1. False when
/// Escape was pressed; file number 2 is the business of the draw cycle then.
bool RunPass(SymbolType mode, const GridSteps& steps, std::size_t slot) {
    GridPass pass;
    pass.steps = steps;
    pass.LonList.assign(1, 0.0);
    Design.CurrentSymbolType = mode;
    Design.PointStatus = PointContinues;
    if (mode == SymbolDot) {
        // Whatever feature was drawn before.
        Design.SymbolRadiusFile = 2;
        Design.BorderWidthFile = 1;
        // A device pixel alone could hardly be seen where pixels are small.
        Design.DotPixels = DeviceDotPixels(Machine().screen->PixelRatio());
    }
    pass.DiskOut = OpenExport(slot);
    BeginFilePart(MapPart::Grid, mode == SymbolDot ? "Grid points" : "Grid");
    pass.ClipLatMax = Design.LatNorth;
    pass.ClipLatMin = Design.LatSouth;
    pass.ClipLonMax = Design.LonSpan;
    pass.ClipLonMin = Design.LonZero;
    bool more = true;
    if (IsAzimuthal(Design.ProjNum)) {
        CalcCircleReach(pass);
        more = BoundaryCircle(pass);
    }
    if (more && (!Parallels(pass) || !Meridians(pass))) {
        return false;
    }
    CloseExport();
    return true;
}

struct PlannedPass {
    SymbolType mode;
    GridSteps steps;
    std::size_t slot; ///< of the pass's name in AsciiFileName, from 1
};

/// What a grid type draws, in this order.
std::vector<PlannedPass> PlannedPasses() {
    const double latPoints = LatPointsPerMark();
    const double lonPoints = LonPointsPerMark();
    const double latStep = Divide(Design.LatGrid, latPoints);
    const double lonStep = Divide(Design.LonGrid, lonPoints);
    const GridSteps boundary{Design.LatNorth - Design.LatSouth, Design.LonSpan - Design.LonZero, latStep,
                             lonStep};
    const GridSteps lines{Design.LatGrid, Design.LonGrid, latStep, lonStep};
    const GridSteps points{Design.LatGrid, Design.LonGrid, Design.LatGrid, Design.LonGrid};
    switch (Design.GridTypeCode) {
    case 1:
        return {{SymbolLine, boundary, 2}, {SymbolDot, points, 1}};
    case 2:
        return {{SymbolLine, boundary, 1}};
    case 3:
        return {{SymbolLine, lines, 1}};
    case 4:
        return {{SymbolDot, points, 1}};
    default:
        return {};
    }
}

void RunPasses() {
    for (const PlannedPass& pass : PlannedPasses()) {
        if (!RunPass(pass.mode, pass.steps, pass.slot)) {
            return;
        }
    }
}

/// Lines, and points of each, from one side to the other.
double LinesTimesPoints(double across, double lineStep, double along, double pointStep) {
    return (Divide(across, lineStep) + 1.0) * (Divide(along, pointStep) + 1.0);
}

} // namespace

double GridPointEstimate() {
    const double height = Design.LatNorth - Design.LatSouth;
    const double width = Design.LonSpan - Design.LonZero;
    double points = 0.0;
    for (const PlannedPass& pass : PlannedPasses()) {
        const GridSteps& steps = pass.steps;
        points += LinesTimesPoints(height, steps.LatLineStep, width, steps.LonPointStep);
        points += LinesTimesPoints(width, steps.LonLineStep, height, steps.LatPointStep);
    }
    return points;
}

void PlotGrid(const std::function<void()>& ground) {
    int releaseSite = SiteRelease;
    try {
        if (Design.LobeFirst) {
            Design.OutputFileName.clear();
        }
        Design.UtmPointPath = false;
        PrintFileHeader();
        if (Design.PlotStopReason != StopReason::GridDiskError) {
            SelectDevice();
            PaintBackground();
            if (ground) {
                ground();
            }
            MakeGridPen();
            if (!ground || Design.PlotStopReason == StopReason::None) {
                RunPasses();
            }
        }
    } catch (const RunTimeError& error) {
        Design.PlotStopReason = StopReason::GridDiskError;
        ShowErrorBox(Routine, error);
        releaseSite = SiteError;
        Guarded(Routine, CloseExport);
    }
    ReleaseDevicePen(releaseSite, Routine);
}

} // namespace quelmont

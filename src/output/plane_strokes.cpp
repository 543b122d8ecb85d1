#include "output/plane_strokes.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/device_pen.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "output/page_scale.h"
#include "output/print_to_screen.h"
#include "output/without_ascii.h"
#include "platform/draw_surface.h"

namespace quelmont {

namespace {

/// Sites of the pen in a routine, as its messages name them.
constexpr int SiteLine = 1;
constexpr int SiteEnd = 2;

void PlotPlace(const PlanePoint& place, bool first, bool toFile) {
    Design.ProjX = place.x;
    Design.ProjY = place.y;
    Design.PointStatus = first ? PointBeginsLine : PointContinues;
    PrintToScreen();
    if (toFile) {
        ScaleXY();
    }
}

void PlotStroke(const PlaneStroke& stroke, bool toFile) {
    bool first = true;
    for (const PlanePoint& place : stroke.points) {
        PlotPlace(place, first, toFile);
        first = false;
    }
    if (stroke.closed) {
        PlotPlace(stroke.points.front(), false, toFile);
    }
    if (toFile) {
        PrintLineBrkDisk();
    }
}

void TakePen(double twips, std::string_view routine) {
    ReleaseDevicePen(SiteLine, routine);
    Design.PenWidth = RoundToInt32(Divide(twips, Design.TwipsPerPixelY));
    MakeDevicePen(PenStyleSolid, DevicePenWidth(), Design.PenColor, SiteLine, routine);
}

} // namespace

void PlotStrokes(const std::vector<PlaneStroke>& strokes, ColorValue color, std::string_view routine) {
    if (strokes.empty()) {
        return;
    }
    const WithoutAscii withoutAscii;
    SelectDevice();
    Design.CurrentSymbolType = SymbolLine;
    Design.PenColor = color;
    const bool toFile = OpenExport(1);
    double width = 0.0;
    for (const PlaneStroke& stroke : strokes) {
        if (stroke.width != width) {
            width = stroke.width;
            TakePen(width, routine);
            if (toFile) {
                StartCircles(Design.PenColor);
            }
        }
        PlotStroke(stroke, toFile);
    }
    Design.PointStatus = PointContinues;
    if (toFile) {
        CloseExport();
    }
    ReleaseDevicePen(SiteEnd, routine);
    Design.PenWidth = 1;
}

} // namespace quelmont

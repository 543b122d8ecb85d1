#include "mapinput/map_point.h"

#include "core/map_design.h"
#include "core/rounding.h"
#include "mapinput/map_input_state.h"
#include "output/fan_out.h"
#include "output/print_to_screen.h"
#include "platform/machine.h"
#include "projection/project_select.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <limits>

namespace quelmont {

namespace {

ClippingFamily FamilyOf(std::int16_t projNum) {
    switch (PropertiesOf(projNum).family) {
    case ProjectionFamily::None:
        return ClippingFamily::None;
    case ProjectionFamily::Azimuthal:
        return ClippingFamily::Circle;
    case ProjectionFamily::MetricGrid:
        return ClippingFamily::Metres;
    default:
        return ClippingFamily::Rectangle;
    }
}

std::int32_t FitInt32(std::int64_t value) {
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        throw RunTimeError(ErrorOverflow);
    }
    return static_cast<std::int32_t>(value);
}

} // namespace

void MapPoint::BeginFile() {
    family = FamilyOf(Design.ProjNum);
    Design.UtmPointPath = true;
    MapInputNow.StartLine = !hasPrevious || PrevInBounds;
    PointInBounds = false;
    EdgeLat = 0;
    EdgeLon = 0;
    PointsRead = 0;
    PointsPlotted = 0;
}

void MapPoint::ConvertToMetres() {
    Design.ProjLon = static_cast<double>(Design.PointLonSec) / SecPerDegree;
    Design.ProjLat = static_cast<double>(Design.PointLatSec) / SecPerDegree;
    UtmForward();
    Design.PointLonSec = RoundToInt32(Design.ProjLon);
    Design.PointLatSec = RoundToInt32(Design.ProjLat);
}

void MapPoint::TestBounds() {
    if (family == ClippingFamily::Metres) {
        ConvertToMetres();
    } else {
        const std::int64_t lon = static_cast<std::int64_t>(Design.PointLonSec) - Design.LonWestSec;
        Design.PointLonSec = FitInt32(lon < 0 ? lon + SecPerCircle : lon);
    }
    CompareBounds();
}

void MapPoint::CompareBounds() {
    PointInBounds = Design.LatSouthSec <= Design.PointLatSec && Design.PointLatSec <= Design.LatNorthSec &&
                    Design.LonZeroSec <= Design.PointLonSec && Design.PointLonSec <= Design.LonSpanSec;
}

void MapPoint::StartNewLine() {
    MapInputNow.StartLine = true;
    Design.PointStatus = PointBeginsLine;
    if (PointInBounds && Design.PointCount > 0) {
        PrintLineBrkDisk();
        Design.LineStart = LineMoves;
    }
}

bool MapPoint::PlotStep() {
    if (!CountPoint()) {
        return false;
    }
    if (MapInputNow.StartLine) {
        PrevInBounds = false;
        Design.PointLatSecPrev = Design.PointLatSec;
        Design.PointLonSecPrev = Design.PointLonSec;
    }
    switch (family) {
    case ClippingFamily::Rectangle:
        ClipRectangle();
        break;
    case ClippingFamily::Metres:
        ClipMetres();
        break;
    case ClippingFamily::Circle:
        ClipCircle();
        break;
    case ClippingFamily::None:
        break;
    }
    MapInputNow.StartLine = false;
    hasPrevious = true;
    PrevInBounds = PointInBounds;
    Design.PointLatSecPrev = Design.PointLatSec;
    Design.PointLonSecPrev = Design.PointLonSec;
    return true;
}

void MapPoint::PassOutside(std::int64_t count) {
    TestBounds();
    PointsRead += count;
    PrevInBounds = PointInBounds;
    Design.PointLatSecPrev = Design.PointLatSec;
    Design.PointLonSecPrev = Design.PointLonSec;
}

bool MapPoint::LetEventsRun() {
    Machine().window->Refresh();
    return RunEvents();
}

bool MapPoint::SkipPoints(std::int64_t count) {
    PointsRead += count;
    return RunEvents();
}

bool MapPoint::RunEvents() {
    Machine().pump->DoEvents();
    return Design.PlotStopReason != StopReason::Escape;
}

void MapPoint::PlotPoint() {
    Design.PointStatus = MapInputNow.StartLine ? 1 : 0;
    if (family == ClippingFamily::Metres) {
        Design.ProjLat = Design.PointLatSec;
        Design.ProjLon = Design.PointLonSec;
    } else {
        Design.ProjLat = static_cast<double>(Design.PointLatSec) / SecPerDegree;
        Design.ProjLon = static_cast<double>(Design.PointLonSec) / SecPerDegree;
    }
    ProjectSelect(&tested);
    if (Design.ProjOffMap) {
        // Nothing leads to a place that is not on the map, and nothing leads on from it.
        BreakLine();
        return;
    }
    ++PointsPlotted;
    if (!Design.OutputFileName.empty()) {
        ScaleXY();
    }
    PrintToScreen();
}

void MapPoint::PlotEdge(std::int32_t lon) {
    EdgeLon = lon;
    Design.PointLatSec = EdgeLat;
    Design.PointLonSec = lon;
    PlotPoint();
}

void MapPoint::BreakLine() {
    Design.PointStatus = PointBeginsLine;
    if (Design.PointCount > 0) {
        PrintLineBrkDisk();
    }
    Design.LineStart = LineMoves;
}

} // namespace quelmont

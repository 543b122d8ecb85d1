#include "mapinput/line_clipping.h"

#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "mapinput/az_interpolate.h"
#include "mapinput/map_input_state.h"
#include "output/fan_out.h"
#include "output/print_to_screen.h"
#include "projection/projection_table.h"

#include <algorithm>
#include <cstdlib>

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

/// A segment of up to this many degrees that ends beyond the eastern boundary is taken to cross it.
constexpr std::int32_t Sec20 = 20 * SecPerDegree;

/// The longitude of the segment at a latitude, the quotient first. RunTimeError "Division by zero"
/// along a parallel.
std::int32_t LonOfSegmentAt(std::int32_t lat) {
    const double slope = Divide(static_cast<double>(Design.PointLonSecPrev) - Design.PointLonSec,
                                static_cast<double>(Design.PointLatSecPrev) - Design.PointLatSec);
    return RoundToInt32(slope * (static_cast<double>(lat) - Design.PointLatSec) + Design.PointLonSec);
}

/// The latitude of the segment at a longitude. RunTimeError "Division by zero" along a meridian.
std::int32_t LatOfSegmentAt(std::int32_t lon) {
    const double slope = Divide(static_cast<double>(Design.PointLatSecPrev) - Design.PointLatSec,
                                static_cast<double>(Design.PointLonSecPrev) - Design.PointLonSec);
    return RoundToInt32(slope * (static_cast<double>(lon) - Design.PointLonSec) + Design.PointLatSec);
}

/// The step in longitude, taken before anything is changed.
std::int64_t StepInLongitude() {
    return static_cast<std::int64_t>(Design.PointLonSec) - Design.PointLonSecPrev;
}

std::int32_t CircleOf(std::int64_t LonStep) { return LonStep > 0 ? SecPerCircle : -SecPerCircle; }

bool AllRoundTheWorld() {
    return static_cast<std::int64_t>(Design.LonSpanSec) - Design.LonZeroSec == SecPerCircle;
}

} // namespace

void LineClipping::BeginClipping() {
    family = FamilyOf(Design.ProjNum);
    PointInBounds = false;
    PointsPlotted = 0;
    EdgeLat = 0;
    EdgeLon = 0;
}

void LineClipping::ClipByFamily() {
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
}

void LineClipping::PlotPoint() {
    Design.PointStatus = MapInputNow.StartLine ? 1 : 0;
    if (family == ClippingFamily::Metres) {
        Design.ProjLat = Design.PointLatSec;
        Design.ProjLon = Design.PointLonSec;
    } else {
        Design.ProjLat = DegreesOf(Design.PointLatSec);
        Design.ProjLon = DegreesOf(Design.PointLonSec);
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

void LineClipping::PlotEdge(std::int32_t lon) {
    EdgeLon = lon;
    Design.PointLatSec = EdgeLat;
    Design.PointLonSec = lon;
    PlotPoint();
}

void LineClipping::BreakLine() {
    Design.PointStatus = PointBeginsLine;
    if (Design.PointCount > 0) {
        PrintLineBrkDisk();
    }
    Design.LineStart = LineMoves;
}

// ---- Maps bounded by parallels and meridians.

void LineClipping::ClipRectangle() {
    if (PointInBounds && PrevInBounds) {
        JoinInside();
    } else if (PointInBounds) {
        EnterRectangle();
    } else if (PrevInBounds) {
        LeaveRectangle();
    }
}

void LineClipping::JoinInside() {
    const std::int64_t LonStep = StepInLongitude();
    if (StaysOffTheSeam()) {
        PlotPoint();
    } else if (std::abs(LonStep) == SecPerCircle && std::abs(Design.LonWestSec) == SecPerHalfCircle) {
        // Both edges are the 180th meridian. The pen stays where it is, and so does the point: the
        // next segment starts on this side.
        Design.PointLonSec = Design.PointLonSecPrev;
        PlotPoint();
    } else if ((LonStep < 0 && Design.PointLonSecPrev > SecPer340) ||
               (LonStep > 0 && Design.PointLonSec > SecPer340)) {
        CrossSeam(LonStep);
    }
    // Any other leap of 340 degrees fits no seam and draws nothing.
}

void LineClipping::CrossSeam(std::int64_t LonStep) {
    const SourcePlace point{Design.PointLatSec, Design.PointLonSec};
    const std::int32_t circle = CircleOf(LonStep);
    const std::int32_t nearEdge = LonStep > 0 ? Design.LonZeroSec : Design.LonSpanSec;
    const std::int32_t farEdge = LonStep > 0 ? Design.LonSpanSec : Design.LonZeroSec;
    // A leap of exactly a full circle runs along the edge.
    const bool alongEdge = std::abs(LonStep) == SecPerCircle;

    Design.PointLonSec -= circle;
    EdgeLat = alongEdge ? point.lat : LatOfSegmentAt(nearEdge);
    PlotEdge(nearEdge);
    Design.PointLatSec = point.lat;
    Design.PointLonSec = point.lon;
    BreakLine();

    Design.PointLonSecPrev += circle;
    EdgeLat = alongEdge ? point.lat : LatOfSegmentAt(farEdge);
    PlotEdge(farEdge);
    Design.PointLonSecPrev -= circle;
    Design.PointLatSec = point.lat;
    Design.PointLonSec = point.lon;
    PlotPoint();
}

void LineClipping::EnterRectangle() {
    if (MapInputNow.StartLine) {
        PlotPoint();
        return;
    }
    const SourcePlace prev{Design.PointLatSecPrev, Design.PointLonSecPrev};
    const std::int64_t LonStep = StepInLongitude();
    bool acrossSeam = false;
    if (prev.lon < Design.LonZeroSec) {
        ClipToCorner(prev.lat, prev.lon); // true longitudes beyond 180 west alone come here
    } else if (prev.lon <= Design.LonSpanSec) {
        acrossSeam = EdgeByLatitude(prev.lat, Design.PointLonSecPrev, -LonStep);
    } else if (std::abs(LonStep) <= Sec20) {
        ClipToCorner(prev.lat, prev.lon);
    } else if (std::abs(LonStep) >= SecPer340) {
        Design.PointLonSecPrev -= SecPerCircle;
        ClipToCorner(prev.lat, Design.PointLonSecPrev);
    }
    // Between 20 and 340 degrees nothing tells on which side the segment entered: it starts at the
    // last cut point, wherever that was.
    DrawFromCut(prev, acrossSeam);
}

void LineClipping::LeaveRectangle() {
    if (MapInputNow.StartLine) {
        return;
    }
    const SourcePlace point{Design.PointLatSec, Design.PointLonSec};
    const std::int64_t LonStep = StepInLongitude();
    bool acrossSeam = false;
    if (point.lon < Design.LonZeroSec) {
        ClipToCorner(point.lat, point.lon);
    } else if (point.lon <= Design.LonSpanSec) {
        acrossSeam = EdgeByLatitude(point.lat, Design.PointLonSec, LonStep);
    } else if (LonStep <= Sec20) {
        ClipToCorner(point.lat, point.lon);
    } else if (LonStep >= SecPer340) {
        Design.PointLonSec -= SecPerCircle;
        ClipToCorner(point.lat, Design.PointLonSec);
    }
    DrawToCut(point, acrossSeam);
}

// ---- Maps bounded by northings and eastings: no seam, and metres know no 20 degrees.

void LineClipping::ClipMetres() {
    const auto cut = [this](SourcePlace outside) {
        if (outside.lon >= Design.LonZeroSec && outside.lon <= Design.LonSpanSec) {
            EdgeByLatitude(outside.lat);
        } else {
            ClipToCorner(outside.lat, outside.lon);
        }
    };
    const SourcePlace prev{Design.PointLatSecPrev, Design.PointLonSecPrev};
    const SourcePlace point{Design.PointLatSec, Design.PointLonSec};
    if (PointInBounds && (PrevInBounds || MapInputNow.StartLine)) {
        PlotPoint();
    } else if (PointInBounds) {
        cut(prev);
        DrawFromCut(prev, false);
    } else if (PrevInBounds && !MapInputNow.StartLine) {
        cut(point);
        DrawToCut(point, false);
    }
}

// ---- Maps bounded by a circle.

void LineClipping::ClipCircle() {
    TestCircle();
    const SourcePlace prev{Design.PointLatSecPrev, Design.PointLonSecPrev};
    const SourcePlace point{Design.PointLatSec, Design.PointLonSec};
    if (PointInBounds && (PrevInBounds || MapInputNow.StartLine)) {
        PlotPoint();
    } else if (PointInBounds) {
        Design.ProjTestMode = TestNone; // the cut point comes first and was not tested
        AzInterpolate(EdgeLat, EdgeLon, LineAtCircle::Enters);
        DrawFromCut(prev, false);
    } else if (PrevInBounds && !MapInputNow.StartLine) {
        AzInterpolate(EdgeLat, EdgeLon, LineAtCircle::Leaves);
        DrawToCut(point, false);
    }
}

void LineClipping::TestCircle() {
    Design.PointStatus = MapInputNow.StartLine ? 1 : 0;
    Design.ProjLat = DegreesOf(Design.PointLatSec);
    Design.ProjLon = DegreesOf(Design.PointLonSec);
    Design.ProjTestMode = TestOnly;
    ProjectSelect(&tested);
    Design.ProjTestMode = TestNone;
    if (Design.PointStatus == PointBeyondHorizon || Design.PointStatus == PointOutOfRange) {
        PointInBounds = false;
    } else if (Design.PointStatus == PointInRange) {
        PointInBounds = true;
        Design.ProjTestMode = TestResume; // the terms are kept for the call that projects the point
    }
    Design.PointStatus = PointContinues;
}

// ---- Cut points.

void LineClipping::EdgeByLatitude(std::int32_t outsideLat) {
    EdgeLat = outsideLat > Design.LatNorthSec ? Design.LatNorthSec : Design.LatSouthSec;
    EdgeLon = LonOfSegmentAt(EdgeLat);
}

bool LineClipping::EdgeByLatitude(std::int32_t outsideLat, std::int32_t& outsideLon, std::int64_t LonStep) {
    const bool acrossSeam = std::abs(LonStep) >= SecPer340 && AllRoundTheWorld();
    if (acrossSeam) {
        outsideLon -= CircleOf(LonStep);
    }
    EdgeByLatitude(outsideLat);
    if (acrossSeam && EdgeLon < Design.LonZeroSec) {
        EdgeLon += SecPerCircle;
    } else if (acrossSeam && EdgeLon > Design.LonSpanSec) {
        EdgeLon -= SecPerCircle;
    }
    return acrossSeam;
}

void LineClipping::ClipToCorner(std::int32_t outsideLat, std::int32_t outsideLon) {
    EdgeLon = std::clamp(outsideLon, Design.LonZeroSec, Design.LonSpanSec);
    // A segment along the very edge, which a full circle brought there, has no one latitude on it.
    EdgeLat = Design.PointLonSec == Design.PointLonSecPrev ? outsideLat : LatOfSegmentAt(EdgeLon);
    if (EdgeLat > Design.LatNorthSec) {
        EdgeLat = Design.LatNorthSec;
        EdgeLon = LonOfSegmentAt(EdgeLat);
    } else if (EdgeLat < Design.LatSouthSec) {
        EdgeLat = Design.LatSouthSec;
        EdgeLon = LonOfSegmentAt(EdgeLat);
    }
}

void LineClipping::DrawFromCut(SourcePlace prev, bool acrossSeam) {
    const SourcePlace point{Design.PointLatSec, Design.PointLonSec};
    BreakLine();
    Design.PointLatSec = EdgeLat;
    Design.PointLonSec = EdgeLon;
    Design.PointLatSecPrev = EdgeLat;
    Design.PointLonSecPrev = EdgeLon;
    PlotPoint();
    Design.PointLatSec = point.lat;
    Design.PointLonSec = point.lon;
    if (acrossSeam) {
        JoinInside();
    } else {
        PlotPoint();
    }
    Design.PointLatSecPrev = prev.lat;
    Design.PointLonSecPrev = prev.lon;
}

void LineClipping::DrawToCut(SourcePlace point, bool acrossSeam) {
    PointInBounds = true;
    Design.PointLatSec = EdgeLat;
    Design.PointLonSec = EdgeLon;
    if (acrossSeam) {
        JoinInside();
    } else {
        PlotPoint();
    }
    PointInBounds = false;
    Design.PointLatSec = point.lat;
    Design.PointLonSec = point.lon;
    BreakLine();
}

} // namespace quelmont

#include "graticule/grid_lines.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "graticule/grid_azimuth.h"
#include "graticule/grid_clip.h"
#include "graticule/grid_density.h"
#include "output/fan_out.h"
#include "output/print_to_screen.h"
#include "platform/machine.h"
#include "projection/project_select.h"
#include "projection/projection_table.h"

#include <cmath>

namespace quelmont {

namespace {

/// Lets a southern edge through that arrives from floating-point addition.
constexpr double SouthTolerance = 3e-06;
/// What floating-point addition may leave between the last parallel and the northern edge, degrees
/// (metres on UTM).
constexpr double EdgeTolerance = 3e-06;
/// Keeps the ends of a meridian through the antipode off the antipode itself, degrees.
constexpr double MeridianOffAntipode = 3e-05;
/// Beyond it, 170 degrees, lines near the antipode sweep around the rim of the map.
constexpr std::int32_t NearlyWholeGlobe = 612000;
/// Parallels within so many degrees of the antipode's latitude are stepped by azimuth.
constexpr double AntipodalBand = 16.0;

bool ShowsWholeGlobe() { return PropertiesOf(Design.ProjNum).wholeGlobe; }

bool PolarCentre() { return std::fabs(Design.LatCentral) == 90.0; }

void EndLine(GridPass& pass) {
    pass.LineActive = false;
    Design.LineStart = LineBegins;
    Design.PointStatus = PointContinues;
}

void BreakDisk(const GridPass& pass) {
    if (pass.DiskOut) {
        PrintLineBrkDisk();
    }
}

/// The line goes on beyond a gap: what comes is not joined to what was.
void BreakBeforePoint() {
    const double x = Design.ProjX;
    const double y = Design.ProjY;
    PrintLineBrkDisk();
    Design.ProjX = x;
    Design.ProjY = y;
}

/// False when Escape was pressed meanwhile.
bool HandleEvents() {
    Machine().pump->DoEvents();
    return Design.PlotStopReason != StopReason::Escape;
}

/// From one end to the other in even steps; the last point lands on the end.
template <typename Plot>
void StepEvenly(double from, double to, double step, Plot&& plot) {
    const std::int32_t m = RoundToInt32(Divide(to - from, step));
    for (std::int32_t j = 0; j <= m; ++j) {
        const double at = from + step * j;
        plot(at > to || j == m ? to : at);
    }
}

/// Steps from the southern edge to the northern one. The spacing divides the height of a map, but not
/// that of a lobe, whose northern edge then ends a shorter step.
std::int32_t ParallelSteps(double height, double step) {
    const std::int32_t n = RoundToInt32(Divide(height, step));
    return n * step < height - EdgeTolerance ? n + 1 : n;
}

void EvenParallel(GridPass& pass) {
    StepEvenly(pass.ClipLonMin, pass.ClipLonMax, pass.steps.LonPointStep, [&](double lon) {
        Design.ProjLon = lon;
        if (lon >= pass.ClipLonMin && lon <= pass.ClipLonMax) {
            PlotPoint(pass);
        }
    });
}

void OneParallel(GridPass& pass) {
    const double lat = Design.ProjLat;
    if (lat < pass.ClipLatMin - SouthTolerance || lat > pass.ClipLatMax) {
        return;
    }
    if (pass.CircleClip) {
        if (std::fabs(lat) == 90.0) {
            return;
        }
        CutParallel(pass);
    }
    if (std::fabs(lat + Design.LatCentral) < AntipodalBand && ShowsWholeGlobe() &&
        Design.RangeSec > NearlyWholeGlobe && Design.GridTypeCode == 3) {
        AntipodalParallel(pass);
    } else {
        EvenParallel(pass);
    }
    BreakDisk(pass);
}

/// Plots an end of a straight meridian. One lies so near the antipode that ProjectSelect takes it
/// for the antipode itself: the terms of a test are projected untested.
void PlotStraightEnd(GridPass& pass, double lat) {
    Design.ProjLat = lat;
    Design.ProjTestMode = TestOnly;
    ProjectSelect(&pass.tested);
    Design.ProjTestMode = TestResume;
    Design.PointStatus = PointContinues;
    PlotPoint(pass);
}

/// A straight diameter or radius of a whole-globe map, drawn from two points.
void TwoPoints(GridPass& pass, double start, double end) {
    PlotStraightEnd(pass, start);
    PlotStraightEnd(pass, start + std::fabs(start - end));
}

void MeridianThroughAntipode(GridPass& pass) {
    if (Design.ProjLon == 0.0) {
        Design.ProjLon = 360.0;
        TwoPoints(pass, -Design.LatCentral + MeridianOffAntipode, pass.ClipLatMax);
    } else {
        TwoPoints(pass, pass.ClipLatMin, -Design.LatCentral - MeridianOffAntipode);
    }
}

void MeridianOfPolarMap(GridPass& pass) {
    if (Design.ProjLon == 0.0) {
        Design.ProjLon = 360.0;
    }
    if (Design.LatCentral == 90.0) {
        TwoPoints(pass, pass.ClipLatMin + MeridianOffAntipode, pass.ClipLatMax);
    } else {
        // The second latitude comes out near 270 degrees, which is the pole at -90 again.
        TwoPoints(pass, pass.ClipLatMax - MeridianOffAntipode, pass.ClipLatMin);
    }
}

/// One piece of the meridian, from ClipLatMin to ClipLatMax.
void OnePiece(GridPass& pass) {
    const double d = std::fabs(Design.ProjLon - Design.LonCentral);
    const bool wholeGlobe =
        ShowsWholeGlobe() && Design.GridTypeCode == 3 && Design.RangeSec == SecPerHalfCircle;
    if (ShowsWholeGlobe() && Design.RangeSec > NearlyWholeGlobe && Design.GridTypeCode == 3 && d != 180.0 &&
        d != 0.0 && !PolarCentre()) {
        MeridianByAzimuth(pass);
    } else if (wholeGlobe && !PolarCentre() && (Design.ProjLon == 0.0 || Design.ProjLon == 360.0)) {
        MeridianThroughAntipode(pass);
    } else if (wholeGlobe && PolarCentre()) {
        MeridianOfPolarMap(pass);
    } else {
        StepEvenly(pass.ClipLatMin, pass.ClipLatMax, pass.steps.LatPointStep, [&](double lat) {
            Design.ProjLat = lat;
            PlotPoint(pass);
        });
    }
    BreakDisk(pass);
    EndLine(pass);
}

void OneMeridian(GridPass& pass) {
    if (Design.ProjLon < pass.ClipLonMin || Design.ProjLon > pass.ClipLonMax) {
        return;
    }
    const double d = std::fabs(Design.ProjLon - Design.LonCentral);
    // On a hemisphere about the equator the meridian at a right angle is the circle itself.
    const bool isCircle = pass.CircleClip && d == 90.0 && pass.RangeDeg == 90.0 && Design.LatCentral == 0.0;
    if (!isCircle) {
        if (pass.CircleClip) {
            CutMeridian(pass);
        }
        OnePiece(pass);
    }
    while (pass.SecondPiece) {
        pass.SecondPiece = false;
        pass.ClipLatMax = pass.SecondLatMax;
        pass.ClipLatMin = -90.0;
        OnePiece(pass);
    }
}

} // namespace

bool IsAntipodalLatitude(double latitude) {
    // Both come from whole seconds; stepping adds rounding far below this.
    constexpr double Rounding = 1e-9;
    return std::fabs(latitude + Design.LatCentral) <= Rounding;
}

void PlotProjected(const GridPass& pass) {
    ++Design.Statistics.GridPointsPlotted;
    PrintToScreen();
    if (pass.DiskOut) {
        if (Design.PointStatus == PointBeginsLine && Design.PointCount > 0) {
            BreakBeforePoint();
        }
        ScaleXY();
    }
}

void PlotPoint(GridPass& pass) {
    ProjectSelect(&pass.tested);
    if (!IsAzimuthal(Design.ProjNum)) {
        if (Design.ProjOffMap) {
            Design.LineStart = LineBegins;
            return;
        }
        Design.PointStatus = Design.LineStart == LineBegins ? PointBeginsLine : PointContinues;
        if (Design.LineStart == LineBegins) {
            Design.LineStart = LineContinues;
        }
        PlotProjected(pass);
        return;
    }
    // The antipode is a circle on a whole-globe map and cannot be joined to its neighbours.
    if (Design.RangeSec == SecPerHalfCircle && (Design.ProjLon == 0.0 || Design.ProjLon == 360.0) &&
        IsAntipodalLatitude(Design.ProjLat)) {
        Design.PointStatus = PointBeyondHorizon;
    }
    if (Design.PointStatus == PointBeyondHorizon) {
        pass.LineActive = false;
        Design.LineStart = LineAfterGap;
        Design.PointStatus = PointContinues;
        return;
    }
    if (std::fabs(Design.ProjLon - Design.LonCentral) == 180.0) {
        // The meridian opposite the centre is drawn from both of its ends. The sine of half a circle is
        // no more than 1e-16, but of either sign: on a map whose centre lies between two pixels the two
        // would not meet.
        Design.ProjX = 0.0;
    }
    if (Design.PointStatus == PointContinues && !pass.LineActive) {
        pass.LineActive = true;
        Design.PointStatus = PointBeginsLine;
        PlotProjected(pass);
        // Once more, so that a line of one visible point leaves a dot.
        Design.LineStart = LineContinues;
        Design.PointStatus = PointContinues;
        PlotProjected(pass);
        return;
    }
    pass.LineActive = true;
    Design.LineStart = LineContinues;
    Design.PointStatus = PointContinues;
    PlotProjected(pass);
}

bool Parallels(GridPass& pass) {
    EndLine(pass);
    const std::int32_t n = ParallelSteps(Design.LatNorth - Design.LatSouth, pass.steps.LatLineStep);
    for (std::int32_t i = 0; i <= n; ++i) {
        Design.ProjLat = std::fmin(pass.steps.LatLineStep * i + Design.LatSouth, Design.LatNorth);
        OneParallel(pass);
        EndLine(pass);
        if (!HandleEvents()) {
            return false;
        }
    }
    return true;
}

bool Meridians(GridPass& pass) {
    pass.LonList.assign(1, 0.0);
    EndLine(pass);
    if (pass.CircleClip) {
        pass.ClipLonMax = Design.LonCentral + pass.HalfLonReach;
        pass.ClipLonMin = Design.LonCentral - pass.HalfLonReach;
    }
    const std::int32_t n = RoundToInt32(Divide(Design.LonSpan - Design.LonZero, pass.steps.LonLineStep));
    for (std::int32_t i = 0; i <= n; ++i) {
        Design.ProjLon = std::fmin(pass.steps.LonLineStep * i + Design.LonZero, Design.LonSpan);
        OneMeridian(pass);
        if (!HandleEvents()) {
            return false;
        }
    }
    EndLine(pass);
    return true;
}

} // namespace quelmont

#include "circles/great_circle.h"

#include "circles/great_circle_route.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "platform/machine.h"

#include <cmath>
#include <string>
#include <utility>

namespace quelmont {

namespace {

constexpr const char* Routine = "GcCalc";

bool IsPole(double lat) { return std::fabs(lat) >= 90.0 - SameAngle; }

/// The ends where each meridian has one name, and a pole the other end's.
RouteEnds WithOneName(RouteEnds ends) {
    if (!(std::fabs(ends.startLat) <= 90.0 && std::fabs(ends.endLat) <= 90.0 &&
          std::fabs(ends.startLon) <= 180.0 && std::fabs(ends.endLon) <= 180.0)) {
        throw RunTimeError(ErrorInvalidCall);
    }
    if (IsPole(ends.startLat)) {
        ends.startLon = ends.endLon;
    } else if (IsPole(ends.endLat) || std::fabs(ends.endLon - ends.startLon) == 360.0) {
        ends.endLon = ends.startLon;
    }
    return ends;
}

/// Walks the route; gives whether its rows run from the end to the start.
bool Walk(const RouteEnds& ends, RouteRows& walk) {
    const double apart = std::fabs(ends.endLon - ends.startLon);
    if (ends.startLat == 0.0 && ends.endLat == 0.0) {
        WalkEquator(ends, walk);
    } else if (apart == 0.0 || (apart > 180.0 - SameAngle && apart < 180.0 + SameAngle)) {
        WalkMeridian(ends, walk);
    } else {
        return WalkGreatCircle(ends, walk);
    }
    return false;
}

void TellThatItIsCut(std::int16_t mostRows) {
    const auto& text = Design.GcText;
    Machine().boxes->Ask("Error in GcCalc: NumGc% = " + std::to_string(mostRows),
                         "GcStartLat\tGcStartLon\n" + text[0] + "\t" + text[1] +
                             "\n\nGcEndLat\t\tGcEndLon\n" + text[2] + "\t" + text[3],
                         BoxButtons::Ok, BoxIcon::Exclamation);
}

GreatCircleTable TableOf(RouteRows& walk, bool exchanged) {
    const std::int16_t count = RoundToInt16(static_cast<double>(walk.rows.size()));
    GreatCircleTable table;
    table.Rows = std::move(walk.rows);
    table.GcFirst = exchanged ? count : std::int16_t{1};
    table.GcLast = exchanged ? std::int16_t{1} : count;
    table.GcStep = exchanged ? std::int16_t{-1} : std::int16_t{1};
    return table;
}

} // namespace

GreatCircleTable GreatCircleBetween(const RouteEnds& ends) {
    RouteRows walk(MostGreatCircleRows);
    const bool exchanged = Walk(WithOneName(ends), walk);
    return TableOf(walk, exchanged);
}

void GcCalc(std::int16_t mostRows) {
    Design.GcTable = {};
    Guarded(Routine, [mostRows] {
        RouteRows walk(static_cast<std::size_t>(mostRows));
        const RouteEnds ends{Design.GcStartLat, Design.GcStartLon, Design.GcEndLat, Design.GcEndLon};
        const bool exchanged = Walk(WithOneName(ends), walk);
        if (walk.cut) {
            TellThatItIsCut(mostRows);
        }
        Design.GcTable = TableOf(walk, exchanged);
    });
}

} // namespace quelmont

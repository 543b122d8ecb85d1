#include "view/circle_spacing.h"

#include "core/angle_text.h"
#include "core/coordinates.h"
#include "core/degrees.h"
#include "view/round_steps.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

constexpr double DegreeSeconds = SecPerDegree;
constexpr double Pole = 90.0;

/// Degrees of latitude and of longitude that a map shows about a centre.
GlobePlace ShownAbout(const GlobePlace& centre, double range) {
    const double lat = std::min(2.0 * range, 2.0 * Pole);
    if (std::fabs(centre.lat) + range >= Pole) {
        return {lat, 4.0 * Pole};
    }
    return {lat, 2.0 * InDegrees(std::asin(std::sin(range * DegToRad) / std::cos(centre.lat * DegToRad)))};
}

void FitSpacing(GridTextIndex spacing, double shownBefore, double shown) {
    constexpr double fewest = 2.0;
    constexpr double most = 180.0;
    constexpr double usual = 6.0;
    constexpr std::int16_t gap = 4;
    std::string& text = Design.GridText[spacing];
    const double divisions = shown * DegreeSeconds / static_cast<double>(ArcSeconds(text));
    if ((divisions < fewest && shown < shownBefore) || (divisions > most && shown > shownBefore)) {
        const auto step =
            static_cast<double>(RoundStepNear(shown * DegreeSeconds / usual, StepUnit::Seconds));
        DegMinSec(step / DegreeSeconds, text, "ARC", gap);
    }
}

} // namespace

GlobePlace CentreOf(const DesignBounds& bounds) {
    return {DegreesOf(LatitudeSeconds(bounds.GridText[GridTextCentralLat])),
            DegreesOf(LongitudeSeconds(bounds.GridText[GridTextCentralLon]))};
}

void FitSpacings(const DesignBounds& before) {
    const GlobePlace was = ShownAbout(CentreOf(before), DegreesOf(before.RangeSec));
    const GlobePlace is = ShownAbout(CentreOf(Design), DegreesOf(Design.RangeSec));
    FitSpacing(GridTextLatSpacing, was.lat, is.lat);
    FitSpacing(GridTextLonSpacing, was.lon, is.lon);
}

} // namespace quelmont

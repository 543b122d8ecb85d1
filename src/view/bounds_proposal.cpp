#include "view/bounds_proposal.h"

#include "core/angle_text.h"
#include "core/coordinates.h"
#include "core/degrees.h"
#include "core/number_text.h"
#include "core/run_time_error.h"
#include "core/unseen_boxes.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "projection/projection_table.h"
#include "projection/utm.h"
#include "view/design_put_back.h"
#include "view/round_steps.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

namespace quelmont {

namespace {

constexpr std::int16_t Gap = 4; ///< blanks between the groups of an angle
constexpr double Pole = 90.0;
constexpr double FullCircle = 360.0;
/// Fewest divisions of a side.
constexpr double Divisions = 3.0;

void SetLatitude(GridTextIndex index, double degrees) {
    DegMinSec(degrees, Design.GridText[index], "LAT", Gap);
}
void SetLongitude(GridTextIndex index, double degrees) {
    DegMinSec(std::remainder(degrees, FullCircle), Design.GridText[index], "LON", Gap);
}
void SetArc(GridTextIndex index, double degrees) { DegMinSec(degrees, Design.GridText[index], "ARC", Gap); }

/// The ends of a side, seconds, moved outward to whole units.
struct Side {
    std::int64_t low, high;
};

Side Outward(double low, double high, std::int64_t unit) {
    // Bounds that stand on a whole unit are not to leave it for the last bit of a double.
    constexpr double rest = 1e-6;
    const double perUnit = static_cast<double>(SecPerDegree) / static_cast<double>(unit);
    return {std::llround(std::floor(low * perUnit + rest)) * unit,
            std::llround(std::ceil(high * perUnit - rest)) * unit};
}

/// The coarsest round spacing that divides a side into enough divisions; its unit if there is none.
std::int64_t SpacingOf(std::int64_t length, std::int64_t unit) {
    const double most = static_cast<double>(length) / Divisions;
    for (std::int64_t step = RoundStepBelow(std::min(most, 30.0 * SecPerDegree), StepUnit::Seconds);
         step > unit; step = RoundStepBelow(static_cast<double>(step) - 1.0, StepUnit::Seconds)) {
        if (length % step == 0) {
            return step;
        }
    }
    return unit;
}

double Degrees(std::int64_t seconds) { return static_cast<double>(seconds) / SecPerDegree; }

/// Latitudes that a projection can show.
void LimitLatitudes(double& south, double& north) {
    constexpr double mercator = 80.0;
    constexpr double cone = 60.0; // on the side where it opens
    if (Design.ProjNum == ProjMercator) {
        south = std::max(south, -mercator);
        north = std::min(north, mercator);
    } else if (IsConic(Design.ProjNum)) {
        (south + north >= 0.0 ? south : north) =
            south + north >= 0.0 ? std::max(south, -cone) : std::min(north, cone);
    }
}

/// The whole globe as the dialog shows it at first, with the same western boundary as the region.
void ProposeWorld(const MapRegion& region) {
    const auto before = Design.GridText;
    ProposeBounds();
    if (Design.ProjNum != ProjInterruptedMollweide && region.west != -FullCircle / 2.0) {
        SetLongitude(GridTextWest, region.west);
        Design.GridText[GridTextEast] = Design.GridText[GridTextWest];
    }
    for (const GridTextIndex text : {GridTextCentralLat, GridTextCentralLon, GridTextRange}) {
        Design.GridText[text] = before[text];
    }
}

bool ProposeBox(const MapRegion& region, bool isOwn) {
    double south = region.south;
    double north = region.north;
    LimitLatitudes(south, north);
    const bool interrupted = Design.ProjNum == ProjInterruptedMollweide;
    if (isOwn && !interrupted && south == region.south && north == region.north) {
        return true; // as they stand
    }
    if (interrupted || IsWholeWorld(region)) {
        ProposeWorld(region);
        return true;
    }
    if (!(south < north)) {
        return false;
    }
    const std::int64_t latUnit = RegionUnit(north - south);
    const Side lat = Outward(south, north, latUnit);
    SetLatitude(GridTextSouth, Degrees(lat.low));
    SetLatitude(GridTextNorth, Degrees(lat.high));
    SetArc(GridTextLatSpacing, Degrees(SpacingOf(lat.high - lat.low, latUnit)));
    const std::int64_t lonUnit = RegionUnit(region.span);
    Side lon = Outward(region.west, region.west + region.span, lonUnit);
    if (lon.high - lon.low >= SecPerCircle) {
        lon.high = lon.low + SecPerCircle;
    }
    SetLongitude(GridTextWest, Degrees(lon.low));
    SetLongitude(GridTextEast, Degrees(lon.high));
    SetArc(GridTextLonSpacing, Degrees(SpacingOf(lon.high - lon.low, lonUnit)));
    return true;
}

/// The largest range of an azimuthal map.
double RangeLimit() {
    constexpr double gnomonic = 75.0; // a map of more is hardly anything but its edge
    switch (Design.ProjNum) {
    case ProjGnomonic:
        return gnomonic;
    case ProjStereographic:
    case ProjOrthographic:
    case ProjVerticalPerspective:
        return Pole;
    default:
        return 2.0 * Pole;
    }
}

/// From which height so much is seen, kilometres.
double HeightOver(double range) {
    constexpr double earthRadius = 6371.0;
    constexpr double farAway = 35840.0; // as the dialog shows it at first: a satellite over one place
    constexpr double step = 10.0;
    const double cosine = std::cos(range * DegToRad);
    constexpr double least = 0.16; // so much is seen from there
    return cosine < least ? farAway : std::ceil((earthRadius / cosine - earthRadius) / step) * step;
}

bool ProposeCircle(const MapRegion& region, bool isOwn) {
    const double limit = RangeLimit();
    if (Design.ProjNum == ProjGnomonic && region.radius > limit) {
        return false;
    }
    const std::int64_t unit = RegionUnit(region.radius);
    const double wanted = isOwn ? region.radius : Degrees(Outward(0.0, region.radius, unit).high);
    const double range = std::min(wanted, limit);
    if (!isOwn) {
        SetLatitude(GridTextCentralLat, region.centre.lat);
        SetLongitude(GridTextCentralLon, region.centre.lon);
        const auto spacing = static_cast<double>(
            RoundStepBelow(std::min(range / 2.0, 30.0) * SecPerDegree, StepUnit::Seconds));
        SetArc(GridTextLatSpacing, spacing / SecPerDegree);
        SetArc(GridTextLonSpacing, spacing / SecPerDegree);
    }
    SetArc(GridTextRange, range);
    if (Design.ProjNum == ProjVerticalPerspective) {
        Design.GridText[GridTextHeight] = FormatNumber(HeightOver(range), "00000000");
    }
    return true;
}

void SetMetres(UtmTextIndex index, double metres, std::string_view picture) {
    Design.UtmText[index] = FormatNumber(metres, picture);
}

/// The zone of six degrees that holds the middle of the region.
void ProposeZone(const MapRegion& region) {
    constexpr double width = 6.0;
    const double central =
        std::remainder(std::floor(region.centre.lon / width) * width + width / 2.0, FullCircle);
    Design.SpheroidName = Spheroids.back().name;
    DegMinSec(central, Design.UtmText[UtmTextCentralLon], "LON", Gap);
    DegMinSec(0.0, Design.UtmText[UtmTextOriginLat], "LAT", Gap);
    Design.UtmText[UtmTextFalseEasting] = "0500000";
    Design.UtmText[UtmTextFalseNorthing] = region.centre.lat < 0.0 ? "10000000" : "00000000";
    Design.UtmText[UtmTextScale] = "0.9996";
    CalcUtmZone();
}

/// A side in metres: whole steps, and as many of them for a spacing.
void ProposeMetres(double low, double high, UtmTextIndex lowText, UtmTextIndex highText, UtmTextIndex spacing,
                   std::string_view picture) {
    const auto step = static_cast<double>(RoundStepBelow((high - low) / Divisions, StepUnit::Metres));
    SetMetres(lowText, std::max(0.0, std::floor(low / step) * step), picture);
    SetMetres(highText, std::ceil(high / step) * step, picture);
    SetMetres(spacing, step, picture);
}

bool ProposeMetricGrid(const MapRegion& region) {
    constexpr double widest = 12.0; // degrees; the series is made for less
    constexpr double farthest = 84.0;
    constexpr int steps = 32;
    if (region.span > widest || std::max(std::fabs(region.south), std::fabs(region.north)) > farthest) {
        return false;
    }
    ProposeZone(region);
    double south = 1e9;
    double north = -1e9;
    double west = 1e9;
    double east = -1e9;
    for (int i = 0; i <= steps; ++i) {
        for (int j = 0; j <= steps; ++j) {
            Design.ProjLat = region.south + (region.north - region.south) * i / steps;
            Design.ProjLon =
                Design.LonCentral +
                std::remainder(region.west + region.span * j / steps - Design.LonCentral, FullCircle);
            UtmForward();
            south = std::min(south, Design.ProjLat);
            north = std::max(north, Design.ProjLat);
            west = std::min(west, Design.ProjLon);
            east = std::max(east, Design.ProjLon);
        }
    }
    ProposeMetres(south, north, UtmTextSouth, UtmTextNorth, UtmTextNorthingSpacing, "00000000");
    ProposeMetres(west, east, UtmTextWest, UtmTextEast, UtmTextEastingSpacing, "0000000");
    return true;
}

} // namespace

void TakeProposal(std::int16_t projNum, const DesignBounds& bounds) {
    static_cast<DesignBounds&>(Design) = bounds;
    Design.ProjNum = projNum;
    Design.ProjName = PropertiesOf(projNum).ProjName;
}

std::optional<DesignBounds> ProposeBoundsFor(std::int16_t projNum, const MapRegion& region) {
    const MapRegion own = RegionOfDesign();
    const ProjectionFamily family = PropertiesOf(projNum).family;
    const ProjectionFamily familyBefore = PropertiesOf(Design.BoundsProjNum).family;
    const bool same = region.isRound == own.isRound && region.radius == own.radius &&
                      region.centre.lat == own.centre.lat && region.centre.lon == own.centre.lon &&
                      region.south == own.south && region.north == own.north && region.west == own.west &&
                      region.span == own.span;
    const bool round = family == ProjectionFamily::Azimuthal;
    const bool metric = family == ProjectionFamily::MetricGrid;
    const bool roundBefore = familyBefore == ProjectionFamily::Azimuthal;
    const bool metricBefore = familyBefore == ProjectionFamily::MetricGrid;
    const bool isOwn = same && round == roundBefore && metric == metricBefore;
    const DesignPutBack putBack;
    const UnseenBoxes unseen;
    Design.ProjNum = projNum;
    Design.ProjName = PropertiesOf(projNum).ProjName;
    Design.ProjGridSet[static_cast<std::size_t>(projNum)] = false;
    try {
        const bool proposed = round    ? ProposeCircle(region, isOwn)
                              : metric ? isOwn || ProposeMetricGrid(region)
                                       : ProposeBox(region, isOwn);
        if (!proposed || !AcceptProjection() || unseen.Any()) {
            return std::nullopt;
        }
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
    return static_cast<const DesignBounds&>(Design);
}

} // namespace quelmont

#include "view/map_move.h"

#include "core/angle_text.h"
#include "core/coordinates.h"
#include "core/degrees.h"
#include "core/number_text.h"
#include "core/unseen_boxes.h"
#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "projection/inverse_place.h"
#include "projection/projection_table.h"
#include "view/circle_spacing.h"
#include "view/moved_centre.h"
#include "view/moved_lobes.h"
#include "view/round_steps.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {

namespace {

constexpr std::int64_t SecondsPerDegree = 3600;
constexpr std::int64_t HalfCircle = 180 * SecondsPerDegree;
constexpr std::int64_t FullCircle = 2 * HalfCircle;
constexpr std::int16_t Gap = 4;
constexpr double DegreeSeconds = 3600.0;

struct MapAxes {
    MapAxis lat; ///< northings on UTM
    MapAxis lon; ///< eastings on UTM; the western end of a map in degrees is from -180 to 180
};

bool IsMetric() { return Design.ProjNum == ProjUtm; }
bool IsTurned() { return IsAzimuthal(Design.ProjNum); }
bool IsRound(const MapAxes& axes) { return !IsMetric() && axes.lon.high - axes.lon.low == FullCircle; }
StepUnit Unit() { return IsMetric() ? StepUnit::Metres : StepUnit::Seconds; }

AxisLimits LatLimits() {
    constexpr std::int64_t metres = 99'999'999;                // eight figures
    constexpr std::int64_t mercator = std::int64_t{89} * 3600; // the poles are infinitely far
    const std::int64_t limit = Design.ProjNum == ProjMercator ? mercator : HalfCircle / 2;
    return IsMetric() ? AxisLimits{0, metres} : AxisLimits{-limit, limit};
}

/// The longitudes of a map may begin anywhere.
AxisLimits LonLimits(const MapAxis& axis) {
    constexpr std::int64_t metres = 9'999'999; // seven figures
    return IsMetric() ? AxisLimits{0, metres} : AxisLimits{axis.low - FullCircle, axis.high + FullCircle};
}

std::int64_t Metres(UtmTextIndex index) { return std::llround(ValueOf(Design.UtmText[index])); }

MapAxes AxesNow() {
    if (IsMetric()) {
        return {{Metres(UtmTextSouth), Metres(UtmTextNorth), Metres(UtmTextNorthingSpacing)},
                {Metres(UtmTextWest), Metres(UtmTextEast), Metres(UtmTextEastingSpacing)}};
    }
    const auto& text = Design.GridText;
    const std::int64_t west = LongitudeSeconds(text[GridTextWest]);
    std::int64_t east = LongitudeSeconds(text[GridTextEast]);
    east += east <= west ? FullCircle : 0;
    return {{LatitudeSeconds(text[GridTextSouth]), LatitudeSeconds(text[GridTextNorth]),
             ArcSeconds(text[GridTextLatSpacing])},
            {west, east, ArcSeconds(text[GridTextLonSpacing])}};
}

double Degrees(std::int64_t seconds) { return static_cast<double>(seconds) / DegreeSeconds; }

std::int64_t Wrapped(std::int64_t seconds) { return WrappedLongitude(seconds); }

/// The same, as an eastern end: 180 degrees instead of -180.
std::int64_t WrappedEast(std::int64_t seconds) { return -Wrapped(-seconds); }

void SetLatitude(std::string& text, std::int64_t seconds) { DegMinSec(Degrees(seconds), text, "LAT", Gap); }
void SetLongitude(std::string& text, std::int64_t seconds) { DegMinSec(Degrees(seconds), text, "LON", Gap); }
void SetArc(std::string& text, std::int64_t seconds) { DegMinSec(Degrees(seconds), text, "ARC", Gap); }

void SetMetres(UtmTextIndex index, std::int64_t metres, std::string_view picture) {
    Design.UtmText[index] = FormatNumber(static_cast<double>(metres), picture);
}

void WriteAxes(const MapAxes& axes) {
    if (IsMetric()) {
        SetMetres(UtmTextNorth, axes.lat.high, "00000000");
        SetMetres(UtmTextSouth, axes.lat.low, "00000000");
        SetMetres(UtmTextNorthingSpacing, axes.lat.spacing, "00000000");
        SetMetres(UtmTextWest, axes.lon.low, "0000000");
        SetMetres(UtmTextEast, axes.lon.high, "0000000");
        SetMetres(UtmTextEastingSpacing, axes.lon.spacing, "0000000");
        return;
    }
    SetLatitude(Design.GridText[GridTextNorth], axes.lat.high);
    SetLatitude(Design.GridText[GridTextSouth], axes.lat.low);
    SetArc(Design.GridText[GridTextLatSpacing], axes.lat.spacing);
    SetLongitude(Design.GridText[GridTextWest], Wrapped(axes.lon.low));
    SetLongitude(Design.GridText[GridTextEast], WrappedEast(axes.lon.high));
    SetArc(Design.GridText[GridTextLonSpacing], axes.lon.spacing);
}

/// Moves the parallels of a cone by as much as its bounds.
void MoveParallels(const MapAxis& before, const MapAxis& after) {
    const std::int64_t north = after.low - before.low;
    if (north != 0 && after.high - before.high == north) {
        for (std::string& text : Design.StdParText) {
            SetLatitude(text, std::clamp(LatitudeSeconds(text) + north, -HalfCircle / 2, HalfCircle / 2));
        }
    }
}

/// Accepts the texts as they are now, or puts back what was before.
bool Accepted(const DesignBounds& before) {
    const UnseenBoxes unseen;
    if (AcceptProjection()) {
        return true;
    }
    static_cast<DesignBounds&>(Design) = before;
    return false;
}

/// Accepts other axes, and with them whatever moves along.
bool AcceptAxes(const DesignBounds& before, const MapAxes& from, MapAxes to) {
    if (Design.ProjNum == ProjInterruptedMollweide && to.lon != from.lon) {
        to.lon = MoveInterruptions(from.lon, to.lon);
    }
    if (IsConic(Design.ProjNum)) {
        MoveParallels(from.lat, to.lat);
    }
    WriteAxes(to);
    return Accepted(before);
}

/// A centre rounded to what cannot be seen on a map of that range.
void WriteCentre(const GlobePlace& centre) {
    constexpr double parts = 400.0;
    const auto step =
        static_cast<double>(RoundStepBelow(static_cast<double>(Design.RangeSec) / parts, StepUnit::Seconds));
    const auto rounded = [step](double degrees) {
        return std::llround(std::llround(degrees * DegreeSeconds / step) * static_cast<std::int64_t>(step));
    };
    SetLatitude(Design.GridText[GridTextCentralLat],
                std::clamp<std::int64_t>(rounded(centre.lat), -HalfCircle / 2, HalfCircle / 2));
    SetLongitude(Design.GridText[GridTextCentralLon], Wrapped(rounded(centre.lon)));
}

GlobePlace CentreNow() { return CentreOf(Design); }

/// Accepts an azimuthal map as it is to be now.
bool AcceptTurned(const DesignBounds& before) {
    FitSpacings(before);
    return Accepted(before);
}

/// A place on the map, and the share of the way from one point to another at which it lies.
struct PlaceOnWay {
    GlobePlace place;
    double share = 1.0;
};

/// The place at the end of a way that begins on the map, or the last one on it.
PlaceOnWay LastOnMap(PlanePoint from, PlanePoint to, const GlobePlace& first) {
    const auto at = [&](double share) {
        return PlaceAt(from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share);
    };
    if (const auto end = at(1.0)) {
        return {*end, 1.0};
    }
    PlaceOnWay last{first, 0.0};
    double off = 1.0;
    for (int halving = 0; halving < 30; ++halving) {
        const double share = (last.share + off) / 2.0;
        if (const auto place = at(share)) {
            last = {*place, share};
        } else {
            off = share;
        }
    }
    return last;
}

/// Turns an azimuthal map so that a place comes to a point of it; a point off the map counts as the one on
/// its edge.
bool TurnTo(const DesignBounds& before, const GlobePlace& place, PlanePoint point) {
    const GlobePlace centre = CentreNow();
    const GlobePlace below = LastOnMap({0.0, 0.0}, point, centre).place;
    WriteCentre(CentreThatSees(place, SeenFrom(centre, below), centre.lat));
    return AcceptTurned(before);
}

/// What the range may be; the rim of some projections lies at infinity.
std::int64_t WidestRange() {
    switch (Design.ProjNum) {
    case ProjGnomonic:
        return 85 * SecondsPerDegree;
    case ProjStereographic:
    case ProjOrthographic:
        return HalfCircle / 2;
    default:
        return HalfCircle;
    }
}

void ScaleRange(double factor) {
    constexpr double parts = 50.0;
    constexpr std::int64_t smallest = 10;
    const double wanted = static_cast<double>(Design.RangeSec) * factor;
    const std::int64_t step = RoundStepBelow(wanted / parts, StepUnit::Seconds);
    const std::int64_t range = std::llround(wanted / static_cast<double>(step)) * step;
    SetArc(Design.GridText[GridTextRange], std::clamp(range, smallest, WidestRange()));
}

void ScaleHeight(double factor) {
    constexpr double parts = 50.0;
    constexpr double most = 99'999'999.0;
    const double wanted = std::clamp(Design.VpDistanceKm * factor, 1.0, most);
    const auto step = static_cast<double>(RoundStepBelow(wanted / parts, StepUnit::Metres));
    Design.GridText[GridTextHeight] =
        FormatNumber(std::min(std::round(wanted / step) * step, most), "00000000");
}

void ScaleShown(double factor) {
    if (Design.ProjNum == ProjVerticalPerspective) {
        ScaleHeight(factor);
    } else {
        ScaleRange(factor);
    }
}

bool ZoomTurned(const DesignBounds& before, PlanePoint about, const GlobePlace& place, double factor) {
    const double share = std::hypot(about.x, about.y) / Design.MapXMax;
    const double angle = std::atan2(about.y, about.x);
    ScaleShown(factor);
    if (!Accepted(before)) {
        return false;
    }
    const double radius = share * Design.MapXMax;
    return TurnTo(before, place, {radius * std::cos(angle), radius * std::sin(angle)});
}

/// The spacing of a whole circle that an axis is scaled to: its own, unless that was made for so small a part
/// of the globe that nothing but meridians would be seen.
std::int64_t SpacingOfCircle(const MapAxis& axis) {
    constexpr std::int64_t most = 24;
    constexpr std::int64_t usual = 45 * SecondsPerDegree;
    const bool wasCircle = axis.high - axis.low == FullCircle;
    const bool divides = FullCircle % axis.spacing == 0;
    return divides && (wasCircle || FullCircle / axis.spacing <= most) ? axis.spacing : usual;
}

/// Scales the longitudes of a map in degrees; a whole circle stays about its middle.
MapAxis ScaledLongitudes(const MapAxis& axis, double about, double factor) {
    if (static_cast<double>(axis.high - axis.low) * factor >= static_cast<double>(FullCircle)) {
        const std::int64_t west = (axis.low + axis.high - FullCircle) / 2;
        return {west, west + FullCircle, SpacingOfCircle(axis)};
    }
    return Scaled(axis, about, factor, LonLimits(axis), StepUnit::Seconds);
}

/// Scales both axes about a place on them, seconds or metres.
bool ZoomBounds(const DesignBounds& before, double aboutLat, double aboutLon, double factor) {
    const MapAxes axes = AxesNow();
    const MapAxis lat = Scaled(axes.lat, aboutLat, factor, LatLimits(), Unit());
    const MapAxis lon = IsMetric() ? Scaled(axes.lon, aboutLon, factor, LonLimits(axes.lon), Unit())
                                   : ScaledLongitudes(axes.lon, aboutLon, factor);
    return AcceptAxes(before, axes, {lat, lon});
}

bool ZoomBoundsAt(const DesignBounds& before, PlanePoint about, const GlobePlace& place, double factor) {
    if (IsMetric()) {
        return ZoomBounds(before, about.y, about.x, factor);
    }
    const auto west = static_cast<double>(AxesNow().lon.low);
    const double lon = place.lon * DegreeSeconds;
    return ZoomBounds(before, place.lat * DegreeSeconds,
                      lon < west ? lon + static_cast<double>(FullCircle) : lon, factor);
}

double Middle(const MapAxis& axis) { return static_cast<double>(axis.low + axis.high) / 2.0; }
double Length(const MapAxis& axis) { return static_cast<double>(axis.high - axis.low); }

/// Moves the bounds by distances, as far as they go; a map round the globe moves east and west alone.
bool MoveBounds(const DesignBounds& before, double north, double east) {
    const MapAxes axes = AxesNow();
    MapAxes moved = axes;
    moved.lon = Shifted(axes.lon, east, LonLimits(axes.lon), Unit());
    if (!IsRound(axes)) {
        moved.lat = Shifted(axes.lat, north, LatLimits(), Unit());
    }
    return AcceptAxes(before, axes, moved);
}

double Difference(double lon, double from) { return std::remainder(lon - from, 360.0); }

/// Places on the edges of a rectangle, as far as they lie on the map.
std::vector<GlobePlace> PlacesOnEdges(PlanePoint a, PlanePoint b) {
    constexpr int parts = 32;
    std::vector<GlobePlace> places;
    const auto add = [&](double x, double y) {
        if (const auto place = PlaceAt(x, y)) {
            places.push_back(*place);
        }
    };
    for (int i = 0; i <= parts; ++i) {
        const double share = static_cast<double>(i) / parts;
        const double x = a.x + (b.x - a.x) * share;
        const double y = a.y + (b.y - a.y) * share;
        add(x, a.y);
        add(x, b.y);
        add(a.x, y);
        add(b.x, y);
    }
    return places;
}

/// The axis that holds two places at least, with whole divisions.
MapAxis Spanning(double low, double high, const MapAxis& axis, const AxisLimits& limits) {
    const double length = Length(axis);
    const double middle = (low + high) / 2.0;
    // Scaled about its middle, where the axis stays before it is moved.
    const double own = static_cast<double>(axis.low) + length / 2.0;
    const MapAxis scaled = Scaled(axis, own, (high - low) / length, limits, Unit());
    return Shifted(scaled, middle - own, limits, Unit());
}

bool ShowBounds(const DesignBounds& before, const std::vector<GlobePlace>& places, PlanePoint a,
                PlanePoint b) {
    const MapAxes axes = AxesNow();
    if (IsMetric()) {
        const auto [west, east] = std::minmax(a.x, b.x);
        const auto [south, north] = std::minmax(a.y, b.y);
        return AcceptAxes(before, axes,
                          {Spanning(south, north, axes.lat, LatLimits()),
                           Spanning(west, east, axes.lon, LonLimits(axes.lon))});
    }
    const double middle = Degrees(axes.lon.low + axes.lon.high) / 2.0;
    GlobePlace low = {90.0, 180.0};
    GlobePlace high = {-90.0, -180.0};
    for (const GlobePlace& place : places) {
        const double lon = Difference(place.lon, middle);
        low = {std::min(low.lat, place.lat), std::min(low.lon, lon)};
        high = {std::max(high.lat, place.lat), std::max(high.lon, lon)};
    }
    return AcceptAxes(before, axes,
                      {Spanning(low.lat * DegreeSeconds, high.lat * DegreeSeconds, axes.lat, LatLimits()),
                       Spanning((middle + low.lon) * DegreeSeconds, (middle + high.lon) * DegreeSeconds,
                                axes.lon, LonLimits(axes.lon))});
}

bool ShowCircle(const DesignBounds& before, const std::vector<GlobePlace>& places, const GlobePlace& middle) {
    double farthest = 0.0;
    for (const GlobePlace& place : places) {
        farthest = std::max(farthest, SeenFrom(middle, place).distance);
    }
    ScaleShown(farthest * DegreeSeconds / static_cast<double>(Design.RangeSec));
    WriteCentre(middle);
    return Accepted(before) && AcceptTurned(before);
}

/// The end of a move that was accepted or not: one that leaves every text as it was has done nothing.
bool Ended(const DesignBounds& before, bool accepted) {
    const bool changed = before.GridText != Design.GridText || before.UtmText != Design.UtmText ||
                         before.LobeText != Design.LobeText || before.StdParText != Design.StdParText;
    if (!accepted || !changed) {
        static_cast<DesignBounds&>(Design) = before;
    }
    return accepted && changed;
}

/// Shows the place at a point, which lies on the map, at another one.
bool MoveTo(const DesignBounds& before, const GlobePlace& held, PlanePoint from, PlanePoint point) {
    if (IsTurned()) {
        return TurnTo(before, held, point);
    }
    if (IsMetric()) {
        return MoveBounds(before, from.y - point.y, from.x - point.x);
    }
    const PlaceOnWay last = LastOnMap(from, point, held);
    if (last.share <= 0.0) {
        return false;
    }
    const double seconds = DegreeSeconds / last.share;
    return MoveBounds(before, (held.lat - last.place.lat) * seconds,
                      Difference(held.lon, last.place.lon) * seconds);
}

} // namespace

MapDrag::MapDrag(PlanePoint point) : from(point), held(PlaceAt(point.x, point.y)) {}

bool MapDrag::To(PlanePoint point) const {
    Back();
    if (!held) {
        return false;
    }
    if (point == from) {
        return true;
    }
    const bool moved = MoveTo(before, *held, from, point);
    Ended(before, moved);
    return moved;
}

bool ZoomMap(PlanePoint about, double factor) {
    const DesignBounds before = Design;
    const auto place = PlaceAt(about.x, about.y);
    if (!place) {
        return false;
    }
    const bool done =
        IsTurned() ? ZoomTurned(before, about, *place, factor) : ZoomBoundsAt(before, about, *place, factor);
    return Ended(before, done);
}

bool ZoomMap(double factor) {
    const DesignBounds before = Design;
    if (IsTurned()) {
        ScaleShown(factor);
        return Ended(before, Accepted(before) && AcceptTurned(before));
    }
    const MapAxes axes = AxesNow();
    return Ended(before, ZoomBounds(before, Middle(axes.lat), Middle(axes.lon), factor));
}

bool StepMap(double north, double east) {
    const DesignBounds before = Design;
    if (IsTurned()) {
        constexpr double least = 0.1; // about the poles a meridian is no way
        const GlobePlace centre = CentreNow();
        const double shown = 2.0 * DegreesOf(Design.RangeSec);
        const double lat = std::clamp(centre.lat + north * shown, -90.0, 90.0);
        const double shrunk = std::max(std::cos(centre.lat * DegToRad), least);
        WriteCentre({lat, centre.lon + east * shown / shrunk});
        return Ended(before, AcceptTurned(before));
    }
    const MapAxes axes = AxesNow();
    return Ended(before, MoveBounds(before, north * Length(axes.lat), east * Length(axes.lon)));
}

bool CentreMap(PlanePoint point) {
    const DesignBounds before = Design;
    const auto place = PlaceAt(point.x, point.y);
    if (!place) {
        return false;
    }
    if (IsTurned()) {
        WriteCentre(*place);
        return Ended(before, AcceptTurned(before));
    }
    const MapAxes axes = AxesNow();
    const double midNorth = Middle(axes.lat);
    const double midEast = Middle(axes.lon);
    const bool moved = IsMetric()
                           ? MoveBounds(before, point.y - midNorth, point.x - midEast)
                           : MoveBounds(before, place->lat * DegreeSeconds - midNorth,
                                        Difference(place->lon, midEast / DegreeSeconds) * DegreeSeconds);
    return Ended(before, moved);
}

bool ShowRectangle(PlanePoint corner, PlanePoint opposite) {
    const DesignBounds before = Design;
    const std::vector<GlobePlace> places = PlacesOnEdges(corner, opposite);
    const auto middle = PlaceAt((corner.x + opposite.x) / 2.0, (corner.y + opposite.y) / 2.0);
    if (places.empty() || !middle) {
        return false;
    }
    const bool done =
        IsTurned() ? ShowCircle(before, places, *middle) : ShowBounds(before, places, corner, opposite);
    return Ended(before, done);
}

bool ShowWhole() {
    const DesignBounds before = Design;
    if (IsMetric()) {
        // A zone of the northern hemisphere.
        WriteAxes({{0, 9'000'000, 1'000'000}, {100'000, 900'000, 100'000}});
        return Ended(before, Accepted(before));
    }
    bool& wasAccepted = Design.ProjGridSet[static_cast<std::size_t>(Design.ProjNum)];
    const bool kept = wasAccepted;
    wasAccepted = false;
    ProposeBounds();
    wasAccepted = kept;
    Design.GridText[GridTextCentralLat] = before.GridText[GridTextCentralLat];
    Design.GridText[GridTextCentralLon] = before.GridText[GridTextCentralLon];
    return Ended(before, Accepted(before));
}

} // namespace quelmont

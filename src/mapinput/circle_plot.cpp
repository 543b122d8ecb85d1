#include "mapinput/circle_plot.h"

#include "core/map_design.h"
#include "core/rounding.h"
#include "mapinput/map_pen.h"
#include "mapinput/map_point.h"
#include "output/device_pen.h"
#include "output/draw_target.h"
#include "output/export_file.h"
#include "output/fan_out.h"
#include "output/page_scale.h"
#include "output/without_ascii.h"
#include "platform/draw_surface.h"
#include "projection/projection_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace quelmont {

namespace {

using Vector = std::array<double, 3>;

double Product(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

/// A place on the globe: degrees, south and west negative.
struct Place {
    double lat, lon;

    Vector OnSphere() const {
        const double phi = lat * DegToRad;
        const double lambda = lon * DegToRad;
        return {std::cos(phi) * std::cos(lambda), std::cos(phi) * std::sin(lambda), std::sin(phi)};
    }
};

/// In the middle of the way between two places that are no antipodes.
Place Middle(const Place& a, const Place& b) {
    const Vector u = a.OnSphere();
    const Vector v = b.OnSphere();
    const Vector sum = {u[0] + v[0], u[1] + v[1], u[2] + v[2]};
    return {std::atan2(sum[2], std::hypot(sum[0], sum[1])) / DegToRad, std::atan2(sum[1], sum[0]) / DegToRad};
}

/// How much of the globe the map shows, radians.
struct MapReach {
    Vector middle;
    double radius; ///< of a circle about the middle that has it all
    double least;  ///< width or height, the smaller one
};

MapReach ReachOfMap() {
    switch (PropertiesOf(Design.ProjNum).family) {
    case ProjectionFamily::Azimuthal: {
        const double radius = static_cast<double>(Design.RangeSec) / SecPerDegree * DegToRad;
        return {Place{Design.LatCentral, Design.LonWest + Design.LonCentral}.OnSphere(), radius,
                2.0 * radius};
    }
    case ProjectionFamily::MetricGrid: {
        constexpr double earthRadius = 6378000.0;
        const double least = std::min(static_cast<double>(Design.LatNorthSec) - Design.LatSouthSec,
                                      static_cast<double>(Design.LonSpanSec) - Design.LonZeroSec);
        return {{1.0, 0.0, 0.0}, Pi, least / earthRadius};
    }
    default: {
        const double lat = (Design.LatNorth + Design.LatSouth) / 2.0;
        const double height = (Design.LatNorth - Design.LatSouth) * DegToRad;
        const double width = Design.LonSpan * DegToRad;
        return {Place{lat, Design.LonWest + Design.LonSpan / 2.0}.OnSphere(), std::hypot(height, width) / 2.0,
                std::min(height, width * std::cos(lat * DegToRad))};
    }
    }
}

/// A line of places on its way to the devices.
class CircleLine {
public:
    explicit CircleLine(MapPoint& point_)
        : point(point_), hasRim(PropertiesOf(Design.ProjNum).antipode), reach(ReachOfMap()),
          halvings(PropertiesOf(Design.ProjNum).family == ProjectionFamily::MetricGrid ? FewHalvings
                                                                                       : Halvings) {}

    /// The first place of a line, and the following ones. False when Escape was pressed.
    bool Begin(const Place& place);
    bool GoOn(const Place& place);

private:
    /// A line beside the antipode is drawn in steps of less than this around the rim.
    static constexpr double LargestTurn = 5.0 * DegToRad;
    /// Farther from it neighbours on a circle never lie in very different directions.
    static constexpr double Beside = -0.96;
    /// So often a step of some degrees can be halved before it is shorter than a second.
    static constexpr int Halvings = 15;
    /// The same where it cannot be known which places lie far from the map.
    static constexpr int FewHalvings = 8;
    /// A step over the map from outside to outside would not be seen: it is at most this share of the map.
    static constexpr double LargestShare = 1.0 / 8.0;

    /// So many places are put between those of a table before the line goes straight on: on maps of a few
    /// seconds they would never end.
    static constexpr std::int32_t MostPlaces = 500'000;

    bool Plot(const Place& place, bool first);
    bool Approach(const Place& from, const Place& to, int halvingsLeft);
    bool LeadsRound(const Vector& from, const Vector& to) const;
    bool LeadsOver(const Vector& from, const Vector& to) const;

    MapPoint& point;
    bool hasRim;
    MapReach reach;
    int halvings;
    std::int32_t placesLeft = MostPlaces;
    Place before = {};
};

bool CircleLine::Plot(const Place& place, bool first) {
    Design.PointLatSec = RoundToInt32(place.lat * SecPerDegree);
    Design.PointLonSec = RoundToInt32(place.lon * SecPerDegree);
    point.TestBounds();
    if (first) {
        point.StartNewLine();
    }
    return point.PlotStep();
}

bool CircleLine::Begin(const Place& place) {
    before = place;
    return Plot(place, true);
}

bool CircleLine::GoOn(const Place& place) {
    const Place from = std::exchange(before, place);
    return Approach(from, place, halvings);
}

/// Whether two neighbours lie on different sides of the antipode, and so far apart on the rim.
bool CircleLine::LeadsRound(const Vector& from, const Vector& to) const {
    const double cosFrom = Product(from, reach.middle);
    const double cosTo = Product(to, reach.middle);
    if (!hasRim || cosFrom > Beside || cosTo > Beside) {
        return false;
    }
    // What the places have of their own beside the direction of the centre.
    const double apart = Product(from, to) - cosFrom * cosTo;
    const double lengths = std::sqrt((1.0 - cosFrom * cosFrom) * (1.0 - cosTo * cosTo));
    return !(apart > lengths * std::cos(LargestTurn));
}

/// Whether the step from one neighbour to the other is a long one for the map, and may touch it.
bool CircleLine::LeadsOver(const Vector& from, const Vector& to) const {
    const double step = std::hypot(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
    return step > reach.least * LargestShare &&
           std::acos(std::clamp(Product(from, reach.middle), -1.0, 1.0)) < reach.radius + 2.0 * step;
}

bool CircleLine::Approach(const Place& from, const Place& to, int halvingsLeft) {
    const Vector u = from.OnSphere();
    const Vector v = to.OnSphere();
    const bool round = LeadsRound(u, v);
    if (!round && !LeadsOver(u, v)) {
        return Plot(to, false);
    }
    if (halvingsLeft == 0 || placesLeft == 0) {
        return Plot(to, round); // through the antipode itself, which is the whole rim
    }
    --placesLeft;
    const Place middle = Middle(from, to);
    return Approach(from, middle, halvingsLeft - 1) && Approach(middle, to, halvingsLeft - 1);
}

// ---- The two kinds of circles.

bool PlotSmallCircles(MapPoint& point) {
    CircleLine line(point);
    std::size_t i = 0;
    for (const std::int16_t end : Design.ScTable.ScRingEnd) {
        for (const std::size_t first = i; i < static_cast<std::size_t>(end); ++i) {
            const SmallCirclePoint& row = Design.ScTable.Points[i];
            const Place place{row.ScLat, row.ScLon};
            if (!(i == first ? line.Begin(place) : line.GoOn(place))) {
                return false;
            }
        }
        MapPoint::EndLine();
    }
    return true;
}

bool PlotGreatCircle(MapPoint& point) {
    const GreatCircleTable& table = Design.GcTable;
    CircleLine line(point);
    for (std::size_t walked = 0; walked < table.Rows.size(); ++walked) {
        const auto row = static_cast<std::int16_t>(table.GcFirst + static_cast<int>(walked) * table.GcStep);
        const Place place{table.Row(row).GcLat, table.Row(row).GcLon};
        if (walked == 0) {
            if (!line.Begin(place)) {
                return false;
            }
            continue;
        }
        const double lonBefore = table.Row(static_cast<std::int16_t>(row - table.GcStep)).GcLon;
        const bool overPole = std::fabs(place.lat) == 90.0 && place.lon != lonBefore;
        if (!(overPole ? line.GoOn({place.lat, lonBefore}) && line.Begin(place) : line.GoOn(place))) {
            return false;
        }
    }
    MapPoint::EndLine();
    return true;
}

struct CircleKind {
    ColorValue color;
    float width; ///< twips
    bool (*plot)(MapPoint& point);
    MapPart part;
    const char* title;
};

bool PlotKind(MapPoint& point, const CircleKind& kind) {
    const WithoutAscii withoutAscii;
    SelectDevice();
    point.BeginFile();
    point.PrevInBounds = false;
    Design.CurrentSymbolType = SymbolLine;
    Design.PenColor = kind.color;
    TakePenWidth(kind.width);
    DeleteMapPen(SitesCircles.deleteObject);
    MakeLinePen(Design.PenColor, SitesCircles.createPen, "MapPlot");
    if (OpenExport(1)) {
        BeginFilePart(kind.part, kind.title);
        StartCircles(kind.color);
    }
    if (!kind.plot(point)) {
        return false;
    }
    CloseExport();
    DeleteMapPen(SiteCirclesEnd);
    return true;
}

} // namespace

bool PlotCircles(MapPoint& point) {
    return (!Design.ScDefined || PlotKind(point, {Design.ScColor, Design.ScLineWidth, PlotSmallCircles,
                                                  MapPart::SmallCircles, "Small circles"})) &&
           (!Design.GcDefined || PlotKind(point, {Design.GcColor, Design.GcLineWidth, PlotGreatCircle,
                                                  MapPart::GreatCircle, "Great circle"}));
}

} // namespace quelmont

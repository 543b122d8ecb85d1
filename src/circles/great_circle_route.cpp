#include "circles/great_circle_route.h"

#include "core/checked_math.h"
#include "core/coordinates.h"
#include "core/rounding.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace quelmont {

namespace {

constexpr double MinutesPerDegree = 60.0;

/// Places closer than this are the same, minutes.
constexpr double SameDistance = 0.0006;

/// Rows farther apart than this are too few for a smooth line, minutes.
constexpr double LongestGap = 240.0;

/// The next whole degree in a direction; a full degree on from one.
double NextWhole(double from, double step) {
    return step > 0.0 ? std::floor(from + SameAngle) + 1.0 : std::ceil(from - SameAngle) - 1.0;
}

GreatCirclePoint Row(double course, double distance, double lat, double lon, double lonDiff) {
    return {course, distance, lat, lon, lat * DegToRad, lonDiff * DegToRad};
}

/// Great-circle distance in minutes from latitudes and longitude difference in radians: haversines, which
/// keep their digits for small distances. Source: Snyder 1987, (5-3a).
double Distance(double a, double b, double d) {
    const double sinLat = std::sin((a - b) / 2.0);
    const double sinLon = std::sin(d / 2.0);
    const double h = std::max(sinLat * sinLat + std::cos(a) * std::cos(b) * (sinLon * sinLon), 0.0);
    const double s = std::sqrt(h);
    const double c = std::max(1.0 - s * s, 0.0);
    const double angle = c == 0.0 ? Pi : 2.0 * std::atan(s / std::sqrt(c));
    return angle * MinutesPerDegree / DegToRad;
}

/// Course in radians, 0 to pi, from latitude P to latitude F at longitude difference d, radians. Source:
/// Snyder 1987, (5-4b).
double Course(double P, double F, double d) {
    const double den = std::cos(P) * std::sin(F) - std::sin(P) * std::cos(F) * std::cos(d);
    if (den == 0.0) {
        return Pi / 2.0;
    }
    const double course = std::atan(std::cos(F) * std::sin(d) / den);
    return course < 0.0 ? course + Pi : course;
}

} // namespace

bool RouteRows::Store(const GreatCirclePoint& row, bool last) {
    rows.push_back(row);
    if (!last && rows.size() >= most) {
        cut = true;
    }
    return !last && !cut;
}

// ---- Along the equator.

namespace {

/// A direction and how far it is.
struct Heading {
    double course;
    double step;  ///< degrees
    double total; ///< minutes
};

Heading EquatorHeading(double S, double E) {
    if (S < E) {
        return E - S <= 180.0 ? Heading{90.0, 1.0, (E - S) * MinutesPerDegree}
                              : Heading{270.0, -1.0, ((180.0 + S) + (180.0 - E)) * MinutesPerDegree};
    }
    if (S > E) {
        return S - E <= 180.0 ? Heading{270.0, -1.0, (S - E) * MinutesPerDegree}
                              : Heading{90.0, 1.0, ((180.0 - S) + (180.0 + E)) * MinutesPerDegree};
    }
    return {90.0, 1.0, 0.0};
}

} // namespace

void WalkEquator(const RouteEnds& ends, RouteRows& walk) {
    const Heading way = EquatorHeading(ends.startLon, ends.endLon);
    double lon = ends.startLon;
    double distance = 0.0;
    for (bool more = true; more;) {
        const bool last = distance > way.total - SameDistance;
        const double reached = last ? way.total : distance;
        const double fromStart = reached / MinutesPerDegree;
        const double fromWest = way.step > 0.0 ? fromStart : way.total / MinutesPerDegree - fromStart;
        more = walk.Store(Row(way.course, reached, 0.0, last ? ends.endLon : lon, fromWest), last);
        if (lon * way.step >= 180.0) {
            lon = -lon;
        }
        // No step crosses the 180th meridian.
        const double next = std::clamp(NextWhole(lon, way.step), -180.0, 180.0);
        distance += std::fabs(next - lon) * MinutesPerDegree;
        lon = next;
    }
}

// ---- Along a meridian.

namespace {

Heading MeridianHeading(const RouteEnds& ends) {
    const double Ls = ends.startLat;
    const double Le = ends.endLat;
    if (ends.startLon == ends.endLon) {
        return Ls < Le ? Heading{0.0, 1.0, (Le - Ls) * MinutesPerDegree}
                       : Heading{180.0, -1.0, (Ls - Le) * MinutesPerDegree};
    }
    const double overNorth = (90.0 - Ls) + (90.0 - Le);
    return overNorth < 180.0 + SameAngle
               ? Heading{0.0, 1.0, overNorth * MinutesPerDegree}
               : Heading{180.0, -1.0, (360.0 - (90.0 - Ls) - (90.0 - Le)) * MinutesPerDegree};
}

} // namespace

void WalkMeridian(const RouteEnds& ends, RouteRows& walk) {
    Heading way = MeridianHeading(ends);
    double lat = ends.startLat;
    double lon = ends.startLon;
    double distance = 0.0;
    const bool startsWest = ends.endLon - ends.startLon > 0.0;
    const double across = ends.startLon == ends.endLon ? 0.0 : 180.0;
    for (bool more = true; more;) {
        const bool last = distance > way.total - SameDistance;
        const bool beyondPole = last || lon != ends.startLon;
        const double fromWest = beyondPole == startsWest ? across : 0.0;
        more = walk.Store(last ? Row(way.course, way.total, ends.endLat, ends.endLon, fromWest)
                               : Row(way.course, distance, lat, lon, fromWest),
                          last);
        const double next = std::clamp(NextWhole(lat, way.step), -90.0, 90.0);
        distance += std::fabs(next - lat) * MinutesPerDegree;
        lat = next;
        if (lat * way.step >= 90.0 && lon != ends.endLon) {
            lon = ends.endLon;
            way.course = 180.0 - way.course;
            way.step = -way.step;
        }
    }
}

// ---- Between any two places.

namespace {

/// A longitude east of a place, -180 to 180. One that is meant to be a whole degree is one.
double EastOf(double lon, double degrees) {
    const double sum = lon + degrees;
    const double whole = std::round(sum);
    const double east = std::fabs(sum - whole) < 1e-9 ? whole : sum;
    return east > 180.0 ? east - 360.0 : east;
}

/// A route with its western end A and its eastern end B, and the constants of its circle.
class GreatCircleRoute {
public:
    explicit GreatCircleRoute(RouteEnds ends);

    bool IsExchanged() const { return exchanged; }
    void Walk(RouteRows& walk) const;
    /// Rows in whole minutes of longitude where those in whole degrees lie far apart.
    std::vector<GreatCirclePoint> Refined(const std::vector<GreatCirclePoint>& rows) const;
    /// Rows at equal distances where even those do: the way runs nearly along a meridian.
    std::vector<GreatCirclePoint> Divided(const std::vector<GreatCirclePoint>& rows) const;

private:
    enum class End { West, East, None };

    double LatitudeAt(double L) const;
    GreatCirclePoint RowAt(double lat, double L, End end = End::None) const;
    void Insert(std::vector<GreatCirclePoint>& rows, const GreatCirclePoint& r, const GreatCirclePoint& i,
                bool first) const;

    double latA, lonA, latB, lonB; ///< degrees
    double DLon;                   ///< from A to B, degrees
    bool exchanged = false;        ///< B is the start
    double T;                      ///< whole distance, minutes
    double course = 0.0;           ///< at A, radians
    double K = 0.0;                ///< tangent of the vertex's latitude
    double V = 0.0;                ///< longitude of the vertex seen from A, radians
};

double Gap(const GreatCirclePoint& r, const GreatCirclePoint& i) { return std::fabs(i.GcDist - r.GcDist); }

GreatCircleRoute::GreatCircleRoute(RouteEnds ends) {
    for (double* const lat : {&ends.startLat, &ends.endLat}) {
        *lat = *lat == 0.0 ? SameAngle : *lat; // keeps the tangents finite
    }
    const auto exchange = [&] {
        std::swap(ends.startLat, ends.endLat);
        std::swap(ends.startLon, ends.endLon);
        exchanged = !exchanged;
    };
    if (ends.startLon > ends.endLon) {
        exchange();
    }
    DLon = ends.endLon - ends.startLon;
    if (DLon > 180.0) {
        DLon = 360.0 - DLon;
        exchange();
    }
    latA = ends.startLat;
    lonA = ends.startLon;
    latB = ends.endLat;
    lonB = ends.endLon;
    T = Distance(latA * DegToRad, latB * DegToRad, DLon * DegToRad);
    course = Course(latA * DegToRad, latB * DegToRad, DLon * DegToRad);
    const double p = std::cos(latA * DegToRad) * std::sin(course);
    const double q = (latA < 0.0 ? -1.0 : 1.0) * std::sqrt(1.0 - p * p);
    K = Divide(q, p);
    V = std::atan(Divide(std::cos(course), std::sin(latA * DegToRad) * std::sin(course)));
}

/// Degrees, at so many degrees east of A.
double GreatCircleRoute::LatitudeAt(double L) const {
    return std::atan(std::cos(V - L * DegToRad) * K) / DegToRad;
}

GreatCirclePoint GreatCircleRoute::RowAt(double lat, double L, End end) const {
    const double fromA = Distance(latA * DegToRad, lat * DegToRad, L * DegToRad);
    // At B there is no way on; the way back has the same course, less half a turn.
    const double courseHere = end == End::East
                                  ? Course(latB * DegToRad, latA * DegToRad, -DLon * DegToRad) / DegToRad
                                  : Course(lat * DegToRad, latB * DegToRad, (DLon - L) * DegToRad) / DegToRad;
    const double back = 180.0 + courseHere;
    const double lon = end == End::East ? lonB : end == End::West ? lonA : EastOf(lonA, L);
    return exchanged ? Row(back > 360.0 ? back - 360.0 : back, T - fromA, lat, lon, L)
                     : Row(courseHere, fromA, lat, lon, L);
}

void GreatCircleRoute::Walk(RouteRows& walk) const {
    double whole = std::floor(lonA + 1.0);
    if (!walk.Store(RowAt(latA, 0.0, End::West), false)) {
        return;
    }
    for (bool more = true; more; whole += 1.0) {
        const double L = whole - lonA;
        const bool last = L - DLon > -SameAngle;
        more = walk.Store(last ? RowAt(latB, DLon, End::East) : RowAt(LatitudeAt(L), L), last);
    }
}

std::vector<GreatCirclePoint> GreatCircleRoute::Refined(const std::vector<GreatCirclePoint>& rows) const {
    std::vector<GreatCirclePoint> refined = {rows.front()};
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (!(Gap(rows[i - 1], rows[i]) <= LongestGap)) {
            Insert(refined, rows[i - 1], rows[i], i == 1);
        }
        refined.push_back(rows[i]);
    }
    return refined;
}

/// Rows between r and i. The first interval of a route is no whole degree: its rows are counted back from
/// its end, so that they too have whole minutes of longitude.
void GreatCircleRoute::Insert(std::vector<GreatCirclePoint>& rows, const GreatCirclePoint& r,
                              const GreatCirclePoint& i, bool first) const {
    const double from = r.GcLonDiff / DegToRad;
    const double to = i.GcLonDiff / DegToRad;
    double M = std::max(std::floor((LongestGap / Gap(r, i)) * 60.0 * (to - from)), 1.0);
    for (const double minutes : {30.0, 20.0, 15.0, 10.0, 5.0}) {
        if (M >= minutes) {
            M = minutes;
            break;
        }
    }
    const std::int32_t n = RoundToInt32((60.0 / M) * (to - from));
    for (std::int32_t k = 1; k < n; ++k) {
        const double L = first ? to - (M / 60.0) * (n - k) : from + (M / 60.0) * k;
        rows.push_back(RowAt(LatitudeAt(L), L));
    }
}

using Vector = std::array<double, 3>;

/// A place on the unit sphere, longitudes from A.
Vector PlaceOf(const GreatCirclePoint& row) {
    return {std::cos(row.GcLatRad) * std::cos(row.GcLonDiff),
            std::cos(row.GcLatRad) * std::sin(row.GcLonDiff), std::sin(row.GcLatRad)};
}

std::vector<GreatCirclePoint> GreatCircleRoute::Divided(const std::vector<GreatCirclePoint>& rows) const {
    std::vector<GreatCirclePoint> divided = {rows.front()};
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const double gap = Gap(rows[i - 1], rows[i]);
        const Vector from = PlaceOf(rows[i - 1]);
        const Vector to = PlaceOf(rows[i]);
        const double angle = gap / MinutesPerDegree * DegToRad;
        const std::int32_t parts = RoundToInt32(std::ceil(gap / LongestGap));
        for (std::int32_t k = 1; k < parts; ++k) {
            const double share = static_cast<double>(k) / parts;
            const double a = std::sin((1.0 - share) * angle);
            const double b = std::sin(share * angle);
            const auto at = [&](std::size_t axis) { return a * from[axis] + b * to[axis]; };
            const double lat = std::atan2(at(2), std::hypot(at(0), at(1))) / DegToRad;
            divided.push_back(RowAt(lat, std::atan2(at(1), at(0)) / DegToRad));
        }
        divided.push_back(rows[i]);
    }
    return divided;
}

} // namespace

bool WalkGreatCircle(const RouteEnds& ends, RouteRows& walk) {
    const GreatCircleRoute route(ends);
    route.Walk(walk);
    walk.rows = route.Divided(route.Refined(walk.rows));
    return route.IsExchanged();
}

} // namespace quelmont

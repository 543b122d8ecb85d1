#include "circles/small_circle.h"

#include "core/checked_math.h"
#include "core/coordinates.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"

#include <cmath>
#include <utility>

namespace quelmont {

namespace {

/// Room for rounding where a circle just reaches a pole, degrees.
constexpr double Slack = 1e-9;
/// Where the denominator of a longitude's tangent is smaller, the point lies a quarter of a circle to the
/// east or west.
constexpr double SmallestDenominator = 3e-06;
/// Neighbours farther apart in longitude, degrees, are joined by further points.
constexpr std::int32_t LongestStep = 20;

/// A longitude of a point may lie a circle or more to the east or west here, so that neighbours can be
/// compared.
struct Place {
    double lat, lon;
};

/// One circle.
class SmallCircle {
public:
    explicit SmallCircle(double radius_)
        : radius(radius_), P(Design.ScCenterLat * DegToRad), R(radius_ * DegToRad), L0(Design.ScCenterLon) {}

    Place At(int b) const;

private:
    double Latitude(double cosB) const;
    double Longitude(int b, double sinB, double cosB) const;

    double radius; ///< degrees
    double P, R;   ///< latitude of the centre and radius, radians
    double L0;     ///< longitude of the centre, degrees
};

double SmallCircle::Latitude(double cosB) const {
    const double x = std::sin(P) * std::cos(R) + std::cos(P) * std::sin(R) * cosB;
    if (x >= 1.0) {
        return 90.0;
    }
    if (x <= -1.0) {
        return -90.0;
    }
    return std::atan(x / std::sqrt(1.0 - x * x)) / DegToRad;
}

double SmallCircle::Longitude(int b, double sinB, double cosB) const {
    const bool pastNorth = Design.ScCenterLat + radius > 90.0 + Slack;
    const bool pastSouth = Design.ScCenterLat - radius < -90.0 - Slack;
    if (b == 0) {
        return pastNorth ? L0 + 180.0 : L0;
    }
    if (b == 360) {
        return pastNorth ? L0 - 180.0 : L0;
    }
    if (b == 180) {
        return pastSouth ? L0 + 180.0 : L0;
    }
    const double den = std::cos(P) * std::cos(R) - std::sin(P) * std::sin(R) * cosB;
    if (std::fabs(den) <= SmallestDenominator) {
        return den == 0.0 || sinB > 0.0 ? L0 + 90.0 : L0 - 90.0;
    }
    const double base = den > 0.0 ? L0 : b < 180 ? L0 + 180.0 : L0 - 180.0;
    return std::atan(std::sin(R) * sinB / den) / DegToRad + base;
}

/// The point at a bearing of b degrees from the centre.
Place SmallCircle::At(int b) const {
    if (radius == 0.0) {
        return {Design.ScCenterLat, L0};
    }
    const double sinB = std::sin(b * DegToRad);
    const double cosB = std::cos(b * DegToRad);
    return {Latitude(cosB), Longitude(b, sinB, cosB)};
}

void Store(SmallCircleTable& table, Place place) {
    const double lon = place.lon < -180.0  ? place.lon + 360.0
                       : place.lon > 180.0 ? place.lon - 360.0
                                           : place.lon;
    table.Points.push_back({place.lat, lon});
}

/// The points between two neighbours, by the shorter way round.
void Join(SmallCircleTable& table, Place from, Place to) {
    if (std::fabs(to.lon - from.lon) > 180.0) {
        from.lon += 360.0 * Sign(to.lon - from.lon);
    }
    const double step = std::fabs(to.lon - from.lon);
    if (!(step > LongestStep)) {
        return;
    }
    const std::int32_t n = RoundToInt32(step) / LongestStep + 1;
    for (std::int32_t k = 1; k < n; ++k) {
        Store(table, {from.lat + k * (to.lat - from.lat) / n, from.lon + k * (to.lon - from.lon) / n});
    }
}

void AddCircle(SmallCircleTable& table, double radius) {
    const SmallCircle circle(radius);
    Place before = circle.At(0);
    Store(table, before);
    for (int b = 1; b <= 360; ++b) {
        const Place here = circle.At(b);
        Join(table, before, here);
        Store(table, here);
        before = here;
    }
    table.ScRingEnd.push_back(RoundToInt16(static_cast<double>(table.Points.size())));
}

bool CanBeComputed() {
    return std::fabs(Design.ScCenterLat) <= 90.0 && std::fabs(Design.ScCenterLon) <= 180.0 &&
           Design.ScRadiusDeg >= 0.0 && Design.ScRadiusDeg <= 180.0 && Design.ScSymbolCount >= 1;
}

} // namespace

void ScCalc() {
    Design.ScTable = {};
    Guarded("ScCalc", [] {
        if (!CanBeComputed()) {
            throw RunTimeError(ErrorInvalidCall);
        }
        SmallCircleTable table;
        for (std::int16_t r = 1; r <= Design.ScSymbolCount; ++r) {
            AddCircle(table, Design.ScRadiusDeg * r / Design.ScSymbolCount);
        }
        Design.ScTable = std::move(table);
    });
}

} // namespace quelmont

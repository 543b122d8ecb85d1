#include "graticule/grid_azimuth.h"

#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "graticule/grid_lines.h"

#include <algorithm>
#include <cmath>

/// Lines near the antipode of an azimuthal equidistant or equal-area map, where even steps of
/// latitude or longitude leave coarse corners: they are walked by the azimuth at the map's centre.

namespace quelmont {

namespace {

/// Off the antipode, degrees of longitude.
constexpr double ParallelOffAntipode = 0.00056;
/// Within so many degrees of the antipode no point has a place: 1 + cosC is less than 1e-12 there.
constexpr double AntipodeRadius = 8.2e-05;
/// From the turning longitude, where the azimuth stands still, to the first probe behind it.
constexpr double ProbeStep = 0.1;
constexpr double LongestStep = 3.0;
/// Steps turn the azimuth by a degree, so that half a parallel has a few hundred.
constexpr std::size_t MostLongitudes = 20000;

double ArcCosine(double value) { return std::atan(Divide(SquareRoot(1.0 - value * value), value)); }

/// One parallel of latitude phi, with the terms that all its steps need.
struct ParallelWalk {
    GridPass& pass;
    double sinPhi, cosPhi, tanPhi;

    explicit ParallelWalk(GridPass& pass_)
        : pass(pass_), sinPhi(std::sin(Design.ProjLat * DegToRad)),
          cosPhi(std::cos(Design.ProjLat * DegToRad)), tanPhi(std::tan(Design.ProjLat * DegToRad)) {}

    /// The longitude at which the azimuth turns back, 0 when there is none on the map.
    double TurningLongitude() const {
        if (tanPhi == 0.0 || IsAntipodalLatitude(Design.ProjLat)) {
            return 0.0;
        }
        const double u = pass.TanLatCentral / tanPhi;
        if (!(std::fabs(u) < 1.0)) {
            return 0.0;
        }
        const double turning = pass.TanLatCentral == 0.0 ? 90.0 : std::fabs(InDegrees(ArcCosine(u)));
        const double cosDistance =
            Design.SinLatCentral * sinPhi +
            Design.CosLatCentral * cosPhi * std::cos((turning - Design.LonCentral) * DegToRad);
        return cosDistance > Design.CosRange ? turning : 0.0;
    }

    /// Longitude after previous, with the rate of the azimuth taken at the probe.
    double Next(double previous, double probe) const {
        if (Design.ProjLat == 0.0 && Design.LatCentral == 0.0) {
            return 180.0;
        }
        const double q = (probe - Design.LonCentral) * DegToRad;
        const double sinQ = std::sin(q);
        const double cosQ = std::cos(q);
        const double den = Design.CosLatCentral * sinPhi - Design.SinLatCentral * cosPhi * cosQ;
        if (den == 0.0) {
            return Design.LonCentral - std::fabs(InDegrees(ArcCosine(Divide(tanPhi, pass.TanLatCentral))));
        }
        const double t = cosPhi * sinQ / den;
        const double rate =
            (1.0 / (t * t + 1.0)) *
            (cosPhi * cosQ / den - (cosPhi * cosPhi) * Design.SinLatCentral * (sinQ * sinQ) / (den * den));
        const double step = std::fabs(Divide(1.0, rate));
        return previous + std::min(step, LongestStep);
    }

    void Run(double start, double probe, double end) const {
        double previous = start;
        while (true) {
            double next = std::min(Next(previous, probe), end);
            if (!(next > previous) && next != end) {
                // Where the azimuth's rate has no value, so that the walk would stand still.
                next = std::min(previous + ProbeStep, end);
            }
            pass.LonList.push_back(next);
            if (next == end || pass.LonList.size() > MostLongitudes) {
                return;
            }
            previous = next;
            probe = next;
        }
    }
};

/// Azimuth, 0 to 180 degrees, under which the point at latitude on the meridian at d is seen from
/// the map's centre.
double AzimuthOf(double latitude, double d) {
    const double sinE = std::sin(latitude * DegToRad);
    const double cosE = std::cos(latitude * DegToRad);
    const double azimuth = InDegrees(std::atan(
        Divide(cosE * std::sin(d * DegToRad),
               Design.CosLatCentral * sinE - Design.SinLatCentral * cosE * std::cos(d * DegToRad))));
    return azimuth < 0.0 ? azimuth + 180.0 : azimuth;
}

/// How a meridian is walked: from azimuth A in n steps of a degree to the end.
struct MeridianWalk {
    double A = 180.0;
    std::int32_t n = 180;
    double dir = 1.0;
    double end = 0.0;
    bool southFirst = false; ///< a whole meridian of a southern map is walked from 180 to 360
};

std::int32_t WholeDegrees(double angle) { return RoundToInt32(std::floor(std::fabs(angle))); }

MeridianWalk PlanMeridian(const GridPass& pass, double d) {
    MeridianWalk walk;
    walk.dir = Sign(d);
    const bool reachesNorth = pass.ClipLatMax == 90.0;
    const bool reachesSouth = pass.ClipLatMin == -90.0;
    if (reachesNorth && reachesSouth) {
        if (Design.LatCentral < 0.0) {
            walk.dir = -walk.dir;
            walk.southFirst = true;
        }
        return walk;
    }
    walk.A = AzimuthOf(reachesNorth ? pass.ClipLatMin : pass.ClipLatMax, d);
    const bool west = Design.ProjLon < Design.LonCentral;
    if (west) {
        walk.A += 180.0;
    }
    if (reachesNorth) {
        walk.n = WholeDegrees((west ? 360.0 : 0.0) - walk.A) + 1;
    } else {
        walk.dir = -walk.dir;
        walk.end = 180.0;
        walk.n = WholeDegrees(180.0 - walk.A) + 1;
    }
    return walk;
}

/// Latitude at which the meridian at d is seen under azimuth z, degrees.
double LatitudeAtAzimuth(double z, double d, bool southFirst) {
    if (z == 0.0) {
        return southFirst ? -90.0 : 90.0;
    }
    if (z == 180.0) {
        return southFirst ? 90.0 : -90.0;
    }
    return InDegrees(std::atan(Divide(Design.SinLatCentral * std::cos(d * DegToRad) +
                                          Divide(std::sin(d * DegToRad), std::tan(z * DegToRad)),
                                      Design.CosLatCentral)));
}

} // namespace

void AntipodalParallel(GridPass& pass) {
    const ParallelWalk walk(pass);
    double first = pass.ClipLonMin;
    if (IsAntipodalLatitude(Design.ProjLat) && Design.RangeSec == SecPerHalfCircle) {
        // Near a pole that many degrees of longitude would still be the antipode.
        first = std::min(first + std::max(ParallelOffAntipode, AntipodeRadius / Design.CosLatCentral), 180.0);
    }
    pass.LonList.assign(1, first);
    const double turning = walk.TurningLongitude();
    if (turning > 0.0) {
        walk.Run(pass.ClipLonMin, pass.ClipLonMin, turning);
        walk.Run(turning, std::min(turning + ProbeStep, 180.0), 180.0);
    } else {
        walk.Run(first, first, 180.0);
    }
    // The other half is the mirror image about the central meridian.
    for (const double lon : pass.LonList) {
        Design.ProjLon = lon;
        PlotPoint(pass);
    }
    for (auto lon = pass.LonList.rbegin() + 1; lon != pass.LonList.rend(); ++lon) {
        Design.ProjLon = std::min(360.0 - *lon, 360.0);
        PlotPoint(pass);
    }
}

void MeridianByAzimuth(GridPass& pass) {
    const double d = Design.ProjLon - Design.LonCentral;
    const MeridianWalk walk = PlanMeridian(pass, d);
    for (std::int32_t j = 0; j <= walk.n; ++j) {
        const double z = j == walk.n ? walk.end : std::clamp(walk.A - walk.dir * j, 0.0, 360.0);
        Design.ProjLat =
            std::clamp(LatitudeAtAzimuth(z, d, walk.southFirst), pass.ClipLatMin, pass.ClipLatMax);
        PlotPoint(pass);
    }
}

} // namespace quelmont

#include "reports/scale_error.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "reports/reports_state.h"

#include <cmath>

namespace quelmont {

namespace {

constexpr const char* ScalePicture = "0.0000E+00";

bool AtPole() { return std::fabs(ReportsNow.ScaleErrLat) == 90.0; }

double Cosine(double degrees) { return std::cos(degrees * DegToRad); }

/// Tangent and cosine of half a latitude beyond 45 degrees.
double HalfTangent(double degrees) { return std::tan(degrees * HalfDegToRad + QuarterPi); }
double HalfCosine(double degrees) { return std::cos(degrees * HalfDegToRad + QuarterPi); }

/// Derivative of the radius of a parallel on the conformal conic, but for factors that cancel.
double ConformalSlope(double degrees) {
    const double cosine = HalfCosine(degrees);
    return Divide(Power(HalfTangent(degrees), -Design.ConeConstant - 1.0), cosine * cosine);
}

} // namespace

ScaleError Printed(double h, double k, double sine) {
    return {FormatNumber(h, ScalePicture), FormatNumber(k, ScalePicture),
            FormatNumber(h * k * sine, ScalePicture)};
}

ScaleError Printed(std::string_view h, std::string_view k, std::string_view area) {
    return {std::string(h), std::string(k), std::string(area)};
}

ScaleError MercatorScale() {
    // Snyder 1987, eq. 7-3. The parallel of the map nearest to the equator is taken as true.
    double reference = 1.0;
    if (Design.LatNorth * Design.LatSouth > 0.0) {
        reference = Divide(1.0, Cosine(Design.LatNorth < 0.0 ? Design.LatNorth : Design.LatSouth));
    }
    const double h = Divide(Divide(1.0, Cosine(ReportsNow.ScaleErrLat)), reference);
    return Printed(h, h);
}

ScaleError EquirectangularScale() {
    if (AtPole()) {
        return Printed(TrueScale, InfiniteScale, InfiniteScale);
    }
    // Snyder 1987, eq. 12-4.
    return Printed(1.0, Divide(Cosine(Design.StdParNorth), Cosine(std::fabs(ReportsNow.ScaleErrLat))));
}

ScaleError CylindricalEqualAreaScale() {
    if (AtPole()) {
        return Printed(ZeroScale, InfiniteScale, InfiniteScale);
    }
    // Snyder 1987, eq. 10-3 and 10-4.
    const double truth = Cosine(Design.StdParNorth);
    const double here = Cosine(std::fabs(ReportsNow.ScaleErrLat));
    return Printed(Divide(here, truth), Divide(truth, here));
}

ScaleError UtmScale() {
    // Snyder 1987, eq. 8-11, to the second order.
    const double x = ReportsNow.ScaleErrLon;
    const double cosine = std::cos(ReportsNow.ScaleErrLat);
    const double sine = std::sin(ReportsNow.ScaleErrLat);
    const double part =
        (1.0 + Design.SpheroidEp2 * (cosine * cosine)) * (x * x) * (1.0 - Design.SpheroidE2 * (sine * sine));
    const double radius = 2.0 * (Design.UtmK0 * Design.UtmK0) * (Design.SpheroidA * Design.SpheroidA);
    const double h = Design.UtmK0 * (1.0 + Divide(part, radius));
    return Printed(h, h);
}

ScaleError EquidistantConicScale() {
    const double p1 = Design.StdParNorth;
    const double p2 = Design.StdParSouth;
    Design.ConicG = Divide(p1 * Cosine(p2) - p2 * Cosine(p1), Cosine(p2) - Cosine(p1));
    if (AtPole()) {
        return Printed(TrueScale, InfiniteScale, InfiniteScale);
    }
    // Snyder 1987, eq. 16-5.
    const double r0 = Design.ConicG - p1;
    const double lat = ReportsNow.ScaleErrLat;
    return Printed(1.0, Divide(Design.ConicG - lat, Divide(r0 * Cosine(lat), Cosine(p1))));
}

ScaleError ConformalConicScale() {
    if (AtPole()) {
        return Printed(InfiniteScale, InfiniteScale, InfiniteScale);
    }
    // Snyder 1987, eq. 15-4, each direction by itself.
    const double lat = ReportsNow.ScaleErrLat;
    const double r0 = Divide(1.0, Power(HalfTangent(Design.StdParNorth), Design.ConeConstant));
    const double h = Divide(ConformalSlope(lat), ConformalSlope(Design.StdParNorth));
    const double r = Divide(1.0, Power(HalfTangent(lat), Design.ConeConstant));
    return Printed(h, Divide(r, Divide(r0 * Cosine(lat), Cosine(Design.StdParNorth))));
}

ScaleError AlbersScale() {
    if (AtPole()) {
        return Printed(TrueScale, InfiniteScale, InfiniteScale);
    }
    // Snyder 1987, eq. 14-7.
    const auto radius = [](double degrees) {
        return SquareRoot(Design.ConicC - 2.0 * Design.ConeConstant * std::sin(degrees * DegToRad));
    };
    const double lat = ReportsNow.ScaleErrLat;
    const double r0 = radius(Design.StdParNorth);
    const double q0 = Divide(1.0, r0) * Cosine(Design.StdParNorth);
    const double r = radius(lat);
    return Printed(Divide(Divide(1.0, r) * Cosine(lat), q0),
                   Divide(r, Divide(r0 * Cosine(lat), Cosine(Design.StdParNorth))));
}

} // namespace quelmont

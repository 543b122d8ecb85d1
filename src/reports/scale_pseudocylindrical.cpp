#include "core/checked_math.h"
#include "core/map_design.h"
#include "projection/pseudocylindrical.h"
#include "reports/reports_state.h"
#include "reports/scale_error.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace quelmont {

namespace {

/// Meridians cross parallels at right angles here.
bool OnAnAxis() { return ReportsNow.ScaleErrLon == Design.LonCentral || ReportsNow.ScaleErrLat == 0.0; }

bool AtPole() { return !(std::fabs(ReportsNow.ScaleErrLat) < PoleLatitude); }

double Length(double x, double y) { return std::sqrt(x * x + y * y); }

double Value(const std::array<double, 7>& coefficients, double x) {
    double sum = 0.0;
    for (std::size_t n = coefficients.size(); n-- > 0;) {
        sum = sum * x + coefficients[n];
    }
    return sum;
}

double Derivative(const std::array<double, 7>& coefficients, double x) {
    double sum = 0.0;
    for (std::size_t n = coefficients.size(); n-- > 1;) {
        sum = sum * x + static_cast<double>(n) * coefficients[n];
    }
    return sum;
}

} // namespace

ScaleError HammerScale() {
    // Derivatives of Snyder 1987, eq. 24-1 and following, along meridian (p) and parallel (l).
    const double m = 0.5;
    const double phi = ReportsNow.ScaleErrLat * DegToRad;
    const double lam = (ReportsNow.ScaleErrLon - Design.LonCentral) * m * DegToRad;
    const double c = std::cos(phi);
    const double s = std::sin(phi);
    const double cl = std::cos(lam);
    const double sl = std::sin(lam);
    const double e = c * cl + 1.0;
    const double r = SquareRoot(Divide(2.0, e));
    const double xp = -(r / m) * sl * s + Divide(c * sl * s * cl, (e * e) * m * r);
    const double yp = r * c + Divide(s * s * cl, (e * e) * r);
    const double h = Length(xp, yp);
    const bool pole = std::fabs(ReportsNow.ScaleErrLat) == 90.0;
    const double xl = pole ? r * cl : r * c * cl + Divide(c * sl * c * sl, (e * e) * r);
    const double yl = pole ? Divide(m * s * sl, r) : Divide(m * s * c * sl, (e * e) * r);
    const double k = pole ? Length(xl, yl) : Divide(Length(xl, yl), c);
    const double sine =
        OnAnAxis() ? 1.0
                   : std::sin(std::atan(std::fabs(Divide(yl, xl))) + std::atan(std::fabs(Divide(yp, xp))));
    return Printed(h, k, sine);
}

ScaleError MollweideScale() {
    if (AtPole()) {
        // Equal-area all the same: a point of infinite stretch.
        return Printed(ReportsNow.ScaleErrLon == Design.LonCentral ? ZeroScale : InfiniteScale, InfiniteScale,
                       TrueScale);
    }
    // Derivatives of Snyder 1987, eq. 31-1, 31-2.
    const double phi = ReportsNow.ScaleErrLat * DegToRad;
    const double t = MollweideAngle(phi);
    const double slope = 1.0 + std::cos(2.0 * t);
    const double xp = -Divide(
        (ReportsNow.ScaleErrLon - Design.LonCentral) * Sqrt2 * DegToRad * std::sin(t) * std::cos(phi), slope);
    const double yp = Divide(Pi * std::cos(t) * std::cos(phi), slope * Sqrt2);
    const double h = Length(xp, yp);
    const double xl = (2.0 * Sqrt2 / Pi) * std::cos(t);
    return Printed(h, Divide(std::fabs(xl), std::cos(phi)), OnAnAxis() ? 1.0 : Divide(yp, h));
}

ScaleError RobinsonScale() {
    // The slopes of the polynomials are per degree of latitude, the map's height and width per radian.
    const double a = std::fabs(ReportsNow.ScaleErrLat);
    const double xp =
        Derivative(RobinsonLengths, a) * (ReportsNow.ScaleErrLon - Design.LonCentral) * RobinsonWidth;
    const double yp = RobinsonHeight * Derivative(RobinsonHeights, a) / DegToRad;
    const double h = Length(xp, yp);
    if (AtPole()) {
        return {Printed(h, 1.0).meridian, std::string(InfiniteScale), std::string(InfiniteScale)};
    }
    const double k = Divide(std::fabs(Value(RobinsonLengths, a) * RobinsonWidth), std::cos(a * DegToRad));
    return Printed(h, k, OnAnAxis() ? 1.0 : Divide(yp, h));
}

} // namespace quelmont

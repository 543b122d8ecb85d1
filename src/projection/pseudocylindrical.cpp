#include "projection/pseudocylindrical.h"

#include "core/map_design.h"
#include "projection/forward.h"
#include "projection/robinson_polynomials.h"
#include "projection/sine_cosine.h"
#include "projection/whole_minutes.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace quelmont {

void ForwardHammer() {
    // Snyder 1987, eq. 24-1 and following, with half the longitude difference.
    const double lam = (Design.ProjLon - Design.LonCentral) * HalfDegToRad;
    const auto [sinPhi, c] = SineCosineOfLatitude(Design.ProjLat);
    const auto [sinLam, cosLam] = SineCosineOf(lam);
    const double denominator = c * cosLam + 1.0;
    if (!(denominator > 0.0)) {
        // Without the factor neither coordinate can be computed.
        ReportProjectSelect(denominator == 0.0 ? ErrorDivisionByZero : ErrorInvalidCall);
        return;
    }
    const double d = std::sqrt(2.0 / denominator);
    StoreProjected(((d + d) * c) * sinLam, sinPhi * d);
}

namespace {

/// Rounds after which Newton's rule is given up. From phi it needs 3 rounds at the equator and
/// some 25 next to a pole, where it converges linearly; rounding can keep it from ending there.
constexpr int MollweideRounds = 200;

} // namespace

double MollweideAngle(double phi) {
    const double target = std::sin(phi) * Pi;
    double t = phi;
    for (int round = 0; round < MollweideRounds; ++round) {
        const double twice = t + t;
        const double sine = std::sin(twice);
        const double cosine = std::cos(twice);
        const double d = (target - twice - sine) / (cosine + cosine + 2.0);
        t = d + t;
        // A step that is not a number also ends the loop.
        if (!(std::fabs(d) >= 1e-14)) {
            break;
        }
    }
    return t;
}

namespace {

/// Theta between the equator and 85 degrees as cubics over quarters of a degree, to 3e-9: where one round
/// of Newton's rule begins, and ends below the rounding of its last digits. Nearer to the pole the slope
/// of theta has no bound.
class MollweideStart {
public:
    static constexpr double Limit = 85.0; ///< degrees

    MollweideStart() noexcept {
        const double width = DegToRad / PerDegree;
        for (std::size_t i = 0; i < Pieces; ++i) {
            const double from = static_cast<double>(i) * width;
            const double a = MollweideAngle(from);
            const double b = MollweideAngle(from + width);
            const double slopeA = Slope(from, a) * width;
            const double slopeB = Slope(from + width, b) * width;
            pieces[i] = {a, slopeA, 3.0 * (b - a) - 2.0 * slopeA - slopeB, 2.0 * (a - b) + slopeA + slopeB};
        }
    }

    /// Of a latitude from 0 to below Limit, degrees; radians.
    double At(double latitude) const {
        const double scaled = latitude * PerDegree;
        const auto index = static_cast<std::size_t>(static_cast<std::int32_t>(scaled));
        const double u = scaled - static_cast<double>(index);
        const Piece& p = pieces[index];
        return p.constant + u * (p.linear + u * (p.square + u * p.cube));
    }

private:
    static constexpr double PerDegree = 4.0;
    static constexpr std::size_t Pieces = 340; ///< PerDegree * Limit
    struct Piece {
        double constant, linear, square, cube;
    };

    /// d theta / d phi.
    static double Slope(double phi, double theta) {
        const double cosine = std::cos(theta);
        return Pi * std::cos(phi) / (4.0 * cosine * cosine);
    }

    std::array<Piece, Pieces> pieces;
};

/// Sine and cosine of theta for a latitude in degrees; phi is the same in radians.
SineCosine MollweideTheta(double latitude, double phi) {
    static const MollweideStart start;
    const double size = std::fabs(latitude);
    if (!(size < MollweideStart::Limit)) {
        const double theta = size == 90.0 ? phi : MollweideAngle(phi);
        return {std::sin(theta), std::cos(theta)};
    }
    const double t = start.At(size);
    const auto [sine, cosine] = SineCosineOf(t);
    const double target = SineCosineOf(std::fabs(phi)).sine * Pi;
    const double d = (target - (t + t) - 2.0 * sine * cosine) / (4.0 * cosine * cosine);
    // The sums for theta = t + d; the cube of d is below the last digit.
    const double half = 0.5 * d * d;
    return {std::copysign(sine + (cosine * d - sine * half), latitude), cosine - (sine * d + cosine * half)};
}

} // namespace

void ForwardMollweide() {
    // Snyder 1987, eq. 31-1, 31-2, 31-4.
    static WholeMinutes<SineCosine> minutes;
    const double phi = Design.ProjLat * DegToRad;
    const double lam = (Design.ProjLon - Design.LonCentral) * DegToRad;
    const auto [sine, cosine] =
        minutes.Of(Design.ProjLat, [phi] { return MollweideTheta(Design.ProjLat, phi); });
    if (!std::isfinite(sine)) {
        // Very near a pole the slope of Newton's rule is zero.
        ReportProjectSelect(ErrorDivisionByZero);
        return;
    }
    StoreProjected(((Sqrt2 + Sqrt2) * lam * cosine) / Pi + Design.LobeOffsetX, sine * Sqrt2);
}

namespace {

/// Of a parallel: its length of that of the equator, and its distance from the equator, negative in the
/// south.
struct RobinsonParallel {
    double length, distance;
};

RobinsonParallel RobinsonAt(double latitude) {
    const double a = std::fabs(latitude);
    const double distance = RobinsonDistance(a);
    return {RobinsonLength(a), latitude < 0.0 ? -distance : distance};
}

} // namespace

void ForwardRobinson() {
    static WholeMinutes<RobinsonParallel> minutes;
    const double lam = (Design.ProjLon - Design.LonCentral) * DegToRad;
    const auto [length, distance] = minutes.Of(Design.ProjLat, [] { return RobinsonAt(Design.ProjLat); });
    StoreProjected((length * RobinsonWidth) * lam, distance * RobinsonHeight);
}

} // namespace quelmont

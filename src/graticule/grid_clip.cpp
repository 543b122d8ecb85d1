#include "graticule/grid_clip.h"

#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"

#include <cmath>

/// Where an azimuthal map's circle cuts parallels and meridians: spherical trigonometry on the
/// circle of angular radius RangeDeg about the centre.

namespace quelmont {

namespace {

constexpr std::int32_t Sec90 = SecPerHalfCircle / 2;

double UpToOne(double value) { return std::fabs(value) > 1.0 ? Sign(value) : value; }

/// Latitude in degrees whose sine is s.
double LatitudeOfSine(double s) {
    return std::fabs(s) == 1.0 ? Sign(s) * 90.0 : InDegrees(std::atan(s / std::sqrt(1.0 - s * s)));
}

/// How far from the central meridian, in degrees, the meridians lie that touch a circle without a pole in it.
double TangentReach(const GridPass& pass) {
    const double u = UpToOne(Divide(Design.SinLatCentral, Design.CosRange));
    if (std::fabs(u) == 1.0) {
        return 90.0;
    }
    const double t = Divide(u, std::sqrt(1.0 - u * u));
    const double v = UpToOne(Divide(pass.TanLatCentral, t));
    return InDegrees(std::atan(Divide(std::sqrt(1.0 - v * v), v)));
}

/// The two sines at which the great circle of a meridian crosses the map's circle, from
/// CosRange = SinLatCentral s + CosLatCentral sqrt(1 - s^2) cos D, squared.
struct Roots {
    double s1, s2;
};

Roots SolveMeridian(double cosD) {
    const double k = Design.CosLatCentral * cosD;
    const double A = Divide(Design.CosRange, k);
    const double B = Divide(Design.SinLatCentral, k);
    const double a = B * B + 1.0;
    const double b = -2.0 * A * B;
    const double c = A * A - 1.0;
    double disc = b * b - 4.0 * a * c;
    if (disc < 0.0) {
        disc = 0.0;
    }
    const double root = std::sqrt(Finite(disc));
    return {UpToOne((-b + root) / (2.0 * a)), UpToOne((-b - root) / (2.0 * a))};
}

/// What is left of the equation before squaring when a root is put in; squaring added a false root.
double Residual(double s, double cosD) {
    return std::fabs(Design.CosRange -
                     (Design.SinLatCentral * s + Design.CosLatCentral * std::sqrt(1.0 - s * s) * cosD));
}

/// Below this a root is a true one.
constexpr double TrueRoot = 1e-08;

/// The meridian inside a circle that does not hold both poles with room to spare: one piece.
void CutOnePiece(GridPass& pass, double cosD) {
    const Roots roots = SolveMeridian(cosD);
    double residual1 = 1.0;
    if (pass.NorthReachSec != Sec90) {
        pass.ClipLatMax = LatitudeOfSine(roots.s1);
        residual1 = Residual(roots.s1, cosD);
    }
    double residual2 = 1.0;
    if (pass.SouthReachSec != -Sec90) {
        pass.ClipLatMin = LatitudeOfSine(roots.s2);
        residual2 = Residual(roots.s2, cosD);
    }
    if (pass.NorthReachSec >= Sec90) {
        if (residual1 < TrueRoot) {
            pass.ClipLatMin = pass.ClipLatMax;
        }
        pass.ClipLatMax = 90.0;
    } else if (pass.SouthReachSec <= -Sec90) {
        if (residual2 < TrueRoot) {
            pass.ClipLatMax = pass.ClipLatMin;
        }
        pass.ClipLatMin = -90.0;
    }
}

/// Both poles lie inside the circle: the meridian may leave it in its middle.
void CutTwoPieces(GridPass& pass, double d, double cosD) {
    const double k = Design.CosLatCentral * cosD;
    // The point of the meridian's great circle that is nearest to or farthest from the centre.
    const double p = std::fabs(d) == 90.0 || Design.CosLatCentral == 0.0
                         ? Pi / 2.0
                         : std::atan(Divide(Design.SinLatCentral, k));
    pass.ClipLatMax = 90.0;
    pass.ClipLatMin = -90.0;
    if (Design.SinLatCentral * std::sin(p) + k * std::cos(p) >= Design.CosRange) {
        return;
    }
    const Roots roots = SolveMeridian(cosD);
    const double upper = std::fabs(roots.s1) == 1.0 ? 90.0 : LatitudeOfSine(roots.s1);
    const double lower = std::fabs(roots.s2) == 1.0 ? -90.0 : LatitudeOfSine(roots.s2);
    if (pass.NorthReachSec == Sec90) {
        pass.ClipLatMax = lower;
    } else if (pass.SouthReachSec == -Sec90) {
        pass.ClipLatMin = upper;
    } else {
        pass.ClipLatMin = upper;
        pass.SecondPiece = true;
        pass.SecondLatMax = lower;
    }
}

/// Meridians at a right angle to the central one, on a circle that holds one pole.
bool CutQuadrantMeridian(GridPass& pass) {
    const double centre = Design.LatCentral;
    const bool holdsNorth = pass.NorthReachSec >= Sec90;
    const bool holdsSouth = pass.SouthReachSec <= -Sec90;
    if (centre != 0.0 && holdsNorth && holdsSouth) {
        pass.ClipLatMax = 90.0;
        pass.ClipLatMin = -90.0;
        return true;
    }
    if (centre > 0.0 && holdsNorth) {
        const double s = UpToOne(Divide(Design.CosRange, Design.SinLatCentral));
        pass.ClipLatMax = 90.0;
        pass.ClipLatMin = std::fabs(s) == 1.0 ? centre - pass.RangeDeg : LatitudeOfSine(s);
        return true;
    }
    if (centre < 0.0 && holdsSouth) {
        const double s = UpToOne(Divide(Design.CosRange, Design.SinLatCentral));
        pass.ClipLatMin = -90.0;
        pass.ClipLatMax = std::fabs(s) == 1.0 ? centre + pass.RangeDeg : LatitudeOfSine(s);
        return true;
    }
    return false;
}

/// A hemisphere: the circle is a great circle.
void CutHemisphere(GridPass& pass, double cosD) {
    pass.ClipLatMax = 90.0;
    pass.ClipLatMin = -90.0;
    if (Design.LatCentral != 0.0) {
        const double crossing =
            InDegrees(std::atan(Divide(-Design.CosLatCentral * cosD, Design.SinLatCentral)));
        (Design.LatCentral > 0.0 ? pass.ClipLatMin : pass.ClipLatMax) = crossing;
    }
}

} // namespace

void CalcCircleReach(GridPass& pass) {
    const double centre = Design.LatCentral;
    pass.TanLatCentral = std::tan(Design.LatCentralRad);
    pass.RangeDeg = DegreesOf(Design.RangeSec);
    pass.NorthReachSec = RoundToInt32(centre * SecPerDegree + Design.RangeSec);
    pass.SouthReachSec = RoundToInt32(centre * SecPerDegree - Design.RangeSec);
    pass.PoleGapSec = RoundToInt32(Design.RangeSec - std::fabs(centre * SecPerDegree));
    if (Design.RangeSec == SecPerHalfCircle) {
        return;
    }
    if (centre == 90.0) {
        pass.ClipLatMin = Design.LatNorth - pass.RangeDeg;
        return;
    }
    if (centre == -90.0) {
        pass.ClipLatMax = Design.LatSouth + pass.RangeDeg;
        return;
    }
    pass.CircleClip = true;
    pass.ClipLatMax = centre + pass.RangeDeg;
    pass.ClipLatMin = centre - pass.RangeDeg;
    if (centre == 0.0 && pass.RangeDeg <= 90.0) {
        pass.HalfLonReach = pass.RangeDeg;
    } else if (pass.SouthReachSec >= -Sec90 && pass.NorthReachSec <= Sec90) {
        pass.HalfLonReach = TangentReach(pass);
    } else {
        pass.HalfLonReach = 180.0;
    }
}

void CutParallel(GridPass& pass) {
    const double lat = Design.ProjLat;
    const bool beyondNorth =
        pass.ClipLatMax > 90.0 && std::floor(Divide(pass.ClipLatMax - 90.0, 90.0 - lat)) > 0.0;
    const bool beyondSouth =
        pass.ClipLatMin < -90.0 && std::floor(Divide(-pass.ClipLatMin - 90.0, 90.0 + lat)) > 0.0;
    if (beyondNorth || beyondSouth) {
        // Wholly inside the part of the circle that lies beyond the pole.
        pass.ClipLonMax = Design.LonCentral + 180.0;
        pass.ClipLonMin = Design.LonCentral - 180.0;
        return;
    }
    const double sinRange = std::sin(pass.RangeDeg * HalfDegToRad);
    const double sinLat = std::sin((lat - Design.LatCentral) * HalfDegToRad);
    double h = Divide(sinRange * sinRange - sinLat * sinLat, Design.CosLatCentral * std::cos(lat * DegToRad));
    if (h < 0.0) {
        h = 0.0;
    }
    const double d = InDegrees(2.0 * std::atan(Divide(std::sqrt(h), SquareRoot(1.0 - h))));
    pass.ClipLonMax = Design.LonCentral + d;
    pass.ClipLonMin = Design.LonCentral - d;
}

void CutMeridian(GridPass& pass) {
    const double d = Design.ProjLon - Design.LonCentral;
    const double cosD = std::cos(d * DegToRad);
    if (std::fabs(d) == 90.0 && CutQuadrantMeridian(pass)) {
        return;
    }
    if (pass.RangeDeg == 90.0) {
        CutHemisphere(pass, cosD);
    } else if (pass.PoleGapSec < Sec90) {
        CutOnePiece(pass, cosD);
    } else {
        CutTwoPieces(pass, d, cosD);
    }
}

} // namespace quelmont

#include "projection/param_select.h"

#include "core/angle_text.h"
#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "projection/lobe_row.h"
#include "projection/project_select.h"
#include "projection/projection_table.h"

#include <cmath>

namespace quelmont {

namespace {

/// One statement. After a failure its field keeps its value and the next statement runs.
template <typename Statement>
void Step(Statement&& statement) {
    Guarded("ParamSelect", std::forward<Statement>(statement));
}

void Project(double lat, double lon) {
    Design.ProjLat = lat;
    Design.ProjLon = lon;
    ProjectSelect();
}
double XOf(double lat, double lon) {
    Project(lat, lon);
    return Design.ProjX;
}
double YOf(double lat, double lon) {
    Project(lat, lon);
    return Design.ProjY;
}

void BoundByCorners() {
    Design.MapYMin = YOf(Design.LatSouth, Design.LonCentral);
    Design.MapYMax = YOf(Design.LatNorth, Design.LonCentral);
    Design.MapXMin = XOf(Design.LatSouth, Design.LonZero);
    Design.MapXMax = XOf(Design.LatSouth, Design.LonSpan);
}

// ---- Cones.

/// Snyder 1987, eq. 16-2 to 16-4 with the constants in degrees.
void EquidistantConicConstants(double p1, double p2) {
    const double cos1 = std::cos(p1 * DegToRad);
    const double cos2 = std::cos(p2 * DegToRad);
    Step([&] { Design.ConeConstant = Divide(cos2 - cos1, (p1 - p2) * DegToRad); });
    Step([&] { Design.ConicG = Divide(p1 * cos2 - p2 * cos1, cos2 - cos1); });
    Step([&] { Design.ConicRho0 = (Design.ConicG - Design.LatCentral) * DegToRad; });
}

double HalfAngleTangent(double latitude) { return std::tan(latitude * HalfDegToRad + QuarterPi); }

/// Snyder 1987, eq. 15-1a, 15-2, 15-3.
void ConformalConicConstants(double p1, double p2) {
    const double cos1 = std::cos(p1 * DegToRad);
    const double cos2 = std::cos(p2 * DegToRad);
    Step([&] {
        Design.ConeConstant = Divide(Logarithm(Divide(cos2, cos1)),
                                     Logarithm(Divide(HalfAngleTangent(p1), HalfAngleTangent(p2))));
    });
    Step([&] {
        Design.ConicF = Divide(Power(HalfAngleTangent(p2), Design.ConeConstant) * cos2, Design.ConeConstant);
    });
    Step([&] {
        Design.ConicRho0 =
            Divide(Design.ConicF, Power(HalfAngleTangent(Design.LatCentral), Design.ConeConstant));
    });
}

/// Snyder 1987, eq. 14-3a, 14-5, 14-6.
void AlbersConstants(double p1, double p2) {
    const double cos2 = std::cos(p2 * DegToRad);
    const double sin2 = std::sin(p2 * DegToRad);
    Step([&] { Design.ConeConstant = (sin2 + std::sin(p1 * DegToRad)) / 2.0; });
    Step([&] { Design.ConicC = Power(cos2, 2.0) + 2.0 * Design.ConeConstant * sin2; });
    Step([&] {
        Design.ConicRho0 =
            Divide(SquareRoot(Design.ConicC - 2.0 * Design.ConeConstant * Design.SinLatCentral),
                   Design.ConeConstant);
    });
}

/// A cone's meridians fan out: beyond a half-disc the sides of the map reach further than its
/// corners, and the far edge turns back.
void ConeExtent(double p1, double p2) {
    const double north = Design.LatNorth;
    const double south = Design.LatSouth;
    const double west = Design.LonZero;
    const double east = Design.LonSpan;
    const double sign = Sign(std::fabs(p1) - std::fabs(p2));
    double excess = 0.0;
    bool wide = false;
    Step([&] {
        const double span = east - west;
        const double fan = std::fabs(Divide(180.0, Design.ConeConstant));
        wide = span > fan;
        excess = wide ? (span - fan) / 2.0 : 0.0;
    });
    if (sign > 0.0) {
        Design.MapYMin = YOf(south, Design.LonCentral);
        Design.MapYMax = YOf(wide ? south : north, west);
        Design.MapXMin = XOf(south, west + excess);
        Design.MapXMax = XOf(south, east - excess);
    } else if (sign < 0.0) {
        Design.MapYMin = YOf(wide ? north : south, west);
        Design.MapYMax = YOf(north, Design.LonCentral);
        Design.MapXMin = XOf(north, west + excess);
        Design.MapXMax = XOf(north, east - excess);
    }
}

void Cone() {
    const double p1 = Design.StdParNorth;
    const double p2 = Design.StdParSouth;
    if (Design.ProjNum == ProjEquidistantConic) {
        EquidistantConicConstants(p1, p2);
    } else if (Design.ProjNum == ProjConformalConic) {
        ConformalConicConstants(p1, p2);
    } else {
        AlbersConstants(p1, p2);
    }
    ConeExtent(p1, p2);
}

// ---- World ovals: no straight sides, so each extreme is taken where the outline reaches it.

bool EndsIn(const std::string& text, char letter) { return !text.empty() && text.back() == letter; }

/// The lobes of a map of one hemisphere: their middles stand as far apart as on the equator, which
/// the map does not reach, and each narrows about its own middle.
void FitLobes(std::size_t hemisphere) {
    const double half = Design.MapXMax;
    const double apart = 1.0 - Divide(half, XOf(0.0, Design.LonSpan));
    const LobeRow row = LobesOf(hemisphere);
    Design.MapXMin = Design.LobeCentral[row.first] * apart - half;
    Design.MapXMax = Design.LobeCentral[row.last] * apart + half;
}

void WorldOval() {
    const bool northIsNorth = EndsIn(Design.LatNorthText, 'N');
    const bool northIsSouth = EndsIn(Design.LatNorthText, 'S');
    const bool southIsNorth = EndsIn(Design.LatSouthText, 'N');
    const bool southIsSouth = EndsIn(Design.LatSouthText, 'S');
    const double middle = (Design.LonSpan + Design.LonZero) / 2.0;

    Design.MapYMax = YOf(Design.LatNorth, northIsNorth || Design.LatNorth == 0.0 ? Design.LonSpan : middle);
    Design.MapYMin = YOf(Design.LatSouth, southIsNorth ? middle : Design.LonSpan);
    // The widest parallel is the one nearest the equator.
    double widest = Design.ProjLat;
    if ((northIsNorth && southIsSouth) || Design.LatNorth == 0.0 || Design.LatSouth == 0.0) {
        widest = 0.0;
    } else if (northIsSouth && southIsSouth) {
        widest = Design.LatNorth;
    } else if (northIsNorth && southIsNorth) {
        widest = Design.LatSouth;
    }
    Design.MapXMax = XOf(widest, Design.LonSpan);
    Design.MapXMin = -Design.MapXMax;
    if (Design.ProjNum == ProjInterruptedMollweide && widest != 0.0) {
        Step([] { FitLobes(Design.LatSouth > 0.0 ? 0 : 1); });
    }
}

// ---- Azimuthal maps: a square around the centre.

void SquareExtent() {
    Design.MapXMin = -Design.MapXMax;
    Design.MapYMax = Design.MapXMax;
    Design.MapYMin = -Design.MapYMax;
}

void Disc() {
    if (Design.RangeSec == SecPerHalfCircle) {
        // The rim is the antipode, which has no place of its own. The other three are not admitted
        // with such a range.
        if (Design.ProjNum == ProjAzimuthalEquidistant) {
            Design.MapXMax = 4.0 * QuarterPi;
        } else if (Design.ProjNum == ProjAzimuthalEqualArea) {
            Design.MapXMax = 4.0 * 0.5;
        }
    } else {
        double lat = DegreesOf(Design.RangeSec) + Design.LatCentral;
        double lon = Design.LonCentral;
        if (lat > 90.0) {
            // Over the pole and down the far meridian.
            lon = 360.0;
            lat = 180.0 - lat;
        }
        Design.MapXMax = YOf(lat, lon);
    }
    SquareExtent();
}

/// Mean radius of the earth, kilometres.
constexpr double EarthRadiusKm = 6371.0;

void Perspective() {
    Step([&] { Design.VpP = Finite(Design.VpDistanceKm / EarthRadiusKm + 1.0); });
    // The small term keeps points just at the horizon visible.
    Step([&] { Design.HorizonCos[3] = Divide(1.0, Design.VpP + 1e-10); });
    double c = 0.0;
    double s = 0.0;
    double a = 0.0;
    Step([&] { c = Divide(1.0, Design.VpP); });
    Step([&] { s = SquareRoot(1.0 - c * c); });
    Step([&] { a = InDegrees(std::atan(Divide(s, c))); });
    Step([&] { Design.RangeSec = RoundToInt32(a * SecPerDegree); });
    Step([&] { Design.CosRange = std::cos(a * DegToRad); });
    // The dialog and the reports show the horizon as the range.
    DegMinSec(a, Design.GridText[GridTextRange], "LON", 4);
    Step([&] { Design.MapXMax = SquareRoot(Divide(Design.VpP - 1.0, Design.VpP + 1.0)); });
    Design.MapXMin = -Design.MapXMax;
    Design.MapYMax = Design.MapXMax;
    Design.MapYMin = -Design.MapXMax;
}

} // namespace

void ParamSelect() {
    const ProjectionEntry& projection = PropertiesOf(Design.ProjNum);
    switch (projection.family) {
    case ProjectionFamily::Cylindrical:
        if (projection.standardParallels > 0) {
            Design.CosStdPar = std::cos(Design.StdParNorth * DegToRad);
        }
        BoundByCorners();
        break;
    case ProjectionFamily::MetricGrid:
        BoundByCorners();
        break;
    case ProjectionFamily::Conic:
        Cone();
        break;
    case ProjectionFamily::Pseudocylindrical:
        WorldOval();
        break;
    case ProjectionFamily::Azimuthal:
        Design.ProjNum == ProjVerticalPerspective ? Perspective() : Disc();
        break;
    case ProjectionFamily::None:
        break;
    }
    Design.BoundsProjNum = Design.ProjNum;
    Design.PlotStopReason = StopReason::None;
}

} // namespace quelmont

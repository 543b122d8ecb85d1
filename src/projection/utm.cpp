#include "projection/utm.h"

#include "core/angle_text.h"
#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "projection/interval.h"
#include "projection/utm_series.h"

#include <cmath>

namespace quelmont {

namespace {

void ReadZone() {
    Design.LonCentralSec = LongitudeSeconds(Design.UtmText[UtmTextCentralLon]);
    Design.LonCentral = DegreesOf(Design.LonCentralSec);
    Design.LatCentralSec = LatitudeSeconds(Design.UtmText[UtmTextOriginLat]);
    const double origin = DegreesOf(Design.LatCentralSec);
    DegMinSec(Design.LonCentral, Design.LonCentralText, "LON", 4);
    Design.LonMiddle = Design.LonCentral;
    DegMinSec(origin, Design.LatCentralText, "LAT", 4);
    Design.LatCentral = origin;
}

void SelectSpheroid() {
    for (const Spheroid& spheroid : Spheroids) {
        if (spheroid.name == Design.SpheroidName) {
            Design.SpheroidA = spheroid.equatorialRadius;
            Design.SpheroidF = 1.0 / spheroid.inverseFlattening;
        }
    }
}

void MeridianSeries() {
    const double f = Design.SpheroidF;
    const double e2 = (f + f) - f * f;
    const double e4 = e2 * e2;
    const double e6 = e4 * e2;
    Design.SpheroidE2 = e2;
    Design.SpheroidEp2 = Divide(e2, 1.0 - e2);
    // The last term is added here, where Snyder subtracts it: northings of this program and of its map
    // files are defined with it. It shifts them by up to 12 centimetres.
    Design.UtmMeridianC0 = ((1.0 - e2 / 4.0) - (e4 * 3.0) / 64.0) + (e6 * 5.0) / 256.0;
    const double a = -((e4 * 3.0) / 32.0 + (e2 * 3.0) / 8.0 + (e6 * 45.0) / 1024.0);
    const double b = (e4 * 15.0) / 256.0 + (e6 * 45.0) / 1024.0;
    const double d = (e6 * -35.0) / 3072.0;
    Design.UtmMeridianC1 = a - d;
    Design.UtmMeridianC2 = b + b;
    Design.UtmMeridianC3 = d * 4.0;
    const double p = Design.LatCentral * DegToRad;
    const double s = std::sin(p + p);
    const double c = std::cos(p + p);
    Design.UtmM0 = ((((c * Design.UtmMeridianC3 + Design.UtmMeridianC2) * c + Design.UtmMeridianC1) * s) +
                    p * Design.UtmMeridianC0) *
                   Design.SpheroidA;
}

} // namespace

void CalcUtmZone() {
    Guarded("CalcUtmZone", [] {
        ReadZone();
        SelectSpheroid();
        Design.UtmFalseEasting = ValueOf(Design.UtmText[UtmTextFalseEasting]);
        Design.UtmFalseNorthing = ValueOf(Design.UtmText[UtmTextFalseNorthing]);
        Design.UtmK0 = ValueOf(Design.UtmText[UtmTextScale]);
        MeridianSeries();
    });
}

void UtmForward() {
    double dl = Design.ProjLon - Design.LonCentral;
    if (dl > 180.0) {
        dl = dl - 360.0;
    } else if (dl < -180.0) {
        dl = 360.0 + dl;
    }
    const UtmPlace<double> place = UtmSeries(Design.ProjLat * DegToRad, dl);
    Design.ProjLon = Finite(place.east);
    Design.ProjLat = Finite(place.north);
}

std::optional<MetreBox> UtmEnclosure(double south, double north, double west, double east) {
    // Beyond, the tangent is too large for bounds that are of any use.
    constexpr double MaxLat = 89.0;
    double dlWest = west - Design.LonCentral;
    double dlEast = east - Design.LonCentral;
    if (dlWest > 180.0) {
        dlWest -= 360.0;
        dlEast -= 360.0;
    } else if (dlEast < -180.0) {
        dlWest += 360.0;
        dlEast += 360.0;
    } else if (!(dlWest >= -180.0 && dlEast <= 180.0)) {
        return std::nullopt;
    }
    if (!(-MaxLat <= south && south <= north && north <= MaxLat && dlWest <= dlEast)) {
        return std::nullopt;
    }
    const UtmPlace<Interval> place = UtmSeries(Interval(south, north) * DegToRad, Interval(dlWest, dlEast));
    const auto wider = [](double value, double direction) {
        return Finite(value + direction * (1.0 + std::fabs(value) * 1e-9));
    };
    return MetreBox{wider(place.north.low, -1.0), wider(place.north.high, 1.0), wider(place.east.low, -1.0),
                    wider(place.east.high, 1.0)};
}

} // namespace quelmont

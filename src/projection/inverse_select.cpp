#include "projection/inverse_select.h"

#include "core/map_design.h"
#include "projection/inverse_azimuthal.h"
#include "projection/inverse_conic.h"
#include "projection/inverse_cylindrical.h"
#include "projection/inverse_pseudocylindrical.h"

#include <cmath>

namespace quelmont {

namespace {

std::optional<RelativePlace> Inverse(double x, double y) {
    switch (Design.ProjNum) {
    case ProjMercator:
        return InverseMercator(x, y);
    case ProjUtm:
        return RelativePlace{y, x};
    case ProjEquirectangular:
        return InverseEquirectangular(x, y);
    case ProjCylindricalEqualArea:
        return InverseCylindricalEqualArea(x, y);
    case ProjHammer:
        return InverseHammer(x, y);
    case ProjMollweide:
    case ProjInterruptedMollweide: {
        const auto offset = InverseMollweide(x - Design.LobeOffsetX, y, 180.0);
        return offset ? std::optional<RelativePlace>({offset->lat, Design.LonCentral + offset->east})
                      : std::nullopt;
    }
    case ProjRobinson:
        return InverseRobinson(x, y);
    case ProjEquidistantConic:
    case ProjConformalConic:
    case ProjAlbers:
        return InverseConic(x, y);
    case ProjGnomonic:
    case ProjStereographic:
    case ProjOrthographic:
    case ProjVerticalPerspective:
    case ProjAzimuthalEquidistant:
    case ProjAzimuthalEqualArea:
        return InverseAzimuthal(x, y);
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<RelativePlace> InverseSelect(double x, double y) {
    const auto place = Inverse(x, y);
    // Neither no number nor a design without its constants makes a place.
    return place && std::isfinite(place->lat) && std::isfinite(place->lon) ? place : std::nullopt;
}

} // namespace quelmont

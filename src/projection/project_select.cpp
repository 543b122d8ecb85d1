#include "projection/project_select.h"

#include "core/map_design.h"
#include "projection/azimuthal.h"
#include "projection/conic.h"
#include "projection/cylindrical.h"
#include "projection/pseudocylindrical.h"

namespace quelmont {

void ProjectSelect(AzimuthalTerms* tested) {
    Design.ProjOffMap = false;
    switch (Design.ProjNum) {
    case ProjMercator:
        return ForwardMercator();
    case ProjUtm:
        // The map readers and the grid have turned the point into metres already.
        Design.ProjX = Design.ProjLon;
        Design.ProjY = Design.ProjLat;
        return;
    case ProjEquirectangular:
        return ForwardEquirectangular();
    case ProjCylindricalEqualArea:
        return ForwardCylindricalEqualArea();
    case ProjHammer:
        return ForwardHammer();
    case ProjMollweide:
    case ProjInterruptedMollweide:
        return ForwardMollweide();
    case ProjRobinson:
        return ForwardRobinson();
    case ProjEquidistantConic:
    case ProjConformalConic:
    case ProjAlbers:
        return ForwardConic();
    case ProjGnomonic:
    case ProjStereographic:
    case ProjOrthographic:
    case ProjVerticalPerspective:
    case ProjAzimuthalEquidistant:
    case ProjAzimuthalEqualArea:
        return ForwardAzimuthal(tested);
    default:
        return;
    }
}

} // namespace quelmont

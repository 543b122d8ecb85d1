#include "dialogs/bounds/boundary_dialog_names.h"

#include "core/map_design.h"
#include "projection/projection_table.h"

namespace quelmont {

std::vector<std::string> BoundaryDialogsOf(std::int16_t projNum) {
    switch (projNum) {
    case ProjUtm:
        return {"UtmSpheroid", "UtmParameters", "UtmCoords"};
    case ProjVerticalPerspective:
        return {"LatLonBoundsVp"};
    case ProjEquirectangular:
    case ProjCylindricalEqualArea:
    case ProjEquidistantConic:
    case ProjConformalConic:
    case ProjAlbers:
        return {"LatLonBounds", "LatLonStdPar"};
    case ProjInterruptedMollweide:
        return {"LatLonBounds", "LatLonInterrupt"};
    default:
        return {IsAzimuthal(projNum) ? "LatLonBoundsAz" : "LatLonBounds"};
    }
}

} // namespace quelmont

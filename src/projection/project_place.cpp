#include "projection/project_place.h"

#include "core/map_design.h"
#include "projection/project_select.h"

#include <cmath>
#include <limits>

namespace quelmont {

bool ProjectPlace(double lat, double lon) {
    Design.ProjTestMode = TestNone;
    Design.ProjLat = lat;
    Design.ProjLon = lon;
    // A coordinate that fails keeps its value.
    Design.ProjX = std::numeric_limits<double>::quiet_NaN();
    Design.ProjY = Design.ProjX;
    ProjectSelect();
    return !Design.ProjOffMap && std::isfinite(Design.ProjX) && std::isfinite(Design.ProjY);
}

} // namespace quelmont

#include "graticule/calculate_bounds.h"

#include "core/map_design.h"
#include "graticule/calc_graticule.h"
#include "graticule/utm_grid.h"

#include <utility>

namespace quelmont {

bool CalculateBounds() {
    Design.ProjOffMap = false;
    if (Design.ProjNum == ProjUtm) {
        CalcUtmGrid();
    } else {
        CalcGraticule();
    }
    return !std::exchange(Design.ProjOffMap, false);
}

} // namespace quelmont

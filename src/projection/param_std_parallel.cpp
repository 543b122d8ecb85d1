#include "projection/param_std_parallel.h"

#include "core/angle_text.h"
#include "core/map_design.h"
#include "projection/projection_table.h"

namespace quelmont {

namespace {

/// One latitude of true scale. It serves north and south alike, so that its hemisphere does not matter.
void OneTrueLatitude(double north, double south) {
    if (north > 0.0 && south >= 0.0) {
        Design.StdParNorth = (north + south) / 2.0;
    } else if (north <= 0.0 && south < 0.0) {
        Design.StdParNorth = -(north + south) / 2.0;
    } else if (north > 0.0 && south < 0.0) {
        Design.StdParNorth = -south <= north ? north / 2.0 : -south / 2.0;
    }
    Design.StdParSouth = -Design.StdParNorth;
}

/// Two parallels a sixth of the map's height inside it.
void TwoParallels(double north, double south) {
    const double d = north - south;
    Design.StdParNorth = north - d / 6.0;
    Design.StdParSouth = d / 6.0 + south;
    // Parallels symmetric about the equator would make the cone a cylinder.
    if (-Design.StdParNorth == Design.StdParSouth) {
        Design.StdParSouth = 0.0;
    }
}

} // namespace

void ParamStdParallel() {
    // The bounds are finite and within 90 degrees, so that no statement here can fail but
    // DegMinSec, which shows its own message box.
    if (PropertiesOf(Design.ProjNum).standardParallels == 1) {
        OneTrueLatitude(Design.LatNorth, Design.LatSouth);
    } else {
        TwoParallels(Design.LatNorth, Design.LatSouth);
    }
    DegMinSec(Design.StdParNorth, Design.StdParNorthText, "LAT", 4);
    Design.StdParText[StdParTextNorth] = Design.StdParNorthText;
    DegMinSec(Design.StdParSouth, Design.StdParSouthText, "LAT", 4);
    Design.StdParText[StdParTextSouth] = Design.StdParSouthText;
}

} // namespace quelmont

#pragma once

#include "core/map_extras.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {

/// A line of the grid that can have a label.
struct GridLine {
    double at = 0.0;        ///< latitude, or relative longitude: degrees; metres on UTM
    std::string text;       ///< UTF-8
    double outerness = 0.0; ///< 0 in the middle of the map, 1 at its edges
};

/// The parallels of the design's grid from south to north, with the boundaries of the map. Of a grid with
/// more lines than a page has room for labels, only every second, fifth, tenth... line.
///
/// Reads   ProjNum, LatSouthSec, LatNorthSec, LatGridSec, LatCentralSec of an azimuthal map; as
///         CalcGraticule or CalcUtmGrid left them, or CalcGraticuleInterrupt for a lobe.
/// The texts of all lines have minutes when one of them needs them, and seconds likewise. On UTM they are
/// kilometres with as many decimals as the spacing needs. None without a spacing.
std::vector<GridLine> ParallelsOfGrid(GridLabelStyle style);

/// The same for the meridians from west to east. The meridian that closes an azimuthal map is there once.
/// Reads   ProjNum, LonWestSec, LonZeroSec, LonSpanSec, LonGridSec.
std::vector<GridLine> MeridiansOfGrid(GridLabelStyle style);

} // namespace quelmont

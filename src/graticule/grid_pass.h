#pragma once

#include "projection/project_select.h"

#include <cstdint>
#include <vector>

/// What the sources of the grid share: the state of one pass. A pass walks the parallels, then the
/// meridians, with steps of its own. Longitudes are relative; on an azimuthal map relative longitude 180 is
/// the central meridian and LonSpan 360.

namespace quelmont {

/// Steps of a pass, degrees (metres on UTM).
struct GridSteps {
    double LatLineStep = 0.0;  ///< between parallels
    double LonLineStep = 0.0;  ///< between meridians
    double LatPointStep = 0.0; ///< along a meridian
    double LonPointStep = 0.0; ///< along a parallel
};

/// One walk over the lines of the grid. Angles in degrees where the name does not end in Sec; metres on UTM.
struct GridPass {
    GridSteps steps;
    bool DiskOut = false; ///< points also go to the export file
    double ClipLatMax = 0.0, ClipLatMin = 0.0, ClipLonMax = 0.0, ClipLonMin = 0.0;
    bool CircleClip = false; ///< the map's circle cuts the globe: each line has to be cut to it
    double RangeDeg = 0.0;
    double TanLatCentral = 0.0;
    /// Latitudes, beyond the poles if need be, that the circle reaches on the central meridian.
    std::int32_t NorthReachSec = 0, SouthReachSec = 0;
    std::int32_t PoleGapSec = 0; ///< range less the distance of the centre from the equator
    double HalfLonReach = 0.0;   ///< how far east and west of the centre the circle reaches
    bool LineActive = false;     ///< the current line has a plotted point
    bool SecondPiece = false;    ///< the meridian has a second piece, up to SecondLatMax
    double SecondLatMax = 0.0;
    AzimuthalTerms tested;       ///< of the end of a straight meridian
    std::vector<double> LonList; ///< longitudes of one parallel near the antipode
};

} // namespace quelmont

#pragma once

#include "view/map_region.h"

namespace quelmont {

/// How wrong a map is where it is most wrong.
struct MapErrors {
    /// Areas against those of the globe at the map's scale, less 1: 0 for true areas, 3 for four times as
    /// large, -0.5 for half as large; the one whose factor or divisor is largest.
    double area = 0.0;
    double angle = 0.0; ///< the most by which an angle is another one than on the globe, degrees
};

/// The largest errors at places spread over a region and along its edge, as far as they are on the map. Poles
/// and the antipode of the centre, where projections tear, are left out: the last places before them are half
/// a step away.
///
/// Reads   the projection and its accepted bounds. Writes   the point cell, on the interrupted projection the
/// bounds of a lobe.
MapErrors LargestErrors(const MapRegion& region);

} // namespace quelmont

#pragma once

#include <cstdint>

namespace quelmont {

class MapPoint;
struct MapFormat;

/// Plots the minute-grid file that is open under file number 1, in the styles of entry FileIndex of
/// the list, counted from 1. False when Escape was pressed.
///
/// A rank other than 0 starts a line in the style of its feature. Each line begins with its own
/// first point: none joins across features that are not shown. In a .pnt file all ranks are drawn in
/// the style of feature 1, if that one is shown. What lies beyond the end of the file reads as zero; a
/// continuing record of which no more than the code is there ends it.
/// RunTimeError when the file cannot be read or a point has no place.
bool ReadMinuteGrid(MapPoint& point, std::int32_t FileIndex, const MapFormat& format);

} // namespace quelmont

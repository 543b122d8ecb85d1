#pragma once

#include <cstdint>

namespace quelmont {

class MapPoint;
struct MapFormat;

/// Plots the ASCII map file that is open under file number 1, in the style of the first feature of
/// entry FileIndex of the list, counted from 1, and puts the labels of points inside the map at the end
/// of MapLabels. False when Escape was pressed.
///
/// A .utm file is in metres and has to be on the UTM projection; it clears UtmPointPath. A first point
/// that begins no line is taken as MapPoint::BeginFile tells.
/// Names a file whose first column is no line start in FilesWithoutLineStarts of the state.
/// RunTimeError when the file cannot be read, when a point has no place, and as TakeAsciiMapPoint.
bool ReadAsciiMap(MapPoint& point, std::int32_t FileIndex, const MapFormat& format);

} // namespace quelmont

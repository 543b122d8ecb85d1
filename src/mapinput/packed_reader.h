#pragma once

#include <cstdint>

namespace quelmont {

class MapPoint;
struct MapFormat;

/// Plots the packed file that is open under file number 1, in the styles of entry FileIndex of the
/// list, counted from 1. False when Escape was pressed.
///
/// A segment is a line in the style of its feature. One of a feature that is not shown, or whose box
/// cannot touch the map, is stepped over without reading it; its points count as read all the same.
/// A file that ends within a segment ends there without a message.
/// RunTimeError when the file cannot be read or sought, when a point has no place, and "Subscript out
/// of range" for a rank that no feature could have.
bool ReadPacked(MapPoint& point, std::int32_t FileIndex, const MapFormat& format);

} // namespace quelmont

#pragma once

#include <cstdint>

namespace quelmont {

class MapPoint;
struct MapFormat;

/// Plots the world file in text (.mp1) or in binary (.mps) that is open under file number 1, in the
/// style of the first feature of entry FileIndex of the list, counted from 1. False when Escape was
/// pressed. The first point of a file begins a line.
///
/// RunTimeError when the file cannot be read or a point has no place; "Input past end of file" when a
/// binary file ends within a record, but not within the four bytes with which one begins.
bool ReadWorldText(MapPoint& point, std::int32_t FileIndex, const MapFormat& format);
bool ReadWorldBinary(MapPoint& point, std::int32_t FileIndex, const MapFormat& format);

} // namespace quelmont

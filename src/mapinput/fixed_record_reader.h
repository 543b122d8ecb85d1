#pragma once

#include <cstdint>

namespace quelmont {

class MapPoint;
struct MapFormat;

/// Plots the fixed-record file that is open under file number 1, a .dat file in the style of the first
/// feature of entry FileIndex of the list, a .grf file in those of its features. False when Escape was
/// pressed.
///
/// A header begins a line; a first point without one before it is taken as MapPoint::BeginFile tells. The
/// points of a feature that is not shown are stepped over without reading them. An unknown code is stepped
/// over too and the feature before it goes on, so that its points are stepped over once more if it is not
/// shown. Both headers and points count as read. RunTimeError when the file cannot be read or sought, when a
/// point has no place, and "Invalid procedure call or argument" for a negative count of points.
bool ReadFixedRecords(MapPoint& point, std::int32_t FileIndex, const MapFormat& format);

} // namespace quelmont

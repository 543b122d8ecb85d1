#pragma once

/// The coordinate systems of the program, each defined once. Everything else uses these words.
///
/// True longitude, latitude: east and north positive, -180..180 and -90..90 degrees.
///
/// Relative longitude: measured eastward from the western boundary of the map, 0..360 degrees. A
/// point's relative longitude is its true longitude minus that of the western boundary, plus a full
/// circle when the result is negative. LonZero is 0 and LonSpan the width of the map, so that the
/// 180th meridian is an ordinary value inside the frame. All plotting is done in it.
///
/// Seconds: whole seconds of arc in an int32. Bounds are tested and grids are stepped in seconds,
/// where the question whether a spacing divides an axis has an exact answer.
///
/// Metres: on the UTM projection northings and eastings take the places of latitudes and relative
/// longitudes in every field, those named ...Sec included.
///
/// Projection units: earth radii (radians of arc on a unit sphere), metres on UTM; x eastward,
/// y northward.
///
/// Twips: 1/1440 inch on the drawing area, from its upper left corner, y downward.
///
/// Logical units: the plane of exported files. A maximised window measures 32000 by 23100; from
/// the lower left corner, y upward.
///
/// Device pixels: pixels of the surface that is painted, y downward.

#include <cstdint>

namespace quelmont {

/// Pi to fifteen digits, not the nearest double. Exports write coordinates to the last digit, so the value is
/// part of their format.
constexpr double Pi = 3.14159265358979;
constexpr double QuarterPi = Pi / 4.0;
constexpr double DegToRad = Pi / 180.0;
constexpr double HalfDegToRad = Pi / 360.0;
constexpr double Sqrt2 = 1.4142135623730951;

constexpr std::int32_t SecPerCircle = 1296000;
constexpr std::int32_t SecPer340 = 1224000;
constexpr std::int32_t SecPerHalfCircle = 648000;
constexpr std::int32_t SecPerDegree = 3600;
constexpr std::int16_t SecPerMinute = 60;

} // namespace quelmont

#pragma once

#include <cstdint>
#include <string>

namespace quelmont {

/// The fixed-column texts of whole degrees and seconds of arc: south and west negative.
std::string LatitudeText(std::int32_t seconds);
std::string LongitudeText(std::int32_t seconds);
std::string ArcText(std::int32_t seconds);

/// A program that has just been started, with the default design of a projection: the texts of the
/// grid and of UTM, and nothing computed from them.
void StartDesign(std::int16_t projNum);

/// The same with bounds in whole degrees, the grid of such a spacing both ways.
void StartRectangle(std::int16_t projNum, int north, int south, int west, int east, int spacing);

/// The same of an azimuthal projection about a centre, in whole degrees.
void StartDisc(std::int16_t projNum, int lat, int lon, int range);

} // namespace quelmont

#pragma once

#include "support/recording_surface.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The lines of a map as different devices have them, in one form.

namespace quelmont {

/// A line in logical units, y upward.
struct DrawnLine {
    std::vector<SurfacePoint> points;
    std::string color; ///< as the device tells it
};

/// A map's lines and the centres of its dots.
struct DrawnMap {
    std::vector<DrawnLine> lines;
    std::vector<SurfacePoint> dots;
};

/// What a window was asked to draw, taken from device pixels to logical units.
DrawnMap MapOfSurface(const RecordingSurface& surface);

/// What the bytes of a file say. Chains that were cut for their length are one line again; a lone point is
/// one point in each format.
DrawnMap MapOfCgm(std::string_view bytes);
DrawnMap MapOfDxf(std::string_view bytes);
DrawnMap MapOfWmf(std::string_view bytes);
/// Of a text file; a file of dots is one line.
DrawnMap MapOfText(std::string_view bytes);

} // namespace quelmont

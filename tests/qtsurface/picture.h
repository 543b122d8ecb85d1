#pragma once

#include "qtsurface/image_surface.h"

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quelmont {

constexpr std::uint32_t White = 0xFFFFFF;
constexpr std::uint32_t Red = 0x0000FF; // blue, green, red from the highest byte down
constexpr std::uint32_t Blue = 0xFF0000;

/// A white picture with a red pen and nothing in its brush.
class Sheet {
public:
    Sheet(int width, int height, int penWidth = 1);

    void Line(SurfacePoint from, SurfacePoint to);

    /// Rows of the picture: "#" red, "o" blue, "." white, "?" anything else.
    std::vector<std::string> Rows() const;
    std::set<std::pair<int, int>> RedPixels() const;

    ImageSurface surface;
};

} // namespace quelmont

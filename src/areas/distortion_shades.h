#pragma once

#include "core/map_extras.h"
#include "core/standard_colors.h"

#include <string>
#include <vector>

namespace quelmont {

/// A step of the shading.
struct DistortionShade {
    double from = 0.0; ///< the value with which it begins: a scale of areas, or degrees
    ColorValue color = 0;
    std::string text; ///< what it holds, UTF-8
};

/// The steps from one that holds the least value of a map to one that holds the largest. Maps with little
/// distortion have finer steps.
///
/// kind: Area, whose steps are as large below 1 as above it, or Angle. Numbers that are not finite count as
/// the largest.
std::vector<DistortionShade> ShadesBetween(DistortionKind kind, double least, double most);

/// What the shades tell: the title of their key.
std::string TitleOfShades(DistortionKind kind);

} // namespace quelmont

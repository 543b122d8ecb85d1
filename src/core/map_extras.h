#pragma once

#include "core/standard_colors.h"

#include <cstdint>
#include <optional>

/// What a map can have besides its grid and its map files. All of it is off at first, and none of it is kept
/// in a map design: these are preferences of the user, kept with the settings.

namespace quelmont {

/// Where the labels of parallels and meridians stand.
enum class GridLabelPlace : std::uint8_t { None, Frame, Lines };

/// How a label of the grid shows the hemisphere: 30°N, 30 N, or a sign (-30).
enum class GridLabelStyle : std::uint8_t { DegreeSign, Letter, Sign };

/// Labels of the grid. Their font and colour are those of GridLabelFontSlot.
struct GridLabelChoice {
    GridLabelPlace place = GridLabelPlace::None;
    GridLabelStyle style = GridLabelStyle::DegreeSign;
    bool operator==(const GridLabelChoice&) const = default;
};

/// What a scale bar measures.
enum class ScaleBarUnit : std::uint8_t { None, Kilometres, StatuteMiles, NauticalMiles };

/// The frame along the map's outline, and the scale bar.
struct FrameChoice {
    bool frame = false;
    ScaleBarUnit unit = ScaleBarUnit::None; ///< of the scale bar; None: there is none
    std::optional<double> latitude = {};    ///< where the bar is true, degrees; else the program chooses
    bool operator==(const FrameChoice&) const = default;
};

/// Colours that areas are filled with; what has none is not filled.
struct FillChoice {
    std::optional<ColorValue> land = {};
    std::optional<ColorValue> lakes = {};
    std::optional<ColorValue> sea = {}; ///< inside the map's outline
    bool operator==(const FillChoice&) const = default;
};

/// What shows how far the map distorts the globe: images of equal small circles, or shades in steps.
enum class DistortionKind : std::uint8_t { None, Ellipses, Area, Angle };

/// The distortion that is shown on the map.
struct DistortionChoice {
    DistortionKind kind = DistortionKind::None;
    double radius = 5.0;   ///< of the circles on the globe, degrees of arc
    double spacing = 30.0; ///< of their middles, degrees
    bool operator==(const DistortionChoice&) const = default;
};

} // namespace quelmont

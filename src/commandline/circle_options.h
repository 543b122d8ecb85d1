#pragma once

#include "commandline/text_options.h"
#include "core/standard_colors.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quelmont {

/// How a kind of circles is drawn, and the file for the table of its points (empty: none).
struct CircleLine {
    std::optional<ColorValue> color;
    std::optional<int> width; ///< pixels
    std::string table;
};

/// The circles, as far as the command line tells of them.
struct CircleOptions {
    std::optional<std::array<std::string, 4>> greatCircle; ///< GcText
    CircleLine greatCircleLine;
    std::optional<std::array<std::string, 3>> smallCircle; ///< ScText
    std::optional<std::int16_t> count;                     ///< ScSymbolCount
    CircleLine smallCircleLine;
};

/// Options that mean nothing without a circle, each beside the option of that circle.
using OptionsOfCircles = std::vector<std::pair<CLI::Option*, CLI::Option*>>;

/// Adds --great-circle, --small-circle and the options that belong to them, which it returns.
OptionsOfCircles AddCircleOptions(const AddOption& add, CircleOptions& circles);

} // namespace quelmont

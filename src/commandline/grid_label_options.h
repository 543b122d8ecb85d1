#pragma once

#include "commandline/text_options.h"
#include "core/map_extras.h"

#include <optional>
#include <string>

namespace quelmont {

/// The labels of the grid, as far as the command line tells of them.
struct GridLabelOptions {
    std::optional<GridLabelPlace> place;
    std::optional<GridLabelStyle> style;
    std::optional<std::string> font;
    std::optional<int> size; ///< points
    std::optional<ColorValue> color;
};

/// Adds --grid-labels and the options of these labels.
void AddGridLabelOptions(const AddOption& add, GridLabelOptions& labels);

/// Makes them those of the design. Writes  GridLabels, the look of GridLabelFontSlot.
void TakeGridLabels(const GridLabelOptions& labels);

} // namespace quelmont

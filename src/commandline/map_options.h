#pragma once

#include "commandline/text_options.h"
#include "core/standard_colors.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quelmont {

/// A map file of the command line and what was said about it. Sizes in pixels.
struct MapFileOptions {
    std::string file;
    std::optional<std::int16_t> symbol;
    std::optional<ColorValue> color;
    std::optional<int> lineWidth;
    std::optional<int> symbolSize;
    std::optional<int> borderWidth;
    std::vector<int> hidden; ///< feature rows, from 1
    std::optional<std::string> labelFont;
    std::optional<int> labelSize; ///< points
    std::optional<ColorValue> labelColor;
};

/// The map files and their labels, as far as the command line tells of them.
struct MapOptions {
    bool noMap = false;
    bool noLabels = false;
    std::vector<MapFileOptions> files; ///< empty: the default map
    MapFileOptions defaultMap;         ///< its style; the file is the one that comes with the program
    std::vector<std::string> namesOfDefaultMap; ///< the options that were given for it
};

/// Adds --map, --no-map, --no-labels and the options that belong to the --map before them, or to the default
/// map before the first.
void AddMapOptions(CLI::App& app, const std::string& group, const AddOption& add, MapOptions& maps);

} // namespace quelmont

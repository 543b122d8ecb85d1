#pragma once

#include "core/standard_colors.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace quelmont {

/// One coordinate of a text's anchor, from the upper left corner of the drawing area.
struct TextCoordinate {
    double value = 0.0;
    bool isPercent = false; ///< of the drawing area's width or height; else pixels
    bool operator==(const TextCoordinate&) const = default;
};
struct TextAnchor {
    TextCoordinate x, y;
    bool operator==(const TextAnchor&) const = default;
};

/// A text of the command line and what was said about it.
struct PlacedTextOptions {
    std::string text; ///< UTF-8
    std::optional<TextAnchor> at;
    std::optional<std::string> font;
    std::optional<int> size; ///< points
    std::optional<ColorValue> color;
    bool bold = false, italic = false, underline = false, strikeout = false;
    int rotation = 0; ///< degrees counter-clockwise
};

/// "100,50", "10%,5%": an anchor in pixels, at most 100000, or in percent, at most 1000. Throws BadValue.
TextAnchor AnchorValue(std::string_view value);

/// Adds an option with a value to the command line: name, type, description, what takes the value.
using AddOption =
    std::function<CLI::Option*(const std::string& name, const char* type, const char* description,
                               std::function<void(const std::string& value)> take)>;

/// Adds --text and the options that belong to the --text before them.
void AddTextOptions(CLI::App& app, const std::string& group, const AddOption& add,
                    std::vector<PlacedTextOptions>& texts);

/// Why the texts cannot be placed, or nothing: each needs its --at.
std::string FaultOf(const std::vector<PlacedTextOptions>& texts);

/// Puts the texts behind the design's text items, in the look of the font slot of texts where they tell no
/// other. A text without characters is none.
///
/// Reads   Fonts, TwipsPerPixelX, TwipsPerPixelY. Writes  TextItems, and the text in hand, which is empty
/// then.
void PlaceTexts(const std::vector<PlacedTextOptions>& texts);

} // namespace quelmont

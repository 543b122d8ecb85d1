#include "commandline/grid_label_options.h"

#include "commandline/option_values.h"
#include "core/map_design.h"
#include "surround/grid_label_words.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <string_view>
#include <utility>

namespace quelmont {

namespace {

template <typename Choice, typename Words>
Choice ChoiceOf(const Words& words, const std::string& value) {
    const auto found = std::find(words.begin(), words.end(), value);
    if (found == words.end()) {
        std::string list;
        for (const std::string_view word : words) {
            list += (list.empty() ? "" : ", ") + std::string(word);
        }
        throw BadValue("\"" + value + "\" is none of " + list);
    }
    return static_cast<Choice>(found - words.begin());
}

} // namespace

void AddGridLabelOptions(const AddOption& add, GridLabelOptions& labels) {
    CLI::Option* const place =
        add("--grid-labels", "frame|lines|none", "Labels of the grid, beside the map or on its lines (none)",
            [&labels](const std::string& value) {
                labels.place = ChoiceOf<GridLabelPlace>(GridLabelPlaceWords, value);
            });
    const auto addOfLabels = [&](const std::string& name, const char* type, const char* description,
                                 std::function<void(const std::string& value)> take) {
        add(name, type, description, std::move(take))->needs(place);
    };
    addOfLabels("--grid-label-style", "degrees|letters|signs", "30\u00B0N, 30 N or -30 (degrees)",
                [&labels](const std::string& value) {
                    labels.style = ChoiceOf<GridLabelStyle>(GridLabelStyleWords, value);
                });
    addOfLabels("--grid-label-font", "NAME", "Their font (Arial)", [&labels](const std::string& value) {
        if (value.empty()) {
            throw BadValue("\"\" is no font");
        }
        labels.font = value;
    });
    addOfLabels("--grid-label-size", "4..200", "Their size in points (10)",
                [&labels](const std::string& value) {
                    labels.size = NumberValue(value, SmallestFontSize, LargestFontSize);
                });
    addOfLabels("--grid-label-color", "RRGGBB", "Their colour (000000)",
                [&labels](const std::string& value) { labels.color = ColorOf(value); });
}

void TakeGridLabels(const GridLabelOptions& labels) {
    Design.GridLabels.place = labels.place.value_or(Design.GridLabels.place);
    Design.GridLabels.style = labels.style.value_or(Design.GridLabels.style);
    TextLook& look = Design.Fonts[GridLabelFontSlot];
    look.FontName = labels.font.value_or(look.FontName);
    look.FontSize = labels.size.value_or(look.FontSize);
    look.FontColour = labels.color.value_or(look.FontColour);
}

} // namespace quelmont

#include "mainwindow/kept_grid_labels.h"

#include "core/map_design.h"
#include "core/split_text.h"
#include "dialogs/text/font_dialog.h"
#include "surround/grid_label_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <vector>

namespace quelmont {

namespace {

constexpr std::size_t Numbers = 6;

/// The place of a word, past the end when it is none.
template <typename Words>
std::size_t IndexOf(const Words& words, std::string_view text) {
    return static_cast<std::size_t>(std::find(words.begin(), words.end(), text) - words.begin());
}

std::optional<std::uint32_t> NumberOf(std::string_view text, std::uint32_t most) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole && number <= most ? std::optional(number) : std::nullopt;
}

} // namespace

std::string GridLabelPlaceText() {
    return std::string(GridLabelPlaceWords.at(static_cast<std::size_t>(Design.GridLabels.place)));
}

void TakeGridLabelPlace(std::string_view text) {
    const std::size_t index = IndexOf(GridLabelPlaceWords, text);
    if (index < GridLabelPlaceWords.size()) {
        Design.GridLabels.place = static_cast<GridLabelPlace>(index);
    }
}

std::string GridLabelStyleText() {
    return std::string(GridLabelStyleWords.at(static_cast<std::size_t>(Design.GridLabels.style)));
}

void TakeGridLabelStyle(std::string_view text) {
    const std::size_t index = IndexOf(GridLabelStyleWords, text);
    if (index < GridLabelStyleWords.size()) {
        Design.GridLabels.style = static_cast<GridLabelStyle>(index);
    }
}

std::string GridLabelFontText() {
    const TextLook& look = Design.Fonts[GridLabelFontSlot];
    std::string text = std::to_string(look.FontSize) + "," + std::to_string(ColorBits(look.FontColour));
    for (const bool flag : {look.FontBold, look.FontItalic, look.FontUnderline, look.FontStrikeout}) {
        text += flag ? ",1" : ",0";
    }
    return text + "," + look.FontName;
}

void TakeGridLabelFont(std::string_view text) {
    constexpr std::array<std::uint32_t, Numbers> most = {LargestFontSize, ColorMask, 1, 1, 1, 1};
    const std::vector<std::string_view> parts = SplitAtCommas(text);
    if (parts.size() <= Numbers || parts[Numbers].empty()) {
        return;
    }
    std::array<std::uint32_t, Numbers> numbers = {};
    for (std::size_t i = 0; i < Numbers; ++i) {
        const std::optional<std::uint32_t> number = NumberOf(parts[i], most.at(i));
        if (!number) {
            return;
        }
        numbers.at(i) = *number;
    }
    if (numbers[0] < static_cast<std::uint32_t>(SmallestFontSize)) {
        return;
    }
    // A name may have commas of its own.
    const auto nameBegins = static_cast<std::size_t>(parts[Numbers].data() - text.data());
    Design.Fonts[GridLabelFontSlot] = {.FontName = std::string(text.substr(nameBegins)),
                                       .FontSize = static_cast<std::int32_t>(numbers[0]),
                                       .FontColour = SolidColor(numbers[1]),
                                       .FontBold = numbers[2] != 0,
                                       .FontItalic = numbers[3] != 0,
                                       .FontUnderline = numbers[4] != 0,
                                       .FontStrikeout = numbers[5] != 0};
}

} // namespace quelmont

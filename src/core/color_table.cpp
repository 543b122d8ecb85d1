#include "core/color_table.h"

#include <algorithm>
#include <string_view>

namespace quelmont {

namespace {

constexpr std::size_t Columns = ColorColumns;

constexpr std::array<std::string_view, 16> StandardNames = {
    "black", "dark blue", "dark green", "dark cyan", "dark red", "dark magenta", "olive",  "light grey",
    "grey",  "blue",      "green",      "cyan",      "red",      "magenta",      "yellow", "white",
};

/// Names of the rows below the first, from dark to light or along the hues.
constexpr std::array<std::string_view, 15> RampNames = {
    "grey",  "red",  "orange", "yellow",  "yellow green", "green", "spring green", "cyan",
    "azure", "blue", "violet", "magenta", "rose",         "brown", "dull hue",
};

std::int32_t Distance(ColorValue a, ColorValue b) {
    std::int32_t sum = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const auto difference =
            static_cast<std::int32_t>(a >> shift & 0xFFU) - static_cast<std::int32_t>(b >> shift & 0xFFU);
        sum += difference * difference;
    }
    return sum;
}

std::string PartsInWords(ColorValue color) {
    return "red " + std::to_string(color & 0xFFU) + ", green " + std::to_string(color >> 8U & 0xFFU) +
           ", blue " + std::to_string(color >> 16U & 0xFFU);
}

} // namespace

std::string ColorDigits(ColorValue color) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const ColorValue part = color >> shift & 0xFFU;
        text += digits[part >> 4U];
        text += digits[part & 0xFU];
    }
    return text;
}

ColorValue NearestTableColor(ColorValue color) {
    const auto* const nearest =
        std::min_element(ColorTable.begin(), ColorTable.end(), [&](std::uint32_t a, std::uint32_t b) {
            return Distance(FromRedGreenBlue(a), color) < Distance(FromRedGreenBlue(b), color);
        });
    return FromRedGreenBlue(*nearest);
}

int CellOfColor(ColorValue color, int preferred) {
    const ColorValue bits = ColorBits(color);
    if (preferred >= 0 && static_cast<std::size_t>(preferred) < ColorCells &&
        ColorOfCell(static_cast<std::size_t>(preferred)) == bits) {
        return preferred;
    }
    for (std::size_t cell = 0; cell < ColorCells; ++cell) {
        if (ColorOfCell(cell) == bits) {
            return static_cast<int>(cell);
        }
    }
    return -1;
}

std::string CellInWords(std::size_t cell) {
    const std::size_t row = cell / Columns;
    const std::size_t column = cell % Columns;
    const std::string name =
        row == 0 ? std::string(StandardNames[column])
                 : std::string(RampNames[row - 1]) + " " + std::to_string(column + 1) + " of 16";
    return name + ": " + PartsInWords(ColorOfCell(cell));
}

std::string ColorInWords(ColorValue color) {
    const int cell = CellOfColor(color, -1);
    return cell < 0 ? PartsInWords(color) : CellInWords(static_cast<std::size_t>(cell));
}

} // namespace quelmont

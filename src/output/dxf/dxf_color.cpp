#include "output/dxf/dxf_color.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

/// The bits of the colour itself, below the palette flag.
constexpr std::int32_t PaletteFlag = 33554432;

} // namespace

std::string DxfColor(ColorValue color) {
    const std::int32_t c = static_cast<std::int32_t>(color) % PaletteFlag;
    const auto* const found =
        std::find_if(IndexedColors.begin(), IndexedColors.end(), [&](const IndexedColor& entry) {
            return c >= 0 && entry.color == static_cast<ColorValue>(c);
        });
    return found == IndexedColors.end() ? "" : std::to_string(found->index);
}

std::string DxfAreaColor(ColorValue color) {
    constexpr int white = 255;
    constexpr int leastColored = 16; // difference of red, green and blue; less is a grey
    constexpr std::array<double, 5> shades = {1.0, 0.8, 0.6, 0.5, 0.3};
    const auto red = static_cast<int>(color & 0xFF);
    const auto green = static_cast<int>(color >> 8 & 0xFF);
    const auto blue = static_cast<int>(color >> 16 & 0xFF);
    const int most = std::max({red, green, blue});
    const int difference = most - std::min({red, green, blue});
    std::string exact = DxfColor(color);
    if (!exact.empty() && (exact != std::to_string(white) || difference < leastColored)) {
        return exact;
    }
    if (difference < leastColored) {
        constexpr double darkest = 51.0; // of 250; the others follow in equal steps
        return std::to_string(250 + std::clamp(static_cast<int>(std::lround((most - darkest) / 40.8)), 0, 5));
    }
    const double sextant = most == red     ? static_cast<double>(green - blue) / difference
                           : most == green ? 2.0 + static_cast<double>(blue - red) / difference
                                           : 4.0 + static_cast<double>(red - green) / difference;
    constexpr int hues = 24;
    const int hue = (static_cast<int>(std::lround(sextant * 4.0)) + hues) % hues;
    const auto* const shade = std::min_element(shades.begin(), shades.end(), [&](double a, double b) {
        return std::fabs(a - most / 255.0) < std::fabs(b - most / 255.0);
    });
    const bool tint = difference < most * 3 / 4;
    return std::to_string(10 + 10 * hue + 2 * static_cast<int>(shade - shades.begin()) + (tint ? 1 : 0));
}

} // namespace quelmont

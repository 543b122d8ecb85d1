#include "output/dxf/dxf_color.h"

#include <algorithm>

namespace quelmont {

namespace {

/// Colours stand below the palette flag.
constexpr std::int32_t PaletteFlag = 33554432;

std::int32_t Distance(ColorValue a, ColorValue b) {
    std::int32_t sum = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const auto difference =
            static_cast<std::int32_t>(a >> shift & 0xFFU) - static_cast<std::int32_t>(b >> shift & 0xFFU);
        sum += difference * difference;
    }
    return sum;
}

} // namespace

std::string DxfColor(ColorValue color) {
    const std::int32_t c = static_cast<std::int32_t>(color) % PaletteFlag;
    const auto* const found =
        std::find_if(IndexedColors.begin(), IndexedColors.end(), [&](const IndexedColor& entry) {
            return c >= 0 && entry.color == static_cast<ColorValue>(c);
        });
    return found == IndexedColors.end() ? "" : std::to_string(found->index);
}

ColorValue NearestIndexedColor(ColorValue color) {
    return std::min_element(IndexedColors.begin(), IndexedColors.end(),
                            [&](const IndexedColor& a, const IndexedColor& b) {
                                return Distance(a.color, color) < Distance(b.color, color);
                            })
        ->color;
}

} // namespace quelmont

#include "output/dxf/dxf_color.h"

#include <algorithm>

namespace quelmont {

namespace {

/// Colours stand below the palette flag.
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

} // namespace quelmont

#include "support/fixed_fonts.h"

#include <algorithm>

namespace quelmont {

namespace {

FontMetrics MetricsOf(const SurfaceFont& font) {
    const std::int32_t h = font.height < 0 ? -font.height : font.height * 4 / 5;
    return {.ascent = h, .descent = h / 4, .height = h + h / 4, .averageWidth = h / 2};
}

} // namespace

std::optional<FontMetrics> FixedFonts::Metrics(const SurfaceFont& font) {
    asked.emplace_back(font.faceName);
    return metricsFail ? std::nullopt : std::optional(MetricsOf(font));
}

std::optional<TextExtent> FixedFonts::Extent(const SurfaceFont& font, std::string_view text) {
    asked.emplace_back(font.faceName);
    if (extentFails) {
        return std::nullopt;
    }
    const auto characters = static_cast<std::int32_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
    const FontMetrics metrics = MetricsOf(font);
    return TextExtent{characters * metrics.averageWidth, metrics.height};
}

} // namespace quelmont

#pragma once

#include "platform/fonts.h"

namespace quelmont {

/// The fonts that Qt finds, with and without a window. Looking for them begins with the first question.
class QtFonts final : public Fonts {
public:
    std::vector<std::string> Families() override;
    /// Measures are rounded to whole pixels. Nothing for a height beyond 32767 pixels.
    std::optional<FontMetrics> Metrics(const SurfaceFont& font) override;
    /// The width is rounded up. Nothing for such a height, and for a text of more than MostTextCharacters.
    std::optional<TextExtent> Extent(const SurfaceFont& font, std::string_view text) override;
};

} // namespace quelmont

#pragma once

#include "platform/fonts.h"

#include <string>
#include <vector>

namespace quelmont {

/// Fonts whose measures can be reckoned by hand. A font of h pixels (SurfaceFont::height -h) has an
/// ascent of h, a descent of h / 4 and characters that are h / 2 wide, whole pixels cut off. A height
/// above 0 is that of the cell, 5 / 4 of h.
class FixedFonts : public Fonts {
public:
    std::vector<std::string> Families() override { return families; }
    std::optional<FontMetrics> Metrics(const SurfaceFont& font) override;
    /// As wide as its characters together; bytes of UTF-8 that begin none count for nothing.
    std::optional<TextExtent> Extent(const SurfaceFont& font, std::string_view text) override;

    std::vector<std::string> families = {"Arial", "Courier", "Times", "Symbol"};
    bool metricsFail = false;       ///< Metrics gives nothing
    bool extentFails = false;       ///< Extent gives nothing
    std::vector<std::string> asked; ///< face names of all that was measured, in order
};

} // namespace quelmont

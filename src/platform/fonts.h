#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// What a surface makes a font of. Heights are those of characters when negative, of cells (ascent and
/// descent together) otherwise; angles are tenths of a degree, counter-clockwise where y grows downward.
struct SurfaceFont {
    std::int32_t height = 0; ///< device units
    std::int32_t width = 0;  ///< device units, 0: as the face has it
    std::int32_t escapement = 0, orientation = 0;
    std::int32_t weight = 400; ///< 700 is bold
    bool italic = false, underline = false, strikeout = false;
    std::uint8_t charSet = 1, outPrecision = 0, clipPrecision = 0, quality = 0, pitchAndFamily = 0;
    std::string_view faceName = {}; ///< UTF-8
};

/// Measures of a font in device pixels of the main window.
struct FontMetrics {
    std::int32_t ascent = 0;       ///< from the baseline up to the top of the cell
    std::int32_t descent = 0;      ///< from the baseline down to its bottom
    std::int32_t height = 0;       ///< of the cell: ascent + descent
    std::int32_t averageWidth = 0; ///< of a character
};

/// Size of a text that is not turned, device pixels.
struct TextExtent {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// The fonts of the machine. Angles of a font count for nothing here. A face that the machine does not
/// have is measured, and drawn, in one that it has.
class Fonts {
public:
    virtual ~Fonts() = default;
    /// The scalable families, sorted, those without Latin letters last.
    virtual std::vector<std::string> Families() = 0;
    /// Nothing when the font cannot be made.
    virtual std::optional<FontMetrics> Metrics(const SurfaceFont& font) = 0;
    /// Of a text in UTF-8. Nothing when the font cannot be made.
    virtual std::optional<TextExtent> Extent(const SurfaceFont& font, std::string_view text) = 0;
};

} // namespace quelmont

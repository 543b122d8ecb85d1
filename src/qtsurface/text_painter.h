#pragma once

#include "platform/draw_surface.h"
#include "qtsurface/text_face.h"

#include <QImage>
#include <QTransform>

#include <cstdint>
#include <string_view>

namespace quelmont {

/// Whether its numbers are those of a font that can be painted: a height of at most 32767 pixels.
bool CanBeFont(const SurfaceFont& font);

/// Where a text stands and how.
struct TextPlace {
    SurfacePoint anchor;
    int align = AlignTop;
    std::uint32_t color = 0; ///< 0xFFRRGGBB
};

/// From em on a text's baseline to pixels of the device, in a face and a font of it.
QTransform TextTransform(const TextFace& face, const SurfaceFont& font, const TextPlace& place);

/// Paints a text in UTF-8 with grey edges, never in shades of colour, turned about its anchor by the font's
/// escapement. The baseline runs along the edges of pixels: of a text that is not turned the lowest row of
/// most letters is the one above the anchor's. Only what lies outside the picture is cut off.
/// Returns whether any pixel may have changed.
bool PaintText(QImage& picture, const SurfaceFont& font, const TextPlace& place, std::string_view utf8);

} // namespace quelmont

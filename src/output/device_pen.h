#pragma once

#include "core/standard_colors.h"

#include <cstdint>
#include <string_view>

namespace quelmont {

/// The pen that drawing has made and selected on the surface in use; there is one at a time. It is
/// remembered here, with the pen that was current before, so that whoever ends a draw can give
/// back what an interrupted stage left.

/// Makes a pen and selects it on Design.Surface. On failure shows "CreatePen(site) error in
/// routine" and leaves the surface's pen as it is. width in device pixels.
void MakeDevicePen(int style, std::int32_t width, ColorValue color, int site, std::string_view routine);

/// The same of a solid pen for lines as wide as TakePenWidth has said. Where lines are smooth, it is that
/// wide to a part of a pixel.
void MakeLinePen(ColorValue color, int site, std::string_view routine);

/// Selects the earlier pen back and deletes the one made; nothing if there is none. On failure
/// shows "DeleteObject(site) error in routine".
void ReleaseDevicePen(int site, std::string_view routine);

} // namespace quelmont

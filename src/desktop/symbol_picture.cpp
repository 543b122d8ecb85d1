#include "desktop/symbol_picture.h"

#include "core/map_design.h"
#include "core/standard_colors.h"
#include "output/symbol_sample.h"
#include "qtsurface/image_surface.h"

#include <algorithm>
#include <cstdint>

namespace quelmont {

namespace {

/// Pixels of height to one of the pen's width, so that a symbol looks alike on every screen.
constexpr int HeightOfPen = 18;

ColorValue ColorValueOf(const QColor& color) {
    return Rgb(static_cast<unsigned>(color.red()), static_cast<unsigned>(color.green()),
               static_cast<unsigned>(color.blue()));
}

} // namespace

QImage SymbolPicture(int type, QSize size, const QColor& ink, const QColor& paper) {
    ImageSurface surface(size.width(), size.height());
    surface.Clear(ColorValueOf(paper));
    surface.Smooth(Design.SmoothLines);
    DrawSymbolSample(surface, {.type = static_cast<std::int16_t>(type),
                               .width = size.width(),
                               .height = size.height(),
                               .penWidth = std::max(1, size.height() / HeightOfPen),
                               .color = ColorValueOf(ink)});
    return surface.Image().copy();
}

} // namespace quelmont

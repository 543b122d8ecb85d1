#include "output/symbols.h"

#include "core/error_box.h"
#include "core/rounding.h"
#include "platform/draw_surface.h"

#include <array>

namespace quelmont {

namespace {

struct SymbolBox {
    std::int32_t x, y;
    std::int32_t left, right, top, bottom;
    std::int16_t base, apex; ///< of the triangle
};

SymbolBox BoxAround(const SymbolPlot& symbol, std::int32_t x, std::int32_t y) {
    const double radius = symbol.radius;
    const double scale = symbol.scale;
    const double radiusX = (scale * radius) / symbol.pixelX;
    const double radiusY = (scale * radius) / symbol.pixelY;
    return {x,
            y,
            RoundToInt32(x - radiusX),
            RoundToInt32(x + radiusX),
            RoundToInt32(y - radiusY),
            RoundToInt32(y + radiusY),
            RoundToInt16(y + ((TriangleBase * radius) * scale) / symbol.pixelY),
            RoundToInt16(y - ((TriangleApex * radius) * scale) / symbol.pixelY)};
}

/// The strokes of plus and cross return through the centre, so that one stroke draws both arms.
void Stroke(DrawSurface& surface, const std::array<SurfacePoint, 6>& points, std::string_view failure) {
    ReportUnless(surface.Polyline(points), failure);
}

void Shape(DrawSurface& surface, std::int16_t type, const SymbolBox& b) {
    switch (type) {
    case SymbolPlus:
        Stroke(surface,
               {{{b.left, b.y}, {b.right, b.y}, {b.x, b.y}, {b.x, b.top}, {b.x, b.bottom}, {b.x, b.y}}},
               "Polyline(1) error in PrintToScreen");
        break;
    case SymbolCross:
        Stroke(surface,
               {{{b.left, b.bottom},
                 {b.right, b.top},
                 {b.x, b.y},
                 {b.left, b.top},
                 {b.right, b.bottom},
                 {b.x, b.y}}},
               "Polyline(2) error in PrintToScreen");
        break;
    case SymbolOpenSquare:
    case SymbolFilledSquare:
        ReportUnless(surface.Rectangle(b.left, b.top, b.right, b.bottom),
                     "Rectangle(1) error in PrintToScreen");
        break;
    case SymbolOpenDiamond:
    case SymbolFilledDiamond: {
        const std::array<SurfacePoint, 4> corners{
            {{b.left, b.y}, {b.x, b.bottom}, {b.right, b.y}, {b.x, b.top}}};
        ReportUnless(surface.Polygon(corners), "Polygon(2) error in PrintToScreen");
        break;
    }
    case SymbolOpenTriangle:
    case SymbolFilledTriangle: {
        const std::array<SurfacePoint, 3> corners{{{b.left, b.base}, {b.x, b.apex}, {b.right, b.base}}};
        ReportUnless(surface.Polygon(corners), "Polygon(3) error in PrintToScreen");
        break;
    }
    case SymbolOpenCircle:
    case SymbolFilledCircle:
        ReportUnless(surface.Ellipse(b.left, b.top, b.right, b.bottom), "Ellipse(1) error in PrintToScreen");
        break;
    default:
        break;
    }
}

} // namespace

void DrawSymbol(DrawSurface& surface, const SymbolPlot& symbol, std::int32_t x, std::int32_t y) {
    const SymbolBox box = BoxAround(symbol, x, y);
    const bool filled = IsFilledShape(symbol.type);

    SurfaceHandle made = 0;
    SurfaceHandle before = 0;
    if (filled) {
        made = surface.CreateSolidBrush(ColorBits(symbol.color));
        ReportUnless(made != 0, "CreateSolidBrush(1) error in PrintToScreen");
        before = made != 0 ? surface.SelectObject(made) : 0;
    } else {
        before = surface.SelectObject(surface.GetStockObject(StockNullBrush));
    }
    const int modeBefore = surface.SetPolyFillMode(FillAlternate);
    ReportUnless(modeBefore != 0, "SetPolyFillMode(1) error in PrintToScreen");

    Shape(surface, symbol.type, box);

    if (modeBefore != 0) {
        ReportUnless(surface.SetPolyFillMode(modeBefore) != 0, "SetPolyFillMode(2) error in PrintToScreen");
    }
    if (before != 0) {
        surface.SelectObject(before);
    }
    if (made != 0) {
        ReportUnless(surface.DeleteObject(made), "DeleteObject(1) error in PrintToScreen");
    }
}

} // namespace quelmont

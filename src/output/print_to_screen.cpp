#include "output/print_to_screen.h"

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/output_state.h"
#include "output/page_scale.h"
#include "output/symbols.h"
#include "platform/fine_lines.h"

namespace quelmont {

namespace {

/// A square of pixels, whose middle, or the pixel before it, is the place.
[[gnu::noinline]] void DrawDot(std::int32_t x, std::int32_t y) {
    const std::int32_t before = (Design.DotPixels - 1) / 2;
    for (std::int32_t row = 0; row < Design.DotPixels; ++row) {
        for (std::int32_t column = 0; column < Design.DotPixels; ++column) {
            Design.Surface->SetPixel(x - before + column, y - before + row, ColorBits(Design.PenColor));
        }
    }
}

/// The same place to a part of a pixel.
void DrawFinePoint(FineLines& lines, double deviceX, double deviceY) {
    const std::int32_t x = RoundToInt32(deviceX * FinePerPixel);
    const std::int32_t y = RoundToInt32(deviceY * FinePerPixel);
    if (Design.PointStatus == PointBeginsLine || Design.LineStart == LineMoves) {
        Design.LineStart = LineContinues;
        lines.MoveToFine(x, y);
    } else {
        lines.LineToFine(x, y);
    }
}

/// A function of its own, so that the points of lines need no room for it on the stack.
[[gnu::noinline]] void DrawCurrentSymbol(std::int32_t x, std::int32_t y) {
    DrawSymbol(*Design.Surface,
               {.type = Design.CurrentSymbolType,
                .color = Design.PenColor,
                .radius = static_cast<double>(OutputNow.SymbolRadius),
                .scale = PageScale(),
                .pixelX = OutputNow.DevicePixelX,
                .pixelY = OutputNow.DevicePixelY},
               x, y);
}

void DrawPoint() {
    const double deviceX = (((Design.ProjX - Design.MapXMin) * Design.ScreenScaleX) + Design.ScreenOriginX) /
                           OutputNow.DevicePixelX;
    const double deviceY = (Design.ScreenOriginY - ((Design.ProjY - Design.MapYMin) * Design.ScreenScaleY)) /
                           OutputNow.DevicePixelY;
    // Sixteen bits hold a place on the map; its place on a page may lie beyond.
    std::int32_t x = RoundToInt16(deviceX);
    std::int32_t y = RoundToInt16(deviceY);
    if (Design.PrintingNow) {
        x = PageX(x);
        y = PageY(y);
    }
    switch (Design.CurrentSymbolType) {
    case SymbolLine:
        if (OutputNow.fineLines != nullptr) {
            DrawFinePoint(*OutputNow.fineLines, deviceX, deviceY);
            return;
        }
        if (Design.PointStatus == PointBeginsLine || Design.LineStart == LineMoves) {
            Design.LineStart = LineContinues;
            Design.Surface->MoveToEx(x, y);
        }
        Design.Surface->LineTo(x, y);
        return;
    case SymbolDot:
        DrawDot(x, y);
        return;
    default:
        DrawCurrentSymbol(x, y);
        return;
    }
}

} // namespace

void PrintToScreen() {
    try {
        DrawPoint();
    } catch (const RunTimeError& error) {
        ShowErrorBox("PrintToScreen", error);
    }
}

} // namespace quelmont

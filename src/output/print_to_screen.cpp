#include "output/print_to_screen.h"

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/page_scale.h"
#include "output/symbols.h"
#include "platform/draw_surface.h"

namespace quelmont {

namespace {

void Draw() {
    const double deviceX = (((Design.ProjX - Design.MapXMin) * Design.ScreenScaleX) + Design.ScreenOriginX) /
                           Design.DevicePixelX;
    const double deviceY = (Design.ScreenOriginY - ((Design.ProjY - Design.MapYMin) * Design.ScreenScaleY)) /
                           Design.DevicePixelY;
    // Sixteen bits hold a place on the map; its place on a page may lie beyond.
    const std::int32_t x = PageX(RoundToInt16(deviceX));
    const std::int32_t y = PageY(RoundToInt16(deviceY));
    switch (Design.CurrentSymbolType) {
    case SymbolLine:
        if (Design.PointStatus == 1 || Design.LineStart == 3) {
            Design.LineStart = 0;
            Design.Surface->MoveToEx(x, y);
        }
        Design.Surface->LineTo(x, y);
        return;
    case SymbolDot:
        Design.Surface->SetPixel(x, y, ColorBits(Design.PenColor));
        return;
    default:
        DrawSymbol(x, y);
        return;
    }
}

} // namespace

void PrintToScreen() {
    try {
        Draw();
    } catch (const RunTimeError& error) {
        ShowErrorBox("PrintToScreen", error);
    }
}

} // namespace quelmont

#include "qtsurface/object_surface.h"

#include "core/rounding.h"
#include "qtsurface/text_painter.h"

#include <algorithm>
#include <utility>

namespace quelmont {

namespace {

constexpr std::int32_t WidestPen = 32767;

// The stock objects by the order in which the constructor makes them.
constexpr SurfaceHandle BlackPen = 1;
constexpr SurfaceHandle WhiteBrush = 2;
constexpr SurfaceHandle NullBrush = 3;
constexpr SurfaceHandle SystemFont = 4;
constexpr SurfaceHandle LastStockObject = SystemFont;

constexpr std::int32_t SystemFontHeight = 16;

} // namespace

ObjectSurface::ObjectSurface() {
    Keep(Pen{true, 1, PixelOf(0), 1.0});
    Keep(Brush{true, PixelOf(0xFFFFFF)});
    Keep(Brush{false, 0});
    Keep(Font{{.height = SystemFontHeight}, "Arial"});
    Select(BlackPen);
    Select(WhiteBrush);
    Select(SystemFont);
}

std::uint32_t ObjectSurface::PixelOf(std::uint32_t color) {
    return 0xFF000000U | (color & 0xFFU) << 16U | (color & 0xFF00U) | (color >> 16U & 0xFFU);
}

SurfaceFont ObjectSurface::CurrentFont() const {
    SurfaceFont made = fontInUse->made;
    made.faceName = fontInUse->face;
    return made;
}

SurfaceHandle ObjectSurface::Keep(Object object) {
    do {
        ++lastHandle;
    } while (lastHandle == 0 || objects.contains(lastHandle));
    objects.emplace(lastHandle, std::move(object));
    return lastHandle;
}

SurfaceHandle ObjectSurface::CreatePen(int style, std::int32_t width, std::uint32_t color) {
    if ((style != PenStyleSolid && style != PenStyleNull) || width > WidestPen) {
        return 0;
    }
    width = std::max(width, 1);
    return Keep(Pen{style == PenStyleSolid, width, PixelOf(color), static_cast<double>(width)});
}

SurfaceHandle ObjectSurface::KeepFinePen(double width, std::uint32_t color) {
    if (!(width <= WidestPen)) {
        return 0;
    }
    width = std::max(width, 1.0);
    return Keep(Pen{true, RoundToInt32(width), PixelOf(color), width});
}

SurfaceHandle ObjectSurface::CreateSolidBrush(std::uint32_t color) {
    return Keep(Brush{true, PixelOf(color)});
}

SurfaceHandle ObjectSurface::GetStockObject(int number) { return number == StockNullBrush ? NullBrush : 0; }

SurfaceHandle ObjectSurface::Select(SurfaceHandle object) {
    const auto found = objects.find(object);
    if (found == objects.end()) {
        return 0;
    }
    if (const Pen* selected = std::get_if<Pen>(&found->second)) {
        penInUse = selected;
        return std::exchange(currentPen, object);
    }
    if (const Font* selected = std::get_if<Font>(&found->second)) {
        fontInUse = selected;
        return std::exchange(currentFont, object);
    }
    brushInUse = &std::get<Brush>(found->second);
    return std::exchange(currentBrush, object);
}

SurfaceHandle ObjectSurface::SelectObject(SurfaceHandle object) {
    const SurfaceHandle before = Select(object);
    if (object == currentPen) {
        PenSelected();
    }
    return before;
}

bool ObjectSurface::DeleteObject(SurfaceHandle object) {
    if (object == currentPen || object == currentBrush || object == currentFont) {
        return false;
    }
    if (object >= BlackPen && object <= LastStockObject) {
        return true;
    }
    return objects.erase(object) > 0;
}

int ObjectSurface::SetPolyFillMode(int mode) {
    if (mode != FillAlternate && mode != FillWinding) {
        return 0;
    }
    return std::exchange(fillMode, mode);
}

SurfaceHandle ObjectSurface::CreateFontIndirectA(const SurfaceFont& made) {
    if (!CanBeFont(made)) {
        return 0;
    }
    Font kept{made, std::string(made.faceName)};
    kept.made.faceName = {};
    return Keep(std::move(kept));
}

bool ObjectSurface::SetTextAlign(int mode) {
    if (mode != AlignTop && mode != AlignBaseline) {
        return false;
    }
    textAlign = mode;
    return true;
}

std::uint32_t ObjectSurface::SetTextColor(std::uint32_t color) { return std::exchange(textColor, color); }

} // namespace quelmont

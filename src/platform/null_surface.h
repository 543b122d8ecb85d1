#pragma once

#include "platform/draw_surface.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace quelmont {

/// A surface on which every operation succeeds and nothing is painted.
class NullSurface : public DrawSurface {
public:
    void MoveToEx(std::int32_t /*x*/, std::int32_t /*y*/) override {}
    void LineTo(std::int32_t /*x*/, std::int32_t /*y*/) override {}
    bool Polyline(std::span<const SurfacePoint> /*points*/) override { return true; }
    bool Polygon(std::span<const SurfacePoint> /*points*/) override { return true; }
    bool PolyPolygon(std::span<const SurfacePoint> /*points*/,
                     std::span<const std::int32_t> /*counts*/) override {
        return true;
    }
    bool Rectangle(std::int32_t /*left*/, std::int32_t /*top*/, std::int32_t /*right*/,
                   std::int32_t /*bottom*/) override {
        return true;
    }
    bool Ellipse(std::int32_t /*left*/, std::int32_t /*top*/, std::int32_t /*right*/,
                 std::int32_t /*bottom*/) override {
        return true;
    }
    void SetPixel(std::int32_t /*x*/, std::int32_t /*y*/, std::uint32_t /*color*/) override {}
    SurfaceHandle CreatePen(int /*style*/, std::int32_t /*width*/, std::uint32_t /*color*/) override {
        ++objects;
        return 1;
    }
    SurfaceHandle CreateSolidBrush(std::uint32_t /*color*/) override {
        ++objects;
        return 2;
    }
    SurfaceHandle GetStockObject(int /*number*/) override { return 3; }
    SurfaceHandle SelectObject(SurfaceHandle /*object*/) override { return 4; }
    bool DeleteObject(SurfaceHandle /*object*/) override {
        --objects;
        return true;
    }
    int SetPolyFillMode(int /*mode*/) override { return FillAlternate; }
    SurfaceHandle CreateFontIndirectA(const SurfaceFont& /*font*/) override {
        ++objects;
        return 3;
    }
    bool SetTextAlign(int /*mode*/) override { return true; }
    std::uint32_t SetTextColor(std::uint32_t /*color*/) override { return 0; }
    bool TextOutA(std::int32_t /*x*/, std::int32_t /*y*/, std::string_view /*text*/) override { return true; }

    int objects = 0; ///< pens, brushes and fonts that were made and not deleted
};

} // namespace quelmont

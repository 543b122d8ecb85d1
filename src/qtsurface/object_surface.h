#pragma once

#include "platform/draw_surface.h"

#include <cstdint>
#include <map>
#include <string>
#include <variant>

namespace quelmont {

/// What every surface that Qt paints keeps in hand: its pens, brushes and fonts, and how it writes.
///
/// It begins with a black pen of one pixel, a white brush and a font, as GetStockObject's objects are:
/// they can always be selected and are never freed. A pen is solid or null; its width is 32767 at most.
class ObjectSurface : public DrawSurface {
public:
    void MoveToEx(std::int32_t x, std::int32_t y) override { position = {x, y}; }
    SurfaceHandle CreatePen(int style, std::int32_t width, std::uint32_t color) override;
    SurfaceHandle CreateSolidBrush(std::uint32_t color) override;
    SurfaceHandle GetStockObject(int number) override;
    SurfaceHandle SelectObject(SurfaceHandle object) override;
    bool DeleteObject(SurfaceHandle object) override;
    int SetPolyFillMode(int mode) override;
    SurfaceHandle CreateFontIndirectA(const SurfaceFont& made) override;
    bool SetTextAlign(int mode) override;
    std::uint32_t SetTextColor(std::uint32_t color) override;

protected:
    ObjectSurface();

    /// Colours as 0xFFRRGGBB.
    struct Pen {
        bool draws = true;
        std::int32_t width = 1;
        std::uint32_t pixel = 0;
        double exactWidth = 1.0; ///< of smooth lines
    };
    struct Brush {
        bool fills = true;
        std::uint32_t pixel = 0;
    };

    /// A solid pen for smooth lines, width in pixels. Returns 0 on failure.
    SurfaceHandle KeepFinePen(double width, std::uint32_t color);

    /// 0x00BBGGRR as 0xFFRRGGBB.
    static std::uint32_t PixelOf(std::uint32_t color);

    /// The current ones.
    const Pen& CurrentPen() const { return *penInUse; }
    const Brush& CurrentBrush() const { return *brushInUse; }
    /// Its face name goes with the next font that is selected.
    SurfaceFont CurrentFont() const;
    std::uint32_t TextPixel() const { return PixelOf(textColor); }
    int TextAlign() const { return textAlign; }
    int FillMode() const { return fillMode; }

    /// Another pen, perhaps the same again, has become the current one.
    virtual void PenSelected() {}

    SurfacePoint position;

private:
    struct Font {
        SurfaceFont made; ///< without its face name
        std::string face;
    };
    using Object = std::variant<Pen, Brush, Font>;

    SurfaceHandle Keep(Object object);
    SurfaceHandle Select(SurfaceHandle object);

    std::map<SurfaceHandle, Object> objects;
    SurfaceHandle lastHandle = 0;
    SurfaceHandle currentPen = 0;
    SurfaceHandle currentBrush = 0;
    SurfaceHandle currentFont = 0;
    const Pen* penInUse = nullptr; ///< the current ones; the map never moves them
    const Brush* brushInUse = nullptr;
    const Font* fontInUse = nullptr;
    std::uint32_t textColor = 0;
    int textAlign = AlignTop;
    int fillMode = FillAlternate;
};

} // namespace quelmont

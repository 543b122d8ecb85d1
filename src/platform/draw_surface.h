#pragma once

#include "platform/fonts.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quelmont {

/// A pen, brush or font of a surface. 0 is no object: the answer of an operation that failed.
using SurfaceHandle = std::uint32_t;

class FineLines;

/// A device point in pixels of its surface, y downward.
struct SurfacePoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const SurfacePoint&) const = default;
};

/// Pen styles of CreatePen.
constexpr int PenStyleSolid = 0;
constexpr int PenStyleNull = 5; ///< draws nothing

/// GetStockObject's number of the brush that fills nothing.
constexpr int StockNullBrush = 5;

/// SetPolyFillMode's modes: alternate (even-odd) and winding.
constexpr int FillAlternate = 1;
constexpr int FillWinding = 2;

/// SetTextAlign's modes: the anchor of a text is the upper left corner of its cell, or where its baseline
/// begins.
constexpr int AlignTop = 0;
constexpr int AlignBaseline = 24;

/// The longest text of TextOutA.
constexpr std::size_t MostTextCharacters = 32767;

/// The one way to paint: the window's back image, a picture file, a printer page, a metafile.
///
/// A surface has a current pen, brush and font, a current position, a fill mode, a text colour (black
/// at first) and a text alignment (AlignTop at first). Coordinates are device pixels, y downward, and
/// may lie far outside the surface. Colours are 0x00BBGGRR; the bits above the lowest 24 are ignored.
/// An operation that answers bool answers false when it failed and then has drawn nothing.
class DrawSurface {
public:
    virtual ~DrawSurface() = default;

    /// Sets the current position and draws nothing.
    virtual void MoveToEx(std::int32_t x, std::int32_t y) = 0;
    /// Draws with the pen from the current position to (x, y), without the end pixel, and moves
    /// there. A line of length zero draws nothing.
    virtual void LineTo(std::int32_t x, std::int32_t y) = 0;
    /// Draws the segments between the points; the current position stays.
    virtual bool Polyline(std::span<const SurfacePoint> points) = 0;
    /// Closed outline with the pen, inside with the brush.
    virtual bool Polygon(std::span<const SurfacePoint> points) = 0;
    /// Several closed outlines with the pen; with the brush what is inside all of them together, by the fill
    /// mode: under FillAlternate inside an odd number of them. The points of one follow on those of another;
    /// counts has the number of each, two at least.
    virtual bool PolyPolygon(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts) = 0;
    /// Outline with the pen, inside with the brush; the right and the bottom edge are outside.
    virtual bool Rectangle(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) = 0;
    /// The ellipse in that box: outline with the pen, inside with the brush.
    virtual bool Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) = 0;
    virtual void SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) = 0;

    /// Makes a pen, width in pixels (below 1 counts as 1). Returns 0 on failure.
    virtual SurfaceHandle CreatePen(int style, std::int32_t width, std::uint32_t color) = 0;
    virtual SurfaceHandle CreateSolidBrush(std::uint32_t color) = 0;
    virtual SurfaceHandle GetStockObject(int number) = 0;
    /// Makes the pen, brush or font current and returns the one before it, 0 if the handle is unknown.
    virtual SurfaceHandle SelectObject(SurfaceHandle object) = 0;
    /// Frees an object. False for an unknown handle and for one that is current.
    virtual bool DeleteObject(SurfaceHandle object) = 0;
    /// Sets the rule by which crossing outlines are filled; returns the mode before, 0 on failure.
    virtual int SetPolyFillMode(int mode) = 0;

    /// Makes a font. Returns 0 when a number is out of the surface's range, and on any other failure.
    virtual SurfaceHandle CreateFontIndirectA(const SurfaceFont& font) = 0;
    /// Says what the anchor of a text is: AlignTop or AlignBaseline. False for anything else.
    virtual bool SetTextAlign(int mode) = 0;
    /// Sets the colour of text and returns the one before.
    virtual std::uint32_t SetTextColor(std::uint32_t color) = 0;
    /// Draws a text in UTF-8 in the current font, turned about its anchor (x, y) by the font's escapement.
    /// What lies behind it stays. A text of more than MostTextCharacters fails.
    virtual bool TextOutA(std::int32_t x, std::int32_t y, std::string_view text) = 0;

    /// Turns the antialiasing of lines and symbols on or off for what is drawn from now on; off at first.
    /// Returns the lines finer than pixels that the surface has while it is on; nullptr when it is off, and
    /// from a surface that knows no antialiasing of its own, which stays as it is.
    virtual FineLines* Smooth(bool /*on*/) { return nullptr; }
};

} // namespace quelmont

#pragma once

#include "platform/draw_surface.h"

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace quelmont {

/// The operations of a surface, and what the window does to its back image between them.
enum class SurfaceOp {
    MoveToEx,
    LineTo,
    Polyline,
    Polygon,
    PolyPolygon,
    Rectangle,
    Ellipse,
    SetPixel,
    CreatePen,
    CreateSolidBrush,
    GetStockObject,
    SelectObject,
    DeleteObject,
    SetPolyFillMode,
    CreateFontIndirectA,
    SetTextAlign,
    SetTextColor,
    TextOutA,
    Cls,
    Refresh,
    KeepPicture,
    PutBackPicture,
};

std::string Name(SurfaceOp op);

/// One operation as it was called: its numbers in the order of its arguments, points as x, y, a font as
/// its fields, the outlines of PolyPolygon each behind its count. What an operation answers stands behind its
/// arguments where it is a handle, a fill mode or a colour. text is a font's face name or the text that was
/// drawn.
struct SurfaceCall {
    SurfaceOp op = SurfaceOp::MoveToEx;
    std::vector<std::int64_t> numbers = {};
    bool failed = false;
    std::string text = {};
    bool operator==(const SurfaceCall&) const = default;
};

/// "LineTo(10, 20)", "Polyline(0, 0, 5, 5) failed", "TextOutA(10, 20, 'Nuuk')".
std::ostream& operator<<(std::ostream& stream, const SurfaceCall& call);

struct RecordedPen {
    int style = PenStyleSolid;
    std::int32_t width = 1;
    std::uint32_t color = 0;
    bool operator==(const RecordedPen&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const RecordedPen& pen);

/// A stretch that was drawn by LineTo or Polyline.
struct RecordedSegment {
    SurfacePoint from;
    SurfacePoint to;
    RecordedPen pen;
    bool operator==(const RecordedSegment&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const RecordedSegment& segment);

/// A font as it was made.
struct RecordedFont {
    explicit RecordedFont(const SurfaceFont& font_ = {}) : font(font_), face(font_.faceName) {
        font.faceName = {};
    }
    SurfaceFont font; ///< without its face name
    std::string face;
};

/// A text that was drawn.
struct RecordedText {
    SurfacePoint anchor;
    std::string text;
    RecordedFont font;
    std::uint32_t color = 0;
    int align = AlignTop;
};

/// A surface that paints nothing and remembers everything.
///
/// It begins with a black pen of one pixel, a white brush and a font, which are current, and a null brush.
/// Handles are never given twice. Colours are recorded as they come, bits above the lowest 24
/// included.
class RecordingSurface : public DrawSurface {
public:
    RecordingSurface();

    /// The n-th call (from 1, counted from now) of an operation fails; 0 means every call.
    void FailAt(SurfaceOp op, int nth);

    const std::vector<SurfaceCall>& Calls() const { return calls; }
    std::vector<SurfaceCall> CallsOf(SurfaceOp op) const;
    int Count(SurfaceOp op) const;
    /// What LineTo and Polyline drew, in order, with the pens that they drew it with.
    const std::vector<RecordedSegment>& Segments() const { return segments; }
    /// All calls, one a line.
    std::string Text() const;
    /// The texts that TextOutA drew, in order, with the font, colour and alignment of each.
    const std::vector<RecordedText>& Texts() const { return texts; }
    /// Forgets the calls, segments and texts; pens, brushes, fonts and what shall fail stay.
    void Forget();

    /// Pens, brushes and fonts that were made and not deleted.
    int LiveObjects() const { return static_cast<int>(pens.size() + brushes.size() + fonts.size()); }
    SurfaceHandle CurrentPenHandle() const { return currentPen; }
    SurfaceHandle CurrentBrushHandle() const { return currentBrush; }
    SurfaceHandle CurrentFontHandle() const { return currentFont; }
    std::uint32_t TextColor() const { return textColor; }
    RecordedPen CurrentPen() const;
    SurfacePoint Position() const { return position; }
    int PolyFillMode() const { return fillMode; }

    /// For whoever owns the surface: notes something that is no operation of a surface.
    void Note(SurfaceOp op) { Record(op, {}); }

    void MoveToEx(std::int32_t x, std::int32_t y) override;
    void LineTo(std::int32_t x, std::int32_t y) override;
    bool Polyline(std::span<const SurfacePoint> points) override;
    bool Polygon(std::span<const SurfacePoint> points) override;
    bool PolyPolygon(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts) override;
    bool Rectangle(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    bool Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    void SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) override;
    SurfaceHandle CreatePen(int style, std::int32_t width, std::uint32_t color) override;
    SurfaceHandle CreateSolidBrush(std::uint32_t color) override;
    SurfaceHandle GetStockObject(int number) override;
    SurfaceHandle SelectObject(SurfaceHandle object) override;
    bool DeleteObject(SurfaceHandle object) override;
    int SetPolyFillMode(int mode) override;
    SurfaceHandle CreateFontIndirectA(const SurfaceFont& font) override;
    bool SetTextAlign(int mode) override;
    std::uint32_t SetTextColor(std::uint32_t color) override;
    bool TextOutA(std::int32_t x, std::int32_t y, std::string_view text) override;

private:
    /// Records a call and returns whether it succeeds.
    bool Record(SurfaceOp op, std::vector<std::int64_t> numbers, std::string_view text = {});
    bool Fails(SurfaceOp op);
    void Segment(SurfacePoint from, SurfacePoint to);

    std::vector<SurfaceCall> calls;
    std::vector<RecordedSegment> segments;
    std::multimap<SurfaceOp, int> failures; ///< calls to go; 0 for every call
    std::map<SurfaceHandle, RecordedPen> pens;
    std::map<SurfaceHandle, std::uint32_t> brushes;
    std::map<SurfaceHandle, RecordedFont> fonts;
    std::vector<RecordedText> texts;
    SurfaceHandle lastHandle;
    SurfaceHandle currentPen;
    SurfaceHandle currentBrush;
    SurfaceHandle currentFont;
    std::uint32_t textColor = 0;
    int textAlign = AlignTop;
    SurfacePoint position;
    int fillMode = FillAlternate;
};

} // namespace quelmont

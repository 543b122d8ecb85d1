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
    Rectangle,
    Ellipse,
    SetPixel,
    CreatePen,
    CreateSolidBrush,
    GetStockObject,
    SelectObject,
    DeleteObject,
    SetPolyFillMode,
    Cls,
    Refresh,
};

std::string Name(SurfaceOp op);

/// One operation as it was called: its numbers in the order of its arguments, points as x, y.
/// What an operation answers stands behind its arguments where it is a handle or a fill mode.
struct SurfaceCall {
    SurfaceOp op = SurfaceOp::MoveToEx;
    std::vector<std::int64_t> numbers = {};
    bool failed = false;
    bool operator==(const SurfaceCall&) const = default;
};

/// "LineTo(10, 20)", "Polyline(0, 0, 5, 5) failed".
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

/// A surface that paints nothing and remembers everything.
///
/// It begins with a black pen of one pixel and a white brush, which are current, and a null brush.
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
    /// Forgets the calls and segments; pens, brushes and what shall fail stay.
    void Forget();

    /// Pens and brushes that were made and not deleted.
    int LiveObjects() const { return static_cast<int>(pens.size() + brushes.size()); }
    SurfaceHandle CurrentPenHandle() const { return currentPen; }
    SurfaceHandle CurrentBrushHandle() const { return currentBrush; }
    RecordedPen CurrentPen() const;
    SurfacePoint Position() const { return position; }
    int PolyFillMode() const { return fillMode; }

    /// For whoever owns the surface: notes something that is no operation of a surface.
    void Note(SurfaceOp op) { Record(op, {}); }

    void MoveToEx(std::int32_t x, std::int32_t y) override;
    void LineTo(std::int32_t x, std::int32_t y) override;
    bool Polyline(std::span<const SurfacePoint> points) override;
    bool Polygon(std::span<const SurfacePoint> points) override;
    bool Rectangle(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    bool Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    void SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) override;
    SurfaceHandle CreatePen(int style, std::int32_t width, std::uint32_t color) override;
    SurfaceHandle CreateSolidBrush(std::uint32_t color) override;
    SurfaceHandle GetStockObject(int number) override;
    SurfaceHandle SelectObject(SurfaceHandle object) override;
    bool DeleteObject(SurfaceHandle object) override;
    int SetPolyFillMode(int mode) override;

private:
    /// Records a call and returns whether it succeeds.
    bool Record(SurfaceOp op, std::vector<std::int64_t> numbers);
    bool Fails(SurfaceOp op);
    void Segment(SurfacePoint from, SurfacePoint to);

    std::vector<SurfaceCall> calls;
    std::vector<RecordedSegment> segments;
    std::multimap<SurfaceOp, int> failures; ///< calls to go; 0 for every call
    std::map<SurfaceHandle, RecordedPen> pens;
    std::map<SurfaceHandle, std::uint32_t> brushes;
    SurfaceHandle lastHandle;
    SurfaceHandle currentPen;
    SurfaceHandle currentBrush;
    SurfacePoint position;
    int fillMode = FillAlternate;
};

} // namespace quelmont

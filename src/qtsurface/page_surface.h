#pragma once

#include "qtsurface/object_surface.h"

#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QRectF>

#include <cstddef>
#include <functional>
#include <span>
#include <string_view>

class QPainter;

namespace quelmont {

/// A page on which lines stay lines and text stays text: of a printer, or of a file.
///
/// Between pages it takes objects, and what would be drawn fails. Points are those of a page's grid of
/// dots: a dot is a unit square about its point. Lines are drawn with round ends and joints, to their ends.
/// A line in hand is drawn when something else follows; it is handed on in pieces, so that no more than
/// MostVertices of them are ever kept.
class PageSurface final : public ObjectSurface {
public:
    static constexpr std::size_t MostVertices = 4096;

    /// afterVertices is called each time that about so many vertices have gone to the page.
    explicit PageSurface(std::size_t vertices = 0, std::function<void()> afterVertices_ = {});

    /// From here on everything goes to a painter, in dots from a corner, and nothing outside of the clip if
    /// there is one.
    void Begin(QPainter& to, QPointF corner, const QRectF& clip);
    /// Draws what is in hand, and forgets the painter.
    void End();

    void LineTo(std::int32_t x, std::int32_t y) override;
    bool Polyline(std::span<const SurfacePoint> points) override;
    bool Polygon(std::span<const SurfacePoint> points) override;
    bool PolyPolygon(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts) override;
    bool Rectangle(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    bool Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) override;
    void SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) override;
    bool TextOutA(std::int32_t x, std::int32_t y, std::string_view text) override;

private:
    struct Dots {
        std::int64_t left = 0, top = 0, right = 0, bottom = 0; ///< right and bottom outside
        bool Empty() const { return left == right; }
    };

    void PenSelected() override;

    bool IsReady() const { return painter != nullptr; }
    void Segment(SurfacePoint from, SurfacePoint to);
    void DrawLine();
    void EndRow();
    void KeepDots();
    void DrawDots();
    void DrawInHand();
    void SetPenAndBrush();
    bool DrawBox(SurfacePoint from, SurfacePoint to, const std::function<void(const QRectF&)>& draw);
    bool HasInk() const;
    void Count(std::size_t drawn);

    QPainter* painter = nullptr;
    QPen linePen; ///< of the line in hand
    QPainterPath line;
    bool lineDraws = true;
    SurfacePoint lineEnd;
    QPainterPath dots; ///< single pixels of one colour; neighbours are one rectangle
    std::uint32_t dotPixel = 0;
    Dots block, row;
    std::size_t vertices;
    std::size_t drawnVertices = 0;
    std::function<void()> afterVertices;
};

} // namespace quelmont

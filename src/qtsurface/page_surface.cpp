#include "qtsurface/page_surface.h"

#include "core/text_encoding.h"
#include "qtsurface/text_face.h"
#include "qtsurface/text_painter.h"

#include <QBrush>
#include <QColor>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <utility>

namespace quelmont {

namespace {

QPointF At(SurfacePoint point) { return {static_cast<double>(point.x), static_cast<double>(point.y)}; }

QPen RoundPenOf(std::uint32_t pixel, std::int32_t width) {
    return {QBrush(QColor::fromRgb(pixel)), static_cast<double>(width), Qt::SolidLine, Qt::RoundCap,
            Qt::RoundJoin};
}

/// From the corners of dots, at which a painter counts, to their middles.
constexpr double HalfDot = 0.5;

void FillLine(QPainter& painter, double top, double width, double length, const QColor& color) {
    if (length > 0.0) {
        painter.fillRect(QRectF(0.0, top, length, width), color);
    }
}

} // namespace

PageSurface::PageSurface(std::size_t vertices_, std::function<void()> afterVertices_)
    : vertices(vertices_), afterVertices(std::move(afterVertices_)) {
    dots.setFillRule(Qt::WindingFill);
    PageSurface::PenSelected();
}

void PageSurface::Begin(QPainter& to, QPointF corner, const QRectF& clip) {
    painter = &to;
    painter->resetTransform();
    painter->translate(corner);
    painter->setClipping(false);
    if (!clip.isNull()) {
        painter->setClipRect(clip);
    }
    painter->translate(HalfDot, HalfDot);
}

void PageSurface::End() {
    if (IsReady()) {
        DrawInHand();
        painter = nullptr;
    }
}

void PageSurface::PenSelected() {
    DrawLine();
    linePen = RoundPenOf(CurrentPen().pixel, CurrentPen().width);
    lineDraws = CurrentPen().draws;
}

void PageSurface::Count(std::size_t drawn) {
    drawnVertices += drawn;
    if (afterVertices && drawnVertices >= vertices) {
        drawnVertices = 0;
        afterVertices();
    }
}

void PageSurface::DrawLine() {
    if (line.isEmpty()) {
        return;
    }
    const auto drawn = static_cast<std::size_t>(line.elementCount());
    painter->strokePath(line, linePen);
    line.clear();
    Count(drawn);
}

void PageSurface::DrawDots() {
    EndRow();
    KeepDots();
    if (dots.isEmpty()) {
        return;
    }
    const auto drawn = static_cast<std::size_t>(dots.elementCount());
    painter->translate(-HalfDot, -HalfDot);
    painter->fillPath(dots, QColor::fromRgb(dotPixel));
    painter->translate(HalfDot, HalfDot);
    dots.clear();
    dots.setFillRule(Qt::WindingFill);
    Count(drawn);
}

void PageSurface::DrawInHand() {
    DrawLine();
    DrawDots();
}

void PageSurface::Segment(SurfacePoint from, SurfacePoint to) {
    if (from == to || !lineDraws || !IsReady()) {
        return;
    }
    DrawDots();
    if (line.isEmpty() || lineEnd != from) {
        line.moveTo(At(from));
    }
    line.lineTo(At(to));
    lineEnd = to;
    if (static_cast<std::size_t>(line.elementCount()) >= MostVertices) {
        DrawLine();
    }
}

void PageSurface::LineTo(std::int32_t x, std::int32_t y) {
    const SurfacePoint from = std::exchange(position, SurfacePoint{x, y});
    Segment(from, position);
}

bool PageSurface::Polyline(std::span<const SurfacePoint> points) {
    if (points.size() < 2 || !IsReady()) {
        return false;
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
        Segment(points[i - 1], points[i]);
    }
    return true;
}

void PageSurface::SetPenAndBrush() {
    DrawInHand();
    painter->setPen(lineDraws ? linePen : QPen(Qt::NoPen));
    painter->setBrush(CurrentBrush().fills ? QBrush(QColor::fromRgb(CurrentBrush().pixel)) : QBrush());
}

bool PageSurface::HasInk() const { return lineDraws || CurrentBrush().fills; }

bool PageSurface::Polygon(std::span<const SurfacePoint> points) {
    const auto count = static_cast<std::int32_t>(points.size());
    return PolyPolygon(points, {&count, 1});
}

bool PageSurface::PolyPolygon(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts) {
    if (std::any_of(counts.begin(), counts.end(), [](std::int32_t count) { return count < 2; }) ||
        !IsReady()) {
        return false;
    }
    if (!HasInk()) {
        return true;
    }
    const std::size_t drawn = points.size();
    QPainterPath outline;
    outline.setFillRule(FillMode() == FillWinding ? Qt::WindingFill : Qt::OddEvenFill);
    for (const std::int32_t count : counts) {
        const auto polygon = points.first(static_cast<std::size_t>(count));
        outline.moveTo(At(polygon.front()));
        for (const SurfacePoint& point : polygon.subspan(1)) {
            outline.lineTo(At(point));
        }
        outline.closeSubpath();
        points = points.subspan(polygon.size());
    }
    SetPenAndBrush();
    painter->drawPath(outline);
    Count(drawn);
    return true;
}

bool PageSurface::DrawBox(SurfacePoint from, SurfacePoint to,
                          const std::function<void(const QRectF&)>& draw) {
    if (!IsReady()) {
        return false;
    }
    const auto [firstX, endX] = std::minmax(from.x, to.x);
    const auto [firstY, endY] = std::minmax(from.y, to.y);
    if (firstX == endX || firstY == endY || !HasInk()) {
        return true;
    }
    SetPenAndBrush();
    // Through the middles of the outermost dots; without an outline, to their outer edges.
    QRectF box(firstX, firstY, static_cast<double>(endX) - firstX - 1.0,
               static_cast<double>(endY) - firstY - 1.0);
    if (!lineDraws) {
        box.adjust(-HalfDot, -HalfDot, HalfDot, HalfDot);
    }
    if (box.isNull()) { // a path of no size at all is nothing
        const double half = linePen.widthF() / 2.0;
        box.adjust(-half, -half, half, half);
        painter->setBrush(linePen.brush());
        painter->setPen(Qt::NoPen);
        painter->drawEllipse(box);
    } else {
        draw(box);
    }
    constexpr std::size_t mostVertices = 13; // of an ellipse: four curves
    Count(mostVertices);
    return true;
}

bool PageSurface::Rectangle(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    return DrawBox({left, top}, {right, bottom}, [this](const QRectF& box) { painter->drawRect(box); });
}

bool PageSurface::Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    return DrawBox({left, top}, {right, bottom}, [this](const QRectF& box) { painter->drawEllipse(box); });
}

void PageSurface::EndRow() {
    if (row.Empty()) {
        return;
    }
    if (block.left == row.left && block.right == row.right && block.bottom == row.top) {
        block.bottom = row.bottom;
    } else {
        KeepDots();
        block = row;
    }
    row = {};
}

void PageSurface::KeepDots() {
    if (!block.Empty()) {
        dots.addRect(static_cast<double>(block.left), static_cast<double>(block.top),
                     static_cast<double>(block.right - block.left),
                     static_cast<double>(block.bottom - block.top));
        block = {};
    }
}

void PageSurface::SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) {
    if (!IsReady()) {
        return;
    }
    DrawLine();
    if (const std::uint32_t pixel = PixelOf(color); pixel != dotPixel) {
        DrawDots();
        dotPixel = pixel;
    }
    if (!row.Empty() && row.top == y && row.right == x) {
        ++row.right;
        return;
    }
    EndRow();
    if (static_cast<std::size_t>(dots.elementCount()) >= MostVertices) {
        DrawDots();
    }
    row = {x, y, static_cast<std::int64_t>(x) + 1, static_cast<std::int64_t>(y) + 1};
}

bool PageSurface::TextOutA(std::int32_t x, std::int32_t y, std::string_view text) {
    const std::size_t characters = Characters(text).size();
    if (characters > MostTextCharacters || !IsReady()) {
        return false;
    }
    if (characters == 0) {
        return true;
    }
    DrawInHand();
    const SurfaceFont font = CurrentFont();
    const TextFace& face = TextFace::Of(font);
    const QColor color = QColor::fromRgb(TextPixel());
    painter->save();
    painter->translate(-HalfDot, -HalfDot);
    painter->setTransform(TextTransform(face, font, {{x, y}, TextAlign(), TextPixel()}), true);
    painter->setPen(color);
    const double width = face.Write(*painter, text);
    const TextFace::Measures& measures = face.InEm();
    if (font.underline) {
        FillLine(*painter, measures.underline, measures.underlineWidth, width, color);
    }
    if (font.strikeout) {
        FillLine(*painter, measures.strikeout, measures.strikeoutWidth, width, color);
    }
    painter->restore();
    Count(characters);
    return true;
}

} // namespace quelmont

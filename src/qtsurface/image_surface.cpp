#include "qtsurface/image_surface.h"

#include "core/run_time_error.h"
#include "core/text_encoding.h"
#include "qtsurface/text_painter.h"
#include "qtsurface/thin_line.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace quelmont {

namespace {

constexpr std::int32_t LargestSize = 32767;

} // namespace

ImageSurface::ImageSurface(std::int32_t width, std::int32_t height) { Resize(width, height, 0); }

void ImageSurface::Resize(std::int32_t width, std::int32_t height, std::uint32_t color) {
    if (width < 0 || width > LargestSize || height < 0 || height > LargestSize) {
        throw RunTimeError(ErrorInvalidCall);
    }
    try {
        pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), PixelOf(color));
    } catch (const std::bad_alloc&) {
        throw RunTimeError(ErrorOutOfMemory);
    }
    pixels.shrink_to_fit();
    painted = PaintedSpans(width, height);
    grid = PixelGrid{pixels.data(), width, height, &painted};
}

void ImageSurface::Clear(std::uint32_t color) {
    painted.Forget();
    std::fill(pixels.begin(), pixels.end(), PixelOf(color));
}

QImage ImageSurface::Image() const {
    return {reinterpret_cast<const uchar*>(pixels.data()), grid.width, grid.height,
            static_cast<qsizetype>(grid.width) * 4, QImage::Format_RGB32};
}

PixelImage ImageSurface::Pixels() const {
    PixelImage image{grid.width, grid.height, {pixels.begin(), pixels.end()}};
    for (std::uint32_t& pixel : image.pixels) {
        pixel = (pixel & 0xFFU) << 16U | (pixel & 0xFF00U) | (pixel >> 16U & 0xFFU);
    }
    return image;
}

void ImageSurface::Copy(const QImage& from, const QRect& box, std::uint32_t color) {
    painted.Forget();
    const QRect inside = box & QRect(0, 0, grid.width, grid.height);
    for (int row = inside.top(); row <= inside.bottom(); ++row) {
        std::uint32_t* const line =
            pixels.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(grid.width);
        const int known =
            row < from.height() ? std::clamp(from.width(), inside.left(), inside.right() + 1) : inside.left();
        if (known > inside.left()) {
            const auto* const source = reinterpret_cast<const std::uint32_t*>(from.constScanLine(row));
            std::copy(source + inside.left(), source + known, line + inside.left());
        }
        std::fill(line + known, line + inside.right() + 1, PixelOf(color));
    }
}

void ImageSurface::LineTo(std::int32_t x, std::int32_t y) {
    // On a large map most points fall on the pixel of the one before.
    if (position.x == x && position.y == y) {
        return;
    }
    const SurfacePoint from = std::exchange(position, SurfacePoint{x, y});
    Segment(from, position);
}

void ImageSurface::Segment(SurfacePoint from, SurfacePoint to) const {
    const Pen& pen = CurrentPen();
    if (from == to || !pen.draws) {
        return;
    }
    if (pen.width > 1) {
        round->Line(grid, from, to, pen.pixel);
    } else {
        DrawThinLine(grid, from, to, pen.pixel);
    }
}

bool ImageSurface::Polyline(std::span<const SurfacePoint> points) {
    if (points.size() < 2) {
        return false;
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
        Segment(points[i - 1], points[i]);
    }
    return true;
}

bool ImageSurface::ChangesNothing(std::int32_t left, std::int32_t top, std::int32_t right,
                                  std::int32_t bottom) const {
    const Pen& pen = CurrentPen();
    const Brush& brush = CurrentBrush();
    const std::int64_t reach = pen.draws ? pen.width : 0;
    return left - reach >= grid.width || top - reach >= grid.height || right + reach < 0 ||
           bottom + reach < 0 ||
           ((!pen.draws || grid.IsAll(pen.pixel)) && (!brush.fills || grid.IsAll(brush.pixel)));
}

bool ImageSurface::Polygon(std::span<const SurfacePoint> points) {
    const Brush& brush = CurrentBrush();
    if (points.size() < 2) {
        return false;
    }
    const auto [left, right] = std::minmax_element(
        points.begin(), points.end(), [](const SurfacePoint& a, const SurfacePoint& b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(
        points.begin(), points.end(), [](const SurfacePoint& a, const SurfacePoint& b) { return a.y < b.y; });
    if (ChangesNothing(left->x, top->y, right->x, bottom->y)) {
        return true;
    }
    if (brush.fills) {
        FillPolygon(grid, points, FillMode(), brush.pixel);
    }
    Polyline(points);
    Segment(points.back(), points.front());
    return true;
}

bool ImageSurface::PolyPolygon(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts) {
    if (std::any_of(counts.begin(), counts.end(), [](std::int32_t count) { return count < 2; })) {
        return false;
    }
    if (CurrentBrush().fills) {
        FillPolygons(grid, points, counts, FillMode(), CurrentBrush().pixel);
    }
    for (const std::int32_t count : counts) {
        const auto outline = points.first(static_cast<std::size_t>(count));
        Polyline(outline);
        Segment(outline.back(), outline.front());
        points = points.subspan(outline.size());
    }
    return true;
}

bool ImageSurface::Rectangle(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    const Pen& pen = CurrentPen();
    const Brush& brush = CurrentBrush();
    const auto [firstX, endX] = std::minmax(left, right);
    const auto [firstY, endY] = std::minmax(top, bottom);
    if (firstX == endX || firstY == endY || ChangesNothing(firstX, firstY, endX, endY)) {
        return true;
    }
    const std::int32_t lastX = endX - 1;
    const std::int32_t lastY = endY - 1;
    if (brush.fills) {
        const std::int32_t endRow = std::min(lastY, grid.height - 1);
        for (std::int32_t row = std::max(firstY, 0); row <= endRow; ++row) {
            FillSpan(grid, row, firstX, lastX, brush.pixel);
        }
    }
    if (brush.fills && pen.width == 1 && pen.pixel == brush.pixel) {
        return true; // the outline lies on what was filled
    }
    const std::array<SurfacePoint, 5> outline{
        {{firstX, firstY}, {lastX, firstY}, {lastX, lastY}, {firstX, lastY}, {firstX, firstY}}};
    Polyline(outline);
    if (pen.draws && firstX == lastX && firstY == lastY) {
        if (pen.width > 1) {
            round->Dot(grid, outline[0], pen.pixel);
        } else {
            FillSpan(grid, firstY, firstX, firstX, pen.pixel);
        }
    }
    return true;
}

bool ImageSurface::Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    const Pen& pen = CurrentPen();
    const Brush& brush = CurrentBrush();
    const auto [firstX, endX] = std::minmax(left, right);
    const auto [firstY, endY] = std::minmax(top, bottom);
    if (firstX == endX || firstY == endY || ChangesNothing(firstX, firstY, endX, endY)) {
        return true;
    }
    EllipseShape shape;
    shape.centreX = (static_cast<double>(firstX) + endX - 1.0) / 2.0;
    shape.centreY = (static_cast<double>(firstY) + endY - 1.0) / 2.0;
    // The line through the centres of the outermost pixels.
    const double semiX = (static_cast<double>(endX) - firstX - 1.0) / 2.0;
    const double semiY = (static_cast<double>(endY) - firstY - 1.0) / 2.0;
    const double halfPen = pen.draws ? pen.width / 2.0 : 0.5;
    shape.semiX = semiX + halfPen;
    shape.semiY = semiY + halfPen;
    if (brush.fills) {
        FillEllipse(grid, shape, brush.pixel);
    }
    if (pen.draws && !(brush.fills && pen.pixel == brush.pixel)) {
        shape.holeX = semiX - halfPen;
        shape.holeY = semiY - halfPen;
        FillEllipse(grid, shape, pen.pixel);
    }
    return true;
}

void ImageSurface::SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) {
    FillSpan(grid, y, x, x, PixelOf(color));
}

void ImageSurface::PenSelected() {
    const std::int32_t width = CurrentPen().width;
    if (width > 1 && width != roundWidth) {
        round.emplace(width);
        roundWidth = width;
    }
}

bool ImageSurface::TextOutA(std::int32_t x, std::int32_t y, std::string_view text) {
    if (Characters(text).size() > MostTextCharacters) {
        return false;
    }
    QImage picture(reinterpret_cast<uchar*>(pixels.data()), grid.width, grid.height,
                   static_cast<qsizetype>(grid.width) * 4, QImage::Format_RGB32);
    if (PaintText(picture, CurrentFont(), {{x, y}, TextAlign(), TextPixel()}, text)) {
        painted.Forget();
    }
    return true;
}

} // namespace quelmont

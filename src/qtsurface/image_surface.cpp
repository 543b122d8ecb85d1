#include "qtsurface/image_surface.h"

#include "core/run_time_error.h"
#include "core/text_encoding.h"
#include "qtsurface/text_painter.h"
#include "qtsurface/thin_line.h"

#include <algorithm>
#include <array>
#include <cmath>
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
    smoothLine = LineCoverage();
    if (smooth) {
        GetReadyForLines();
    }
}

void ImageSurface::GetReadyForLines() {
    if (!smoothLine.HasSize(grid.width, grid.height)) {
        try {
            smoothLine.Resize(grid.width, grid.height);
        } catch (const std::bad_alloc&) {
            throw RunTimeError(ErrorOutOfMemory);
        }
    }
    smoothLine.SetPen(CurrentPen().exactWidth, CurrentPen().pixel);
}

FineLines* ImageSurface::Smooth(bool on) {
    EndLine();
    smooth = on;
    if (on) {
        GetReadyForLines();
        return this;
    }
    TakeRoundPen();
    return nullptr;
}

void ImageSurface::Clear(std::uint32_t color) {
    smoothLine.Forget();
    areas.Forget();
    painted.Forget();
    std::fill(pixels.begin(), pixels.end(), PixelOf(color));
}

QImage ImageSurface::Image() const {
    smoothLine.Show(grid);
    return {reinterpret_cast<const uchar*>(pixels.data()), grid.width, grid.height,
            static_cast<qsizetype>(grid.width) * 4, QImage::Format_RGB32};
}

PixelImage ImageSurface::Pixels() const {
    smoothLine.Show(grid);
    PixelImage image{grid.width, grid.height, {pixels.begin(), pixels.end()}};
    for (std::uint32_t& pixel : image.pixels) {
        pixel = (pixel & 0xFFU) << 16U | (pixel & 0xFF00U) | (pixel >> 16U & 0xFFU);
    }
    return image;
}

void ImageSurface::Copy(const QImage& from, const QRect& box, std::uint32_t color) {
    EndLine();
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

SurfaceHandle ImageSurface::CreateFinePen(double width, std::uint32_t color) {
    return KeepFinePen(width, color);
}

FinePoint ImageSurface::Leaning(SurfacePoint at) const {
    const std::int64_t lean = std::fmod(CurrentPen().exactWidth, 2.0) == 0.0 ? FinePerPixel / 2 : 0;
    return {static_cast<std::int64_t>(at.x) * FinePerPixel - lean,
            static_cast<std::int64_t>(at.y) * FinePerPixel - lean};
}

void ImageSurface::MoveSmooth(FinePoint to) {
    // A line that goes on where the one before ended is the same line.
    if (to != finePosition) {
        EndLine();
    }
    finePosition = to;
}

void ImageSurface::MoveToFine(std::int32_t x, std::int32_t y) {
    MoveSmooth({x, y});
    position = {x / FinePerPixel, y / FinePerPixel};
}

void ImageSurface::LineToFine(std::int32_t x, std::int32_t y) {
    const std::int64_t fromX = finePosition.x;
    const std::int64_t fromY = finePosition.y;
    finePosition.x = x;
    finePosition.y = y;
    position.x = x / FinePerPixel;
    position.y = y / FinePerPixel;
    if (CurrentPen().draws) {
        smoothLine.Hide(grid);
        smoothLine.Segment({fromX, fromY}, {x, y});
    }
}

void ImageSurface::MoveToEx(std::int32_t x, std::int32_t y) {
    position = {x, y};
    if (smooth) {
        MoveSmooth(Leaning(position));
    }
}

void ImageSurface::LineTo(std::int32_t x, std::int32_t y) {
    // On a large map most points fall on the pixel of the one before.
    if (position.x == x && position.y == y && !smooth) {
        return;
    }
    const SurfacePoint from = std::exchange(position, SurfacePoint{x, y});
    if (smooth) {
        SmoothSegment(std::exchange(finePosition, Leaning(position)), Leaning(position));
    } else {
        Segment(from, position);
    }
}

void ImageSurface::SmoothSegment(FinePoint from, FinePoint to) {
    if (from != to && CurrentPen().draws) {
        smoothLine.Hide(grid);
        smoothLine.Segment(from, to);
    }
}

void ImageSurface::Segment(SurfacePoint from, SurfacePoint to) {
    const Pen& pen = CurrentPen();
    if (from == to || !pen.draws) {
        return;
    }
    if (smooth) {
        SmoothSegment(Leaning(from), Leaning(to));
    } else if (pen.width > 1) {
        round->Line(grid, from, to, pen.pixel);
    } else {
        DrawThinLine(grid, from, to, pen.pixel);
    }
}

bool ImageSurface::Polyline(std::span<const SurfacePoint> points) {
    if (points.size() < 2) {
        return false;
    }
    EndLine();
    for (std::size_t i = 1; i < points.size(); ++i) {
        Segment(points[i - 1], points[i]);
    }
    EndLine();
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
    EndLine();
    if (brush.fills) {
        FillPolygon(grid, points, FillMode(), brush.pixel);
    }
    Outline(points);
    return true;
}

void ImageSurface::Outline(std::span<const SurfacePoint> points) {
    EndLine();
    for (std::size_t i = 0; i < points.size(); ++i) {
        Segment(points[i], points[(i + 1) % points.size()]);
    }
    EndLine();
}

bool ImageSurface::PolyPolygon(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts) {
    if (std::any_of(counts.begin(), counts.end(), [](std::int32_t count) { return count < 2; })) {
        return false;
    }
    EndLine();
    if (CurrentBrush().fills) {
        FillPolygons(grid, points, counts, FillMode(), CurrentBrush().pixel);
    }
    for (const std::int32_t count : counts) {
        const auto outline = points.first(static_cast<std::size_t>(count));
        Outline(outline);
        points = points.subspan(outline.size());
    }
    return true;
}

bool ImageSurface::PolyPolygonFine(std::span<const SurfacePoint> points,
                                   std::span<const std::int32_t> counts) {
    if (std::any_of(counts.begin(), counts.end(), [](std::int32_t count) { return count < 2; })) {
        return false;
    }
    smoothLine.Finish(grid);
    if (CurrentBrush().fills) {
        try {
            areas.Fill(grid, points, counts, FillMode(), CurrentBrush().pixel);
        } catch (const std::bad_alloc&) {
            return false;
        }
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
    EndLine();
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
        if (smooth) {
            smoothLine.Dot(Leaning(outline[0]));
            EndLine();
        } else if (pen.width > 1) {
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
    EndLine();
    EllipseShape shape;
    shape.centreX = (static_cast<double>(firstX) + endX - 1.0) / 2.0;
    shape.centreY = (static_cast<double>(firstY) + endY - 1.0) / 2.0;
    // The line through the centres of the outermost pixels.
    const double semiX = (static_cast<double>(endX) - firstX - 1.0) / 2.0;
    const double semiY = (static_cast<double>(endY) - firstY - 1.0) / 2.0;
    const double halfPen = pen.draws ? (smooth ? pen.exactWidth : pen.width) / 2.0 : 0.5;
    shape.semiX = semiX + halfPen;
    shape.semiY = semiY + halfPen;
    const bool outlined = pen.draws && !(brush.fills && pen.pixel == brush.pixel);
    const auto paint = [&](std::uint32_t pixel) {
        if (smooth) {
            ellipses.Paint(grid, shape, pixel);
        } else {
            FillEllipse(grid, shape, pixel);
        }
    };
    if (brush.fills && outlined && smooth) {
        // Up to the middle of the outline, so that nothing of it shines through at the rim.
        FillEllipse(grid, {shape.centreX, shape.centreY, std::max(semiX, 0.25), std::max(semiY, 0.25)},
                    brush.pixel);
    } else if (brush.fills) {
        paint(brush.pixel);
    }
    if (outlined) {
        shape.holeX = semiX - halfPen;
        shape.holeY = semiY - halfPen;
        paint(pen.pixel);
    }
    return true;
}

void ImageSurface::SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) {
    EndLine();
    FillSpan(grid, y, x, x, PixelOf(color));
}

void ImageSurface::PenSelected() {
    if (smooth) {
        smoothLine.Finish(grid);
        smoothLine.SetPen(CurrentPen().exactWidth, CurrentPen().pixel);
    } else {
        TakeRoundPen();
    }
}

void ImageSurface::TakeRoundPen() {
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
    EndLine();
    QImage picture(reinterpret_cast<uchar*>(pixels.data()), grid.width, grid.height,
                   static_cast<qsizetype>(grid.width) * 4, QImage::Format_RGB32);
    if (PaintText(picture, CurrentFont(), {{x, y}, TextAlign(), TextPixel()}, text)) {
        painted.Forget();
    }
    return true;
}

} // namespace quelmont

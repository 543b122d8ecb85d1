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

// The stock objects by the order in which the constructor makes them.
constexpr SurfaceHandle BlackPen = 1;
constexpr SurfaceHandle WhiteBrush = 2;
constexpr SurfaceHandle NullBrush = 3;
constexpr SurfaceHandle SystemFont = 4;
constexpr SurfaceHandle LastStockObject = SystemFont;

constexpr std::int32_t SystemFontHeight = 16;

/// 0x00BBGGRR as a pixel.
std::uint32_t PixelOf(std::uint32_t color) {
    return 0xFF000000U | (color & 0xFFU) << 16U | (color & 0xFF00U) | (color >> 16U & 0xFFU);
}

} // namespace

ImageSurface::ImageSurface(std::int32_t width, std::int32_t height) {
    Resize(width, height, 0);
    Keep(Pen{true, 1, PixelOf(0), std::nullopt});
    Keep(Brush{true, PixelOf(0xFFFFFF)});
    Keep(Brush{false, 0});
    Keep(Font{{.height = SystemFontHeight}, "Arial"});
    SelectObject(BlackPen);
    SelectObject(WhiteBrush);
    SelectObject(SystemFont);
}

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
    const SurfacePoint from = std::exchange(position, SurfacePoint{x, y});
    Segment(from, position);
}

void ImageSurface::Segment(SurfacePoint from, SurfacePoint to) const {
    if (from == to || !pen->draws) {
        return;
    }
    if (pen->round) {
        pen->round->Line(grid, from, to, pen->pixel);
    } else {
        DrawThinLine(grid, from, to, pen->pixel);
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
    const std::int64_t reach = pen->draws ? pen->width : 0;
    return left - reach >= grid.width || top - reach >= grid.height || right + reach < 0 ||
           bottom + reach < 0 ||
           ((!pen->draws || grid.IsAll(pen->pixel)) && (!brush->fills || grid.IsAll(brush->pixel)));
}

bool ImageSurface::Polygon(std::span<const SurfacePoint> points) {
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
    if (brush->fills) {
        FillPolygon(grid, points, fillMode, brush->pixel);
    }
    Polyline(points);
    Segment(points.back(), points.front());
    return true;
}

bool ImageSurface::Rectangle(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    const auto [firstX, endX] = std::minmax(left, right);
    const auto [firstY, endY] = std::minmax(top, bottom);
    if (firstX == endX || firstY == endY || ChangesNothing(firstX, firstY, endX, endY)) {
        return true;
    }
    const std::int32_t lastX = endX - 1;
    const std::int32_t lastY = endY - 1;
    if (brush->fills) {
        const std::int32_t endRow = std::min(lastY, grid.height - 1);
        for (std::int32_t row = std::max(firstY, 0); row <= endRow; ++row) {
            FillSpan(grid, row, firstX, lastX, brush->pixel);
        }
    }
    if (brush->fills && pen->width == 1 && pen->pixel == brush->pixel) {
        return true; // the outline lies on what was filled
    }
    const std::array<SurfacePoint, 5> outline{
        {{firstX, firstY}, {lastX, firstY}, {lastX, lastY}, {firstX, lastY}, {firstX, firstY}}};
    Polyline(outline);
    if (pen->draws && firstX == lastX && firstY == lastY) {
        if (pen->round) {
            pen->round->Dot(grid, outline[0], pen->pixel);
        } else {
            FillSpan(grid, firstY, firstX, firstX, pen->pixel);
        }
    }
    return true;
}

bool ImageSurface::Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
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
    const double halfPen = pen->draws ? pen->width / 2.0 : 0.5;
    shape.semiX = semiX + halfPen;
    shape.semiY = semiY + halfPen;
    if (brush->fills) {
        FillEllipse(grid, shape, brush->pixel);
    }
    if (pen->draws && !(brush->fills && pen->pixel == brush->pixel)) {
        shape.holeX = semiX - halfPen;
        shape.holeY = semiY - halfPen;
        FillEllipse(grid, shape, pen->pixel);
    }
    return true;
}

void ImageSurface::SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) {
    FillSpan(grid, y, x, x, PixelOf(color));
}

SurfaceHandle ImageSurface::Keep(Object object) {
    do {
        ++lastHandle;
    } while (lastHandle == 0 || objects.contains(lastHandle));
    objects.emplace(lastHandle, std::move(object));
    return lastHandle;
}

SurfaceHandle ImageSurface::CreatePen(int style, std::int32_t width, std::uint32_t color) {
    if ((style != PenStyleSolid && style != PenStyleNull) || width > LargestSize) {
        return 0;
    }
    Pen made{style == PenStyleSolid, std::max(width, 1), PixelOf(color), std::nullopt};
    if (made.width > 1) {
        made.round.emplace(made.width);
    }
    return Keep(std::move(made));
}

SurfaceHandle ImageSurface::CreateSolidBrush(std::uint32_t color) {
    return Keep(Brush{true, PixelOf(color)});
}

SurfaceHandle ImageSurface::GetStockObject(int number) { return number == StockNullBrush ? NullBrush : 0; }

SurfaceHandle ImageSurface::SelectObject(SurfaceHandle object) {
    const auto found = objects.find(object);
    if (found == objects.end()) {
        return 0;
    }
    if (const Pen* selected = std::get_if<Pen>(&found->second)) {
        pen = selected;
        return std::exchange(currentPen, object);
    }
    if (const Font* selected = std::get_if<Font>(&found->second)) {
        font = selected;
        return std::exchange(currentFont, object);
    }
    brush = &std::get<Brush>(found->second);
    return std::exchange(currentBrush, object);
}

bool ImageSurface::DeleteObject(SurfaceHandle object) {
    if (object == currentPen || object == currentBrush || object == currentFont) {
        return false;
    }
    if (object >= BlackPen && object <= LastStockObject) {
        return true;
    }
    return objects.erase(object) > 0;
}

int ImageSurface::SetPolyFillMode(int mode) {
    if (mode != FillAlternate && mode != FillWinding) {
        return 0;
    }
    return std::exchange(fillMode, mode);
}

SurfaceHandle ImageSurface::CreateFontIndirectA(const SurfaceFont& made) {
    if (!CanBeFont(made)) {
        return 0;
    }
    Font kept{made, std::string(made.faceName)};
    kept.made.faceName = {};
    return Keep(std::move(kept));
}

bool ImageSurface::SetTextAlign(int mode) {
    if (mode != AlignTop && mode != AlignBaseline) {
        return false;
    }
    textAlign = mode;
    return true;
}

std::uint32_t ImageSurface::SetTextColor(std::uint32_t color) { return std::exchange(textColor, color); }

bool ImageSurface::TextOutA(std::int32_t x, std::int32_t y, std::string_view text) {
    if (Characters(text).size() > MostTextCharacters) {
        return false;
    }
    SurfaceFont made = font->made;
    made.faceName = font->face;
    QImage picture(reinterpret_cast<uchar*>(pixels.data()), grid.width, grid.height,
                   static_cast<qsizetype>(grid.width) * 4, QImage::Format_RGB32);
    if (PaintText(picture, made, {{x, y}, textAlign, PixelOf(textColor)}, text)) {
        painted.Forget();
    }
    return true;
}

} // namespace quelmont

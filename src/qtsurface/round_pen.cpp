#include "qtsurface/round_pen.h"
#include "qtsurface/thin_line.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace quelmont {

namespace {

std::int32_t OneLess(std::int32_t coordinate) {
    return coordinate - (coordinate > std::numeric_limits<std::int32_t>::min() ? 1 : 0);
}

/// Two pixels by two at each pixel of the thin line. By the distance from its middle a line of two
/// pixels would now and then leave out a pixel of the thin one.
void LineOfTwo(const PixelGrid& grid, SurfacePoint from, SurfacePoint to, std::uint32_t pixel) {
    for (const std::int32_t x : {to.x, OneLess(to.x)}) {
        FillSpan(grid, to.y, x, x, pixel);
        FillSpan(grid, OneLess(to.y), x, x, pixel);
    }
    DrawThinLine(grid, from, to, pixel);
    DrawThinLine(grid, {OneLess(from.x), from.y}, {OneLess(to.x), to.y}, pixel);
    DrawThinLine(grid, {from.x, OneLess(from.y)}, {to.x, OneLess(to.y)}, pixel);
    DrawThinLine(grid, {OneLess(from.x), OneLess(from.y)}, {OneLess(to.x), OneLess(to.y)}, pixel);
}

/// One row of a figure that has no gaps.
struct Span {
    std::int64_t first = std::numeric_limits<std::int64_t>::max();
    std::int64_t last = std::numeric_limits<std::int64_t>::min();

    void Include(std::int64_t left, std::int64_t right) {
        first = std::min(first, left);
        last = std::max(last, right);
    }
};

/// A straight edge of the stroke, from its upper end, relative to the pen's centre at the line's
/// upper end.
struct StrokeEdge {
    double x;
    double y;
};

} // namespace

RoundPen::RoundPen(std::int32_t width_)
    : width(std::max(width_, 2)), radius(width / 2.0), lean(width % 2 == 0 ? -0.5 : 0.0),
      inset(static_cast<std::size_t>(width)) {
    // In half pixels about the pen's centre the rows lie at odd or even whole numbers.
    const std::int64_t square = static_cast<std::int64_t>(width) * width;
    std::int32_t free = width / 2;
    for (std::int32_t row = 0; row < (width + 1) / 2; ++row) {
        const std::int64_t y = 2 * static_cast<std::int64_t>(row) - (width - 1);
        const auto inside = [&](std::int32_t column) {
            const std::int64_t x = 2 * static_cast<std::int64_t>(column) - (width - 1);
            return x * x + y * y <= square;
        };
        while (free > 0 && inside(free - 1)) {
            --free;
        }
        inset[static_cast<std::size_t>(row)] = free;
        inset[static_cast<std::size_t>(width - 1 - row)] = free;
    }
}

void RoundPen::Dot(const PixelGrid& grid, SurfacePoint at, std::uint32_t pixel) const {
    Line(grid, at, at, pixel);
}

void RoundPen::Line(const PixelGrid& grid, SurfacePoint from, SurfacePoint to, std::uint32_t pixel) const {
    if (width == 2) {
        LineOfTwo(grid, from, to, pixel);
        return;
    }
    // The upper end first, so that a line and its reverse are the same arithmetic.
    if (std::pair(to.y, to.x) < std::pair(from.y, from.x)) {
        std::swap(from, to);
    }
    const std::int64_t left = static_cast<std::int64_t>(std::min(from.x, to.x)) - width / 2;
    const std::int64_t right = static_cast<std::int64_t>(std::max(from.x, to.x)) - width / 2 + width;
    const std::int64_t topOfFrom = static_cast<std::int64_t>(from.y) - width / 2;
    const std::int64_t topOfTo = static_cast<std::int64_t>(to.y) - width / 2;
    const std::int64_t firstRow = std::max<std::int64_t>(topOfFrom, 0);
    const std::int64_t endRow = std::min<std::int64_t>(topOfTo + width, grid.height);
    if (firstRow >= endRow || right <= 0 || left >= grid.width) {
        return;
    }

    // Everything relative to the upper end, so that the pixels do not depend on where the line lies.
    const double dx = static_cast<double>(to.x) - from.x;
    const double dy = static_cast<double>(to.y) - from.y;
    const bool hasBand = dy > 0.0;
    const double scale = hasBand ? radius / std::sqrt(dx * dx + dy * dy) : 0.0;
    const double slope = hasBand ? dx / dy : 0.0;
    const StrokeEdge west{-dy * scale, dx * scale};
    const StrokeEdge east{dy * scale, -dx * scale};

    const auto dot = [&](Span& span, std::int64_t row, std::int64_t x) {
        if (row >= 0 && row < width) {
            const std::int64_t free = inset[static_cast<std::size_t>(row)];
            span.Include(x - width / 2 + free, x - width / 2 + width - 1 - free);
        }
    };
    const auto column = [&](const StrokeEdge& edge, double y) {
        return from.x + static_cast<std::int64_t>(std::ceil(edge.x + (y - edge.y) * slope + lean));
    };
    for (std::int64_t row = firstRow; row < endRow; ++row) {
        Span span;
        dot(span, row - topOfFrom, from.x);
        dot(span, row - topOfTo, to.x);
        const double y = static_cast<double>(row - from.y) - lean;
        if (hasBand && y >= west.y && y <= west.y + dy) {
            span.first = std::min(span.first, column(west, y));
        }
        if (hasBand && y >= east.y && y <= east.y + dy) {
            span.last = std::max(span.last, column(east, y) - 1);
        }
        FillSpan(grid, row, span.first, span.last, pixel);
    }
}

} // namespace quelmont

#include "output/symbol_sample.h"

#include "core/rounding.h"
#include "output/symbols.h"
#include "platform/draw_surface.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace quelmont {

namespace {

/// Of the height: leaves room for the apex of a triangle, 1.155 radii above its centre.
constexpr double RadiusShare = 0.36;
/// Between dots, in heights of the place.
constexpr double DotStep = 0.15;

struct CoursePoint {
    double x, y; ///< shares of the place's width and height
};
constexpr std::array Course =
    std::to_array<CoursePoint>({{0.05, 0.75}, {0.35, 0.3}, {0.6, 0.7}, {0.95, 0.2}});

struct PlacedPoint {
    std::int32_t x, y;
};

/// The points of a course in pixels, dots so far apart that they can be seen one by one.
std::vector<PlacedPoint> PointsOfCourse(const SymbolSample& sample) {
    const double step = sample.type == SymbolDot ? DotStep * sample.height : sample.width;
    std::vector<PlacedPoint> points;
    for (std::size_t i = 1; i < Course.size(); ++i) {
        const double fromX = Course[i - 1].x * sample.width;
        const double fromY = Course[i - 1].y * sample.height;
        const double wayX = Course[i].x * sample.width - fromX;
        const double wayY = Course[i].y * sample.height - fromY;
        const double parts = std::ceil(std::hypot(wayX, wayY) / step);
        for (double part = i == 1 ? 0.0 : 1.0; part <= parts; part += 1.0) {
            points.push_back(
                {RoundToInt32(fromX + wayX * part / parts), RoundToInt32(fromY + wayY * part / parts)});
        }
    }
    return points;
}

void DrawCourse(DrawSurface& surface, const SymbolSample& sample) {
    const std::vector<PlacedPoint> points = PointsOfCourse(sample);
    if (sample.type == SymbolDot) {
        for (const PlacedPoint& point : points) {
            surface.SetPixel(point.x, point.y, ColorBits(sample.color));
        }
        return;
    }
    surface.MoveToEx(points.front().x, points.front().y);
    for (const PlacedPoint& point : points) {
        surface.LineTo(point.x, point.y);
    }
}

} // namespace

void DrawSymbolSample(DrawSurface& surface, const SymbolSample& sample) {
    const SurfaceHandle pen = surface.CreatePen(PenStyleSolid, sample.penWidth, ColorBits(sample.color));
    const SurfaceHandle penBefore = surface.SelectObject(pen);
    if (sample.type == SymbolLine || sample.type == SymbolDot) {
        DrawCourse(surface, sample);
    } else {
        const double radius = RoundToInt32(RadiusShare * sample.height);
        DrawSymbol(surface, {.type = sample.type, .color = sample.color, .radius = radius}, sample.width / 2,
                   sample.height / 2);
    }
    surface.SelectObject(penBefore);
    surface.DeleteObject(pen);
}

} // namespace quelmont

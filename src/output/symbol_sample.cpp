#include "output/symbol_sample.h"

#include "core/map_design.h"
#include "core/rounding.h"
#include "output/print_to_screen.h"
#include "platform/draw_surface.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <tuple>

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

/// What of the design a plotted point reads and writes.
auto PlotFields() {
    return std::tie(Design.Surface, Design.DevicePixelX, Design.DevicePixelY, Design.CurrentSymbolType,
                    Design.PenColor, Design.SymbolRadius, Design.MapXMin, Design.MapYMin, Design.ScreenScaleX,
                    Design.ScreenScaleY, Design.ScreenOriginX, Design.ScreenOriginY, Design.ProjX,
                    Design.ProjY, Design.PointStatus, Design.LineStart);
}
template <typename... Fields>
std::tuple<Fields...> ValuesOf(std::tuple<Fields&...> fields) {
    return fields;
}

/// A fit in which a projection unit is a pixel and a twip, y downward.
void FitToPixels() {
    Design.DevicePixelX = Design.DevicePixelY = 1.0F;
    Design.MapXMin = Design.MapYMin = 0.0;
    Design.ScreenScaleX = 1.0;
    Design.ScreenScaleY = -1.0;
    Design.ScreenOriginX = Design.ScreenOriginY = 0.0;
}

void PlotAt(double x, double y) {
    Design.ProjX = x;
    Design.ProjY = y;
    PrintToScreen();
}

void PlotCourse(const SymbolSample& sample) {
    const double step = sample.type == SymbolDot ? DotStep * sample.height : sample.width;
    Design.PointStatus = 1;
    for (std::size_t i = 1; i < Course.size(); ++i) {
        const double fromX = Course[i - 1].x * sample.width;
        const double fromY = Course[i - 1].y * sample.height;
        const double wayX = Course[i].x * sample.width - fromX;
        const double wayY = Course[i].y * sample.height - fromY;
        const double parts = std::ceil(std::hypot(wayX, wayY) / step);
        for (double part = i == 1 ? 0.0 : 1.0; part <= parts; part += 1.0) {
            PlotAt(fromX + wayX * part / parts, fromY + wayY * part / parts);
            Design.PointStatus = 0;
        }
    }
}

} // namespace

void DrawSymbolSample(DrawSurface& surface, const SymbolSample& sample) {
    const auto before = ValuesOf(PlotFields());
    Design.Surface = &surface;
    Design.CurrentSymbolType = sample.type;
    Design.PenColor = sample.color;
    Design.SymbolRadius = RoundToInt32(RadiusShare * sample.height);
    FitToPixels();

    const SurfaceHandle pen = surface.CreatePen(PenStyleSolid, sample.penWidth, ColorBits(sample.color));
    const SurfaceHandle penBefore = surface.SelectObject(pen);
    if (sample.type == SymbolLine || sample.type == SymbolDot) {
        PlotCourse(sample);
    } else {
        PlotAt(sample.width / 2, sample.height / 2);
    }
    surface.SelectObject(penBefore);
    surface.DeleteObject(pen);
    PlotFields() = before;
}

} // namespace quelmont

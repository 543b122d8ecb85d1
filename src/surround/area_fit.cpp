#include "surround/area_fit.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "platform/machine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quelmont {

namespace {

/// An upright rectangle.
struct Upright {
    double left, top, right, bottom;
};

/// Whether a segment has a point in the rectangle. Liang and Barsky 1984.
bool Meets(AreaPoint from, AreaPoint to, const Upright& box) {
    double first = 0.0;
    double last = 1.0;
    const auto cut = [&](double way, double room) {
        if (way == 0.0) {
            return room >= 0.0;
        }
        const double share = room / way;
        if (way < 0.0) {
            first = std::max(first, share);
        } else {
            last = std::min(last, share);
        }
        return first <= last;
    };
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    return cut(-dx, from.x - box.left) && cut(dx, box.right - from.x) && cut(-dy, from.y - box.top) &&
           cut(dy, box.bottom - from.y);
}

} // namespace

AreaFit FitOfShare(double share, double rise) {
    const MainWindow& window = *Machine().window;
    AreaFit fit;
    fit.width = RoundToInt32(window.ScaleWidth() - Design.TwipsPerPixelX);
    fit.height = RoundToInt32(window.ScaleHeight() - Design.TwipsPerPixelY);
    fit.scale = share * std::min(Divide(fit.width, Design.MapXMax - Design.MapXMin),
                                 Divide(fit.height, Design.MapYMax - Design.MapYMin));
    fit.left = fit.width / 2.0 - (Design.MapXMin + Design.MapXMax) / 2.0 * fit.scale;
    fit.bottom = fit.height * (0.5 - rise) + (Design.MapYMin + Design.MapYMax) / 2.0 * fit.scale;
    fit.pixel = Design.TwipsPerPixelX;
    return fit;
}

AreaFit FitOfWindow() {
    AreaFit fit;
    fit.width = Design.ClientWidth;
    fit.height = Design.ClientHeight;
    fit.scale = Design.ScreenScaleX;
    fit.left = Design.ScreenOriginX - Design.MapXMin * fit.scale;
    fit.bottom = Design.ScreenOriginY + Design.MapYMin * fit.scale;
    fit.pixel = Design.TwipsPerPixelX;
    return fit;
}

bool MapOnArea::IsInside(AreaPoint point) const {
    bool inside = false;
    for (const auto& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const AreaPoint& a = ring[i];
            const AreaPoint& b = ring[(i + 1) % ring.size()];
            if ((a.y > point.y) != (b.y > point.y) &&
                point.x < a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y)) {
                inside = !inside;
            }
        }
    }
    return inside;
}

bool MapOnArea::IsClearOf(const TextBox& box, double gap) const {
    const AreaPoint half = HalfExtentOf(box);
    const Upright wide{box.middle.x - half.x - reachX - gap, box.middle.y - half.y - reachY - gap,
                       box.middle.x + half.x + reachX + gap, box.middle.y + half.y + reachY + gap};
    const auto meets = [&](const std::vector<AreaPoint>& ring) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            if (Meets(ring[i], ring[(i + 1) % ring.size()], wide)) {
                return true;
            }
        }
        return false;
    };
    return std::none_of(rings.begin(), rings.end(), meets) && !IsInside(box.middle);
}

MapOnArea OutlineOnArea(const MapOutline& outline, const AreaFit& fit) {
    MapOnArea map;
    for (const auto& ring : outline.rings) {
        std::vector<AreaPoint>& points = map.rings.emplace_back();
        std::transform(ring.begin(), ring.end(), std::back_inserter(points),
                       [&](PlanePlace place) { return fit.AreaOf(place); });
    }
    return map;
}

} // namespace quelmont

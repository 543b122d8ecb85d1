#pragma once

#include "graticule/map_outline.h"
#include "surround/text_box.h"

#include <vector>

namespace quelmont {

/// How a map lies in the drawing area of the window, centred.
struct AreaFit {
    double scale = 0.0;               ///< twips per projection unit
    double left = 0.0, bottom = 0.0;  ///< twips, of the place at x = 0 and y = 0 of the plane
    double width = 0.0, height = 0.0; ///< of the drawing area, twips
    double pixel = 0.0;               ///< twips

    AreaPoint AreaOf(PlanePlace place) const { return {left + place.x * scale, bottom - place.y * scale}; }
    PlanePlace PlaneOf(AreaPoint point) const {
        return {(point.x - left) / scale, (bottom - point.y) / scale};
    }
};

/// The fit of a map that fills such a share of the drawing area, moved up by a share of its height, as
/// ScaleScreen would make it. Reads   MapXMin to MapYMax, TwipsPerPixelX, TwipsPerPixelY, the window's
/// drawing area. RunTimeError "Division by zero" for a map or a window without a width or a height.
AreaFit FitOfShare(double share, double rise = 0.0);

/// The fit that ScaleScreen has made for the window.
/// Reads   ScreenScaleX, ScreenOriginX, ScreenOriginY, MapXMin, MapYMin, ClientWidth, ClientHeight.
AreaFit FitOfWindow();

/// The map's outline on the drawing area, and what stands about it.
struct MapOnArea {
    std::vector<std::vector<AreaPoint>> rings;
    double reachX = 0.0, reachY = 0.0; ///< of what stands outside the outline already, twips

    /// Whether an upright box comes no nearer to the outline, or to what stands outside it, than a gap of
    /// twips.
    bool IsClearOf(const TextBox& box, double gap) const;
    /// Whether a point lies inside the outline.
    bool IsInside(AreaPoint point) const;
};

MapOnArea OutlineOnArea(const MapOutline& outline, const AreaFit& fit);

} // namespace quelmont

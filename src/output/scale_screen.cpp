#include "output/scale_screen.h"

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/map_surround.h"
#include "platform/machine.h"

#include <algorithm>

namespace quelmont {

namespace {

/// A maximised window in logical units, whatever the resolution of the screen.
constexpr double FullLogicalWidth = 32000.0;
constexpr double FullLogicalHeight = 23100.0;

void MeasureWindow() {
    const double w = Machine().window->ScaleWidth();
    const double h = Machine().window->ScaleHeight();
    // The window may have gone to a larger screen than the one on which the program started.
    const double fullWidth = std::max(w, static_cast<double>(Design.TwipsPerPixelX) * Design.FullScreenX);
    const double fullHeight = std::max(h, static_cast<double>(Design.TwipsPerPixelY) * Design.FullScreenY);
    Design.LogicalWidth = RoundToInt32(Divide(w * FullLogicalWidth, fullWidth));
    Design.LogicalHeight = RoundToInt32(Divide(h * FullLogicalHeight, fullHeight));
    Design.ClientWidth = RoundToInt32(w - Design.TwipsPerPixelX);
    Design.ClientHeight = RoundToInt32(h - Design.TwipsPerPixelY);
}

/// Share of the area that the map fills.
double ShareOfArea() {
    return Surround() == nullptr ? Design.MapReduce : Surround()->ShareOfArea(Design.MapReduce);
}

/// How far it is moved up from the middle, as a share of the area's height.
double RiseOfMap(double share) { return Surround() == nullptr ? 0.0 : Surround()->RiseOfMap(share); }

double MapAspect() { return Divide(Design.MapYMax - Design.MapYMin, Design.MapXMax - Design.MapXMin); }

/// Whether the height governs, not the width.
bool IsHigherThanClient(double mapAspect) {
    return mapAspect > Divide(Design.ClientHeight, Design.ClientWidth);
}

void FitLogicalHeight(double mapAspect, double r) {
    Design.LogicalScale = Divide(Design.LogicalHeight * r, Design.MapYMax - Design.MapYMin);
    Design.LogicalOriginX =
        RoundToInt16((Design.LogicalWidth - Divide(Design.LogicalHeight * r, mapAspect)) / 2.0);
    Design.LogicalOriginY = RoundToInt16((1.0 - r) * Design.LogicalHeight / 2.0);
}

void FitLogicalWidth(double mapAspect, double r) {
    Design.LogicalScale = Divide(Design.LogicalWidth * r, Design.MapXMax - Design.MapXMin);
    Design.LogicalOriginX = RoundToInt16((1.0 - r) * Design.LogicalWidth / 2.0);
    Design.LogicalOriginY = RoundToInt16((Design.LogicalHeight - mapAspect * r * Design.LogicalWidth) / 2.0);
}

void FitHeight(double mapAspect, double r) {
    const double mapHeight = Design.MapYMax - Design.MapYMin;
    Design.ScreenOriginX = (Design.ClientWidth - Divide(Design.ClientHeight * r, mapAspect)) / 2.0;
    Design.ScreenScaleX = Divide(Design.ClientHeight * r, mapHeight);
    Design.ScreenOriginY = ((r + 1.0) / 2.0) * Design.ClientHeight;
    Design.ScreenScaleY = Divide(Design.ClientHeight * r, mapHeight);
}

void FitWidth(double mapAspect, double r) {
    const double mapWidth = Design.MapXMax - Design.MapXMin;
    Design.ScreenOriginX = ((1.0 - r) / 2.0) * Design.ClientWidth;
    Design.ScreenScaleX = Divide(Design.ClientWidth * r, mapWidth);
    Design.ScreenOriginY =
        Design.ClientHeight - (Design.ClientHeight - Design.ClientWidth * r * mapAspect) / 2.0;
    Design.ScreenScaleY = Divide(Design.ClientWidth * r, mapWidth);
}

void FitToClient(double r, double rise) {
    const double mapAspect = MapAspect();
    if (IsHigherThanClient(mapAspect)) {
        FitHeight(mapAspect, r);
    } else {
        FitWidth(mapAspect, r);
    }
    Design.ScreenOriginY -= rise * Design.ClientHeight;
}

} // namespace

bool ScaleScreen() {
    return Guarded("ScaleScreen", [] {
        MeasureWindow();
        const double mapAspect = MapAspect();
        const double winAspect = Divide(Design.ClientHeight, Design.ClientWidth);
        const double logAspect = Divide(Design.LogicalHeight, Design.LogicalWidth);
        if (winAspect > logAspect) {
            Design.LogicalWidth = RoundToInt32(Divide(Design.LogicalHeight, winAspect));
        } else {
            Design.LogicalHeight = RoundToInt32(winAspect * Design.LogicalWidth);
        }
        const double r = ShareOfArea();
        if (IsHigherThanClient(mapAspect)) {
            FitLogicalHeight(mapAspect, r);
        } else {
            FitLogicalWidth(mapAspect, r);
        }
        const double rise = RiseOfMap(r);
        Design.LogicalOriginY =
            RoundToInt16(static_cast<double>(Design.LogicalOriginY) + rise * Design.LogicalHeight);
        FitToClient(r, rise);
    });
}

void FitMapToClient() {
    const double r = ShareOfArea();
    FitToClient(r, RiseOfMap(r));
}

} // namespace quelmont

#pragma once

namespace quelmont {

/// Fits the map into the drawing area and into the logical plane of exported files, centred and
/// with its proportions kept.
///
/// Reads   MapXMin to MapYMax, MapReduce, TwipsPerPixelX, TwipsPerPixelY, FullScreenX, FullScreenY,
///         and the size of the drawing area.
/// Writes  LogicalWidth, LogicalHeight, LogicalOriginX, LogicalOriginY, LogicalScale, ClientWidth,
///         ClientHeight, ScreenOriginX, ScreenOriginY, ScreenScaleX, ScreenScaleY.
/// A failure shows "Error in ScaleScreen" and ends the routine. Returns false then.
bool ScaleScreen();

} // namespace quelmont

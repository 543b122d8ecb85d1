#pragma once

namespace quelmont {

/// Fits the map into the drawing area and into the logical plane of exported files, centred and
/// with its proportions kept, smaller and higher where what surrounds it (map_surround.h) needs
/// the room.
///
/// Reads   MapXMin to MapYMax, MapReduce, TwipsPerPixelX, TwipsPerPixelY, FullScreenX, FullScreenY,
///         and the size of the drawing area.
/// Writes  LogicalWidth, LogicalHeight, LogicalOriginX, LogicalOriginY, LogicalScale, ClientWidth,
///         ClientHeight, ScreenOriginX, ScreenOriginY, ScreenScaleX, ScreenScaleY.
/// A failure shows "Error in ScaleScreen" and ends the routine. Returns false then.
bool ScaleScreen();

/// Fits the map into an area of twips, the part of ScaleScreen that a page on paper shares with the window.
///
/// Reads   MapXMin to MapYMax, MapReduce, ClientWidth, ClientHeight.
/// Writes  ScreenOriginX, ScreenOriginY, ScreenScaleX, ScreenScaleY.
/// RunTimeError "Division by zero" for a map or an area without a width or a height.
void FitMapToClient();

} // namespace quelmont

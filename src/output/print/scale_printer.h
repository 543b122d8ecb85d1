#pragma once

#include <cstdint>

namespace quelmont {

/// Fits the map into its place on the page, which has the proportions of the window's drawing area, as
/// ScaleScreen fits it into the window. The next ScaleScreen takes that back.
///
/// Reads   PrintUnitTwips, PrintWidth, MapReduce, MapXMin to MapYMax, the size of the drawing area.
/// Writes  ClientWidth, ClientHeight (of the place on the page, twips), ScreenOriginX, ScreenOriginY,
///         ScreenScaleX, ScreenScaleY.
/// A failure shows "Error in ScalePrinter" and ends the routine. Returns false then.
bool ScalePrinter();

/// Where the map lies on the page: device pixels from the upper left corner of the printable area.
struct MapOnPage {
    std::int16_t left = 0, top = 0, right = 0, bottom = 0;
};

/// Reads   PrintLeft, PrintTop, PrintWidth, PrintUnitTwips, ClientHeight as ScalePrinter left it, and
///         what GetPrinterParams took.
/// RunTimeError "Overflow" beyond sixteen bits.
MapOnPage BoxOfMapOnPage();

} // namespace quelmont

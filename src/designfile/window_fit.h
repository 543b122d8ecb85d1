#pragma once

#include "core/map_design.h"
#include "designfile/design_records.h"

#include <cstdint>

/// How a design that was saved on one screen comes to fit another.

namespace quelmont {

/// Gives the window the drawing area that it had, or maximises it: when it was maximised, when the area
/// is as large as that of a maximised window here, and when it has no room on this screen. Returns when
/// the window has its size.
void FitWindow(const SavedWindow& saved);

/// The size of a saved drawing area in its own whole pixels.
struct AreaPixels {
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const AreaPixels&) const = default;
};
AreaPixels SavedPixels(const SavedWindow& saved);

/// Where texts of the saved drawing area lie in the present one: its page is fitted into the area,
/// centred, with its proportions kept.
struct TextFit {
    double fx = 1.0, fy = 1.0;
    std::int32_t ox = 0, oy = 0; ///< twips
};
TextFit FitOfTexts(const SavedWindow& saved);

/// Scales size, place and measures of a text item. A size never falls below 1. RunTimeError "Overflow".
void FitText(TextItem& text, const TextFit& fit);

/// The factor of MapReduce that keeps the map's size on that page; 1 where the areas have the same pixels.
///
/// Reads   MapXMin to MapYMax, the size of the drawing area.
double MapReduceFactor(const SavedWindow& saved);

} // namespace quelmont

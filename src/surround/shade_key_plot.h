#pragma once

#include "core/map_design.h"
#include "core/standard_colors.h"
#include "surround/area_fit.h"
#include "surround/text_box.h"

#include <optional>
#include <vector>

namespace quelmont {

/// The key of a map's shades where it stands: a box of the background's colour with a patch of each shade and
/// what it means, over whatever lies beneath.
struct PlannedKey {
    /// An upright rectangle in a colour, twips.
    struct Patch {
        TextBox box;
        ColorValue color = 0;
    };
    TextBox box;
    std::vector<Patch> patches; ///< from the lowest to the one that lies over all
    std::vector<TextItem> texts;
};

/// The key of the last draw's shades (OutputNow) in that corner of the drawing area in which it covers least
/// of the map, and none of the boxes that are taken if there is such a corner.
///
/// Reads   Distortion, the look of GridLabelFontSlot, BackColor, the machine's fonts. Nothing without shades,
/// for a font without measures, and where the drawing area is too small for it. RunTimeError "Overflow" for a
/// look whose numbers no text item holds.
std::optional<PlannedKey> PlanShadeKey(const AreaFit& fit, const MapOnArea& map,
                                       const std::vector<TextBox>& taken);

/// Plans the key for the draw and plots its box, on the surface in use and into the file that is armed and
/// takes areas. A failure shows "Error in ShadeKey".
void PlotShadeKey();

/// What the key of the last PlotShadeKey covers; empty without one.
std::vector<TextBox> BoxesOfShadeKey();

/// Puts the texts of that key behind the text items, for a file that takes areas; draws them on the surface
/// in use; draws those of the last draw on the window again.
void AddTextsOfShadeKey();
void DrawTextsOfShadeKey();
void DrawTextsOfShadeKeyAgain();

} // namespace quelmont

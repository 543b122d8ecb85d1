#pragma once

#include "core/map_design.h"
#include "surround/area_fit.h"
#include "surround/frame_lines.h"
#include "surround/text_box.h"

#include <optional>
#include <vector>

namespace quelmont {

/// A scale bar where it stands beside the map.
struct ScaleBar {
    TextBox box;                      ///< what it covers, with its texts; upright
    AreaPoint left, right;            ///< the ends of the bar, twips
    double value = 0.0;               ///< what it measures, in the unit of the choice
    double km = 0.0;                  ///< the same in kilometres
    std::vector<PlaneStroke> strokes; ///< of the bar itself
    std::vector<TextItem> texts;      ///< numbers, and where the bar is true
};

/// The height that a bar below the map needs there with the gaps above and below it, twips; nothing for a
/// font without measures. The bar's own length and words count for nothing.
std::optional<double> HeightBelowMap();

/// The scale bar of the design on a map that lies so in the window: of a round length (1, 2 or 5 of a decimal
/// place), the longest that has no more than a quarter of the map's width, divided into four or five, in a
/// corner that the outline leaves free, or below, above or beside the map.
///
/// It touches neither the edge of the drawing area nor the outline and what stands outside that (map.reachX,
/// reachY), nor one of the texts. slack: by so many twips it may come nearer to all of them. Reads   Frame,
/// the look of GridLabelFontSlot, BackColor, the machine's fonts, and as PlaceOfScaleBar. Nothing when none
/// is wanted, none is honest (PlaceOfScaleBar), there is no room for it, or the font has no measures.
/// RunTimeError "Overflow" for a look whose numbers no text item holds.
std::optional<ScaleBar> PlanScaleBar(const AreaFit& fit, const MapOnArea& map,
                                     const std::vector<TextBox>& texts, double slack);

} // namespace quelmont

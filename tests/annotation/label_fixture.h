#pragma once

#include "core/map_design.h"
#include "support/fresh_program.h"

#include <string>

namespace quelmont {

/// A window of 1280 x 924 pixels of 15 twips, filled by a map on which a degree is 100 twips:
/// ClientWidth 19185, ClientHeight 13845, longitude 0 on the left, latitude 0 on the lower edge.
///
/// A font of 12 points is 16 pixels high: an ascent of 240 twips, a descent of 60, a cell of 300, and 120
/// for each character.
class LabelTest : public FreshProgramTest {
protected:
    LabelTest();

    /// A map file of filled circles with a radius of 45 twips, or of another symbol.
    static InputFileEntry& AddFile(std::int16_t symbolType = SymbolFilledCircle);
    /// Of the first file unless stated otherwise, in Times of 12 points.
    static MapLabel& AddLabel(const std::string& text, double lat, double lon, std::int16_t file = 1);
};

} // namespace quelmont

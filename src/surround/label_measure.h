#pragma once

#include "core/map_design.h"
#include "surround/text_box.h"

#include <optional>
#include <string>

namespace quelmont {

/// Measures of a label of the grid in the font of its slot, twips of the window.
struct LabelMeasure {
    double width = 0.0;
    double ascent = 0.0, descent = 0.0;
    double letters = 0.0; ///< height of digits and capitals above the baseline
    double averageWidth = 0.0;
    double pixel = 0.0;

    /// From the outline to a label beside it, and to one above or below.
    double GapBeside() const { return letters * 0.5; }
    double GapAbove() const { return letters * 0.75; }
    /// From a line to the label on it.
    double GapOnLine() const { return letters * 0.25; }
    /// Between two labels side by side.
    double GapBetween() const { return letters * 0.45; }

    /// Where the baseline of a text with such letters begins.
    AreaPoint AnchorOf(const TextBox& box) const;
    /// The label as a text item. RunTimeError "Overflow" when its numbers do not fit.
    TextItem ItemOf(const std::string& text, const TextBox& box, int angle) const;
};

/// Nothing for a font without measures and for a text without a width.
/// Reads   the look of GridLabelFontSlot, TwipsPerPixelX, TwipsPerPixelY, the machine's fonts.
std::optional<LabelMeasure> MeasureOf(const std::string& text);

/// A text in that font whose letters begin at a place, on its baseline, twips. As MeasureOf; RunTimeError as
/// ItemOf.
std::optional<TextItem> TextItemAt(const std::string& text, AreaPoint begin, ColorValue color);

/// Width of a text in the window, twips; 0 for a font without measures.
double TextWidthOf(const TextLook& look, const std::string& text);

} // namespace quelmont

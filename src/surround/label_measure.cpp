#include "surround/label_measure.h"

#include "core/rounding.h"
#include "output/print_text.h"
#include "platform/machine.h"
#include "surround/frame_lines.h"

namespace quelmont {

namespace {

/// Share of the ascent that digits and capitals fill; in the common faces it is 0.67 to 0.8.
constexpr double LetterShare = 0.8;

const TextLook& Look() { return Design.Fonts[GridLabelFontSlot]; }

} // namespace

AreaPoint LabelMeasure::AnchorOf(const TextBox& box) const {
    const AreaPoint along = AlongText(box.angle);
    const AreaPoint above = AboveText(box.angle);
    return {box.middle.x - along.x * width / 2.0 - above.x * letters / 2.0,
            box.middle.y - along.y * width / 2.0 - above.y * letters / 2.0};
}

TextItem LabelMeasure::ItemOf(const std::string& text, const TextBox& box, int angle) const {
    constexpr int Circle = 360;
    const AreaPoint anchor = AnchorOf(box);
    const TextLook& look = Look();
    return {.TextString = text,
            .TextAngle = RoundToInt16((angle + Circle) % Circle),
            .TextFont = look.FontName,
            .TextSize = RoundToInt16(look.FontSize),
            .TextColour = GridLabelInk(),
            .TextBold = look.FontBold,
            .TextItalic = look.FontItalic,
            .TextUnderline = look.FontUnderline,
            .TextStrikeout = look.FontStrikeout,
            .TextX = RoundToInt32(anchor.x),
            .TextY = RoundToInt32(anchor.y),
            .TextWidth = RoundToInt16(averageWidth),
            .TextHeight = RoundToInt16(ascent),
            .TextDescent = RoundToInt16(descent),
            .TextCellHeight = RoundToInt16(ascent + descent)};
}

std::optional<LabelMeasure> MeasureOf(const std::string& text) {
    const SurfaceFont font = WindowFont(Look());
    const std::optional<FontMetrics> metrics = Machine().fonts->Metrics(font);
    const std::optional<TextExtent> extent = Machine().fonts->Extent(font, text);
    if (!metrics || !extent || extent->width <= 0) {
        return std::nullopt;
    }
    const double twipsX = Design.TwipsPerPixelX;
    const double twipsY = Design.TwipsPerPixelY;
    return LabelMeasure{.width = extent->width * twipsX,
                        .ascent = metrics->ascent * twipsY,
                        .descent = metrics->descent * twipsY,
                        .letters = metrics->ascent * twipsY * LetterShare,
                        .averageWidth = metrics->averageWidth * twipsX,
                        .pixel = twipsX};
}

double TextWidthOf(const TextLook& look, const std::string& text) {
    const std::optional<TextExtent> extent = Machine().fonts->Extent(WindowFont(look), text);
    return extent ? static_cast<double>(extent->width) * Design.TwipsPerPixelX : 0.0;
}

} // namespace quelmont

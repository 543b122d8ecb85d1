#include "annotation/label_convert.h"

#include "annotation/annotation_state.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/standard_colors.h"
#include "output/scale_screen.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

namespace quelmont {

namespace {

constexpr const char* Routine = "LabelConvert";

TextItem ItemOf(const MapLabel& label) {
    return {.TextString = label.LabelText,
            .TextAngle = 0,
            .TextFont = label.LabelFont,
            .TextSize = label.LabelSize,
            .TextColour = label.LabelColour,
            .TextBold = label.LabelBold,
            .TextItalic = label.LabelItalic,
            .TextUnderline = label.LabelUnderline,
            .TextStrikeout = label.LabelStrikeout,
            .TextX = label.LabelX,
            .TextY = label.LabelY,
            .TextWidth = label.LabelWidth,
            .TextHeight = label.LabelAscent,
            .TextDescent = label.LabelDescent,
            .TextCellHeight = label.LabelCellHeight,
            .TextFromLabel = true};
}

/// What an item has to agree in with a label, if nothing else tells where it comes from.
std::string Likeness(const std::string& text, const std::string& font, std::int16_t size, ColorValue colour) {
    constexpr char between = '\0';
    return font + between + std::to_string(size) + between + std::to_string(ColorBits(colour)) + between +
           text;
}

} // namespace

void ConvertLabels(std::size_t first) {
    if (first >= Design.MapLabels.size()) {
        return;
    }
    Guarded(Routine, [&] {
        std::vector<TextItem>& items = Design.TextItems;
        items.reserve(items.size() + Design.MapLabels.size() - first);
        std::transform(Design.MapLabels.begin() + static_cast<std::ptrdiff_t>(first), Design.MapLabels.end(),
                       std::back_inserter(items), ItemOf);
    });
}

void LabelConvert() {
    if (Design.MapLabels.empty()) {
        return;
    }
    EraseConvertedLabels();
    ConvertLabels(0);
    ScaleScreen();
}

void EraseConvertedLabels() {
    std::unordered_set<std::string> labels;
    for (const MapLabel& label : Design.MapLabels) {
        labels.insert(Likeness(label.LabelText, label.LabelFont, label.LabelSize, label.LabelColour));
    }
    std::erase_if(Design.TextItems, [&](const TextItem& item) {
        return item.TextFromLabel ||
               (!item.TextPlaced && item.TextAngle == 0 &&
                labels.contains(Likeness(item.TextString, item.TextFont, item.TextSize, item.TextColour)));
    });
}

void RememberTextItems() { AnnotationNow.TextItemsBeforeDraw = Design.TextItems.size(); }

void GiveBackTextItems() {
    const std::optional<std::size_t> before = std::exchange(AnnotationNow.TextItemsBeforeDraw, std::nullopt);
    if (before && *before < Design.TextItems.size()) {
        Design.TextItems.resize(*before);
    }
}

} // namespace quelmont

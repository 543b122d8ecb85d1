#include "dialogs/files/label_font.h"

#include "core/map_design.h"
#include "core/rounding.h"
#include "dialogs/text/font_dialog.h"
#include "platform/machine.h"

#include <utility>

namespace quelmont {

namespace {

constexpr const char* Announcement =
    "Quelmont .PRN and .UTM files may contain labels that can be displayed next to the point they represent."
    "\n\n"
    "When you press OK, a Font selection dialog box will appear.  Use this box to select the font that will "
    "be used to display any labels contained in this file.";

/// Points; labels that are smaller are proposed in the usual size.
constexpr std::int32_t SmallestProposed = 8;

TextLook LookOf(const InputFileEntry& entry) {
    return {.FontName = entry.LabelFontName,
            .FontSize = entry.LabelFontSize,
            .FontColour = entry.LabelColor,
            .FontBold = entry.LabelBold,
            .FontItalic = entry.LabelItalic,
            .FontUnderline = entry.LabelUnderline,
            .FontStrikeout = entry.LabelStrikeout};
}

void Store(const TextLook& look, InputFileEntry& entry) {
    entry.LabelFontName = look.FontName;
    entry.LabelFontSize = RoundToInt16(look.FontSize);
    entry.LabelColor = look.FontColour;
    entry.LabelBold = look.FontBold;
    entry.LabelItalic = look.FontItalic;
    entry.LabelUnderline = look.FontUnderline;
    entry.LabelStrikeout = look.FontStrikeout;
}

} // namespace

void ChooseLabelFont(InputFileEntry& entry) {
    Machine().boxes->Ask("Select Label Font", Announcement, BoxButtons::Ok, BoxIcon::Information);
    const bool chosen = !entry.LabelFontName.empty();
    TextLook& look = Design.Fonts[LabelFontSlot];
    look = chosen ? LookOf(entry) : Design.Fonts[TextFontSlot];
    if (look.FontSize < SmallestProposed) {
        look.FontSize = DefaultLabelSize;
    }
    const std::int16_t slotBefore = std::exchange(Design.FontSlot, LabelFontSlot);
    FontDialog dialog;
    Machine().forms->Show(dialog);
    Design.FontSlot = slotBefore;
    if (!Design.DialogCancelled) {
        Store(look, entry);
    } else if (!chosen) {
        Store({.FontName = DefaultLabelFont,
               .FontSize = DefaultLabelSize,
               .FontColour = SolidColor(StandardColors[0])},
              entry);
    }
}

} // namespace quelmont

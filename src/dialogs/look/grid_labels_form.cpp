#include "dialogs/look/grid_labels_form.h"

#include "dialogs/text/font_dialog.h"
#include "dialogs/text/font_words.h"
#include "platform/machine.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace quelmont {

GridLabelsForm::GridLabelsForm() : DesignDialog("GridLabelsForm", "Grid Labels") {
    Design.DialogCancelled = true;
    // In the order of their enumerations.
    Add({.name = "GridLabelPlace",
         .kind = ControlKind::List,
         .caption = "&Place",
         .value = static_cast<int>(Design.GridLabels.place),
         .items = {"No labels", "At the frame of the map", "On the lines of the grid"}});
    Add({.name = "GridLabelStyle",
         .kind = ControlKind::List,
         .caption = "&Style",
         .value = static_cast<int>(Design.GridLabels.style),
         .items = {"30\u00B0N", "30 N", "30, south and west negative"}});
    Add({.name = "GridLabelSample", .kind = ControlKind::Sample, .caption = "Sample"});
    Add({.name = "GridLabelFont", .kind = ControlKind::Button, .text = "&Font and Color..."});
    On("GridLabelStyle", ControlEvent::Click, [this] { ShowSample(); });
    On("GridLabelFont", ControlEvent::Click, [this] { GridLabelFont_Click(); });
    AddOkAndCancel([this] { OK_Click(); });
    ShowSample();
}

void GridLabelsForm::ShowSample() {
    constexpr std::array Samples = {"30\u00B0S", "30 S", "-30"};
    const TextLook& look = Design.Fonts[GridLabelFontSlot];
    Control& sample = Edit("GridLabelSample");
    const int style = At("GridLabelStyle").value;
    sample.text = style < 0 ? "" : Samples.at(static_cast<std::size_t>(style));
    sample.letters = LettersOf(look, ColorBits(Design.BackColor));
}

void GridLabelsForm::GridLabelFont_Click() {
    const std::int16_t slotBefore = std::exchange(Design.FontSlot, std::int16_t{GridLabelFontSlot});
    FontDialog dialog;
    Machine().forms->Show(dialog);
    Design.FontSlot = slotBefore;
    Design.DialogCancelled = true;
    ShowSample();
}

void GridLabelsForm::Cancel_Click() {
    Design.Fonts[GridLabelFontSlot] = lookBefore;
    DesignDialog::Cancel_Click();
}

void GridLabelsForm::OK_Click() {
    const int place = At("GridLabelPlace").value;
    const int style = At("GridLabelStyle").value;
    if (place >= 0) {
        Design.GridLabels.place = static_cast<GridLabelPlace>(place);
    }
    if (style >= 0) {
        Design.GridLabels.style = static_cast<GridLabelStyle>(style);
    }
    CloseAccepted();
}

} // namespace quelmont

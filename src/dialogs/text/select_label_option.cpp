#include "dialogs/text/select_label_option.h"

#include "annotation/label_convert.h"
#include "core/map_design.h"

namespace quelmont {

namespace {

constexpr int HelpPageOfLabels = 210;

/// Lines of the list.
enum LabelOptionLine { HideLabels, ShowLabels, ConvertToText, EraseFromText };

} // namespace

SelectLabelOption::SelectLabelOption() : DesignDialog("SelectLabelOption", "Select Label Option") {
    Design.DialogCancelled = true;
    Add({.name = "LabelOption",
         .kind = ControlKind::List,
         .caption = "&Labels of map files",
         .value = Design.LabelsVisible ? ShowLabels : HideLabels,
         .items = {" Do not display labels", " Display labels", " Convert labels to text",
                   " Erase labels converted to text"}});
    AddOkAndCancel([this] { OK_Click(); });
    SetHelpPage(HelpPageOfLabels);
}

void SelectLabelOption::OK_Click() {
    const int line = At("LabelOption").value;
    Design.LabelsVisible = line == ShowLabels;
    if (line == ConvertToText) {
        LabelConvert();
    } else if (line == EraseFromText) {
        EraseConvertedLabels();
    }
    CloseAccepted();
}

} // namespace quelmont

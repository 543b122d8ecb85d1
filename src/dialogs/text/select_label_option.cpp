#include "dialogs/text/select_label_option.h"

#include "annotation/label_convert.h"
#include "annotation/text_picture.h"
#include "core/map_design.h"

namespace quelmont {

namespace {

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
}

void SelectLabelOption::OK_Click() {
    const int line = At("LabelOption").value;
    const std::size_t textsBefore = Design.TextItems.size();
    Design.LabelsVisible = line == ShowLabels;
    if (line == ConvertToText) {
        LabelConvert();
    } else if (line == EraseFromText) {
        EraseConvertedLabels();
    }
    if (!Design.MapLabels.empty() || Design.TextItems.size() != textsBefore) {
        ShowTexts();
    }
    CloseAccepted();
}

} // namespace quelmont

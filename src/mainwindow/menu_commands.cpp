#include "mainwindow/menu_commands.h"

#include "circles/great_circle.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "dialogs/about_qmnt.h"
#include "dialogs/bounds/boundary_dialog.h"
#include "dialogs/circles/g_circle_ends.h"
#include "dialogs/circles/small_circle_form.h"
#include "dialogs/exports/line_width_scale.h"
#include "dialogs/files/input_file_choices.h"
#include "dialogs/look/colors256.h"
#include "dialogs/look/grid_labels_form.h"
#include "dialogs/look/map_frame.h"
#include "dialogs/look/map_reduce.h"
#include "dialogs/look/select_grid_type.h"
#include "dialogs/reports/report_dialog.h"
#include "dialogs/text/select_label_option.h"
#include "dialogs/text/text_add.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/ready_to_draw.h"
#include "mainwindow/text_placing.h"
#include "mainwindow/told_changes.h"
#include "platform/help_pages.h"
#include "platform/machine.h"

namespace quelmont {

namespace {

template <typename Dialog>
void ShowDialog() {
    Dialog dialog;
    Machine().forms->Show(dialog);
}

} // namespace

void EnablePrinting(int /*index*/) {
    const bool any = Machine().printers->Any();
    Machine().window->SetMenuEnabled(Menu::mnuInput, PrintMapItem, any);
    Machine().window->SetMenuEnabled(Menu::mnuInput, PrintSetupItem, any);
}

void AskSizeAndDraw(int /*index*/) {
    if (!ReadyToDraw()) {
        return;
    }
    ShowDialog<MapReduceForm>();
    if (Design.DialogCancelled) {
        Design.DialogCancelled = false;
        return;
    }
    TellChange("Draw Map", ChangeKind::Size); // before anything can go wrong in the draw
    Machine().window->Cls();
    MapDraw();
}

void DrawAgain(int /*index*/) {
    if (ReadyToDraw()) {
        Machine().window->Cls();
        MapDraw();
    }
}

void ChooseMapFiles(int /*index*/) { ShowDialog<InputFileChoices>(); }

void ChooseBoundaries(int /*index*/) { ShowBoundaryDialog(); }

void ChooseGreatCircle(int /*index*/) {
    ShowDialog<GCircleEnds>();
    if (!Design.DialogCancelled) {
        GcCalc();
    }
}

void ChooseSmallCircle(int /*index*/) { ShowDialog<SmallCircleForm>(); }

void ChooseBackground(int /*index*/) {
    Design.ColorPurpose = PurposeBackground;
    ShowDialog<Colors256>();
}

void ChooseGrid(int /*index*/) { ShowDialog<SelectGridType>(); }

void ChooseFrame(int /*index*/) { ShowDialog<MapFrame>(); }

void ChooseLabels(int /*index*/) { ShowDialog<SelectLabelOption>(); }

void ChooseGridLabels(int /*index*/) { ShowDialog<GridLabelsForm>(); }

void ChooseLineWidths(int /*index*/) { ShowDialog<LineWidthScale>(); }

void AddText(int /*index*/) {
    ShowDialog<TextAdd>();
    if (Design.DialogCancelled) {
        Design.DialogCancelled = false;
        return;
    }
    BeginPlacing();
}

void TogglePixelSize(int index) {
    MainWindow& window = *Machine().window;
    window.SetMenuChecked(Menu::mnuDesign, index, !window.MenuChecked(Menu::mnuDesign, index));
    ToggleCaption();
}

void UndoChange(int /*index*/) {
    if (Machine().changes != nullptr) {
        Machine().changes->Undo();
    }
}

void RedoChange(int /*index*/) {
    if (Machine().changes != nullptr) {
        Machine().changes->Redo();
    }
}

void ShowParameterReport(int /*index*/) {
    if (ReadyToDraw()) {
        ShowDialog<ReportParam>();
    }
}

void ShowGreatCircleReport(int /*index*/) {
    if (Design.GcDefined) {
        ShowDialog<GcReport>();
        return;
    }
    Machine().boxes->Ask("Great Circle Not Defined",
                         "You have not defined the endpoints\nof the great circle.\n"
                         "To define the endpoints, press OK,\nthen select the Great Circle option\n"
                         "from the Design Map menu.",
                         BoxButtons::Ok, BoxIcon::Exclamation);
}

void ShowHelpContents(int /*index*/) { Machine().help->Show(HelpContents, 0); }

void ShowHelpSearch(int /*index*/) { Machine().help->Show(HelpSearch, 0); }

void ShowAbout(int /*index*/) { ShowDialog<AboutQMNT>(); }

void ShowPlotTime(int /*index*/) {
    Machine().boxes->Ask("Plot Time",
                         "Time to plot map:  " + FormatNumber(Design.PlotSeconds, "####0.0") + " seconds",
                         BoxButtons::Ok, BoxIcon::Information);
}

} // namespace quelmont

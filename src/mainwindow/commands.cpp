#include "mainwindow/commands.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "dialogs/about_qmnt.h"
#include "dialogs/bounds/boundary_dialog.h"
#include "dialogs/exports/line_width_scale.h"
#include "dialogs/files/input_file_choices.h"
#include "dialogs/look/colors256.h"
#include "dialogs/look/map_reduce.h"
#include "dialogs/look/select_grid_type.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/ready_to_draw.h"
#include "mainwindow/save_map.h"
#include "platform/machine.h"

#include <string>

namespace quelmont {

namespace {

// Of the menu bar.
constexpr int FileTitle = 0;
constexpr int DrawItem = 3;
constexpr int StopItem = 5;
// Of the File menu.
constexpr int OpenMapFileItem = 0;
constexpr int PrintMapItem = 2;
constexpr int PrintSetupItem = 3;
constexpr int ExitItem = 17;
// Of the Design Map menu.
constexpr int BoundariesItem = 0;
constexpr int BackgroundItem = 7;
constexpr int GridItem = 8;
constexpr int LineWidthItem = 9;
// Of the Help menu.
constexpr int AboutItem = 3;
constexpr int PlotTimeItem = 4;

template <typename Dialog>
void ShowDialog() {
    Dialog dialog;
    Machine().forms->Show(dialog);
}

void ChooseBackground() {
    Design.ColorPurpose = PurposeBackground;
    ShowDialog<Colors256>();
}

void TogglePixelSize() {
    MainWindow& window = *Machine().window;
    window.SetMenuChecked(Menu::mnuDesign, PixelSizeItem,
                          !window.MenuChecked(Menu::mnuDesign, PixelSizeItem));
    ToggleCaption();
}

/// There is nothing to print on without a printer.
void EnablePrinting() {
    const bool any = Machine().printers->Any();
    Machine().window->SetMenuEnabled(Menu::mnuInput, PrintMapItem, any);
    Machine().window->SetMenuEnabled(Menu::mnuInput, PrintSetupItem, any);
}

void DrawMapClicked() {
    if (!ReadyToDraw()) {
        return;
    }
    ShowDialog<MapReduceForm>();
    if (Design.DialogCancelled) {
        Design.DialogCancelled = false;
        return;
    }
    Machine().window->Cls();
    MapDraw();
}

void ShowPlotTime() {
    Machine().boxes->Ask("Plot Time",
                         "Time to plot map:  " + FormatNumber(Design.PlotSeconds, "####0.0") + " seconds",
                         BoxButtons::Ok, BoxIcon::Information);
}

/// A number in a caption: the general form without its leading blank.
std::string Plain(double value) {
    const std::string text = GeneralText(value);
    return text.substr(text.find_first_not_of(' '));
}

} // namespace

void mnuBar_Click(int Index) {
    if (Index == FileTitle) {
        EnablePrinting();
    } else if (Index == DrawItem) {
        DrawMapClicked();
    } else if (Index == StopItem) {
        StopDrawing();
    }
}

void mnuInput_Click(int Index) {
    MarkMenuItem(Menu::mnuInput, Index);
    if (Index == OpenMapFileItem) {
        ShowDialog<InputFileChoices>();
    } else if (Index == ExitItem) {
        Machine().window->Close();
    } else {
        SaveMapAs(Index);
    }
}

void mnuDesign_Click(int Index) {
    MarkMenuItem(Menu::mnuDesign, Index);
    switch (Index) {
    case BoundariesItem:
        ShowBoundaryDialog();
        break;
    case BackgroundItem:
        ChooseBackground();
        break;
    case GridItem:
        ShowDialog<SelectGridType>();
        break;
    case LineWidthItem:
        ShowDialog<LineWidthScale>();
        break;
    case PixelSizeItem:
        TogglePixelSize();
        break;
    default:
        break;
    }
}

void mnuAbout_Click(int Index) {
    MarkMenuItem(Menu::mnuAbout, Index);
    if (Index == AboutItem) {
        ShowDialog<AboutQMNT>();
    } else if (Index == PlotTimeItem) {
        ShowPlotTime();
    }
}

void ToggleCaption() {
    MainWindow& window = *Machine().window;
    std::string caption = window.Caption();
    const std::size_t bar = caption.find('|');
    if (bar != std::string::npos) {
        caption.erase(0, bar + 1);
    }
    if (window.MenuChecked(Menu::mnuDesign, PixelSizeItem) && Design.TwipsPerPixelX > 0.0F) {
        caption = Plain(window.ScaleWidth() / Design.TwipsPerPixelX) + "," +
                  Plain(window.ScaleHeight() / Design.TwipsPerPixelY) + " = x, y Pixels   |" + caption;
    }
    window.SetCaption(caption);
}

void Form_MouseDown(double x, double y) {
    if (Design.MapDrawing) {
        return;
    }
    Guarded("Form_MouseDown", [&] {
        Design.TextCursorX = RoundToInt32(x);
        Design.TextCursorY = RoundToInt32(y);
    });
}

} // namespace quelmont

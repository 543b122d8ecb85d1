#include "mainwindow/view_commands.h"

#include "core/map_design.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/ready_to_draw.h"
#include "platform/machine.h"

namespace quelmont {

bool IsSwitchedOn(int item) { return Machine().window->MenuChecked(Menu::mnuView, item); }

void SwitchStatusLine(bool on) {
    Machine().window->SetMenuChecked(Menu::mnuView, StatusLineItem, on);
    Machine().window->ShowStatusLine(on);
}

void ToggleStatusLine(int index) { SwitchStatusLine(!IsSwitchedOn(index)); }

void ToggleSwitch(int index) { Machine().window->SetMenuChecked(Menu::mnuView, index, !IsSwitchedOn(index)); }

void SwitchSmoothLines(bool on) {
    Machine().window->SetMenuChecked(Menu::mnuView, SmoothLinesItem, on);
    Design.SmoothLines = on;
}

void ToggleSmoothLines(int index) {
    SwitchSmoothLines(!IsSwitchedOn(index));
    if (MainWindowNow.Picture && ReadyToDraw()) {
        Machine().window->Cls();
        MapDraw();
    }
}

} // namespace quelmont

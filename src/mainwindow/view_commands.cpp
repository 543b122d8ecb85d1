#include "mainwindow/view_commands.h"

#include "mainwindow/main_menu.h"
#include "platform/machine.h"

namespace quelmont {

bool IsSwitchedOn(int item) { return Machine().window->MenuChecked(Menu::mnuView, item); }

void SwitchStatusLine(bool on) {
    Machine().window->SetMenuChecked(Menu::mnuView, StatusLineItem, on);
    Machine().window->ShowStatusLine(on);
}

void ToggleStatusLine(int index) { SwitchStatusLine(!IsSwitchedOn(index)); }

void ToggleRedraw(int index) { Machine().window->SetMenuChecked(Menu::mnuView, index, !IsSwitchedOn(index)); }

} // namespace quelmont

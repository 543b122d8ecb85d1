#include "mainwindow/commands.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "mainwindow/kept_choices.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/projection_menu.h"
#include "mainwindow/text_placing.h"
#include "mainwindow/told_changes.h"
#include "platform/machine.h"

#include <array>
#include <string>

namespace quelmont {

namespace {

struct ClickHandler {
    Menu menu;
    const char* name;
    void (*handler)(int);
};

constexpr std::array ClickHandlers = std::to_array<ClickHandler>({
    {Menu::mnuBar, "mnuBar_Click", mnuBar_Click},
    {Menu::mnuInput, "mnuInput_Click", mnuInput_Click},
    {Menu::mnuEdit, "mnuEdit_Click", mnuEdit_Click},
    {Menu::mnuView, "mnuView_Click", mnuView_Click},
    {Menu::mnuProj, "mnuProj_Click", mnuProj_Click},
    {Menu::mnuProjMollweide, "mnuProjMollweide_Click", mnuProjMollweide_Click},
    {Menu::mnuDesign, "mnuDesign_Click", mnuDesign_Click},
    {Menu::mnuAbout, "mnuAbout_Click", mnuAbout_Click},
    {Menu::mnuRecent, "mnuRecent_Click", mnuRecent_Click},
});

std::string_view TextOf(Menu menu, int index) {
    for (const MenuEntry& entry : MenuEntries(menu)) {
        if (entry.index == index) {
            return entry.text;
        }
    }
    return {};
}

ChangeKind KindOf(Menu menu) {
    switch (menu) {
    case Menu::mnuProj:
    case Menu::mnuProjMollweide:
        return ChangeKind::Bounds;
    case Menu::mnuInput:
    case Menu::mnuRecent:
        return ChangeKind::MapFiles;
    case Menu::mnuBar:
        return ChangeKind::Size;
    case Menu::mnuEdit:
    case Menu::mnuDesign:
    case Menu::mnuView:
    case Menu::mnuAbout:
        break;
    }
    return ChangeKind::Look;
}

} // namespace

void mnuBar_Click(int Index) { RunMenuItem(Menu::mnuBar, Index); }

void mnuEdit_Click(int Index) { RunMenuItem(Menu::mnuEdit, Index); }

void mnuView_Click(int Index) { RunMenuItem(Menu::mnuView, Index); }

void mnuInput_Click(int Index) {
    MarkMenuItem(Menu::mnuInput, Index);
    RunMenuItem(Menu::mnuInput, Index);
}

void mnuDesign_Click(int Index) {
    MarkMenuItem(Menu::mnuDesign, Index);
    RunMenuItem(Menu::mnuDesign, Index);
}

void mnuAbout_Click(int Index) {
    MarkMenuItem(Menu::mnuAbout, Index);
    RunMenuItem(Menu::mnuAbout, Index);
}

void mnuRecent_Click(int Index) {
    MarkMenuItem(Menu::mnuInput, RecentDesignsItem);
    RunMenuItem(Menu::mnuRecent, Index);
}

void ClickMenuItem(Menu menu, int index) {
    TextDone();
    for (const ClickHandler& click : ClickHandlers) {
        if (click.menu == menu) {
            Guarded(click.name, [&] { click.handler(index); });
        }
    }
    TellChange(TextOf(menu, index), KindOf(menu));
    KeepChoices();
}

void ToggleCaption() {
    if (IsPlotting() || Design.TextPending) {
        return; // the caption tells something else, which ends with this
    }
    MainWindow& window = *Machine().window;
    std::string caption = window.Caption();
    const std::size_t bar = caption.find('|');
    if (bar != std::string::npos) {
        caption.erase(0, bar + 1);
    }
    if (window.MenuChecked(Menu::mnuDesign, PixelSizeItem) && Design.TwipsPerPixelX > 0.0F) {
        caption = PlainNumber(window.ScaleWidth() / Design.TwipsPerPixelX) + "," +
                  PlainNumber(window.ScaleHeight() / Design.TwipsPerPixelY) + " = x, y Pixels   |" + caption;
    }
    window.SetCaption(caption);
}

} // namespace quelmont

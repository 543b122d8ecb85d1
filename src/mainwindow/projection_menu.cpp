#include "mainwindow/projection_menu.h"

#include "core/map_design.h"
#include "dialogs/bounds/boundary_dialog.h"
#include "mainwindow/commands.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "platform/machine.h"
#include "projection/projection_table.h"

#include <algorithm>

namespace quelmont {

namespace {

void SelectProjection(int row, int ovalRow) {
    const auto* const found =
        std::find_if(Projections.begin(), Projections.end(), [&](const ProjectionEntry& entry) {
            return entry.menuIndex == row && entry.mollweideIndex == ovalRow;
        });
    if (found == Projections.end()) {
        return;
    }
    Design.ProjNumPrev = Design.ProjNum;
    Design.ProjNum = found->ProjNum;
    Design.ProjName = found->ProjName;
    Machine().window->SetCaption(found->caption);
    ToggleCaption();
    ShowBoundaryDialog();
}

} // namespace

void ChooseProjection(int index) { SelectProjection(index, NoItem); }

void ChooseMollweide(int index) { SelectProjection(MollweideItem, index); }

void ChooseWithHelp(int /*index*/) {
    if (MainWindowNow.HelpInChoosing != nullptr) {
        MainWindowNow.HelpInChoosing();
    }
}

void MarkProjection(std::int16_t ProjNum) {
    const ProjectionEntry& projection = PropertiesOf(ProjNum);
    const bool lower = projection.mollweideIndex != NoItem;
    MarkMenuItem(Menu::mnuProj, lower ? NoItem : projection.menuIndex);
    MarkMenuItem(Menu::mnuProjMollweide, projection.mollweideIndex);
}

void mnuProj_Click(int Index) {
    if (Index == MollweideItem) {
        return;
    }
    if (Index != HelpMeChooseItem) {
        MarkMenuItem(Menu::mnuProjMollweide, NoItem);
        MarkMenuItem(Menu::mnuProj, Index);
    }
    RunMenuItem(Menu::mnuProj, Index);
}

void mnuProjMollweide_Click(int Index) {
    MarkMenuItem(Menu::mnuProj, NoItem);
    MarkMenuItem(Menu::mnuProjMollweide, Index);
    RunMenuItem(Menu::mnuProjMollweide, Index);
}

} // namespace quelmont

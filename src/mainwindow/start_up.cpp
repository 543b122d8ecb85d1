#include "mainwindow/start_up.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "core/stop_signals.h"
#include "graticule/calc_graticule.h"
#include "graticule/calculate_bounds.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/file_writers.h"
#include "mainwindow/kept_choices.h"
#include "mainwindow/main_menu.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/projection_menu.h"
#include "mainwindow/told_changes.h"
#include "mainwindow/view_commands.h"
#include "mapfiles/feature_rows.h"
#include "output/scale_screen.h"
#include "platform/machine.h"
#include "projection/param_select.h"
#include "projection/param_std_parallel.h"
#include "projection/projection_table.h"

namespace quelmont {

namespace {

void ResetMenus() {
    Design.ProjMenuLast = 19;
    MarkProjection(ProjEquirectangular);
    MarkMenuItem(Menu::mnuDesign, NoItem);
    MarkMenuItem(Menu::mnuInput, NoItem);
    MarkMenuItem(Menu::mnuAbout, NoItem);
    Machine().window->SetMenuChecked(Menu::mnuDesign, PixelSizeItem, false);
    SwitchStatusLine(true);
    Machine().window->SetMenuChecked(Menu::mnuView, RedrawItem, true);
    Machine().window->SetMenuChecked(Menu::mnuView, MoveItem, true);
    SwitchSmoothLines(true);
    EnableMenuBar(false);
    ShowRecentDesigns();
}

} // namespace

void StartUp() {
    TakeFailedWritesAsErrors();
    MainWindowNow.SavedCaption = FindProjection(ProjEquirectangular)->caption;
    Machine().window->SetCaption(MainWindowNow.SavedCaption);
    Design.AppPath = Machine().places->ProgramFolder();
    Design.HelpFile = Design.AppPath + "Qmnt.qch";
    ResetMenus();
    InstallWriters();
    Design.MapFileDefault = Design.AppPath + DefaultMapTitle;
    ConstantDefs();
    ConstantGrid();
    CalculateBounds();
    ParamStdParallel();
    ParamSelect();
    ScaleScreen();
    Design.InputFiles = {NewMapFileEntry(Design.MapFileDefault)};
    NoteDesign();
    NoteChoices();
}

} // namespace quelmont

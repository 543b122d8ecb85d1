#include "mainwindow/main_menu.h"

#include "mainwindow/copy_map.h"
#include "mainwindow/design_commands.h"
#include "mainwindow/distortion_commands.h"
#include "mainwindow/fill_commands.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/menu_commands.h"
#include "mainwindow/print_commands.h"
#include "mainwindow/projection_menu.h"
#include "mainwindow/save_map.h"
#include "mainwindow/view_commands.h"
#include "platform/machine.h"
#include "projection/projection_table.h"

#include <array>

namespace quelmont {

namespace {

// clang-format off
constexpr std::array BarMenu = {
    MenuEntry{FileTitle,             "&File",                    EnablePrinting,    Menu::mnuInput},
    MenuEntry{EditTitle,             "&Edit",                    nullptr,           Menu::mnuEdit},
    MenuEntry{ProjectionTitle,       "&Projection",              nullptr,           Menu::mnuProj},
    MenuEntry{DesignTitle,           "Design &Map",              nullptr,           Menu::mnuDesign},
    MenuEntry{DrawTitle,             "&Draw Map",                AskSizeAndDraw},
    MenuEntry{ViewTitle,             "&View",                    nullptr,           Menu::mnuView},
    MenuEntry{HelpTitle,             "&Help",                    nullptr,           Menu::mnuAbout},
    MenuEntry{StopTitle,             "&Stop",                    [](int) { StopDrawing(); }},
};

constexpr std::array InputMenu = {
    MenuEntry{OpenMapFileItem,       "&Open Digital Map File",   ChooseMapFiles,    {}, false, "Ctrl+O"},
    MenuEntry{ 1},
    MenuEntry{PrintMapItem,          "&Print Map",               AskPageAndPrint,   {}, false, "Ctrl+P"},
    MenuEntry{PrintSetupItem,        "Print Set&up",             SetUpPrinter},
    MenuEntry{ 4},
    MenuEntry{SaveBmpItem,           "Save as &BMP",             SaveMapAs},
    MenuEntry{SaveCgmItem,           "Save as &CGM",             SaveMapAs},
    MenuEntry{SaveDxfItem,           "Save as &DXF",             SaveMapAs},
    MenuEntry{SaveWmfItem,           "Save as &WMF",             SaveMapAs},
    MenuEntry{SaveAsciiItem,         "Save as &ASCII",           SaveMapAs},
    MenuEntry{SavePdfItem,           "Save as PD&F",             SaveMapAs},
    MenuEntry{SavePngItem,           "Save as P&NG",             SaveMapAs},
    MenuEntry{SaveSvgItem,           "Save as S&VG",             SaveMapAs},
    MenuEntry{10},
    MenuEntry{SaveGreatCircleItem,   "Save &Great Circle",       SaveMapAs},
    MenuEntry{SaveSmallCircleItem,   "Save &Small Circle",       SaveMapAs},
    MenuEntry{13},
    MenuEntry{SaveDesignItem,        "Save &Map Design",         SaveMapAs,         {}, false, "Ctrl+S, Ctrl+Shift+S", SaveDesignAgain},
    MenuEntry{RecallDesignItem,      "&Recall Map Design",       RecallDesign},
    MenuEntry{RecentDesignsItem,     "R&ecent Map Designs",      nullptr,           Menu::mnuRecent},
    MenuEntry{16},
    MenuEntry{ExitItem,              "E&xit",                    [](int) { Machine().window->Close(); }, {}, false, "Ctrl+Q"},
};

constexpr std::array DesignMenu = {
    MenuEntry{BoundariesItem,        "Map &Boundaries",          ChooseBoundaries},
    MenuEntry{GreatCircleItem,       "Great &Circle",            ChooseGreatCircle},
    MenuEntry{SmallCircleItem,       "&Small Circle",            ChooseSmallCircle},
    MenuEntry{ 3},
    MenuEntry{AddTextItem,           "Add &Text to Map",         AddText},
    MenuEntry{LabelsItem,            "&Labels",                  ChooseLabels},
    MenuEntry{ 6},
    MenuEntry{BackgroundItem,        "B&ackground Color",        ChooseBackground},
    MenuEntry{GridItem,              "&Grid Color, Width, Type", ChooseGrid},
    MenuEntry{LineWidthItem,         "Line &Width Scaling",      ChooseLineWidths},
    MenuEntry{PixelSizeItem,         "Show Window &Pixel Size",  TogglePixelSize,   {}, true},
    MenuEntry{11},
    MenuEntry{ParameterReportItem,   "&Map Parameter Report",    ShowParameterReport},
    MenuEntry{GreatCircleReportItem, "G&reat Circle Report",     ShowGreatCircleReport},
    MenuEntry{14},
    MenuEntry{GridLabelsItem,        "Gr&id Labels...",          ChooseGridLabels},
    MenuEntry{FrameItem,             "&Frame and Scale...",     ChooseFrame},
    MenuEntry{FillItem,              "Fill La&nd and Water...", ChooseFills},
};

constexpr std::array EditMenu = {
    MenuEntry{UndoItem,              "&Undo",                    UndoChange,        {}, false, "Ctrl+Z"},
    MenuEntry{RedoItem,              "&Redo",                    RedoChange,        {}, false, "Ctrl+Shift+Z"},
    MenuEntry{ 2},
    MenuEntry{CopyMapItem,           "&Copy Map",                CopyMap,           {}, false, "Ctrl+C"},
};

constexpr std::array ViewMenu = {
    MenuEntry{SmoothLinesItem,       "&Smooth Lines",            ToggleSmoothLines, {}, true},
    MenuEntry{StatusLineItem,        "Status &Line",             ToggleStatusLine,  {}, true},
    MenuEntry{RedrawItem,            "&Redraw by Itself",        ToggleSwitch,      {}, true},
    MenuEntry{MoveItem,              "Mo&ve with the Mouse",     ToggleSwitch,      {}, true},
    MenuEntry{DrawAgainItem,         "Dra&w Again",              DrawAgain,         {}, false, "F5"},
    MenuEntry{DistortionItem,        "&Distortion...",           ChooseDistortion},
};

constexpr std::array AboutMenu = {
    MenuEntry{ContentsItem,          "&Contents",               ShowHelpContents},
    MenuEntry{SearchItem,            "&Search for Help on ...", ShowHelpSearch},
    MenuEntry{ 2},
    MenuEntry{AboutBoxItem,          "&About Quelmont",          ShowAbout},
    MenuEntry{PlotTimeItem,          "Plot &Time",               ShowPlotTime},
};
// clang-format on

/// The items of the table of projections, with separators where it has none.
template <std::size_t Count>
constexpr std::array<MenuEntry, Count> ProjectionItems(bool lower, void (*command)(int)) {
    std::array<MenuEntry, Count> menu{};
    for (std::size_t i = 0; i < Count; ++i) {
        menu[i].index = static_cast<int>(i);
    }
    for (const ProjectionEntry& entry : Projections) {
        if ((entry.mollweideIndex >= 0) == lower) {
            const int index = lower ? entry.mollweideIndex : entry.menuIndex;
            menu[static_cast<std::size_t>(index)] = {index, entry.menuText, command};
        }
    }
    return menu;
}

constexpr std::array MollweideMenu = ProjectionItems<2>(true, ChooseMollweide);

/// Their texts are those of the designs.
constexpr std::array RecentMenu = [] {
    std::array<MenuEntry, RecentDesignsMost> menu{};
    for (std::size_t i = 0; i < menu.size(); ++i) {
        menu[i] = {static_cast<int>(i), "Map design", RecallRecentDesign};
    }
    return menu;
}();

constexpr std::array ProjMenu = [] {
    auto menu = ProjectionItems<22>(false, ChooseProjection);
    menu[MollweideItem] = {MollweideItem, "Moll&weide equal-area", nullptr, Menu::mnuProjMollweide};
    menu[HelpMeChooseItem] = {HelpMeChooseItem, "Hel&p Me Choose...", ChooseWithHelp};
    return menu;
}();

} // namespace

std::span<const MenuEntry> MenuEntries(Menu menu) {
    switch (menu) {
    case Menu::mnuBar:
        return BarMenu;
    case Menu::mnuInput:
        return InputMenu;
    case Menu::mnuEdit:
        return EditMenu;
    case Menu::mnuProj:
        return ProjMenu;
    case Menu::mnuProjMollweide:
        return MollweideMenu;
    case Menu::mnuDesign:
        return DesignMenu;
    case Menu::mnuView:
        return ViewMenu;
    case Menu::mnuAbout:
        return AboutMenu;
    case Menu::mnuRecent:
        return RecentMenu;
    }
    return {};
}

int TitleOf(Menu menu) {
    for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
        if (entry.below == menu) {
            return entry.index;
        }
    }
    return NoItem;
}

void RunMenuItem(Menu menu, int index) {
    for (const MenuEntry& entry : MenuEntries(menu)) {
        if (entry.index == index && entry.command != nullptr) {
            entry.command(index);
        }
    }
}

void MarkMenuItem(Menu menu, int index) {
    for (const MenuEntry& entry : MenuEntries(menu)) {
        if (!entry.isSwitch) {
            Machine().window->SetMenuChecked(menu, entry.index, entry.index == index);
        }
    }
}

void EnableMenuBar(bool drawing) {
    for (const MenuEntry& entry : MenuEntries(Menu::mnuBar)) {
        Machine().window->SetMenuEnabled(Menu::mnuBar, entry.index, (entry.index == StopTitle) == drawing);
    }
}

} // namespace quelmont

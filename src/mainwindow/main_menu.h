#pragma once

#include "platform/main_window.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace quelmont {

/// No item of any menu.
constexpr int NoItem = -1;

/// Indices of mnuBar, the titles on the menu bar.
enum BarItem : int {
    FileTitle,
    ProjectionTitle,
    DesignTitle,
    DrawTitle,
    HelpTitle,
    StopTitle,
    ViewTitle, ///< stands behind DrawTitle
    EditTitle, ///< stands behind FileTitle
};

/// Indices of mnuInput, the File menu.
enum InputItem : int {
    OpenMapFileItem = 0,
    PrintMapItem = 2,
    PrintSetupItem = 3,
    SaveBmpItem = 5,
    SaveCgmItem = 6,
    SaveDxfItem = 7,
    SaveWmfItem = 8,
    SaveAsciiItem = 9,
    SaveGreatCircleItem = 11,
    SaveSmallCircleItem = 12,
    SaveDesignItem = 14,
    RecallDesignItem = 15,
    ExitItem = 17,
    SavePdfItem = 18,       ///< stands behind SaveAsciiItem
    SavePngItem = 19,       ///< stands behind SavePdfItem
    SaveSvgItem = 20,       ///< stands behind SavePngItem
    RecentDesignsItem = 21, ///< stands behind RecallDesignItem
};

/// The parent of mnuProjMollweide in mnuProj, whose other indices stand in the table of projections.
constexpr int MollweideItem = 5;
/// The item of mnuProj that compares projections.
constexpr int HelpMeChooseItem = 21;

/// Items of mnuRecent, of which as many are seen as there are designs.
constexpr std::size_t RecentDesignsMost = 8;

/// Indices of mnuDesign, the Design Map menu.
enum DesignItem : int {
    BoundariesItem = 0,
    GreatCircleItem = 1,
    SmallCircleItem = 2,
    AddTextItem = 4,
    LabelsItem = 5,
    BackgroundItem = 7,
    GridItem = 8,
    LineWidthItem = 9,
    PixelSizeItem = 10,
    ParameterReportItem = 12,
    GreatCircleReportItem = 13,
    GridLabelsItem = 15,
    FrameItem = 16,
    FillItem = 17,
};

/// Indices of mnuEdit, the Edit menu.
enum EditItem : int { UndoItem = 0, RedoItem = 1, CopyMapItem = 3 };

/// Indices of mnuView, the View menu.
enum ViewItem : int {
    SmoothLinesItem = 0,
    StatusLineItem = 1,
    RedrawItem = 2,
    DrawAgainItem = 3,
    MoveItem = 4, ///< stands behind RedrawItem
    DistortionItem = 5,
};

/// Indices of mnuAbout, the Help menu.
enum AboutItem : int { ContentsItem = 0, SearchItem = 1, AboutBoxItem = 3, PlotTimeItem = 4 };

/// One item of the main window's menus.
struct MenuEntry {
    int index = NoItem;
    std::string_view text = {};     ///< "&" before the mnemonic; empty for a separator
    void (*command)(int) = nullptr; ///< what a click does, called with the index
    std::optional<Menu> below = {}; ///< the menu that the item opens
    bool isSwitch = false;          ///< its mark shows a state, not which item was used last
    /// Its shortcuts as the desktop writes them, ", " between them; the menu shows the first.
    std::string_view keys = {};
    /// What the first of them does where that is not what a click does; called with the index.
    void (*keyCommand)(int) = nullptr;

    bool IsSeparator() const { return text.empty(); }
    /// False while the item has nothing behind it: it stays disabled.
    bool Ready() const { return command != nullptr || below.has_value(); }
};

/// The items of a menu in their order, separators included.
std::span<const MenuEntry> MenuEntries(Menu menu);

/// The title that opens a menu; NoItem when none does.
int TitleOf(Menu menu);

/// Runs the command of an item; does nothing when it has none, or when there is no such item.
void RunMenuItem(Menu menu, int index);

/// Clears every check mark of a menu and sets that of one item. A switch keeps its own mark.
void MarkMenuItem(Menu menu, int index);

/// While a draw runs, only "&Stop" can be clicked on the menu bar; else everything but it.
void EnableMenuBar(bool drawing);

} // namespace quelmont

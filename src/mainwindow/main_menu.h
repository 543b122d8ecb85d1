#pragma once

#include "platform/main_window.h"

#include <span>
#include <string_view>

namespace quelmont {

/// One item of the main window's menus.
struct MenuEntry {
    int index;
    std::string_view text; ///< "&" before the mnemonic; empty for a separator
    bool ready;            ///< false while the item has nothing behind it: it stays disabled
};

/// The items of a menu in their order. The projection menu's entry 5 is the parent of
/// mnuProjMollweide.
std::span<const MenuEntry> MenuEntries(Menu menu);

/// Clears every check mark of a menu and sets that of one item. The pixel size item of the design
/// menu keeps its own mark.
void MarkMenuItem(Menu menu, int index);

/// Index of the pixel size item in mnuDesign.
constexpr int PixelSizeItem = 10;

} // namespace quelmont

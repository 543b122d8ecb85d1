#pragma once

#include "platform/main_window.h"

#include <span>
#include <string_view>

/// Which page of the help describes what. The pages are the files of docs/help.

namespace quelmont {

/// The command of Help::Show that opens the search; the others stand beside that interface.
constexpr int HelpSearch = 2;

/// The page that leads to every other one.
constexpr std::string_view HelpContentsPage = "README";

/// A place in the help.
struct HelpPlace {
    std::string_view page;    ///< a file of docs/help without its ending
    std::string_view section; ///< a heading in small letters, "-" for blanks, without marks; empty: the top
};

/// The place of a control of a dialog.
struct ControlHelp {
    std::string_view form;    ///< class name of the dialog
    std::string_view control; ///< name of the control; empty: the dialog as a whole
    HelpPlace place;
};

/// The place of an item of the main window's menus.
struct MenuHelp {
    Menu menu;
    int index;
    HelpPlace place;
};

std::span<const ControlHelp> HelpOfControls();
std::span<const MenuHelp> HelpOfMenus();

/// The help context number of a control: that of the dialog as a whole where the control has none of its own,
/// 0 where the dialog has none either.
int HelpContextOf(std::string_view form, std::string_view control);

/// The help context number of a menu's item, 0 where it has none. All items of the recent designs have one.
int HelpContextOf(Menu menu, int index);

/// The help context number of boxes that stand over no dialog and belong to no command.
constexpr int HelpOfBoxes = 1000;

/// The place that a help context number stands for: the top of the contents for a number that stands for
/// none.
HelpPlace PlaceOfHelp(int context);

} // namespace quelmont

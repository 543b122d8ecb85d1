#pragma once

#include "platform/main_window.h"

namespace quelmont {

/// A click on a title of the menu bar.
void mnuBar_Click(int Index);

/// The items of the Edit and View menus, which only mark what is on.
void mnuEdit_Click(int Index);
void mnuView_Click(int Index);

/// The items of the File, Design Map and Help menus. The item that was clicked last stays marked.
void mnuInput_Click(int Index);
void mnuDesign_Click(int Index);
void mnuAbout_Click(int Index);

/// An item of the menu of recent designs, which stands in the File menu.
void mnuRecent_Click(int Index);

/// A click on a title or an item of any menu, which ends the placing of a text. A run-time failure of its
/// handler shows "Error in " and the handler's name. Kept choices that it changed are written.
void ClickMenuItem(Menu menu, int index);

/// Shows or removes the pixel size of the drawing area at the front of the window's caption, as the
/// check mark of its menu item says. Also called when the window was resized, and at the end of a draw or
/// of the placing of a text, which have the caption to themselves.
void ToggleCaption();

} // namespace quelmont

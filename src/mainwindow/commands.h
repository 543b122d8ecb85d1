#pragma once

#include "platform/main_window.h"

namespace quelmont {

/// A click on a title of the menu bar.
void mnuBar_Click(int Index);

/// The items of the File, Design Map and Help menus. The item that was clicked last stays marked.
void mnuInput_Click(int Index);
void mnuDesign_Click(int Index);
void mnuAbout_Click(int Index);

/// A click on an item of any menu. A run-time failure of its handler shows "Error in " and the handler's
/// name.
void ClickMenuItem(Menu menu, int index);

/// Shows or removes the pixel size of the drawing area at the front of the window's caption, as the
/// check mark of its menu item says. Also called when the window was resized, and at the end of a draw,
/// which has the caption to itself.
void ToggleCaption();

/// The mouse was pressed on the drawing area, at a place in twips: text will go there. Ignored
/// while a draw runs.
void Form_MouseDown(double x, double y);

} // namespace quelmont

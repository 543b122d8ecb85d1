#pragma once

namespace quelmont {

/// A click on a title of the menu bar: 0 "&File", 1 "&Projection", 2 "Design &Map", 3 "&Draw Map",
/// which asks for the map's size and draws it, 4 "&Help", 5 "&Stop".
void mnuBar_Click(int Index);

/// The items of the File, Design Map and Help menus that have something behind them.
void mnuInput_Click(int Index);
void mnuDesign_Click(int Index);
void mnuAbout_Click(int Index);

/// Shows or removes the pixel size of the drawing area at the front of the window's caption, as the
/// check mark of its menu item says. Also called when the window was resized.
void ToggleCaption();

/// The mouse was pressed on the drawing area, at a place in twips: text will go there. Ignored
/// while a draw runs.
void Form_MouseDown(double x, double y);

} // namespace quelmont

#pragma once

namespace quelmont {

/// Draws the design on the main window, and into the file that is armed: the grid and the map
/// files, once, or once per lobe of the interrupted projection.
///
/// Nothing is drawn while a text is being placed.
///
/// Reads   the whole design. Writes  the fit, the run state, Statistics, PlotSeconds.
/// Disables the menus but for "&Stop" while it runs, beeps after each pass, and restores menus,
/// pointer and caption however it ends. A run-time failure shows "Error in MapDraw".
void MapDraw();

/// The Escape key on the main window. While a draw runs: closes files 1 and 2, removes a partial
/// export and stops the draw at its next turn. While a text is being placed, ends that alone. At any time it
/// disarms the exports.
void EscapeKey();

/// The menu item "&Stop".
void StopDrawing();

} // namespace quelmont

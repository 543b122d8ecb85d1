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

/// The picture that MapDraw makes, pixel for pixel, without anything that tells of a draw: menus, caption,
/// pointer, message boxes, status line and beep stay as they are. The window shows it with its next Refresh.
/// Nothing is drawn while a draw runs or a text is being placed. EscapeKey, called by the event pump, stops
/// it as it stops a draw. No export may be armed.
///
/// True when the picture is whole: neither stopped, nor with a failure that MapDraw would show.
bool DrawPicture();

/// The Escape key on the main window. While a draw runs: closes files 1 and 2, removes a partial
/// export and stops the draw at its next turn. While a text is being placed, ends that alone. At any time it
/// disarms the exports.
void EscapeKey();

/// The menu item "&Stop".
void StopDrawing();

} // namespace quelmont

#pragma once

#include <string_view>

namespace quelmont {

/// What a draw of the map on the window and its print have in common: the stages, and what the main window
/// does meanwhile. PrintingNow tells which of the two it is.

/// The scale of transformed output, and a pen of one pixel.
/// Reads   XAxisLength, MapXMin, MapXMax. Writes  AsciiScale, PenWidth. RunTimeError "Division by zero".
void ScaleAscii();

/// Disables the menus but for "&Stop" and sets the run state of a draw. EndStages and GiveWindowBack have to
/// follow, whatever fails.
/// Writes  SavedCaption, AsciiFileName (it grows to its outputs), MapLabels, Statistics, PlotSeconds, the
/// lobe; for a drawing MapTitle, MapDescription.
void BeginStages();

/// The grid and the map files, once, or once per lobe of the interrupted projection, under a caption that
/// tells how to stop; the status line tells which of them is drawn, and how much of the files was read. False
/// when the plotting was stopped; the reason is taken off.
bool RunStages(std::string_view stopCaption);

/// Stops the clock, and gives up the exports and the pen that a stage left. The failures to delete that one
/// name the routine.
/// Writes  PlotSeconds, the lobe, the export flags, OutputFileName, TextItems.
void EndStages(std::string_view routine);

/// Pointer, caption, status line and menus as before. Writes  PenWidth, PlotStopReason.
void GiveWindowBack(std::string_view routine);

/// Clears the flags of all exports.
void DisarmExports();

} // namespace quelmont

#pragma once

namespace quelmont {

/// Plots the map files of the list, on the surface in use and into the file that is armed, over them the
/// circles that are defined, and over those the labels of the files. Labels are text items too as long as the
/// draw goes on, for the file.
///
/// Reads   the list InputFiles with MapFileCount, the bounds and the projection of the map, the
///         output flags, AsciiFileName, GridOutputCount, LabelsVisible, LobeFirst, LobeLast.
/// Writes  Surface, DevicePixelX, DevicePixelY, CurrentSymbolType, PenColor, PenWidth, the symbol
///         sizes, the point cell, OutputFileName, UtmPointPath, the window's caption, the
///         labels with their places in MapLabels, those of this pass behind the ones before, and
///         Statistics.MapFiles: an entry per file, added up over the passes of a draw.
/// The window's picture is kept before the labels are drawn on it (MainWindow::KeepPicture).
/// Lets events run every 800 points and leaves when PlotStopReason is StopReason::Escape. A run-time failure
/// shows "Error in MapPlot", with the name of the map file that brought it, a file that is not there "File
/// not found error in MapPlot"; the files after it are not plotted then. Files 1 and 2 are closed however it
/// ends.
void MapPlot();

} // namespace quelmont

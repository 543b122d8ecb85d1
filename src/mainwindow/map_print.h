#pragma once

namespace quelmont {

class Printer;

/// Prints the design on one page of a printer, or of a file that takes pages: the grid and the map files,
/// once, or once per lobe of the interrupted projection, then the texts, all in the box that PrintLeft,
/// PrintTop and PrintWidth give the map on the paper, whose rest stays as it is. What the paper has room for
/// is not tested (dialogs/printing/page_checks.h).
///
/// Nothing is printed while a text is being placed, a draw or another print runs.
///
/// Reads   the whole design, the window's drawing area. Writes  what GetPrinterParams takes, the run state,
///         Statistics, PlotSeconds, and as ScaleScreen, with which it ends.
/// Disables the menus but for "&Stop" while it runs, and restores menus, pointer and caption however it ends.
/// "&Stop" and the Escape key end the page and give the job up. A step of the job that fails shows its
/// message box under "Windows API Error" ("StartDoc error(1) in MapPrint"), and the job is given up; any
/// other run-time failure shows "Error in MapPrint".
/// Returns whether the job was handed over.
bool MapPrint(Printer& printer);

} // namespace quelmont

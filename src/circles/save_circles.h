#pragma once

namespace quelmont {

/// Write the tables of the circles as text, a point on each line: 0 where a line begins and -1 where it goes
/// on, latitude and longitude in degrees with four decimals, two blanks between them. As map files that end
/// in .prn they can be drawn again.
///
/// The file is written beside its target and takes its place when whole; the window's caption tells of it
/// meanwhile. Circles that are not defined show a message box, and nothing is written. A failure ("Disk
/// full", "Permission denied", "Path/File access error" for what is no plain file or is a map file of the
/// design...) shows "Error in GcSave" or "Error in ScSave", and an earlier file stays.

/// Reads   GcDefined, GcTable, GcFileName.  Writes  OutputGc, which is false at the end.
void GcSave();

/// Reads   ScDefined, ScTable, ScFileName.  Writes  OutputSc, which is false at the end.
void ScSave();

} // namespace quelmont

#pragma once

namespace quelmont {

/// Does for metres what CalcGraticule does for seconds of arc, on the UTM projection.
///
/// Reads   UtmText(5) to (10).
/// Writes  the seconds, degrees and counts of the section "Bounds and grid", all in metres, with
///         LonZeroSec the western and LonSpanSec the eastern boundary; ProjOffMap and LastRefusal
///         when it refuses, in a message box with Retry and Cancel.
/// A run-time failure shows "Error in CalcUtmGrid" and ends the routine.
void CalcUtmGrid();

} // namespace quelmont

#pragma once

namespace quelmont {

/// Resets GridText to the whole world with a grid of 30 by 45 degrees, centre 40 N 0 W, range 180.
/// The height of the perspective view, GridText(9), stays once it has been accepted
/// (ProjGridSet(29)).
void ConstantGrid();

/// Turns the texts of the bounds into numbers, and refuses a grid that does not divide its axes.
///
/// Reads   GridText, ProjNum; on azimuthal maps, which are bounded by a circle, it first rewrites
///         GridText 0, 1, 3 and 4 to the whole globe about the centre.
/// Writes  every field of the sections "Bounds and grid" and "Centre of the map", but for the
///         azimuthal range on other maps; ProjOffMap and LastRefusal when it refuses.
/// A refusal is a message box with Retry and Cancel; the numbers stay as they were reached, ProjOffMap is
/// set, and LastRefusal tells the dialog what to do. The tests are made on whole seconds.
/// A run-time failure, above all a spacing of zero, shows "Error in CalcGraticule" and ends the
/// routine with ProjOffMap as it was.
void CalcGraticule();

} // namespace quelmont

#pragma once

namespace quelmont {

/// Whether the design shows distortion; whether by shades that cover the map.
bool HasDistortion();
bool HasShades();

/// Shows the distortion of the map, on the surface in use and into the file that is armed: what lies beneath
/// the grid. All lobes at once, at the first pass of an interrupted map. Equal circles are filled lightly and
/// have an outline; files without areas have the outlines. Shades cover the map up to its outline; files
/// without areas have none.
///
/// Reads   Distortion, the bounds, the projection and the fit of the map, the output flags, LobeFirst.
/// Writes  the key of the shades in OutputNow, and as PlotStrokes; bounds and lobe are put back.
/// Lets events run before it draws, and leaves when Escape was pressed. RunTimeError as BeginExport, and
/// where a place of the map has none on the device.
void PlotDistortion();

} // namespace quelmont

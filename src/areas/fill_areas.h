#pragma once

namespace quelmont {

/// Whether the design has areas filled.
/// Reads   Fill.
bool HasFilledAreas();

/// Fills the land, the lakes and the sea of the map files, on the surface in use and into the file that is
/// armed: what lies beneath the grid. All lobes at once, at the first pass of an interrupted map.
///
/// Land is what closed lines of coasts and islands bound, lakes those of lakes; where one row of a file holds
/// both, lines inside an odd number of others bound water, the rest land. Rows that are not shown bound
/// nothing. The sea is what the map's outline bounds. Of several files each is filled over those before it.
///
/// Reads   Fill, the list InputFiles with MapFileCount, the bounds, the projection and the fit of the map,
/// the
///         output flags, LobeFirst.  Writes  the point cell; bounds and lobe are put back.
/// A file that cannot be read has its areas left out: MapPlot tells of it. Leaves when Escape is pressed.
/// RunTimeError as BeginExport, and where a place of the map has none on the device.
void FillAreas();

} // namespace quelmont

#pragma once

#include <cstddef>

namespace quelmont {

/// Fills the table of scale errors with samples of the map, south to north, west to east or outward from its
/// centre; on the projections with curved meridians in three columns of four rows. Steps are those of the
/// grid, unless that made more rows than the table has.
///
/// Reads   the bounds, the grid and the centre of the map, and what DistErrSelect reads.
/// Writes  ReportsNow.
/// Returns the number of rows. A sample that fails, which shows its message box, ends the table before it. 0
/// on the interrupted projection.
std::size_t SampleScaleErrors();

} // namespace quelmont

#pragma once

namespace quelmont {

/// Scale errors of the map at one point, as texts in a row of the table.
///
/// Reads   ProjNum, the bounds and constants of its map; ScaleErrLat, ScaleErrLon, ScaleErrIndex (from 1).
/// Writes  row ScaleErrIndex of the tables, and ScaleErrNotes; ConicG on the equidistant conic, as
///         ParamSelect does.
/// Returns false after a failure, which shows "Error in DistErrSelect" and leaves the row as it was: the
/// stereographic projection has no scale at the antipode of its centre. Does nothing on the interrupted
/// projection, where each lobe has errors of its own.
bool DistErrSelect();

} // namespace quelmont

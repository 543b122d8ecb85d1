#pragma once

#include <string>

namespace quelmont {

// What each dialog proposes. A projection that was accepted before (ProjGridSet) is shown the texts that
// the design has, unless the dialog's own checks would refuse them: another projection may have left
// them.

/// The first dialog: the whole world, less what the projection cannot show. The dialog that follows has
/// to find parallels or interruptions for the bounds.
///
/// Reads   ProjNum, ProjGridSet.  Writes  GridText.
void ProposeBounds();

/// The dialog of the standard parallels: those of ParamStdParallel.
///
/// Reads   ProjNum, ProjGridSet, LatNorth, LatSouth, StdParText.  Writes  what ParamStdParallel does.
void ProposeStandardParallels();

/// The dialog of the interrupted projection: two interruptions in each hemisphere, in the oceans of
/// the north and of the south, on a map that begins and ends at 20 degrees east.
///
/// Reads   ProjGridSet.  Writes  LobeText, entry 2 from GridText(3).
void ProposeLobes();

/// Puts the boundaries of the lobes in order: left boundary of the map, northern interruptions,
/// right boundary, then the same for the south.
///
/// Reads   GridText(3) and (4), LobeText.  Writes  LobeLonText, LobeLonSec, LobeLonDeg.
/// RunTimeError "Subscript out of range" for a count of interruptions beyond 3.
void OrderLobes();

/// Stores both standard parallels, checked texts of latitudes.
///
/// Writes  StdParText, StdParNorthText, StdParSouthText, StdParNorth, StdParSouth (degrees).
void StoreStandardParallels(const std::string& north, const std::string& south);

/// The texts of the standard parallels on a map that has none.
///
/// Writes  StdParNorthText, StdParSouthText.
void ForgetStandardParallels();

} // namespace quelmont

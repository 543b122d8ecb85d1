#pragma once

#include <cstdint>
#include <vector>

/// The lobes of the interrupted projection.

namespace quelmont {

/// The bounds of one lobe, counted from 1 through both hemispheres, in the same fields.
///
/// Reads   GridText 0, 1, 2, 5, LobeText, LobeLonText.
/// The equator bounds every lobe of a map that holds it; on a map of one hemisphere the lobes of the
/// other have no height (LatNorthSec = LatSouthSec). A lobe lower than one spacing counts as one. No
/// test is made: the dialog has made it. A run-time failure shows "Error in CalcGraticuleInterrupt"
/// and ends the routine.
void CalcGraticuleInterrupt(std::int16_t lobe);

/// The numbers of the lobes that have a height, northern ones, then southern ones, each from west to east.
/// Leaves the bounds of the last lobe that was looked at. RunTimeError as LobeInterruptions.
std::vector<std::int16_t> LobesWithHeight();

/// Finds the place of every lobe: the x that its central meridian has on the uninterrupted map.
///
/// Reads   LobeText (counts), LobeLonDeg, ProjNum (42), LonCentral of the whole map.
/// Writes  LobeCentral (projection units; 0 for the slot between the hemispheres), the point cell.
void LonInterruptOffset();

} // namespace quelmont

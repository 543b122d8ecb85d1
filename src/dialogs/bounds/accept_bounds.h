#pragma once

#include <string>

/// The design's texts of the boundaries, accepted as the OK of their dialogs accepts them, without a
/// dialog. A step shows the message box of its first refusal and answers false.

namespace quelmont {

/// What the first dialog of the projection in force accepts, LatLonBounds, LatLonBoundsAz,
/// LatLonBoundsVp or the UTM chain: each field, then all together.
///
/// Reads   ProjNum, GridText or UtmText and SpheroidName.
/// Writes  what CalcGraticule, or CalcUtmZone and CalcUtmGrid, make of them.
bool AcceptBounds();

/// What LatLonStdPar accepts, and stores them. Where there is one parallel, south is its mirror image.
///
/// Writes  StdParText, StdParNorth, StdParSouth, StdParNorthText, StdParSouthText.
bool AcceptStandardParallels(const std::string& north, const std::string& south);

/// What LatLonInterrupt accepts of LobeText: each interruption in use, then all together.
///
/// Writes  LobeText(2), LobeLonText, LobeLonSec, LobeLonDeg, LobeCentral.
bool AcceptLobes();

/// The end of every acceptance: ParamSelect, ProjGridSet.
void FinishAcceptance();

/// The bounds, then the parallels or lobes as their dialog would show them.
bool AcceptChain();

/// The chain and its end. A design that is refused is not changed.
bool AcceptProjection();

/// Whether a step would accept the design. Shows no message box and changes nothing.
bool WouldAccept(bool (*step)());

} // namespace quelmont

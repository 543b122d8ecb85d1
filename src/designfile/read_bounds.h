#pragma once

/// What becomes of the numbers of the bounds after a map design file was read. All work on Design.

namespace quelmont {

/// Tests that the numbers of the bounds can be drawn and fit each other: seconds (metres on UTM) with
/// degrees, boundaries with counts and spacings, an extent that is not empty. RunTimeError "Invalid
/// procedure call or argument".
void TestReadBounds();

/// Derives what a file does not hold.
///
/// Reads   the texts and numbers of the bounds.  Writes  LonWestText, LonEastText, LatCentralSec,
/// LonCentralSec, VpDistanceKm, LatCentralRad, CosLatCentral, SinLatCentral, CosRange, HorizonCos(3),
/// LobeLonDeg. RunTimeError "Overflow" for a text whose number is too large.
void DeriveReadBounds();

/// Gives numbers back the digits that fifteen decimal ones do not hold: those that the program itself
/// computes of the same design, where both have the same text. Else a pixel could change its place.
void RestoreLastDigits();

} // namespace quelmont

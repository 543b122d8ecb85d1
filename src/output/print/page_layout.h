#pragma once

namespace quelmont {

/// The size of a printed map and its margins from the paper's edge, in PrintUnitTwips. Its height is to its
/// width as the window's drawing area has it. What GetPrinterParams took is read as the paper. RunTimeError
/// "Division by zero" for a window without an area.

/// Lengths are compared with that much of slack: added up and converted, they lose their last digits.
constexpr double PageSlack = 1e-5;

/// Takes a width and the height that follows from it, or the other way round.
void SetPrintWidth(float width);
void SetPrintHeight(float height);

/// Makes the map as wide as the paper is between two margins PrintLeft, or so much narrower that it is not
/// higher than the paper between two margins PrintTop. False, and nothing is changed, when these margins
/// leave no room.
/// Writes  PrintWidth, PrintHeight.
bool FitPrintToPaper();

/// Whether a map of that size can stand in the middle of the paper: none of it on the strips that cannot be
/// printed on.
bool CanCenterHorizontally();
bool CanCenterVertically();

/// The margin of a map in the middle of the paper, when CenterHorizontal (CenterVertical); else the margin as
/// it is, or smaller when the map would run off the printable area. It never reaches into the strip.
/// Writes  PrintLeft; PrintTop.
void CalcPrnLeft();
void CalcPrnTop();

} // namespace quelmont

#pragma once

namespace quelmont {

class Printer;

/// Takes a printer's measures, its paper turned as the design has it.
///
/// Reads   PrinterOrientation, PrintUnitTwips.
/// Writes  of OutputNow PrinterTwipsPerPixelX, PrinterTwipsPerPixelY and, in PrintUnitTwips, the sizes of
///         paper, printable area and strips, which hold until the unit or the paper is another one.
/// False for a printer that reports no resolution or no paper: the sizes then are 0. RunTimeError "Division
/// by zero" without a unit.
bool GetPrinterParams(const Printer& printer);

} // namespace quelmont

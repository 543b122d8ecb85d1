#pragma once

namespace quelmont {

/// Takes the printer's paper at the start of the program, when the settings were read: a map as wide as the
/// margins leave it. Without a printer nothing happens.
/// Writes  PrintWidth, PrintHeight, and what GetPrinterParams takes.
void PreparePrinting();

/// "&Print Map": asks for size and margins and prints. Nothing without a printer, and while the projection
/// refuses the bounds of the design.
void AskPageAndPrint(int index);

/// "Print Set&up": lets the user choose and set up a printer.
/// Writes  PrinterOrientation, and what GetPrinterParams takes.
void SetUpPrinter(int index);

/// The two halves of "Save as PD&F", before and after its name is known. The first asks for paper, size and
/// margins; false after Cancel.
bool AskPdfPage();
/// Prints the map into the file PdfFileName. A machine that makes no PDF shows "OpenPrinter(1) error in
/// MapPrint".
void PrintPdf();

} // namespace quelmont

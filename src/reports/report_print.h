#pragma once

#include "platform/page_line.h"

#include <vector>

namespace quelmont {

class Printer;

/// Prints the lines of a report, as many on each page as fit between the margins; what is too long for a line
/// is cut at the right margin. At least one line stands on each page. Margins that leave no room are a
/// failure.
///
/// Reads   Fonts (the font of the reports), ReportLeft, ReportRight, ReportTop, ReportBottom, PrintUnitTwips,
///         PrinterOrientation.
/// Returns false after a failure. Its message box begins "Error printing ", and nothing is printed.
bool PrintReport(const std::vector<PageLine>& lines, Printer& printer);

} // namespace quelmont

#pragma once

#include "reports/report.h"

#include <string>

namespace quelmont {

/// A report as rich text (RTF 1, Windows-1252 with Unicode beyond it): in the font of the reports and its
/// colour, with tab stops for the columns and the margins of a printed report.
///
/// Reads   Fonts, ReportLeft, ReportRight, ReportTop, ReportBottom, PrintUnitTwips.
std::string RichText(const Report& report);

} // namespace quelmont

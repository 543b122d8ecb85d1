#pragma once

#include "core/map_design.h"
#include "platform/page_line.h"
#include "reports/report.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Reports as lines of text. A column is as wide as the widest of its cells that have another behind them,
/// with two blanks behind a label's colon and four behind anything else, in whole units: so the columns
/// stand below each other in any font.

namespace quelmont {

/// How wide texts are, and the unit of the columns.
struct ReportMeasure {
    std::function<double(std::string_view)> width;
    double unit = 1.0;
};

/// Twips, in a font; the unit is its "W". A font that the machine cannot make counts half its size for a
/// character.
ReportMeasure InFont(const TextLook& look);

/// The lines of a report, headings between rules of "-" as long as they are. Stops are in the measure's
/// lengths.
std::vector<PageLine> LayOutReport(const Report& report, const ReportMeasure& measure);

/// In the font of the reports.
std::vector<PageLine> LayOutReport(const Report& report);

/// Length of the longest line, twips.
double WidthOfPage(const std::vector<PageLine>& lines, const ReportMeasure& measure);

/// A report in characters of one width: columns are filled with blanks, lines end with carriage return and
/// line feed.
std::string PlainText(const Report& report);

} // namespace quelmont

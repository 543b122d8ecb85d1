#pragma once

#include <cstdint>

namespace quelmont {

/// Twips in the units of a page.
constexpr std::int32_t InchTwips = 1440;
constexpr std::int32_t CentimetreTwips = 567;

/// Changes the unit in which pages are measured; they stay as large as they were.
///
/// Reads   PrintUnitTwips. Writes  it; PrintLeft, PrintTop, PrintWidth, PrintHeight, ReportLeft,
///         ReportRight, ReportTop, ReportBottom.
void ChangePrintUnit(std::int32_t twips);

} // namespace quelmont

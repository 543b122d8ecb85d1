#pragma once

#include <string_view>

/// The steps from whole seconds to the fields that everything plots from, shared by the whole map
/// and by a lobe. Each reads and writes Design. RunTimeError where one overflows.

namespace quelmont {

/// LonZeroSec and LonSpanSec from the true boundaries. Equal boundaries are a full circle.
void SpanLongitudes();

/// LatGridCount and LonGridCount.
void CountDivisions();

/// LatGrid, LatNorth, LatSouth, LonGrid, LonWest, LonEast, LonSpan, LonZero, LonCentral.
void DegreesFromSeconds();

/// LatNorthText to LonGridText, from GridText and the texts of the western and eastern boundary.
void CompactTexts(std::string_view west, std::string_view east);

/// LatCentral and LonMiddle of a map bounded by parallels and meridians.
void CentreOfRectangle();

/// LatCentralRad, its cosine and sine, and the texts of the centre.
void CentralTerms();

} // namespace quelmont

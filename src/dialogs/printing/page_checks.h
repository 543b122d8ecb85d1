#pragma once

#include <optional>
#include <string>

namespace quelmont {

/// A length on a page in its unit: "6.50 inches.", "16.51 cm.". Reads  PrintUnitTwips.
std::string LengthInWords(double length);

/// Why a map cannot be printed where it is to stand.
struct PageRefusal {
    std::string title;
    std::string text;
    const char* field = ""; ///< of PrintMap: the one to change
    bool operator==(const PageRefusal&) const = default;
};

/// Tests the size of the map and its margins against the paper that GetPrinterParams took: the first of
/// no width, width, width and left margin, left margin, height, height and top margin, top margin that does
/// not fit.
///
/// Reads   PrintLeft, PrintTop, PrintWidth, PrintHeight, PrintUnitTwips.
std::optional<PageRefusal> CheckPage();

} // namespace quelmont

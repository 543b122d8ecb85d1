#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace quelmont {

/// A paper of a common size, upright. Inches.
struct Paper {
    std::string_view name;
    double width = 0.0, height = 0.0;
};

constexpr double MillimetresPerInch = 25.4;
constexpr double CentimetresPerInch = 2.54;

/// ISO 216 and ANSI/ASME Y14.1, in the order of a list to choose from.
constexpr std::array Papers = std::to_array<Paper>({
    {"A5", 148.0 / MillimetresPerInch, 210.0 / MillimetresPerInch},
    {"A4", 210.0 / MillimetresPerInch, 297.0 / MillimetresPerInch},
    {"A3", 297.0 / MillimetresPerInch, 420.0 / MillimetresPerInch},
    {"A2", 420.0 / MillimetresPerInch, 594.0 / MillimetresPerInch},
    {"A1", 594.0 / MillimetresPerInch, 841.0 / MillimetresPerInch},
    {"A0", 841.0 / MillimetresPerInch, 1189.0 / MillimetresPerInch},
    {"Letter", 8.5, 11.0},
    {"Legal", 8.5, 14.0},
    {"Tabloid", 11.0, 17.0},
});

/// The paper of pages in a file when nothing is said.
constexpr std::string_view DefaultPaper = "A4";

/// The paper of that name, as it is written in Papers; nullptr when there is none.
constexpr const Paper* PaperOf(std::string_view name) {
    const auto* const found =
        std::find_if(Papers.begin(), Papers.end(), [&](const Paper& paper) { return paper.name == name; });
    return found == Papers.end() ? nullptr : found;
}

/// The place of a name in Papers; past their end when there is no such paper.
constexpr std::size_t IndexOfPaper(std::string_view name) {
    const Paper* const paper = PaperOf(name);
    return paper == nullptr ? Papers.size() : static_cast<std::size_t>(paper - Papers.data());
}

/// Whether a side of a page in a file can have a length, inches: a page is measured in points of 1/72 inch,
/// and ISO 32000-1 (annex C) ends at 200 inches. False for what is no number.
constexpr bool CanBePageSide(double length) { return length >= 1.0 / 72.0 && length <= 200.0; }

/// The finest resolution of a page, dots per inch.
constexpr int FinestResolution = 1200;

/// A place on a page fits sixteen bits, in either direction of the paper.
constexpr int MostPagePixels = 32000;

/// The finest resolution at which a paper stays below so many dots. Inches, both above 0.
constexpr int PageResolution(double width, double height) {
    const double longer = std::max(width, height);
    int resolution = FinestResolution;
    while (resolution > 1 && resolution * longer >= MostPagePixels - 1) {
        --resolution;
    }
    return resolution;
}

} // namespace quelmont

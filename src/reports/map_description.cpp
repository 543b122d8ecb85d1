#include "reports/map_description.h"

#include "core/angle_text.h"
#include "core/degrees.h"
#include "core/file_names.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "projection/projection_table.h"
#include "reports/report_numbers.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <sstream>

namespace quelmont {

namespace {

/// Groups of digits, and the letter of a hemisphere behind them, with the signs of degrees, minutes and
/// seconds: "037 05 00 W" is "37° 5' W".
std::string WithSigns(const std::string& groups) {
    constexpr std::array signs = {"\u00B0", "'", "\""};
    std::istringstream words(groups);
    std::string text;
    std::string word;
    for (std::size_t place = 0; words >> word; ++place) {
        const bool letter = word == "N" || word == "S" || word == "E" || word == "W";
        const std::size_t digits = word.find_first_not_of('0');
        if (letter) {
            text += " " + word;
        } else if (place == 0 || digits != std::string::npos) {
            text += (text.empty() ? "" : " ") + (digits == std::string::npos ? "0" : word.substr(digits)) +
                    signs.at(std::min(place, signs.size() - 1));
        }
    }
    return text;
}

std::string WhatItShows() {
    switch (PropertiesOf(Design.ProjNum).family) {
    case ProjectionFamily::MetricGrid:
        return "northings " + FormatNumber(Design.LatSouth, "#,###,##0") + " to " +
               FormatNumber(Design.LatNorth, "#,###,##0") + " m, eastings " +
               FormatNumber(Design.LonZero, "#,###,##0") + " to " +
               FormatNumber(Design.LonSpan, "#,###,##0") + " m";
    case ProjectionFamily::Azimuthal:
        return WithSigns(AngleText(DegreesOf(Design.RangeSec), "ARC")) + " around " +
               WithSigns(AngleText(Design.LatCentral, "LAT")) + ", " +
               WithSigns(AngleText(Design.LonMiddle, "LON"));
    default: {
        const auto& text = Design.GridText;
        return "from " + WithSigns(CompactLatitude(text[GridTextSouth])) + " to " +
               WithSigns(CompactLatitude(text[GridTextNorth])) + ", " +
               WithSigns(CompactLongitude(text[GridTextWest])) + " to " +
               WithSigns(CompactLongitude(text[GridTextEast]));
    }
    }
}

std::string MapFiles() {
    std::string text;
    for (const InputFileEntry& file : Design.InputFiles) {
        text += (text.empty() ? " Map files: " : ", ") + ParseFileName(file.MapFileName).title;
    }
    return text.empty() ? "" : text + ".";
}

} // namespace

std::string MapTitleText() {
    std::string title = ParseFileName(Design.CnfFileName).title;
    if (LastThreeLetters(title) == "CNF" && title.size() > 4) {
        title.resize(title.size() - 4);
    }
    return title.empty() ? "Outline map" : title;
}

std::string MapDescriptionText() {
    return "Outline map on the " + Design.ProjName + " projection, " + WhatItShows() + "." + MapFiles();
}

} // namespace quelmont

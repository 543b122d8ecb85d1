#include "mainwindow/map_words.h"

#include "core/angle_text.h"
#include "core/coordinates.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/run_time_error.h"
#include "projection/projection_table.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace quelmont {

namespace {

/// "52° 30′".
std::string Arc(std::int32_t seconds) {
    const std::int64_t size = std::llabs(seconds);
    std::string text = std::to_string(size / SecPerDegree) + "\u00B0";
    const std::int64_t rest = size % SecPerDegree;
    if (rest != 0) {
        text += " " + std::to_string(rest / SecPerMinute) + "\u2032";
    }
    if (rest % SecPerMinute != 0) {
        text += " " + std::to_string(rest % SecPerMinute) + "\u2033";
    }
    return text;
}

/// The letter of a text of the design tells the side of 180 degrees.
std::string Place(std::int32_t seconds, std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return Arc(seconds) + " " + (last == std::string_view::npos ? "" : std::string(1, text[last]));
}

std::string Latitude(std::string_view text) { return Place(LatitudeSeconds(text), text); }
std::string Longitude(std::string_view text) { return Place(LongitudeSeconds(text), text); }

std::string DegreeBounds() {
    const auto& text = Design.GridText;
    return "latitude " + Latitude(text[GridTextNorth]) + " to " + Latitude(text[GridTextSouth]) +
           ", longitude " + Longitude(text[GridTextWest]) + " to " + Longitude(text[GridTextEast]);
}

std::string DiscBounds() {
    const auto& text = Design.GridText;
    std::string words = "center " + Latitude(text[GridTextCentralLat]) + ", " +
                        Longitude(text[GridTextCentralLon]) + ", range " + Arc(Design.RangeSec);
    if (Design.ProjNum == ProjVerticalPerspective) {
        words += ", seen from " + FormatNumber(Design.VpDistanceKm, "#,###,###") + " kilometers";
    }
    return words;
}

std::string MeterBounds() {
    const auto meters = [](double value) { return FormatNumber(value, "#,###,##0"); };
    return "northing " + meters(Design.LatSouth) + " to " + meters(Design.LatNorth) + " meters, easting " +
           meters(Design.LonZero) + " to " + meters(Design.LonSpan) + " meters, central longitude " +
           Longitude(Design.UtmText[UtmTextCentralLon]);
}

} // namespace

std::string MapInWords() {
    std::string projection = Design.ProjName + " projection";
    try {
        switch (PropertiesOf(Design.ProjNum).family) {
        case ProjectionFamily::MetricGrid:
            return projection + ", " + MeterBounds();
        case ProjectionFamily::Azimuthal:
            return projection + ", " + DiscBounds();
        default:
            return projection + ", " + DegreeBounds();
        }
    } catch (const RunTimeError&) {
        return projection;
    }
}

} // namespace quelmont

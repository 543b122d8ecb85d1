#include "mapfiles/world_file.h"

#include "core/coordinates.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "mapfiles/text_items.h"
#include "platform/characters.h"

namespace quelmont {

std::string_view TakeWorldItem(std::string_view& text) {
    TakeBlanks(text);
    const std::size_t end = text.find_first_of(",\r\n");
    const std::string_view item = text.substr(0, end);
    text.remove_prefix(item.size());
    if (!text.empty() && text.front() == ',') {
        text.remove_prefix(1);
    } else {
        TakeLineEnd(text);
    }
    return item;
}

std::optional<WorldDegrees> DecodeWorldDegrees(std::string_view item) {
    const char first = item.empty() ? ' ' : item.front();
    if (first != '-' && !IsDigit(first)) {
        return std::nullopt;
    }
    const std::size_t blank = item.find_first_of(" \t");
    const std::size_t split = blank == std::string_view::npos ? 0 : blank + 1;
    return WorldDegrees{MapNumberOf(item.substr(0, split)), MapNumberOf(item.substr(split))};
}

WorldPoint WorldPointOf(const WorldDegrees& degrees) {
    WorldPoint point;
    point.Lat = RoundToInt32(degrees.Lat * SecPerDegree);
    point.Lon = RoundToInt32(degrees.Lon * SecPerDegree);
    if (point.Lon > SecPerHalfCircle) {
        point.Lon -= SecPerCircle;
    }
    return point;
}

std::string EncodeWorldItem(double lat, double lon) {
    return FormatNumber(lat, "0.000000") + " " + FormatNumber(lon, "0.000000") + "\r\n";
}

} // namespace quelmont

#include "mapfiles/ascii_map_file.h"

#include "core/number_text.h"
#include "core/rounding.h"
#include "core/run_time_error.h"
#include "mapfiles/text_items.h"

#include <algorithm>

namespace quelmont {

namespace {

/// Takes one number and its delimiter: a line end, or blanks with at most one comma among them.
double TakeNumber(std::string_view& text) {
    TakeBlankLines(text);
    if (text.empty()) {
        throw RunTimeError(ErrorInputPastEnd);
    }
    const std::string_view item = text.substr(0, text.find_first_of(" \t,\r\n"));
    text.remove_prefix(item.size());
    TakeBlanks(text);
    if (!text.empty() && text.front() == ',') {
        text.remove_prefix(1);
        TakeBlanks(text);
    } else {
        TakeLineEnd(text);
    }
    return MapNumberOf(item);
}

std::string_view TakeLabel(std::string_view& text) {
    if (text.empty() || text.front() != '"') {
        return {};
    }
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    text.remove_prefix(line.size());
    TakeLineEnd(text);
    const std::size_t close = line.find('"', 1);
    if (close == std::string_view::npos) {
        throw RunTimeError(ErrorInvalidCall);
    }
    return line.substr(1, close - 1);
}

} // namespace

AsciiMapPoint TakeAsciiMapPoint(std::string_view& text) {
    AsciiMapPoint point;
    point.Break = RoundToInt32(TakeNumber(text));
    point.Second = TakeNumber(text);
    point.Third = TakeNumber(text);
    point.Label = TakeLabel(text);
    return point;
}

std::string EncodeAsciiMapPoint(const AsciiMapPoint& point, int decimals) {
    std::string picture = "0";
    if (decimals > 0) {
        picture += '.' + std::string(static_cast<std::size_t>(decimals), '0');
    }
    std::string line = std::to_string(point.Break) + ',' + FormatNumber(point.Second, picture) + ',' +
                       FormatNumber(point.Third, picture);
    if (!point.Label.empty()) {
        std::string label(point.Label);
        std::replace(label.begin(), label.end(), '"', '\'');
        std::replace_if(
            label.begin(), label.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
        line += ",\"" + label + '"';
    }
    return line + "\r\n";
}

} // namespace quelmont

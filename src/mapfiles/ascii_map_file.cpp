#include "mapfiles/ascii_map_file.h"

#include "core/number_text.h"
#include "core/rounding.h"
#include "core/run_time_error.h"
#include "mapfiles/text_items.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace quelmont {

namespace {

/// Takes the delimiter behind a number: a line end, or blanks with at most one comma among them.
void TakeDelimiter(std::string_view& text) {
    TakeBlanks(text);
    if (!text.empty() && text.front() == ',') {
        text.remove_prefix(1);
        TakeBlanks(text);
    } else {
        TakeLineEnd(text);
    }
}

/// Takes a number of at most 15 digits without an exponent, the commonest by far, from the front of a text
/// when it ends there at a delimiter. The digits as a whole number and the power of ten are exact, so that
/// their quotient is the nearest double, as of any other way to read it.
std::optional<double> TakeShortNumber(std::string_view& text) {
    static constexpr std::array<double, 16> PowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                           1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr std::size_t mostDigits = PowersOfTen.size() - 1;
    const bool negative = !text.empty() && text.front() == '-';
    const std::size_t first = negative ? 1 : 0;
    std::size_t i = first;
    std::int64_t digits = 0;
    const auto takeDigits = [&] {
        for (; i < text.size() && text[i] >= '0' && text[i] <= '9' && i <= first + mostDigits; ++i) {
            digits = digits * 10 + (text[i] - '0');
        }
    };
    takeDigits();
    std::size_t taken = i - first;
    std::size_t decimals = 0;
    if (i < text.size() && text[i] == '.') {
        const std::size_t point = i++;
        takeDigits();
        decimals = i - point - 1;
        taken += decimals;
    }
    if (taken == 0 || taken > mostDigits || i == text.size() || !IsDelimiter(text[i])) {
        return std::nullopt;
    }
    text.remove_prefix(i);
    const auto whole = static_cast<double>(negative ? -digits : digits);
    return decimals == 0 ? whole : whole / PowersOfTen[decimals];
}

/// Takes one number and its delimiter.
double TakeNumber(std::string_view& text) {
    TakeBlankLines(text);
    if (const std::optional<double> number = TakeShortNumber(text)) {
        TakeDelimiter(text);
        return *number;
    }
    if (text.empty()) {
        throw RunTimeError(ErrorInputPastEnd);
    }
    const std::string_view item = text.substr(0, text.find_first_of(" \t,\r\n"));
    text.remove_prefix(item.size());
    TakeDelimiter(text);
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
    const double first = TakeNumber(text);
    point.Break = RoundToInt32(first);
    point.BreakRounded = point.Break != first;
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

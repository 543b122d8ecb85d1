#include "designfile/line_text.h"

#include "core/number_text.h"
#include "core/run_time_error.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace quelmont {

namespace {

constexpr std::string_view LineEnds = "\r\n";
constexpr std::string_view Blanks = " \t";
constexpr std::string_view Separators = " \t,";
constexpr int DoubleDigits = 15;
constexpr int SingleDigits = 7;

template <typename Real>
std::string Spaced(Real value, int digits) {
    if (!std::isfinite(value)) {
        throw RunTimeError(ErrorOverflow);
    }
    if (value == Real{0}) {
        return " 0"; // without the sign of a negative zero
    }
    std::array<char, 32> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::general, digits);
    std::string text(buffer.data(), result.ptr);
    std::replace(text.begin(), text.end(), 'e', 'E');
    return value < Real{0} ? text : " " + text;
}

bool StartsWithSign(std::string_view text) { return text.starts_with('+') || text.starts_with('-'); }

/// Takes the digits off the front of a text and gives their number.
std::size_t TakeDigits(std::string_view& text) {
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(count);
    return count;
}

bool IsDecimalNumber(std::string_view text) {
    text.remove_prefix(StartsWithSign(text) ? 1 : 0);
    std::size_t digits = TakeDigits(text);
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        digits += TakeDigits(text);
    }
    if (digits == 0) {
        return false;
    }
    if (text.starts_with('E') || text.starts_with('e')) {
        text.remove_prefix(1);
        text.remove_prefix(StartsWithSign(text) ? 1 : 0);
        return TakeDigits(text) > 0 && text.empty();
    }
    return text.empty();
}

/// Characters of the line end at the front of a text.
std::size_t LineEndLength(std::string_view text) {
    return text.substr(0, 2) == "\r\n" ? 2 : std::min<std::size_t>(text.size(), 1);
}

} // namespace

std::string SpacedText(double value) { return Spaced(value, DoubleDigits); }
std::string SpacedText(float value) { return Spaced(value, SingleDigits); }
std::string SpacedText(std::int32_t value) { return (value < 0 ? "" : " ") + std::to_string(value); }

bool FitsLine(std::string_view text) {
    using namespace std::string_view_literals;
    return text.find_first_of("\r\n\0\x1A"sv) == std::string_view::npos;
}

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string_view Unquoted(std::string_view line) {
    const std::string_view text = Trimmed(line);
    if (text.size() < 2 || text.front() != '"' || text.back() != '"') {
        throw RunTimeError(ErrorTypeMismatch);
    }
    return text.substr(1, text.size() - 2);
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    return first == std::string_view::npos ? std::string_view{}
                                           : text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::vector<std::string_view> NumberItems(std::string_view line, std::size_t count) {
    std::vector<std::string_view> items;
    while (items.size() < count) {
        line.remove_prefix(std::min(line.find_first_not_of(Separators), line.size()));
        if (line.empty()) {
            throw RunTimeError(ErrorInputPastEnd);
        }
        items.push_back(line.substr(0, line.find_first_of(Separators)));
        line.remove_prefix(items.back().size());
    }
    return items;
}

std::vector<std::string_view> ItemsFromLeft(std::string_view line, std::size_t count) {
    std::vector<std::string_view> items;
    for (;;) {
        const std::size_t comma = line.find(',');
        items.push_back(Trimmed(line.substr(0, comma)));
        if (items.size() == count) {
            return items;
        }
        if (comma == std::string_view::npos) {
            throw RunTimeError(ErrorInputPastEnd);
        }
        line.remove_prefix(comma + 1);
    }
}

std::vector<std::string_view> ItemsFromRight(std::string_view line, std::size_t count) {
    std::vector<std::string_view> items(count);
    for (std::size_t i = count; i > 1; --i) {
        const std::size_t comma = line.rfind(',');
        if (comma == std::string_view::npos) {
            throw RunTimeError(ErrorInputPastEnd);
        }
        items[i - 1] = Trimmed(line.substr(comma + 1));
        line = line.substr(0, comma);
    }
    items[0] = Trimmed(line);
    return items;
}

double NumberOf(std::string_view text) {
    if (!IsDecimalNumber(text)) {
        throw RunTimeError(ErrorTypeMismatch);
    }
    return ValueOf(text);
}

std::string_view LineReader::Next() {
    if (rest.empty()) {
        throw RunTimeError(ErrorInputPastEnd);
    }
    const std::string_view line = rest.substr(0, rest.find_first_of(LineEnds));
    rest.remove_prefix(line.size());
    rest.remove_prefix(LineEndLength(rest));
    return line;
}

bool LineReader::HasLeft(std::int64_t count) const {
    LineReader ahead = *this;
    for (; count > 0; --count) {
        if (ahead.rest.empty()) {
            return false;
        }
        ahead.Next();
    }
    return true;
}

} // namespace quelmont

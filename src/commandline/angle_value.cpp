#include "commandline/angle_value.h"

#include "commandline/option_values.h"

#include "core/angle_text.h"
#include "core/number_text.h"
#include "platform/characters.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

namespace quelmont {

namespace {

constexpr std::int16_t Gap = 4;

bool AreDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), IsDigit); }

std::size_t DegreeDigits(AngleFieldKind kind) { return IsLatitude(kind) ? 2 : 3; }

/// A sign or a letter taken off a value, as the letter of the text: 0 when there is none.
struct Hemisphere {
    char letter = 0;
    bool bad = false;
};

Hemisphere TakeHemisphere(AngleFieldKind kind, std::string_view& value) {
    constexpr std::string_view letters = "NSEW";
    const char positive = IsLatitude(kind) ? 'N' : 'E';
    const char negative = IsLatitude(kind) ? 'S' : 'W';
    Hemisphere hemisphere;
    if (!value.empty() && (value.front() == '-' || value.front() == '+')) {
        hemisphere.letter = value.front() == '-' ? negative : positive;
        value.remove_prefix(1);
    }
    const char last =
        value.empty() ? '\0' : static_cast<char>(std::toupper(static_cast<unsigned char>(value.back())));
    if (last != '\0' && letters.find(last) != std::string_view::npos) {
        hemisphere.bad = hemisphere.letter != 0;
        hemisphere.letter = last;
        value.remove_suffix(1);
    }
    if (kind == AngleFieldKind::Arc) {
        hemisphere.bad = hemisphere.bad || hemisphere.letter != 0;
    } else if (hemisphere.letter == 0) {
        hemisphere.letter = positive;
    }
    return hemisphere;
}

std::string InColumns(std::string_view digits, std::size_t width) {
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    return digits.size() > width ? std::string(width, '9')
                                 : std::string(width - digits.size(), '0') + std::string(digits);
}

std::string Joined(AngleFieldKind kind, std::string_view degrees, std::string_view minutes,
                   std::string_view seconds, char letter) {
    const std::string gap(Gap, ' ');
    std::string text =
        InColumns(degrees, DegreeDigits(kind)) + gap + InColumns(minutes, 2) + gap + InColumns(seconds, 2);
    return letter == 0 ? text : text + gap + letter;
}

/// Whole degrees, minutes and seconds.
std::optional<std::string> FromGroups(AngleFieldKind kind, std::string_view value, char letter) {
    std::array<std::string_view, 3> groups{"", "0", "0"};
    std::size_t count = 0;
    for (std::string_view rest = value; count < groups.size();) {
        const std::size_t colon = rest.find(':');
        const std::string_view group = rest.substr(0, colon);
        if (group.empty() || !AreDigits(group)) {
            return std::nullopt;
        }
        groups[count++] = group;
        if (colon == std::string_view::npos) {
            return Joined(kind, groups[0], groups[1], groups[2], letter);
        }
        rest.remove_prefix(colon + 1);
    }
    return std::nullopt;
}

std::optional<std::string> FromDecimal(AngleFieldKind kind, std::string_view value, char letter) {
    const std::size_t point = value.find('.');
    const std::string_view whole = value.substr(0, point);
    const std::string_view fraction = value.substr(point + 1);
    if (whole.size() + fraction.size() == 0 || !AreDigits(whole) || !AreDigits(fraction)) {
        return std::nullopt;
    }
    if (InColumns(whole, DegreeDigits(kind)).find_first_not_of('9') == std::string::npos) {
        return Joined(kind, whole, "0", "0", letter);
    }
    std::string text;
    DegMinSec(ValueOf(value), text,
              kind == AngleFieldKind::Arc ? "ARC"
              : IsLatitude(kind)          ? "LAT"
                                          : "LON",
              Gap);
    if (letter != 0) {
        text.back() = letter;
    }
    return text;
}

/// Whether a value has the columns of a text: groups of digits (or blanks, which count as 0) with
/// four blanks between.
bool HasColumns(AngleFieldKind kind, std::string_view value) {
    const std::string degrees(DegreeDigits(kind), '0');
    const std::string pattern = degrees + "    00    00" + (kind == AngleFieldKind::Arc ? "" : "    N");
    return std::equal(value.begin(), value.end(), pattern.begin(), pattern.end(), [](char c, char p) {
        return p == ' ' ? c == ' ' : p == '0' ? c == ' ' || IsDigit(c) : c > ' ' && c < '\x7F' && !IsDigit(c);
    });
}

std::optional<std::string> AngleText(AngleFieldKind kind, std::string_view value) {
    if (HasColumns(kind, value)) {
        return std::string(value);
    }
    const Hemisphere hemisphere = TakeHemisphere(kind, value);
    if (hemisphere.bad) {
        return std::nullopt;
    }
    return value.find('.') == std::string_view::npos ? FromGroups(kind, value, hemisphere.letter)
                                                     : FromDecimal(kind, value, hemisphere.letter);
}

} // namespace

std::string AngleValue(AngleFieldKind kind, std::string_view value) {
    const std::optional<std::string> text = AngleText(kind, value);
    if (!text) {
        throw BadValue("\"" + std::string(value) + "\" is no " +
                       (kind == AngleFieldKind::Arc ? "arc such as 30 or 22:30"
                        : IsLatitude(kind)          ? "latitude such as 40N, -37.5 or 37:47:00S"
                                                    : "longitude such as 122:26:00W or -7.5"));
    }
    return *text;
}

} // namespace quelmont

#include "core/typed_value.h"

#include "platform/characters.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace quelmont {

namespace {

/// More digits of a fraction than anybody types, and few enough for 64 bits at 3600 seconds each.
constexpr std::size_t MostFractionDigits = 15;
constexpr std::uint64_t SecondsPerMinute = 60;
constexpr std::uint64_t SecondsPerDegree = 3600;
constexpr std::size_t GroupsOfAnAngle = 3;

bool IsSpace(char32_t c) {
    return c == U' ' || c == U'\t' || c == U'\u00A0' || (c >= U'\u2000' && c <= U'\u200A') || c == U'\u202F';
}

/// Marks of degrees, minutes, seconds and hours: the straight ones, the typographer's, and what
/// keyboards have in their place.
bool IsMark(char32_t c) {
    constexpr std::u32string_view marks =
        U"'\":`\u00B0\u00BA\u02DA\u00B4\u2018\u2019\u201C\u201D\u2032\u2033";
    return marks.find(c) != std::u32string_view::npos;
}

bool IsDecimal(const MaskedText& field) { return field.Mask().find('.') != std::string::npos; }

std::uint64_t ValueOfDigits(std::string_view digits) {
    std::uint64_t value = 0;
    for (const char c : digits) {
        value = value * 10 + static_cast<std::uint64_t>(c - '0');
    }
    return value;
}

/// before + factor * 0.digits, to the nearest whole, ties to even.
std::uint64_t WithFraction(std::uint64_t before, std::uint64_t factor, std::string_view digits) {
    std::uint64_t scale = 1;
    for (std::size_t k = 0; k < digits.size(); ++k) {
        scale *= 10;
    }
    const std::uint64_t product = factor * ValueOfDigits(digits);
    const std::uint64_t rest = product % scale;
    const std::uint64_t whole = before + product / scale;
    const bool up = 2 * rest > scale || (2 * rest == scale && whole % 2 == 1);
    return whole + (up ? 1 : 0);
}

/// Two or more points separate groups; a single one does when no digit can follow it.
std::string WithoutPartingPoints(std::string_view keys) {
    std::string plain(keys);
    const auto points = std::count(plain.begin(), plain.end(), '.');
    const std::size_t point = plain.find('.');
    if (points > 1 || (points == 1 && point + 1 < plain.size() && !IsDigit(plain[point + 1]))) {
        std::replace(plain.begin(), plain.end(), '.', ' ');
    }
    return plain;
}

struct ColumnGroup {
    std::size_t begin = 0;
    std::size_t width = 0;
};

std::vector<ColumnGroup> DigitGroups(const std::string& mask) {
    std::vector<ColumnGroup> groups;
    for (std::size_t column = 0; column < mask.size(); ++column) {
        if (mask[column] != '%') {
            continue;
        }
        if (column == 0 || mask[column - 1] != '%') {
            groups.push_back({column, 0});
        }
        ++groups.back().width;
    }
    return groups;
}

/// An angle read from keys, group by group.
class TypedAngle {
public:
    explicit TypedAngle(const MaskedText& base_)
        : base(base_), groups(DigitGroups(base.Mask())), letterPlace(base.Mask().find('?')) {}

    bool Read(std::string_view keys);
    std::optional<TypedView> View(bool left);

private:
    bool HasLetterPlace() const { return letterPlace != std::string::npos; }
    bool IsWhole() const { return anyDigits && (letter != 0 || !fraction.empty()); }
    bool ReadDigit(char key);
    void ReadSeparator();
    bool ReadPoint();
    bool ReadLetter(char key);
    bool ReadSign(char key);
    bool AddFraction();
    void SetGroup(std::string& text, std::size_t k, bool toTheRight) const;
    std::size_t CursorOf() const;

    const MaskedText& base;
    std::vector<ColumnGroup> groups;
    std::size_t letterPlace;
    std::array<std::string, GroupsOfAnAngle> digits;
    std::size_t current = 0;
    std::string fraction;
    char letter = 0;
    bool sign = false;         ///< the letter came as a sign
    bool letterBehind = false; ///< it came behind the digits
    bool point = false;
    bool fractionEnded = false;
    bool anyDigits = false;
    bool begun = false;
    bool spilled = false;  ///< the current group began without a separator
    bool separated = true; ///< no group that began so was left short
};

bool TypedAngle::ReadDigit(char key) {
    if (letterBehind || fractionEnded) {
        return false;
    }
    anyDigits = true;
    if (point) {
        fraction += key;
        return fraction.size() <= MostFractionDigits;
    }
    if (current < groups.size() && digits[current].size() == groups[current].width) {
        ++current;
        spilled = true;
    }
    if (current == groups.size()) {
        return false;
    }
    digits[current] += key;
    return true;
}

void TypedAngle::ReadSeparator() {
    if (point) {
        fractionEnded = true;
    } else if (current < groups.size() && (!begun || !digits[current].empty())) {
        separated = separated && (!spilled || digits[current].size() == groups[current].width);
        spilled = false;
        ++current;
    }
}

bool TypedAngle::ReadPoint() {
    point = true;
    return !letterBehind && current < groups.size();
}

bool TypedAngle::ReadLetter(char key) {
    if (!HasLetterPlace() || letter != 0) {
        return false;
    }
    letter = key;
    letterBehind = anyDigits;
    return true;
}

bool TypedAngle::ReadSign(char key) {
    if (!HasLetterPlace() || begun) {
        return false;
    }
    const bool latitude = groups.front().width == 2;
    sign = true;
    letter = key == '-' ? (latitude ? 'S' : 'W') : (latitude ? 'N' : 'E');
    return true;
}

bool TypedAngle::Read(std::string_view keys) {
    for (const char key : keys) {
        bool taken = true;
        if (IsDigit(key)) {
            taken = ReadDigit(key);
        } else if (IsLetter(key)) {
            taken = ReadLetter(key);
        } else if (key == '.') {
            taken = ReadPoint();
        } else if (key == ' ') {
            ReadSeparator();
        } else {
            taken = ReadSign(key);
        }
        if (!taken) {
            return false;
        }
        begun = true;
    }
    return true;
}

/// Spreads the fraction over what is smaller than its group. False when the degrees grow out of
/// their columns.
bool TypedAngle::AddFraction() {
    std::array<std::uint64_t, GroupsOfAnAngle> values{};
    for (std::size_t k = 0; k < values.size(); ++k) {
        values[k] = ValueOfDigits(digits[k]);
    }
    constexpr std::array<std::uint64_t, GroupsOfAnAngle> units = {SecondsPerDegree, SecondsPerMinute, 1};
    const std::uint64_t seconds = WithFraction(values[2], units[current], fraction);
    // A group that rounding fills is carried; groups that were typed too large stay so.
    const std::uint64_t full = current == 2 ? SecondsPerMinute : units[current];
    if (seconds != full || values[2] >= SecondsPerMinute) {
        values[2] = seconds;
        if (current == 0) {
            values[1] = seconds / SecondsPerMinute;
            values[2] = seconds % SecondsPerMinute;
        }
    } else if (current == 0) {
        ++values[0];
    } else {
        const bool lastMinute = values[1] == SecondsPerMinute - 1;
        values[2] = 0;
        values[1] = lastMinute ? 0 : values[1] + 1;
        values[0] += lastMinute ? 1 : 0;
    }
    for (std::size_t k = 0; k < values.size(); ++k) {
        digits[k] = std::to_string(values[k]);
        if (digits[k].size() > groups[k].width) {
            return false;
        }
    }
    return true;
}

void TypedAngle::SetGroup(std::string& text, std::size_t k, bool toTheRight) const {
    const ColumnGroup& group = groups[k];
    const std::string& typed = digits[k];
    if (toTheRight) {
        text.replace(group.begin, group.width, std::string(group.width - typed.size(), '0') + typed);
    } else {
        text.replace(group.begin, typed.size(), typed);
    }
}

std::size_t TypedAngle::CursorOf() const {
    if (letterBehind || (letter != 0 && !sign && !anyDigits)) {
        return base.Mask().size();
    }
    if (!fraction.empty() || current == groups.size()) {
        return base.PlaceFrom(groups.back().begin + groups.back().width);
    }
    const ColumnGroup& group = groups[current];
    return base.PlaceFrom(group.begin + (point ? group.width : digits[current].size()));
}

std::optional<TypedView> TypedAngle::View(bool left) {
    TypedView view{.text = base.Text(), .cursor = CursorOf(), .hasDigits = anyDigits};
    view.unmistakable = separated && (!spilled || current == groups.size() ||
                                      digits[current].size() == groups[current].width);
    if (!fraction.empty() && !AddFraction()) {
        return std::nullopt;
    }
    const bool ended = left || point || letterBehind;
    for (std::size_t k = 0; k < groups.size(); ++k) {
        if (!digits[k].empty()) {
            SetGroup(view.text, k, k != current || ended);
        } else if (IsWhole()) {
            SetGroup(view.text, k, true);
        }
    }
    if (letter != 0) {
        view.text[letterPlace] = letter;
    }
    return view;
}

/// The digits of a number right-aligned in its mask.
std::string NumberToTheRight(std::string mask, std::string_view digits) {
    std::size_t next = digits.size();
    for (std::size_t column = mask.size(); column-- > 0;) {
        if (mask[column] == '%') {
            mask[column] = next > 0 ? digits[--next] : '0';
        }
    }
    return mask;
}

/// Digits over the first places from a column on; the place behind them.
std::size_t LayOver(const MaskedText& base, std::string& text, std::size_t column, std::string_view digits) {
    for (const char digit : digits) {
        column = base.PlaceFrom(column);
        text[column++] = digit;
    }
    return base.PlaceFrom(column);
}

std::optional<TypedView> TypeWholeNumber(const MaskedText& base, std::string_view keys, bool left) {
    const auto places = static_cast<std::size_t>(std::count(base.Mask().begin(), base.Mask().end(), '%'));
    std::string digits;
    std::string fraction;
    bool point = false;
    bool ended = false;
    std::size_t sinceSeparator = 0;
    TypedView view{.text = base.Text(), .unmistakable = true};
    for (const char key : keys) {
        if (IsDigit(key) && point) {
            fraction += key;
        } else if (IsDigit(key)) {
            digits += key;
            ++sinceSeparator;
        } else if (key == '.') {
            point = true;
        } else if (key != ' ' || point) {
            return std::nullopt;
        }
        if (key == ' ' || key == '.') {
            view.unmistakable = view.unmistakable && (!ended || sinceSeparator == 3);
            ended = ended || !digits.empty();
            sinceSeparator = 0;
        }
    }
    view.unmistakable = view.unmistakable && (!ended || point || sinceSeparator == 3 || sinceSeparator == 0);
    // 500.000 may be five hundred, or as many thousands.
    view.unmistakable = view.unmistakable && (digits.size() > 3 || fraction.size() != 3);
    view.hasDigits = !digits.empty() || !fraction.empty();
    if (digits.size() > places || fraction.size() > MostFractionDigits) {
        return std::nullopt;
    }
    if (!ended && !left && !point) {
        view.cursor = LayOver(base, view.text, 0, digits);
        return view;
    }
    view.cursor = base.Mask().size();
    if (view.hasDigits) {
        const std::string rounded = std::to_string(WithFraction(ValueOfDigits(digits), 1, fraction));
        if (rounded.size() > places) {
            return std::nullopt;
        }
        view.text = NumberToTheRight(base.Mask(), rounded);
    }
    return view;
}

std::optional<TypedView> TypeDecimal(const MaskedText& base, std::string_view keys, bool left) {
    const std::size_t point = base.Mask().find('.');
    const std::size_t decimals = base.Mask().size() - point - 1;
    std::string whole;
    std::string fraction;
    bool pointTyped = false;
    for (const char key : keys) {
        if (IsDigit(key)) {
            (pointTyped || whole.size() == point ? fraction : whole) += key;
        } else if (key != '.' || pointTyped || !fraction.empty()) {
            return std::nullopt;
        } else {
            pointTyped = true;
        }
    }
    if (fraction.size() > decimals) {
        return std::nullopt;
    }
    TypedView view{
        .text = base.Text(), .unmistakable = true, .hasDigits = !whole.empty() || !fraction.empty()};
    if (left && view.hasDigits) {
        view.text = MaskedText(base.Mask()).Text();
    }
    const bool wholeEnded = left || pointTyped;
    if (wholeEnded && view.hasDigits) {
        view.text.replace(0, point, NumberToTheRight(std::string(point, '%'), whole));
    }
    const std::size_t behindWhole = LayOver(base, view.text, wholeEnded ? point - whole.size() : 0, whole);
    view.cursor = LayOver(base, view.text, wholeEnded ? point + 1 : behindWhole, fraction);
    return view;
}

} // namespace

char KeyOf(const MaskedText& field, char32_t character) {
    if (character >= U'0' && character <= U'9') {
        return static_cast<char>(character);
    }
    if (character >= U'A' && character <= U'Z') {
        return static_cast<char>(character);
    }
    if (character >= U'a' && character <= U'z') {
        return static_cast<char>(character - U'a' + U'A');
    }
    const bool comma = character == U',';
    if (IsSpace(character) || IsMark(character) || comma || character == U'.') {
        if (!field.IsAngle()) {
            return IsDecimal(field) || character == U'.' ? '.' : ' ';
        }
        return comma || character == U'.' ? '.' : ' ';
    }
    if (character == U'-' || character == U'\u2212') {
        return '-';
    }
    return character == U'+' ? '+' : '\0';
}

std::optional<TypedView> TypeOver(const MaskedText& base, std::string_view keys, bool left) {
    if (!base.IsAngle() && IsDecimal(base)) {
        return TypeDecimal(base, keys, left);
    }
    const std::string plain = WithoutPartingPoints(keys);
    if (!base.IsAngle()) {
        return TypeWholeNumber(base, plain, left);
    }
    TypedAngle angle(base);
    return angle.Read(plain) ? angle.View(left) : std::nullopt;
}

} // namespace quelmont

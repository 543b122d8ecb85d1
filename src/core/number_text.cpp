#include "core/number_text.h"

#include "core/run_time_error.h"
#include "platform/characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <system_error>

namespace quelmont {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n'; }

/// A whole number that a double holds exactly, the commonest text by far: blanks, a sign, digits.
std::optional<double> ShortWholeNumber(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && IsBlank(text[i])) {
        ++i;
    }
    const bool negative = i < text.size() && text[i] == '-';
    if (negative || (i < text.size() && text[i] == '+')) {
        ++i;
    }
    std::int64_t number = 0;
    int digits = 0;
    for (; i < text.size(); ++i) {
        if (IsDigit(text[i])) {
            if (++digits > 15) {
                return std::nullopt;
            }
            number = number * 10 + (text[i] - '0');
        } else if (text[i] == '.' || text[i] == 'E' || text[i] == 'e') {
            return std::nullopt;
        } else if (!IsBlank(text[i])) {
            break;
        }
    }
    return static_cast<double>(negative ? -number : number);
}

/// The front of a text that is a decimal number, without blanks and without a plus sign.
std::string NumberAtFront(std::string_view text) {
    std::string all;
    all.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(all), [](char c) { return !IsBlank(c); });
    std::size_t i = !all.empty() && (all[0] == '-' || all[0] == '+') ? 1 : 0;
    const auto skipDigits = [&] {
        while (i < all.size() && IsDigit(all[i])) {
            ++i;
        }
    };
    skipDigits();
    if (i < all.size() && all[i] == '.') {
        ++i;
        skipDigits();
    }
    if (i < all.size() && (all[i] == 'E' || all[i] == 'e')) {
        const std::size_t mantissaEnd = i++;
        if (i < all.size() && (all[i] == '-' || all[i] == '+')) {
            ++i;
        }
        const std::size_t digits = i;
        skipDigits();
        if (i == digits) {
            i = mantissaEnd;
        }
    }
    all.resize(i);
    if (!all.empty() && all[0] == '+') {
        all.erase(0, 1);
    }
    return all;
}

/// Whether a decimal number that no double holds is too large rather than too small.
bool IsHuge(std::string_view number) {
    const std::size_t exponentAt = number.find_first_of("Ee");
    const std::string_view mantissa = number.substr(0, exponentAt);
    long exponent = 0;
    if (exponentAt != std::string_view::npos) {
        std::string_view digits = number.substr(exponentAt + 1);
        const bool negative = digits.front() == '-';
        if (negative || digits.front() == '+') {
            digits.remove_prefix(1);
        }
        if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc{}) {
            return !negative;
        }
        exponent = negative ? -exponent : exponent;
    }
    const std::size_t first = mantissa.find_first_of("123456789");
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    if (first == std::string_view::npos) {
        return false;
    }
    return exponent > static_cast<long>(first) - static_cast<long>(point);
}

/// The significant digits of a value, up to 15: d(0).d(1)d(2)... times 10 to the exponent.
struct Decimal {
    std::string digits; ///< without zeros at the end; empty for 0
    int exponent = 0;
};

template <typename Real>
Decimal ToDecimal(Real value, int significant) {
    if (!std::isfinite(value)) {
        throw RunTimeError(ErrorOverflow);
    }
    std::array<char, 40> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                      std::chars_format::scientific, significant - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
    const std::size_t exponentAt = text.find('e');
    Decimal decimal;
    for (const char c : text.substr(0, exponentAt)) {
        if (IsDigit(c)) {
            decimal.digits += c;
        }
    }
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    if (!decimal.digits.empty()) {
        const std::string_view exponent = text.substr(exponentAt + (text[exponentAt + 1] == '+' ? 2 : 1));
        std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.exponent);
    }
    return decimal;
}

/// Rounds to so many decimals, ties away from zero.
void RoundTo(Decimal& decimal, int decimals) {
    const int kept = decimal.exponent + 1 + decimals;
    if (kept < 0 || decimal.digits.empty()) {
        decimal = {};
        return;
    }
    const auto keep = static_cast<std::size_t>(kept);
    if (keep >= decimal.digits.size()) {
        return;
    }
    const bool up = decimal.digits[keep] >= '5';
    decimal.digits.resize(keep);
    if (up) {
        const std::size_t last = decimal.digits.find_last_not_of('9');
        if (last == std::string::npos) {
            decimal.digits = "1";
            ++decimal.exponent;
        } else {
            decimal.digits.resize(last + 1);
            ++decimal.digits[last];
        }
    }
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    if (decimal.digits.empty()) {
        decimal.exponent = 0;
    }
}

/// The digit that stands for 10 to a power.
char DigitAt(const Decimal& decimal, int power) {
    const int index = decimal.exponent - power;
    return index >= 0 && index < static_cast<int>(decimal.digits.size())
               ? decimal.digits[static_cast<std::size_t>(index)]
               : '0';
}

bool IsPlace(char c) { return c == '0' || c == '#'; }

/// What a picture asks for.
struct NumberPicture {
    std::string_view whole;    ///< up to the point, the exponent or the end
    std::string_view fraction; ///< between the point and the exponent or the end
    std::string_view rest;     ///< behind the exponent
    bool point = false;
    bool groups = false;
    bool exponent = false;
    bool plusSign = false;          ///< of the exponent
    std::size_t exponentPlaces = 0; ///< least digits of the exponent
};

NumberPicture ReadPicture(std::string_view text) {
    NumberPicture picture;
    for (std::size_t i = 0; i + 2 < text.size(); ++i) {
        if (text[i] == 'E' && (text[i + 1] == '+' || text[i + 1] == '-') && IsPlace(text[i + 2])) {
            picture.exponent = true;
            picture.plusSign = text[i + 1] == '+';
            std::size_t end = i + 2;
            while (end < text.size() && IsPlace(text[end])) {
                ++end;
            }
            picture.exponentPlaces = end - i - 2;
            picture.rest = text.substr(end);
            text = text.substr(0, i);
            break;
        }
    }
    const std::size_t point = text.find('.');
    picture.point = point != std::string_view::npos;
    picture.whole = text.substr(0, point);
    if (picture.point) {
        picture.fraction = text.substr(point + 1);
    }
    for (std::size_t i = 1; i + 1 < picture.whole.size(); ++i) {
        picture.groups = picture.groups || (picture.whole[i] == ',' && IsPlace(picture.whole[i - 1]) &&
                                            IsPlace(picture.whole[i + 1]));
    }
    return picture;
}

int CountPlaces(std::string_view text) {
    return static_cast<int>(std::count_if(text.begin(), text.end(), IsPlace));
}

/// Fills the part before the point, from its last place backwards; digits for which there is no
/// place stand before the first one.
std::string WholeText(const Decimal& decimal, const NumberPicture& picture) {
    std::string reversed;
    const int highest = decimal.digits.empty() ? -1 : decimal.exponent;
    const std::size_t firstPlace = picture.whole.find_first_of("0#");
    const std::size_t firstZero = picture.whole.find('0');
    int power = 0;
    const auto put = [&] {
        if (picture.groups && power > 0 && power % 3 == 0) {
            reversed += ',';
        }
        reversed += DigitAt(decimal, power);
        ++power;
    };
    for (std::size_t i = picture.whole.size(); i-- > 0;) {
        if (!IsPlace(picture.whole[i])) {
            if (picture.whole[i] != ',' || !picture.groups) {
                reversed += picture.whole[i];
            }
            continue;
        }
        if (power <= highest || i >= firstZero) {
            put();
        }
        if (i == firstPlace) {
            while (power <= highest) {
                put();
            }
        }
    }
    std::string text(reversed.rbegin(), reversed.rend());
    if (firstPlace == std::string_view::npos) {
        for (power = highest; power >= 0; --power) {
            text += DigitAt(decimal, power);
        }
    }
    return text;
}

std::string FractionText(const Decimal& decimal, const NumberPicture& picture) {
    std::string text;
    const std::size_t lastZero = picture.fraction.rfind('0');
    const int lowest =
        decimal.digits.empty() ? 0 : decimal.exponent + 1 - static_cast<int>(decimal.digits.size());
    int power = -1;
    for (std::size_t i = 0; i < picture.fraction.size(); ++i) {
        if (!IsPlace(picture.fraction[i])) {
            text += picture.fraction[i];
            continue;
        }
        if (power >= lowest || (lastZero != std::string_view::npos && i <= lastZero)) {
            text += DigitAt(decimal, power);
        }
        --power;
    }
    return text;
}

std::string ExponentText(int exponent, const NumberPicture& picture) {
    std::string digits = std::to_string(std::abs(exponent));
    if (digits.size() < picture.exponentPlaces) {
        digits.insert(0, picture.exponentPlaces - digits.size(), '0');
    }
    return "E" + std::string(exponent < 0 ? "-" : picture.plusSign ? "+" : "") + digits;
}

template <typename Real>
std::string GeneralForm(Real value, int significant) {
    const Decimal decimal = ToDecimal(value, significant);
    std::string text(1, value < 0 ? '-' : ' ');
    if (decimal.digits.empty()) {
        return " 0";
    }
    const int count = static_cast<int>(decimal.digits.size());
    const int decimals = std::max(0, count - 1 - decimal.exponent);
    if (decimal.exponent < significant && decimals <= significant) {
        for (int power = decimal.exponent; power >= 0; --power) {
            text += DigitAt(decimal, power);
        }
        if (decimals > 0) {
            text += '.';
        }
        for (int power = -1; power >= -decimals; --power) {
            text += DigitAt(decimal, power);
        }
        return text;
    }
    text += decimal.digits[0];
    if (count > 1) {
        text += '.' + decimal.digits.substr(1);
    }
    NumberPicture picture;
    picture.plusSign = true;
    picture.exponentPlaces = 2;
    return text + ExponentText(decimal.exponent, picture);
}

} // namespace

double ValueOf(std::string_view text) {
    if (const std::optional<double> whole = ShortWholeNumber(text)) {
        return *whole;
    }
    const std::string number = NumberAtFront(text);
    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range || !std::isfinite(value)) {
        if (IsHuge(number)) {
            throw RunTimeError(ErrorOverflow);
        }
        return 0.0;
    }
    return result.ec == std::errc{} ? value : 0.0;
}

std::string FormatNumber(double value, std::string_view pictureText) {
    const NumberPicture picture = ReadPicture(pictureText);
    const int decimals = CountPlaces(picture.fraction);
    Decimal decimal = ToDecimal(value, 15);
    int exponent = 0;
    if (picture.exponent && !decimal.digits.empty()) {
        // The digits are moved so that the first one fills the first place; when rounding makes one
        // more, they are moved again.
        const int whole = std::max(CountPlaces(picture.whole), 1);
        exponent = decimal.exponent - (whole - 1);
        decimal.exponent = whole - 1;
        RoundTo(decimal, decimals);
        if (decimal.exponent >= whole) {
            decimal.exponent = whole - 1;
            ++exponent;
        }
    } else {
        RoundTo(decimal, decimals);
    }
    std::string text = value < 0.0 ? "-" : "";
    text += WholeText(decimal, picture);
    if (picture.point) {
        text += '.';
        text += FractionText(decimal, picture);
    }
    if (picture.exponent) {
        text += ExponentText(exponent, picture);
        text += picture.rest;
    }
    return text;
}

void AppendFixed(std::string& text, double value, int whole, int decimals) {
    // Where the digits behind the last one are far from a tie, neither the rounding to 15 digits nor that
    // of the product can change the last one.
    constexpr double Nearness = 1e-3;
    constexpr double Most = 1e10; // 15 digits have five more
    static constexpr std::array<double, 8> PowersOfTen = {1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
    const double power = decimals < 8 ? PowersOfTen[static_cast<std::size_t>(decimals)] : 0.0;
    const double scaled = std::fabs(value) * power;
    const double below = std::floor(scaled);
    if (!(power > 0.0 && scaled < Most && std::fabs(scaled - below - 0.5) > Nearness)) {
        text += FormatNumber(value, std::string(static_cast<std::size_t>(whole), '0') + "." +
                                        std::string(static_cast<std::size_t>(decimals), '0'));
        return;
    }
    auto digits = static_cast<std::int64_t>(below) + (scaled - below > 0.5 ? 1 : 0);
    std::array<char, 32> places = {};
    auto* place = places.end();
    for (int written = 0; written < whole + decimals || digits > 0; ++written) {
        if (written == decimals) {
            *--place = '.';
        }
        *--place = static_cast<char>('0' + digits % 10);
        digits /= 10;
    }
    if (value < 0.0) {
        *--place = '-';
    }
    text.append(place, places.end());
}

std::string GeneralText(double value) { return GeneralForm(value, 15); }
std::string GeneralText(float value) { return GeneralForm(value, 7); }

std::string PlainNumber(double value) {
    const std::string text = GeneralText(value);
    return text.substr(text.find_first_not_of(' '));
}

} // namespace quelmont

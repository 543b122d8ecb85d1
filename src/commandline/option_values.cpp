#include "commandline/option_values.h"

#include "commandline/angle_value.h"
#include "core/file_names.h"
#include "core/number_text.h"
#include "core/split_text.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace quelmont {

namespace {

/// A map in less than this has no shape left, and its measures no digits.
constexpr int SmallestPicture = 16;
constexpr int LargestPicture = 32767;
constexpr std::size_t MostInterruptions = 3;

[[noreturn]] void RefuseValue(std::string_view value, const std::string& expected) {
    throw BadValue("\"" + std::string(value) + "\" is no " + expected);
}

/// A whole text as a number to a base.
template <typename Number>
std::optional<Number> WholeNumber(std::string_view text, int base = 10) {
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, number, base);
    return error == std::errc() && stopped == end ? std::optional(number) : std::nullopt;
}

} // namespace

std::vector<std::string> InterruptionsValue(std::string_view value) {
    if (Capitals(value) == "NONE") {
        return {};
    }
    std::vector<std::string> texts;
    for (const std::string_view part : SplitAtCommas(value)) {
        texts.push_back(AngleValue(AngleFieldKind::Longitude, part));
    }
    if (texts.size() > MostInterruptions) {
        RefuseValue(value, "list of at most three longitudes");
    }
    return texts;
}

std::string DigitsValue(std::string_view value, std::size_t width) {
    if (value.empty() || value.size() > width ||
        value.find_first_not_of("0123456789") != std::string_view::npos) {
        RefuseValue(value, "whole number of at most " + std::to_string(width) + " digits");
    }
    return std::string(width - value.size(), '0') + std::string(value);
}

std::string ScaleFactorValue(std::string_view value) {
    constexpr std::size_t mostDigits = 16;
    const bool plain = value.find_first_not_of("0123456789.") == std::string_view::npos &&
                       std::count(value.begin(), value.end(), '.') <= 1 && value.size() <= mostDigits;
    if (!plain || !(ValueOf(value) > 0.0)) {
        RefuseValue(value, "number above 0 such as 0.9996");
    }
    return std::string(value);
}

int NumberValue(std::string_view value, int least, int most) {
    const std::optional<int> number = WholeNumber<int>(value);
    if (!number || *number < least || *number > most) {
        RefuseValue(value, "whole number from " + std::to_string(least) + " to " + std::to_string(most));
    }
    return *number;
}

std::vector<int> NumbersValue(std::string_view value, int least, int most) {
    std::vector<int> numbers;
    for (const std::string_view part : SplitAtCommas(value)) {
        numbers.push_back(NumberValue(part, least, most));
    }
    return numbers;
}

ColorValue ColorOf(std::string_view value) {
    std::string_view digits = value;
    if (digits.starts_with('#')) {
        digits.remove_prefix(1);
    }
    const std::optional<unsigned> color = WholeNumber<unsigned>(digits, 16);
    if (digits.size() != 6 || !color) {
        RefuseValue(value, "colour such as FF8000");
    }
    return SolidColor(Rgb(*color >> 16U, *color >> 8U & 0xFFU, *color & 0xFFU));
}

SurfacePoint SizeValue(std::string_view value) {
    const std::size_t cross = std::min(value.find('x'), value.size());
    const std::optional<int> width = WholeNumber<int>(value.substr(0, cross));
    const std::optional<int> height = WholeNumber<int>(value.substr(std::min(cross + 1, value.size())));
    if (!width || !height || std::min(*width, *height) < SmallestPicture ||
        std::max(*width, *height) > LargestPicture) {
        RefuseValue(value, "size such as 1280x924, each number from " + std::to_string(SmallestPicture) +
                               " to " + std::to_string(LargestPicture));
    }
    return {*width, *height};
}

std::int16_t ProjectionValue(std::string_view value) {
    const std::optional<int> number = WholeNumber<int>(value);
    const std::string wanted = Capitals(value);
    const ProjectionEntry* match = nullptr;
    int matches = 0;
    for (const ProjectionEntry& entry : Projections) {
        const std::string known = Capitals(entry.ProjName);
        if (number == entry.ProjNum || known == wanted) {
            return entry.ProjNum;
        }
        if (known.starts_with(wanted + " ")) {
            match = &entry;
            ++matches;
        }
    }
    if (matches != 1) {
        RefuseValue(value, "projection; --help tells their numbers and names");
    }
    return match->ProjNum;
}

std::string SpheroidValue(std::string_view value) {
    const std::string wanted = Capitals(value);
    const auto* const found = std::find_if(Spheroids.begin(), Spheroids.end(), [&](const Spheroid& spheroid) {
        return Capitals(spheroid.name) == wanted;
    });
    if (found == Spheroids.end()) {
        RefuseValue(value, "spheroid; --help tells their names");
    }
    return std::string(found->name);
}

} // namespace quelmont

#pragma once

#include "core/standard_colors.h"
#include "platform/draw_surface.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// What the values of options mean. Each reader throws BadValue for what it cannot understand.

namespace quelmont {

/// The value quoted, and what was expected: "\"40Q\" is no latitude such as ...".
class BadValue : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Up to three longitudes of interruptions, separated by commas; none for "none".
std::vector<std::string> InterruptionsValue(std::string_view value);

/// A whole number of metres or kilometres, filled up with zeros to the width of its field.
std::string DigitsValue(std::string_view value, std::size_t width);

/// A scale factor above 0, as it stands.
std::string ScaleFactorValue(std::string_view value);

/// The most that a dialog lets a line or a symbol measure.
constexpr int LargestPixels = 600;

/// Points that a font may have.
constexpr int SmallestFontSize = 4;
constexpr int LargestFontSize = 200;

int NumberValue(std::string_view value, int least, int most);
/// Whole numbers from least to most, separated by commas.
std::vector<int> NumbersValue(std::string_view value, int least, int most);

/// Six hexadecimal digits, red first, perhaps behind "#", as a stored design colour.
ColorValue ColorOf(std::string_view value);

/// Width and height in pixels, "1280x924", each from 2 to 32767.
SurfacePoint SizeValue(std::string_view value);

/// ProjNum by the number itself, the report name in any case, or the words at the front of a report
/// name when no other name begins with them.
std::int16_t ProjectionValue(std::string_view value);

/// The name of a spheroid, from the name in any case.
std::string SpheroidValue(std::string_view value);

} // namespace quelmont

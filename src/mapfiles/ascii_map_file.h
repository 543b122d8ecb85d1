#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// ASCII map files (.prn, .utm and every other ending): a point a line, as three numbers between
/// commas, blanks or line ends, and a label in double quotes if the point has a name.

namespace quelmont {

struct AsciiMapPoint {
    std::int32_t Break = 0;    ///< not 0: begins a line of points
    double Second = 0.0;       ///< .prn: latitude, degrees; .utm: easting, metres
    double Third = 0.0;        ///< .prn: longitude, degrees; .utm: northing, metres
    std::string_view Label;    ///< bytes as they stand in the file
    bool BreakRounded = false; ///< the first number was not whole
    bool operator==(const AsciiMapPoint&) const = default;
};

/// Takes the next point off the front of a text; the label lies in that text. A text that is no
/// number is 0. The text must not begin with blank lines, of which any number may stand between
/// points. RunTimeError "Input past end of file" when the text ends within the three numbers,
/// "Invalid procedure call or argument" for a label without a closing quote, "Overflow" for a number
/// that is too large.
AsciiMapPoint TakeAsciiMapPoint(std::string_view& text);

/// The line of a point, with its end. The label is UTF-8, and written as such; double quotes in it
/// become single ones, line ends blanks. Decimals: 6 are a tenth of a metre in degrees.
/// RunTimeError "Overflow" for what is not finite.
std::string EncodeAsciiMapPoint(const AsciiMapPoint& point, int decimals);

} // namespace quelmont

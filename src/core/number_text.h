#pragma once

#include <string>
#include <string_view>

/// Numbers as text, the same under every locale.

namespace quelmont {

/// The number at the front of a text: blanks are passed over anywhere in it, reading stops at the
/// first character that cannot belong to a decimal number ("12 34x" is 1234, "1.5E3" 1500, "&" 0).
/// A text without a number at its front is 0. RunTimeError "Overflow" when it is too large.
double ValueOf(std::string_view text);

/// A number in a picture: "0" a digit that always stands, "#" one that stands when it means
/// something, "." the point, "," between digits groups of thousands, "E+00" an exponent, any other
/// character itself. Ties are rounded away from zero on the decimal digits of the value. A negative
/// value has a leading minus sign, also when the picture rounds it to zero.
std::string FormatNumber(double value, std::string_view picture);

/// The general form: up to 15 significant digits, without a needless zero before the point, with a
/// leading blank instead of a plus sign: " 1.5", "-.25", " 1E+20".
std::string GeneralText(double value);
/// The same with the seven digits of a single-precision number.
std::string GeneralText(float value);

} // namespace quelmont

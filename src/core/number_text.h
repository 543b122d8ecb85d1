#pragma once

#include <string>
#include <string_view>

/// Numbers as text, the same under every locale.

namespace quelmont {

/// The number at the front of a text: blanks are passed over anywhere in it, reading stops at the
/// first character that cannot belong to a decimal number ("12 34x" is 1234, "1.5E3" 1500, "1E" 1,
/// "&" 0).
/// A text without a number at its front is 0. RunTimeError "Overflow" when it is too large.
double ValueOf(std::string_view text);

/// A number in a picture, the pattern of its text: "0" a digit that always stands, "#" one that stands when
/// it means something, "." the point, "," between digits groups of thousands, "E+00" an exponent, any other
/// character itself. Digits for which there is no place stand before the first one. The value is
/// taken to 15 significant digits, and these are rounded, ties away from zero: 2.675 in "0.00" is
/// 2.68. A negative value has a minus sign before everything else, also when the picture rounds it
/// to zero. RunTimeError "Overflow" for what is not finite.
std::string FormatNumber(double value, std::string_view picture);

/// Appends a number as FormatNumber writes it in a picture of so many zeros before the point and behind
/// it ("00.0000000" is 2 and 7), for files of many numbers.
void AppendFixed(std::string& text, double value, int whole, int decimals);

/// The general form: up to 15 significant digits, without a needless zero before the point, with a
/// leading blank instead of a plus sign: " 1.5", "-.25". With an exponent from 1E+15 on, and where a
/// small value needs more than 15 decimals: " 1E+20", " 3.33333333333333E-04". RunTimeError
/// "Overflow" for what is not finite.
std::string GeneralText(double value);
/// The same with the seven digits of a single-precision number.
std::string GeneralText(float value);
/// The general form of a double without the leading blank.
std::string PlainNumber(double value);

} // namespace quelmont

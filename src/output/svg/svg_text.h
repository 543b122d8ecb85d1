#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quelmont {

/// A text as the contents or an attribute in double quotes of an XML element (XML 1.0, 2.2 and 2.4): markup
/// stands as references, and what no document may hold, control characters included, is a blank. Bytes that
/// are no UTF-8 are taken for Windows-1252.
std::string XmlText(std::string_view text);

/// The value of font-family for a font: its name as a quoted string of CSS, and behind it the generic family
/// that is most like it, for readers who do not have it. To be written through XmlText.
std::string FontFamily(std::string_view name);

/// Appends hundredths as a decimal number without needless zeros: 1250 is "12.5", -5 is "-0.05".
void AppendHundredths(std::string& text, std::int32_t hundredths);

/// A number rounded to hundredths and written so. RunTimeError "Overflow" for what 32 bits do not hold.
std::string HundredthsText(double value);

} // namespace quelmont

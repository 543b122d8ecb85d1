#pragma once

#include <string>
#include <string_view>

/// Texts are UTF-8 inside the program; map files and exchange formats may hold Windows-1252.

namespace quelmont {

/// Whether bytes are UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool IsUtf8(std::string_view bytes);

/// A text of a file as UTF-8. What is valid UTF-8 already stays as it is, anything else is taken for
/// Windows-1252; its five bytes without a character become the control characters of their number.
std::string ToUtf8(std::string_view bytes);

/// A text of a file on one line: as ToUtf8, with a blank for each control character and for U+FFFE and
/// U+FFFF, which no document may hold.
std::string TextOnOneLine(std::string_view bytes);

/// The characters of a text; what is no UTF-8 is taken for Windows-1252.
std::u32string Characters(std::string_view text);

/// A text as Windows-1252, with "?" for a character that it lacks.
std::string ToWindows1252(std::string_view text);

} // namespace quelmont

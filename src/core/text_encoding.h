#pragma once

#include <string>
#include <string_view>

/// Texts are UTF-8 inside the program; files of old have Windows-1252.

namespace quelmont {

/// Whether bytes are UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool IsUtf8(std::string_view bytes);

/// A text of a file as UTF-8. What is valid UTF-8 already stays as it is, anything else is taken for
/// Windows-1252; its five bytes without a character become the control characters of their number.
std::string ToUtf8(std::string_view bytes);

} // namespace quelmont

#pragma once

namespace quelmont {

/// Classes of ASCII characters, whatever the locale is.
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

/// A letter a to z in capitals; any other character as it is.
constexpr char Capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

} // namespace quelmont

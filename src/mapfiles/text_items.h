#pragma once

#include "core/number_text.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

/// The front of a text that is read item by item.

namespace quelmont {

/// Whether a character ends a number: a blank, a tab, a comma or a line end.
constexpr bool IsDelimiter(char c) { return c == ' ' || c == '\t' || c == ',' || c == '\r' || c == '\n'; }

/// Takes blanks and tabs off the front of a text.
inline void TakeBlanks(std::string_view& text) {
    std::size_t blanks = 0;
    while (blanks < text.size() && (text[blanks] == ' ' || text[blanks] == '\t')) {
        ++blanks;
    }
    text.remove_prefix(blanks);
}

/// Takes a line end off the front of a text, if there is one: a carriage return, a line feed, or both
/// in this order.
inline void TakeLineEnd(std::string_view& text) {
    if (!text.empty() && text.front() == '\r') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '\n') {
            text.remove_prefix(1);
        }
    } else if (!text.empty() && text.front() == '\n') {
        text.remove_prefix(1);
    }
}

/// Whether a character stands for nothing between the lines of a text: a blank, a tab, a line end, and the
/// mark by which programs of DOS end one.
constexpr bool IsFilling(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\x1A'; }

/// Takes filling off the front of a text.
inline void TakeBlankLines(std::string_view& text) {
    std::size_t filling = 0;
    while (filling < text.size() && IsFilling(text[filling])) {
        ++filling;
    }
    text.remove_prefix(filling);
}

/// The number at the front of a text, 0 for a text without one. Behind its first digit it ends at a blank, a
/// tab or a comma: what follows in a map file is another column, not the rest of the number. RunTimeError
/// "Overflow" when it is too large.
inline double MapNumberOf(std::string_view text) {
    const std::size_t digit = std::min(text.find_first_of("0123456789"), text.size());
    return ValueOf(text.substr(0, text.find_first_of(" \t,", digit)));
}

} // namespace quelmont

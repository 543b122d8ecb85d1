#pragma once

#include "core/number_text.h"

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

/// Printing to the output file in fixed text conventions: a number with a leading
/// blank or a minus sign and with a trailing blank, a flag as the number -1 or 0, a text as it
/// stands, items one behind the other, lines ended by carriage return and line feed.

namespace quelmont {

/// An item that moves to the next print zone; zones begin at every fourteenth column.
struct NextZone {};

template <typename Text>
requires std::convertible_to<const Text&, std::string_view>
void AddItem(std::string& line, const Text& text) { line += std::string_view(text); }
inline void AddItem(std::string& line, double number) { line += GeneralText(number) + ' '; }
inline void AddItem(std::string& line, float number) { line += GeneralText(number) + ' '; }
void AddItem(std::string& line, std::int32_t number);
inline void AddItem(std::string& line, std::int16_t number) { AddItem(line, std::int32_t{number}); }
inline void AddItem(std::string& line, bool flag) { AddItem(line, std::int32_t{flag ? -1 : 0}); }
void AddItem(std::string& line, NextZone zone);

/// Writes a text to the output file as it stands. RunTimeError as WriteFile.
void WriteText(std::string_view text);

/// Prints items and leaves the line open; what comes next goes on behind them. A zone counts from
/// the first of these items.
template <typename... Items>
void Print(const Items&... items) {
    std::string line;
    (AddItem(line, items), ...);
    WriteText(line);
}

/// Prints items, perhaps none, and ends the line.
template <typename... Items>
void PrintLine(const Items&... items) {
    Print(items..., "\r\n");
}

} // namespace quelmont

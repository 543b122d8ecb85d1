#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// How values stand in the lines of a map design file, and how they are found there again.
///
/// Print form: a blank or a minus sign, digits, a blank (" 15 "). Spaced form: a blank or a minus sign and
/// up to fifteen significant digits, seven of a single-precision number, with a zero before the point
/// (" 0.5"); from 1E+15 (1E+07) on and below 0.0001 with an exponent.

namespace quelmont {

/// What stands between the numbers of a spaced line.
constexpr std::string_view SpacedGap = "     ";

/// A number in spaced form. RunTimeError "Overflow" for what is not finite.
std::string SpacedText(double value);
std::string SpacedText(float value);
std::string SpacedText(std::int32_t value);

/// Whether a text can stand in a line and be read again: without a line end, NUL and the end-of-file
/// character Ctrl-Z.
bool FitsLine(std::string_view text);

/// A text between double quotes; those inside it stay as they are.
std::string Quoted(std::string_view text);
/// The text between the first and the last character of a line, if these are quotes. RunTimeError "Type
/// mismatch" for any other line.
std::string_view Unquoted(std::string_view line);

/// A text without the blanks and tabs at its ends.
std::string_view Trimmed(std::string_view text);

/// So many parts of a line between runs of blanks, commas and tabs, none of them empty; what is surplus is
/// dropped. RunTimeError "Input past end of file" when there are fewer.
std::vector<std::string_view> NumberItems(std::string_view line, std::size_t count);

/// So many items of a comma list, trimmed. Counted from the left, what is surplus is dropped; counted from
/// the right, the first item holds the commas that are too many. RunTimeError "Input past end of file"
/// when there are fewer.
std::vector<std::string_view> ItemsFromLeft(std::string_view line, std::size_t count);
std::vector<std::string_view> ItemsFromRight(std::string_view line, std::size_t count);

/// A decimal number that is the whole of a text, perhaps with an exponent: "15", "-.5", "+2E-05".
/// RunTimeError "Type mismatch" for any other text, "Overflow" beyond the range of doubles.
double NumberOf(std::string_view text);

/// The lines of a file one after the other, whatever ends them: carriage return, line feed, or both. The
/// text has to live as long.
class LineReader {
public:
    explicit LineReader(std::string_view text_) : rest(text_) {}
    /// RunTimeError "Input past end of file" when there is none.
    std::string_view Next();
    /// Whether so many lines are left. Takes as long as they have characters.
    bool HasLeft(std::int64_t count) const;

private:
    std::string_view rest;
};

} // namespace quelmont

#pragma once

#include "core/standard_colors.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quelmont {

/// Elements of a binary Computer Graphics Metafile (ISO/IEC 8632-3) on their way to the file: words of
/// sixteen bits, high byte first, and strings behind their length byte.
///
/// An element begins with a header word: class in bits 15 to 12, id in bits 11 to 5, bytes of the
/// parameters in bits 4 to 0, where 31 means that a word with their number follows.
class CgmWords {
public:
    CgmWords() = default;
    /// An element in the short form. RunTimeError as Word.
    CgmWords(std::uint16_t header, std::initializer_list<int> parameters) {
        Bits(header);
        for (const int parameter : parameters) {
            Word(parameter);
        }
    }

    /// A number in two's complement. RunTimeError "Overflow" beyond sixteen bits.
    CgmWords& Word(int number);
    /// A word as it stands.
    CgmWords& Bits(std::uint16_t word);
    /// Red, green and blue, 0 to 255, a word each.
    CgmWords& Color(ColorValue color);
    /// Characters of a string, at most 255.
    CgmWords& String(std::string_view characters);
    /// What follows in the same element, or the next one.
    CgmWords& Append(const CgmWords& more);
    /// A zero byte where the next element would begin on an odd offset.
    CgmWords& PadToEven();

    std::string_view Bytes() const { return bytes; }

private:
    std::string bytes;
};

} // namespace quelmont

#include "output/cgm/cgm_words.h"

#include "core/rounding.h"

namespace quelmont {

CgmWords& CgmWords::Word(int number) { return Bits(static_cast<std::uint16_t>(RoundToInt16(number))); }

CgmWords& CgmWords::Bits(std::uint16_t word) {
    bytes += static_cast<char>(word >> 8U);
    bytes += static_cast<char>(word & 0xFFU);
    return *this;
}

CgmWords& CgmWords::Color(ColorValue color) {
    const ColorValue bits = ColorBits(color);
    Bits(static_cast<std::uint16_t>(bits & 0xFFU));
    Bits(static_cast<std::uint16_t>(bits >> 8U & 0xFFU));
    return Bits(static_cast<std::uint16_t>(bits >> 16U));
}

CgmWords& CgmWords::String(std::string_view characters) {
    bytes += static_cast<char>(characters.size());
    bytes += characters;
    return *this;
}

CgmWords& CgmWords::Append(const CgmWords& more) {
    bytes += more.bytes;
    return *this;
}

CgmWords& CgmWords::PadToEven() {
    if (bytes.size() % 2 != 0) {
        bytes += '\0';
    }
    return *this;
}

} // namespace quelmont

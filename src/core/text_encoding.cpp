#include "core/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quelmont {

namespace {

// clang-format off
/// Windows-1252, 0x80 to 0x9F; the rest is as in Unicode.
constexpr std::array<char16_t, 32> Windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98
};
// clang-format on

unsigned Byte(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
}

/// Bytes of the character at a place, 0 when it is none. Unicode standard, table 3-7.
std::size_t Utf8Length(std::string_view bytes, std::size_t at) {
    const auto between = [&](std::size_t offset, unsigned low, unsigned high) {
        const unsigned byte = Byte(bytes, at + offset);
        return low <= byte && byte <= high;
    };
    const auto follows = [&](std::size_t offset) { return between(offset, 0x80, 0xBF); };
    const unsigned lead = Byte(bytes, at);
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xE0) {
        return lead >= 0xC2 && follows(1) ? 2 : 0;
    }
    if (lead < 0xF0) {
        const bool second = between(1, lead == 0xE0 ? 0xA0 : 0x80, lead == 0xED ? 0x9F : 0xBF);
        return second && follows(2) ? 3 : 0;
    }
    const bool second = between(1, lead == 0xF0 ? 0x90 : 0x80, lead == 0xF4 ? 0x8F : 0xBF);
    return lead <= 0xF4 && second && follows(2) && follows(3) ? 4 : 0;
}

void Append(std::string& text, unsigned character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0U | character >> 6U);
        text += static_cast<char>(0x80U | (character & 0x3FU));
    } else {
        text += static_cast<char>(0xE0U | character >> 12U);
        text += static_cast<char>(0x80U | (character >> 6U & 0x3FU));
        text += static_cast<char>(0x80U | (character & 0x3FU));
    }
}

/// Bytes from a place on that are a control character, or no character at all; 0 when they are neither.
std::size_t UnwantedLength(std::string_view utf8, std::size_t at) {
    const unsigned lead = Byte(utf8, at);
    if (lead < 0x20 || lead == 0x7F) {
        return 1;
    }
    if (lead == 0xC2 && Byte(utf8, at + 1) < 0xA0) {
        return 2; // U+0080 to U+009F
    }
    const bool noCharacter = lead == 0xEF && Byte(utf8, at + 1) == 0xBF && Byte(utf8, at + 2) >= 0xBE;
    return noCharacter ? 3 : 0;
}

} // namespace

bool IsUtf8(std::string_view bytes) {
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::size_t length = Utf8Length(bytes, at);
        if (length == 0) {
            return false;
        }
        at += length;
    }
    return true;
}

std::string ToUtf8(std::string_view bytes) {
    if (IsUtf8(bytes)) {
        return std::string(bytes);
    }
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const unsigned byte = Byte(bytes, at);
        Append(text, byte >= 0x80 && byte < 0xA0 ? Windows1252[byte - 0x80] : byte);
    }
    return text;
}

std::string TextOnOneLine(std::string_view bytes) {
    const std::string utf8 = ToUtf8(bytes);
    std::string text;
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        const std::size_t unwanted = UnwantedLength(utf8, at);
        text += unwanted > 0 ? ' ' : utf8[at];
        at += unwanted > 0 ? unwanted - 1 : 0;
    }
    return text;
}

std::u32string Characters(std::string_view text) {
    const std::string utf8 = ToUtf8(text);
    std::u32string characters;
    std::size_t at = 0;
    while (at < utf8.size()) {
        const std::size_t length = Utf8Length(utf8, at);
        const unsigned lead = Byte(utf8, at);
        char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
        for (std::size_t k = 1; k < length; ++k) {
            character = character << 6U | (Byte(utf8, at + k) & 0x3FU);
        }
        characters += character;
        at += length;
    }
    return characters;
}

std::string ToWindows1252(std::string_view text) {
    std::string bytes;
    for (const char32_t character : Characters(text)) {
        const auto* const found = std::find(Windows1252.begin(), Windows1252.end(), character);
        if (found != Windows1252.end()) {
            bytes += static_cast<char>(0x80 + (found - Windows1252.begin()));
        } else if (character < 0x80 || (character >= 0xA0 && character < 0x100)) {
            bytes += static_cast<char>(character);
        } else {
            bytes += '?';
        }
    }
    return bytes;
}

} // namespace quelmont

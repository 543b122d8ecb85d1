#include "output/svg/svg_text.h"

#include "core/file_names.h"
#include "core/rounding.h"
#include "core/text_encoding.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quelmont {

namespace {

/// Bytes from a place on that are a character which XML does not allow, or a control character; 0 when it is
/// neither.
std::size_t UnwantedLength(std::string_view utf8, std::size_t at) {
    const auto byte = [&](std::size_t offset) {
        return at + offset < utf8.size() ? static_cast<unsigned char>(utf8[at + offset]) : 0U;
    };
    if (byte(0) < 0x20 || byte(0) == 0x7F) {
        return 1;
    }
    if (byte(0) == 0xC2 && byte(1) < 0xA0) {
        return 2; // U+0080 to U+009F
    }
    const bool noCharacter = byte(0) == 0xEF && byte(1) == 0xBF && byte(2) >= 0xBE;
    return noCharacter ? 3 : 0; // U+FFFE, U+FFFF
}

} // namespace

std::string XmlText(std::string_view text) {
    const std::string utf8 = ToUtf8(text);
    std::string escaped;
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        if (const std::size_t unwanted = UnwantedLength(utf8, at); unwanted > 0) {
            escaped += ' ';
            at += unwanted - 1;
            continue;
        }
        switch (utf8[at]) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += utf8[at];
        }
    }
    return escaped;
}

std::string FontFamily(std::string_view name) {
    std::string family = "'";
    for (const char letter : name) {
        if (letter == '\'' || letter == '\\') {
            family += '\\';
        }
        family += letter;
    }
    const std::string capitals = Capitals(name);
    const auto has = [&](std::string_view part) { return capitals.find(part) != std::string::npos; };
    if (has("COURIER") || has("MONO") || has("CONSOLAS")) {
        return family + "', monospace";
    }
    const bool serifs =
        has("TIMES") || has("ROMAN") || has("GEORGIA") || has("GARAMOND") || (has("SERIF") && !has("SANS"));
    return family + (serifs ? "', serif" : "', sans-serif");
}

void AppendHundredths(std::string& text, std::int32_t hundredths) {
    std::int64_t left = hundredths;
    if (left < 0) {
        text += '-';
        left = -left;
    }
    std::array<char, 16> digits = {};
    text.append(digits.data(), std::to_chars(digits.begin(), digits.end(), left / 100).ptr);
    const auto behind = static_cast<int>(left % 100);
    if (behind > 0) {
        text += '.';
        text += static_cast<char>('0' + behind / 10);
        if (behind % 10 > 0) {
            text += static_cast<char>('0' + behind % 10);
        }
    }
}

std::string HundredthsText(double value) {
    std::string text;
    AppendHundredths(text, RoundToInt32(value * 100.0));
    return text;
}

} // namespace quelmont

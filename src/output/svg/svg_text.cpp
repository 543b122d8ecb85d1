#include "output/svg/svg_text.h"

#include "core/file_names.h"
#include "core/rounding.h"
#include "core/text_encoding.h"

#include <array>
#include <charconv>

namespace quelmont {

std::string XmlText(std::string_view text) {
    std::string escaped;
    for (const char letter : TextOnOneLine(text)) {
        switch (letter) {
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
            escaped += letter;
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

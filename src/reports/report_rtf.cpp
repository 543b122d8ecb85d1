#include "reports/report_rtf.h"

#include "core/color_table.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "core/text_encoding.h"
#include "reports/report_page.h"

#include <algorithm>
#include <string_view>

namespace quelmont {

namespace {

/// Twips: 22 inches, where the paper of word processors ends.
constexpr std::int32_t FarthestTabStop = 31680;

constexpr std::string_view HexDigits = "0123456789abcdef";

std::string Word(const char* word, std::int32_t number) { return "\\" + (word + std::to_string(number)); }

/// A unit of UTF-16, which RTF writes as a signed number, and a character for readers that know none.
std::string UnicodeUnit(std::uint32_t unit) {
    constexpr std::int32_t units = 0x10000;
    const auto number = static_cast<std::int32_t>(unit);
    return Word("u", number < units / 2 ? number : number - units) + "?";
}

std::string BeyondWindows1252(char32_t character) {
    if (character < 0x10000) {
        return UnicodeUnit(character);
    }
    const std::uint32_t rest = character - 0x10000;
    return UnicodeUnit(0xD800 + (rest >> 10U)) + UnicodeUnit(0xDC00 + (rest & 0x3FFU));
}

std::string Escaped(std::string_view text) {
    const std::u32string characters = Characters(text);
    const std::string bytes = ToWindows1252(text); // one for each character
    std::string escaped;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte == '?' && characters[i] != U'?') {
            escaped += BeyondWindows1252(characters[i]);
        } else if (byte == '\\' || byte == '{' || byte == '}') {
            escaped += {'\\', bytes[i]};
        } else if (byte < 0x80) {
            escaped += bytes[i];
        } else {
            escaped += {'\\', '\'', HexDigits[byte >> 4U], HexDigits[byte & 0xFU]};
        }
    }
    return escaped;
}

/// The name of a font as the font table takes it, where ";" ends it.
std::string FontName(std::string_view name) {
    std::string kept;
    for (const char c : name) {
        if (c != ';') {
            kept += c;
        }
    }
    return Escaped(kept);
}

std::string Header(const TextLook& font) {
    const ColorValue color = ColorBits(font.FontColour);
    const auto part = [&](unsigned shift) { return static_cast<std::int32_t>(color >> shift & 0xFFU); };
    const auto margin = [](const char* word, float length) {
        return Word(word, RoundToInt32(static_cast<double>(length) * Design.PrintUnitTwips));
    };
    return R"({\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil )" + FontName(font.FontName) +
           ";}}\r\n{\\colortbl ;" + Word("red", part(0)) + Word("green", part(8)) + Word("blue", part(16)) +
           ";}\r\n" + margin("margl", Design.ReportLeft) + margin("margr", Design.ReportRight) +
           margin("margt", Design.ReportTop) + margin("margb", Design.ReportBottom) + "\r\n" +
           Word("pard\\plain\\f", 0) + Word("fs", font.FontSize * 2) + (font.FontBold ? "\\b" : "") +
           (font.FontItalic ? "\\i" : "") + (font.FontUnderline ? "\\ul" : "") +
           (font.FontStrikeout ? "\\strike" : "") + "\\cf1\r\n";
}

} // namespace

std::string RichText(const Report& report) {
    std::string text = Header(Design.Fonts[ReportFontSlot]);
    std::vector<std::int32_t> stops;
    for (const PageLine& line : LayOutReport(report)) {
        if (line.stops != stops) {
            stops = line.stops;
            text += "\\pard";
            for (const std::int32_t stop : stops) {
                text += Word("tx", std::min(stop, FarthestTabStop));
            }
            text += "\r\n";
        }
        for (std::size_t i = 0; i < line.cells.size(); ++i) {
            text += (i == 0 ? "" : "\\tab ") + Escaped(line.cells[i]);
        }
        text += "\\par\r\n";
    }
    return text + "}\r\n";
}

} // namespace quelmont

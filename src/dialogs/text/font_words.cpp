#include "dialogs/text/font_words.h"

namespace quelmont {

std::string CurrentFontSentence(const TextLook& look) {
    return "Current Font is " + look.FontName + " " + std::to_string(look.FontSize) + " point .";
}

SampleLetters LettersOf(const TextLook& look, std::uint32_t ground) {
    return {.fontName = look.FontName,
            .points = look.FontSize,
            .bold = look.FontBold,
            .italic = look.FontItalic,
            .underline = look.FontUnderline,
            .strikeout = look.FontStrikeout,
            .color = ColorBits(look.FontColour),
            .background = ground};
}

std::string FontStyleSentence(const TextLook& look) {
    std::string style;
    if (look.FontBold) {
        style += " Bold";
    }
    if (look.FontItalic) {
        style += " Italic";
    }
    if (style.empty()) {
        style = " Regular";
    }
    if (look.FontUnderline) {
        style += " Underline";
    }
    if (look.FontStrikeout) {
        style += " Strikeout";
    }
    return "Font style is" + style + ".";
}

} // namespace quelmont

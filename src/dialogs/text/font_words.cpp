#include "dialogs/text/font_words.h"

namespace quelmont {

std::string CurrentFontSentence(const TextLook& look) {
    return "Current Font is " + look.FontName + " " + std::to_string(look.FontSize) + " point .";
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

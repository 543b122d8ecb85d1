#include "commandline/text_options.h"

#include "commandline/option_values.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "output/print_text.h"
#include "platform/machine.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

constexpr double MostPixels = 100000.0;
constexpr double MostPercent = 1000.0;
constexpr int LargestRotation = 359;

std::optional<TextCoordinate> CoordinateValue(std::string_view text) {
    TextCoordinate coordinate;
    if (text.ends_with('%')) {
        coordinate.isPercent = true;
        text.remove_suffix(1);
    }
    std::string_view digits = text;
    if (digits.starts_with('-') || digits.starts_with('+')) {
        digits.remove_prefix(1);
    }
    constexpr std::size_t mostCharacters = 16;
    const bool plain = digits.find_first_not_of("0123456789.") == std::string_view::npos &&
                       digits.find_first_of("0123456789") != std::string_view::npos &&
                       std::count(digits.begin(), digits.end(), '.') <= 1 && digits.size() <= mostCharacters;
    coordinate.value = ValueOf(digits) * (text.starts_with('-') ? -1.0 : 1.0);
    if (!plain || std::fabs(coordinate.value) > (coordinate.isPercent ? MostPercent : MostPixels)) {
        return std::nullopt;
    }
    return coordinate;
}

/// The text that an option behind it belongs to.
PlacedTextOptions& TextBefore(std::vector<PlacedTextOptions>& texts, const std::string& name) {
    if (texts.empty()) {
        throw CLI::ValidationError(name, "no --text stands before it");
    }
    return texts.back();
}

std::int32_t Twips(const TextCoordinate& coordinate, double areaTwips, double twipsPerPixel) {
    constexpr double whole = 100.0;
    return RoundToInt32(coordinate.isPercent ? coordinate.value * areaTwips / whole
                                             : coordinate.value * twipsPerPixel);
}

void TakeInHand(const PlacedTextOptions& text) {
    const MainWindow& window = *Machine().window;
    TextLook look = Design.Fonts[TextFontSlot];
    look.FontName = text.font.value_or(look.FontName);
    look.FontSize = text.size.value_or(look.FontSize);
    look.FontColour = text.color.value_or(look.FontColour);
    look.FontBold = look.FontBold || text.bold;
    look.FontItalic = look.FontItalic || text.italic;
    look.FontUnderline = look.FontUnderline || text.underline;
    look.FontStrikeout = look.FontStrikeout || text.strikeout;
    Design.CurrentLook = look;
    Design.CurrentText = text.text;
    Design.CurrentTextAngle = std::to_string(text.rotation);
    Design.CurrentX = Twips(text.at->x, window.ScaleWidth(), Design.TwipsPerPixelX);
    Design.CurrentY = Twips(text.at->y, window.ScaleHeight(), Design.TwipsPerPixelY);
}

} // namespace

TextAnchor AnchorValue(std::string_view value) {
    const std::size_t comma = std::min(value.find(','), value.size());
    const std::optional<TextCoordinate> x = CoordinateValue(value.substr(0, comma));
    const std::optional<TextCoordinate> y = CoordinateValue(value.substr(std::min(comma + 1, value.size())));
    if (!x || !y) {
        throw BadValue("\"" + std::string(value) + "\" is no place such as 100,50 or 10%,5%");
    }
    return {*x, *y};
}

void AddTextOptions(CLI::App& app, const std::string& group, const AddOption& add,
                    std::vector<PlacedTextOptions>& texts) {
    const auto addOfText = [&](const std::string& name, const char* type, const char* description,
                               auto take) {
        add(name, type, description, [&texts, name, take](const std::string& value) {
            take(TextBefore(texts, name), value);
        })->trigger_on_parse();
    };
    const auto addStyle = [&](const std::string& name, const char* description,
                              bool PlacedTextOptions::*style) {
        app.add_flag_callback(
               name, [&texts, name, style] { TextBefore(texts, name).*style = true; }, description)
            ->trigger_on_parse()
            ->disable_flag_override()
            ->group(group);
    };
    add("--text", "STRING", "A text on the map", [&texts](const std::string& value) {
        texts.emplace_back().text = value;
    })->trigger_on_parse();
    addOfText("--at", "X,Y",
              "Where its baseline begins: pixels from the upper left corner,\n"
              "or shares of the picture such as 10%,5%",
              [](PlacedTextOptions& text, const std::string& value) { text.at = AnchorValue(value); });
    addOfText("--font", "NAME", "Its font (Arial)", [](PlacedTextOptions& text, const std::string& value) {
        if (value.empty()) {
            throw BadValue("\"\" is no font");
        }
        text.font = value;
    });
    addOfText("--text-size", "4..200", "Its size in points (10)",
              [](PlacedTextOptions& text, const std::string& value) {
                  text.size = NumberValue(value, SmallestFontSize, LargestFontSize);
              });
    addOfText("--text-color", "RRGGBB", "Its colour (000000)",
              [](PlacedTextOptions& text, const std::string& value) { text.color = ColorOf(value); });
    addStyle("--bold", "Bold", &PlacedTextOptions::bold);
    addStyle("--italic", "Italic", &PlacedTextOptions::italic);
    addStyle("--underline", "With a line under it", &PlacedTextOptions::underline);
    addStyle("--strikeout", "With a line through it", &PlacedTextOptions::strikeout);
    addOfText("--rotate", "0..359", "Turned by so many degrees, counter-clockwise (0)",
              [](PlacedTextOptions& text, const std::string& value) {
                  text.rotation = NumberValue(value, 0, LargestRotation);
              });
}

std::string FaultOf(const std::vector<PlacedTextOptions>& texts) {
    const auto lost =
        std::find_if(texts.begin(), texts.end(), [](const PlacedTextOptions& text) { return !text.at; });
    return lost == texts.end() ? "" : "--text: \"" + lost->text + "\" has no --at";
}

void PlaceTexts(const std::vector<PlacedTextOptions>& texts) {
    for (const PlacedTextOptions& text : texts) {
        if (!text.text.empty()) {
            TakeInHand(text);
            Design.TextItems.push_back(TextInHandAsItem("TextDone"));
        }
    }
    Design.CurrentText.clear();
}

} // namespace quelmont

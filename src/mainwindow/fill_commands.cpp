#include "mainwindow/fill_commands.h"

#include "core/color_table.h"
#include "core/map_design.h"
#include "dialogs/look/fill_land_and_water.h"
#include "platform/machine.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <system_error>

namespace quelmont {

namespace {

constexpr std::string_view NoColor = "none";

std::string ColorText(const std::optional<ColorValue>& color) {
    return color ? ColorDigits(*color) : std::string(NoColor);
}

/// False for a text that is neither a colour nor none.
bool TakeColor(std::string_view text, std::optional<ColorValue>& color) {
    if (text == NoColor) {
        color.reset();
        return true;
    }
    std::uint32_t digits = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), digits, 16);
    if (failure != std::errc() || end != text.data() + text.size() || text.size() != 6) {
        return false;
    }
    color = SolidColor(FromRedGreenBlue(digits));
    return true;
}

/// Takes what stands before the next comma off the front.
std::string_view TakePiece(std::string_view& text) {
    const std::string_view piece = text.substr(0, text.find(','));
    text.remove_prefix(std::min(text.size(), piece.size() + 1));
    return piece;
}

} // namespace

void ChooseFills(int /*index*/) {
    FillLandAndWater dialog;
    Machine().forms->Show(dialog);
}

std::string FillText() {
    return ColorText(Design.Fill.land) + "," + ColorText(Design.Fill.lakes) + "," +
           ColorText(Design.Fill.sea);
}

void TakeFill(std::string_view text) {
    FillChoice fill;
    if (TakeColor(TakePiece(text), fill.land) && TakeColor(TakePiece(text), fill.lakes) &&
        TakeColor(text, fill.sea)) {
        Design.Fill = fill;
    }
}

} // namespace quelmont

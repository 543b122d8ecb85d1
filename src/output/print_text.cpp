#include "output/print_text.h"

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "output/export_file.h"
#include "output/output_state.h"
#include "output/page_scale.h"
#include "platform/machine.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace quelmont {

namespace {

/// Negative: height of characters, not of their cells.
constexpr double TwipsPerPoint = -20.0;
constexpr double TenthsPerDegree = 10.0;

constexpr std::int32_t WeightNormal = 400;
constexpr std::int32_t WeightBold = 700;
constexpr std::uint8_t DefaultCharSet = 1;
/// Orientation goes with the angle of the text.
constexpr std::uint8_t ClipAngles = 16;

SurfaceFont FontOf(const TextLook& look, std::int32_t height, std::int32_t angle) {
    return {.height = height,
            .escapement = angle,
            .orientation = angle,
            .weight = look.FontBold ? WeightBold : WeightNormal,
            .italic = look.FontItalic,
            .underline = look.FontUnderline,
            .strikeout = look.FontStrikeout,
            .charSet = DefaultCharSet,
            .clipPrecision = ClipAngles,
            .faceName = look.FontName};
}

std::int32_t WindowHeight(const TextLook& look) {
    return RoundToInt32(Divide(look.FontSize * TwipsPerPoint, Design.TwipsPerPixelY));
}

/// The text in hand in the units of a surface.
struct DeviceText {
    SurfacePoint anchor;
    SurfaceFont font;
};

std::int32_t CurrentEscapement() { return RoundToInt32(ValueOf(Design.CurrentTextAngle) * TenthsPerDegree); }

DeviceText TextOnWindow() {
    return {{RoundToInt32(Divide(Design.CurrentX, Design.TwipsPerPixelX)),
             RoundToInt32(Divide(Design.CurrentY, Design.TwipsPerPixelY))},
            FontOf(Design.CurrentLook, WindowHeight(Design.CurrentLook), CurrentEscapement())};
}

DeviceText TextOnMetafile() {
    const std::int32_t x = RoundToInt32(Divide(Design.CurrentX, Design.ClientWidth) * Design.LogicalWidth);
    const std::int32_t y = RoundToInt32(
        Design.LogicalHeight - (Divide(Design.CurrentY, Design.ClientHeight) * Design.LogicalHeight));
    const std::int32_t height = RoundToInt32(
        Divide(Design.CurrentLook.FontSize * TwipsPerPoint, Design.ClientHeight) * Design.LogicalHeight);
    return {{x, y}, FontOf(Design.CurrentLook, height, -CurrentEscapement())};
}

/// Where a place in twips of the window lies on the page, device pixels. Large papers have more twips than
/// sixteen bits.
std::int32_t TextPlaceOnPage(std::int32_t place, float margin, float strip, float twipsPerPixel) {
    const std::int32_t twips =
        RoundToInt32(((static_cast<double>(margin) - strip) * Design.PrintUnitTwips) + (place * PageScale()));
    return RoundToInt32(Divide(twips, twipsPerPixel));
}

DeviceText TextOnPage() {
    const PrinterPage& page = OutputNow.page;
    const std::int32_t x = TextPlaceOnPage(Design.CurrentX, Design.PrintLeft, page.PrinterOffsetX,
                                           OutputNow.PrinterTwipsPerPixelX);
    const std::int32_t y = TextPlaceOnPage(Design.CurrentY, Design.PrintTop, page.PrinterOffsetY,
                                           OutputNow.PrinterTwipsPerPixelY);
    const std::int32_t height = RoundToInt32(
        Divide(Design.CurrentLook.FontSize * PageScale() * TwipsPerPoint, OutputNow.PrinterTwipsPerPixelY));
    // With a height of 0 the printer would choose one.
    return {{x, y}, FontOf(Design.CurrentLook, std::min(height, -1), CurrentEscapement())};
}

DeviceText TextOnDevice() {
    if (Design.PrintingNow) {
        return TextOnPage();
    }
    return Design.TextToMetafile ? TextOnMetafile() : TextOnWindow();
}

/// Message box of a failed operation. A metafile that lacks something is discarded; in the window the rest
/// is still to be seen.
void ReportRefused(bool done, std::string_view text) {
    if (Design.TextToMetafile) {
        ReportLossUnless(done, text);
    } else {
        ReportUnless(done, text);
    }
}

void Draw(const DeviceText& text) {
    DrawSurface& surface = *Design.Surface;
    const SurfaceHandle font = surface.CreateFontIndirectA(text.font);
    ReportRefused(font != 0, "CreateFontIndirect error(1) in PrintRotatedText");
    const SurfaceHandle fontBefore = font == 0 ? 0 : surface.SelectObject(font);
    surface.SetTextAlign(AlignBaseline);
    const std::uint32_t colorBefore = surface.SetTextColor(ColorBits(Design.CurrentLook.FontColour));
    ReportRefused(surface.TextOutA(text.anchor.x, text.anchor.y, Design.CurrentText),
                  "TextOut error(1) in PrintRotatedText");
    surface.SetTextColor(colorBefore);
    if (font != 0) {
        surface.SelectObject(fontBefore);
        ReportRefused(surface.DeleteObject(font), "DeleteObject error(2) in PrintRotatedText");
    }
}

} // namespace

TextLook LookOf(const TextItem& item) {
    return {.FontName = item.TextFont,
            .FontSize = item.TextSize,
            .FontColour = item.TextColour,
            .FontBold = item.TextBold,
            .FontItalic = item.TextItalic,
            .FontUnderline = item.TextUnderline,
            .FontStrikeout = item.TextStrikeout};
}

SurfaceFont WindowFont(const TextLook& look) { return FontOf(look, WindowHeight(look), 0); }

TextItem TextInHandAsItem(std::string_view routine) {
    const TextLook& look = Design.CurrentLook;
    TextItem item;
    item.TextString = Design.CurrentText;
    item.TextAngle = RoundToInt16(ValueOf(Design.CurrentTextAngle));
    item.TextFont = look.FontName;
    item.TextSize = RoundToInt16(look.FontSize);
    item.TextColour = look.FontColour;
    item.TextBold = look.FontBold;
    item.TextItalic = look.FontItalic;
    item.TextUnderline = look.FontUnderline;
    item.TextStrikeout = look.FontStrikeout;
    item.TextX = Design.CurrentX;
    item.TextY = Design.CurrentY;
    item.TextPlaced = true;
    const std::optional<FontMetrics> metrics = Machine().fonts->Metrics(WindowFont(look));
    ReportUnless(metrics.has_value(), "GetTextMetrics error in " + std::string(routine));
    if (metrics) {
        const double twipsY = Design.TwipsPerPixelY;
        item.TextWidth = RoundToInt16(static_cast<double>(Design.TwipsPerPixelX) * metrics->averageWidth);
        item.TextHeight = RoundToInt16(twipsY * metrics->ascent);
        item.TextDescent = RoundToInt16(twipsY * metrics->descent);
        item.TextCellHeight = RoundToInt16(twipsY * metrics->height);
    }
    return item;
}

void PrintItem(const TextItem& item) {
    Design.CurrentText = item.TextString;
    Design.CurrentTextAngle = std::to_string(item.TextAngle);
    Design.CurrentX = item.TextX;
    Design.CurrentY = item.TextY;
    Design.CurrentLook = LookOf(item);
    PrintRotatedText();
}

void PrintRotatedText() {
    const auto print = [] { Draw(TextOnDevice()); };
    if (Design.TextToMetafile) {
        GuardedWriting("PrintRotatedText", print);
    } else {
        Guarded("PrintRotatedText", print);
    }
}

void PrintText() {
    Guarded("PrintText", [] {
        for (std::size_t i = 0; i < Design.TextItems.size(); ++i) {
            const bool inHand = Design.TextPending && Design.TextIsEdit &&
                                i + 1 == static_cast<std::size_t>(Design.TextEditIndex);
            if (!inHand) {
                PrintItem(Design.TextItems[i]);
            }
        }
    });
    Design.CurrentText.clear();
}

} // namespace quelmont

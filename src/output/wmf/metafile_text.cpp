#include "output/wmf/metafile_text.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/export_file.h"

namespace quelmont {

namespace {

/// Negative: height of characters, not of their cells.
constexpr double TwipsPerPoint = -20.0;

constexpr std::int32_t WeightNormal = 400;
constexpr std::int32_t WeightBold = 700;
constexpr std::uint8_t DefaultCharSet = 1;
/// Orientation goes with the angle of the text.
constexpr std::uint8_t ClipAngles = 16;

void PrintRotatedText(MetafileRecorder& surface, const TextItem& item) {
    const std::int32_t x = RoundToInt32(Divide(item.TextX, Design.ClientWidth) * Design.LogicalWidth);
    const std::int32_t y =
        RoundToInt32(Design.LogicalHeight - (Divide(item.TextY, Design.ClientHeight) * Design.LogicalHeight));
    const std::int32_t angle = -RoundToInt32(item.TextAngle * 10.0);
    const SurfaceHandle font = surface.CreateFontIndirectA(
        {.height =
             RoundToInt32(Divide(item.TextSize * TwipsPerPoint, Design.ClientHeight) * Design.LogicalHeight),
         .escapement = angle,
         .orientation = angle,
         .weight = item.TextBold ? WeightBold : WeightNormal,
         .italic = item.TextItalic,
         .underline = item.TextUnderline,
         .strikeout = item.TextStrikeout,
         .charSet = DefaultCharSet,
         .clipPrecision = ClipAngles,
         .faceName = item.TextFont});
    ReportLossUnless(font != 0, "CreateFontIndirect error(1) in PrintRotatedText");
    const SurfaceHandle fontBefore = font == 0 ? 0 : surface.SelectObject(font);
    surface.SetTextAlign(MetafileRecorder::AlignBaseline);
    const std::uint32_t colorBefore = surface.SetTextColor(item.TextColour);
    ReportLossUnless(surface.TextOutA(x, y, item.TextString), "TextOut error(1) in PrintRotatedText");
    surface.SetTextColor(colorBefore);
    if (font != 0) {
        surface.SelectObject(fontBefore);
        ReportLossUnless(surface.DeleteObject(font), "DeleteObject error(2) in PrintRotatedText");
    }
}

} // namespace

void PrintText(MetafileRecorder& surface) {
    for (const TextItem& item : Design.TextItems) {
        GuardedWriting("PrintRotatedText", [&] { PrintRotatedText(surface, item); });
    }
}

} // namespace quelmont

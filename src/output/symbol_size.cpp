#include "output/symbol_size.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/output_state.h"

#include <algorithm>

namespace quelmont {

void SetSymbolSize(std::int16_t Feature, std::int32_t FileIndex) {
    if (Feature < 0 || Feature > MaxFeatureRows || FileIndex < 1 ||
        static_cast<std::size_t>(FileIndex) > Design.InputFiles.size()) {
        throw RunTimeError(ErrorSubscript);
    }
    const InputFileEntry& file = Design.InputFiles[static_cast<std::size_t>(FileIndex - 1)];
    const FeatureStyle& style = file.Features[static_cast<std::size_t>(Feature)];
    const std::int16_t type = Design.CurrentSymbolType;

    OutputNow.SymbolRadius = style.SymbolSize;
    if (IsOpenShape(type)) {
        OutputNow.SymbolRadius = std::max(0, style.SymbolSize - style.BorderWidth / 2);
    }
    if (Design.PrintingNow) {
        return; // no file is written, and the area is that of the page
    }
    const double fileUnits = Divide(Design.LogicalWidth, Design.ClientWidth);
    Design.SymbolRadiusFile =
        type == SymbolDot ? std::int16_t{2} : RoundToInt16(fileUnits * OutputNow.SymbolRadius);
    Design.BorderWidthFile =
        RoundToInt16(Design.LineWidthsScaled ? fileUnits * style.BorderWidth
                                             : Divide(style.BorderWidth, Design.TwipsPerPixelY));
}

} // namespace quelmont

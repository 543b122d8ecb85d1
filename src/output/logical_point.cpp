#include "output/logical_point.h"

#include "core/checked_math.h"
#include "core/rounding.h"

namespace quelmont {

LogicalPoint LogicalPointOfCell() {
    return {RoundToInt16(((Design.ProjX - Design.MapXMin) * Design.LogicalScale) + Design.LogicalOriginX),
            RoundToInt16(((Design.ProjY - Design.MapYMin) * Design.LogicalScale) + Design.LogicalOriginY)};
}

LogicalPoint LogicalPointOfText(const TextItem& text) {
    return {RoundToInt16(Divide(text.TextX, Design.ClientWidth) * Design.LogicalWidth),
            RoundToInt16(Design.LogicalHeight -
                         (Divide(text.TextY, Design.ClientHeight) * Design.LogicalHeight))};
}

double FileTextHeight(const TextItem& text) {
    return ((Design.TextScalePercent / 100.0) * Divide(Design.LogicalHeight, Design.ClientHeight)) *
           text.TextHeight;
}

double FileLineWidth() {
    if (!Design.LineWidthsScaled) {
        return Design.PenWidth;
    }
    return (static_cast<double>(Design.TwipsPerPixelY) * Design.PenWidth) *
           Divide(Design.LogicalWidth, Design.ClientWidth);
}

} // namespace quelmont

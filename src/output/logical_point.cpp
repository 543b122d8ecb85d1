#include "output/logical_point.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/rounding.h"

namespace quelmont {

LogicalPoint LogicalPointOfCell() {
    return {RoundToInt16(((Design.ProjX - Design.MapXMin) * Design.LogicalScale) + Design.LogicalOriginX),
            RoundToInt16(((Design.ProjY - Design.MapYMin) * Design.LogicalScale) + Design.LogicalOriginY)};
}

double FileLineWidth() {
    if (!Design.LineWidthsScaled) {
        return Design.PenWidth;
    }
    return (static_cast<double>(Design.TwipsPerPixelY) * Design.PenWidth) *
           Divide(Design.LogicalWidth, Design.ClientWidth);
}

} // namespace quelmont

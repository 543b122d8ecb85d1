#include "output/page_scale.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/output_state.h"
#include "platform/machine.h"

#include <algorithm>

namespace quelmont {

namespace {

/// The printer's first pixel lies at the end of the strip that it cannot reach.
std::int32_t OnPage(std::int32_t place, float margin, float strip, float twipsPerPixel) {
    const double twips = (static_cast<double>(margin) - strip) * Design.PrintUnitTwips;
    return RoundToInt32(place + Divide(twips, twipsPerPixel));
}

} // namespace

double PageScale() {
    if (!Design.PrintingNow) {
        return 1.0;
    }
    return Divide(static_cast<double>(Design.PrintWidth) * Design.PrintUnitTwips,
                  Machine().window->ScaleWidth());
}

void TakePenWidth(double twips) {
    const double pixels = Divide(twips, Design.TwipsPerPixelY);
    Design.PenWidth = RoundToInt32(pixels);
    OutputNow.PenPixels = pixels;
}

std::int32_t DevicePenWidth() {
    if (!Design.PrintingNow || !Design.LineWidthsScaled) {
        return Design.PenWidth;
    }
    return RoundToInt32(
        Divide((PageScale() * Design.PenWidth) * Design.TwipsPerPixelY, OutputNow.PrinterTwipsPerPixelY));
}

std::int32_t DeviceDotPixels(double windowPixels) {
    if (!Design.PrintingNow) {
        return std::max(1, RoundToInt32(windowPixels));
    }
    if (!Design.LineWidthsScaled) {
        return 1;
    }
    return std::max(1, RoundToInt32(Divide((PageScale() * windowPixels) * Design.TwipsPerPixelY,
                                           OutputNow.PrinterTwipsPerPixelY)));
}

std::int32_t PageX(std::int32_t x) {
    return Design.PrintingNow
               ? OnPage(x, Design.PrintLeft, OutputNow.page.PrinterOffsetX, OutputNow.DevicePixelX)
               : x;
}

std::int32_t PageY(std::int32_t y) {
    return Design.PrintingNow
               ? OnPage(y, Design.PrintTop, OutputNow.page.PrinterOffsetY, OutputNow.DevicePixelY)
               : y;
}

} // namespace quelmont

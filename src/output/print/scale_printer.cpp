#include "output/print/scale_printer.h"

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/output_state.h"
#include "output/scale_screen.h"
#include "platform/machine.h"

namespace quelmont {

bool ScalePrinter() {
    return Guarded("ScalePrinter", [] {
        const MainWindow& window = *Machine().window;
        const std::int32_t width =
            RoundToInt32(static_cast<double>(Design.PrintUnitTwips) * Design.PrintWidth);
        Design.ClientHeight = RoundToInt32(Divide(window.ScaleHeight() * width, window.ScaleWidth()));
        Design.ClientWidth = width;
        FitMapToClient();
    });
}

MapOnPage BoxOfMapOnPage() {
    const double unit = Design.PrintUnitTwips;
    const double left = static_cast<double>(Design.PrintLeft) - OutputNow.page.PrinterOffsetX;
    const double top = static_cast<double>(Design.PrintTop) - OutputNow.page.PrinterOffsetY;
    return {RoundToInt16(Divide(left * unit, OutputNow.PrinterTwipsPerPixelX)),
            RoundToInt16(Divide(top * unit, OutputNow.PrinterTwipsPerPixelY)),
            RoundToInt16(Divide((left + Design.PrintWidth) * unit, OutputNow.PrinterTwipsPerPixelX)),
            RoundToInt16(Divide(top * unit + Design.ClientHeight, OutputNow.PrinterTwipsPerPixelY))};
}

} // namespace quelmont

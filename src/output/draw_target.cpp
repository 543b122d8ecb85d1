#include "output/draw_target.h"

#include "core/map_design.h"
#include "output/fan_out.h"
#include "output/output_state.h"
#include "output/page_scale.h"
#include "platform/machine.h"

namespace quelmont {

void SelectDevice() {
    if (Design.PrintingNow) {
        Design.Surface = OutputNow.PrinterSurface;
        OutputNow.DevicePixelX = OutputNow.PrinterTwipsPerPixelX;
        OutputNow.DevicePixelY = OutputNow.PrinterTwipsPerPixelY;
    } else {
        Design.Surface = &Machine().window->Surface();
        OutputNow.DevicePixelX = Design.TwipsPerPixelX;
        OutputNow.DevicePixelY = Design.TwipsPerPixelY;
    }
    OutputNow.fineLines = Design.Surface != nullptr ? Design.Surface->Smooth(Design.SmoothLines) : nullptr;
    Design.DotPixels = DeviceDotPixels(1.0);
}

bool OpenExport(std::size_t slot) {
    FileWriter* writer = ArmedWriter();
    if (writer != nullptr) {
        writer->OpenStretch(slot);
    }
    return writer != nullptr;
}

} // namespace quelmont

#include "output/draw_target.h"

#include "core/map_design.h"
#include "output/fan_out.h"
#include "output/output_state.h"
#include "platform/machine.h"

namespace quelmont {

void SelectDevice() {
    Design.Surface = &Machine().window->Surface();
    OutputNow.DevicePixelX = Design.TwipsPerPixelX;
    OutputNow.DevicePixelY = Design.TwipsPerPixelY;
    Design.DotPixels = 1;
}

bool OpenExport(std::size_t slot) {
    FileWriter* writer = ArmedWriter();
    if (writer != nullptr) {
        writer->OpenStretch(slot);
    }
    return writer != nullptr;
}

} // namespace quelmont

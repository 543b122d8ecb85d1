#include "output/draw_target.h"

#include "core/map_design.h"
#include "output/fan_out.h"
#include "platform/machine.h"

namespace quelmont {

void SelectDevice() {
    Design.Surface = &Machine().window->Surface();
    Design.DevicePixelX = Design.TwipsPerPixelX;
    Design.DevicePixelY = Design.TwipsPerPixelY;
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

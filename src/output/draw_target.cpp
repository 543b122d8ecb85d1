#include "output/draw_target.h"

#include "core/file_numbers.h"
#include "core/map_design.h"
#include "core/run_time_error.h"
#include "platform/machine.h"

namespace quelmont {

void SelectDevice() {
    Design.Surface = &Machine().window->Surface();
    Design.DevicePixelX = Design.TwipsPerPixelX;
    Design.DevicePixelY = Design.TwipsPerPixelY;
}

bool OpenExport(std::size_t slot) {
    if (Design.OutputAscii) {
        if (slot < 1 || slot > Design.AsciiFileName.size()) {
            throw RunTimeError(ErrorSubscript);
        }
        Design.OutputFileName = Design.AsciiFileName[slot - 1];
        OpenFile(OutputFileNumber, Design.OutputFileName, OpenMode::Output);
        return true;
    }
    if (Design.OutputCgm) {
        OpenFile(OutputFileNumber, Design.CgmFileName, OpenMode::Binary);
        return true;
    }
    if (Design.OutputDxf) {
        OpenFile(OutputFileNumber, Design.DxfFileName, OpenMode::Append);
        return true;
    }
    return Design.OutputWmf;
}

} // namespace quelmont

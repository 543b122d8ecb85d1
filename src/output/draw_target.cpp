#include "output/draw_target.h"

#include "core/map_design.h"
#include "core/run_time_error.h"
#include "output/export_file.h"
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
        // Later passes of an interrupted map go on where the earlier ones ended.
        if (ExportBegun(Design.OutputFileName)) {
            ResumeExport(Design.OutputFileName);
        } else {
            BeginExport(Design.OutputFileName);
        }
        return true;
    }
    if (Design.OutputCgm) {
        ResumeExport(Design.CgmFileName);
        return true;
    }
    if (Design.OutputDxf) {
        ResumeExport(Design.DxfFileName);
        return true;
    }
    return Design.OutputWmf;
}

void CloseStretch() {
    CloseExport();
    if (Design.OutputAscii && Design.LobeLast) {
        FinishExport(Design.OutputFileName);
    }
}

} // namespace quelmont

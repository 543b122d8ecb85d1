#include "output/device_pen.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "output/output_state.h"
#include "output/page_scale.h"
#include "platform/draw_surface.h"

#include <string>

namespace quelmont {

namespace {

DevicePen& pen = OutputNow.pen;

void Report(std::string_view operation, int site, std::string_view routine) {
    ShowApiErrorBox(std::string(operation) + "(" + std::to_string(site) + ") error in " +
                    std::string(routine));
}

void Take(SurfaceHandle made, int site, std::string_view routine) {
    if (made == 0) {
        Report("CreatePen", site, routine);
        return;
    }
    pen = DevicePen{Design.Surface, made, Design.Surface->SelectObject(made)};
}

} // namespace

void MakeDevicePen(int style, std::int32_t width, ColorValue color, int site, std::string_view routine) {
    Take(Design.Surface->CreatePen(style, width, ColorBits(color)), site, routine);
}

void MakeLinePen(ColorValue color, int site, std::string_view routine) {
    if (OutputNow.fineLines != nullptr) {
        Take(OutputNow.fineLines->CreateFinePen(OutputNow.PenPixels, ColorBits(color)), site, routine);
    } else {
        MakeDevicePen(PenStyleSolid, DevicePenWidth(), color, site, routine);
    }
}

void ReleaseDevicePen(int site, std::string_view routine) {
    const DevicePen released = pen;
    pen = DevicePen{};
    if (released.made == 0) {
        return;
    }
    if (released.before != 0) {
        released.surface->SelectObject(released.before);
    }
    if (!released.surface->DeleteObject(released.made)) {
        Report("DeleteObject", site, routine);
    }
}

} // namespace quelmont

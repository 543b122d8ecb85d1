#pragma once

#include "core/map_design.h"
#include "output/draw_target.h"
#include "output/output_state.h"
#include "support/fresh_program.h"

#include <string>

namespace quelmont {

/// A fresh program whose surface is the scripted window's, with pixels of 15 by 15 twips, and with a
/// fit in which a projection unit is a twip: x eastward from the left edge, y northward from the
/// upper one.
class OutputTest : public FreshProgramTest {
protected:
    OutputTest() {
        Design.TwipsPerPixelX = 15.0F;
        Design.TwipsPerPixelY = 15.0F;
        SelectDevice();
        Design.ScreenScaleX = 1.0;
        Design.ScreenScaleY = 1.0;
        Design.CurrentSymbolType = SymbolLine;
    }

    /// Puts the point cell on a device pixel, which need not be a whole one.
    static void At(double x, double y) {
        Design.ProjX = x * OutputNow.DevicePixelX;
        Design.ProjY = -y * OutputNow.DevicePixelY;
    }

    std::string Drawn() { return surface.Text(); }

    RecordingSurface& surface = machine.window.surface;
};

} // namespace quelmont

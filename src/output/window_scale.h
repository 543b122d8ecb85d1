#pragma once

#include "core/map_design.h"
#include "output/scale_screen.h"

#include <cstdint>

namespace quelmont {

/// While it lives the map has the scale of the window, whatever the device: a page in print has its own
/// scale and size, which come back at the end.
class WindowScale {
public:
    WindowScale() {
        if (Design.PrintingNow) {
            ScaleScreen();
        }
    }
    ~WindowScale() {
        if (Design.PrintingNow) {
            Design.ClientWidth = page.clientWidth;
            Design.ClientHeight = page.clientHeight;
            Design.ScreenOriginX = page.originX;
            Design.ScreenOriginY = page.originY;
            Design.ScreenScaleX = page.scaleX;
            Design.ScreenScaleY = page.scaleY;
        }
    }
    WindowScale(const WindowScale&) = delete;
    WindowScale& operator=(const WindowScale&) = delete;

private:
    struct Page {
        std::int32_t clientWidth = Design.ClientWidth, clientHeight = Design.ClientHeight;
        double originX = Design.ScreenOriginX, originY = Design.ScreenOriginY;
        double scaleX = Design.ScreenScaleX, scaleY = Design.ScreenScaleY;
    } page;
};

} // namespace quelmont

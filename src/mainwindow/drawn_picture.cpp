#include "mainwindow/drawn_picture.h"

#include "core/run_time_error.h"
#include "designfile/cnf_save.h"
#include "mainwindow/kept_choices.h"
#include "mainwindow/main_window_state.h"

namespace quelmont {

std::string DrawnDesign() {
    try {
        return DrawnDesignText() + DrawnChoices();
    } catch (const RunTimeError&) {
        return {};
    }
}

void NotePicture(bool whole, double width, double height) {
    MainWindowNow.Picture = {.bounds = Design,
                             .projNum = Design.ProjNum,
                             .originX = Design.ScreenOriginX,
                             .originY = Design.ScreenOriginY,
                             .scaleX = Design.ScreenScaleX,
                             .scaleY = Design.ScreenScaleY,
                             .twipsPerPixelX = Design.TwipsPerPixelX,
                             .twipsPerPixelY = Design.TwipsPerPixelY,
                             .width = width,
                             .height = height,
                             .design = DrawnDesign(),
                             .seconds = Design.PlotSeconds,
                             .whole = whole};
}

void ForgetPicture() { MainWindowNow.Picture.reset(); }

} // namespace quelmont

#pragma once

#include "core/map_design.h"

#include <string>

namespace quelmont {

/// What the picture on the main window was drawn with. The design goes on after the draw; whoever asks what
/// the picture shows asks this.
struct DrawnPicture {
    DesignBounds bounds;
    std::int16_t projNum = 0;
    double originX = 0.0, originY = 0.0, scaleX = 0.0, scaleY = 0.0; ///< as ScaleScreen left them, twips
    float twipsPerPixelX = 0.0F, twipsPerPixelY = 0.0F;
    double width = 0.0, height = 0.0; ///< of the drawing area, twips
    std::string design;               ///< as DrawnDesign gave it
    double seconds = 0.0;             ///< that the draw took
    bool whole = false;               ///< neither stopped nor with a message box
};

/// What of the design and of the choices a picture depends on, as one text to be compared: neither texts nor
/// labels, which are shown without a draw, nor pages and file names. Empty for a design that no file can
/// hold.
std::string DrawnDesign();

/// The picture on the window is one of the design as it is now, in the state that a draw leaves. width,
/// height: of the drawing area when the draw began, twips. Reads   the bounds, the fit, PlotSeconds. Writes
/// MainWindowNow.Picture.
void NotePicture(bool whole, double width, double height);

/// The window has no picture of a design now.
void ForgetPicture();

} // namespace quelmont

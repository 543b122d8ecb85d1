#pragma once

#include "platform/pictures.h"

namespace quelmont {

/// What a picture of the window tells of the map: its resolution, the title of its design, the program.
/// Reads   TwipsPerPixelX, TwipsPerPixelY, CnfFileName, VersionText.
PictureNotes NotesOfMap();

/// Saves the picture of the window as a PNG file, pixel for pixel. The file is whole or absent, and replaces
/// no map file of the design. A window that has not been drawn on is its background.
/// Reads   PngFileName. A failure shows "Error in PngSave".
void PngSave();

} // namespace quelmont

#pragma once

namespace quelmont {

/// The File menu's items that save the map: BMP, CGM, DXF, WMF, SVG and the map design by the name that a
/// file dialog gives, ASCII by the names of its own dialog. BMP saves the picture as it is, the map design is
/// written without a draw; CGM, DXF, WMF and SVG draw the map once more, into the window and the file; PDF
/// asks for its page first, on which the map is then printed. Great and small circles are saved as tables of
/// their points, by the name that a file dialog gives. Cancel does nothing; another failure of the file
/// dialog shows "File Common Dialog Error". Other indices are ignored.
void SaveMapAs(int Index);

/// Saves the design into the file that it has; one without a file as the File menu's item does.
void SaveDesignAgain(int Index);

} // namespace quelmont
